// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/random/Player.h"

#include <QCoreApplication>
#include <QDrag>
#include <QMetaMethod>
#include <QQuickItem>
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QTest>
#include <QTimer>

#include <cstdio>

namespace {

/// From within nested loops and handlers only so deep: each level is stack.
constexpr int MaximumDepth = 6;

int signalIndex(const QObject *object, const QByteArray &name)
{
    const QMetaObject *const meta = object->metaObject();
    for (int i = 0; i < meta->methodCount(); ++i) {
        const QMetaMethod method = meta->method(i);
        if (method.methodType() == QMetaMethod::Signal && method.name() == name) {
            return i;
        }
    }
    return -1;
}

Qt::MouseButton button(const QJsonValue &value)
{
    return value.toInt() == 1 ? Qt::RightButton : Qt::LeftButton;
}

} // namespace

Player::Player(Scene &scene, const QJsonArray &steps, int milliseconds)
    : m_scene(scene)
    , m_steps(steps)
    , m_milliseconds(milliseconds)
{
}

void Player::start()
{
    m_clock.start();
    next();
}

void Player::next()
{
    if (m_index == m_steps.size() || m_clock.elapsed() > m_milliseconds) {
        // A loop inside has seen the end first; the outermost one is left last.
        if (m_depth == 0) {
            std::printf("heard %d\n", m_heard.size());
            Q_EMIT finished();
        } else {
            QDrag::cancel();
            QTimer::singleShot(1, this, &Player::next);
        }
        return;
    }
    if (m_depth >= MaximumDepth) {
        // What would end the drag in whose loop this is, such as a release, is not done so deep:
        // all the steps that are left would be lost.
        QDrag::cancel();
        QTimer::singleShot(1, this, &Player::next);
        return;
    }
    const int index = m_index++;
    const QJsonArray step = m_steps.at(index).toArray();
    // The one who watches knows how far it went and that it still moves.
    std::printf("step %d\n", index);
    std::fflush(stdout);
    QTimer::singleShot(step.at(0) == QLatin1String("wait") ? step.at(1).toInt() : 0, this,
                       &Player::next);
    ++m_depth;
    take(step);
    --m_depth;
}

void Player::take(const QJsonArray &step)
{
    const QString what = step.at(0).toString();
    const QString first = step.at(1).toString();
    const bool isInput = what != QLatin1String("make") && what != QLatin1String("evaluate")
        && what != QLatin1String("act");
    const QScopedValueRollback<bool> turning(m_mayTurnLoop, !isInput);
    if (what == QLatin1String("make")) {
        m_lastDocument = step.at(2).toString().toUtf8();
        m_scene.make(m_lastDocument, m_scene.object(first));
    } else if (what == QLatin1String("evaluate")) {
        m_scene.evaluate(first);
    } else if (what == QLatin1String("act")) {
        act(first, step.at(2).toString());
    } else if (what == QLatin1String("hook")) {
        hook(step);
    } else if (what == QLatin1String("reload")) {
        m_scene.reload(m_lastDocument);
    } else if (what == QLatin1String("resize")) {
        m_scene.window(step.at(1).toInt())->resize(step.at(2).toInt(), step.at(3).toInt());
    } else if (what == QLatin1String("grab")) {
        m_scene.window(step.at(1).toInt())->grabWindow();
    } else if (what.startsWith(QLatin1String("drag"))) {
        takeDrag(what, step);
    } else {
        takeInput(what, step);
    }
}

/// [what, window, x, y], or [what, window, name of an item, ...]: its middle, in its own window.
Player::Place Player::placeOf(const QJsonArray &step) const
{
    QQuickItem *const item = m_scene.item(step.at(2).toString());
    if (item && item->window() && item->window()->isVisible()) {
        // Far enough outside for every window, and within what an int can hold.
        const QPointF middle = item->mapToScene({item->width() / 2, item->height() / 2});
        const auto bounded = [](qreal value) {
            return value > -1e4 && value < 1e4 ? int(value) : 0;
        };
        return {item->window(), {bounded(middle.x()), bounded(middle.y())}};
    }
    return {m_scene.window(step.at(1).toInt()), {step.at(2).toInt(), step.at(3).toInt()}};
}

void Player::takeInput(const QString &what, const QJsonArray &step)
{
    const auto [window, place] = placeOf(step);
    if (what == QLatin1String("press")) {
        QTest::mousePress(window, button(step.at(4)), {}, place);
    } else if (what == QLatin1String("release")) {
        QTest::mouseRelease(window, button(step.at(4)), {}, place);
    } else if (what == QLatin1String("double click")) {
        QTest::mouseDClick(window, button(step.at(4)), {}, place);
    } else if (what == QLatin1String("move")) {
        QTest::mouseMove(window, place);
    } else if (what == QLatin1String("key")) {
        QTest::keyClick(window, Qt::Key(step.at(2).toInt()),
                        Qt::KeyboardModifiers(step.at(3).toInt()));
    } else if (what == QLatin1String("real move")) {
        m_pointer.move(window->mapToGlobal(place));
    } else if (what == QLatin1String("real press")) {
        m_pointer.move(window->mapToGlobal(place));
        m_pointer.press(button(step.at(4)));
    } else if (what == QLatin1String("real release")) {
        m_pointer.release(button(step.at(4)));
    } else if (what == QLatin1String("real wheel")) {
        m_pointer.turnWheel(step.at(2).toInt());
    } else if (what == QLatin1String("real key")) {
        m_pointer.pressKey(Qt::Key(step.at(2).toInt()));
        m_pointer.releaseKey(Qt::Key(step.at(2).toInt()));
    }
}

