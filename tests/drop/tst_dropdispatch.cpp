// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/drop/RecordingHandler.h"
#include "tests/support/Leftovers.h"
#include "tests/support/Pointer.h"

#include <QDrag>
#include <QDragMoveEvent>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>

using namespace om::controls;

/// The dispatch of drags to handlers, event by event.
class TestDropDispatch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(support::leftovers(), QString()); }
    void init() { happened.clear(); }

    void firstTakerGetsTheDrag();
    void refusedDragIsIgnored();
    void refusedDragLeavesContainsDragAlone();
    void zoneWithoutHandlersIgnoresEveryDrag();
    void sourceReachesAllHandlersBeforeAnyIsAsked();
    void acceptedBeforeContainsDragChanges();
    void containsDragChangesBeforeDropDataIsFilled();
    void dropDataIsFilledWhenEntered();
    void oneDropDataForEveryDrag();
    void moveGivesThePosition();
    void moveIsAcceptedAfterItsSignal();
    void moveWithoutActiveHandlerIsLeftAlone();
    void leaveEndsTheDrag();
    void leaveKeepsDataAndSource();
    void sourcesAreForgottenBeforeExited();
    void leaveWithoutActiveHandlerIsSilent();
    void dropEndsTheDrag();
    void sourcesAreThereWhenDropped();
    void dropGoesThroughTheHandlersOperation();
    void dropWithoutActiveHandlerEmitsContainsDragChanged();
    void dropLeavesTheAcceptanceAsDelivered_data();
    void dropLeavesTheAcceptanceAsDelivered();
    void clearDuringADragWarnsAndIsSilent();
    void appendDuringADragNeitherWarnsNorAsks();
    void enteredTwice();
    void enteredTwiceAndRefused();
    void leftTwice();
    void dragFromAnotherProcessHasNoSource();
};

void TestDropDispatch::firstTakerGetsTheDrag()
{
    RecordingHandler a("a", false), b("b"), c("c");
    DropZone zone;
    append(&zone, &a);
    append(&zone, &b);
    append(&zone, &c);
    watch(&zone);
    support::DragEvents drag(&zone);
    QVERIFY(drag.enter());
    QVERIFY(zone.containsDrag());
    drag.move();
    drag.leave();
    QVERIFY(drag.enter());
    drag.drop();
    QCOMPARE(a.asked, drag.mimeData());
    QCOMPARE(b.asked, drag.mimeData());
    QVERIFY(!c.asked);
    QCOMPARE(takeHappened(),
             words("a.canHandle b.canHandle containsDragChanged b.dropData b.entered "
                   "b.positionChanged b.exited containsDragChanged "
                   "a.canHandle b.canHandle containsDragChanged b.dropData b.entered "
                   "b.dropped containsDragChanged"));
}

void TestDropDispatch::refusedDragIsIgnored()
{
    RecordingHandler a("a", false), b("b", false);
    DropZone zone;
    append(&zone, &a);
    append(&zone, &b);
    watch(&zone);
    support::DragEvents drag(&zone);
    QVERIFY(!drag.enter());
    QVERIFY(!zone.containsDrag());
    QVERIFY(!drag.move());
    drag.leave();
    QCOMPARE(takeHappened(), words("a.canHandle b.canHandle"));
}

void TestDropDispatch::refusedDragLeavesContainsDragAlone()
{
    RecordingHandler a("a", false);
    DropZone zone;
    append(&zone, &a);
    QSignalSpy changed(&zone, &DropZone::containsDragChanged);
    support::DragEvents drag(&zone);
    drag.enter();
    drag.leave();
    QCOMPARE(changed.count(), 0);
    QCOMPARE(dataOf(&zone)->position(), QPointF(0, 0));
    QVERIFY(!dataOf(&zone)->data().isValid());
}

void TestDropDispatch::zoneWithoutHandlersIgnoresEveryDrag()
{
    DropZone zone;
    watch(&zone);
    support::DragEvents drag(&zone);
    drag.setUrls({QUrl(QStringLiteral("file:///a"))});
    QVERIFY(!drag.enter());
    QVERIFY(!drag.move());
    drag.leave();
    QCOMPARE(takeHappened(), QStringList());
}

