// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/input/FrameRateMeter.h"

namespace om::controls {

namespace {

constexpr qint64 updateInterval = 1000;

} // namespace

FrameRateMeter::FrameRateMeter(qint64 now)
    : m_lastUpdate(now)
{
}

bool FrameRateMeter::addFrame(qint64 now)
{
    m_frameTimes[m_writeIndex] = now;
    m_writeIndex = (m_writeIndex + 1) % FrameCount;
    if (now - m_lastUpdate < updateInterval) {
        return false;
    }
    m_lastUpdate = now;
    const int rate = computeRate();
    if (rate == m_framesPerSecond) {
        return false;
    }
    m_framesPerSecond = rate;
    return true;
}

int FrameRateMeter::computeRate() const
{
    // Each pair of neighbours is subtracted as earlier minus later, and only positive differences
    // count. With rising times that is one, where the ring wraps: newest minus oldest, the span of
    // 60 frames. Until the ring is full its oldest time is 0, so the span is decades and the rate
    // 0. A clock that was set back adds a difference; two frames at one time add none.
    qint64 sum = 0;
    qint64 count = 0;
    for (int step = 1; step < FrameCount; ++step) {
        const int slot = m_writeIndex + step;
        const qint64 difference =
            m_frameTimes[slot % FrameCount] - m_frameTimes[(slot + 1) % FrameCount];
        if (difference > 0) {
            sum += difference;
            ++count;
        }
    }
    if (count == 0) {
        return 0;
    }
    // Whole milliseconds, as the times are: a span of 983 ms is 61 frames a second, one of 984
    // ms 60.
    const qint64 mean = sum / count;
    return static_cast<int>(60000.0 / static_cast<double>(mean));
}

} // namespace om::controls
