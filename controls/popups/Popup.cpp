// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/popups/Popup.h"

#include "controls/popups/Dependence.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QPropertyAnimation>
#include <QQuickWindow>
#include <QtNumeric>

namespace om::controls {

class Popup::Private
{
public:
    explicit Private(Popup *popup)
        : q(popup)
        , animation(new QPropertyAnimation(popup, "opacity", popup))
    {
        // The ends read as the whole numbers that they are until the animation starts, which turns
        // them into the property's own type. It would do so at once if it learnt of the property
        // later than of the ends.
        animation->setStartValue(0);
        animation->setEndValue(1);
        animation->setDuration(100);
        QObject::connect(
            animation, &QAbstractAnimation::finished, q, [this] { finish(); },
            Qt::DirectConnection);
    }

    void finish();
    void releaseFade();
    void forgetAttachedItem();
    void followFrames(QQuickWindow *window);
    void filterEvents(QQuickWindow *window);
    bool isOutside(const QMouseEvent *press) const;

    Popup *const q;
    bool open = false;
    /// Counts the changes of open. Signals run the application's code, which may destroy the popup,
    /// or open or close it once more: then the rest of the change that emitted them is no more due.
    int changes = 0;
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

/// The popup may be destroyed by a handler of opacityChanged(), which the fade causes: it goes on
/// when the handler returns, and so must outlive the popup.
void Popup::Private::releaseFade()
{
    animation->disconnect(q);
    if (animation->state() != QAbstractAnimation::Stopped) {
        animation->stop();
        animation->setParent(nullptr);
        animation->deleteLater();
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
    // An item's shape is the application's code, which may destroy the popup.
    const QPointer<Popup> self(q);
    const QPointF scene = filteredWindow->mapFromGlobal(press->globalPos());
    const QPointF point = q->mapFromScene(scene);
    if (q->contains(point) || !self) {
        return false;
    }
    return !attachedItem || (!attachedItem->contains(q->mapToItem(attachedItem, point)) && self);
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
    // Leaving the tree runs handlers, which may ask for what is in the record: it must not be left
    // to the base class, which goes when the record is gone.
    setParentItem(nullptr);
    d->releaseFade();
    QObject::disconnect(d->attachedItemDestroyed);
    d->followFrames(nullptr);
    d->filterEvents(nullptr);
}

bool Popup::isOpen() const
{
    return d->open;
}

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
    const int change = ++d->changes;
    const auto isOutdated = [&] { return !self || d->changes != change; };
    if (open) {
        setVisible(true);
        if (isOutdated()) {
            return;
        }
    }
    d->animation->setDirection(open ? QAbstractAnimation::Forward : QAbstractAnimation::Backward);
    // Does nothing to a running animation, which so turns round where it stands.
    d->animation->start();
    if (isOutdated()) {
        return;
    }
    setEnabled(open);
    if (isOutdated()) {
        return;
    }
    Q_EMIT openChanged(open);
    if (isOutdated()) {
        return;
    }
    updatePosition();
    if (isOutdated()) {
        return;
    }
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
    const QPointer<Popup> self(this);
    updatePosition();
    // A handler of the move may have set another one.
    if (self) {
        Q_EMIT hotspotChanged(d->hotspot);
    }
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
    const QPointer<Popup> self(this);
    updatePosition();
    if (self) {
        Q_EMIT offsetChanged(d->offset);
    }
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
    const QQuickItem *const anchor = d->attachedItem ? d->attachedItem.data() : parent;
    const QPointF place = anchor->mapToItem(parent, d->offset) - d->hotspot;
    // What is no number differs from itself and would be a move with every frame.
    if (!qIsFinite(place.x()) || !qIsFinite(place.y())) {
        return;
    }
    // Most frames move nothing: what the popup depends on is looked up only when it is to move.
    if (place != position() && !dependsOn(d->attachedItem, this)) {
        setPosition(place);
    }
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
    const QPointer<Popup> self(this);
    setParentItem(root);
    if (self && d->pendingOpen) {
        setOpen(true);
    }
    if (self) {
        d->followFrames(window());
    }
}

bool Popup::eventFilter(QObject *watched, QEvent *event)
{
    // The filter stays on the window until all has been told of the closing.
    if (watched != d->filteredWindow || !d->open || d->persistent) {
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
