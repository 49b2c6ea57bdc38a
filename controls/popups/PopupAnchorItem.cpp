// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/popups/PopupAnchorItem.h"

#include "controls/popups/Dependence.h"
#include "controls/popups/PopupAnchor.h"
#include "controls/popups/PopupIncubator.h"
#include "controls/support/OverlayZ.h"
#include "controls/support/Teardown.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QQuickWindow>
#include <QtNumeric>

#include <limits>
#include <optional>
#include <utility>

namespace om::controls {

namespace {

/// Truncates towards zero. Lengths beyond an int become the largest or smallest int, NaN becomes
/// 0.
int toPixels(qreal length)
{
    if (qIsNaN(length)) {
        return 0;
    }
    return static_cast<int>(
        qBound<qreal>(std::numeric_limits<int>::min(), length, std::numeric_limits<int>::max()));
}

/// A position and a rotation.
using Placement = std::pair<QPointF, qreal>;

} // namespace

class PopupAnchorItem::Private
{
public:
    explicit Private(PopupAnchorItem *item)
        : q(item)
    {
    }

    void apply();
    void placePopupItem();
    void createAnchor();
    void createPopupItem();
    qreal sceneRotation() const;
    void moveAnchor(const QPointF &place);
    void watch(QQuickWindow *window);
    bool isOutside(const QMouseEvent *press) const;

    PopupAnchorItem *const q;
    bool popupVisible = false;
    bool persistent = false;
    QPointer<QQuickItem> anchor;
    QPointer<QQmlComponent> popup;
    QPointer<QQuickItem> popupItem;
    int distanceTop = 0;
    int distanceBottom = 0;
    int distanceRight = 0;
    QMetaObject::Connection frames;
    /// Where the last frame put the anchor and it did not stay.
    std::optional<Placement> putBackFrom;
    /// The window that the filter is installed on; the item may have left it since.
    QPointer<QQuickWindow> watchedWindow;
};

/// Carries the value of popupVisible over to the popup and the window.
///
/// Signals, and handlers of the popup, run the application's code, which may destroy this item, the
/// anchor or the popup, or set popupVisible again: each step checks that before the next.
void PopupAnchorItem::Private::apply()
{
    const bool visible = popupVisible;
    const QPointer<PopupAnchorItem> self(q);
    const auto isOutdated = [&] { return !self || popupVisible != visible; };

    if (visible && !popupItem) {
        createPopupItem();
        if (isOutdated()) {
            return;
        }
    }
    if (popupItem) {
        placePopupItem();
        if (isOutdated()) {
            return;
        }
    }
    if (popupItem) {
        popupItem->setEnabled(visible);
        if (isOutdated()) {
            return;
        }
        if (anchor) {
            anchor->setEnabled(visible);
        }
        if (isOutdated()) {
            return;
        }
    }
    watch(visible ? q->window() : nullptr);
}

/// Makes the anchor again if the application has destroyed it, as the popup has no parent then.
void PopupAnchorItem::Private::placePopupItem()
{
    const QPointer<PopupAnchorItem> self(q);
    if (!anchor) {
        createAnchor();
        if (self && popupItem) {
            popupItem->setParentItem(anchor);
        }
    }
    if (self) {
        putBackFrom.reset();
        q->updateAnchorPosition();
    }
}

void PopupAnchorItem::Private::createAnchor()
{
    const QPointer<QQuickItem> made(new PopupAnchor);
    anchor = made;
    made->setEnabled(false);
    made->setParent(q);
    made->setParentItem(q->window() ? q->window()->contentItem() : nullptr);
    if (made) {
        made->setZ(overlayz::popupAnchor);
    }
}

void PopupAnchorItem::Private::createPopupItem()
{
    const QPointer<PopupAnchorItem> self(q);
    if (!anchor) {
        createAnchor();
    }
    if (!self || !popup) {
        return;
    }
    PopupIncubator incubator(q, anchor, &popupItem);
    popup->create(incubator, popup->creationContext());
    if (!self) {
        // The item was destroyed before the incubator could make it the owner of the object.
        if (incubator.object() && !incubator.object()->parent()) {
            incubator.object()->deleteLater();
        }
        return;
    }
    if (!incubator.isReady() && popupItem) {
        // The incubator has failed after it made the object, which is incomplete.
        popupItem->setParentItem(nullptr);
        popupItem->deleteLater();
        popupItem.clear();
    } else if (incubator.object() && !popupItem) {
        // No item, so it has no owner that would destroy it.
        incubator.object()->deleteLater();
    }
    Q_EMIT q->popupItemChanged();
}

/// The sum of the rotations of the item and its ancestors.
qreal PopupAnchorItem::Private::sceneRotation() const
{
    qreal rotation = 0;
    for (const QQuickItem *item = q; item; item = item->parentItem()) {
        rotation += item->rotation();
    }
    return rotation;
}

/// Puts the anchor onto \a place, the origin of the item in the scene. Where a handler puts it back
/// at once, both moves ask for a frame, which therefore makes no new attempt at the same place: an
/// idle window would render for ever.
void PopupAnchorItem::Private::moveAnchor(const QPointF &place)
{
    const std::optional<Placement> refused = std::exchange(putBackFrom, {});
    // NaN differs from itself: the anchor would be moved with every frame.
    if (!anchor || !qIsFinite(place.x()) || !qIsFinite(place.y())) {
        return;
    }
    const Placement next(place, sceneRotation());
    const auto isThere = [&] { return next == Placement(anchor->position(), anchor->rotation()); };
    // dependsOn() walks the ancestors: it is called only for a frame that would move or turn the
    // anchor.
    if (isThere() || next == refused || dependsOn(q, anchor)) {
        return;
    }
    const QPointer<PopupAnchorItem> self(q);
    anchor->setPosition(place);
    if (self && anchor) {
        anchor->setRotation(sceneRotation());
    }
    if (self && anchor && !isThere()) {
        putBackFrom = next;
    }
}

/// Under the threaded render loop the signal comes from the render thread; the automatic connection
/// carries it over to the thread of the item.
void PopupAnchorItem::Private::watch(QQuickWindow *window)
{
    if (watchedWindow == window) {
        return;
    }
    QObject::disconnect(frames);
    frames = {};
    if (watchedWindow) {
        watchedWindow->removeEventFilter(q);
    }
    watchedWindow = window;
    if (window) {
        frames = QObject::connect(window, &QQuickWindow::beforeSynchronizing, q,
                                  &PopupAnchorItem::updateAnchorPosition);
        window->installEventFilter(q);
    }
}

bool PopupAnchorItem::Private::isOutside(const QMouseEvent *press) const
{
    // contains() may call the application's containmentMask, which may destroy the item.
    const QPointer<PopupAnchorItem> self(q);
    const QPointF scene = watchedWindow->mapFromGlobal(press->globalPos());
    return !popupItem || (!popupItem->contains(popupItem->mapFromScene(scene)) && self);
}

PopupAnchorItem::PopupAnchorItem(QQuickItem *parent)
    : QQuickItem(parent)
    , d(std::make_unique<Private>(this))
{
}

PopupAnchorItem::~PopupAnchorItem()
{
    leaveItemTree(this);
    d->watch(nullptr);
    dropQueuedCalls(this);
}

QQmlComponent *PopupAnchorItem::popup() const
{
    return d->popup;
}

void PopupAnchorItem::setPopup(QQmlComponent *popup)
{
    if (d->popup == popup) {
        return;
    }
    d->popup = popup;
    Q_EMIT popupChanged();
}

QQuickItem *PopupAnchorItem::popupItem() const
{
    return d->popupItem;
}

bool PopupAnchorItem::isPopupVisible() const
{
    return d->popupVisible;
}

void PopupAnchorItem::setPopupVisible(bool visible)
{
    if (d->popupVisible == visible) {
        return;
    }
    d->popupVisible = visible;
    const QPointer<PopupAnchorItem> self(this);
    Q_EMIT popupVisibleChanged();
    if (self && d->popupVisible == visible && isComponentComplete()) {
        d->apply();
    }
}

bool PopupAnchorItem::isPersistent() const
{
    return d->persistent;
}

void PopupAnchorItem::setPersistent(bool persistent)
{
    if (d->persistent == persistent) {
        return;
    }
    d->persistent = persistent;
    Q_EMIT persistentChanged();
}

int PopupAnchorItem::distanceTop() const
{
    return d->distanceTop;
}

int PopupAnchorItem::distanceBottom() const
{
    return d->distanceBottom;
}

int PopupAnchorItem::distanceRight() const
{
    return d->distanceRight;
}

void PopupAnchorItem::show()
{
    setPopupVisible(true);
}

void PopupAnchorItem::hide()
{
    setPopupVisible(false);
}

void PopupAnchorItem::componentComplete()
{
    QQuickItem::componentComplete();
    if (d->popupVisible) {
        d->apply();
    }
}

bool PopupAnchorItem::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != d->watchedWindow) {
        return QQuickItem::eventFilter(watched, event);
    }
    const QPointer<QObject> receiver(watched);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        if (!d->persistent && d->isOutside(static_cast<QMouseEvent *>(event))) {
            hide();
        }
        // The press goes on to what is under the cursor, unless a handler has destroyed the window.
        return receiver.isNull();
    case QEvent::KeyPress:
        if (!d->persistent && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
            hide();
            return true;
        }
        return false;
    case QEvent::Close:
        hide();
        return receiver.isNull();
    default:
        return false;
    }
}

