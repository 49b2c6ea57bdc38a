// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/ForeignProgram.h"

#include <QTest>

namespace support {

ForeignProgram::ForeignProgram(const QString &name)
{
    m_process.setProgram(qEnvironmentVariable("OMBREL_BUILD_DIR") + QStringLiteral("/tests/")
                         + name);
    m_process.setProcessChannelMode(QProcess::SeparateChannels);
    m_process.setInputChannelMode(QProcess::ManagedInputChannel);
    QObject::connect(&m_process, &QProcess::readyReadStandardOutput, &m_process,
                     [this] { read(); });
}

ForeignProgram::~ForeignProgram()
{
    // The end of its input is its order to go.
    m_process.closeWriteChannel();
    if (m_process.state() != QProcess::NotRunning && !m_process.waitForFinished(5000)) {
        m_process.kill();
        m_process.waitForFinished(5000);
    }
}

bool ForeignProgram::start(const QStringList &arguments)
{
    m_process.setArguments(arguments);
    m_process.start();
    const auto settled = [this] {
        return count(QStringLiteral("ready")) > 0 || m_process.state() == QProcess::NotRunning;
    };
    const bool ready = QTest::qWaitFor(settled, 10000) && count(QStringLiteral("ready")) > 0;
    if (!ready) {
        m_error = m_process.program() + QStringLiteral(" does not start: ")
            + m_process.errorString() + QLatin1Char(' ')
            + QString::fromUtf8(m_process.readAllStandardError());
        return false;
    }
    const QStringList numbers = lines(QStringLiteral("ready")).constFirst().split(QLatin1Char(' '));
    m_geometry = QRect(numbers.value(0).toInt(), numbers.value(1).toInt(), numbers.value(2).toInt(),
                       numbers.value(3).toInt());
    return true;
}

QStringList ForeignProgram::lines(const QString &word) const
{
    QStringList found;
    for (const QString &line : m_lines) {
        if (line == word || line.startsWith(word + QLatin1Char(' '))) {
            found.append(line.mid(word.size() + 1));
        }
    }
    return found;
}

bool ForeignProgram::mayDrop() const
{
    const QStringList answers = lines(QStringLiteral("action"));
    return !answers.isEmpty() && answers.last() != QLatin1String("0");
}

void ForeignProgram::read()
{
    m_pending += m_process.readAllStandardOutput();
    int end = 0;
    while ((end = m_pending.indexOf('\n')) >= 0) {
        m_lines.append(QString::fromUtf8(m_pending.left(end)));
        m_pending.remove(0, end + 1);
    }
}

} // namespace support
