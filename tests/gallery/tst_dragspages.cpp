// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/FolderTree.h"
#include "gallery/GalleryEngine.h"
#include "tests/support/Gesture.h"
#include "tests/support/Items.h"
#include "tests/support/Leftovers.h"
#include "tests/support/QmlView.h"
#include "tests/support/Text.h"

#include <QImage>
#include <QTemporaryDir>
#include <QTest>

using support::text;

/// The pages of dragged documents and dragged items, used by hand.
class TestDragsPages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void severalDocumentsOntoATypeOfOneOfThem();
    void noPadTakesADragArea();
    void cardKeepsItsSizeInAnotherColumn();
    void takenCardStaysWhereItWasDropped_data();
    void takenCardStaysWhereItWasDropped();
    void refusedCardFliesHome();
    void cardDroppedBesideTheColumnsFliesHome();
    void columnsAreOnTheStageAtTheSmallestSize();

private:
    void load(const char *page);
    /// Drags the middle of \a card to \a over and lets it go there, with \a ready before.
    void drop(QQuickItem *card, const QPoint &over, const support::Gesture::Condition &ready);

    QTemporaryDir m_folder;
    std::unique_ptr<om::gallery::FolderTree> m_tree;
    std::unique_ptr<support::QmlView> m_view;
};

void TestDragsPages::initTestCase()
{
    QVERIFY(m_folder.isValid());
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(Qt::red);
    QVERIFY(image.save(m_folder.filePath(text("red.png"))));
    for (const char *name : {"clip.mp4", "notes.txt"}) {
        QFile file(m_folder.filePath(text(name)));
        QVERIFY(file.open(QFile::WriteOnly));
    }
}

void TestDragsPages::init()
{
    m_tree = std::make_unique<om::gallery::FolderTree>(m_folder.path());
    m_view = std::make_unique<support::QmlView>();
    om::gallery::prepareEngine(m_view->engine(), m_tree.get());
    m_view->window()->setResizeMode(QQuickView::SizeRootObjectToView);
    m_view->window()->setGeometry(0, 0, 1000, 900);
}

void TestDragsPages::load(const char *page)
{
    m_view->loadFile(qEnvironmentVariable("OMBREL_SOURCE_DIR") + text("/gallery/qml/pages/")
                     + text(page));
    m_view->show();
}

void TestDragsPages::cleanup()
{
    m_view.reset();
    m_tree.reset();
    QCOMPARE(support::leftovers(), QString());
}

void TestDragsPages::severalDocumentsOntoATypeOfOneOfThem()
{
    load("DragsPage.qml");
    QQuickItem *const demo = support::itemsOf(m_view->root(), "DragZoneDemo").value(0);
    QVERIFY(demo);
    const auto pads = support::itemsOf(demo, "DocumentPad");
    QCOMPARE(pads.size(), 3);
    QQuickItem *const pad = pads.at(1); // videos
    QQuickItem *const content = m_view->window()->contentItem();
    const int before = content->childItems().size();
    QQuickItem *const zone = support::itemsOf(demo, "om::controls::DragZone").value(0);
    QVERIFY(zone);
    const auto at = [demo](const char *name) {
        return support::positionIn(support::itemWith(demo, "text", text(name)));
    };
    const QPoint over = support::positionIn(pad);

    support::Gesture gesture;
    gesture.move(at("red.png")).press().release();
    gesture.pressKey(Qt::Key_Control);
    gesture.move(at("clip.mp4")).press().release();
    gesture.move(at("notes.txt")).press().releaseKey(Qt::Key_Control);
    gesture.glide(at("notes.txt"), over)
        .hoverUntil(
            over, [&] { return content->childItems().size() > before; },
            "the card under the cursor")
        .release()
        .until([&] { return !pad->property("received").toString().isEmpty(); }, "the drop");
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(pad->property("received").toString(), text("red.png, clip.mp4, notes.txt"));
    QVERIFY(pads.at(0)->property("received").toString().isEmpty());
    QVERIFY(!zone->property("dragActive").toBool());
    // The card spins away, then it is gone.
    QTRY_COMPARE(content->childItems().size(), before);
}

void TestDragsPages::noPadTakesADragArea()
{
    load("DragsPage.qml");
    QQuickItem *const demo = support::itemsOf(m_view->root(), "DragAreaDemo").value(0);
    QVERIFY(demo);
    const qreal top = demo->mapToItem(m_view->root(), {0, 0}).y();
    m_view->root()->setProperty("contentY", m_view->root()->property("contentY").toReal() + top);
    QQuickItem *const pad = support::itemsOf(demo, "DocumentPad").value(0);
    QQuickItem *const area = support::itemsOf(demo, "om::controls::DragArea").value(0);
    QVERIFY(pad && area);
    QQuickItem *const content = m_view->window()->contentItem();
    const int before = content->childItems().size();
    const QPoint from = support::positionIn(support::itemWith(demo, "text", text("red.png")));
    const QPoint over = support::positionIn(pad);

    support::Gesture gesture;
    gesture
        .drag(
            from, over, [&] { return content->childItems().size() > before; },
            "the card under the cursor")
        .release()
        .until([&] { return content->childItems().size() == before; }, "the card to go");
    QVERIFY2(gesture.run(), gesture.error());
    QVERIFY(pad->property("received").toString().isEmpty());
}

