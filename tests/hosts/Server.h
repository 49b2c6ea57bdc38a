// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QProcess>

/// What a host is shown on, if that is another server than the test's own.
class Server
{
public:
    enum Kind {
        None,
        TwoScreens, ///< An X server with two screens.
        Wayland, ///< A compositor without a screen.
    };

    /// Starts it, with what it needs of files in \a folder, and waits until it answers; that it
    /// does not is fatal.
    Server(Kind kind, const QString &folder);
    ~Server();
    Q_DISABLE_COPY(Server)

    /// Adds what leads a program there.
    void addTo(QProcessEnvironment &environment) const;

private:
    void startTwoScreens(const QString &folder);
    void startWayland(const QString &folder);

    QProcess m_process;
    QProcessEnvironment m_environment;
};
