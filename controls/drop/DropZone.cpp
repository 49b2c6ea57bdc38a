// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drop/DropZone.h"

#include "controls/drop/DropData.h"
#include "controls/support/ElementList.h"
#include "controls/support/ListProperty.h"
#include "controls/support/QmlPlace.h"

#include <QMimeData>
#include <QPointer>

#include <vector>

namespace om::controls {

class DropZone::Private
{
public:
    explicit Private(DropZone *zone)
        : q(zone)
        , dropData(new DropData(zone))
        , handlers([this](DropHandler *handler) { forget(handler); })
    {
    }

    const ElementList<DropHandler> &elements() const { return handlers; }
    void append(DropHandler *handler);
    void clear();
    void forget(DropHandler *handler);
    void setDragSource(QObject *source);
    DropHandler *findHandler(const QPointer<QMimeData> &mimeData) const;
    DropHandler *usableHandler() const;

    DropZone *const q;
    /// The handler that has the drag. While it is being destroyed only its address may be used; see
    /// usableHandler().
    DropHandler *activeHandler = nullptr;
    DropData *const dropData;
    ElementList<DropHandler> handlers;
    const ListKey<Private> listKey{this};
};

void DropZone::Private::append(DropHandler *handler)
{
    if (!handler) {
        return;
    }
    handlers.append(handler);
    Q_EMIT q->dropHandlersChanged();
}

void DropZone::Private::clear()
{
    if (handlers.count() == 0) {
        return;
    }
    if (activeHandler) {
        QmlPlace(q).log().warning("Drop handlers changed during drag operation");
        // Only the warning: neither exited() nor containsDragChanged() is emitted.
        activeHandler = nullptr;
    }
    handlers.clear();
    Q_EMIT q->dropHandlersChanged();
}

/// \a handler is being destroyed: only its address may be used.
void DropZone::Private::forget(DropHandler *handler)
{
    const bool wasActive = activeHandler == handler;
    if (wasActive) {
        activeHandler = nullptr;
    }
    const QPointer<DropZone> zone(q);
    Q_EMIT q->dropHandlersChanged();
    if (wasActive && zone) {
        Q_EMIT zone->containsDragChanged();
    }
}

void DropZone::Private::setDragSource(QObject *source)
{
    for (int i = 0; i < handlers.count(); ++i) {
        if (DropHandler *const handler = handlers.at(i)) {
            handler->setDragSource(source);
        }
    }
}

/// The first handler that takes \a mimeData; null when there is none, and when the zone or the data
/// are destroyed meanwhile. canHandle() may be the application's code and change the list: handlers
/// that it removes are not asked any more, nor are those that it adds.
DropHandler *DropZone::Private::findHandler(const QPointer<QMimeData> &mimeData) const
{
    const QPointer<DropZone> alive(q);
    const std::vector<QPointer<DropHandler>> snapshot = handlers.snapshot();
    for (const QPointer<DropHandler> &handler : snapshot) {
        if (!handler || !handlers.contains(handler)) {
            continue;
        }
        const bool takes = handler->canHandle(mimeData);
        if (!alive || !mimeData) {
            return nullptr;
        }
        if (takes && handler && handlers.contains(handler)) {
            return handler;
        }
    }
    return nullptr;
}

/// The active handler; null while it is being destroyed, of which the zone may learn after others.
DropHandler *DropZone::Private::usableHandler() const
{
    return activeHandler && handlers.contains(activeHandler) ? activeHandler : nullptr;
}

DropZone::DropZone(QQuickItem *parent)
    : QQuickItem(parent)
    , d(std::make_unique<Private>(this))
{
    setFlag(ItemAcceptsDrops);
}

DropZone::~DropZone() = default;

QQmlListProperty<DropHandler> DropZone::dropHandlers()
{
    return listProperty<DropHandler>(this, d->listKey);
}

bool DropZone::containsDrag() const
{
    return d->activeHandler;
}

// Every signal below runs the application's code, and so do the functions of a handler. That code
// may destroy the zone, a handler or the MIME data, and change the list: after each call, guards
// tell what still lives.

void DropZone::dragEnterEvent(QDragEnterEvent *event)
{
    const QPointer<DropZone> self(this);
    // Both belong to the drag, which may end inside the calls below. QDropEvent::source() returns
    // the drag's bare pointer, also after that object was destroyed.
    const QPointer<QMimeData> mimeData(const_cast<QMimeData *>(event->mimeData()));
    const QPointer<QObject> source(event->source());
    d->setDragSource(source);
    DropHandler *const handler = d->findHandler(mimeData);
    if (!handler) {
        event->ignore();
        return;
    }
    d->activeHandler = handler;
    event->accept();
    Q_EMIT containsDragChanged();
    if (!self || d->activeHandler != handler) {
        return;
    }
    d->dropData->setPosition(event->posF());
    d->dropData->setSource(source);
    const QVariant payload = mimeData ? handler->dropData(mimeData) : QVariant();
    if (!self || d->activeHandler != handler) {
        return;
    }
    d->dropData->setData(payload);
    Q_EMIT handler->entered(d->dropData);
}

void DropZone::dragMoveEvent(QDragMoveEvent *event)
{
    DropHandler *const handler = d->usableHandler();
    if (!handler) {
        return;
    }
    d->dropData->setPosition(event->posF());
    Q_EMIT handler->positionChanged(d->dropData);
    event->accept();
}

void DropZone::dragLeaveEvent(QDragLeaveEvent *)
{
    d->setDragSource(nullptr);
    if (!d->activeHandler) {
        return;
    }
    d->dropData->setPosition({});
    const QPointer<DropZone> self(this);
    if (DropHandler *const handler = d->usableHandler()) {
        Q_EMIT handler->exited(d->dropData);
    }
    if (!self) {
        return;
    }
    d->activeHandler = nullptr;
    Q_EMIT containsDragChanged();
}

void DropZone::dropEvent(QDropEvent *event)
{
    // The event's acceptance stays as delivered, and windows deliver drops as ignored: a drag of
    // the same program ends with Qt::IgnoreAction, whatever the handler made of the drop.
    const QPointer<DropZone> self(this);
    if (DropHandler *const handler = d->usableHandler()) {
        d->dropData->setPosition(event->posF());
        handler->drop(d->dropData);
        if (!self) {
            return;
        }
    }
    d->activeHandler = nullptr;
    d->setDragSource(nullptr);
    // Emitted even when no handler was active.
    Q_EMIT containsDragChanged();
}

} // namespace om::controls