void TestDropDispatch::sourceReachesAllHandlersBeforeAnyIsAsked()
{
    support::Pointer parked;
    RecordingHandler a("a", false), b("b"), c("c");
    DropZone zone;
    append(&zone, &a);
    append(&zone, &b);
    append(&zone, &c);
    QObject source;
    QList<QObject *> seen;
    a.whenAsked = [&] { seen << a.dragSource() << b.dragSource() << c.dragSource(); };
    support::withDragFrom(&source, [&](QDrag *) {
        support::DragEvents drag(&zone);
        drag.enter();
        drag.leave();
    });
    QCOMPARE(seen, (QList<QObject *>{&source, &source, &source}));
}

void TestDropDispatch::acceptedBeforeContainsDragChanges()
{
    RecordingHandler a("a");
    DropZone zone;
    append(&zone, &a);
    QMimeData mimeData;
    QDragEnterEvent event({1, 2}, Qt::CopyAction, &mimeData, Qt::LeftButton, Qt::NoModifier);
    event.ignore();
    bool accepted = false;
    bool contained = false;
    connect(&zone, &DropZone::containsDragChanged, [&] {
        accepted = event.isAccepted();
        contained = zone.containsDrag();
    });
    QCoreApplication::sendEvent(&zone, &event);
    QVERIFY(accepted);
    QVERIFY(contained);
}

void TestDropDispatch::containsDragChangesBeforeDropDataIsFilled()
{
    support::Pointer parked;
    RecordingHandler a("a");
    DropZone zone;
    append(&zone, &a);
    QObject source;
    support::DragEvents drag(&zone);
    a.payload = QStringLiteral("first");
    drag.enter({1, 1});
    drag.drop({5, 6});

    a.payload = QStringLiteral("second");
    QVariantList held;
    connect(&zone, &DropZone::containsDragChanged, [&] {
        const DropData *data = dataOf(&zone);
        held << data->data() << data->position() << QVariant::fromValue(data->source());
    });
    support::withDragFrom(&source, [&](QDrag *) { drag.enter({7, 8}); });
    QCOMPARE(held,
             (QVariantList{QStringLiteral("first"), QPointF(5, 6),
                           QVariant::fromValue<QObject *>(nullptr)}));
    QCOMPARE(dataOf(&zone)->data(), QVariant(QStringLiteral("second")));
    QCOMPARE(dataOf(&zone)->position(), QPointF(7, 8));
    QCOMPARE(dataOf(&zone)->source(), &source);
}

void TestDropDispatch::dropDataIsFilledWhenEntered()
{
    support::Pointer parked;
    RecordingHandler a("a");
    DropZone zone;
    append(&zone, &a);
    QObject source;
    QVariantList held;
    connect(&a, &DropHandler::entered, [&](DropData *data) {
        held << data->data() << data->position() << QVariant::fromValue(data->source());
        QCOMPARE(data, dataOf(&zone));
        QVERIFY(zone.containsDrag());
    });
    support::withDragFrom(&source, [&](QDrag *) {
        support::DragEvents drag(&zone);
        drag.enter({7, 8});
    });
    QCOMPARE(held, (QVariantList{1, QPointF(7, 8), QVariant::fromValue(&source)}));
}

void TestDropDispatch::oneDropDataForEveryDrag()
{
    RecordingHandler a("a");
    DropZone zone;
    append(&zone, &a);
    QSet<DropData *> datas;
    const auto note = [&datas](DropData *data) { datas.insert(data); };
    connect(&a, &DropHandler::entered, note);
    connect(&a, &DropHandler::positionChanged, note);
    connect(&a, &DropHandler::exited, note);
    connect(&a, &DropHandler::dropped, note);
    support::DragEvents drag(&zone);
    drag.enter();
    drag.move();
    drag.leave();
    drag.enter();
    drag.drop();
    QCOMPARE(datas, QSet<DropData *>{dataOf(&zone)});
}

