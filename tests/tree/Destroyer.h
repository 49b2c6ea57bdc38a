// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>

#include <functional>

/// C++ code that a signal or a delegate calls, and that destroys an object right there: what
/// QML's own destroy() puts off, C++ does not.
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
    /// Runs the deferred deletions of all objects, as an event loop in a handler does.
    void deleteDeferred() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
};
