// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drag/DragArea.h"

#include "controls/drag/DocumentDragSource.h"
#include "controls/drag/DragAreaAttachedObject.h"
#include "controls/drag/DragAreaIncubator.h"

#include <QQmlEngine>

namespace om::controls {

class DragArea::Private : public DocumentDragSource
{
public:
    explicit Private(DragArea *owner)
        : DocumentDragSource(owner, differences())
        , q(owner)
    {
    }

    static Differences differences() { return {}; }

    void announceActive(bool active) override { Q_EMIT q->dragActiveChanged(active); }
    void announceDocuments() override { Q_EMIT q->dragDocumentsChanged(q->dragDocuments()); }
    void announceDelegate(QQmlComponent *delegate) override
    {
        Q_EMIT q->dragDelegateChanged(delegate);
    }
    std::unique_ptr<QQmlIncubator> createIncubator() override
    {
        return std::make_unique<DragAreaIncubator>(q);
    }
    DragVisual *visualState(QObject *visual) const override
    {
        auto *const attached = DragAreaAttachedObject::of(visual);
        return attached ? attached->visual() : nullptr;
    }
    void deleteWhenReleased(QQuickItem *visual) override
    {
        connect(DragAreaAttachedObject::of(visual), &DragAreaAttachedObject::delayRemoveChanged,
                visual, &QObject::deleteLater);
    }

    DragArea *const q;
};

DragArea::DragArea(QQuickItem *parent)
    : QQuickItem(parent)
    , d(std::make_unique<Private>(this))
{
    setFiltersChildMouseEvents(true);
}

DragArea::~DragArea() = default;

QObject *DragArea::qmlAttachedProperties(QObject *object)
{
    return new DragAreaAttachedObject(object);
}

bool DragArea::isDragEnabled() const
{
    return filtersChildMouseEvents();
}

void DragArea::setDragEnabled(bool enabled)
{
    if (filtersChildMouseEvents() == enabled) {
        return;
    }
    setFiltersChildMouseEvents(enabled);
    Q_EMIT dragEnabledChanged(enabled);
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

void DragArea::adoptVisual(QObject *object)
{
    d->adoptVisual(object);
}

bool DragArea::childMouseEventFilter(QQuickItem *item, QEvent *event)
{
    d->filterChildEvent(item, event);
    return false;
}

bool DragArea::eventFilter(QObject *watched, QEvent *event)
{
    Q_UNUSED(watched)
    d->filterWindowEvent(event);
    return false;
}

} // namespace om::controls