void TestDropDispatch::moveGivesThePosition()
{
    RecordingHandler a("a");
    DropZone zone;
    append(&zone, &a);
    support::DragEvents drag(&zone);
    drag.enter({1, 1});
    takeHappened();
    QPointF position;
    connect(&a, &DropHandler::positionChanged,
            [&position](DropData *data) { position = data->position(); });
    a.payload = 2;
    drag.move({30, 40});
    QCOMPARE(position, QPointF(30, 40));
    // The handler is not asked again for a move.
    QCOMPARE(takeHappened(), words("a.positionChanged"));
    QCOMPARE(dataOf(&zone)->data(), QVariant(1));
}

void TestDropDispatch::moveIsAcceptedAfterItsSignal()
{
    RecordingHandler a("a");
    DropZone zone;
    append(&zone, &a);
    support::DragEvents drag(&zone);
    drag.enter();
    QMimeData mimeData;
    QDragMoveEvent event({1, 2}, Qt::CopyAction, &mimeData, Qt::LeftButton, Qt::NoModifier);
    event.ignore();
    bool during = true;
    connect(&a, &DropHandler::positionChanged, [&] { during = event.isAccepted(); });
    QCoreApplication::sendEvent(&zone, &event);
    QVERIFY(!during);
    QVERIFY(event.isAccepted());
}

void TestDropDispatch::moveWithoutActiveHandlerIsLeftAlone()
{
    RecordingHandler a("a", false);
    DropZone zone;
    append(&zone, &a);
    watch(&zone);
    support::DragEvents drag(&zone);
    drag.enter();
    takeHappened();
    QVERIFY(!drag.move({5, 5}, false));
    QVERIFY(drag.move({6, 6}, true));
    QCOMPARE(dataOf(&zone)->position(), QPointF(0, 0));
    QCOMPARE(takeHappened(), QStringList());
}

void TestDropDispatch::leaveEndsTheDrag()
{
    RecordingHandler a("a");
    DropZone zone;
    append(&zone, &a);
    watch(&zone);
    support::DragEvents drag(&zone);
    drag.enter({3, 4});
    takeHappened();
    bool contained = false;
    QPointF position(1, 1);
    connect(&a, &DropHandler::exited, [&](DropData *data) {
        contained = zone.containsDrag();
        position = data->position();
    });
    bool containedAfter = true;
    connect(&zone, &DropZone::containsDragChanged, [&] { containedAfter = zone.containsDrag(); });
    drag.leave();
    QCOMPARE(takeHappened(), words("a.exited containsDragChanged"));
    QVERIFY(contained);
    QCOMPARE(position, QPointF(0, 0));
    QVERIFY(!containedAfter);
    drag.move();
    drag.leave();
    QCOMPARE(takeHappened(), QStringList());
}

void TestDropDispatch::leaveKeepsDataAndSource()
{
    support::Pointer parked;
    RecordingHandler a("a");
    DropZone zone;
    append(&zone, &a);
    QObject source;
    support::withDragFrom(&source, [&](QDrag *) {
        support::DragEvents drag(&zone);
        drag.enter({3, 4});
        drag.leave();
    });
    QCOMPARE(dataOf(&zone)->data(), QVariant(1));
    QCOMPARE(dataOf(&zone)->source(), &source);
    QCOMPARE(dataOf(&zone)->position(), QPointF(0, 0));
}

void TestDropDispatch::sourcesAreForgottenBeforeExited()
{
    support::Pointer parked;
    RecordingHandler a("a"), b("b");
    DropZone zone;
    append(&zone, &a);
    append(&zone, &b);
    QObject source;
    QList<QObject *> seen;
    connect(&a, &DropHandler::exited, [&] { seen << a.dragSource() << b.dragSource(); });
    support::withDragFrom(&source, [&](QDrag *) {
        support::DragEvents drag(&zone);
        drag.enter();
        seen << a.dragSource() << b.dragSource();
        drag.leave();
    });
    QCOMPARE(seen, (QList<QObject *>{&source, &source, nullptr, nullptr}));
}

