// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Gesture.h"
#include "tests/support/Items.h"
#include "tests/support/Leftovers.h"
#include "tests/support/QmlView.h"

#include <QTest>

using namespace support;

/// The examples of the reference, used as their first lines say.
class TestExamples : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void colorMapper();
    void dialogItem();
    void documentDropHandler();
    void draggable();
    void draggableDropHandler();
    void hoverArea();
    void hueBox();
    void keyEventSource();
    void popup();
    void popupAnchorItem();
    void popupAtTheEdges();
    void propertyEditor();
    void saturationValueBox();
    void treeView();
    void treeViewByKeys();

private:
    void load(const char *type);
    /// The one item of the class or file \a type.
    QQuickItem *the(const char *type) const { return itemsOf(m_view->root(), type).value(0); }
    QQuickItem *saying(const char *text) const
    {
        return itemWith(m_view->window()->contentItem(), "text", QString::fromUtf8(text));
    }
    void clickAt(const QPointF &place);
    void click(const QQuickItem *item) { clickAt(item->mapToScene(item->boundingRect().center())); }

    std::unique_ptr<QmlView> m_view;
};

void TestExamples::load(const char *type)
{
    m_view = std::make_unique<QmlView>();
    m_view->loadFile(
        qEnvironmentVariable("OMBREL_SOURCE_DIR")
        + QStringLiteral("/docs/snippets/%1Example.qml").arg(QString::fromLatin1(type)));
    m_view->show();
}

void TestExamples::clickAt(const QPointF &place)
{
    QTest::mouseClick(m_view->window(), Qt::LeftButton, {}, place.toPoint());
}

void TestExamples::cleanup()
{
    m_view.reset();
    QCOMPARE(leftovers(), QString());
}

void TestExamples::colorMapper()
{
    load("ColorMapper");
    QVERIFY(saying("#70A9B8, hue 192, red 112"));
    click(m_view->root());
    QVERIFY(!saying("#70A9B8, hue 192, red 112"));
    QCOMPARE(m_view->root()->property("color").value<QColor>().hsvHue(), 222);
}

void TestExamples::dialogItem()
{
    load("DialogItem");
    QVERIFY(!saying("Cancel"));
    click(saying("Rename…"));
    QTRY_VERIFY(saying("Cancel"));
    QTest::keyClick(m_view->window(), Qt::Key_X);
    QTest::keyClick(m_view->window(), Qt::Key_Return);
    QVERIFY(saying("New namex"));
    QVERIFY(!saying("Cancel"));
    click(saying("New namex"));
    click(saying("Cancel"));
    QVERIFY(!saying("Cancel"));
    // The button was pressed, and has the focus again.
    QQuickItem *const button = m_view->window()->activeFocusItem();
    QVERIFY(button);
    QCOMPARE(QByteArray(button->metaObject()->className()), QByteArray("QQuickMouseArea"));
    click(saying("New namex"));
    QVERIFY(m_view->window()->activeFocusItem() != button);
    QTest::keyClick(m_view->window(), Qt::Key_Escape);
    QVERIFY(!saying("Cancel"));
    QCOMPARE(m_view->window()->activeFocusItem(), button);
}

void TestExamples::documentDropHandler()
{
    load("DocumentDropHandler");
    QQuickItem *const document = the("QQuickMouseArea");
    QQuickItem *const zone = the("om::controls::DropZone");
    Gesture gesture;
    gesture
        .drag(
            positionIn(document), positionIn(zone),
            [&] { return zone->property("containsDrag").toBool(); }, "the zone sees the document")
        .release()
        .until([this] { return saying("Portrait"); }, "its name");
    QVERIFY2(gesture.run(), gesture.error());
}

void TestExamples::draggable()
{
    load("Draggable");
    QQuickItem *const card = the("om::controls::Draggable");
    const QPoint from = positionIn(card);
    bool moved = false;
    Gesture gesture;
    gesture
        .drag(
            from, from + QPoint(90, 60), [&] { return card->x() > 60; }, "the card follows")
        .then([&] { moved = true; })
        .release()
        .until([&] { return !card->property("isDragged").toBool(); }, "the end of the drag");
    QVERIFY2(gesture.run(), gesture.error());
    QVERIFY(moved);
    QCOMPARE(card->position(), QPointF(30, 30));
}

