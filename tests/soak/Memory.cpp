// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/soak/Memory.h"

#include <QByteArray>
#include <QFile>

#include <cstdio>
#include <malloc.h>
#include <unistd.h>

namespace {

constexpr double megabyte = 1024 * 1024;

/// What the C library has given out, of its heap and beside it.
double allocatedMegabytes()
{
#if __GLIBC_PREREQ(2, 33)
    const auto info = mallinfo2();
#else
    const auto info = mallinfo();
#endif
    return double(info.uordblks + info.hblkhd) / megabyte;
}

} // namespace

void Memory::sample()
{
    // Pages of what was freed stay with the C library's heaps, in which now and then a longer list
    // or another thread's needs make new ones: that is no growth.
    malloc_trim(0);
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QFile::ReadOnly)) {
        qFatal("The memory cannot be read");
    }
    const auto words = file.readAll().split(' ');
    const double page = double(sysconf(_SC_PAGESIZE)) / megabyte;
    const Sample sample{double(m_clock.elapsed()) / 1000, words.value(1).toDouble() * page};
    m_samples.append(sample);
    // Beside what counts, what tells a leak from code that is read for the first time and from what
    // the heap keeps.
    std::printf("%.0f s: %.2f MB, %.2f of files, %.2f allocated\n", sample.seconds,
                sample.megabytes, words.value(2).toDouble() * page, allocatedMegabytes());
    std::fflush(stdout);
}

double Memory::slopeFrom(double seconds) const
{
    double count = 0;
    double x = 0;
    double y = 0;
    double xx = 0;
    double xy = 0;
    for (const Sample &sample : m_samples) {
        if (sample.seconds >= seconds) {
            const double hours = sample.seconds / 3600;
            ++count;
            x += hours;
            y += sample.megabytes;
            xx += hours * hours;
            xy += hours * sample.megabytes;
        }
    }
    return count < 2 ? 0 : (count * xy - x * y) / (count * xx - x * x);
}
