// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Screen.h"

#include <QCursor>
#include <QPixmap>
#include <QQuickWindow>
#include <QScreen>
#include <QTest>

namespace support {

void pinToScreen(QWindow *window)
{
    window->setFlag(Qt::FramelessWindowHint);
    window->setFlag(Qt::X11BypassWindowManagerHint);
    window->setPosition(60, 60);
    QCursor::setPos(window->screen()->geometry().bottomRight());
}

QImage screenPixels(const QWindow *window)
{
    const QRect place = window->geometry();
    return window->screen()
        ->grabWindow(0, place.x(), place.y(), place.width(), place.height())
        .toImage();
}

FrameCounter::FrameCounter(QQuickWindow *window, void (QQuickWindow::*signal)())
    : m_count(std::make_shared<std::atomic<int>>(0))
    , m_connection(QObject::connect(
          window, signal, window, [count = m_count] { ++*count; }, Qt::DirectConnection))
{
}

FrameCounter::~FrameCounter()
{
    QObject::disconnect(m_connection);
}

int FrameCounter::count() const
{
    return *m_count;
}

void FrameCounter::settle() const
{
    // A window that never rests ends this, too: what it goes on rendering is counted afterwards.
    for (int quiet = 0, turn = 0; quiet < 3 && turn < 40; ++turn) {
        const int before = count();
        QTest::qWait(25);
        quiet = count() == before ? quiet + 1 : 0;
    }
}

void FrameCounter::reset()
{
    *m_count = 0;
}

} // namespace support
