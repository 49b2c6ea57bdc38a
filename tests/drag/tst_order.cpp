// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/drag/HookedDocument.h"
#include "tests/support/DragEvents.h"
#include "tests/support/Gesture.h"
#include "tests/support/Leftovers.h"
#include "tests/support/ObjectCensus.h"
#include "tests/support/QmlView.h"
#include "tests/support/SignalRecorder.h"
#include "tests/support/Text.h"

#include <QChildEvent>
#include <QDrag>
#include <QFile>
#include <QQmlContext>
#include <QQmlListReference>
#include <QTest>

#include <algorithm>

using support::text;

namespace {

/// Lets QML write into a record.
class Notes : public QObject
{
    Q_OBJECT

public:
    explicit Notes(support::SignalRecorder *record)
        : m_record(record)
    {
    }
    Q_INVOKABLE void note(const QString &entry) { m_record->note(entry); }

private:
    support::SignalRecorder *const m_record;
};

/// Tells of the drags that an object gets.
class Children : public QObject
{
public:
    Children(QObject *parent, support::SignalRecorder *record)
        : m_parent(parent)
        , m_record(record)
    {
        parent->installEventFilter(this);
    }
    ~Children() override { m_parent->removeEventFilter(this); }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::ChildAdded) {
            m_record->note(QStringLiteral("drag made"));
        }
        return false;
    }

private:
    QObject *const m_parent;
    support::SignalRecorder *const m_record;
};

QStringList lines(const char *latin1)
{
    return text(latin1).split(QStringLiteral("; "));
}

/// How many objects of the library filter events; the test itself filters some, too.
int filters()
{
    const QStringList all = support::eventFilters();
    return int(std::count_if(all.cbegin(), all.cend(), [](const QString &filter) {
        return filter.startsWith(QLatin1String("om::"));
    }));
}

/// Hands events to an item's own filter of its children's.
class OpenFilter : public QQuickItem
{
public:
    static bool filter(QQuickItem *item, QQuickItem *child, QEvent *event)
    {
        return (item->*&OpenFilter::childMouseEventFilter)(child, event);
    }
};

/// The record of the test that runs, for messages.
support::SignalRecorder *told = nullptr;
QtMessageHandler previousHandler = nullptr;

void tellMessage(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (type == QtDebugMsg && told) {
        told->note(QStringLiteral("says ") + message);
    } else {
        previousHandler(type, context, message);
    }
}

} // namespace

/// The order in which the drag sources do what they do, from the press to the end, with what holds
/// in between. The drags run in the platform's own loop; their events are sent.
class TestDragOrder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void cleanup();

    void documentsAreDragged_data();
    void documentsAreDragged();
    void zoneIsReleasedInsideTheLoop();
    void propertiesChange();
    void cardIsDragged();
    void cardGetsANewParentWhileDragged();

private:
    void load(const QByteArray &type = "DragZone");
    void follow(QObject *source);
    void pressAndMove(const QPoint &at, int distance);
    QPointer<QQuickItem> visual() const;
    QObject *visualState() const;

    std::unique_ptr<support::QmlView> m_view;
    std::unique_ptr<support::SignalRecorder> m_record;
    std::unique_ptr<Notes> m_notes;
    std::unique_ptr<Children> m_children;
    std::unique_ptr<support::Gesture> m_gesture;
};

void TestDragOrder::initTestCase()
{
    previousHandler = qInstallMessageHandler(tellMessage);
}

void TestDragOrder::cleanupTestCase()
{
    qInstallMessageHandler(previousHandler);
}