void PopupAnchorItem::itemChange(ItemChange change, const ItemChangeData &value)
{
    const QPointer<PopupAnchorItem> self(this);
    if (change == ItemSceneChange) {
        if (isComponentComplete()) {
            d->watch(d->popupVisible ? value.window : nullptr);
        }
        if (value.window) {
            if (d->anchor) {
                d->anchor->setParentItem(value.window->contentItem());
            }
        } else if (d->anchor) {
            // A content item in its destructor iterates over its children: taking one away now
            // would invalidate the iteration.
            QMetaObject::invokeMethod(
                this,
                [this] {
                    if (!window() && d->anchor) {
                        d->anchor->setParentItem(nullptr);
                    }
                },
                Qt::QueuedConnection);
        }
    }
    if (self) {
        QQuickItem::itemChange(change, value);
    }
}

void PopupAnchorItem::updateAnchorPosition()
{
    if (!window()) {
        return;
    }
    const QPointer<PopupAnchorItem> self(this);
    const QPointF place = mapToScene({});
    d->moveAnchor(place);
    if (!self || !window()) {
        return;
    }
    const QQuickItem *const content = window()->contentItem();
    const int bottom = toPixels(content->height() - place.y());
    const int right = toPixels(content->width() - place.x());
    const auto report = [this, &self](int Private::*distance, int value,
                                      void (PopupAnchorItem::*changed)()) {
        if (self && d.get()->*distance != value) {
            d.get()->*distance = value;
            Q_EMIT(this->*changed)();
        }
    };
    report(&Private::distanceTop, toPixels(place.y()), &PopupAnchorItem::distanceTopChanged);
    report(&Private::distanceBottom, bottom, &PopupAnchorItem::distanceBottomChanged);
    report(&Private::distanceRight, right, &PopupAnchorItem::distanceRightChanged);
}

} // namespace om::controls
