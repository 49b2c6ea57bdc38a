// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/CommandLine.h"
#include "gallery/FolderTree.h"
#include "gallery/GalleryEngine.h"
#include "gallery/Quiet.h"
#include "gallery/ScreenshotRun.h"
#include "gallery/Session.h"

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

namespace {

using om::gallery::CommandLine;

int refuse(const QString &reason)
{
    QTextStream(stderr) << "ombrel-gallery: " << reason << '\n';
    return 1;
}

void nameApplication()
{
    QGuiApplication::setOrganizationName(QStringLiteral("ombrel"));
    QGuiApplication::setApplicationName(QStringLiteral("ombrel-gallery"));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Ombrel Gallery"));
    QGuiApplication::setApplicationVersion(QStringLiteral(OMBREL_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("org.ombrel.gallery"));
}

void setFont()
{
    // Light is a weight of its own, so the product's family stands for the whole of Lato.
    QFont::insertSubstitution(QStringLiteral("Om_Lato"), QStringLiteral("Lato"));
    QFont font(QStringLiteral("Om_Lato"));
    font.setPixelSize(14);
    QGuiApplication::setFont(font);
}

/// Null when the window cannot be made.
QQuickWindow *makeWindow(QQmlApplicationEngine *engine)
{
    const QString here = QGuiApplication::applicationDirPath();
#ifdef OMBREL_DATACORE_QML_DIR
    engine->addImportPath(QStringLiteral(OMBREL_DATACORE_QML_DIR));
#endif
    engine->addImportPath(QDir(here).absoluteFilePath(QStringLiteral(OMBREL_GALLERY_QML_DIR)));
    engine->addImportPath(here + QStringLiteral("/../qml"));
    engine->load(QUrl(QStringLiteral("qrc:/gallery/qml/Gallery.qml")));
    return qobject_cast<QQuickWindow *>(engine->rootObjects().value(0));
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

void resize(QQuickWindow *window, const QSize &size)
{
    const QSize whole(size.width(), size.height() > 0 ? size.height() : window->height());
    window->resize(whole.expandedTo(window->minimumSize()));
}

int showWindow(QQuickWindow *window, om::gallery::Session *session, const CommandLine &commands)
{
    if (commands.size().width() < 0) {
        session->restore(window);
    }
    window->show();
    // A window that was closed still knows where it was.
    QObject::connect(qGuiApp, &QGuiApplication::aboutToQuit, window,
                     [session, window] { session->keep(window); });
    return QGuiApplication::exec();
}

int takePictures(QQuickWindow *window, const QStringList &pages, const CommandLine &commands)
{
    om::gallery::ScreenshotRun run(window, commands.screenshots());
    run.setTall(commands.size().height() < 0);
    run.setDemos(commands.demos());
    int code = 0;
    QObject::connect(&run, &om::gallery::ScreenshotRun::finished, qGuiApp,
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

} // namespace

int main(int argc, char *argv[])
{
    om::gallery::keepQuiet();
    // The gallery draws its own controls; the style must not depend on the desktop's.
    qputenv("QT_QUICK_CONTROLS_STYLE", "Default");
    QGuiApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    nameApplication();
    CommandLine commands;
    commands.applyEarly(argc, argv);
    const QGuiApplication application(argc, argv);
    commands.read(QCoreApplication::arguments());
    if (!commands.error().isEmpty()) {
        return refuse(commands.error());
    }
    setFont();

    om::gallery::FolderTree tree(commands.folder());
    const bool forPictures = commands.isForPictures();
    om::gallery::Session session(forPictures ? nullptr : std::make_unique<QSettings>());
    if (!commands.appearance().isNull()) {
        session.setAppearance(commands.appearance());
    } else if (forPictures) {
        session.setAppearance(QStringLiteral("light"));
    }
    QQmlApplicationEngine engine;
    om::gallery::prepareEngine(&engine, &tree, &session);
    QQuickWindow *const window = makeWindow(&engine);
    if (!window) {
        return refuse(QStringLiteral("the window cannot be made"));
    }

    QStringList pages = pageNames(window);
    if (commands.listsPages()) {
        QTextStream(stdout) << pages.join(QLatin1Char('\n')) << '\n';
        return 0;
    }
    if (const QString page = commands.page(); !page.isNull()) {
        if (!pages.contains(page)) {
            return refuse(QStringLiteral("there is no page %1; there are: %2")
                              .arg(page, pages.join(QStringLiteral(", "))));
        }
        window->setProperty("currentPage", page);
        pages = QStringList{page};
    }
    if (commands.size().width() > 0) {
        resize(window, commands.size());
    }
    return commands.screenshots().isNull() ? showWindow(window, &session, commands)
                                           : takePictures(window, pages, commands);
}
