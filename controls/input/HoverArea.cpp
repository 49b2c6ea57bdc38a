// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/input/HoverArea.h"

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

/// The item tree is still changing: whoever hears of the leaving could do harm to it, or destroy
/// the area under its hands.
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
    // Leaving the tree runs handlers, which may ask for what is in the record: it must not be left
    // to the base class, which goes when the record is gone.
    setParentItem(nullptr);
}

bool HoverArea::isHovered() const
{
    return d->hovered;
}

// Neither handler calls the base: what becomes of the event is decided here, by leaving it as it
// is.

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

/// A window forgets an item that goes, and does not tell it that the pointer has left.
void HoverArea::itemChange(ItemChange change, const ItemChangeData &value)
{
    if (change == ItemSceneChange && d->hovered) {
        d->leaveLater();
    }
    QQuickItem::itemChange(change, value);
}

} // namespace om::controls
