// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drag/DragVisual.h"

namespace om::controls {

DragVisual::~DragVisual() = default;

void DragVisual::setOutside(bool outside)
{
    if (m_outside == outside) {
        return;
    }
    m_outside = outside;
    announceOutside(outside);
}

void DragVisual::setDropped(bool dropped)
{
    if (m_dropped == dropped) {
        return;
    }
    m_dropped = dropped;
    announceDropped(dropped);
}

void DragVisual::setDelayRemove(bool delay)
{
    if (m_delayRemove == delay) {
        return;
    }
    m_delayRemove = delay;
    announceDelayRemove(delay);
}

void DragVisual::setHotspot(const QPointF &hotspot)
{
    if (m_hotspot == hotspot) {
        return;
    }
    m_hotspot = hotspot;
    announceHotspot(hotspot);
}

} // namespace om::controls
