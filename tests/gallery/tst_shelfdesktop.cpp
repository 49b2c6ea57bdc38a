// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/FolderTree.h"
#include "gallery/GalleryEngine.h"
#include "gallery/shelf/Shelf.h"
#include "tests/support/Gesture.h"
#include "tests/support/Items.h"
#include "tests/support/Leftovers.h"
#include "tests/support/QmlView.h"
#include "tests/support/Text.h"

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QProcess>
#include <QQmlContext>
#include <QScreen>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using om::gallery::Shelf;
using om::gallery::ShelfDocument;
using support::Gesture;
using support::itemsOf;
using support::text;

/// Files dragged onto Shelf from a stock file manager, which knows nothing of Qt.
class TestShelfDesktop : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void fileOntoTheThumbnails();
    void fileOntoAFolderOfTheTree();
    void fileOntoAFolderOfTheThumbnails();

private:
    /// Where the screen shows most of a colour that nothing but a file's picture has.
    static QPoint placeOf(const QColor &color);
    ShelfDocument *folder() const;
    /// Drags the picture of that colour to \a over.
    void drag(const QColor &color, const QPoint &over, const Gesture::Condition &ready,
              const Gesture::Condition &done);

    QTemporaryDir m_home;
    QTemporaryDir m_desktop;
    QTemporaryDir m_folder;
    QProcess m_manager;
    std::unique_ptr<om::gallery::FolderTree> m_tree;
    std::unique_ptr<support::QmlView> m_view;
    Shelf *m_shelf = nullptr;
};

void TestShelfDesktop::initTestCase()
{
    const QString program = QStandardPaths::findExecutable(text("pcmanfm"));
    if (program.isEmpty()) {
        QSKIP("no file manager to drag from: pcmanfm is not installed");
    }
    const QList<QPair<const char *, QColor>> pictures{
        {"magenta.png", Qt::magenta}, {"cyan.png", Qt::cyan}, {"yellow.png", Qt::yellow}};
    for (const auto &picture : pictures) {
        QImage image(200, 200, QImage::Format_RGB32);
        image.fill(picture.second);
        QVERIFY(image.save(m_desktop.filePath(text(picture.first))));
    }
    QVERIFY(QDir(m_folder.path()).mkdir(text("album")));

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME",
                             "DBUS_SESSION_BUS_ADDRESS", "LSAN_OPTIONS", "ASAN_OPTIONS"}) {
        environment.remove(text(name));
    }
    environment.insert(text("HOME"), m_home.path());
    m_manager.setProcessEnvironment(environment);
    m_manager.start(program, {m_desktop.path()});
    QVERIFY2(m_manager.waitForStarted(), qPrintable(m_manager.errorString()));

    m_tree = std::make_unique<om::gallery::FolderTree>(m_folder.path());
    m_view = std::make_unique<support::QmlView>();
    om::gallery::prepareEngine(m_view->engine(), m_tree.get());
    m_shelf = m_view->engine()->rootContext()->contextProperty(text("shelf")).value<Shelf *>();
    m_view->window()->setResizeMode(QQuickView::SizeRootObjectToView);
    // Below the file manager, which comes up in the screen's first corner.
    m_view->window()->setGeometry(0, 500, 1000, 500);
    m_view->loadFile(qEnvironmentVariable("OMBREL_SOURCE_DIR")
                     + text("/gallery/qml/pages/ShelfPage.qml"));
    m_view->window()->setPosition(0, 500);
    m_view->show();
    QTRY_COMPARE(m_shelf->count(), 1);
    for (const auto &picture : pictures) {
        QTRY_VERIFY_WITH_TIMEOUT(!placeOf(picture.second).isNull(), 20000);
    }
}

void TestShelfDesktop::cleanupTestCase()
{
    m_shelf = nullptr;
    m_view.reset();
    m_tree.reset();
    if (m_manager.state() != QProcess::NotRunning) {
        m_manager.kill();
        QVERIFY(m_manager.waitForFinished());
    }
    QCOMPARE(support::leftovers(), QString());
}

