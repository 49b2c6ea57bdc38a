// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "benchmarks/support/SideBySide.h"
#include "gallery/FolderTree.h"
#include "gallery/GalleryEngine.h"
#include "gallery/shelf/Shelf.h"

#include <QDir>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QImage>
#include <QQmlApplicationEngine>
#include <QQmlContext>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QTimer>
#include <QUrl>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <memory>
#include <vector>

using om::gallery::Shelf;

namespace {

/// What this thread has worked, in milliseconds: without what other programs take of the processor
/// meanwhile, and without the threads of a software rasteriser, which stand in for a graphics card.
double worked()
{
    timespec time;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

struct Longest
{
    double passed = 0;
    double own = 0;

    void take(double newPassed, double newOwn)
    {
        passed = std::max(passed, newPassed);
        own = std::max(own, newOwn);
    }
};

/// The longest time that the event loop did not come round, frames included.
class Turns
{
public:
    Turns()
    {
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.setInterval(1);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { tick(); });
    }
    void start()
    {
        m_longest = {};
        m_clock.start();
        m_worked = worked();
        m_timer.start();
    }
    Longest stop()
    {
        tick();
        m_timer.stop();
        return m_longest;
    }

private:
    void tick()
    {
        const double now = worked();
        m_longest.take(double(m_clock.nsecsElapsed()) / 1e6, now - m_worked);
        m_clock.start();
        m_worked = worked();
    }

    QTimer m_timer;
    QElapsedTimer m_clock;
    double m_worked = 0;
    Longest m_longest;
};

/// The longest frame, from synchronisation to swap.
class Frames
{
public:
    explicit Frames(QQuickWindow *window)
    {
        QObject::connect(
            window, &QQuickWindow::beforeSynchronizing, window,
            [this] {
                m_clock.start();
                m_worked = worked();
            },
            Qt::DirectConnection);
        QObject::connect(
            window, &QQuickWindow::afterRendering, window,
            [this] {
                ++count;
                longest.take(double(m_clock.nsecsElapsed()) / 1e6, worked() - m_worked);
            },
            Qt::DirectConnection);
    }

    Longest longest;
    int count = 0;

private:
    QElapsedTimer m_clock;
    double m_worked = 0;
};

void waitFor(const std::function<bool()> &condition)
{
    QElapsedTimer clock;
    clock.start();
    while (!condition()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (clock.elapsed() > 60000) {
            qFatal("waited in vain");
        }
    }
}

void work(int milliseconds)
{
    QElapsedTimer clock;
    clock.start();
    waitFor([&] { return clock.elapsed() >= milliseconds; });
}

void writeFiles(const QString &folder, int pictures, int texts)
{
    QImage image(1600, 1200, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            image.setPixel(x, y, qRgb(x / 7, y / 5, (x ^ y) & 255));
        }
    }
    const QString first = folder + QStringLiteral("/picture 0.jpg");
    if (pictures > 0 && !image.save(first, nullptr, 85)) {
        qFatal("no picture can be written");
    }
    for (int i = 1; i < pictures; ++i) {
        QFile::copy(first, folder + QStringLiteral("/picture %1.jpg").arg(i));
    }
    for (int i = 0; i < texts; ++i) {
        QFile file(folder + QStringLiteral("/text %1.txt").arg(i));
        if (!file.open(QFile::WriteOnly) || file.write("text\n") != 5) {
            qFatal("no text can be written");
        }
    }
}

/// The gallery on a folder, with Shelf open.
struct Gallery
{
    explicit Gallery(const QString &folder)
        : tree(folder)
    {
        om::gallery::prepareEngine(&engine, &tree);
        shelf = engine.rootContext()->contextProperty(QStringLiteral("shelf")).value<Shelf *>();
        engine.load(QUrl::fromLocalFile(QStringLiteral(OMBREL_GALLERY_DIR "/qml/Gallery.qml")));
        window = qobject_cast<QQuickWindow *>(engine.rootObjects().value(0));
        if (!window) {
            qFatal("the gallery cannot be made");
        }
        window->setPosition(0, 0);
        window->setProperty("currentPage", QStringLiteral("shelf"));
        window->show();
    }

    QQuickItem *grid() const
    {
        std::function<QQuickItem *(QQuickItem *)> find = [&](QQuickItem *item) -> QQuickItem * {
            if (item->inherits("QQuickGridView")) {
                return item;
            }
            const auto children = item->childItems();
            for (QQuickItem *child : children) {
                if (QQuickItem *found = find(child)) {
                    return found;
                }
            }
            return nullptr;
        };
        return find(window->contentItem());
    }

    om::gallery::FolderTree tree;
    QQmlApplicationEngine engine;
    Shelf *shelf = nullptr;
    QQuickWindow *window = nullptr;
};

/// A row with a bound in place of a peer: what passed, and what the thread itself worked.
void printBound(const char *name, double bound, const Longest &longest)
{
    benchmark::printRow(name, 1, longest.passed, bound, "ms");
    benchmark::printRow("  the same, this thread", 1, longest.own, bound, "ms");
}

void firstFrame()
{
    QTemporaryDir folder;
    writeFiles(folder.path(), 200, 100);
    std::vector<Longest> runs;
    for (int i = 0; i < 5; ++i) {
        QElapsedTimer clock;
        clock.start();
        const double before = worked();
        Gallery gallery(folder.path());
        int frames = 0;
        QObject::connect(gallery.window, &QQuickWindow::frameSwapped, gallery.window,
                         [&frames] { ++frames; });
        waitFor([&] { return frames > 0; });
        Longest run;
        run.take(double(clock.nsecsElapsed()) / 1e6, worked() - before);
        runs.push_back(run);
        waitFor([&] { return !gallery.shelf->isReading(); });
    }
    std::sort(runs.begin(), runs.end(),
              [](const Longest &a, const Longest &b) { return a.passed < b.passed; });
    printBound("first frame, 300 files", 1000, runs.at(runs.size() / 2));
}

