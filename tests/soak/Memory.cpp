// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/soak/Memory.h"

#include <QByteArray>
#include <QFile>

#include <cstdio>
#include <unistd.h>

void Memory::sample()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QFile::ReadOnly)) {
        qFatal("The memory cannot be read");
    }
    const double pages = file.readAll().split(' ').value(1).toDouble();
    const Sample sample{double(m_clock.elapsed()) / 1000,
                        pages * double(sysconf(_SC_PAGESIZE)) / (1024 * 1024)};
    m_samples.append(sample);
    std::printf("%.0f s: %.2f MB\n", sample.seconds, sample.megabytes);
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
