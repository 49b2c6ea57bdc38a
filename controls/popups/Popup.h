// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "controls/popups/Follower.h"

#include <QQuickItem>
#include <QVariant>

#include <memory>

namespace om::controls {

/// An item that is declared anywhere and shows its content above everything else of the window.
///
/// On completion it moves to the root of the item tree. Opening fades it in, closing fades it out;
/// it stays visible until the fade has ended. While it is open, and unless it is persistent, Escape
/// or a press outside it and its attached item closes it as rejected.
///
/// The popup never deletes itself: it belongs to whoever declared it.
class Popup
    : public QQuickItem
    , public Follower
{
    Q_OBJECT
    /// Whether the popup is open; false before the component is complete.
    Q_PROPERTY(bool open READ isOpen WRITE setOpen NOTIFY openChanged)
    /// Whether Escape and presses outside leave the popup open.
    Q_PROPERTY(bool persistent READ isPersistent WRITE setPersistent NOTIFY persistentChanged)
    /// The item that the popup follows; not owned, null again when it is destroyed. Without one,
    /// the popup is placed in its parent item.
    Q_PROPERTY(
        QQuickItem *attachedItem READ attachedItem WRITE setAttachedItem NOTIFY attachedItemChanged)
    /// The point of the popup, in its own coordinates, that is put onto the anchor point.
    Q_PROPERTY(QPointF hotspot READ hotspot WRITE setHotspot NOTIFY hotspotChanged)
    /// The anchor point, in the coordinates of the attached item.
    Q_PROPERTY(QPointF offset READ offset WRITE setOffset NOTIFY offsetChanged)

public:
    explicit Popup(QQuickItem *parent = nullptr);
    ~Popup() override;

    bool isOpen() const;
    /// Before the component is complete the value is only remembered.
    void setOpen(bool open);
    bool isPersistent() const;
    void setPersistent(bool persistent);
    QQuickItem *attachedItem() const;
    /// Does not move the popup: the next updatePosition() does, at the latest with the next frame.
    void setAttachedItem(QQuickItem *item);
    /// The attached item.
    const QQuickItem *followedItem() const override;
    QPointF hotspot() const;
    void setHotspot(const QPointF &hotspot);
    QPointF offset() const;
    void setOffset(const QPointF &offset);

    /// Opens the popup.
    Q_INVOKABLE void show();
    /// Closes the popup, then emits accepted().
    Q_INVOKABLE void accept(const QVariant &result);
    /// Closes the popup, then emits rejected().
    Q_INVOKABLE void reject();
    /// Puts the hotspot onto the anchor point. Runs by itself with every frame of the window.
    Q_INVOKABLE void updatePosition();

Q_SIGNALS:
    void openChanged(bool open);
    void persistentChanged(bool persistent);
    void attachedItemChanged(QQuickItem *attachedItem);
    void hotspotChanged(const QPointF &hotspot);
    void offsetChanged(const QPointF &offset);
    /// The fade in or out has ended.
    void animationFinished();
    void accepted(const QVariant &result);
    void rejected();

protected:
    void componentComplete() override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void itemChange(ItemChange change, const ItemChangeData &value) override;

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace om::controls
