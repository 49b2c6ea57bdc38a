// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/DragWatch.h"
#include "tests/support/ForeignProgram.h"
#include "tests/support/Gesture.h"
#include "tests/support/Leftovers.h"
#include "tests/support/QmlView.h"
#include "tests/support/SignalRecorder.h"
#include "tests/support/Text.h"

#include <QDropEvent>
#include <QMimeData>
#include <QRegularExpression>
#include <QTest>

#include <limits>

using support::positionIn;
using support::text;

/// An item dragged with the real pointer.
class TestDraggable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void payloadAndActions();
    void payloadReachesAnotherProgram();
    void handlerTakesItsKey_data();
    void handlerTakesItsKey();
    void dataIsBytes();
    void followsTheCursor_data();
    void followsTheCursor();
    void keepsItsSizeUnderANewParent();
    void adoptedByTheDrop();
    void staysWhereItWasDropped();
    void escapeEndsTheDrag();
    void destroyedDuringTheDrag();
    void windowDestroyedDuringTheDrag();
    void windowDestroyedByAMove();
    void movedToAnotherWindow();

private:
    QQuickItem *card() const { return m_view->item("card"); }
    QPoint over() const { return positionIn(m_view->item("zone")); }
    support::Gesture &dragOver(support::Gesture &gesture, const QPoint &target);
    void load();
    void nextDragWorks();

    std::unique_ptr<support::QmlView> m_view;
    std::unique_ptr<support::DragWatch> m_watch;
};

void TestDraggable::init()
{
    load();
}

void TestDraggable::load()
{
    m_view = std::make_unique<support::QmlView>();
    m_view->loadFile(text("data/card.qml"));
    m_view->show();
    m_watch = std::make_unique<support::DragWatch>(m_view->window(),
                                                   text("application/x-lumetra-draggable"));
}

void TestDraggable::cleanup()
{
    m_watch.reset();
    m_view.reset();
    QCOMPARE(support::leftovers(), QString());
}

support::Gesture &TestDraggable::dragOver(support::Gesture &gesture, const QPoint &target)
{
    m_watch->moves = 0;
    const QPoint from = positionIn(card(), 10, 10);
    return gesture.drag(
        from, target, [this] { return m_watch->moves > 2; }, "the window to see the drag");
}

void TestDraggable::nextDragWorks()
{
    QTRY_VERIFY(!card()->property("isDragged").toBool());
    QCOMPARE(card()->z(), 3.0);
    // Away from the target, or there is no way to go.
    card()->setPosition({20, 20});
    m_view->root()->setProperty("took", QString());
    support::Gesture gesture;
    dragOver(gesture, over())
        .hoverUntil(
            over(), [this] { return m_view->item("zone")->property("containsDrag").toBool(); },
            "the zone to take the next drag")
        .release();
    QVERIFY2(gesture.run(), gesture.error());
    QTRY_COMPARE(m_view->root()->property("took").toString(), text("dropped "));
    QTRY_VERIFY(!card()->property("isDragged").toBool());
}

void TestDraggable::payloadAndActions()
{
    card()->setProperty("dragData", QString(QChar(0xE9)));
    support::Gesture gesture;
    dragOver(gesture, over()).release();
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(m_watch->formats, QStringList{text("application/x-lumetra-draggable")});
    QCOMPARE(m_watch->payload, QByteArray("\xC3\xA9"));
    QCOMPARE(m_watch->actions, Qt::CopyAction | Qt::MoveAction | Qt::LinkAction);
}

void TestDraggable::payloadReachesAnotherProgram()
{
    card()->setProperty("dragData", QString(QChar(0xE9)));
    support::ForeignProgram target(text("xdnd_target"));
    QVERIFY2(target.start({text("--at"), text("700,300"), text("--size"), text("200x200")}),
             qPrintable(target.error()));
    const QPoint to = target.geometry().center();
    const QPoint from = positionIn(card());
    support::Gesture gesture;
    gesture
        .drag(
            from, to, [&] { return target.count(text("move")) > 1; }, "the other program's answer")
        .release()
        .until([&] { return target.count(text("drop")) == 1; }, "the drop in the other program");
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(target.lines(text("format")),
             QStringList{text("application/x-lumetra-draggable c3a9")});
    QTRY_VERIFY(!card()->property("isDragged").toBool());
}

void TestDraggable::handlerTakesItsKey_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("dragData");
    QTest::addColumn<bool>("takes");
    QTest::newRow("equal") << text("Card") << text("Card") << true;
    QTest::newRow("other case") << text("card") << text("Card") << false;
    QTest::newRow("only the start") << text("Car") << text("Card") << false;
    QTest::newRow("both empty") << QString() << QString() << true;
    QTest::newRow("empty key") << QString() << text("Card") << false;
}

void TestDraggable::handlerTakesItsKey()
{
    QFETCH(QString, key);
    QFETCH(QString, dragData);
    QFETCH(bool, takes);
    m_view->find(text("handler"))->setProperty("key", key);
    card()->setProperty("dragData", dragData);
    support::Gesture gesture;
    dragOver(gesture, over()).release();
    QVERIFY2(gesture.run(), gesture.error());
    QTRY_VERIFY(!card()->property("isDragged").toBool());
    QCOMPARE(m_view->root()->property("took").toString(), takes ? text("dropped ") : QString());
}

void TestDraggable::dataIsBytes()
{
    support::Gesture gesture;
    dragOver(gesture, over()).release();
    QVERIFY2(gesture.run(), gesture.error());
    QTRY_COMPARE(m_view->root()->property("took").toString(), text("dropped "));
    QCOMPARE(support::evaluate(m_view->root(), text("payload.byteLength")).toInt(), 4);
    QCOMPARE(support::evaluate(m_view->root(), text("payload === 'Card'")).toBool(), false);
}

