// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPoint>
#include <QStringList>

namespace support {

/// What a drag looks like to the window (or item) that it is over: an event filter that notes what
/// the last drag carried when it came in, and where its moves went.
class DragWatch : public QObject
{
public:
    /// Notes as the payload what is carried as \a format.
    DragWatch(QObject *window, const QString &format);

    bool eventFilter(QObject *watched, QEvent *event) override;

    QStringList formats;
    QByteArray payload;
    Qt::DropActions actions;
    QPoint position;
    int moves = 0;

private:
    const QString m_format;
};

} // namespace support