void TestDropDispatch::leaveWithoutActiveHandlerIsSilent()
{
    support::Pointer parked;
    RecordingHandler a("a", false);
    DropZone zone;
    append(&zone, &a);
    watch(&zone);
    QObject source;
    support::withDragFrom(&source, [&](QDrag *) {
        support::DragEvents drag(&zone);
        drag.enter();
        QCOMPARE(a.dragSource(), &source);
        drag.leave();
        QCOMPARE(a.dragSource(), nullptr);
    });
    QCOMPARE(takeHappened(), words("a.canHandle"));
}

void TestDropDispatch::dropEndsTheDrag()
{
    RecordingHandler a("a");
    DropZone zone;
    append(&zone, &a);
    watch(&zone);
    support::DragEvents drag(&zone);
    drag.enter();
    takeHappened();
    QPointF position;
    bool contained = false;
    connect(&a, &DropHandler::dropped, [&](DropData *data) {
        position = data->position();
        contained = zone.containsDrag();
    });
    drag.drop({20.5, 21.25});
    QCOMPARE(takeHappened(), words("a.dropped containsDragChanged"));
    QCOMPARE(position, QPointF(20.5, 21.25));
    QVERIFY(contained);
    QVERIFY(!zone.containsDrag());
    // A drop leaves the position as it is; only a leave resets it.
    QCOMPARE(dataOf(&zone)->position(), QPointF(20.5, 21.25));
    QCOMPARE(dataOf(&zone)->data(), QVariant(1));
}

void TestDropDispatch::sourcesAreThereWhenDropped()
{
    support::Pointer parked;
    RecordingHandler a("a"), b("b");
    DropZone zone;
    append(&zone, &a);
    append(&zone, &b);
    QObject source;
    QList<QObject *> seen;
    const auto note = [&] { seen << a.dragSource() << b.dragSource(); };
    support::withDragFrom(&source, [&](QDrag *) {
        support::DragEvents drag(&zone);
        drag.enter();
        connect(&a, &DropHandler::dropped, note);
        connect(&zone, &DropZone::containsDragChanged, note);
        drag.drop();
    });
    QCOMPARE(seen, (QList<QObject *>{&source, &source, nullptr, nullptr}));
}

void TestDropDispatch::dropGoesThroughTheHandlersOperation()
{
    class Quiet : public RecordingHandler
    {
    public:
        Quiet()
            : RecordingHandler("quiet")
        {
        }
        void drop(DropData *data) override { given = data; }
        DropData *given = nullptr;
    };
    DropZone zone;
    Quiet quiet;
    append(&zone, &quiet);
    watch(&zone);
    support::DragEvents drag(&zone);
    drag.enter();
    takeHappened();
    drag.drop();
    QCOMPARE(quiet.given, dataOf(&zone));
    QCOMPARE(takeHappened(), words("containsDragChanged"));
}

void TestDropDispatch::dropWithoutActiveHandlerEmitsContainsDragChanged()
{
    RecordingHandler a("a", false);
    DropZone zone;
    append(&zone, &a);
    watch(&zone);
    QObject source;
    a.setDragSource(&source);
    takeHappened();
    support::DragEvents drag(&zone);
    drag.drop({9, 9});
    QCOMPARE(takeHappened(), words("containsDragChanged"));
    QCOMPARE(a.dragSource(), nullptr);
    QCOMPARE(dataOf(&zone)->position(), QPointF(0, 0));
    QVERIFY(!zone.containsDrag());
}

void TestDropDispatch::dropLeavesTheAcceptanceAsDelivered_data()
{
    QTest::addColumn<bool>("active");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("active handler, accepted") << true << true;
    QTest::newRow("active handler, ignored") << true << false;
    QTest::newRow("no active handler, accepted") << false << true;
    QTest::newRow("no active handler, ignored") << false << false;
}