void TestDraggable::followsTheCursor_data()
{
    QTest::addColumn<qreal>("scale");
    QTest::addColumn<qreal>("rotation");
    QTest::newRow("plain") << 1.0 << 0.0;
    QTest::newRow("half as large") << 0.5 << 0.0;
    QTest::newRow("a quarter turn") << 1.0 << 90.0;
    QTest::newRow("larger and turned") << 1.2 << 30.0;
}

void TestDraggable::followsTheCursor()
{
    QFETCH(qreal, scale);
    QFETCH(qreal, rotation);
    QQuickItem *const left = m_view->item("left");
    left->setScale(scale);
    left->setRotation(rotation);
    QPointF grabbed;
    const QPoint target = over();
    support::Gesture gesture;
    dragOver(gesture, target).then([&] {
        // What was grabbed is still under the cursor.
        grabbed = card()->mapFromScene(m_watch->position);
    });
    gesture.release();
    QVERIFY2(gesture.run(), gesture.error());
    QVERIFY2(QLineF(grabbed, {10, 10}).length() < 1.5 / scale,
             qPrintable(text("%1, %2").arg(grabbed.x()).arg(grabbed.y())));
}

void TestDraggable::keepsItsSizeUnderANewParent()
{
    QQuickItem *const right = m_view->item("right");
    const QPointF anchor = card()->mapToScene({});
    QPointF placed;
    qreal scaled = 0;
    QObject *owner = nullptr;
    support::Gesture gesture;
    dragOver(gesture, over())
        .then([&] {
            card()->setParentItem(right);
            placed = card()->mapToScene({});
            scaled = card()->scale();
            owner = card()->parent();
        })
        .release();
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(scaled, 0.5);
    QCOMPARE(placed, anchor);
    QCOMPARE(owner, right);
    QTRY_VERIFY(!card()->property("isDragged").toBool());
    QCOMPARE(card()->z(), 3.0);
}

void TestDraggable::adoptedByTheDrop()
{
    card()->setProperty("state", text("adopt"));
    support::Gesture gesture;
    dragOver(gesture, over()).release();
    QVERIFY2(gesture.run(), gesture.error());
    QTRY_COMPARE(card()->parentItem(), m_view->item("right"));
    QCOMPARE(card()->scale(), 0.5);
    QTRY_VERIFY(!card()->property("isDragged").toBool());
    card()->setProperty("state", QString());
    nextDragWorks();
}

void TestDraggable::staysWhereItWasDropped()
{
    m_view->find(text("handler"))->setProperty("key", text("other"));
    const QPointF before = card()->position();
    support::Gesture gesture;
    dragOver(gesture, over()).release();
    QVERIFY2(gesture.run(), gesture.error());
    QTRY_VERIFY(!card()->property("isDragged").toBool());
    QVERIFY(QLineF(before, card()->position()).length() > 100);
}

void TestDraggable::escapeEndsTheDrag()
{
    support::Gesture gesture;
    dragOver(gesture, over())
        .key(Qt::Key_Escape)
        .until([this] { return !card()->property("isDragged").toBool(); }, "the end of the drag")
        .release();
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(m_view->root()->property("took").toString(), QString());
    nextDragWorks();
}

void TestDraggable::destroyedDuringTheDrag()
{
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(text("^Destroyed Draggable during drag! QQuickItem")));
    support::Gesture gesture;
    dragOver(gesture, over()).then([this] { delete card(); }).release();
    QVERIFY2(gesture.run(), gesture.error());
    QVERIFY(!m_view->find(text("card")));
    QCOMPARE(m_view->item("zone")->property("containsDrag").toBool(), false);
}

void TestDraggable::windowDestroyedDuringTheDrag()
{
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(text("^Destroyed Draggable")));
    support::Gesture gesture;
    dragOver(gesture, over()).then([this] { m_view->close(); }).release();
    QVERIFY2(gesture.run(), gesture.error());
    load();
    nextDragWorks();
}

/// The event ends with its window: it is not handed on to what is gone.
void TestDraggable::windowDestroyedByAMove()
{
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(text("^Destroyed Draggable")));
    const QPoint target = over();
    support::SignalRecorder recorder;
    support::Gesture gesture;
    dragOver(gesture, target)
        .then([&] {
            recorder.watch(card(), text("card"), {text("yChanged")}, [this] {
                m_view->close();
                return QString();
            });
            const QPointF place = card()->mapToScene({30, 31});
            QDragMoveEvent move(place.toPoint() + QPoint(0, 40), Qt::CopyAction, nullptr,
                                Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(m_view->window(), &move);
        })
        .release();
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(recorder.entries().size(), 1);
    load();
    nextDragWorks();
}

void TestDraggable::movedToAnotherWindow()
{
    QQuickWindow other;
    other.setGeometry(700, 100, 200, 200);
    other.show();
    QVERIFY(QTest::qWaitForWindowExposed(&other));
    QQuickItem *const item = card();
    QQuickItem *const home = item->parentItem();
    support::Gesture gesture;
    dragOver(gesture, over()).then([&] { item->setParentItem(other.contentItem()); }).release();
    QVERIFY2(gesture.run(), gesture.error());
    QTRY_VERIFY(!item->property("isDragged").toBool());
    item->setParentItem(home);
    item->setPosition({20, 30});
    other.close();
    nextDragWorks();
}

QTEST_MAIN(TestDraggable)
#include "tst_draggable.moc"
