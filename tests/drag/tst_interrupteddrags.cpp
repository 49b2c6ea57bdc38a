// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/drag/DocumentDragTest.h"
#include "tests/support/Leftovers.h"
#include "tests/support/SignalRecorder.h"
#include "tests/support/Text.h"

#include <OmbrelDataCore/Document.h>

#include <QDrag>
#include <QDragLeaveEvent>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPointer>
#include <QQmlComponent>
#include <QQmlListReference>
#include <QTest>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

using support::positionIn;
using support::text;

namespace {

/// Memory that is allocated while it exists is not reported as a leak: Qt Quick keeps a record of
/// each touch screen until the process ends.
class RecordsKept
{
public:
    RecordsKept();
    ~RecordsKept();
};

#ifdef __SANITIZE_ADDRESS__
RecordsKept::RecordsKept()
{
    __lsan_disable();
}
RecordsKept::~RecordsKept()
{
    __lsan_enable();
}
#else
RecordsKept::RecordsKept() { }
RecordsKept::~RecordsKept() { }
#endif

} // namespace

/// Drags of documents that end early, with input from the keyboard, other buttons and fingers while
/// they run, and with objects destroyed or changed meanwhile.
class TestInterruptedDrags : public DocumentDragTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { loadScene(); }
    void cleanup()
    {
        closeScene();
        QCOMPARE(support::leftovers(), QString());
    }

    void escapeEndsTheDrag_data() { sources(); }
    void escapeEndsTheDrag();
    void droppedOutside_data() { sources(); }
    void droppedOutside();
    void rowRemovedByTheDrop_data() { sources(); }
    void rowRemovedByTheDrop();
    void sourceDestroyedDuringTheDrag_data() { sources(); }
    void sourceDestroyedDuringTheDrag();
    void windowDestroyedDuringTheDrag_data() { sources(); }
    void windowDestroyedDuringTheDrag();
    void windowDestroyedByTheLeave_data() { sources(); }
    void windowDestroyedByTheLeave();
    void visualDestroyedDuringTheDrag_data() { sources(); }
    void visualDestroyedDuringTheDrag();
    void documentDestroyedDuringTheDrag_data() { sources(); }
    void documentDestroyedDuringTheDrag();
    void receivingZoneDestroyedDuringTheDrag_data() { sources(); }
    void receivingZoneDestroyedDuringTheDrag();
    void documentsChangedDuringTheDrag_data() { sources(); }
    void documentsChangedDuringTheDrag();
    void sourceMovedToAnotherWindow_data() { sources(); }
    void sourceMovedToAnotherWindow();
    void windowDeactivatedDuringTheDrag_data() { sources(); }
    void windowDeactivatedDuringTheDrag();
    void focusLostDuringTheDrag_data() { sources(); }
    void focusLostDuringTheDrag();
    void otherButtonDuringTheDrag_data() { sources(); }
    void otherButtonDuringTheDrag();
    void touchDuringTheDrag_data() { sources(); }
    void touchDuringTheDrag();
    void sourceDisabledDuringTheDrag_data();
    void sourceDisabledDuringTheDrag();
    void sourceDestroyedInsideASignal_data();
    void sourceDestroyedInsideASignal();
    void documentDestroyedByTheLastLeave_data() { sources(); }
    void documentDestroyedByTheLastLeave();
    void startedAnewBeforeTheLoop_data();
    void startedAnewBeforeTheLoop();
};

void TestInterruptedDrags::escapeEndsTheDrag()
{
    const QPoint over = positionIn(m_view->item("any"));
    support::Gesture gesture;
    dragOver(gesture, over)
        .key(Qt::Key_Escape)
        .until([this] { return !m_view->find(text("any"))->property("containsDrag").toBool(); },
               "the drag to leave")
        .release();
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(m_view->root()->property("drops").toInt(), 0);
    nextDragWorks();
}

void TestInterruptedDrags::droppedOutside()
{
    const QPoint over = positionIn(m_view->item("any"));
    const QPoint outside = m_view->window()->position() + QPoint(0, 500);
    support::Gesture gesture;
    dragOver(gesture, over)
        .glide(over, outside)
        .until([this] { return !m_view->find(text("any"))->property("containsDrag").toBool(); },
               "the drag to leave")
        .release();
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(m_view->root()->property("drops").toInt(), 0);
    nextDragWorks();
}

