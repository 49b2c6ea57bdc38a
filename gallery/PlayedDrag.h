// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QMimeData>
#include <QObject>
#include <QPointF>
#include <QPointer>
#include <QQuickItem>
#include <QUrl>

#include <memory>

namespace om::gallery {

/// A drag of one file over one item, made of drag events alone: what a file manager would bring,
/// without pointer, keyboard or window taking part.
///
/// Positions are in the item's coordinates. Without a target nothing is sent.
class PlayedDrag : public QObject
{
    Q_OBJECT
    /// The item that gets the events, for instance a DropZone; disabled ones get them as well.
    Q_PROPERTY(QQuickItem *target READ target WRITE setTarget NOTIFY targetChanged)

public:
    explicit PlayedDrag(QObject *parent = nullptr);
    ~PlayedDrag() override;

    QQuickItem *target() const { return m_target; }
    /// The drag leaves the target before.
    void setTarget(QQuickItem *target);

    /// Comes in with `file`; a drag that is over the item already leaves it first.
    Q_INVOKABLE void enter(const QUrl &file, const QPointF &position);
    /// Without enter() before, these three do nothing.
    Q_INVOKABLE void move(const QPointF &position);
    Q_INVOKABLE void drop(const QPointF &position);
    Q_INVOKABLE void leave();

Q_SIGNALS:
    void targetChanged();

private:
    QPointer<QQuickItem> m_target;
    // Of the drag that is over the item now; null without one.
    std::unique_ptr<QMimeData> m_carried;
};

} // namespace om::gallery
