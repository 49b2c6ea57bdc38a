// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <QTest>

/// The gallery's window, made with an engine that is prepared for it, at \a page or else where it
/// begins: shown and active. Null when it cannot be.
inline QQuickWindow *openGalleryWindow(QQmlApplicationEngine *engine, const char *page = nullptr)
{
    engine->load(QUrl::fromLocalFile(qEnvironmentVariable("OMBREL_SOURCE_DIR")
                                     + QStringLiteral("/gallery/qml/Gallery.qml")));
    auto *const window = qobject_cast<QQuickWindow *>(engine->rootObjects().value(0));
    if (!window) {
        return nullptr;
    }
    if (page) {
        window->setProperty("currentPage", QString::fromLatin1(page));
    }
    window->setPosition(0, 0);
    window->show();
    window->requestActivate();
    return QTest::qWaitForWindowActive(window) ? window : nullptr;
}
