// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/CommandLine.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace om::gallery {

namespace {

bool asksForWordsOnly(int argc, char **argv)
{
    const QByteArrayList words = {"-h", "--help", "-v", "--version"};
    return std::any_of(argv + 1, argv + argc, [&words](const char *argument) {
        return words.contains(QByteArray::fromRawData(argument, int(qstrlen(argument))));
    });
}

/// The value of an option that Qt has to know before there is an application.
QByteArray earlyValue(const QByteArray &option, int argc, char **argv)
{
    for (int i = 1; i < argc; ++i) {
        const auto argument = QByteArray::fromRawData(argv[i], int(qstrlen(argv[i])));
        if (argument == option && i + 1 < argc) {
            return argv[i + 1];
        }
        if (argument.startsWith(option + '=')) {
            return argument.mid(option.size() + 1);
        }
    }
    return {};
}

bool isScale(const QByteArray &text)
{
    const double scale = text.toDouble();
    return scale >= 0.5 && scale <= 4;
}

} // namespace

CommandLine::CommandLine()
    : m_page(QStringLiteral("page"), QStringLiteral("Open this page."), QStringLiteral("name"))
    , m_pages(QStringLiteral("pages"), QStringLiteral("Print the names of the pages."))
    , m_screenshots(QStringLiteral("screenshots"),
                    QStringLiteral(
                        "Render every page to <dir>/<name>.png (with --page, only that) and quit."),
                    QStringLiteral("dir"))
    , m_demos(QStringLiteral("demos"),
              QStringLiteral(
                  "With --screenshots: pictures of the demos, not of the pages around them."))
    , m_samples(QStringLiteral("samples"),
                QStringLiteral("Show the pictures that come with the gallery instead of a folder."))
    , m_size(QStringLiteral("size"),
             QStringLiteral("The window's size; pictures are as tall as the page when there is no "
                            "height."),
             QStringLiteral("width[xheight]"))
    , m_scale(QStringLiteral("scale"),
              QStringLiteral("Pixels of the screen to one of the window, 0.5 to 4."),
              QStringLiteral("number"))
    , m_appearance(
          QStringLiteral("appearance"),
          QStringLiteral("Light, dark, or as the system says; pictures are light unless told."),
          QStringLiteral("light|dark|system"))
{
    m_parser.setApplicationDescription(
        QStringLiteral("Shows every control of ombrel.Controls, live and with its properties."));
    m_parser.addHelpOption();
    m_parser.addVersionOption();
    m_parser.addOptions(
        {m_page, m_pages, m_screenshots, m_demos, m_samples, m_size, m_scale, m_appearance});
    m_parser.addPositionalArgument(
        QStringLiteral("folder"),
        QStringLiteral("The folder to show as documents; the current one unless given."),
        QStringLiteral("[folder]"));
}

void CommandLine::applyEarly(int argc, char **argv)
{
    if (asksForWordsOnly(argc, argv)) {
        const QCoreApplication withoutDisplay(argc, argv);
        m_parser.process(withoutDisplay);
    }
    const QByteArray scale = earlyValue("--scale", argc, argv);
    if (isScale(scale)) {
        qputenv("QT_SCALE_FACTOR", scale);
    }
}

void CommandLine::read(const QStringList &arguments)
{
    m_parser.process(arguments);
    m_error.clear();
    if (m_parser.isSet(m_scale) && !isScale(m_parser.value(m_scale).toLocal8Bit())) {
        m_error = QStringLiteral("%1 is not a scale").arg(m_parser.value(m_scale));
    }
    if (m_error.isEmpty()) {
        readFolder();
    }
    if (m_error.isEmpty()) {
        readSize();
    }
}

void CommandLine::readFolder()
{
    const QStringList folders = m_parser.positionalArguments();
    if (m_parser.isSet(m_samples) && !folders.isEmpty()) {
        m_error = QStringLiteral("a folder and --samples exclude each other");
        return;
    }
    m_folder = m_parser.isSet(m_samples) ? QStringLiteral(":/Pictures")
                                         : folders.value(0, QDir::currentPath());
    if (!QFileInfo(m_folder).isDir()) {
        m_error = QStringLiteral("%1 is not a folder").arg(m_folder);
    }
}

void CommandLine::readSize()
{
    if (!m_parser.isSet(m_size)) {
        return;
    }
    const QStringList parts = m_parser.value(m_size).split(QLatin1Char('x'));
    const bool hasHeight = parts.size() > 1;
    const int width = parts.value(0).toInt();
    const int height = parts.value(1).toInt();
    if (width <= 0 || (hasHeight && height <= 0) || parts.size() > 2) {
        m_error = QStringLiteral("%1 is not a size").arg(m_parser.value(m_size));
        return;
    }
    m_windowSize = QSize(width, hasHeight ? height : -1);
}

} // namespace om::gallery