void TestInterruptedDrags::rowRemovedByTheDrop()
{
    QObject *const any = m_view->find(text("any"));
    QObject *const loader = m_view->find(text("loader"));
    connect(any, SIGNAL(dropped(QQuickDropEvent *)), loader, SLOT(deleteLater()));
    // The row is destroyed while the loop runs, as it is when a model removes it.
    const QPoint over = positionIn(m_view->item("any"));
    support::Gesture gesture;
    dragOver(gesture, over).then([&] { loader->setProperty("active", false); }).release();
    QVERIFY2(gesture.run(), gesture.error());
    QTRY_VERIFY(!isActive());
    nextDragWorks();
}

void TestInterruptedDrags::sourceDestroyedDuringTheDrag()
{
    QPointer<QObject> victim = source();
    const QPoint over = positionIn(m_view->item("any"));
    support::Gesture gesture;
    dragOver(gesture, over).then([&] { delete victim.data(); }).release();
    QVERIFY2(gesture.run(), gesture.error());
    QVERIFY(!victim);
    QTRY_VERIFY(!visual());
    // The filter is removed: moves reach the window.
    QTest::mouseMove(m_view->window(), {5, 5});
}

void TestInterruptedDrags::windowDestroyedDuringTheDrag()
{
    const QPoint over = positionIn(m_view->item("any"));
    support::Gesture gesture;
    dragOver(gesture, over).then([this] { m_view->close(); }).release();
    QVERIFY2(gesture.run(), gesture.error());
    // Another window's drags work.
    loadScene();
    nextDragWorks();
}

/// The event ends with its window: it is not handed on to what is gone.
void TestInterruptedDrags::windowDestroyedByTheLeave()
{
    const QPoint over = positionIn(m_view->item("any"));
    const QPoint from = row();
    const QByteArray state = "om::controls::" + typeName() + "AttachedObject";
    support::SignalRecorder recorder;
    support::Gesture gesture;
    gesture
        .drag(
            from, over, [this] { return visual() != nullptr; }, "the visual")
        .then([&] {
            const QObjectList children = visual()->children();
            for (QObject *child : children) {
                if (child->inherits(state.constData())) {
                    recorder.watch(child, text("visual"), {text("outsideChanged")}, [this] {
                        m_view->close();
                        return QString();
                    });
                }
            }
            QDragLeaveEvent leave;
            QCoreApplication::sendEvent(m_view->window(), &leave);
        })
        .release();
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(recorder.entries().size(), 1);
    loadScene();
    nextDragWorks();
}

void TestInterruptedDrags::visualDestroyedDuringTheDrag()
{
    const QPoint over = positionIn(m_view->item("any"));
    support::Gesture gesture;
    dragOver(gesture, over)
        .hoverUntil(
            over, [this] { return visual() != nullptr; }, "the visual")
        .then([this] { delete visual(); })
        .hoverUntil(
            over, [this] { return m_watch->moves > 3; }, "more moves")
        .release();
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(m_view->root()->property("drops").toInt(), 1);
    nextDragWorks();
}

void TestInterruptedDrags::documentDestroyedDuringTheDrag()
{
    const QPoint over = positionIn(m_view->item("zone"));
    support::Gesture gesture;
    dragOver(gesture, over)
        .then([this] { delete m_view->find(text("b")); })
        .hoverUntil(
            over, [this] { return m_watch->moves > 3; }, "more moves")
        .release();
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(support::evaluate(source(), text("dragDocuments.length")).toInt(), 2);
    QTRY_VERIFY(!isActive());
    nextDragWorks();
}

void TestInterruptedDrags::receivingZoneDestroyedDuringTheDrag()
{
    const QPoint over = positionIn(m_view->item("zone"));
    support::Gesture gesture;
    dragOver(gesture, over).then([this] { delete m_view->find(text("zone")); }).release();
    QVERIFY2(gesture.run(), gesture.error());
    QTRY_VERIFY(!isActive());
    nextDragWorks();
}

void TestInterruptedDrags::documentsChangedDuringTheDrag()
{
    const QPoint over = positionIn(m_view->item("any"));
    support::Gesture gesture;
    dragOver(gesture, over)
        .then([this] { support::evaluate(source(), text("dragDocuments = []")); })
        .release();
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(m_view->root()->property("drops").toInt(), 1);
    QTRY_VERIFY(!isActive());
    support::evaluate(source(), text("dragDocuments = [a, b]"));
    nextDragWorks();
}