void TestExamples::draggableDropHandler()
{
    load("DraggableDropHandler");
    QQuickItem *const card = the("om::controls::Draggable");
    QQuickItem *const zone = the("om::controls::DropZone");
    const QRectF before = card->mapRectToScene(card->boundingRect());
    const QPoint over = positionIn(zone, 160, 160);
    Gesture gesture;
    gesture
        .drag(
            positionIn(card), over, [&] { return zone->property("containsDrag").toBool(); },
            "the board sees the card")
        .release()
        .until([&] { return !card->property("isDragged").toBool(); }, "the end of the drag");
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(card->parentItem(), zone->parentItem());
    QCOMPARE(card->scale(), 2.0);
    const QRectF after = card->mapRectToScene(card->boundingRect());
    QCOMPARE(after.size(), before.size());
    // It stays where it was dropped, held by its middle.
    const QPointF dropped = m_view->window()->mapFromGlobal(over);
    QVERIFY((after.center() - dropped).manhattanLength() <= 3);
    const QPointF home = card->property("home").toPointF();
    QCOMPARE(card->position(), home);

    // Dropped beside the board it flies home.
    const QPoint beside = positionIn(m_view->root(), 60, 170);
    Gesture back;
    back.drag(
            positionIn(card), beside,
            [&] { return (positionIn(card) - beside).manhattanLength() <= 3; },
            "the card leaves the board")
        .release()
        .until([&] { return !card->property("isDragged").toBool(); }, "the end of the drag");
    QVERIFY2(back.run(), back.error());
    QTRY_COMPARE(card->position(), home);
}

void TestExamples::hoverArea()
{
    load("HoverArea");
    QTest::mouseMove(m_view->window(), {1, 1});
    QTest::mouseMove(m_view->window(), {100, 40});
    QTRY_VERIFY(saying("Click me"));
    click(m_view->root());
    QVERIFY(saying("Clicked"));
}

void TestExamples::hueBox()
{
    load("HueBox");
    QQuickItem *const strip = the("om::controls::HueBox");
    QQuickItem *const marker = strip->childItems().value(0);
    QCOMPARE(marker->x(), 200.0 * 200 / 359);
    clickAt(strip->mapToScene({50, 10}));
    QCOMPARE(strip->property("hue").toInt(), 90);
    QCOMPARE(marker->x(), 200.0 * 90 / 359);
}

void TestExamples::keyEventSource()
{
    load("KeyEventSource");
    click(saying("b"));
    click(saying("a"));
    QCOMPARE(textsOn(m_view->root()).constFirst(), QStringLiteral("Type here: ba"));
}

void TestExamples::popup()
{
    load("Popup");
    QVERIFY(!saying("Winter"));
    click(saying("Summer"));
    QTRY_VERIFY(saying("Winter"));
    // Where it is to be, below the box, by now.
    QTRY_COMPARE(saying("Spring")->mapToScene({0, 0}), QPointF(40, 64));
    click(saying("Winter"));
    QTRY_VERIFY(!saying("Spring"));
    QVERIFY(saying("Winter"));
    // The box closes it as well as opens it.
    click(saying("Winter"));
    QTRY_VERIFY(saying("Spring"));
    click(the("QQuickMouseArea"));
    QTRY_VERIFY(!saying("Spring"));
}

void TestExamples::popupAnchorItem()
{
    load("PopupAnchorItem");
    QQuickItem *const anchor = the("om::controls::PopupAnchorItem");
    click(m_view->root());
    QQuickItem *const popup = anchor->property("popupItem").value<QQuickItem *>();
    QVERIFY(popup && popup->isVisible());
    const auto turned = [popup] { return popup->mapToScene({0, 0}); };
    const QPointF first = turned();
    QTRY_VERIFY(turned() != first);
    clickAt({3, 3});
    QVERIFY(!popup->isVisible());
}

void TestExamples::popupAtTheEdges()
{
    load("PopupEdges");
    const QRectF window(0, 0, 320, 240);
    for (const QPoint &place :
         {QPoint(10, 10), QPoint(310, 10), QPoint(10, 230), QPoint(310, 230)}) {
        QTest::mouseClick(m_view->window(), Qt::RightButton, {}, place);
        QQuickItem *const menu = the("om::controls::Popup");
        QTRY_COMPARE(menu->opacity(), 1.0);
        const QRectF area = menu->mapRectToScene(menu->boundingRect());
        QVERIFY(window.contains(area));
        QVERIFY(area.adjusted(-1, -1, 1, 1).contains(place));
        QTest::keyClick(m_view->window(), Qt::Key_Escape);
        QTRY_VERIFY(!menu->isVisible());
    }
    // A press beside it closes it as well.
    QTest::mouseClick(m_view->window(), Qt::RightButton, {}, {10, 10});
    QTRY_VERIFY(the("om::controls::Popup")->isVisible());
    clickAt({300, 200});
    QTRY_VERIFY(!the("om::controls::Popup")->isVisible());
}