void Player::takeDrag(const QString &what, const QJsonArray &step)
{
    if (m_deliversDrag) {
        return; // Qt does not survive it: qt/nesteddragevents.cpp
    }
    m_deliversDrag = true;
    const auto delivered = qScopeGuard([this] { m_deliversDrag = false; });
    const auto [window, place] = placeOf(step);
    if (what == QLatin1String("drag enter")) {
        m_foreign = std::make_unique<support::DragEvents>(window);
        const QJsonArray formats = step.at(4).toArray();
        for (const QJsonValue &format : formats) {
            m_foreign->setData(format.toArray().at(0).toString(),
                               QByteArray::fromHex(format.toArray().at(1).toString().toLatin1()));
        }
        m_foreign->enter(place);
    } else if (what == QLatin1String("drag cancel")) {
        QDrag::cancel();
    } else if (m_foreign) {
        // A step from inside a handler of this one may begin another.
        std::unique_ptr<support::DragEvents> drag = std::move(m_foreign);
        if (what == QLatin1String("drag move")) {
            drag->move(place);
            if (!m_foreign) {
                m_foreign = std::move(drag);
            }
        } else if (what == QLatin1String("drag leave")) {
            drag->leave();
        } else if (what == QLatin1String("drag drop")) {
            drag->drop(place, true);
        }
    }
}

/// ["hook", sender, signal, action, target]: whenever the signal is emitted, but not from within
/// itself, the action is done.
void Player::hook(const QJsonArray &step)
{
    QObject *const sender = m_scene.object(step.at(1).toString());
    const int index = sender ? signalIndex(sender, step.at(2).toString().toLatin1()) : -1;
    if (index < 0) {
        return;
    }
    const QString action = step.at(3).toString();
    const QString target = step.at(4).toString();
    auto running = std::make_shared<bool>(false);
    const QString kind =
        QString::fromLatin1(sender->metaObject()->className()) + step.at(2).toString();
    m_hooks.connectTo(sender, index, [this, action, target, running, kind] {
        m_heard.insert(kind);
        if (!*running && m_depth <= MaximumDepth) {
            *running = true;
            ++m_depth;
            act(action, target);
            --m_depth;
            *running = false;
        }
    });
}

void Player::act(const QString &action, const QString &name)
{
    QObject *const object = m_scene.object(name);
    QQuickItem *const item = m_scene.item(name);
    if (action == QLatin1String("collect garbage")) {
        m_scene.engine()->collectGarbage();
    } else if (action == QLatin1String("delete what is to be deleted")) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    } else if (action == QLatin1String("close")) {
        // Not from within a signal: qt/closedwhenhovered.cpp
        QMetaObject::invokeMethod(m_scene.window(name.toInt()), "close", Qt::QueuedConnection);
    } else if (action == QLatin1String("show window")) {
        m_scene.window(name.toInt())->show();
    } else if (action == QLatin1String("release the scene graph")) {
        m_scene.window(name.toInt())->releaseResources();
    } else if (action == QLatin1String("cancel the drag")) {
        // Not within the delivery of a drop: qt/canceledinadrop.cpp
        QMetaObject::invokeMethod(
            &m_scene, [] { QDrag::cancel(); }, Qt::QueuedConnection);
    } else if (action == QLatin1String("turn the event loop")) {
        // Not within the delivery of an event: qt/loopinpress.cpp, qt/loopindrag.cpp
        if (m_mayTurnLoop) {
            const QScopedValueRollback<bool> others(m_mayTurnLoop, false);
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        }
    } else if (!object) {
        return;
    } else if (action == QLatin1String("delete later")) {
        object->deleteLater();
    } else if (action == QLatin1String("delete")) {
        delete object;
    } else if (!item) {
        return;
    } else if (action == QLatin1String("hide")) {
        item->setVisible(false);
    } else if (action == QLatin1String("show")) {
        item->setVisible(true);
    } else if (action == QLatin1String("disable")) {
        item->setEnabled(false);
    } else if (action == QLatin1String("enable")) {
        item->setEnabled(true);
    } else if (action == QLatin1String("focus")) {
        item->forceActiveFocus();
    } else if (action == QLatin1String("take out")) {
        item->setParentItem(nullptr);
    } else if (action == QLatin1String("to the first window")) {
        item->setParentItem(m_scene.window(0)->contentItem());
    } else if (action == QLatin1String("to the second window")) {
        item->setParentItem(m_scene.window(1)->contentItem());
    } else if (action == QLatin1String("grab the pointer")) {
        item->grabMouse();
    } else if (action == QLatin1String("let the pointer go")) {
        item->ungrabMouse();
    }
}
