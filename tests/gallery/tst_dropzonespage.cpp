// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/FolderTree.h"
#include "gallery/GalleryEngine.h"
#include "tests/support/ForeignProgram.h"
#include "tests/support/Gesture.h"
#include "tests/support/Items.h"
#include "tests/support/Leftovers.h"
#include "tests/support/QmlView.h"
#include "tests/support/Text.h"

#include <QImage>
#include <QTemporaryDir>
#include <QTest>

using support::text;

/// The page of drop zones, used by hand: files of its shelf and of another program are dragged into
/// its zones.
class TestDropZonesPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void shelfHasTheFoldersFiles();
    void shelfHasSomeOfEachType();
    void refusedDragIsSaid();
    void cancelledDragLeavesNothingFaded();
    void tileSaysWhatIsWrongWithItsFile();
    void eachZoneTakesItsOwnFromTheShelf_data();
    void eachZoneTakesItsOwnFromTheShelf();
    void overAZoneItSaysWhatItWouldTake();
    void filesFromAnotherProgram();
    void suffixesThatAreEditedCount();

private:
    void show();
    QQuickItem *pad(int index) const
    {
        return support::itemsOf(m_view->root(), "DropPad").value(index);
    }
    /// The card at the end of the shelf, which carries all files.
    QQuickItem *allCard() const;
    void scrollTo(QQuickItem *item);

    QTemporaryDir m_folder;
    std::unique_ptr<om::gallery::FolderTree> m_tree;
    std::unique_ptr<support::QmlView> m_view;
};

void TestDropZonesPage::initTestCase()
{
    QVERIFY(m_folder.isValid());
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(Qt::red);
    QVERIFY(image.save(m_folder.filePath(text("red.png"))));
    QVERIFY(image.save(m_folder.filePath(text("rot.bmp"))));
    for (const char *name : {"notes.md", "clip.mp4", "song.ogg"}) {
        QFile file(m_folder.filePath(text(name)));
        QVERIFY(file.open(QFile::WriteOnly));
    }
    QVERIFY(QDir(m_folder.path()).mkdir(text("inner")));
}

void TestDropZonesPage::init()
{
    m_tree = std::make_unique<om::gallery::FolderTree>(m_folder.path());
    show();
}

void TestDropZonesPage::show()
{
    m_view = std::make_unique<support::QmlView>();
    om::gallery::prepareEngine(m_view->engine(), m_tree.get());
    m_view->window()->setResizeMode(QQuickView::SizeRootObjectToView);
    m_view->window()->setGeometry(0, 0, 900, 800);
    m_view->loadFile(qEnvironmentVariable("OMBREL_SOURCE_DIR")
                     + text("/gallery/qml/pages/DropZonesPage.qml"));
    m_view->show();
    QCOMPARE(support::itemsOf(m_view->root(), "DropPad").size(), 5);
}

void TestDropZonesPage::cleanup()
{
    m_view.reset();
    m_tree.reset();
    QCOMPARE(support::leftovers(), QString());
}

QQuickItem *TestDropZonesPage::allCard() const
{
    const auto tiles = support::itemsOf(m_view->root(), "FileTile");
    for (QQuickItem *tile : tiles) {
        if (tile->parentItem()->property("all").toBool()) {
            return tile->parentItem();
        }
    }
    return nullptr;
}

void TestDropZonesPage::scrollTo(QQuickItem *item)
{
    // Below the shelf, which stays at the top.
    QQuickItem *page = m_view->root();
    const qreal y = item->mapToItem(page, {0, 0}).y() + page->property("contentY").toReal();
    const qreal last = page->property("contentHeight").toReal() - page->height();
    page->setProperty("contentY", qBound(0.0, y - 320, last));
}

void TestDropZonesPage::shelfHasTheFoldersFiles()
{
    QQuickItem *shelf = support::itemsOf(m_view->root(), "FileShelf").value(0);
    QVERIFY(shelf);
    const QStringList texts = support::textsOn(shelf);
    for (const char *name : {"red.png", "rot.bmp", "notes.md", "clip.mp4", "song.ogg", "All 5"}) {
        QVERIFY2(texts.contains(text(name)), name);
    }
    QVERIFY(!texts.contains(text("inner")));
}

