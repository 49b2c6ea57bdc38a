// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/drag/DocumentDragTest.h"
#include "tests/support/ForeignProgram.h"
#include "tests/support/Leftovers.h"
#include "tests/support/Pointer.h"
#include "tests/support/SignalRecorder.h"
#include "tests/support/Text.h"

#include <QDrag>
#include <QMimeData>
#include <QPointer>
#include <QQmlComponent>
#include <QTest>
#include <QThread>

#include <functional>
#include <utility>

using support::positionIn;
using support::text;

/// Documents dragged out of both sources: what is carried, who takes it, and the visual.
class TestDocumentDrags : public DocumentDragTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { loadScene(); }
    void cleanup()
    {
        closeScene();
        QCOMPARE(support::leftovers(), QString());
    }

    void payloadAndActions_data() { sources(); }
    void payloadAndActions();
    void zoneDropsOnAHandler();
    void handlerRefusesAnArea();
    void handlerRefusesOtherTypes();
    void payloadReachesAnotherProgram_data() { sources(); }
    void payloadReachesAnotherProgram();
    void visualFollowsTheCursor_data() { sources(); }
    void visualFollowsTheCursor();
    void visualKnowsWhenItIsOutside_data() { sources(); }
    void visualKnowsWhenItIsOutside();
    void visualIsRemoved_data() { sources(); }
    void visualIsRemoved();
    void visualDelaysItsRemoval_data() { sources(); }
    void visualDelaysItsRemoval();
    void noVisualWithoutADelegate_data() { sources(); }
    void noVisualWithoutADelegate();
    void delegatesThatMakeNoVisual_data();
    void delegatesThatMakeNoVisual();
    void delegateSlowerThanTheDrag_data() { sources(); }
    void delegateSlowerThanTheDrag();
    void delayedVisualOutlivesAShortDrag_data() { sources(); }
    void delayedVisualOutlivesAShortDrag();
    void quickHandDropsToo_data() { sources(); }
    void quickHandDropsToo();
};

/// Has the application be busy while a press is delivered.
class BusyAtThePress : public QObject
{
public:
    std::function<void()> work;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::MouseButtonPress && work) {
            std::exchange(work, nullptr)();
        }
        return false;
    }
};

void TestDocumentDrags::payloadAndActions()
{
    support::Gesture gesture;
    dragOver(gesture, positionIn(m_view->item("any"))).release();
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(m_watch->formats, QStringList{text("application/x-lumetra-documents")});
    QCOMPARE(m_watch->payload.toHex(' '), QByteArray("00 00 00 02 00 61 00 00 00 00 ff ff ff ff"));
    QCOMPARE(m_watch->actions, Qt::DropActions(Qt::MoveAction));
    QTRY_VERIFY(!isActive());
}

void TestDocumentDrags::zoneDropsOnAHandler()
{
    support::SignalRecorder recorder;
    recorder.watch(m_view->find(text("handler")), text("handler"),
                   {text("entered"), text("dropped"), text("exited")});
    recorder.watch(source(), text("source"), {text("dragActiveChanged")},
                   [this] { return isActive() ? text("on") : text("off"); });
    support::Gesture gesture;
    const QPoint over = positionIn(m_view->item("zone"));
    dragOver(gesture, over)
        .hoverUntil(
            over, [this] { return m_view->item("zone")->property("containsDrag").toBool(); },
            "the zone to take the drag")
        .release();
    QVERIFY2(gesture.run(), gesture.error());
    // The drag has ended before any further mouse event.
    QVERIFY(!isActive());
    QCOMPARE(recorder.take(),
             (QStringList{text("source.dragActiveChanged [on]"), text("handler.entered"),
                          text("handler.dropped"), text("source.dragActiveChanged [off]")}));
    QCOMPARE(m_view->root()->property("drops").toInt(), 1);
    QCOMPARE(m_view->root()->property("dataUndefined").toBool(), true);
    QCOMPARE(m_view->root()->property("lastSource").value<QObject *>(), source());
    QCOMPARE(support::evaluate(m_view->root(), text("lastDocuments.join()")).toString(),
             text("a,b,c"));
}

void TestDocumentDrags::handlerRefusesAnArea()
{
    support::Gesture gesture;
    const QPoint over = positionIn(m_view->item("zone"));
    dragOver(gesture, over)
        .hoverUntil(
            over, [this] { return m_watch->moves > 4; }, "some moves over the zone")
        .release();
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(m_view->item("zone")->property("containsDrag").toBool(), false);
    QCOMPARE(m_view->root()->property("drops").toInt(), 0);
    QTRY_VERIFY(!isActive());
}

