// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QMimeData>
#include <QPointF>
#include <QPointer>
#include <QUrl>

#include <functional>
#include <memory>

class QDrag;

namespace support {

/// A drag made of nothing but events, for exact orders: each call sends one event and returns when
/// it has been handled. Sent to a window, they take the way of a real drag's; sent to an item, they
/// reach its handlers whatever went before.
///
/// Works on every platform. Without a drag loop around it, the events' source is null, as in a
/// drag from another process; withDragFrom() gives them one.
class DragEvents
{
public:
    /// \a receiver is a window or an item; positions are in its coordinates.
    explicit DragEvents(QObject *receiver);
    ~DragEvents();

    /// What the drag carries.
    QMimeData *mimeData() const { return m_mimeData.get(); }
    void setUrls(const QList<QUrl> &urls);
    void setData(const QString &format, const QByteArray &data);
    /// Takes what the drag carries away, as the death of its owner does.
    void dropMimeData() { m_mimeData.reset(); }

    /// Each but leave() answers whether the event came back accepted. A move and a drop are sent
    /// as \a accepted says: what comes back shows whether the receiver touched it.
    bool enter(const QPointF &position = {10, 10});
    bool move(const QPointF &position = {11, 11}, bool accepted = false);
    bool drop(const QPointF &position = {12, 12}, bool accepted = false);
    void leave();

private:
    QPointer<QObject> m_receiver;
    std::unique_ptr<QMimeData> m_mimeData;
};

/// Runs a real drag (QDrag::exec) whose source is \a source, calls \a body from within, and cancels
/// the drag. Events that \a body sends say that they come from \a source. The drag does not die
/// with its source. Needs the xcb platform; the pointer should be outside all windows.
void withDragFrom(QObject *source, const std::function<void(QDrag *drag)> &body);

} // namespace support
