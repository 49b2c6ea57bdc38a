// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/DragWatch.h"
#include "tests/support/ForeignProgram.h"
#include "tests/support/Gesture.h"
#include "tests/support/Leftovers.h"
#include "tests/support/QmlView.h"
#include "tests/support/SignalRecorder.h"
#include "tests/support/Text.h"

#include <OmbrelDataCore/Document.h>

#include <QDropEvent>
#include <QGuiApplication>
#include <QMimeData>
#include <QQmlContext>
#include <QTest>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

using om::data::Document;
using support::positionIn;

namespace {

using support::text;

/// While it lives, what is allocated may stay: Qt Quick keeps a record of each touch screen for as
/// long as the process lives.
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

const char *const scene = R"(
import ombrel.data.Core 1.0
Item {
    width: 420; height: 300
    property int drops: 0
    property var lastSource: null
    property var lastDocuments: []
    property bool dataUndefined: false
    Document { id: a; objectName: "a"; documentId: "a"; types: ["image"] }
    Document { id: b; objectName: "b";  types: ["text"] }
    Document { id: c; objectName: "c"; types: ["text", "image"] }
    SOURCE {
        id: source
        objectName: "source"
        x: 10; y: 10; width: 150; height: 200
        dragDocuments: [a, b, c]
        dragDelegate: Component {
            Rectangle {
                objectName: "visual"
                width: 40; height: 20
                property bool outside: SOURCE.isOutside
                property bool dropped: SOURCE.isDropped
                property var owner: SOURCE.OWNER
                function letGo() { SOURCE.delayRemove = false }
                Component.onCompleted: {
                    SOURCE.hotspot = Qt.point(5, 6)
                    SOURCE.delayRemove = source.state === "delayed"
                }
            }
        }
        Loader {
            objectName: "loader"
            sourceComponent: MouseArea { objectName: "row"; width: 150; height: 100 }
        }
        MouseArea { objectName: "other"; y: 100; width: 150; height: 100 }
    }
    DropArea {
        id: any
        objectName: "any"
        x: 200; y: 160; width: 200; height: 130
        onDropped: drops++
    }
    DropZone {
        objectName: "zone"
        x: 200; y: 10; width: 200; height: 140
        DocumentDropHandler {
            objectName: "handler"
            type: "text"
            onDropped: {
                drops++
                lastSource = drag.source
                dataUndefined = drag.data === undefined
                var names = []
                for (var i = 0; i < drag.source.dragDocuments.length; ++i)
                    names.push(drag.source.dragDocuments[i].objectName)
                lastDocuments = names
            }
        }
    }
}
)";

} // namespace

/// Documents dragged with the real pointer out of both sources.
class TestDocumentDrags : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

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
    void oddDelegates_data();
    void oddDelegates();
    void delegateSlowerThanTheDrag_data() { sources(); }
    void delegateSlowerThanTheDrag();
    void delayedVisualOutlivesAShortDrag_data() { sources(); }
    void delayedVisualOutlivesAShortDrag();
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

private:
    static void sources();
    QByteArray typeName() const;
    void load(const QByteArray &type);
    QObject *source() const { return m_view->find(text("source")); }
    QQuickItem *visual() const;
    bool active() const { return source()->property("dragActive").toBool(); }
    QPoint row() const { return positionIn(m_view->item("row")); }
    /// Presses on the row and moves until \a over has seen the drag.
    support::Gesture &dragOver(support::Gesture &gesture, const QPoint &over);
    /// A whole drag from the other row onto the area that takes anything.
    void nextDragWorks();

    std::unique_ptr<support::QmlView> m_view;
    std::unique_ptr<support::DragWatch> m_watch;
};

void TestDocumentDrags::sources()
{
    QTest::addColumn<QByteArray>("type");
    QTest::newRow("DragArea") << QByteArray("DragArea");
    QTest::newRow("DragZone") << QByteArray("DragZone");
}