void TestDocumentDrags::handlerRefusesOtherTypes()
{
    m_view->find(text("handler"))->setProperty("type", text("Text"));
    support::Gesture gesture;
    const QPoint over = positionIn(m_view->item("zone"));
    dragOver(gesture, over)
        .hoverUntil(
            over, [this] { return m_watch->moves > 4; }, "some moves over the zone")
        .release();
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(m_view->root()->property("drops").toInt(), 0);
}

void TestDocumentDrags::payloadReachesAnotherProgram()
{
    support::ForeignProgram target(text("xdnd_target"));
    QVERIFY2(target.start({text("--at"), text("700,300"), text("--size"), text("200x200")}),
             qPrintable(target.error()));
    const QPoint over = target.geometry().center();
    const QPoint from = row();
    support::Gesture gesture;
    gesture
        .drag(
            from, over, [&] { return target.count(text("move")) > 1; },
            "the other program's answer")
        .release()
        .until([&] { return target.count(text("drop")) == 1; }, "the drop in the other program");
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(target.lines(text("format")),
             QStringList{text("application/x-lumetra-documents 00000002006100000000ffffffff")});
    QCOMPARE(target.lines(text("drop")), QStringList{text("2")});
    // Without a release an area stays active until the next gesture.
    nextDragWorks();
}

void TestDocumentDrags::visualFollowsTheCursor()
{
    const bool isZone = typeName() == "DragZone";
    const QPoint over = positionIn(m_view->item("any"));
    QPointF at;
    qreal z = -1;
    QObject *owner = nullptr;
    QQuickItem *parent = nullptr;
    support::Gesture gesture;
    dragOver(gesture, over)
        .hoverUntil(
            over, [&] { return visual() && visual()->x() > 200; }, "the visual under the cursor")
        .then([&] {
            at = visual()->position() - (m_watch->position - QPointF(5, 6));
            z = visual()->z();
            owner = visual()->property("owner").value<QObject *>();
            parent = visual()->parentItem();
        })
        .release();
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(at, QPointF());
    QCOMPARE(z, isZone ? 65535.0 : 0.0);
    QCOMPARE(owner, source());
    QCOMPARE(parent, m_view->window()->contentItem());
    QTRY_VERIFY(!visual());
}

void TestDocumentDrags::visualKnowsWhenItIsOutside()
{
    const QPoint over = positionIn(m_view->item("any"));
    const QPoint outside = m_view->window()->position() + QPoint(0, 500);
    std::vector<bool> seen;
    support::Gesture gesture;
    dragOver(gesture, over)
        .hoverUntil(
            over, [&] { return visual() != nullptr; }, "the visual")
        .then([&] { seen.push_back(visual()->property("outside").toBool()); })
        .glide(over, outside)
        .until([&] { return visual()->property("outside").toBool(); }, "the visual to be outside")
        .glide(outside, over)
        .until([&] { return !visual()->property("outside").toBool(); }, "it to be inside again")
        .then([&] { seen.push_back(visual()->property("outside").toBool()); })
        .release();
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(seen, (std::vector<bool>{false, false}));
}

void TestDocumentDrags::visualIsRemoved()
{
    QPointer<QQuickItem> seen;
    const QPoint over = positionIn(m_view->item("any"));
    support::Gesture gesture;
    dragOver(gesture, over)
        .hoverUntil(
            over, [&] { return (seen = visual()) != nullptr; }, "the visual")
        .release();
    QVERIFY2(gesture.run(), gesture.error());
    QTRY_VERIFY(!seen);
    QCOMPARE(m_view->root()->property("drops").toInt(), 1);
    nextDragWorks();
}

void TestDocumentDrags::visualDelaysItsRemoval()
{
    source()->setProperty("state", text("delayed"));
    QPointer<QQuickItem> seen;
    const QPoint over = positionIn(m_view->item("any"));
    support::Gesture gesture;
    dragOver(gesture, over)
        .hoverUntil(
            over, [&] { return (seen = visual()) != nullptr; }, "the visual")
        .release();
    QVERIFY2(gesture.run(), gesture.error());
    QTRY_VERIFY(!isActive());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(seen);
    QCOMPARE(seen->property("dropped").toBool(), true);
    QMetaObject::invokeMethod(seen, "letGo");
    QTRY_VERIFY(!seen);
    source()->setProperty("state", QString());
    nextDragWorks();
}

void TestDocumentDrags::noVisualWithoutADelegate()
{
    source()->setProperty("dragDelegate", QVariant::fromValue<QQmlComponent *>(nullptr));
    support::Gesture gesture;
    dragOver(gesture, positionIn(m_view->item("any"))).release();
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(m_view->root()->property("drops").toInt(), 1);
    nextDragWorks();
}