void TestInterruptedDrags::sourceMovedToAnotherWindow()
{
    QQuickWindow other;
    other.setGeometry(700, 100, 200, 200);
    other.show();
    QVERIFY(QTest::qWaitForWindowExposed(&other));
    auto *const item = m_view->item("source");
    QQuickItem *const home = item->parentItem();
    const QPoint over = positionIn(m_view->item("any"));
    support::Gesture gesture;
    dragOver(gesture, over).then([&] { item->setParentItem(other.contentItem()); }).release();
    QVERIFY2(gesture.run(), gesture.error());
    QTRY_VERIFY(!visual());
    item->setParentItem(home);
    other.close();
    nextDragWorks();
}

void TestInterruptedDrags::windowDeactivatedDuringTheDrag()
{
    QQuickWindow other;
    other.setGeometry(700, 100, 200, 200);
    const QPoint over = positionIn(m_view->item("any"));
    support::Gesture gesture;
    dragOver(gesture, over)
        .then([&] {
            other.show();
            other.requestActivate();
        })
        .until([&] { return other.isActive(); }, "the other window to be active")
        .hoverUntil(
            over, [this] { return m_watch->moves > 3; }, "more moves")
        .release();
    QVERIFY2(gesture.run(), gesture.error());
    // The drag goes on, and the drop arrives.
    QTRY_COMPARE(m_view->root()->property("drops").toInt(), 1);
    QTRY_VERIFY(!visual());
    other.close();
    nextDragWorks();
}

void TestInterruptedDrags::focusLostDuringTheDrag()
{
    auto *const rowItem = m_view->item("row");
    rowItem->forceActiveFocus();
    const QPoint over = positionIn(m_view->item("any"));
    support::Gesture gesture;
    dragOver(gesture, over)
        .then([this] { m_view->item("any")->forceActiveFocus(); })
        .until([&] { return !rowItem->hasActiveFocus(); }, "the row to lose the focus")
        .hoverUntil(
            over, [this] { return m_watch->moves > 3; }, "more moves")
        .release();
    QVERIFY2(gesture.run(), gesture.error());
    QTRY_COMPARE(m_view->root()->property("drops").toInt(), 1);
    nextDragWorks();
}

void TestInterruptedDrags::otherButtonDuringTheDrag()
{
    support::SignalRecorder recorder;
    recorder.watch(source(), text("source"), {text("dragActiveChanged")},
                   [this] { return isActive() ? text("on") : text("off"); });
    const QPoint over = positionIn(m_view->item("any"));
    support::Gesture gesture;
    dragOver(gesture, over)
        .press(Qt::RightButton)
        .release(Qt::RightButton)
        .until([] { return !QGuiApplication::mouseButtons(); }, "the buttons to be up")
        .release();
    // The platform's loop ends at the first button that goes up, whichever it is.
    gesture.run();
    QTRY_VERIFY(!visual());
    nextDragWorks();
    const QStringList signalsSeen = recorder.take();
    QCOMPARE(signalsSeen.count(text("source.dragActiveChanged [on]")), 2);
    QCOMPARE(signalsSeen.last(), text("source.dragActiveChanged [off]"));
}

void TestInterruptedDrags::touchDuringTheDrag()
{
    // A finger on another row while the pointer drags.
    static QTouchDevice *const screen = QTest::createTouchDevice();
    QQuickWindow *const window = m_view->window();
    const QPoint at = m_view->item("other")->mapToScene({20, 20}).toPoint();
    const QPoint over = positionIn(m_view->item("any"));
    support::SignalRecorder recorder;
    recorder.watch(source(), text("source"), {text("dragActiveChanged")},
                   [this] { return isActive() ? text("on") : text("off"); });
    support::Gesture gesture;
    dragOver(gesture, over)
        .then([&] {
            const RecordsKept kept;
            QTest::touchEvent(window, screen).press(0, at, window);
        })
        .then([&] { QTest::touchEvent(window, screen).move(0, at + QPoint(9, 9), window); })
        .then([&] { QTest::touchEvent(window, screen).move(0, at + QPoint(19, 9), window); })
        .then([&] { QTest::touchEvent(window, screen).release(0, at + QPoint(19, 9), window); })
        .release();
    QVERIFY2(gesture.run(), gesture.error());
    // No second drag starts inside the first; the lifted finger ends the platform's loop.
    QCOMPARE(recorder.entries().count(text("source.dragActiveChanged [on]")), 1);
    QTRY_VERIFY(!visual());
    QTRY_VERIFY(!isActive());
    nextDragWorks();
}

