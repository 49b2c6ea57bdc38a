// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/popups/PopupAnchorItem.h"

#include "controls/popups/PopupIncubator.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QQuickWindow>

namespace om::controls {

class PopupAnchorItem::Private
{
public:
    explicit Private(PopupAnchorItem *item)
        : q(item)
    {
    }

    void apply();
    void createAnchor();
    void createPopupItem();
    void watch(QQuickWindow *window);
    bool isOutside(const QMouseEvent *press) const;

    PopupAnchorItem *const q;
    bool popupVisible = false;
    bool persistent = false;
    QQuickItem *anchor = nullptr;
    QPointer<QQmlComponent> popup;
    QPointer<QQuickItem> popupItem;
    int distanceTop = 0;
    int distanceBottom = 0;
    int distanceRight = 0;
    QMetaObject::Connection frames;
    /// The window that is watched, which need not be the item's own window any more.
    QPointer<QQuickWindow> watchedWindow;
};

// Signals, and the popup's own handlers, run the application's code, which may destroy this item or
// change its mind about the popup: what comes after them looks at the state anew.

/// Carries the value of popupVisible over to the popup and the window.
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
        q->updateAnchorPosition();
        if (isOutdated()) {
            return;
        }
        if (popupItem) {
            popupItem->setEnabled(visible);
        }
        if (isOutdated()) {
            return;
        }
        anchor->setEnabled(visible);
        if (isOutdated()) {
            return;
        }
    }
    watch(visible ? q->window() : nullptr);
}

void PopupAnchorItem::Private::createAnchor()
{
    anchor = new QQuickItem;
    anchor->setEnabled(false);
    anchor->setParent(q);
    anchor->setParentItem(q->window() ? q->window()->contentItem() : nullptr);
    // Deliberately above a Popup, which lies at 65540.
    anchor->setZ(65635.0);
}

void PopupAnchorItem::Private::createPopupItem()
{
    if (!anchor) {
        createAnchor();
    }
    if (!popup) {
        return;
    }
    PopupIncubator incubator(q, anchor, &popupItem);
    popup->create(incubator, popup->creationContext());
    if (!incubator.isReady() && popupItem) {
        // An error that came up late leaves half a popup behind.
        popupItem->setParentItem(nullptr);
        popupItem->deleteLater();
        popupItem.clear();
    } else if (incubator.object() && !popupItem) {
        // Not an item: nothing else would ever destroy it.
        incubator.object()->deleteLater();
    }
    Q_EMIT q->popupItemChanged();
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
    const QPointF scene = watchedWindow->mapFromGlobal(press->globalPos());
    return !popupItem || !popupItem->contains(popupItem->mapFromScene(scene));
}

PopupAnchorItem::PopupAnchorItem(QQuickItem *parent)
    : QQuickItem(parent)
    , d(std::make_unique<Private>(this))
{
}

PopupAnchorItem::~PopupAnchorItem()
{
    d->watch(nullptr);
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
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        if (!d->persistent && d->isOutside(static_cast<QMouseEvent *>(event))) {
            // The press goes on to what is under the cursor.
            hide();
        }
        return false;
    case QEvent::KeyPress:
        if (!d->persistent && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
            hide();
            return true;
        }
        return false;
    case QEvent::Close:
        hide();
        return false;
    default:
        return false;
    }
}

void PopupAnchorItem::itemChange(ItemChange change, const ItemChangeData &value)
{
    if (change == ItemSceneChange) {
        if (value.window) {
            if (d->anchor) {
                d->anchor->setParentItem(value.window->contentItem());
            }
        } else if (d->anchor) {
            // The content item may be on its way out and counting its children: they must stay
            // where they are until it is done.
            QMetaObject::invokeMethod(
                this,
                [this] {
                    if (!window()) {
                        d->anchor->setParentItem(nullptr);
                    }
                },
                Qt::QueuedConnection);
        }
        if (isComponentComplete()) {
            d->watch(d->popupVisible ? value.window : nullptr);
        }
    }
    QQuickItem::itemChange(change, value);
}

void PopupAnchorItem::updateAnchorPosition()
{
    if (!window() || !d->anchor) {
        return;
    }
    const QPointF place = mapToScene({});
    d->anchor->setPosition(place);
    qreal rotation = 0;
    for (const QQuickItem *item = this; item; item = item->parentItem()) {
        rotation += item->rotation();
    }
    d->anchor->setRotation(rotation);

    const QQuickItem *const content = window()->contentItem();
    const int bottom = int(content->height() - place.y());
    const int right = int(content->width() - place.x());
    const QPointer<PopupAnchorItem> self(this);
    const auto report = [this, &self](int &distance, int value,
                                      void (PopupAnchorItem::*changed)()) {
        if (self && distance != value) {
            distance = value;
            Q_EMIT(this->*changed)();
        }
    };
    report(d->distanceTop, int(place.y()), &PopupAnchorItem::distanceTopChanged);
    report(d->distanceBottom, bottom, &PopupAnchorItem::distanceBottomChanged);
    report(d->distanceRight, right, &PopupAnchorItem::distanceRightChanged);
}

} // namespace om::controls
