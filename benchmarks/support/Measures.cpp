// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "benchmarks/support/Measures.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <malloc.h>

namespace benchmark {

using Clock = std::chrono::steady_clock;

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

double heap()
{
    const struct mallinfo2 info = mallinfo2();
    return double(info.uordblks + info.hblkhd);
}

static double ownTime()
{
    timespec time = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e6 + double(time.tv_nsec) / 1e3;
}

void Times::add(const std::function<void()> &body)
{
    const double ownStart = ownTime();
    const Clock::time_point start = Clock::now();
    body();
    passed.push_back(std::chrono::duration<double, std::micro>(Clock::now() - start).count());
    own.push_back(ownTime() - ownStart);
}

} // namespace benchmark
