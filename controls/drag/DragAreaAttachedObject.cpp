// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drag/DragAreaAttachedObject.h"

namespace om::controls {

class DragAreaAttachedObject::Private
{
public:
    DragArea *source = nullptr;
};

DragAreaAttachedObject::DragAreaAttachedObject(QObject *object)
    : QObject(object)
    , d(std::make_unique<Private>())
{
}

DragAreaAttachedObject::~DragAreaAttachedObject() = default;

DragArea *DragAreaAttachedObject::area() const
{
    return d->source;
}

void DragAreaAttachedObject::setSource(DragArea *source)
{
    d->source = source;
}

void DragAreaAttachedObject::announceOutside(bool outside)
{
    Q_EMIT outsideChanged(outside);
}

void DragAreaAttachedObject::announceDropped(bool dropped)
{
    Q_EMIT droppedChanged(dropped);
}

void DragAreaAttachedObject::announceDelayRemove(bool delay)
{
    Q_EMIT delayRemoveChanged(delay);
}

void DragAreaAttachedObject::announceHotspot(const QPointF &hotspot)
{
    Q_EMIT hotspotChanged(hotspot);
}

} // namespace om::controls
