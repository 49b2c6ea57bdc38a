// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/popups/Popup.h"

#include "controls/popups/Dependence.h"
#include "controls/support/OverlayZ.h"
#include "controls/support/Teardown.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QPropertyAnimation>
#include <QQuickWindow>
#include <QtNumeric>

#include <optional>
#include <utility>

namespace om::controls {

class Popup::Private
{
public:
    explicit Private(Popup *popup)
        : q(popup)
        , animation(new QPropertyAnimation(popup, "opacity", popup))
    {
        // QPropertyAnimation converts values that are set after its target only when it first
        // starts: until then these read as the integers that they are.
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
    std::optional<QPointF> place() const;
    bool moveTo(const QPointF &place);
    void follow();
    void followFrames(QQuickWindow *window);
    void filterEvents(QQuickWindow *window);
    bool isOutside(const QMouseEvent *press) const;

    Popup *const q;
    bool open = false;
    /// Counts the changes of open. Signals run the application's code, which may destroy the popup,
    /// or open or close it again: then the change that emitted them skips its remaining steps.
    int changes = 0;
    bool persistent = false;
    bool pendingOpen = false;
    QPointer<QQuickItem> attachedItem;
    QMetaObject::Connection attachedItemDestroyed;
    QPointF hotspot;
    QPointF offset;
    QPropertyAnimation *const animation;
    QMetaObject::Connection frames;
    /// Where the last frame moved the popup and it did not stay.
    std::optional<QPointF> putBackFrom;
    /// The window that the filter is installed on; the item may have left it since.
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

/// A handler of opacityChanged() may destroy the popup in the middle of a step of the fade. The
/// animation continues after the handler, so it is not destroyed with the popup but deleted later.
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

/// Where the popup is to lie; nothing while it has no parent item, or if that is no point.
std::optional<QPointF> Popup::Private::place() const
{
    QQuickItem *const parent = q->parentItem();
    if (!parent) {
        return {};
    }
    const QQuickItem *const anchor = attachedItem ? attachedItem.data() : parent;
    const QPointF place = anchor->mapToItem(parent, offset) - hotspot;
    // NaN differs from itself: the popup would be moved with every frame.
    if (!qIsFinite(place.x()) || !qIsFinite(place.y())) {
        return {};
    }
    return place;
}

/// False when the popup was moved and is not there.
bool Popup::Private::moveTo(const QPointF &place)
{
    // dependsOn() walks the ancestors: it is called only for a frame that would move the popup.
    if (place == q->position() || dependsOn(attachedItem, q)) {
        return true;
    }
    const QPointer<Popup> self(q);
    q->setPosition(place);
    return !self || q->position() == place;
}

/// Called for each frame. Where something puts the popup back at once, as anchors do, both moves
/// ask for a frame, which therefore makes no new attempt at the same place: an idle window would
/// render for ever.
void Popup::Private::follow()
{
    const std::optional<QPointF> refused = std::exchange(putBackFrom, {});
    const std::optional<QPointF> next = place();
    if (!next || next == refused) {
        return;
    }
    const QPointer<Popup> self(q);
    const bool arrived = moveTo(*next);
    if (self && !arrived) {
        putBackFrom = next;
    }
}

/// Under the threaded render loop the signal comes from the render thread; the automatic connection
/// carries it over to the thread of the item.
void Popup::Private::followFrames(QQuickWindow *window)
{
    QObject::disconnect(frames);
    frames = {};
    if (window) {
        frames =
            QObject::connect(window, &QQuickWindow::beforeSynchronizing, q, [this] { follow(); });
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
    // contains() may call the application's containmentMask, which may destroy the popup.
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
    setZ(overlayz::popup);
    setEnabled(false);
    setVisible(false);
}

Popup::~Popup()
{
    leaveItemTree(this);
    d->releaseFade();
    QObject::disconnect(d->attachedItemDestroyed);
    d->followFrames(nullptr);
    d->filterEvents(nullptr);
    dropQueuedCalls(this);
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
    // start() has no effect on a running animation: after setDirection() it turns round.
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

const QQuickItem *Popup::followedItem() const
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
    // QPointF's operator== compares fuzzily.
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
    if (const std::optional<QPointF> place = d->place()) {
        d->moveTo(*place);
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
    // The filter is removed after the signals of the closing: a closed popup consumes nothing.
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
