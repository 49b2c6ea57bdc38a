// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drag/DragVisualState.h"

namespace om::controls {

class DragVisualState::Private
{
public:
    bool outside = false;
    bool dropped = false;
    bool delayRemove = false;
    QPointF hotspot;
};

DragVisualState::DragVisualState()
    : d(std::make_unique<Private>())
{
}

DragVisualState::~DragVisualState() = default;

bool DragVisualState::isOutside() const
{
    return d->outside;
}

void DragVisualState::setOutside(bool outside)
{
    if (d->outside == outside) {
        return;
    }
    d->outside = outside;
    announceOutside(outside);
}

bool DragVisualState::isDropped() const
{
    return d->dropped;
}

void DragVisualState::setDropped(bool dropped)
{
    if (d->dropped == dropped) {
        return;
    }
    d->dropped = dropped;
    announceDropped(dropped);
}

bool DragVisualState::delayRemove() const
{
    return d->delayRemove;
}

void DragVisualState::setDelayRemove(bool delay)
{
    if (d->delayRemove == delay) {
        return;
    }
    d->delayRemove = delay;
    announceDelayRemove(delay);
}

QPointF DragVisualState::hotspot() const
{
    return d->hotspot;
}

void DragVisualState::setHotspot(const QPointF &hotspot)
{
    // QPointF's operator== compares fuzzily.
    if (d->hotspot == hotspot) {
        return;
    }
    d->hotspot = hotspot;
    announceHotspot(hotspot);
}

} // namespace om::controls
