// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QQuickItem>

#include <memory>

namespace om::controls {

/// An item that is dragged itself: a left press on it or on a child, moved by more than 5 logical
/// pixels, lifts it above everything and starts a system drag that carries dragData. Over its own
/// window the item follows the cursor.
///
/// Re-parented during the drag, it keeps its size on screen. After a drag that no target took, it
/// stays where it is: a handler of dragEnded() may move it back.
class Draggable : public QQuickItem
{
    Q_OBJECT
    /// True while the item is dragged.
    Q_PROPERTY(bool isDragged READ isDragged NOTIFY isDraggedChanged)
    /// The text that the drag carries, as UTF-8; empty by default.
    Q_PROPERTY(QString dragData READ dragData WRITE setDragData NOTIFY dragDataChanged)

public:
    explicit Draggable(QQuickItem *parent = nullptr);
    /// Warns when the item is destroyed between press and release.
    ~Draggable() override;

    bool isDragged() const;
    QString dragData() const;
    void setDragData(const QString &dragData);

Q_SIGNALS:
    void isDraggedChanged();
    void dragDataChanged();
    /// Follows isDraggedChanged() at the start of a drag.
    void dragStarted();
    /// Follows isDraggedChanged() at its end.
    void dragEnded();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    bool childMouseEventFilter(QQuickItem *item, QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void itemChange(ItemChange change, const ItemChangeData &value) override;

private Q_SLOTS:
    void drag();

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace om::controls
