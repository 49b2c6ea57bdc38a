// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QScopedPointer>

namespace support {

/// A QML document that brings its own window, shown and active. What goes wrong is fatal. See
/// QmlView for documents that are items.
struct QmlWindow
{
    /// \a path is relative to the folder of the test's source: "data/case.qml".
    explicit QmlWindow(const QString &path);
    ~QmlWindow();

    /// Evaluates the JavaScript \a expression in the document; errors are fatal.
    QVariant run(const QString &expression) const;
    /// The item whose objectName is \a name, found among QObject children; null without.
    QQuickItem *item(const char *name) const;

    QQmlEngine engine;
    QScopedPointer<QQuickWindow> window;
};

/// A window that can tell how many objects follow its frames.
class CountingWindow : public QQuickWindow
{
public:
    int followers() const { return receivers(SIGNAL(beforeSynchronizing())); }
};

} // namespace support
