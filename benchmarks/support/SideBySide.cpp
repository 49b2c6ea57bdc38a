// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "benchmarks/support/SideBySide.h"

#include "benchmarks/support/Measures.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

namespace benchmark {

using Clock = std::chrono::steady_clock;

static double microseconds(const std::function<void()> &body, int calls)
{
    const Clock::time_point start = Clock::now();
    for (int i = 0; i < calls; ++i) {
        body();
    }
    return std::chrono::duration<double, std::micro>(Clock::now() - start).count() / calls;
}

Result sideBySide(const char *name, double goal, const std::function<void()> &ours,
                  const std::function<void()> &theirs, const Options &options)
{
    const auto prepare = [&options] {
        if (options.between) {
            options.between();
        }
    };
    // The first call of each side pays for caches and lazy set-up; it also tells how many calls
    // make a measurable time.
    prepare();
    const double firstOurs = microseconds(ours, 1);
    prepare();
    const double firstTheirs = microseconds(theirs, 1);
    int calls = options.calls;
    if (calls == 0) {
        calls =
            int(std::clamp(1000.0 / std::max(1e-3, std::min(firstOurs, firstTheirs)), 1.0, 1e5));
    }

    std::vector<double> ourTimes;
    std::vector<double> theirTimes;
    for (int round = 0; round < options.rounds; ++round) {
        prepare();
        ourTimes.push_back(microseconds(ours, calls));
        prepare();
        theirTimes.push_back(microseconds(theirs, calls));
    }
    const Result result{median(ourTimes), median(theirTimes)};
    printRow(name, goal, result.ours, result.theirs, "us");
    return result;
}

void printRow(const char *name, double goal, double ours, double theirs, const char *unit)
{
    const double ratio = theirs > 0 ? ours / theirs : 0;
    std::printf("%-52s ours %12.3f %s  theirs %12.3f %s  ratio %6.3f  goal %5.2f%s\n", name, ours,
                unit, theirs, unit, ratio, goal, ratio > goal ? "  ABOVE" : "");
    std::fflush(stdout);
}

} // namespace benchmark