void TestInterruptedDrags::sourceDisabledDuringTheDrag_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QByteArray>("property");
    for (const char *type : {"DragArea", "DragZone"}) {
        for (const char *property : {"enabled", "visible", "dragEnabled"}) {
            QTest::addRow("%s, %s", type, property) << QByteArray(type) << QByteArray(property);
        }
    }
}

void TestInterruptedDrags::sourceDisabledDuringTheDrag()
{
    QFETCH(QByteArray, property);
    const QPoint over = positionIn(m_view->item("any"));
    support::Gesture gesture;
    dragOver(gesture, over)
        .then([&] { source()->setProperty(property, false); })
        .hoverUntil(
            over, [this] { return m_watch->moves > 3; }, "more moves")
        .release();
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(m_view->root()->property("drops").toInt(), 1);
    // Without a release to come, the end of the loop is the end of the drag.
    QTRY_VERIFY(!isActive());
    QTRY_VERIFY(!visual());
    source()->setProperty(property, true);
    nextDragWorks();
}

void TestInterruptedDrags::sourceDestroyedInsideASignal_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QByteArray>("sender");
    QTest::addColumn<QByteArray>("signal");
    // While the window or the platform handles an event of the source, the source may only be
    // deleted later, as QML's destroy() does.
    QTest::addColumn<bool>("inAnEvent");
    for (const char *type : {"DragArea", "DragZone"}) {
        const auto row = [type](const char *sender, const char *signal, bool inAnEvent = false) {
            QTest::addRow("%s, %s of the %s", type, signal, sender)
                << QByteArray(type) << QByteArray(sender) << QByteArray(signal) << inAnEvent;
        };
        row("source", "dragActiveChanged", true);
        row("source", "dragDocumentsChanged");
        row("source", "dragDelegateChanged");
        row("source", "dragEnabledChanged");
        row("visual", "xChanged", true);
        row("visual", "outsideChanged", true);
        row("visual", "droppedChanged");
        row("any", "containsDragChanged", true);
        row("any", "entered", true);
        row("any", "dropped", true);
    }
}

void TestInterruptedDrags::sourceDestroyedInsideASignal()
{
    QFETCH(QByteArray, sender);
    QFETCH(QByteArray, signal);
    QFETCH(bool, inAnEvent);
    QPointer<QObject> victim = source();
    support::SignalRecorder recorder;
    const auto watch = [&](QObject *object) {
        recorder.watch(object, text("it"), {QString::fromLatin1(signal)}, [&] {
            if (victim && inAnEvent) {
                victim->deleteLater();
            } else {
                delete victim.data();
            }
            return QString();
        });
    };
    victim->setProperty("state", text("delayed"));
    if (signal == "dragActiveChanged") {
        // No visual is made: the engine would warn at its end about an abandoned incubation.
        victim->setProperty("dragDelegate", QVariant::fromValue<QQmlComponent *>(nullptr));
    }
    const QPoint over = positionIn(m_view->item("any"));
    const QPoint outside = m_view->window()->position() + QPoint(0, 500);
    const QPoint from = row();
    if (sender != "visual") {
        watch(m_view->find(QString::fromLatin1(sender)));
    }
    support::Gesture gesture;
    gesture
        .drag(
            from, over, [&] { return !victim || visual(); }, "the visual, or the end")
        .then([&] {
            if (victim && sender == "visual") {
                watch(visual());
            }
        })
        .glide(over, outside)
        .until([&] { return !victim || visual()->property("outside").toBool(); },
               "the visual to be outside, or the end")
        .glide(outside, over)
        .hoverUntil(
            over, [&] { return !victim || !visual()->property("outside").toBool(); },
            "the visual to be inside again, or the end")
        .then([&] {
            if (victim) {
                victim->setProperty("dragDelegate", QVariant::fromValue<QQmlComponent *>(nullptr));
            }
            if (victim) {
                delete m_view->find(text("c"));
            }
            if (victim) {
                victim->setProperty("dragEnabled", false);
            }
        })
        .release();
    QVERIFY2(gesture.run(), gesture.error());
    QTRY_VERIFY(!victim);
    QVERIFY(!recorder.entries().isEmpty());
    if (visual()) {
        // The visual has set delayRemove, so it outlives its source.
        QMetaObject::invokeMethod(visual(), "letGo");
    }
    QTRY_VERIFY(!visual());
    QTest::mouseMove(m_view->window(), {5, 5});
}

