// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>

#include <functional>

/// Deletes an object at once when a signal or a delegate calls it, as C++ code may; QML's destroy()
/// waits for the event loop.
class Destroyer : public QObject
{
    Q_OBJECT
public:
    /// What act() deletes, the first time that it is called; null from then on.
    QPointer<QObject> victim;
    /// Called by actFor(), with the name that the delegate passes.
    std::function<void(const QString &)> deed;

public Q_SLOTS:
    void act()
    {
        QObject *object = victim;
        victim.clear();
        delete object;
    }
    void actFor(const QString &name)
    {
        if (deed) {
            deed(name);
        }
    }
    /// Runs the deferred deletions of all objects, as an event loop in a handler would.
    void deleteDeferred() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
};
