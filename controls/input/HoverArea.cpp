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

    HoverArea *const q;
    bool hovered = false;
};

void HoverArea::Private::setHovered(bool value)
{
    if (hovered == value) {
        return;
    }
    hovered = value;
    Q_EMIT q->hoveredChanged(value);
}

HoverArea::HoverArea(QQuickItem *parent)
    : QQuickItem(parent)
    , d(std::make_unique<Private>(this))
{
    setAcceptHoverEvents(true);
}

HoverArea::~HoverArea() = default;

bool HoverArea::isHovered() const
{
    return d->hovered;
}

// Neither handler calls the base: what becomes of the event is decided here, by leaving it as it
// is.

void HoverArea::hoverEnterEvent(QHoverEvent *event)
{
    Q_UNUSED(event)
    d->setHovered(true);
}

void HoverArea::hoverLeaveEvent(QHoverEvent *event)
{
    Q_UNUSED(event)
    d->setHovered(false);
}

} // namespace om::controls