void TestDropDispatch::dropLeavesTheAcceptanceAsDelivered()
{
    QFETCH(bool, active);
    QFETCH(bool, accepted);
    RecordingHandler a("a", active);
    DropZone zone;
    append(&zone, &a);
    support::DragEvents drag(&zone);
    drag.enter();
    QCOMPARE(zone.containsDrag(), active);
    QCOMPARE(drag.drop({1, 1}, accepted), accepted);
}

void TestDropDispatch::clearDuringADragWarnsAndIsSilent()
{
    RecordingHandler a("a");
    DropZone zone;
    append(&zone, &a);
    watch(&zone);
    support::DragEvents drag(&zone);
    drag.enter();
    takeHappened();
    QTest::ignoreMessage(QtWarningMsg, "Drop handlers changed during drag operation");
    clear(&zone);
    QCOMPARE(takeHappened(), words("dropHandlersChanged"));
    QVERIFY(!zone.containsDrag());
    QVERIFY(!drag.move());
    drag.leave();
    QCOMPARE(takeHappened(), QStringList());
}

void TestDropDispatch::appendDuringADragNeitherWarnsNorAsks()
{
    support::Pointer parked;
    RecordingHandler a("a"), b("b");
    DropZone zone;
    append(&zone, &a);
    watch(&zone);
    QObject source;
    support::withDragFrom(&source, [&](QDrag *) {
        support::DragEvents drag(&zone);
        drag.enter();
        takeHappened();
        append(&zone, &b);
        QCOMPARE(b.dragSource(), nullptr);
        QVERIFY(zone.containsDrag());
        drag.move();
        drag.drop();
    });
    QCOMPARE(takeHappened(),
             words("dropHandlersChanged a.positionChanged a.dropped containsDragChanged"));
}

void TestDropDispatch::enteredTwice()
{
    RecordingHandler a("a");
    DropZone zone;
    append(&zone, &a);
    watch(&zone);
    support::DragEvents drag(&zone);
    drag.enter();
    takeHappened();
    QVERIFY(drag.enter());
    QCOMPARE(takeHappened(), words("a.canHandle containsDragChanged a.dropData a.entered"));
    QVERIFY(zone.containsDrag());
    drag.leave();
    QCOMPARE(takeHappened(), words("a.exited containsDragChanged"));
    QVERIFY(!zone.containsDrag());
}

void TestDropDispatch::enteredTwiceAndRefused()
{
    // A refused second enter changes nothing: the first drag goes on.
    RecordingHandler a("a");
    DropZone zone;
    append(&zone, &a);
    watch(&zone);
    support::DragEvents drag(&zone);
    drag.enter();
    a.takes = false;
    takeHappened();
    QVERIFY(!drag.enter());
    QCOMPARE(takeHappened(), words("a.canHandle"));
    QVERIFY(zone.containsDrag());
    drag.leave();
    QCOMPARE(takeHappened(), words("a.exited containsDragChanged"));
}

void TestDropDispatch::leftTwice()
{
    RecordingHandler a("a");
    DropZone zone;
    append(&zone, &a);
    watch(&zone);
    support::DragEvents drag(&zone);
    drag.enter();
    drag.leave();
    takeHappened();
    drag.leave();
    drag.move();
    QCOMPARE(takeHappened(), QStringList());
    // A drop without a drag emits containsDragChanged() only.
    drag.drop();
    QCOMPARE(takeHappened(), words("containsDragChanged"));
}

void TestDropDispatch::dragFromAnotherProcessHasNoSource()
{
    RecordingHandler a("a");
    DropZone zone;
    append(&zone, &a);
    QObject earlier;
    a.setDragSource(&earlier);
    dataOf(&zone)->setSource(&earlier);
    support::DragEvents drag(&zone);
    drag.enter();
    QCOMPARE(a.dragSource(), nullptr);
    QCOMPARE(dataOf(&zone)->source(), nullptr);
}

QTEST_MAIN(TestDropDispatch)
#include "tst_dropdispatch.moc"
