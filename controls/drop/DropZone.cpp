// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drop/DropZone.h"

#include "controls/drop/DropData.h"
#include "controls/support/ListElement.h"
#include "controls/support/QmlPlace.h"

#include <QHash>
#include <QMimeData>
#include <QPointer>

namespace om::controls {

class DropZone::Private
{
public:
    explicit Private(DropZone *zone)
        : q(zone)
        , dropData(new DropData(zone))
    {
    }

    void append(DropHandler *handler);
    void clear();
    void forget(DropHandler *handler);
    void unwatchHandlers();
    void setDragSource(QObject *source);
    DropHandler *findHandler(const QPointer<QMimeData> &mimeData) const;

    static Private *of(QQmlListProperty<DropHandler> *list)
    {
        return static_cast<Private *>(list->data);
    }

    DropZone *const q;
    DropHandler *activeHandler = nullptr;
    DropData *const dropData;
    QList<DropHandler *> handlers;
    /// One connection a handler, however often it is listed.
    QHash<DropHandler *, QMetaObject::Connection> watches;
};

void DropZone::Private::append(DropHandler *handler)
{
    if (!isListElement(handler)) {
        return;
    }
    if (!watches.contains(handler)) {
        watches.insert(handler, QObject::connect(handler, &QObject::destroyed, q, [this, handler] {
                           forget(handler);
                       }));
    }
    handlers.append(handler);
    Q_EMIT q->dropHandlersChanged();
}

void DropZone::Private::clear()
{
    if (handlers.isEmpty()) {
        return;
    }
    if (activeHandler) {
        QmlPlace(q).log().warning("Drop handlers changed during drag operation");
        // Only the warning: neither exited() nor containsDragChanged() is emitted.
        activeHandler = nullptr;
    }
    unwatchHandlers();
    handlers.clear();
    Q_EMIT q->dropHandlersChanged();
}

/// \a handler is being destroyed: only its address may be used.
void DropZone::Private::forget(DropHandler *handler)
{
    watches.remove(handler);
    handlers.removeAll(handler);
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

void DropZone::Private::unwatchHandlers()
{
    // By their handles: disconnect(handler, zone) would also cut the application's connections.
    for (const QMetaObject::Connection &watch : qAsConst(watches)) {
        QObject::disconnect(watch);
    }
    watches.clear();
}

void DropZone::Private::setDragSource(QObject *source)
{
    for (DropHandler *handler : qAsConst(handlers)) {
        handler->setDragSource(source);
    }
}

/// The first handler that takes \a mimeData; null when there is none, and when the zone or the data
/// are destroyed meanwhile. canHandle() may be the application's code and change the list: handlers
/// that it removes are not asked any more, nor are those that it adds.
DropHandler *DropZone::Private::findHandler(const QPointer<QMimeData> &mimeData) const
{
    const QPointer<DropZone> alive(q);
    const QList<DropHandler *> snapshot = handlers;
    for (DropHandler *handler : snapshot) {
        if (!handlers.contains(handler)) {
            continue;
        }
        const bool takes = handler->canHandle(mimeData);
        if (!alive || !mimeData) {
            return nullptr;
        }
        if (takes && handlers.contains(handler)) {
            return handler;
        }
    }
    return nullptr;
}

DropZone::DropZone(QQuickItem *parent)
    : QQuickItem(parent)
    , d(std::make_unique<Private>(this))
{
    setFlag(ItemAcceptsDrops);
}

DropZone::~DropZone()
{
    // ~QQuickItem() emits signals, whose receivers may destroy handlers after the record is gone.
    d->unwatchHandlers();
}

QQmlListProperty<DropHandler> DropZone::dropHandlers()
{
    using List = QQmlListProperty<DropHandler>;
    return List(
        this, d.get(), [](List *list, DropHandler *handler) { Private::of(list)->append(handler); },
        [](List *list) { return Private::of(list)->handlers.count(); },
        [](List *list, int index) { return Private::of(list)->handlers.value(index); },
        [](List *list) { Private::of(list)->clear(); });
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
    if (!d->activeHandler) {
        return;
    }
    d->dropData->setPosition(event->posF());
    Q_EMIT d->activeHandler->positionChanged(d->dropData);
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
    Q_EMIT d->activeHandler->exited(d->dropData);
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
    if (d->activeHandler) {
        d->dropData->setPosition(event->posF());
        d->activeHandler->drop(d->dropData);
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
