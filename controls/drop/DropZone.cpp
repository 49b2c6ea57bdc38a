// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drop/DropZone.h"

#include "controls/drop/DropData.h"

#include <QDebug>
#include <QMimeData>
#include <QPointer>

#include <algorithm>

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
    void forget(QObject *handler);
    void unwatchHandlers();
    void setDragSource(QObject *source);
    DropHandler *findHandler(const QMimeData *mimeData) const;

    static Private *of(QQmlListProperty<DropHandler> *list)
    {
        return static_cast<Private *>(list->data);
    }

    DropZone *const q;
    DropHandler *activeHandler = nullptr;
    DropData *const dropData;
    QList<DropHandler *> handlers;
};

void DropZone::Private::append(DropHandler *handler)
{
    // What JavaScript pushes arrives unchecked, whatever its type is.
    if (!qobject_cast<DropHandler *>(static_cast<QObject *>(handler))) {
        return;
    }
    // Once, however often it is listed.
    if (!handlers.contains(handler)) {
        QObject::connect(handler, &QObject::destroyed, q,
                         [this](QObject *object) { forget(object); });
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
        qWarning("Drop handlers changed during drag operation");
        // Deliberately silent: neither exited nor containsDragChanged follows.
        activeHandler = nullptr;
    }
    unwatchHandlers();
    handlers.clear();
    Q_EMIT q->dropHandlersChanged();
}

/// \a handler is being destroyed: only its address is left to look at.
void DropZone::Private::forget(QObject *handler)
{
    const auto isHandler = [handler](const DropHandler *other) { return other == handler; };
    handlers.erase(std::remove_if(handlers.begin(), handlers.end(), isHandler), handlers.end());
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
    // Only what append() connected: the application may have connections of its own.
    for (DropHandler *handler : qAsConst(handlers)) {
        QObject::disconnect(handler, &QObject::destroyed, q, nullptr);
    }
}

void DropZone::Private::setDragSource(QObject *source)
{
    for (DropHandler *handler : qAsConst(handlers)) {
        handler->setDragSource(source);
    }
}

DropHandler *DropZone::Private::findHandler(const QMimeData *mimeData) const
{
    // By index: a handler of the application's own may change the list while it is asked.
    for (int i = 0; i < handlers.size(); ++i) {
        DropHandler *const handler = handlers.at(i);
        if (handler->canHandle(mimeData) && handlers.contains(handler)) {
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
    // The base's destructor still runs code of the application, which may destroy handlers.
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

// Every signal below runs the application's code, which may destroy the zone, a handler or the
// list: after each of them, what is still needed is looked at anew.

void DropZone::dragEnterEvent(QDragEnterEvent *event)
{
    d->setDragSource(event->source());
    DropHandler *const handler = d->findHandler(event->mimeData());
    if (!handler) {
        event->ignore();
        return;
    }
    const QPointer<DropZone> self(this);
    // Belongs to the drag, which may end inside the signal below.
    const QPointer<QMimeData> mimeData(const_cast<QMimeData *>(event->mimeData()));
    const QPointer<QObject> source(event->source());
    d->activeHandler = handler;
    event->accept();
    Q_EMIT containsDragChanged();
    if (!self || d->activeHandler != handler) {
        return;
    }
    d->dropData->setPosition(event->posF());
    d->dropData->setSource(source);
    d->dropData->setData(mimeData ? handler->dropData(mimeData) : QVariant());
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
    // The event's acceptance is deliberately left as delivered. Windows deliver drops as ignored,
    // so a drag of the same program ends with Qt::IgnoreAction.
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