void thousands()
{
    QTemporaryDir folder;
    // More folders than the tree shows, whose rows are what costs most.
    for (int i = 0; i < 300; ++i) {
        QDir(folder.path()).mkdir(QStringLiteral("folder %1").arg(i));
    }
    writeFiles(folder.path(), 600, 4100);
    Turns turns;
    turns.start();
    Gallery gallery(folder.path());
    waitFor([&] { return gallery.grid() != nullptr; });
    // The window and its page are made in one turn whatever the folder holds.
    work(300);
    turns.stop();
    gallery.shelf->open(QUrl::fromLocalFile(folder.path() + QStringLiteral("/folder 0")));
    waitFor([&] { return !gallery.shelf->isReading(); });

    turns.start();
    QElapsedTimer clock;
    clock.start();
    gallery.shelf->open(QUrl::fromLocalFile(folder.path()));
    waitFor([&] { return !gallery.shelf->isReading(); });
    const double opened = double(clock.nsecsElapsed()) / 1e6;
    work(500);
    printBound("5,000 files, opening: longest turn", 100, turns.stop());
    std::printf("  all were there after %.0f ms\n", opened);

    QQuickItem *const grid = gallery.grid();
    const auto scroll = [&] {
        turns.start();
        const double step = grid->height() * 0.8;
        const double end = grid->property("contentHeight").toDouble() - grid->height();
        for (double y = 0; y < end; y += step) {
            grid->setProperty("contentY", y);
            work(12);
        }
        grid->setProperty("contentY", 0);
        work(100);
        return turns.stop();
    };
    printBound("5,000 files, scrolling through all: longest turn", 100, scroll());

    turns.start();
    for (const char *text : {"t", "te", "tex", "text", "text 1", "9", ""}) {
        gallery.shelf->find(QString::fromLatin1(text));
        work(60);
    }
    printBound("5,000 files, searching: longest turn", 100, turns.stop());

    turns.start();
    gallery.shelf->model()->selectAll();
    work(100);
    printBound("5,000 files, selecting all: longest turn", 100, turns.stop());

    QTemporaryDir elsewhere;
    writeFiles(elsewhere.path(), 0, 500);
    QList<QUrl> dropped;
    const QStringList names = QDir(elsewhere.path()).entryList(QDir::Files);
    for (const QString &name : names) {
        dropped.append(QUrl::fromLocalFile(elsewhere.filePath(name)));
    }
    turns.start();
    gallery.shelf->add(dropped, gallery.shelf->root(), -1);
    waitFor([&] { return !gallery.shelf->isReading(); });
    work(100);
    gallery.shelf->history()->undo();
    work(100);
    printBound("5,000 files, 500 more dropped and taken back: longest turn", 100, turns.stop());

    gallery.shelf->model()->selectAll();
    const QVariantList all = gallery.shelf->model()->selection();
    turns.start();
    gallery.shelf->move(all.mid(0, all.size() / 2), gallery.shelf->root(), -1);
    work(100);
    gallery.shelf->history()->undo();
    work(100);
    printBound("5,000 files, moving half of them and back: longest turn", 100, turns.stop());

    turns.start();
    gallery.shelf->remove(all);
    work(100);
    gallery.shelf->history()->undo();
    work(100);
    printBound("5,000 files, deleting all and back: longest turn", 100, turns.stop());
}

/// Scrolls through 600 files and returns the longest frame.
Longest scrolled(const QString &folder)
{
    Gallery gallery(folder);
    waitFor([&] { return gallery.shelf->model()->count() == 600 && !gallery.shelf->isReading(); });
    work(500);
    QQuickItem *const grid = gallery.grid();
    Frames frames(gallery.window);
    const double end = grid->property("contentHeight").toDouble() - grid->height();
    for (double y = 0; y < end; y += 60) {
        grid->setProperty("contentY", y);
        work(8);
    }
    work(300);
    return frames.longest;
}

void thumbnails()
{
    QTemporaryDir pictures;
    QTemporaryDir texts;
    writeFiles(pictures.path(), 600, 0);
    writeFiles(texts.path(), 0, 600);
    std::vector<double> passed;
    std::vector<double> own;
    std::vector<Longest> runs;
    for (int i = 0; i < 3; ++i) {
        const Longest with = scrolled(pictures.path());
        runs.push_back(with);
        const Longest without = scrolled(texts.path());
        std::printf("  longest frame: with pictures %.2f ms (this thread %.2f), with signs only "
                    "%.2f ms (%.2f)\n",
                    with.passed, with.own, without.passed, without.own);
        passed.push_back(with.passed - without.passed);
        own.push_back(with.own - without.own);
    }
    std::sort(runs.begin(), runs.end(),
              [](const Longest &a, const Longest &b) { return a.own < b.own; });
    printBound("600 pictures of 1600 x 1200 scrolled by: longest frame", 16, runs.at(1));
    std::sort(passed.begin(), passed.end());
    std::sort(own.begin(), own.end());
    // What the pictures add; nothing, when other parts of a frame vary by more.
    Longest more;
    more.take(passed.at(1), own.at(1));
    printBound("  of which for the pictures", 16, more);
}

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    const QStringList parts = QCoreApplication::arguments().mid(1);
    const auto isWanted = [&parts](const char *part) {
        return parts.isEmpty() || parts.contains(QString::fromLatin1(part));
    };
    if (isWanted("first-frame")) {
        firstFrame();
    }
    if (isWanted("thousands")) {
        thousands();
    }
    if (isWanted("thumbnails")) {
        thumbnails();
    }
    return 0;
}
