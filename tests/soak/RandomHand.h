// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/Pointer.h"

#include <QObject>
#include <QQuickItem>
#include <QTimer>

#include <random>

/// Presses, drags, turns the wheel and types at random in the area of an item, with the X server's
/// own pointer and keyboard, at the pace of a hurried hand.
class RandomHand : public QObject
{
public:
    explicit RandomHand(unsigned seed);

    /// Goes on in the area of \a page, drags included, until stop(), which takes the pointer away.
    void start(QQuickItem *page);
    void stop();
    int steps() const { return m_steps; }

private:
    void step();
    void moveSomewhere();
    void typeSomething();
    void pressKey(Qt::Key key, Qt::Key modifier = Qt::Key_unknown);
    int pick(int below) { return int(m_random() % unsigned(below)); }

    std::mt19937 m_random;
    support::Pointer m_pointer;
    QTimer m_timer;
    QPointer<QQuickItem> m_page;
    int m_movesWhilePressed = 0; ///< Still to be done; then the button is released.
    bool m_pressed = false;
    int m_steps = 0;
};