void TestDropZonesPage::shelfHasSomeOfEachType()
{
    // A folder of pictures only, and many: the others come as samples.
    QTemporaryDir pictures;
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(Qt::blue);
    for (int i = 0; i < 12; ++i) {
        QVERIFY(image.save(pictures.filePath(QStringLiteral("photo %1.png").arg(i))));
    }
    cleanup();
    m_tree = std::make_unique<om::gallery::FolderTree>(pictures.path());
    show();
    QQuickItem *shelf = support::itemsOf(m_view->root(), "FileShelf").value(0);
    const QStringList texts = support::textsOn(shelf);
    for (const char *name : {"photo 0.png", "photo 1.png", "clip.mp4", "notes.txt", "All 4"}) {
        QVERIFY2(texts.contains(text(name)), name);
    }
    // A sample is a file like any other.
    QQuickItem *target = pad(4);
    scrollTo(target);
    const QPoint over = support::positionIn(target);
    support::Gesture gesture;
    gesture
        .drag(
            support::positionIn(allCard(), 40, 30), over,
            [&] { return target->property("over").toBool(); }, "the drag")
        .release()
        .until([&] { return !target->property("over").toBool(); }, "the drop");
    QVERIFY2(gesture.run(), gesture.error());
    QVERIFY(support::textsOn(target).contains(text("Got 1 file")));
}

void TestDropZonesPage::refusedDragIsSaid()
{
    QQuickItem *target = pad(3); // images
    scrollTo(target);
    QQuickItem *tile = support::itemWith(m_view->root(), "text", text("notes.md"))->parentItem();
    const QPoint over = support::positionIn(target);
    const auto said = [&] {
        return support::textsOn(target).contains(text("Would not take this"));
    };
    support::Gesture gesture;
    gesture.drag(support::positionIn(tile), over, said, "the refusal").release();
    gesture.until([&] { return !said(); }, "the end of it");
    QVERIFY2(gesture.run(), gesture.error());
    QVERIFY(target->property("got").toList().isEmpty());
    QVERIFY(support::textsOn(target).contains(text("Drop images here")));
}

void TestDropZonesPage::cancelledDragLeavesNothingFaded()
{
    QQuickItem *tile = support::itemWith(m_view->root(), "text", text("notes.md"))->parentItem();
    QQuickItem *target = pad(0);
    const QPoint from = support::positionIn(tile);
    const QPoint over = support::positionIn(target);
    const auto isOver = [&] { return target->property("over").toBool(); };
    support::Gesture gesture;
    gesture.drag(from, over, isOver, "the drag").then([&] { QCOMPARE(tile->opacity(), 0.5); });
    gesture.key(Qt::Key_Escape).until([&] { return !isOver(); }, "the cancellation").release();
    gesture.until([&] { return tile->opacity() == 1; }, "the tile to look as before");
    QVERIFY2(gesture.run(), gesture.error());
    // It can be dragged again.
    support::Gesture again;
    again.drag(from, over, isOver, "the second drag")
        .release()
        .until([&] { return !isOver(); }, "the drop");
    QVERIFY2(again.run(), again.error());
    QVERIFY(support::textsOn(target).contains(text("Got 1 file")));
}

void TestDropZonesPage::tileSaysWhatIsWrongWithItsFile()
{
    QFile file(m_folder.filePath(text("fake.png")));
    QVERIFY(file.open(QFile::WriteOnly));
    file.write("no picture");
    file.close();
    QQuickItem *shelf = support::itemsOf(m_view->root(), "FileShelf").value(0);
    QTRY_VERIFY(support::textsOn(shelf).contains(text("is no picture")));
    QVERIFY(file.remove());
    QTRY_VERIFY(!support::textsOn(shelf).contains(text("fake.png")));
    // Names are shown in one line.
    QFile broken(m_folder.filePath(text("a\nb.txt")));
    QVERIFY(broken.open(QFile::WriteOnly));
    QTRY_VERIFY(support::textsOn(shelf).contains(text("a b.txt")));
    QVERIFY(broken.remove());
    QTRY_VERIFY(!support::textsOn(shelf).contains(text("a b.txt")));
}

