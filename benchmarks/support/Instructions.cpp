// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "benchmarks/support/Instructions.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <cstdio>

#if __has_include(<valgrind/callgrind.h>)
#include <valgrind/callgrind.h>
#define HAS_CALLGRIND
#endif

namespace benchmark {

void countInstructions(const char *name, const std::function<void()> &body)
{
#ifdef HAS_CALLGRIND
    CALLGRIND_START_INSTRUMENTATION;
    CALLGRIND_ZERO_STATS;
    body();
    CALLGRIND_DUMP_STATS_AT(name);
    CALLGRIND_STOP_INSTRUMENTATION;
#else
    Q_UNUSED(name)
    body();
#endif
}

/// The totals in callgrind's files in \a folder, by the names given to countInstructions().
static std::map<std::string, double> readCounts(const QDir &folder)
{
    std::map<std::string, double> counts;
    const QStringList files = folder.entryList({QStringLiteral("counts*")}, QDir::Files);
    for (const QString &name : files) {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::ReadOnly)) {
            continue;
        }
        std::string section;
        while (!file.atEnd()) {
            const QByteArray line = file.readLine().trimmed();
            const QByteArray trigger = "desc: Trigger: Client Request: ";
            if (line.startsWith(trigger)) {
                section = line.mid(trigger.size()).toStdString();
            } else if (line.startsWith("totals: ") && !section.empty()) {
                counts[section] = line.mid(8).toDouble();
            }
        }
    }
    return counts;
}

std::map<std::string, double> instructionsOf(const QStringList &arguments)
{
    const QString valgrind = QStandardPaths::findExecutable(QStringLiteral("valgrind"));
#ifdef HAS_CALLGRIND
    const bool compiled = true;
#else
    const bool compiled = false;
#endif
    if (valgrind.isEmpty() || !compiled) {
        std::printf("No instructions counted: valgrind is missing\n");
        return {};
    }
    const QTemporaryDir folder;
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(valgrind,
                  QStringList{QStringLiteral("-q"), QStringLiteral("--tool=callgrind"),
                              QStringLiteral("--instr-atstart=no"),
                              QStringLiteral("--callgrind-out-file=") + folder.filePath("counts"),
                              QCoreApplication::applicationFilePath()}
                      + arguments);
    if (!process.waitForFinished(-1) || process.exitCode() != 0) {
        std::printf("No instructions counted: valgrind failed\n");
        return {};
    }
    return readCounts(QDir(folder.path()));
}

} // namespace benchmark
