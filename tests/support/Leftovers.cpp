// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Leftovers.h"

#include <QGuiApplication>
#include <QStringList>
#include <QWindow>

namespace support {

QString leftovers()
{
    QStringList left;
    for (const QWindow *window : QGuiApplication::allWindows()) {
        if (window->isVisible()) {
            left.append(
                QStringLiteral("a visible window '%1' (%2)")
                    .arg(window->title(), QString::fromLatin1(window->metaObject()->className())));
        }
    }
    if (QGuiApplication::overrideCursor()) {
        left.append(QStringLiteral("an override cursor"));
    }
    return left.join(QStringLiteral(", "));
}

} // namespace support