QByteArray TestDocumentDrags::typeName() const
{
    const QByteArray function = QTest::currentTestFunction();
    if (function == "handlerRefusesAnArea") {
        return "DragArea";
    }
    return QByteArray(QTest::currentDataTag()).startsWith("DragArea") ? "DragArea" : "DragZone";
}

void TestDocumentDrags::init()
{
    load(typeName());
}

void TestDocumentDrags::load(const QByteArray &type)
{
    m_view = std::make_unique<support::QmlView>();
    QByteArray qml = scene;
    qml.replace("SOURCE.OWNER", type + (type == "DragArea" ? ".area" : ".dragZone"));
    qml.replace("SOURCE", type);
    m_view->load(qml);
    // An empty text in QML arrives as a null one.
    m_view->find(text("b"))->setProperty("documentId", QString::fromLatin1(""));
    m_view->show();
    m_watch = std::make_unique<support::DragWatch>(m_view->window(),
                                                   text("application/x-lumetra-documents"));
}

void TestDocumentDrags::cleanup()
{
    m_watch.reset();
    m_view.reset();
    QCOMPARE(support::leftovers(), QString());
}

QQuickItem *TestDocumentDrags::visual() const
{
    const auto children = m_view->window()->contentItem()->childItems();
    for (QQuickItem *child : children) {
        if (child->objectName() == text("visual")) {
            return child;
        }
    }
    return nullptr;
}

support::Gesture &TestDocumentDrags::dragOver(support::Gesture &gesture, const QPoint &over)
{
    const QPoint from = row();
    return gesture.drag(
        from, over, [this] { return m_watch->moves > 0; }, "the window to see the drag");
}

void TestDocumentDrags::nextDragWorks()
{
    QTRY_VERIFY(!visual());
    m_watch->moves = 0;
    const int drops = m_view->root()->property("drops").toInt();
    const QPoint from = positionIn(m_view->item("other"));
    const QPoint over = positionIn(m_view->item("any"));
    support::Gesture gesture;
    gesture
        .drag(
            from, over,
            [this] { return m_view->find(text("any"))->property("containsDrag").toBool(); },
            "the next drag")
        .release();
    QVERIFY2(gesture.run(), gesture.error());
    QTRY_COMPARE(m_view->root()->property("drops").toInt(), drops + 1);
    QTRY_VERIFY(!active());
    QTRY_VERIFY(!visual());
}

void TestDocumentDrags::payloadAndActions()
{
    support::Gesture gesture;
    dragOver(gesture, positionIn(m_view->item("any"))).release();
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(m_watch->formats, QStringList{text("application/x-lumetra-documents")});
    QCOMPARE(m_watch->payload.toHex(' '), QByteArray("00 00 00 02 00 61 00 00 00 00 ff ff ff ff"));
    QCOMPARE(m_watch->actions, Qt::DropActions(Qt::MoveAction));
    QTRY_VERIFY(!active());
}

