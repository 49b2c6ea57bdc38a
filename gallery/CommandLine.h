// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QCommandLineParser>
#include <QSize>
#include <QString>

namespace om::gallery {

/// What the gallery is told on its command line.
class CommandLine
{
    Q_DISABLE_COPY(CommandLine)
public:
    CommandLine();

    /// What has to happen before there is a QGuiApplication: --help and --version, which need no
    /// display, end the program, and --scale is handed to Qt.
    void applyEarly(int argc, char **argv);
    /// Reads the arguments of the application; ends the program at an unknown option. Afterwards
    /// error() is empty, or says why the gallery cannot be shown like that.
    void read(const QStringList &arguments);
    QString error() const { return m_error; }

    /// The folder to show, the samples' included.
    QString folder() const { return m_folder; }
    /// The page to open; empty when none was asked for.
    QString page() const { return m_parser.value(m_page); }
    bool listsPages() const { return m_parser.isSet(m_pages); }
    /// Where pictures go; empty when none are to be taken.
    QString screenshots() const { return m_parser.value(m_screenshots); }
    /// Whether pictures show the demos alone.
    bool demos() const { return m_parser.isSet(m_demos); }
    /// Whether nobody will use the window: pictures are the same whoever takes them, and leave no
    /// traces.
    bool isForPictures() const { return listsPages() || m_parser.isSet(m_screenshots); }
    /// Light, dark or system; empty when none was asked for.
    QString appearance() const { return m_parser.value(m_appearance); }
    /// The window's size. The height is -1 when only a width was asked for, and both are when
    /// nothing was.
    QSize size() const { return m_windowSize; }

private:
    void readFolder();
    void readSize();

    QCommandLineParser m_parser;
    const QCommandLineOption m_page;
    const QCommandLineOption m_pages;
    const QCommandLineOption m_screenshots;
    const QCommandLineOption m_demos;
    const QCommandLineOption m_samples;
    const QCommandLineOption m_size;
    const QCommandLineOption m_scale;
    const QCommandLineOption m_appearance;
    QString m_folder;
    QSize m_windowSize;
    QString m_error;
};

} // namespace om::gallery
