// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

#include <array>

namespace om::controls {

/// The arithmetic of a frame rate over the last 60 frames. It knows no clock: every time is handed
/// in, in milliseconds. The rate is computed at most once in 1000 ms.
class FrameRateMeter
{
public:
    /// \a now starts the first interval.
    explicit FrameRateMeter(qint64 now);

    /// Adds a frame at the time \a now. Returns whether the rate has changed.
    bool addFrame(qint64 now);

    /// Frames per second, truncated. 0 until 60 frames have been added.
    int framesPerSecond() const { return m_framesPerSecond; }

private:
    int computeRate() const;

    static constexpr int FrameCount = 60;

    std::array<qint64, FrameCount> m_frameTimes = {};
    qint64 m_lastUpdate;
    /// The slot that is written next; after a write it holds the oldest time.
    int m_writeIndex = 0;
    int m_framesPerSecond = 0;
};

} // namespace om::controls
