// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drag/DragZoneAttachedObject.h"

namespace om::controls {

class DragZoneAttachedObject::Private
{
public:
    DragZone *source = nullptr;
};

DragZoneAttachedObject::DragZoneAttachedObject(QObject *object)
    : QObject(object)
    , d(std::make_unique<Private>())
{
}

DragZoneAttachedObject::~DragZoneAttachedObject() = default;

DragZone *DragZoneAttachedObject::dragZone() const
{
    return d->source;
}

void DragZoneAttachedObject::setSource(DragZone *source)
{
    d->source = source;
}

void DragZoneAttachedObject::announceOutside(bool outside)
{
    Q_EMIT outsideChanged(outside);
}

void DragZoneAttachedObject::announceDropped(bool dropped)
{
    Q_EMIT droppedChanged(dropped);
}

void DragZoneAttachedObject::announceDelayRemove(bool delay)
{
    Q_EMIT delayRemoveChanged(delay);
}

void DragZoneAttachedObject::announceHotspot(const QPointF &hotspot)
{
    Q_EMIT hotspotChanged(hotspot);
}

} // namespace om::controls