void TestDragOrder::load(const QByteArray &type)
{
    QFile scene(QFINDTESTDATA("data/order.qml"));
    QVERIFY(scene.open(QIODevice::ReadOnly));
    QByteArray qml = scene.readAll();
    if (type == "DragArea") {
        qml.replace("DragZone.dragZone", "DragArea.area");
        qml.replace("DragZone", "DragArea");
    }
    m_view = std::make_unique<support::QmlView>();
    m_record = std::make_unique<support::SignalRecorder>();
    m_notes = std::make_unique<Notes>(m_record.get());
    m_view->engine()->rootContext()->setContextProperty(QStringLiteral("record"), m_notes.get());
    m_view->load(qml);
    m_view->show();
    told = m_record.get();
    m_gesture = std::make_unique<support::Gesture>();
    // Beside the window: the events of the drag are the test's.
    m_gesture->move({1200, 1000});
}

void TestDragOrder::cleanup()
{
    m_gesture.reset();
    told = nullptr;
    m_children.reset();
    m_view.reset();
    m_notes.reset();
    m_record.reset();
    QCOMPARE(support::leftovers(), QString());
}

/// Watches \a source and what it does to the window.
void TestDragOrder::follow(QObject *source)
{
    m_children = std::make_unique<Children>(source, m_record.get());
    m_record->follow(QStringLiteral("filters"), [] { return filters(); });
    m_record->follow(QStringLiteral("carries"), [source = QPointer<QObject>(source)]() -> QVariant {
        const auto *const drag = source ? source->findChild<QDrag *>() : nullptr;
        return drag && drag->mimeData() ? drag->mimeData()->formats().join(QLatin1Char(' '))
                                        : QString::fromLatin1("");
    });
}

