// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Gesture.h"

#include <QDrag>
#include <QEventLoop>
#include <QQuickItem>

#include <memory>

namespace support {

// Milliseconds between two steps, in which the application handles the first; a hand is slower.
static constexpr int stepInterval = 8;

Gesture::Gesture()
{
    m_timer.setInterval(stepInterval);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { tick(); });
}

Gesture::~Gesture() = default;

Gesture &Gesture::add(Condition take, const QString &what)
{
    m_steps.push_back({std::move(take), what});
    return *this;
}

Gesture &Gesture::move(const QPoint &position)
{
    return add([this, position] {
        m_pointer.move(position);
        return true;
    });
}

Gesture &Gesture::glide(const QPoint &from, const QPoint &to)
{
    constexpr int steps = 8;
    for (int i = 0; i <= steps; ++i) {
        move(from + (to - from) * i / steps);
    }
    return *this;
}

Gesture &Gesture::press(Qt::MouseButton button)
{
    return add([this, button] {
        m_pointer.press(button);
        return true;
    });
}

Gesture &Gesture::release(Qt::MouseButton button)
{
    return add([this, button] {
        m_pointer.release(button);
        return true;
    });
}

Gesture &Gesture::turnWheel(int notches)
{
    return add([this, notches] {
        m_pointer.turnWheel(notches);
        return true;
    });
}

Gesture &Gesture::key(Qt::Key key)
{
    return pressKey(key).releaseKey(key);
}

Gesture &Gesture::pressKey(Qt::Key key)
{
    return add([this, key] {
        m_pointer.pressKey(key);
        return true;
    });
}

Gesture &Gesture::releaseKey(Qt::Key key)
{
    return add([this, key] {
        m_pointer.releaseKey(key);
        return true;
    });
}

Gesture &Gesture::until(Condition condition, const char *what)
{
    return add(std::move(condition), QString::fromUtf8(what));
}

Gesture &Gesture::hoverUntil(const QPoint &position, Condition condition, const char *what)
{
    return add(
        [this, position, condition, side = 0]() mutable {
            if (condition()) {
                return true;
            }
            side = 1 - side;
            m_pointer.move(position + QPoint(side, 0));
            return false;
        },
        QString::fromUtf8(what));
}

Gesture &Gesture::drag(const QPoint &from, const QPoint &to, Condition condition, const char *what)
{
    return move(from).press().glide(from, to).hoverUntil(to, std::move(condition), what);
}

Gesture &Gesture::then(std::function<void()> function)
{
    // Not from the timer itself, which would not fire again before the function has returned.
    enum State {
        Waiting,
        Posted,
        Called
    };
    auto state = std::make_shared<State>(Waiting);
    return add([this, function, state] {
        if (*state == Waiting) {
            *state = Posted;
            QMetaObject::invokeMethod(
                &m_timer,
                [function, state] {
                    *state = Called;
                    function();
                },
                Qt::QueuedConnection);
        }
        return *state == Called;
    });
}

bool Gesture::run()
{
    QEventLoop loop;
    const auto connection = QObject::connect(&m_timer, &QTimer::timeout, &loop, [this, &loop] {
        if (isFinished()) {
            loop.quit();
        }
    });
    start();
    loop.exec();
    QObject::disconnect(connection);
    m_timer.stop();
    return m_error.isEmpty();
}

void Gesture::start()
{
    m_next = 0;
    m_error.clear();
    m_waiting.start();
    m_timer.start();
}

bool Gesture::isFinished() const
{
    return m_next >= m_steps.size();
}

const char *Gesture::error() const
{
    return m_error.constData();
}

void Gesture::tick()
{
    if (isFinished()) {
        return;
    }
    const Step &step = m_steps[m_next];
    if (step.take()) {
        ++m_next;
        m_waiting.restart();
    } else if (m_waiting.hasExpired(m_patience)) {
        fail(step.what);
    }
}

void Gesture::fail(const QString &what)
{
    m_error = "Waited in vain for: " + what.toUtf8();
    m_next = m_steps.size();
    m_pointer.releaseAll();
    QDrag::cancel();
}

QPoint positionIn(const QQuickItem *item)
{
    return positionIn(item, item->width() / 2, item->height() / 2);
}

QPoint positionIn(const QQuickItem *item, qreal x, qreal y)
{
    return item->mapToGlobal(QPointF(x, y)).toPoint();
}

} // namespace support