void TestDocumentDrags::delegatesThatMakeNoVisual_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QByteArray>("delegate");
    for (const char *type : {"DragArea", "DragZone"}) {
        QTest::addRow("%s, a syntax error", type) << QByteArray(type) << QByteArray("Rectangle {");
        QTest::addRow("%s, an unknown type", type) << QByteArray(type) << QByteArray("Nothing {}");
        QTest::addRow("%s, not an item", type) << QByteArray(type) << QByteArray("Timer {}");
    }
}

void TestDocumentDrags::delegatesThatMakeNoVisual()
{
    QFETCH(QByteArray, delegate);
    QQmlComponent component(m_view->engine());
    component.setData("import QtQuick 2.12\n" + delegate, QUrl());
    source()->setProperty("dragDelegate", QVariant::fromValue(&component));
    support::Gesture gesture;
    const QPoint over = positionIn(m_view->item("any"));
    dragOver(gesture, over)
        .hoverUntil(
            over, [this] { return m_watch->moves > 3; }, "more moves")
        .release();
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(m_view->root()->property("drops").toInt(), 1);
    nextDragWorks();
}

void TestDocumentDrags::delegateSlowerThanTheDrag()
{
    // Thousands of objects, so that the drag is over before all are made.
    const QByteArray many = QByteArray("Item { property var list: [1, 2, 3] }\n").repeated(3000);
    QQmlComponent component(m_view->engine());
    component.setData("import QtQuick 2.12\nItem { objectName: \"visual\"\n" + many + "}", QUrl());
    QVERIFY(component.isReady());
    source()->setProperty("dragDelegate", QVariant::fromValue(&component));
    const QPoint over = positionIn(m_view->item("any"));
    support::Gesture gesture;
    dragOver(gesture, over)
        .key(Qt::Key_Escape)
        .until([this] { return !m_view->find(text("any"))->property("containsDrag").toBool(); },
               "the drag to leave")
        .release();
    QVERIFY2(gesture.run(), gesture.error());
    source()->setProperty("dragDelegate", QVariant::fromValue<QQmlComponent *>(nullptr));
    nextDragWorks();
}

void TestDocumentDrags::delayedVisualOutlivesAShortDrag()
{
    source()->setProperty("state", text("delayed"));
    QPointer<QQuickItem> first;
    const QPoint over = positionIn(m_view->item("any"));
    support::Gesture gesture;
    dragOver(gesture, over)
        .hoverUntil(
            over, [&] { return (first = visual()) != nullptr; }, "the visual")
        .release();
    QVERIFY2(gesture.run(), gesture.error());
    QTRY_VERIFY(!isActive());
    QVERIFY(first);
    first->setObjectName(text("first"));

    // A drag that ends before its own visual is made.
    QQmlComponent component(m_view->engine());
    component.setData("import QtQuick 2.12\nRow { objectName: \"visual\"\n"
                      "Repeater { model: 3000; Item { property var list: [1, 2, 3] } } }",
                      QUrl());
    source()->setProperty("dragDelegate", QVariant::fromValue(&component));
    m_watch->moves = 0;
    support::Gesture flick;
    dragOver(flick, over)
        .key(Qt::Key_Escape)
        .until([this] { return !m_view->find(text("any"))->property("containsDrag").toBool(); },
               "the drag to leave")
        .release();
    QVERIFY2(flick.run(), flick.error());
    QTRY_VERIFY(!visual());
    QVERIFY(first);
    QMetaObject::invokeMethod(first, "letGo");
    QTRY_VERIFY(!first);
    source()->setProperty("dragDelegate", QVariant::fromValue<QQmlComponent *>(nullptr));
    nextDragWorks();
}

/// The moves and the release wait in the window system's queue when the press has been handled.
void TestDocumentDrags::quickHandDropsToo()
{
    support::SignalRecorder recorder;
    recorder.watch(source(), text("source"), {text("dragActiveChanged")},
                   [this] { return isActive() ? text("on") : text("off"); });
    const QPoint from = row();
    const QPoint to = positionIn(m_view->item("any"));
    support::Pointer pointer;
    BusyAtThePress busy;
    busy.work = [&] {
        for (const QPoint &place : {from + QPoint(20, 20), (from + to) / 2, to}) {
            pointer.move(place);
            QThread::msleep(20); // the server leaves out a place that the next one follows at once
        }
        pointer.release();
        QThread::msleep(20);
    };
    m_view->item("row")->installEventFilter(&busy);
    pointer.move(from);
    pointer.press();
    QTRY_COMPARE(m_view->root()->property("drops").toInt(), 1);
    QTRY_VERIFY(!isActive());
    QCOMPARE(recorder.take(),
             (QStringList{text("source.dragActiveChanged [on]"),
                          text("source.dragActiveChanged [off]")}));
    QTRY_VERIFY(source()->findChildren<QDrag *>().isEmpty());
    nextDragWorks();
}

QTEST_MAIN(TestDocumentDrags)
#include "tst_documentdrags.moc"
