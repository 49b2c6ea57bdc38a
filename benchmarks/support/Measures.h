// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <vector>

namespace benchmark {

/// Of \a values, which are not empty.
double median(std::vector<double> values);

/// Bytes that the process has allocated and not freed.
double heap();

/// Measurements in microseconds: what passed, and what this thread was busy for. The difference is
/// the threads of a software rasteriser, which stand in for a graphics card.
struct Times
{
    /// Calls \a body, measured.
    void add(const std::function<void()> &body);

    std::vector<double> passed;
    std::vector<double> own;
};

} // namespace benchmark
