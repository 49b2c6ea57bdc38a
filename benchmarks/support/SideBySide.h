// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

namespace benchmark {

/// What one row measured: medians in microseconds of one call, and their ratio.
struct Result
{
    double ours = 0;
    double theirs = 0;
    double ratio() const { return theirs > 0 ? ours / theirs : 0; }
};

struct Options
{
    /// How often each side is measured.
    int rounds = 41;
    /// How many calls make one measurement; 0 picks a number that takes about a millisecond.
    int calls = 0;
    /// Called before each measurement of either side, not measured.
    std::function<void()> between = {};
};

/// Measures \a ours and \a theirs alternately, so that whatever else the machine does hits both
/// alike, and prints a row: name, both medians, their ratio and the goal ("at most").
Result sideBySide(const char *name, double goal, const std::function<void()> &ours,
                  const std::function<void()> &theirs, const Options &options = {});

/// Prints a row for values measured in another way (bytes, frames).
void printRow(const char *name, double goal, double ours, double theirs, const char *unit);

} // namespace benchmark
