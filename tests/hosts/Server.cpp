// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/hosts/Server.h"

#include "tests/support/Text.h"

#include <QFileInfo>
#include <QTest>

using support::text;

Server::Server(Kind kind, const QString &folder)
{
    if (kind == TwoScreens) {
        startTwoScreens(folder);
    } else if (kind == Wayland) {
        startWayland(folder);
    }
}

Server::~Server()
{
    if (m_process.state() != QProcess::NotRunning) {
        m_process.terminate();
        m_process.waitForFinished();
    }
}

void Server::startTwoScreens(const QString &folder)
{
    // It says the number that it has found free.
    m_process.setStandardErrorFile(folder + text("/server.log"));
    m_process.start(text("Xvfb"),
                    text("-displayfd 1 -screen 0 1280x1024x24 -screen 1 1280x1024x24 "
                         "-nolisten tcp -noreset")
                        .split(QLatin1Char(' ')));
    if (!m_process.waitForStarted() || !m_process.waitForReadyRead(30000)) {
        qFatal("There is no X server with two screens");
    }
    m_environment.insert(text("DISPLAY"),
                         QLatin1Char(':') + QString::fromLatin1(m_process.readLine()).trimmed());
}

void Server::startWayland(const QString &folder)
{
    const QString socket = text("ombrel-hosts");
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(text("XDG_RUNTIME_DIR"), folder);
    m_process.setProcessEnvironment(environment);
    m_process.setStandardOutputFile(folder + text("/server.log"));
    m_process.setStandardErrorFile(folder + text("/server.log"));
    m_process.start(text("weston"),
                    {text("--backend=headless-backend.so"), text("--width=1280"),
                     text("--height=1024"), text("--idle-time=0"), text("--socket=") + socket});
    const QString path = folder + QLatin1Char('/') + socket;
    if (!m_process.waitForStarted()
        || !QTest::qWaitFor([&path] { return QFileInfo::exists(path); }, 30000)) {
        qFatal("There is no Wayland compositor");
    }
    m_environment.insert(text("XDG_RUNTIME_DIR"), folder);
    m_environment.insert(text("WAYLAND_DISPLAY"), socket);
}

void Server::addTo(QProcessEnvironment &environment) const
{
    environment.insert(m_environment);
}
