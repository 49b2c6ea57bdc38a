// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/plugin/handlers/SignalHook.h"
#include "tests/random/Scene.h"
#include "tests/support/DragEvents.h"
#include "tests/support/Pointer.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QSet>

/// Takes steps, one each turn of the event loop: the next one is on its way before one is taken, so
/// that they go on from inside the loops that a drag or an event handler runs.
///
/// A step is ["what", argument...]. One that speaks of an object that is not there does nothing,
/// so any steps may be left out: that is how the fewest that still fail are found.
class Player : public QObject
{
    Q_OBJECT

public:
    Player(Scene &scene, const QJsonArray &steps, int milliseconds);

    void start();

Q_SIGNALS:
    void finished();

private:
    void next();
    void take(const QJsonArray &step);
    struct Place
    {
        QQuickWindow *window;
        QPoint position;
    };
    Place placeOf(const QJsonArray &step) const;
    void takeInput(const QString &what, const QJsonArray &step);
    void takeDrag(const QString &what, const QJsonArray &step);
    void hook(const QJsonArray &step);
    void act(const QString &action, const QString &name);

    Scene &m_scene;
    const QJsonArray m_steps;
    const int m_milliseconds;
    int m_index = 0;
    int m_depth = 0;
    QElapsedTimer m_clock;
    QByteArray m_lastDocument;
    SignalHook m_hooks;
    QSet<QString> m_heard; ///< Kinds of signals that hooks have met.
    support::Pointer m_pointer;
    std::unique_ptr<support::DragEvents> m_foreign;
    bool m_deliversDrag = false;
    bool m_mayTurnLoop = false; ///< What runs now is a step's own doing, not an event's.
};