void TestDocumentDrags::zoneDropsOnAHandler()
{
    support::SignalRecorder recorder;
    recorder.watch(m_view->find(text("handler")), text("handler"),
                   {text("entered"), text("dropped"), text("exited")});
    recorder.watch(source(), text("source"), {text("dragActiveChanged")},
                   [this] { return active() ? text("on") : text("off"); });
    support::Gesture gesture;
    const QPoint over = positionIn(m_view->item("zone"));
    dragOver(gesture, over)
        .hoverUntil(
            over, [this] { return m_view->item("zone")->property("containsDrag").toBool(); },
            "the zone to take the drag")
        .release();
    QVERIFY2(gesture.run(), gesture.error());
    // Over before any further mouse event.
    QVERIFY(!active());
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
    QTRY_VERIFY(!active());
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
    // Where no release arrives, an area stays active until the next gesture.
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
    QTRY_VERIFY(!active());
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

void TestDocumentDrags::escapeEndsTheDrag()
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

void TestDocumentDrags::droppedOutside()
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

void TestDocumentDrags::rowRemovedByTheDrop()
{
    QObject *const any = m_view->find(text("any"));
    QObject *const loader = m_view->find(text("loader"));
    connect(any, SIGNAL(dropped(QQuickDropEvent *)), loader, SLOT(deleteLater()));
    // The row goes while the loop is still running, as it does when a model loses it.
    const QPoint over = positionIn(m_view->item("any"));
    support::Gesture gesture;
    dragOver(gesture, over).then([&] { loader->setProperty("active", false); }).release();
    QVERIFY2(gesture.run(), gesture.error());
    QTRY_VERIFY(!active());
    nextDragWorks();
}

void TestDocumentDrags::sourceDestroyedDuringTheDrag()
{
    QPointer<QObject> doomed = source();
    const QPoint over = positionIn(m_view->item("any"));
    support::Gesture gesture;
    dragOver(gesture, over).then([&] { delete doomed.data(); }).release();
    QVERIFY2(gesture.run(), gesture.error());
    QVERIFY(!doomed);
    QTRY_VERIFY(!visual());
    // Nothing of the filter is left: moves reach the window as ever.
    QTest::mouseMove(m_view->window(), {5, 5});
}

void TestDocumentDrags::windowDestroyedDuringTheDrag()
{
    const QPoint over = positionIn(m_view->item("any"));
    support::Gesture gesture;
    dragOver(gesture, over).then([this] { m_view->close(); }).release();
    QVERIFY2(gesture.run(), gesture.error());
    // Another window's drags work.
    load(typeName());
    nextDragWorks();
}

void TestDocumentDrags::visualDestroyedDuringTheDrag()
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

void TestDocumentDrags::documentDestroyedDuringTheDrag()
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
    QTRY_VERIFY(!active());
    nextDragWorks();
}

void TestDocumentDrags::receivingZoneDestroyedDuringTheDrag()
{
    const QPoint over = positionIn(m_view->item("zone"));
    support::Gesture gesture;
    dragOver(gesture, over).then([this] { delete m_view->find(text("zone")); }).release();
    QVERIFY2(gesture.run(), gesture.error());
    QTRY_VERIFY(!active());
    nextDragWorks();
}

void TestDocumentDrags::documentsChangedDuringTheDrag()
{
    const QPoint over = positionIn(m_view->item("any"));
    support::Gesture gesture;
    dragOver(gesture, over)
        .then([this] { support::evaluate(source(), text("dragDocuments = []")); })
        .release();
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(m_view->root()->property("drops").toInt(), 1);
    QTRY_VERIFY(!active());
    support::evaluate(source(), text("dragDocuments = [a, b]"));
    nextDragWorks();
}

void TestDocumentDrags::sourceMovedToAnotherWindow()
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

void TestDocumentDrags::oddDelegates_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QByteArray>("delegate");
    for (const char *type : {"DragArea", "DragZone"}) {
        QTest::addRow("%s, a syntax error", type) << QByteArray(type) << QByteArray("Rectangle {");
        QTest::addRow("%s, an unknown type", type) << QByteArray(type) << QByteArray("Nothing {}");
        QTest::addRow("%s, not an item", type) << QByteArray(type) << QByteArray("Timer {}");
    }
}

void TestDocumentDrags::oddDelegates()
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
    // Objects by the thousand: the drag is over long before they are all made.
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
    QTRY_VERIFY(!active());
    QVERIFY(first);
    first->setObjectName(text("first"));

    // One that has no time for its own visual.
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

void TestDocumentDrags::windowDeactivatedDuringTheDrag()
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

void TestDocumentDrags::focusLostDuringTheDrag()
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

void TestDocumentDrags::otherButtonDuringTheDrag()
{
    support::SignalRecorder recorder;
    recorder.watch(source(), text("source"), {text("dragActiveChanged")},
                   [this] { return active() ? text("on") : text("off"); });
    const QPoint over = positionIn(m_view->item("any"));
    support::Gesture gesture;
    dragOver(gesture, over)
        .press(Qt::RightButton)
        .release(Qt::RightButton)
        .until([this] { return !QGuiApplication::mouseButtons(); }, "the buttons to be up")
        .release();
    // The platform's loop ends at the first button that goes up, whichever it is.
    gesture.run();
    QTRY_VERIFY(!visual());
    nextDragWorks();
    const QStringList signalsSeen = recorder.take();
    QCOMPARE(signalsSeen.count(text("source.dragActiveChanged [on]")), 2);
    QCOMPARE(signalsSeen.last(), text("source.dragActiveChanged [off]"));
}

