// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/DragWatch.h"

#include <QDropEvent>
#include <QMimeData>

namespace support {

DragWatch::DragWatch(QObject *window, const QString &format)
    : m_format(format)
{
    window->installEventFilter(this);
}

bool DragWatch::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::DragEnter) {
        const auto *const enter = static_cast<QDropEvent *>(event);
        formats = enter->mimeData()->formats();
        payload = enter->mimeData()->data(m_format);
        actions = enter->possibleActions();
    } else if (event->type() == QEvent::DragMove) {
        position = static_cast<QDropEvent *>(event)->pos();
        ++moves;
    }
    return false;
}

} // namespace support
