// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drag/DragArea.h"

#include "controls/drag/DragAreaAttachedObject.h"
#include "controls/drag/DragAreaIncubator.h"
#include "controls/drag/DragSourceRecord.h"

namespace om::controls {

class DragArea::Private
    : public DragSourceRecord<DragArea, DragAreaAttachedObject, DragAreaIncubator>
{
public:
    explicit Private(DragArea *area)
        : DragSourceRecord(area, {})
    {
    }
};

DragArea::DragArea(QQuickItem *parent)
    : QQuickItem(parent)
    , d(std::make_unique<Private>(this))
{
    setFiltersChildMouseEvents(true);
}

DragArea::~DragArea()
{
    d->abandon();
}

QObject *DragArea::qmlAttachedProperties(QObject *object)
{
    return new DragAreaAttachedObject(object);
}

bool DragArea::isDragEnabled() const
{
    return d->isEnabled();
}

void DragArea::setDragEnabled(bool enabled)
{
    d->setEnabled(enabled);
}

bool DragArea::isDragActive() const
{
    return d->isDragging();
}

QQmlListProperty<om::data::Document> DragArea::dragDocuments()
{
    return d->documentList();
}

void DragArea::setDragDocuments(const QList<om::data::Document *> &documents)
{
    d->setDocuments(documents);
}

QQmlComponent *DragArea::dragDelegate() const
{
    return d->delegate();
}

void DragArea::setDragDelegate(QQmlComponent *delegate)
{
    d->setDelegate(delegate);
}

bool DragArea::childMouseEventFilter(QQuickItem *item, QEvent *event)
{
    d->filterChildEvent(item, event);
    return false;
}

bool DragArea::eventFilter(QObject *watched, QEvent *event)
{
    return d->filterWindowEvent(watched, event);
}

} // namespace om::controls
