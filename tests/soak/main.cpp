// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

// shelf_soak SECONDS WARM-UP SEED FOLDER
//
// Uses Shelf in the gallery at random with the X server's pointer and keyboard. Prints what is
// resident, and fails when it grows by more than 1 MB an hour after the warm-up (in seconds), when
// anything is logged, or when a page looks different afterwards: its pictures go into the folder.

#include "gallery/FolderTree.h"
#include "gallery/GalleryEngine.h"
#include "tests/gallery/GalleryWindow.h"
#include "tests/soak/Memory.h"
#include "tests/soak/RandomHand.h"
#include "tests/soak/Sandbox.h"
#include "tests/support/Items.h"
#include "tests/support/Pixels.h"
#include "tests/support/PlainUser.h"
#include "tests/support/Screen.h"

#include <QFile>
#include <QGuiApplication>
#include <QQmlContext>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QStyleHints>

#include <cstdio>
#include <map>

using om::gallery::Shelf;

namespace {

constexpr int roundSeconds = 60;
constexpr double mostMegabytesAnHour = 1;

int complaints = 0;

void note(QtMsgType, const QMessageLogContext &, const QString &message)
{
    // What the library says by its documentation, and what a bare X server does.
    static const QRegularExpression known(
        QStringLiteral("Registering types of Controls plugin|^discard$|QStandardPaths: |XCB error: "
                       "[0-9]+ \\(Bad(Window|Match)\\)"));
    if (!known.match(message).hasMatch()) {
        ++complaints;
        std::printf("logged: %s\n", qPrintable(message));
    }
}

/// Those that rest: the start page's pieces play by themselves.
QStringList restingPages()
{
    QFile list(qEnvironmentVariable("OMBREL_SOURCE_DIR")
               + QStringLiteral("/gallery/qml/PageList.js"));
    if (!list.open(QFile::ReadOnly)) {
        qFatal("There is no list of pages");
    }
    const QString text = QString::fromUtf8(list.readAll());
    const QRegularExpression name(QStringLiteral("\\{ name: \"(\\w+)\""));
    QStringList pages;
    auto matches = name.globalMatch(text);
    while (matches.hasNext()) {
        pages.append(matches.next().captured(1));
    }
    pages.removeAll(QStringLiteral("start"));
    return pages;
}

std::map<QString, QImage> picturesOf(QQuickWindow *window)
{
    std::map<QString, QImage> pictures;
    // The sidebar scrolls to the page that is shown: from the top on, each time.
    window->setProperty("currentPage", QStringLiteral("start"));
    for (const QString &page : restingPages()) {
        window->setProperty("currentPage", page);
        QImage last;
        for (int turn = 0, alike = 0; turn < 100 && alike < 5; ++turn) {
            QTest::qWait(50);
            const QImage next = support::grab(window);
            alike = next == last ? alike + 1 : 0;
            last = next;
        }
        pictures[page] = last;
    }
    return pictures;
}

/// Stores their pictures in the \a folder.
int pagesThatDiffer(const std::map<QString, QImage> &before, const std::map<QString, QImage> &after,
                    const QString &folder)
{
    int count = 0;
    for (const auto &[page, picture] : before) {
        const QString error = support::imageError(after.at(page), picture);
        if (!error.isEmpty()) {
            ++count;
            std::printf("the page %s looks different: %s\n", qPrintable(page), qPrintable(error));
            picture.save(folder + QLatin1Char('/') + page + QStringLiteral("-before.png"));
            after.at(page).save(folder + QLatin1Char('/') + page + QStringLiteral("-after.png"));
        }
    }
    return count;
}

/// What is resident in the midst of a round differs by several megabytes with what is open and
/// shown just then, which hides a growth of one: it is counted where every round ends alike.
void rest(QQuickWindow *window, QQmlEngine *engine)
{
    engine->collectGarbage();
    const auto rests = [window] { return support::framesWhileIdle(window) == 0; };
    if (!QTest::qWaitFor(rests, 60000)) {
        qFatal("The gallery does not come to rest");
    }
}

} // namespace

int main(int argc, char *argv[])
{
    // Whatever is pressed, nobody else's files can be changed.
    const support::PlainUser user;
    QStandardPaths::setTestModeEnabled(true);
    QGuiApplication application(argc, argv);
    QGuiApplication::styleHints()->setCursorFlashTime(0);
    const QStringList arguments = QCoreApplication::arguments();
    const int seconds = arguments.value(1).toInt();
    const int warmUp = arguments.value(2).toInt();

    Sandbox sandbox;
    om::gallery::FolderTree tree(sandbox.path());
    QQmlApplicationEngine engine;
    om::gallery::prepareEngine(&engine, &tree);
    qInstallMessageHandler(note);
    QQuickWindow *const window = openGalleryWindow(&engine);
    auto *const shelf =
        engine.rootContext()->contextProperty(QStringLiteral("shelf")).value<Shelf *>();
    if (!window || !shelf) {
        qFatal("The gallery does not open");
    }
    window->resize(1200, 900);
    sandbox.keep(shelf);
    shelf->open(QUrl::fromLocalFile(sandbox.path()));
    sandbox.renew();
    RandomHand hand(arguments.value(3).toUInt());
    hand.stop();
    const auto before = picturesOf(window);

    Memory memory;
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < 1000 * seconds) {
        window->setProperty("currentPage", QStringLiteral("shelf"));
        QQuickItem *const page = support::itemsOf(window->contentItem(), "ShelfPage").value(0);
        if (!page) {
            qFatal("There is no page Shelf");
        }
        hand.start(page);
        QTest::qWait(1000 * roundSeconds);
        hand.stop();
        sandbox.renew();
        rest(window, &engine);
        memory.sample();
    }
    const int differing = pagesThatDiffer(before, picturesOf(window), arguments.value(4));
    const double slope = memory.slopeFrom(warmUp);
    std::printf("%d steps in %.0f s; after %d s %.2f MB an hour; %d messages; %d pages differ\n",
                hand.steps(), double(clock.elapsed()) / 1000, warmUp, slope, complaints, differing);
    return slope <= mostMegabytesAnHour && complaints == 0 && differing == 0 ? 0 : 1;
}
