// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/soak/RandomHand.h"

#include <QQuickWindow>

RandomHand::RandomHand(unsigned seed)
    : m_random(seed)
{
    m_timer.setInterval(15);
    connect(&m_timer, &QTimer::timeout, this, &RandomHand::step);
}

void RandomHand::start(QQuickItem *page)
{
    m_page = page;
    m_timer.start();
}

void RandomHand::stop()
{
    m_timer.stop();
    m_pressed = false;
    m_pointer.releaseAll();
    for (int i = 0; i < 4; ++i) {
        pressKey(Qt::Key_Escape);
    }
    m_pointer.move({4000, 4000}); // where nothing lies under it
}

void RandomHand::moveSomewhere()
{
    const QRectF area = m_page->mapRectToScene(m_page->boundingRect());
    const QPointF place(area.x() + 2 + pick(int(area.width()) - 4),
                        area.y() + 2 + pick(int(area.height()) - 4));
    m_pointer.move(m_page->window()->mapToGlobal(place.toPoint()));
}

void RandomHand::pressKey(Qt::Key key, Qt::Key modifier)
{
    if (modifier != Qt::Key_unknown) {
        m_pointer.pressKey(modifier);
    }
    m_pointer.pressKey(key);
    m_pointer.releaseKey(key);
    if (modifier != Qt::Key_unknown) {
        m_pointer.releaseKey(modifier);
    }
}

/// Nothing that leads to another page or window.
void RandomHand::typeSomething()
{
    static constexpr Qt::Key plain[] = {
        Qt::Key_Left,   Qt::Key_Right,     Qt::Key_Up,     Qt::Key_Down,
        Qt::Key_Home,   Qt::Key_End,       Qt::Key_F2,     Qt::Key_F3,
        Qt::Key_Return, Qt::Key_Backspace, Qt::Key_Escape, Qt::Key_Escape,
        Qt::Key_A,      Qt::Key_B,         Qt::Key_C,      Qt::Key_Delete};
    static constexpr Qt::Key held[] = {Qt::Key_Z, Qt::Key_Z, Qt::Key_Y,
                                       Qt::Key_A, Qt::Key_L, Qt::Key_S};
    if (pick(4) == 0) {
        pressKey(held[pick(6)], Qt::Key_Control);
    } else {
        pressKey(plain[pick(16)], pick(6) == 0 ? Qt::Key_Shift : Qt::Key_unknown);
    }
}

void RandomHand::step()
{
    if (!m_page || !m_page->window()) {
        return;
    }
    ++m_steps;
    if (m_pressed) {
        if (m_movesWhilePressed-- > 0) {
            moveSomewhere();
        } else {
            m_pointer.releaseAll();
            m_pressed = false;
        }
        return;
    }
    moveSomewhere();
    const int what = pick(10);
    if (what < 6) {
        m_pointer.press(what == 0 ? Qt::RightButton : Qt::LeftButton);
        m_pressed = true;
        m_movesWhilePressed = pick(3) == 0 ? 1 + pick(12) : 0;
    } else if (what < 7) {
        m_pointer.turnWheel(pick(2) ? 1 : -1);
    } else {
        typeSomething();
    }
}