void TestDocumentDrags::touchDuringTheDrag()
{
    // A finger on another row while the pointer drags.
    static QTouchDevice *const screen = QTest::createTouchDevice();
    QQuickWindow *const window = m_view->window();
    const QPoint at = m_view->item("other")->mapToScene({20, 20}).toPoint();
    const QPoint over = positionIn(m_view->item("any"));
    support::SignalRecorder recorder;
    recorder.watch(source(), text("source"), {text("dragActiveChanged")},
                   [this] { return active() ? text("on") : text("off"); });
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
    QTRY_VERIFY(!active());
    nextDragWorks();
}

void TestDocumentDrags::sourceDisabledDuringTheDrag_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QByteArray>("property");
    for (const char *type : {"DragArea", "DragZone"}) {
        for (const char *property : {"enabled", "visible", "dragEnabled"}) {
            QTest::addRow("%s, %s", type, property) << QByteArray(type) << QByteArray(property);
        }
    }
}

void TestDocumentDrags::sourceDisabledDuringTheDrag()
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
    QTRY_VERIFY(!active());
    QTRY_VERIFY(!visual());
    source()->setProperty(property, true);
    nextDragWorks();
}

void TestDocumentDrags::sourceDestroyedInsideASignal_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QByteArray>("sender");
    QTest::addColumn<QByteArray>("signal");
    // Where the window or the platform is in the middle of an event with the source, it can only
    // go when that is done, as QML's destroy() lets it.
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

void TestDocumentDrags::sourceDestroyedInsideASignal()
{
    QFETCH(QByteArray, sender);
    QFETCH(QByteArray, signal);
    QFETCH(bool, inAnEvent);
    QPointer<QObject> doomed = source();
    support::SignalRecorder recorder;
    const auto watch = [&](QObject *object) {
        recorder.watch(object, text("it"), {QString::fromLatin1(signal)}, [&] {
            if (doomed && inAnEvent) {
                doomed->deleteLater();
            } else {
                delete doomed.data();
            }
            return QString();
        });
    };
    doomed->setProperty("state", text("delayed"));
    if (signal == "dragActiveChanged") {
        // Before the visual: an engine complains at its end about what was abandoned half made.
        doomed->setProperty("dragDelegate", QVariant::fromValue<QQmlComponent *>(nullptr));
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
            from, over, [&] { return !doomed || visual(); }, "the visual, or the end")
        .then([&] {
            if (doomed && sender == "visual") {
                watch(visual());
            }
        })
        .glide(over, outside)
        .until([&] { return !doomed || visual()->property("outside").toBool(); },
               "the visual to be outside, or the end")
        .glide(outside, over)
        .hoverUntil(
            over, [&] { return !doomed || !visual()->property("outside").toBool(); },
            "the visual to be inside again, or the end")
        .then([&] {
            if (doomed) {
                doomed->setProperty("dragDelegate", QVariant::fromValue<QQmlComponent *>(nullptr));
            }
            if (doomed) {
                delete m_view->find(text("c"));
            }
            if (doomed) {
                doomed->setProperty("dragEnabled", false);
            }
        })
        .release();
    QVERIFY2(gesture.run(), gesture.error());
    QTRY_VERIFY(!doomed);
    QVERIFY(!recorder.entries().isEmpty());
    if (visual()) {
        // It had asked to stay, and outlives its source.
        QMetaObject::invokeMethod(visual(), "letGo");
    }
    QTRY_VERIFY(!visual());
    QTest::mouseMove(m_view->window(), {5, 5});
}

QTEST_MAIN(TestDocumentDrags)
#include "tst_documentdrags.moc"