QPoint TestShelfDesktop::placeOf(const QColor &color)
{
    const QImage screen = QGuiApplication::primaryScreen()
                              ->grabWindow(0, 0, 0, 1280, 490)
                              .toImage()
                              .convertToFormat(QImage::Format_RGB32);
    QRect place;
    for (int y = 0; y < screen.height(); ++y) {
        const auto *const line = reinterpret_cast<const QRgb *>(screen.constScanLine(y));
        for (int x = 0; x < screen.width(); ++x) {
            if (line[x] == color.rgb()) {
                place |= QRect(x, y, 1, 1);
            }
        }
    }
    return place.width() < 16 ? QPoint() : place.center();
}

ShelfDocument *TestShelfDesktop::folder() const
{
    const auto entries = static_cast<ShelfDocument *>(m_shelf->root())->entries();
    for (ShelfDocument *entry : entries) {
        if (entry->name() == text("album")) {
            return entry;
        }
    }
    return nullptr;
}

void TestShelfDesktop::drag(const QColor &color, const QPoint &over,
                            const Gesture::Condition &ready, const Gesture::Condition &done)
{
    const QPoint from = placeOf(color);
    QVERIFY(!from.isNull());
    // It drags what it knows as selected, which it finds out a while after the press: its status
    // bar tells when.
    const auto statusBar = [] {
        return QGuiApplication::primaryScreen()->grabWindow(0, 0, 450, 640, 30).toImage();
    };
    const QImage before = statusBar();
    Gesture gesture;
    gesture.move(from)
        .press()
        .until([&] { return statusBar() != before; }, "the file to be selected")
        .glide(from, over)
        .hoverUntil(over, ready, "the shelf to see the file")
        .release()
        .until(done, "the file to come");
    gesture.setPatience(15000);
    QVERIFY2(gesture.run(), gesture.error());
}

void TestShelfDesktop::fileOntoTheThumbnails()
{
    if (!m_view) {
        QSKIP("no file manager to drag from: pcmanfm is not installed");
    }
    QQuickItem *const grid = itemsOf(m_view->root(), "ShelfGrid").value(0);
    QQuickItem *const zone = itemsOf(grid, "om::controls::DropZone").value(0);
    QVERIFY(zone);
    drag(
        Qt::magenta, support::positionIn(grid, 300, 330),
        [&] { return zone->property("containsDrag").toBool(); },
        [&] { return m_shelf->count() == 2; });
    QCOMPARE(m_shelf->count(), 2);
    const auto entries = static_cast<ShelfDocument *>(m_shelf->root())->entries();
    QCOMPARE(entries.last()->name(), text("magenta.png"));
    QVERIFY(entries.last()->isAdded());
    QFile file(m_desktop.filePath(text("magenta.png")));
    QVERIFY(file.open(QFile::ReadOnly));
    QCOMPARE(entries.last()->content(), file.readAll());
    // In memory only, and still where it was.
    QCOMPARE(QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList(text("album")));
}

void TestShelfDesktop::fileOntoAFolderOfTheTree()
{
    if (!m_view) {
        QSKIP("no file manager to drag from: pcmanfm is not installed");
    }
    QQuickItem *const tree = itemsOf(m_view->root(), "ShelfTree").value(0);
    drag(
        Qt::cyan, support::positionIn(support::itemWith(tree, "text", text("album"))),
        [&] { return tree->property("target").value<om::data::Document *>() == folder(); },
        [&] { return folder()->entries().size() == 1; });
    QCOMPARE(folder()->entries().size(), 1);
    QCOMPARE(folder()->entries().first()->name(), text("cyan.png"));
}

void TestShelfDesktop::fileOntoAFolderOfTheThumbnails()
{
    if (!m_view) {
        QSKIP("no file manager to drag from: pcmanfm is not installed");
    }
    QQuickItem *const tile = itemsOf(m_view->root(), "ShelfTile").value(0);
    QVERIFY(tile);
    const int before = folder()->entries().size();
    drag(
        Qt::yellow, support::positionIn(tile, 60, 50),
        [&] { return tile->property("entered").toBool(); },
        [&] { return folder()->entries().size() == before + 1; });
    QCOMPARE(folder()->entries().size(), before + 1);
    QCOMPARE(folder()->entries().last()->name(), text("yellow.png"));
}

QTEST_MAIN(TestShelfDesktop)
#include "tst_shelfdesktop.moc"
