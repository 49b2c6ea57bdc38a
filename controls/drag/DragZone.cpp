// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drag/DragZone.h"

#include "controls/drag/DragSourceRecord.h"
#include "controls/drag/DragZoneAttachedObject.h"
#include "controls/drag/DragZoneIncubator.h"

namespace om::controls {

class DragZone::Private
    : public DragSourceRecord<DragZone, DragZoneAttachedObject, DragZoneIncubator>
{
public:
    explicit Private(DragZone *zone)
        : DragSourceRecord(zone, differences())
    {
    }

private:
    /// Where a zone differs from an area.
    static Differences differences()
    {
        Differences differences;
        differences.yieldsToKeptGrab = true;
        differences.setsCursors = true;
        differences.raisesVisual = true;
        differences.endsWithLoop = true;
        differences.tellsReleases = true;
        return differences;
    }
};

DragZone::DragZone(QQuickItem *parent)
    : QQuickItem(parent)
    , d(std::make_unique<Private>(this))
{
    setFiltersChildMouseEvents(true);
}

DragZone::~DragZone()
{
    d->abandon();
}

QObject *DragZone::qmlAttachedProperties(QObject *object)
{
    return new DragZoneAttachedObject(object);
}

bool DragZone::isDragEnabled() const
{
    return d->isEnabled();
}

void DragZone::setDragEnabled(bool enabled)
{
    d->setEnabled(enabled);
}

bool DragZone::isDragActive() const
{
    return d->isDragging();
}

QQmlListProperty<om::data::Document> DragZone::dragDocuments()
{
    return d->documentList();
}

void DragZone::setDragDocuments(const QList<om::data::Document *> &documents)
{
    d->setDocuments(documents);
}

QQmlComponent *DragZone::dragDelegate() const
{
    return d->delegate();
}

void DragZone::setDragDelegate(QQmlComponent *delegate)
{
    d->setDelegate(delegate);
}

bool DragZone::containsDragDocument(om::data::Document *document) const
{
    return document && d->elements().contains(document);
}

bool DragZone::childMouseEventFilter(QQuickItem *item, QEvent *event)
{
    d->filterChildEvent(item, event);
    return false;
}

bool DragZone::eventFilter(QObject *watched, QEvent *event)
{
    return d->filterWindowEvent(watched, event);
}

} // namespace om::controls