void TestExamples::propertyEditor()
{
    load("PropertyEditor");
    click(saying("Report"));
    QTest::keyClick(m_view->window(), Qt::Key_A);
    QTest::keyClick(m_view->window(), Qt::Key_Return);
    QObject *const document =
        the("om::controls::PropertyEditor")->property("document").value<QObject *>();
    QCOMPARE(document->property("name").toString(), QStringLiteral("a"));
    // Escape and a press elsewhere give up.
    for (const bool escape : {true, false}) {
        click(saying("a"));
        QTest::keyClick(m_view->window(), Qt::Key_B);
        QVERIFY(saying("b"));
        if (escape) {
            QTest::keyClick(m_view->window(), Qt::Key_Escape);
        } else {
            clickAt({3, 3});
        }
        QCOMPARE(document->property("name").toString(), QStringLiteral("a"));
        QVERIFY(!m_view->root()->property("editing").toBool());
    }
    // Tab writes.
    click(saying("a"));
    QTest::keyClick(m_view->window(), Qt::Key_C);
    QTest::keyClick(m_view->window(), Qt::Key_Tab);
    QCOMPARE(document->property("name").toString(), QStringLiteral("c"));
}

void TestExamples::saturationValueBox()
{
    load("SaturationValueBox");
    QQuickItem *const square = the("om::controls::SaturationValueBox");
    QQuickItem *const marker = square->childItems().value(0);
    clickAt(square->mapToScene({50, 60}));
    QCOMPARE(square->property("value").toInt(), 64);
    QCOMPARE(square->property("saturation").toInt(), 128);
    QCOMPARE(marker->x(), 200.0 * 64 / 255);
}

void TestExamples::treeView()
{
    load("TreeView");
    QTRY_VERIFY(saying("Beach"));
    click(saying("Beach"));
    QTest::ignoreMessage(QtDebugMsg, "edit Beach");
    QTest::keyClick(m_view->window(), Qt::Key_F2);
    QCOMPARE(m_view->root()->implicitHeight(), 4 * 24.0);
    evaluate(m_view->root(), QStringLiteral("collapseIndex(0)"));
    QTRY_COMPARE(m_view->root()->implicitHeight(), 2 * 24.0);
    QVERIFY(saying("Holiday")->property("font").value<QFont>().bold());
}

void TestExamples::treeViewByKeys()
{
    load("TreeViewKeys");
    QTRY_VERIFY(saying("Beach"));
    QQuickItem *const tree = the("om::controls::TreeView");
    const auto active = [tree] {
        return evaluate(tree, QStringLiteral("activeDocument ? activeDocument.name : ''"))
            .toString();
    };
    const auto press = [this](int key) { QTest::keyClick(m_view->window(), Qt::Key(key)); };
    press(Qt::Key_Tab);
    QVERIFY(tree->hasActiveFocus());
    press(Qt::Key_Down);
    QCOMPARE(active(), QStringLiteral("Holiday"));
    press(Qt::Key_Right);
    QCOMPARE(active(), QStringLiteral("Beach"));
    press(Qt::Key_End);
    QCOMPARE(active(), QStringLiteral("Report"));
    // Six rows in a view of five: it has followed.
    QCOMPARE(m_view->root()->property("contentY").toReal(), 24.0);
    press(Qt::Key_Down);
    QCOMPARE(active(), QStringLiteral("Report"));
    press(Qt::Key_Left);
    QCOMPARE(active(), QStringLiteral("Work"));
    press(Qt::Key_Left);
    QTRY_COMPARE(tree->implicitHeight(), 4 * 24.0);
    press(Qt::Key_Up);
    QCOMPARE(active(), QStringLiteral("Hills"));
    press(Qt::Key_P);
    QCOMPARE(active(), QStringLiteral("Plan"));
    QTRY_COMPARE(tree->implicitHeight(), 6 * 24.0);
    press(Qt::Key_Home);
    QCOMPARE(active(), QStringLiteral("Holiday"));
    press(Qt::Key_PageDown);
    QCOMPARE(active(), QStringLiteral("Plan"));
    press(Qt::Key_PageUp);
    QCOMPARE(active(), QStringLiteral("Holiday"));
}

QTEST_MAIN(TestExamples)
#include "tst_examples.moc"
