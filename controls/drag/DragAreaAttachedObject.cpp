// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drag/DragAreaAttachedObject.h"

#include "controls/drag/DragArea.h"
#include "controls/drag/DragVisual.h"

#include <QPointer>
#include <QQmlEngine>

namespace om::controls {

class DragAreaAttachedObject::Private : public DragVisual
{
public:
    explicit Private(DragAreaAttachedObject *owner)
        : q(owner)
    {
    }

    void announceOutside(bool outside) override { Q_EMIT q->outsideChanged(outside); }
    void announceDropped(bool dropped) override { Q_EMIT q->droppedChanged(dropped); }
    void announceDelayRemove(bool delay) override { Q_EMIT q->delayRemoveChanged(delay); }
    void announceHotspot(const QPointF &hotspot) override { Q_EMIT q->hotspotChanged(hotspot); }

    DragAreaAttachedObject *const q;
    QPointer<DragArea> area;
};

DragAreaAttachedObject::DragAreaAttachedObject(QObject *object)
    : QObject(object)
    , d(std::make_unique<Private>(this))
{
}

DragAreaAttachedObject::~DragAreaAttachedObject() = default;

DragAreaAttachedObject *DragAreaAttachedObject::of(QObject *object)
{
    return qobject_cast<DragAreaAttachedObject *>(qmlAttachedPropertiesObject<DragArea>(object));
}

DragArea *DragAreaAttachedObject::area() const
{
    return d->area;
}

void DragAreaAttachedObject::setArea(DragArea *area)
{
    d->area = area;
}

bool DragAreaAttachedObject::isOutside() const
{
    return d->isOutside();
}

bool DragAreaAttachedObject::isDropped() const
{
    return d->isDropped();
}

bool DragAreaAttachedObject::delayRemove() const
{
    return d->delayRemove();
}

void DragAreaAttachedObject::setDelayRemove(bool delay)
{
    d->setDelayRemove(delay);
}

QPointF DragAreaAttachedObject::hotspot() const
{
    return d->hotspot();
}

void DragAreaAttachedObject::setHotspot(const QPointF &hotspot)
{
    d->setHotspot(hotspot);
}

DragVisual *DragAreaAttachedObject::visual() const
{
    return d.get();
}

} // namespace om::controls
