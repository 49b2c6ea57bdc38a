// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drag/DragZoneAttachedObject.h"

#include "controls/drag/DragVisual.h"
#include "controls/drag/DragZone.h"

#include <QPointer>
#include <QQmlEngine>

namespace om::controls {

class DragZoneAttachedObject::Private : public DragVisual
{
public:
    explicit Private(DragZoneAttachedObject *owner)
        : q(owner)
    {
    }

    void announceOutside(bool outside) override { Q_EMIT q->outsideChanged(outside); }
    void announceDropped(bool dropped) override { Q_EMIT q->droppedChanged(dropped); }
    void announceDelayRemove(bool delay) override { Q_EMIT q->delayRemoveChanged(delay); }
    void announceHotspot(const QPointF &hotspot) override { Q_EMIT q->hotspotChanged(hotspot); }

    DragZoneAttachedObject *const q;
    QPointer<DragZone> dragZone;
};

DragZoneAttachedObject::DragZoneAttachedObject(QObject *object)
    : QObject(object)
    , d(std::make_unique<Private>(this))
{
}

DragZoneAttachedObject::~DragZoneAttachedObject() = default;

DragZoneAttachedObject *DragZoneAttachedObject::of(QObject *object)
{
    return qobject_cast<DragZoneAttachedObject *>(qmlAttachedPropertiesObject<DragZone>(object));
}

DragZone *DragZoneAttachedObject::dragZone() const
{
    return d->dragZone;
}

void DragZoneAttachedObject::setDragZone(DragZone *dragZone)
{
    d->dragZone = dragZone;
}

bool DragZoneAttachedObject::isOutside() const
{
    return d->isOutside();
}

bool DragZoneAttachedObject::isDropped() const
{
    return d->isDropped();
}

bool DragZoneAttachedObject::delayRemove() const
{
    return d->delayRemove();
}

void DragZoneAttachedObject::setDelayRemove(bool delay)
{
    d->setDelayRemove(delay);
}

QPointF DragZoneAttachedObject::hotspot() const
{
    return d->hotspot();
}

void DragZoneAttachedObject::setHotspot(const QPointF &hotspot)
{
    d->setHotspot(hotspot);
}

DragVisual *DragZoneAttachedObject::visual() const
{
    return d.get();
}

} // namespace om::controls
