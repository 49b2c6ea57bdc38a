// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QLoggingCategory>
#include <QQmlContext>
#include <QUrl>
#include <QtQml>

namespace om::controls {

/// The QML document that an object is declared in, as the %{file} of messages about the object.
///
/// Their %{line} is 0: no public function of Qt 5 tells the line of an object. Qt's own
/// qmlWarning() knows it, but writes both into the text.
///
///     const QmlPlace place(this);
///     place.log().warning("Module size must be between %d and %d", 1, 4);
class QmlPlace
{
public:
    /// \a object may be null, and need not come from QML.
    explicit QmlPlace(const QObject *object)
    {
        if (const QQmlContext *const context = qmlContext(object)) {
            m_file = context->baseUrl().toEncoded();
        }
    }

    /// Writes with the default category, or with one that the function is given. The place has to
    /// be there until it has written.
    QMessageLogger log() const
    {
        return QMessageLogger(m_file.isEmpty() ? nullptr : m_file.constData(), 0, nullptr);
    }

private:
    QByteArray m_file;
};

} // namespace om::controls
