// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drag/DragZone.h"

#include "controls/drag/DocumentDragSource.h"
#include "controls/drag/DragZoneAttachedObject.h"
#include "controls/drag/DragZoneIncubator.h"

#include <QQmlEngine>

namespace om::controls {

class DragZone::Private : public DocumentDragSource
{
public:
    explicit Private(DragZone *owner)
        : DocumentDragSource(owner, differences())
        , q(owner)
    {
    }

    /// Each of these is a deliberate difference from DragArea; so are the two functions below.
    static Differences differences()
    {
        Differences differences;
        differences.yieldsToKeptGrab = true;
        differences.setsCursors = true;
        differences.endsWithLoop = true;
        return differences;
    }

    void announceActive(bool active) override { Q_EMIT q->dragActiveChanged(active); }
    void announceDocuments() override { Q_EMIT q->dragDocumentsChanged(q->dragDocuments()); }
    void announceDelegate(QQmlComponent *delegate) override
    {
        Q_EMIT q->dragDelegateChanged(delegate);
    }
    std::unique_ptr<QQmlIncubator> createIncubator() override
    {
        return std::make_unique<DragZoneIncubator>(q);
    }
    DragVisual *visualState(QObject *visual) const override
    {
        auto *const attached = DragZoneAttachedObject::of(visual);
        return attached ? attached->visual() : nullptr;
    }
    void deleteWhenReleased(QQuickItem *visual) override
    {
        connect(DragZoneAttachedObject::of(visual), &DragZoneAttachedObject::delayRemoveChanged,
                visual, &QObject::deleteLater);
    }
    void releasedWhileDragging() override { qDebug("discard"); }

    DragZone *const q;
};

DragZone::DragZone(QQuickItem *parent)
    : QQuickItem(parent)
    , d(std::make_unique<Private>(this))
{
    setFiltersChildMouseEvents(true);
}

DragZone::~DragZone() = default;

QObject *DragZone::qmlAttachedProperties(QObject *object)
{
    return new DragZoneAttachedObject(object);
}

bool DragZone::isDragEnabled() const
{
    return filtersChildMouseEvents();
}

void DragZone::setDragEnabled(bool enabled)
{
    if (filtersChildMouseEvents() == enabled) {
        return;
    }
    setFiltersChildMouseEvents(enabled);
    Q_EMIT dragEnabledChanged(enabled);
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
    return document && d->documents().contains(document);
}

void DragZone::adoptVisual(QObject *object)
{
    d->adoptVisual(object);
    // Above everything but popups; deliberately not so for a DragArea's.
    if (auto *const item = qobject_cast<QQuickItem *>(object)) {
        item->setZ(65535.0);
    }
}

bool DragZone::childMouseEventFilter(QQuickItem *item, QEvent *event)
{
    d->filterChildEvent(item, event);
    return false;
}

bool DragZone::eventFilter(QObject *watched, QEvent *event)
{
    Q_UNUSED(watched)
    d->filterWindowEvent(event);
    return false;
}

} // namespace om::controls
