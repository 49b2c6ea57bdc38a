// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/Pointer.h"

#include <QElapsedTimer>
#include <QString>
#include <QTimer>

#include <functional>
#include <vector>

class QQuickItem;

namespace support {

/// A gesture of a hand, step by step, with the real pointer. A timer takes the steps, so they go on
/// while the code under test sits in a loop of its own, as QDrag::exec() does.
///
///     Gesture gesture;
///     gesture.drag(from, over, [&] { return zone->containsDrag(); }, "the zone sees the drag")
///            .release();
///     QVERIFY2(gesture.run(), gesture.error());
///
/// A step that waits gives up after five seconds (setPatience()); then everything held is released,
/// a drag that is still going on is cancelled, and error() says what did not come.
///
/// After the last move before a drop, wait for what the target shows (until(), hoverUntil()): a
/// button released before the target has answered cancels the drag.
class Gesture
{
public:
    using Condition = std::function<bool()>;

    Gesture();
    ~Gesture();

    /// Global positions, in device pixels; positionIn() makes them from items.
    Gesture &move(const QPoint &position);
    /// Moves in a straight line, in eight steps.
    Gesture &glide(const QPoint &from, const QPoint &to);
    Gesture &press(Qt::MouseButton button = Qt::LeftButton);
    Gesture &release(Qt::MouseButton button = Qt::LeftButton);
    /// Turns the wheel by a number of notches, down when positive.
    Gesture &turnWheel(int notches);
    /// Presses and releases \a key; an Escape cancels a drag.
    Gesture &key(Qt::Key key);
    Gesture &pressKey(Qt::Key key);
    Gesture &releaseKey(Qt::Key key);
    /// Waits for \a condition. \a what ends the sentence "Waited in vain for: ".
    Gesture &until(Condition condition, const char *what);
    /// Waits for \a condition and moves to and fro by a pixel meanwhile, as a hand does: a drag's
    /// target is asked again for each move.
    Gesture &hoverUntil(const QPoint &position, Condition condition, const char *what);
    /// A drag up to its drop: moves to \a from, presses there, glides to \a to and hovers there
    /// until \a condition holds.
    Gesture &drag(const QPoint &from, const QPoint &to, Condition condition, const char *what);
    /// Calls \a function from the event loop; it may block in a loop of its own.
    Gesture &then(std::function<void()> function);

    void setPatience(int milliseconds) { m_patience = milliseconds; }

    /// Takes the steps; returns when all are taken and every loop they started has ended. False
    /// when a wait was in vain.
    bool run();
    /// Takes the steps from the event loop: for tests that call what blocks themselves.
    void start();
    bool isFinished() const;
    /// What went wrong, for QVERIFY2; empty when nothing did.
    const char *error() const;

    Pointer &pointer() { return m_pointer; }

private:
    struct Step
    {
        Condition take; // true when done
        QString what;
    };
    Gesture &add(Condition take, const QString &what = {});
    void tick();
    void fail(const QString &what);

    Pointer m_pointer;
    QTimer m_timer;
    QElapsedTimer m_waiting;
    std::vector<Step> m_steps;
    size_t m_next = 0;
    int m_patience = 5000;
    QByteArray m_error;
};

/// The global position of the point of \a item at (\a x, \a y); without them of its centre.
QPoint positionIn(const QQuickItem *item);
QPoint positionIn(const QQuickItem *item, qreal x, qreal y);

} // namespace support
