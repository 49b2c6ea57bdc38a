// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/popups/Popup.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QPropertyAnimation>
#include <QQuickWindow>

namespace om::controls {

class Popup::Private
{
public:
    explicit Private(Popup *popup)
        : q(popup)
        , animation(new QPropertyAnimation(popup, "opacity", popup))
    {
        // The ends are whole numbers on purpose; the animation turns them into the property's own
        // type when it starts, and for that it has to know the property first.
        animation->setStartValue(0);
        animation->setEndValue(1);
        animation->setDuration(100);
        QObject::connect(
            animation, &QAbstractAnimation::finished, q, [this] { finish(); },
            Qt::DirectConnection);
    }

    void finish();
    void forgetAttachedItem();
    void followFrames(QQuickWindow *window);
    void filterEvents(QQuickWindow *window);
    bool isOutside(const QMouseEvent *press) const;

    Popup *const q;
    bool open = false;
    bool persistent = false;
    bool pendingOpen = false;
    QPointer<QQuickItem> attachedItem;
    QMetaObject::Connection attachedItemDestroyed;
    QPointF hotspot;
    QPointF offset;
    QPropertyAnimation *const animation;
    QMetaObject::Connection frames;
    /// The window that the filter sits on, which need not be the item's own window any more.
    QPointer<QQuickWindow> filteredWindow;
};

void Popup::Private::finish()
{
    const QPointer<Popup> self(q);
    Q_EMIT q->animationFinished();
    if (self && !open) {
        q->setVisible(false);
    }
}

void Popup::Private::forgetAttachedItem()
{
    attachedItem.clear();
    Q_EMIT q->attachedItemChanged(nullptr);
}

/// Under the threaded render loop the signal comes from the render thread; the automatic connection
/// carries it over to the thread of the item.
void Popup::Private::followFrames(QQuickWindow *window)
{
    QObject::disconnect(frames);
    frames = {};
    if (window) {
        frames =
            QObject::connect(window, &QQuickWindow::beforeSynchronizing, q, &Popup::updatePosition);
    }
}

void Popup::Private::filterEvents(QQuickWindow *window)
{
    if (filteredWindow == window) {
        return;
    }
    if (filteredWindow) {
        filteredWindow->removeEventFilter(q);
    }
    filteredWindow = window;
    if (window) {
        window->installEventFilter(q);
    }
}

bool Popup::Private::isOutside(const QMouseEvent *press) const
{
    const QPointF scene = filteredWindow->mapFromGlobal(press->globalPos());
    const QPointF point = q->mapFromScene(scene);
    if (q->contains(point)) {
        return false;
    }
    return !attachedItem || !attachedItem->contains(q->mapToItem(attachedItem, point));
}

Popup::Popup(QQuickItem *parent)
    : QQuickItem(parent)
    , d(std::make_unique<Private>(this))
{
    setOpacity(0.0);
    setZ(65540.0);
    setEnabled(false);
    setVisible(false);
}

Popup::~Popup()
{
    // What is left of the destruction must not reach the record again.
    d->animation->disconnect(this);
    QObject::disconnect(d->attachedItemDestroyed);
    d->followFrames(nullptr);
    d->filterEvents(nullptr);
}

bool Popup::isOpen() const
{
    return d->open;
}

// Every signal below runs the application's code, which may destroy the popup, or open or close it
// once more: what comes after a signal looks at the state anew.

void Popup::setOpen(bool open)
{
    if (!isComponentComplete()) {
        d->pendingOpen = open;
        return;
    }
    if (d->open == open) {
        return;
    }
    d->open = open;
    const QPointer<Popup> self(this);
    const auto isOutdated = [&] { return !self || d->open != open; };
    if (open) {
        setVisible(true);
        if (isOutdated()) {
            return;
        }
    }
    d->animation->setDirection(open ? QAbstractAnimation::Forward : QAbstractAnimation::Backward);
    // Does nothing to a running animation, which so turns round where it stands.
    d->animation->start();
    setEnabled(open);
    if (isOutdated()) {
        return;
    }
    Q_EMIT openChanged(open);
    if (isOutdated()) {
        return;
    }
    updatePosition();
    d->filterEvents(open ? window() : nullptr);
    if (open && window()) {
        forceActiveFocus(Qt::PopupFocusReason);
    }
}

bool Popup::isPersistent() const
{
    return d->persistent;
}

void Popup::setPersistent(bool persistent)
{
    if (d->persistent == persistent) {
        return;
    }
    d->persistent = persistent;
    Q_EMIT persistentChanged(persistent);
}

QQuickItem *Popup::attachedItem() const
{
    return d->attachedItem;
}

void Popup::setAttachedItem(QQuickItem *item)
{
    if (d->attachedItem == item) {
        return;
    }
    QObject::disconnect(d->attachedItemDestroyed);
    d->attachedItemDestroyed = {};
    d->attachedItem = item;
    if (item) {
        d->attachedItemDestroyed =
            connect(item, &QObject::destroyed, this, [this] { d->forgetAttachedItem(); });
    }
    Q_EMIT attachedItemChanged(item);
}

QPointF Popup::hotspot() const
{
    return d->hotspot;
}

void Popup::setHotspot(const QPointF &hotspot)
{
    // Points compare fuzzily.
    if (d->hotspot == hotspot) {
        return;
    }
    d->hotspot = hotspot;
    updatePosition();
    Q_EMIT hotspotChanged(hotspot);
}

QPointF Popup::offset() const
{
    return d->offset;
}

void Popup::setOffset(const QPointF &offset)
{
    if (d->offset == offset) {
        return;
    }
    d->offset = offset;
    updatePosition();
    Q_EMIT offsetChanged(offset);
}

void Popup::show()
{
    setOpen(true);
}

void Popup::accept(const QVariant &result)
{
    const QPointer<Popup> self(this);
    setOpen(false);
    if (self) {
        Q_EMIT accepted(result);
    }
}

void Popup::reject()
{
    const QPointer<Popup> self(this);
    setOpen(false);
    if (self) {
        Q_EMIT rejected();
    }
}

void Popup::updatePosition()
{
    QQuickItem *const parent = parentItem();
    if (!parent) {
        return;
    }
    QQuickItem *const anchor = d->attachedItem ? d->attachedItem.data() : parent;
    if (anchor == this || isAncestorOf(anchor)) {
        // The anchor point moves along with the popup: following it would never end.
        return;
    }
    setPosition(anchor->mapToItem(parent, d->offset) - d->hotspot);
}

void Popup::componentComplete()
{
    QQuickItem::componentComplete();
    QQuickItem *root = parentItem();
    if (!root) {
        return;
    }
    while (root->parentItem()) {
        root = root->parentItem();
    }
    setParentItem(root);
    const QPointer<Popup> self(this);
    if (d->pendingOpen) {
        setOpen(true);
    }
    if (self) {
        d->followFrames(window());
    }
}

bool Popup::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != d->filteredWindow || d->persistent) {
        return QQuickItem::eventFilter(watched, event);
    }
    if (event->type() == QEvent::MouseButtonPress) {
        if (d->isOutside(static_cast<QMouseEvent *>(event))) {
            reject();
            return true;
        }
    } else if (event->type() == QEvent::KeyPress
               && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        reject();
        return true;
    }
    return false;
}

void Popup::itemChange(ItemChange change, const ItemChangeData &value)
{
    if (change == ItemSceneChange && isComponentComplete()) {
        d->followFrames(value.window);
        d->filterEvents(d->open ? value.window : nullptr);
    }
    QQuickItem::itemChange(change, value);
}

} // namespace om::controls
