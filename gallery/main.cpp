// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/FolderTree.h"
#include "gallery/GalleryEngine.h"
#include "gallery/Quiet.h"
#include "gallery/ScreenshotRun.h"
#include "gallery/Session.h"

#include <QCommandLineParser>
#include <QCursor>
#include <QDir>
#include <QFont>
#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <QScreen>
#include <QSettings>
#include <QTextStream>
#include <QTimer>

#include <algorithm>

namespace {

int refuse(const QString &reason)
{
    QTextStream(stderr) << "ombrel-gallery: " << reason << '\n';
    return 1;
}

/// Help and version need no display, so they are there where none is.
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

QStringList pageNames(const QQuickWindow *window)
{
    QStringList names;
    const QVariantList pages = window->property("allPages").toList();
    for (const QVariant &page : pages) {
        names.append(page.toMap().value(QStringLiteral("name")).toString());
    }
    return names;
}

} // namespace

int main(int argc, char *argv[])
{
    om::gallery::keepQuiet();
    // The gallery draws its own controls; the style must not depend on the desktop's.
    qputenv("QT_QUICK_CONTROLS_STYLE", "Default");
    QGuiApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QGuiApplication::setOrganizationName(QStringLiteral("ombrel"));
    QGuiApplication::setApplicationName(QStringLiteral("ombrel-gallery"));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Ombrel Gallery"));
    QGuiApplication::setApplicationVersion(QStringLiteral(OMBREL_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("org.ombrel.gallery"));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Shows every control of ombrel.Controls, live and with its properties."));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption pageOption(QStringLiteral("page"), QStringLiteral("Open this page."),
                                        QStringLiteral("name"));
    const QCommandLineOption pagesOption(QStringLiteral("pages"),
                                         QStringLiteral("Print the names of the pages."));
    const QCommandLineOption screenshotsOption(
        QStringLiteral("screenshots"),
        QStringLiteral("Render every page to <dir>/<name>.png (with --page, only that) and quit."),
        QStringLiteral("dir"));
    const QCommandLineOption sizeOption(
        QStringLiteral("size"),
        QStringLiteral("The window's size; pictures are as tall as the page when there is no "
                       "height."),
        QStringLiteral("width[xheight]"));
    const QCommandLineOption demosOption(
        QStringLiteral("demos"),
        QStringLiteral("With --screenshots: pictures of the demos, not of the pages around them."));
    const QCommandLineOption samplesOption(
        QStringLiteral("samples"),
        QStringLiteral("Show the pictures that come with the gallery instead of a folder."));
    const QCommandLineOption scaleOption(
        QStringLiteral("scale"),
        QStringLiteral("Pixels of the screen to one of the window, 0.5 to 4."),
        QStringLiteral("number"));
    const QCommandLineOption appearanceOption(
        QStringLiteral("appearance"),
        QStringLiteral("Light, dark, or as the system says; pictures are light unless told."),
        QStringLiteral("light|dark|system"));
    parser.addOptions({pageOption, pagesOption, screenshotsOption, demosOption, samplesOption,
                       sizeOption, scaleOption, appearanceOption});
    parser.addPositionalArgument(QStringLiteral("folder"),
                                 QStringLiteral("The folder to show as documents; the current one "
                                                "unless given."),
                                 QStringLiteral("[folder]"));
    if (asksForWordsOnly(argc, argv)) {
        const QCoreApplication withoutDisplay(argc, argv);
        parser.process(withoutDisplay);
    }
    const QByteArray scale = earlyValue("--scale", argc, argv);
    if (isScale(scale)) {
        qputenv("QT_SCALE_FACTOR", scale);
    }
    QGuiApplication application(argc, argv);
    parser.process(application);
    if (parser.isSet(scaleOption) && !isScale(scale)) {
        return refuse(QStringLiteral("%1 is not a scale").arg(parser.value(scaleOption)));
    }

    if (parser.isSet(samplesOption) && !parser.positionalArguments().isEmpty()) {
        return refuse(QStringLiteral("a folder and --samples exclude each other"));
    }
    const QString path = parser.isSet(samplesOption)
        ? QStringLiteral(":/Pictures")
        : parser.positionalArguments().value(0, QDir::currentPath());
    if (!QFileInfo(path).isDir()) {
        return refuse(QStringLiteral("%1 is not a folder").arg(path));
    }

    // Light is a weight of its own, so the product's family stands for the whole of Lato.
    QFont::insertSubstitution(QStringLiteral("Om_Lato"), QStringLiteral("Lato"));
    QFont font(QStringLiteral("Om_Lato"));
    font.setPixelSize(14);
    QGuiApplication::setFont(font);

    om::gallery::FolderTree tree(path);
    // Pictures are the same whoever takes them, and leave no traces.
    const bool forPictures = parser.isSet(screenshotsOption) || parser.isSet(pagesOption);
    om::gallery::Session session(forPictures ? nullptr : std::make_unique<QSettings>());
    if (parser.isSet(appearanceOption)) {
        session.setAppearance(parser.value(appearanceOption));
    } else if (forPictures) {
        session.setAppearance(QStringLiteral("light"));
    }
    QQmlApplicationEngine engine;
    const QString here = QGuiApplication::applicationDirPath();
#ifdef OMBREL_DATACORE_QML_DIR
    engine.addImportPath(QStringLiteral(OMBREL_DATACORE_QML_DIR));
#endif
    engine.addImportPath(QDir(here).absoluteFilePath(QStringLiteral(OMBREL_GALLERY_QML_DIR)));
    engine.addImportPath(here + QStringLiteral("/../qml"));
    om::gallery::prepareEngine(&engine, &tree, &session);
    engine.load(QUrl(QStringLiteral("qrc:/gallery/qml/Gallery.qml")));
    auto *window = qobject_cast<QQuickWindow *>(engine.rootObjects().value(0));
    if (!window) {
        return refuse(QStringLiteral("the window cannot be made"));
    }

    QStringList pages = pageNames(window);
    if (parser.isSet(pagesOption)) {
        QTextStream(stdout) << pages.join(QLatin1Char('\n')) << '\n';
        return 0;
    }
    if (parser.isSet(pageOption)) {
        const QString page = parser.value(pageOption);
        if (!pages.contains(page)) {
            return refuse(QStringLiteral("there is no page %1; there are: %2")
                              .arg(page, pages.join(QStringLiteral(", "))));
        }
        window->setProperty("currentPage", page);
        pages = QStringList{page};
    }

    bool tall = true;
    if (parser.isSet(sizeOption)) {
        const QStringList parts = parser.value(sizeOption).split(QLatin1Char('x'));
        const int width = parts.value(0).toInt();
        const int height = parts.size() > 1 ? parts.value(1).toInt() : window->height();
        if (width <= 0 || height <= 0 || parts.size() > 2) {
            return refuse(QStringLiteral("%1 is not a size").arg(parser.value(sizeOption)));
        }
        tall = parts.size() == 1;
        window->resize(QSize(width, height).expandedTo(window->minimumSize()));
    }

    if (!parser.isSet(screenshotsOption)) {
        if (!parser.isSet(sizeOption)) {
            session.restore(window);
        }
        window->show();
        // A window that was closed still knows where it was.
        QObject::connect(&application, &QGuiApplication::aboutToQuit, window,
                         [&session, window] { session.keep(window); });
        return QGuiApplication::exec();
    }

    om::gallery::ScreenshotRun run(window, parser.value(screenshotsOption));
    run.setTall(tall);
    run.setDemos(parser.isSet(demosOption));
    int code = 0;
    QObject::connect(&run, &om::gallery::ScreenshotRun::finished, &application,
                     [&code](const QString &error) {
                         if (!error.isEmpty()) {
                             code = refuse(error);
                         }
                         QCoreApplication::quit();
                     });
    // Out of the way, or the item under the pointer is drawn as hovered. Only this corner is free
    // whatever the size of the window is.
    const QPoint corner = window->screen()->geometry().topLeft();
    QCursor::setPos(corner);
    window->setPosition(corner + QPoint(16, 16));
    window->show();
    QTimer::singleShot(0, &run, [&run, &pages] { run.start(pages); });
    QGuiApplication::exec();
    return code;
}
