// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QElapsedTimer>
#include <QVector>

/// The memory of this process over time.
class Memory
{
public:
    Memory() { m_clock.start(); }

    /// Notes what is resident now, and prints it.
    void sample();
    /// Megabytes an hour, by least squares over what was noted from \a seconds on; 0 for less than
    /// two samples.
    double slopeFrom(double seconds) const;

private:
    struct Sample
    {
        double seconds;
        double megabytes;
    };
    QElapsedTimer m_clock;
    QVector<Sample> m_samples;
};
