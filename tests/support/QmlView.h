// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>

#include <memory>

namespace support {

/// A QML document in a window, as an application shows it. The document is given as text or as a
/// file of the test's data folder; errors in it are fatal, with the engine's own words.
class QmlView
{
public:
    QmlView();
    ~QmlView();

    /// Loads the document \a qml; "import QtQuick 2.12" and "import ombrel.Controls 1.0" are put
    /// before it.
    void load(const QByteArray &qml);
    /// Loads the file \a path, relative to the folder of the test's source: "data/case.qml".
    void loadFile(const QString &path);
    /// Shows the window at a fixed place, and waits until it is exposed and active.
    void show();

    QQuickView *window() const { return m_view.get(); }
    QQmlEngine *engine() const { return m_view->engine(); }
    QQuickItem *root() const { return m_view->rootObject(); }
    /// The object below the root (or the root itself) whose objectName is \a name, found among
    /// QObject children and visual children; null when there is none.
    QObject *find(const QString &name) const;
    template<typename T = QQuickItem>
    T *item(const char *name) const
    {
        return qobject_cast<T *>(find(QString::fromLatin1(name)));
    }
    /// Destroys the window and the engine before the object goes out of scope.
    void close();

private:
    std::unique_ptr<QQuickView> m_view;
};

/// Evaluates the JavaScript \a expression in the context of \a object; errors are fatal.
QVariant evaluate(QObject *object, const QString &expression);

} // namespace support
