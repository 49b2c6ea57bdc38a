// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/input/HoverArea.h"

#include "controls/support/Teardown.h"

namespace om::controls {

class HoverArea::Private
{
public:
    explicit Private(HoverArea *area)
        : q(area)
    {
    }

    void setHovered(bool value);
    void leaveLater();

    HoverArea *const q;
    bool hovered = false;
    /// A queued call is to end the hovering, unless the pointer enters before it comes.
    bool leaving = false;
};

void HoverArea::Private::setHovered(bool value)
{
    if (hovered == value) {
        return;
    }
    hovered = value;
    Q_EMIT q->hoveredChanged(value);
}

/// Queued: Qt Quick is still changing the item tree, and a handler of hoveredChanged() that changes
/// it too or destroys the area would leave Qt with a freed item.
void HoverArea::Private::leaveLater()
{
    if (leaving) {
        return;
    }
    leaving = true;
    QMetaObject::invokeMethod(
        q,
        [this] {
            if (leaving) {
                leaving = false;
                setHovered(false);
            }
        },
        Qt::QueuedConnection);
}

HoverArea::HoverArea(QQuickItem *parent)
    : QQuickItem(parent)
    , d(std::make_unique<Private>(this))
{
    setAcceptHoverEvents(true);
}

HoverArea::~HoverArea()
{
    leaveItemTree(this);
    dropQueuedCalls(this);
}

bool HoverArea::isHovered() const
{
    return d->hovered;
}

// Neither handler calls the base class, which would ignore the event: it stays as accepted or
// ignored as it was delivered.

void HoverArea::hoverEnterEvent(QHoverEvent *event)
{
    Q_UNUSED(event)
    d->leaving = false;
    d->setHovered(true);
}

void HoverArea::hoverLeaveEvent(QHoverEvent *event)
{
    Q_UNUSED(event)
    d->leaving = false;
    d->setHovered(false);
}

/// A window that loses a hovered item sends it no hover-leave event: hovered is cleared here.
void HoverArea::itemChange(ItemChange change, const ItemChangeData &value)
{
    if (change == ItemSceneChange && d->hovered) {
        d->leaveLater();
    }
    QQuickItem::itemChange(change, value);
}

} // namespace om::controls