void TestInterruptedDrags::documentDestroyedByTheLastLeave()
{
    // A source that is destroyed ends its drag, and the end is told to the application.
    QPointer<QObject> victim = source();
    QPointer<QObject> document = m_view->find(text("c"));
    QObject *const any = m_view->find(text("any"));
    QList<int> counts;
    support::SignalRecorder recorder;
    recorder.watch(any, text("any"), {text("containsDragChanged")}, [&] {
        if (any->property("containsDrag").toBool() || !victim) {
            return QString();
        }
        QQmlListReference documents(victim, "dragDocuments", m_view->engine());
        counts.append(documents.count());
        delete document.data();
        counts.append(documents.count());
        documents.clear();
        counts.append(documents.count());
        return victim->property("dragActive").toBool() ? text("active") : text("not active");
    });
    const QPoint over = positionIn(m_view->item("any"));
    support::Gesture gesture;
    dragOver(gesture, over)
        .hoverUntil(
            over, [&] { return any->property("containsDrag").toBool(); }, "the area to be entered")
        .then([&] { delete victim.data(); })
        .release();
    QVERIFY2(gesture.run(), gesture.error());
    QVERIFY(!victim);
    QVERIFY(!document);
    QCOMPARE(counts, (QList<int>{3, 2, 0}));
    QTRY_VERIFY(!visual());
}

void TestInterruptedDrags::startedAnewBeforeTheLoop_data()
{
    QTest::addColumn<int>("starts");
    for (const char *type : {"DragArea", "DragZone"}) {
        for (int starts : {2, 3}) {
            QTest::addRow("%s, %d starts", type, starts) << starts;
        }
    }
}

void TestInterruptedDrags::startedAnewBeforeTheLoop()
{
    QFETCH(int, starts);
    support::SignalRecorder recorder;
    recorder.watch(source(), text("source"), {text("dragActiveChanged")},
                   [this] { return isActive() ? text("on") : text("off"); });
    QQuickItem *const rowItem = m_view->item("row");
    const auto send = [this, rowItem](QEvent::Type type, qreal x, Qt::MouseButtons held) {
        const QPointF at = rowItem->mapToScene({x, 20});
        const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, at, at, m_view->window()->mapToGlobal(at.toPoint()), button, held,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(m_view->window(), &event);
    };
    QStringList expected;
    for (int i = 0; i < starts; ++i) {
        expected += {text("source.dragActiveChanged [on]"), text("source.dragActiveChanged [off]")};
    }
    const QPoint from = row();
    const QPoint over = positionIn(m_view->item("any"));
    bool activeAtTheEnd = false;
    support::Gesture gesture;
    gesture.move(from)
        .press()
        .until([rowItem] { return rowItem->property("pressed").toBool(); }, "the press")
        .then([&] {
            // All these events come before the event loop runs the drag.
            send(QEvent::MouseMove, 40, Qt::LeftButton);
            for (int i = 1; i < starts; ++i) {
                send(QEvent::MouseButtonRelease, 40, Qt::NoButton);
                send(QEvent::MouseButtonPress, 20, Qt::LeftButton);
                send(QEvent::MouseMove, 40 + i, Qt::LeftButton);
            }
        })
        .glide(from, over)
        .hoverUntil(
            over, [this] { return m_view->find(text("any"))->property("containsDrag").toBool(); },
            "the area to be entered")
        .hoverUntil(
            over, [this] { return m_watch->moves > 4; }, "more moves")
        .then([&] { activeAtTheEnd = isActive(); })
        .release();
    QVERIFY2(gesture.run(), gesture.error());
    QVERIFY2(activeAtTheEnd, "the drag goes on until its drop");
    QCOMPARE(m_view->root()->property("drops").toInt(), 1);
    QTRY_VERIFY(!isActive());
    QCOMPARE(recorder.take(), expected);
    QTRY_VERIFY(source()->findChildren<QDrag *>().isEmpty());
    nextDragWorks();
}

QTEST_MAIN(TestInterruptedDrags)
#include "tst_interrupteddrags.moc"