void TestDropZonesPage::eachZoneTakesItsOwnFromTheShelf_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("said");
    QTest::newRow("three handlers: images first") << 0 << 2 << text("Got 2 files");
    QTest::newRow("any file") << 1 << 5 << text("Got 5 files");
    QTest::newRow("suffixes") << 2 << 1 << text("Got 1 file");
    QTest::newRow("images") << 3 << 2 << text("Got 2 files");
    QTest::newRow("videos") << 4 << 1 << text("Got 1 file");
}

void TestDropZonesPage::eachZoneTakesItsOwnFromTheShelf()
{
    QFETCH(int, index);
    QFETCH(int, count);
    QFETCH(QString, said);
    QQuickItem *target = pad(index);
    scrollTo(target);
    const QPoint from = support::positionIn(allCard(), 40, 30);
    const QPoint over = support::positionIn(target);
    support::Gesture gesture;
    gesture
        .drag(
            from, over, [&] { return target->property("over").toBool(); }, "the drag")
        .release()
        .until([&] { return !target->property("over").toBool(); }, "the drop");
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(target->property("got").toList().size(), count);
    QVERIFY2(support::textsOn(target).contains(said),
             qPrintable(support::textsOn(target).join(QLatin1Char('|'))));
}

void TestDropZonesPage::overAZoneItSaysWhatItWouldTake()
{
    QQuickItem *target = pad(0);
    const QPoint from = support::positionIn(allCard(), 40, 30);
    const QPoint over = support::positionIn(target);
    QStringList during;
    support::Gesture gesture;
    gesture
        .drag(
            from, over, [&] { return target->property("over").toBool(); }, "the drag")
        .then([&] { during = support::textsOn(target); })
        .glide(over, from)
        .hoverUntil(
            from, [&] { return !target->property("over").toBool(); }, "the leave")
        .release();
    QVERIFY2(gesture.run(), gesture.error());
    QVERIFY(during.contains(text("Would take 2 files")));
    QVERIFY(during.contains(text("red.png")));
    QVERIFY(!during.contains(text("notes.md")));
    QVERIFY(support::textsOn(target).contains(text("Drop files here")));
}

void TestDropZonesPage::filesFromAnotherProgram()
{
    support::ForeignProgram source(text("xdnd_source"));
    QStringList arguments = {text("--at"),  text("1000,100"),
                             text("--url"), text("file:///%zz.dat"),
                             text("--url"), text("file:///")};
    for (int i = 0; i < 300; ++i) {
        arguments << text("--url") << QStringLiteral("file:///many/%1.dat").arg(i);
    }
    QVERIFY2(source.start(arguments), qPrintable(source.error()));
    QQuickItem *target = pad(1);
    scrollTo(target);
    const QPoint over = support::positionIn(target);
    support::Gesture gesture;
    gesture
        .drag(
            source.geometry().center(), over,
            [&] { return target->property("over").toBool() && source.mayDrop(); }, "the drag")
        .release()
        .until([&] { return source.count(text("finished")) > 0; }, "the drop");
    QVERIFY2(gesture.run(), gesture.error());
    QVERIFY2(support::textsOn(target).contains(text("Got 302 files")),
             qPrintable(support::textsOn(target).join(QLatin1Char('|'))));
}

void TestDropZonesPage::suffixesThatAreEditedCount()
{
    QQuickItem *target = pad(2);
    QObject *handler = support::evaluate(target, text("zone.dropHandlers[0]")).value<QObject *>();
    QVERIFY(handler);
    handler->setProperty("suffixes", QStringList{text("ogg"), text("MD")});
    scrollTo(target);
    QVERIFY(support::textsOn(target).contains(text("ogg, MD")));
    const QPoint from = support::positionIn(allCard(), 40, 30);
    const QPoint over = support::positionIn(target);
    support::Gesture gesture;
    gesture
        .drag(
            from, over, [&] { return target->property("over").toBool(); }, "the drag")
        .release()
        .until([&] { return !target->property("over").toBool(); }, "the drop");
    QVERIFY2(gesture.run(), gesture.error());
    QVERIFY(support::textsOn(target).contains(text("song.ogg")));
    QVERIFY(!support::textsOn(target).contains(text("notes.md")));
}

QTEST_MAIN(TestDropZonesPage)
#include "tst_dropzonespage.moc"