void TestDragsPages::cardKeepsItsSizeInAnotherColumn()
{
    load("CardsPage.qml");
    QQuickItem *const demo = support::itemsOf(m_view->root(), "DraggableDemo").value(0);
    QVERIFY(demo);
    const auto columns = support::itemsOf(demo, "CardColumn");
    QCOMPARE(columns.size(), 3);
    QQuickItem *const card = support::itemsOf(demo, "DragCard").value(0);
    QVERIFY(card);
    QQuickItem *const column = columns.at(1);
    const QSizeF before = card->mapRectToScene(card->boundingRect()).size();
    const QPoint from = support::positionIn(card);
    const QPoint over = support::positionIn(column);

    support::Gesture gesture;
    gesture
        .drag(
            from, over,
            [&] {
                return support::itemsOf(column, "om::controls::DropZone")
                    .value(0)
                    ->property("containsDrag")
                    .toBool();
            },
            "the column sees the card")
        .release()
        .until([&] { return !card->property("isDragged").toBool(); }, "the end of the drag");
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(card->parentItem(), column);
    const QSizeF after = card->mapRectToScene(card->boundingRect()).size();
    QVERIFY(qAbs(after.width() - before.width()) < 0.01);
    QVERIFY(qAbs(after.height() - before.height()) < 0.01);
    // What was raised for the drag is down again.
    QCOMPARE(card->z(), 0.0);
    QCOMPARE(columns.at(0)->z(), 0.0);
}

void TestDragsPages::drop(QQuickItem *card, const QPoint &over,
                          const support::Gesture::Condition &ready)
{
    support::Gesture gesture;
    gesture.drag(support::positionIn(card), over, ready, "what is to hold before the drop")
        .release()
        .until([&] { return !card->property("isDragged").toBool(); }, "the end of the drag");
    QVERIFY2(gesture.run(), gesture.error());
}

void TestDragsPages::takenCardStaysWhereItWasDropped_data()
{
    QTest::addColumn<int>("column");
    QTest::newRow("its own column") << 0;
    QTest::newRow("a smaller column") << 1;
    QTest::newRow("a turned column") << 2;
}

void TestDragsPages::takenCardStaysWhereItWasDropped()
{
    QFETCH(int, column);
    load("CardsPage.qml");
    QQuickItem *const demo = support::itemsOf(m_view->root(), "DraggableDemo").value(0);
    QQuickItem *const card = support::itemsOf(demo, "DragCard").value(0);
    QQuickItem *const target = support::itemsOf(demo, "CardColumn").value(column);
    QVERIFY(card && target);
    QQuickItem *const zone = support::itemsOf(target, "om::controls::DropZone").value(0);
    const QPoint over = support::positionIn(target);
    drop(card, over, [&] {
        return zone->property("containsDrag").toBool()
            && (support::positionIn(card) - over).manhattanLength() <= 2;
    });
    QCOMPARE(card->parentItem(), target);
    // Turned with its column it keeps its corner.
    const QPointF corner = card->mapToScene({0, 0});
    const QPointF expected = over - QPointF(card->width(), card->height()) / 2;
    QVERIFY2((corner - expected).manhattanLength() <= 4,
             qPrintable(QStringLiteral("%1, %2 beside the drop")
                            .arg(corner.x() - expected.x())
                            .arg(corner.y() - expected.y())));
}

void TestDragsPages::refusedCardFliesHome()
{
    load("CardsPage.qml");
    QQuickItem *const demo = support::itemsOf(m_view->root(), "DraggableDropHandlerDemo").value(0);
    const QPointF top = demo->mapToItem(m_view->root(), {0, 0});
    m_view->root()->setProperty("contentY", top.y() - 20);
    QQuickItem *const card = support::itemsOf(demo, "DragCard").value(1);
    QCOMPARE(card->property("dragData").toString(), text("Card"));
    QQuickItem *const before = card->parentItem();
    const QPointF home = card->position();
    const QPoint over = support::positionIn(support::itemsOf(demo, "CardColumn").value(0));
    drop(card, over, [&] { return (support::positionIn(card) - over).manhattanLength() <= 2; });
    QCOMPARE(card->parentItem(), before);
    QTRY_COMPARE(card->position(), home);
    QTRY_COMPARE(card->z(), 0.0);
}

void TestDragsPages::cardDroppedBesideTheColumnsFliesHome()
{
    load("CardsPage.qml");
    QQuickItem *const demo = support::itemsOf(m_view->root(), "DraggableDemo").value(0);
    QQuickItem *const card = support::itemsOf(demo, "DragCard").value(0);
    QQuickItem *const column = card->parentItem();
    const QPointF home = card->position();
    const QPoint over = support::positionIn(demo, 60, 30);
    drop(card, over, [&] { return (support::positionIn(card) - over).manhattanLength() <= 2; });
    QVERIFY(card->position() != home);
    QTRY_COMPARE(card->position(), home);
    QCOMPARE(card->parentItem(), column);
    QTRY_COMPARE(column->z(), 0.0);
}

void TestDragsPages::columnsAreOnTheStageAtTheSmallestSize()
{
    load("CardsPage.qml");
    // What the window leaves a page at its smallest.
    m_view->window()->resize(592, 480);
    QQuickItem *const demo = support::itemsOf(m_view->root(), "DraggableDemo").value(0);
    QTRY_VERIFY(demo->width() < 592);
    auto *const stage = demo->property("stage").value<QQuickItem *>();
    const auto columns = support::itemsOf(demo, "CardColumn");
    QCOMPARE(columns.size(), 3);
    for (QQuickItem *const column : columns) {
        const QRectF place = column->mapRectToItem(stage, column->boundingRect());
        QVERIFY2(QRectF(0, 0, stage->width(), stage->height()).contains(place),
                 qPrintable(column->property("title").toString()));
    }
}

QTEST_MAIN(TestDragsPages)
#include "tst_dragspages.moc"