/// Nothing but the two events: the drag begins when the event loop goes on.
void TestDragOrder::pressAndMove(const QPoint &at, int distance)
{
    const QPointF to = at + QPoint(distance, 0);
    QMouseEvent press(QEvent::MouseButtonPress, at, at, at, Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(m_view->window(), &press);
    QMouseEvent move(QEvent::MouseMove, to, to, to, Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(m_view->window(), &move);
}

QPointer<QQuickItem> TestDragOrder::visual() const
{
    return m_view->window()->contentItem()->findChild<QQuickItem *>(text("visual"));
}

/// What the source has attached to its visual.
QObject *TestDragOrder::visualState() const
{
    const auto children = visual() ? visual()->children() : QObjectList();
    for (QObject *child : children) {
        if (child->inherits("om::controls::DragZoneAttachedObject")
            || child->inherits("om::controls::DragAreaAttachedObject")) {
            return child;
        }
    }
    return nullptr;
}

void TestDragOrder::documentsAreDragged_data()
{
    QTest::addColumn<bool>("isZone");
    QTest::newRow("DragArea") << false;
    QTest::newRow("DragZone") << true;
}

/// The start is told before anything is done for it; the end after the window has been left and
/// before the visual is.
void TestDragOrder::documentsAreDragged()
{
    QFETCH(bool, isZone);
    load(isZone ? "DragZone" : "DragArea");
    QObject *const source = m_view->find(text("source"));
    HookedDocument first("a");
    HookedDocument second("b");
    QQmlListReference documents(source, "dragDocuments", m_view->engine());
    for (HookedDocument *document : {&first, &second}) {
        documents.append(document);
        document->whenAskedForId = [this, document] {
            m_record->note(QStringLiteral("asked for ") + document->Document::documentId());
        };
    }
    m_record->watch(source, QStringLiteral("source"), lines("dragActiveChanged"));
    follow(source);
    m_record->follow(source, QStringLiteral("source"), lines("dragActive"));

    support::DragEvents events(m_view->window());
    QStringList afterTheMove;
    QStringList inTheLoop;
    const auto take = [&] {
        inTheLoop += m_record->take();
        inTheLoop += QStringLiteral("-");
    };
    m_gesture->then([&] {
        pressAndMove({50, 50}, 4);
        afterTheMove = m_record->take();
    });
    m_gesture->until(
        [&] { return m_record->entries().contains(text("visual completed, of source")); },
        "the visual to be complete");
    m_gesture->then([&] {
        take();
        m_record->watch(visualState(), QStringLiteral("state"));
        m_record->follow(visualState(), QStringLiteral("state"), lines("isOutside; isDropped"));
        m_record->watch(visual(), QStringLiteral("visual"), lines("xChanged; yChanged"));
        m_record->follow(visual(), QStringLiteral("visual"), lines("x; y"));
        events.enter({100, 100});
        take();
        events.leave();
        take();
        events.enter({110, 120});
        take();
        events.move({111, 122});
        take();
        QDrag::cancel();
    });
    QVERIFY2(m_gesture->run(), m_gesture->error());

    QCOMPARE(afterTheMove,
             lines("source.dragActive = true; source.dragActiveChanged; filters = 1; drag made; "
                   "asked for a; asked for b; carries = application/x-lumetra-documents"));
    const QByteArray made = isZone ? "visual.parent; visual.z = 65535; visual completed, of source"
                                   : "visual.parent; visual completed, of source";
    QCOMPARE(inTheLoop,
             lines(made
                   + "; -; visual.x = 95; visual.y = 94; visual.xChanged; visual.yChanged; -; "
                     "state.isOutside = true; state.outsideChanged; -; "
                     "state.isOutside = false; state.outsideChanged; visual.x = 105; "
                     "visual.y = 114; visual.xChanged; visual.yChanged; -; "
                     "visual.x = 106; visual.y = 116; visual.xChanged; visual.yChanged; -"));

    QStringList end = m_record->take();
    end.removeAll(text("carries = "));
    if (!isZone) {
        // An area waits for the release.
        QCOMPARE(end, QStringList());
        QTest::mouseRelease(m_view->window(), Qt::LeftButton, {}, {54, 50});
        end = m_record->take();
        end.removeAll(text("carries = "));
    }
    QCOMPARE(end,
             lines("filters = 0; source.dragActive = false; source.dragActiveChanged; "
                   "state.isDropped = true; state.droppedChanged"));
    QVERIFY2(visual(), "a visual that asked for delayed removal goes when that changes");
    visualState()->setProperty("delayRemove", false);
    QTRY_VERIFY(!visual());
}

/// The end is the same, after a word of it. A drag that is over is none that its loop ends once
/// more.
void TestDragOrder::zoneIsReleasedInsideTheLoop()
{
    load();
    QQuickItem *const zone = m_view->item("source");
    HookedDocument document("a");
    QQmlListReference(zone, "dragDocuments", m_view->engine()).append(&document);
    m_record->watch(zone, QStringLiteral("source"), lines("dragActiveChanged"));
    m_record->follow(QStringLiteral("filters"), [] { return filters(); });
    m_record->follow(zone, QStringLiteral("source"), lines("dragActive"));
    QStringList end;
    m_gesture->then([this] { pressAndMove({50, 50}, 4); });
    m_gesture->until([this] { return visualState(); }, "the visual to be complete");
    m_gesture->then([&] {
        m_record->watch(visualState(), QStringLiteral("state"));
        m_record->follow(visualState(), QStringLiteral("state"), lines("isDropped"));
        m_record->take();
        QMouseEvent release(QEvent::MouseButtonRelease, {54, 50}, Qt::LeftButton, {}, {});
        OpenFilter::filter(zone, zone->childItems().constFirst(), &release);
        end = m_record->take();
        QDrag::cancel();
    });
    QVERIFY2(m_gesture->run(), m_gesture->error());
    QCOMPARE(end,
             lines("says discard; filters = 0; source.dragActive = false; "
                   "source.dragActiveChanged; state.isDropped = true; state.droppedChanged"));
    QCOMPARE(m_record->take(), QStringList());
}

/// What has changed is written before it is told.
void TestDragOrder::propertiesChange()
{
    load();
    QObject *const zone = m_view->find(text("source"));
    HookedDocument document("a");
    QQmlListReference documents(zone, "dragDocuments", m_view->engine());
    m_record->watch(zone, QStringLiteral("source"),
                    lines("dragEnabledChanged; dragDocumentsChanged; dragDelegateChanged"));
    m_record->follow(zone, QStringLiteral("source"), lines("dragEnabled; dragDelegate"));
    m_record->follow(QStringLiteral("documents"), [&documents] { return documents.count(); });
    documents.append(&document);
    documents.clear();
    zone->setProperty("dragEnabled", false);
    zone->setProperty("dragDelegate", QVariant::fromValue<QQmlComponent *>(nullptr));
    QCOMPARE(m_record->take(),
             lines("documents = 1; source.dragDocumentsChanged; "
                   "documents = 0; source.dragDocumentsChanged; "
                   "source.dragEnabled = false; source.dragEnabledChanged; "
                   "source.dragDelegate = null; source.dragDelegateChanged"));
}

/// Lifted with the move, dragged from the event loop on; lowered before the end is told.
void TestDragOrder::cardIsDragged()
{
    load();
    QQuickItem *const card = m_view->item("card");
    m_record->watch(card, QStringLiteral("card"),
                    lines("isDraggedChanged; dragStarted; dragEnded; zChanged; xChanged; "
                          "yChanged"));
    follow(card);
    m_record->follow(card, QStringLiteral("card"), lines("isDragged; z; x; y"));
    support::DragEvents events(m_view->window());
    QStringList afterTheMove;
    QStringList inTheLoop;
    m_gesture->then([&] {
        pressAndMove({30, 170}, 6);
        afterTheMove = m_record->take();
    });
    m_gesture->until([&] { return m_record->entries().contains(text("drag made")); }, "the drag");
    m_gesture->then([&] {
        inTheLoop = m_record->take();
        events.enter({100, 100});
        events.move({130, 180});
        inTheLoop += m_record->take();
        events.leave();
        inTheLoop += m_record->take();
        QDrag::cancel();
    });
    QVERIFY2(m_gesture->run(), m_gesture->error());
    QCOMPARE(afterTheMove, lines("card.z = 3.4028234663852886e+38; card.zChanged"));
    QCOMPARE(inTheLoop,
             lines("card.isDragged = true; card.isDraggedChanged; card.dragStarted; filters = 1; "
                   "drag made; carries = application/x-lumetra-draggable; "
                   "card.x = 110; card.y = 160; card.xChanged; card.yChanged"));
    QStringList end = m_record->take();
    end.removeAll(text("carries = "));
    QCOMPARE(end,
             lines("filters = 0; card.z = 3; card.zChanged; card.isDragged = false; "
                   "card.isDraggedChanged; card.dragEnded"));
}

/// The new parent owns the card before the card finds its place and its size there, which it has
/// when the parent's change is told.
void TestDragOrder::cardGetsANewParentWhileDragged()
{
    load();
    QQuickItem *const card = m_view->item("card");
    QQuickItem *const other = m_view->item("other");
    m_record->watch(card, QStringLiteral("card"),
                    lines("parentChanged; xChanged; yChanged; scaleChanged"));
    m_record->follow(QStringLiteral("owner"),
                     [card] { return QVariant::fromValue(card->parent()); });
    m_record->follow(card, QStringLiteral("card"), lines("x; y; scale"));
    QStringList inTheLoop;
    m_gesture->then([&] { pressAndMove({30, 170}, 6); });
    m_gesture->until([&] { return card->property("isDragged").toBool(); }, "the drag");
    m_gesture->then([&] {
        m_record->take();
        card->setParentItem(other);
        inTheLoop = m_record->take();
        QDrag::cancel();
    });
    QVERIFY2(m_gesture->run(), m_gesture->error());
    QCOMPARE(inTheLoop,
             lines("owner = other; card.x = -95; card.y = 75; card.xChanged; card.yChanged; "
                   "card.scale = 0.5; card.scaleChanged; card.parentChanged"));
}

QTEST_MAIN(TestDragOrder)
#include "tst_order.moc"
