// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "controls/drop/DropData.h"
#include "controls/drop/DropHandler.h"
#include "controls/drop/DropZone.h"
#include "tests/support/DragEvents.h"

#include <QCoreApplication>
#include <QPointer>
#include <QStringList>

#include <functional>

/// What happens, in order; one for all that a test makes.
inline QStringList happened;

inline QStringList takeHappened()
{
    QStringList taken;
    taken.swap(happened);
    return taken;
}

inline QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '));
}

/// Takes what it is told to take and tells what it is asked.
class RecordingHandler : public om::controls::DropHandler
{
public:
    explicit RecordingHandler(const char *name, bool willTake = true)
        : takes(willTake)
        , m_name(QString::fromLatin1(name))
    {
        const auto note = [this](const char *what) {
            return [this, what] { happened.append(m_name + QString::fromLatin1(what)); };
        };
        connect(this, &om::controls::DropHandler::entered, this, note(".entered"));
        connect(this, &om::controls::DropHandler::positionChanged, this, note(".positionChanged"));
        connect(this, &om::controls::DropHandler::exited, this, note(".exited"));
        connect(this, &om::controls::DropHandler::dropped, this, note(".dropped"));
    }

    bool canHandle(const QMimeData *mimeData) override
    {
        happened.append(m_name + QStringLiteral(".canHandle"));
        asked = mimeData;
        const bool answer = takes;
        call(whenAsked);
        return answer;
    }
    QVariant dropData(const QMimeData *) override
    {
        happened.append(m_name + QStringLiteral(".dropData"));
        const QVariant answer = payload;
        call(whenAskedForData);
        return answer;
    }

    const QMimeData *asked = nullptr;
    std::function<void()> whenAsked;
    std::function<void()> whenAskedForData;
    QVariant payload = 1;
    bool takes;

private:
    /// Calls a copy: the hook may destroy the handler.
    static void call(const std::function<void()> &hook)
    {
        if (const auto copy = hook) {
            copy();
        }
    }

    const QString m_name;
};

inline void append(om::controls::DropZone *zone, om::controls::DropHandler *handler)
{
    auto list = zone->dropHandlers();
    list.append(&list, handler);
}

inline void clear(om::controls::DropZone *zone)
{
    auto list = zone->dropHandlers();
    list.clear(&list);
}

inline int count(om::controls::DropZone *zone)
{
    auto list = zone->dropHandlers();
    return list.count(&list);
}

inline om::controls::DropHandler *at(om::controls::DropZone *zone, int index)
{
    auto list = zone->dropHandlers();
    return list.at(&list, index);
}

inline om::controls::DropData *dataOf(om::controls::DropZone *zone)
{
    return zone->findChild<om::controls::DropData *>();
}

/// Notes the zone's own signals.
inline void watch(om::controls::DropZone *zone)
{
    QObject::connect(zone, &om::controls::DropZone::containsDragChanged,
                     [] { happened.append(QStringLiteral("containsDragChanged")); });
    QObject::connect(zone, &om::controls::DropZone::dropHandlersChanged,
                     [] { happened.append(QStringLiteral("dropHandlersChanged")); });
}

/// A whole drag over the point (50, 50) of \a receiver. With \a alive, objects that were told to be
/// deleted later are gone before the next event, as in an event loop, and the drag ends with alive.
inline void dragOver(QObject *receiver, bool dropped, QObject *alive = nullptr)
{
    const bool inALoop = alive;
    const QPointer<QObject> guard(alive);
    support::DragEvents drag(receiver);
    drag.setData(QStringLiteral("application/x-test"), "x");
    const std::function<void()> steps[] = {[&] {
                                               drag.enter({50, 50});
                                           },
                                           [&] {
                                               drag.move({51, 50});
                                           },
                                           [&] {
                                               drag.move({52, 50});
                                           },
                                           [&] {
                                               dropped ? void(drag.drop({52, 50})) : drag.leave();
                                           }};
    for (const auto &step : steps) {
        if (!inALoop || guard) {
            step();
        }
        if (inALoop) {
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }
}
