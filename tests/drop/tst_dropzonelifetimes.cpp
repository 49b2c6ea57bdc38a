// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/drop/RecordingHandler.h"
#include "tests/support/Leftovers.h"
#include "tests/support/Pointer.h"

#include <QDrag>
#include <QMimeData>
#include <QQuickWindow>
#include <QTest>

#include <memory>

using namespace om::controls;

namespace {

using Moment = void (*)(DropZone *, DropHandler *, const std::function<void()> &);
using Step = void (*)(support::DragEvents *);

/// Calls \a action once, at the emission of the signal.
template<typename Sender, typename Signal>
void once(Sender *sender, Signal signal, const std::function<void()> &action)
{
    auto done = std::make_shared<bool>(false);
    QObject::connect(sender, signal, [action, done] {
        if (!*done) {
            *done = true;
            action();
        }
    });
}

/// As once(), at the second emission.
template<typename Sender, typename Signal>
void secondTime(Sender *sender, Signal signal, const std::function<void()> &action)
{
    auto emissions = std::make_shared<int>(0);
    QObject::connect(sender, signal, [action, emissions] {
        if (++*emissions == 2) {
            action();
        }
    });
}

/// The moments at which the application's code runs, each in a drag that is left and one that is
/// dropped.
void moments()
{
    QTest::addColumn<Moment>("moment");
    QTest::addColumn<bool>("dropped");
    const auto row = [](const char *name, bool dropped, Moment moment) {
        QTest::newRow(name) << moment << dropped;
    };
    for (bool dropped : {false, true}) {
        const char *end = dropped ? ", dropped" : ", left";
        row(qPrintable(QStringLiteral("containsDragChanged, entering") + QLatin1String(end)),
            dropped, [](DropZone *zone, DropHandler *, const std::function<void()> &action) {
                once(zone, &DropZone::containsDragChanged, action);
            });
        row(qPrintable(QStringLiteral("entered") + QLatin1String(end)), dropped,
            [](DropZone *, DropHandler *handler, const std::function<void()> &action) {
                once(handler, &DropHandler::entered, action);
            });
        row(qPrintable(QStringLiteral("positionChanged") + QLatin1String(end)), dropped,
            [](DropZone *, DropHandler *handler, const std::function<void()> &action) {
                once(handler, &DropHandler::positionChanged, action);
            });
        row(qPrintable(QStringLiteral("containsDragChanged, ending") + QLatin1String(end)), dropped,
            [](DropZone *zone, DropHandler *, const std::function<void()> &action) {
                secondTime(zone, &DropZone::containsDragChanged, action);
            });
    }
    row("exited", false, [](DropZone *, DropHandler *handler, const std::function<void()> &action) {
        once(handler, &DropHandler::exited, action);
    });
    row("dropped", true, [](DropZone *, DropHandler *handler, const std::function<void()> &action) {
        once(handler, &DropHandler::dropped, action);
    });
}

} // namespace

Q_DECLARE_METATYPE(Moment)
Q_DECLARE_METATYPE(Step)

/// The application's code at every place where a zone calls it: it destroys the zone, handlers, the
/// window and the MIME data, and changes the list.
class TestDropZoneLifetimes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(support::leftovers(), QString()); }
    void init() { happened.clear(); }

    void sourceThatDiesDuringTheDrag();
    void mimeDataThatDiesInsideContainsDragChanged();
    void handlerDestroyedInTheList();
    void handlerDestroyedWhileActive();
    void handlerListedTwiceAndDestroyed();
    void handlerOfTwoZonesDestroyed_data();
    void handlerOfTwoZonesDestroyed();
    void clearedListLeavesOtherConnections();
    void handlerDestroyedAfterItsZone();
    void handlerDestroyedWhileItsZoneIs();
    void activeHandlerDestroyedInside_data() { moments(); }
    void activeHandlerDestroyedInside();
    void otherHandlerDestroyedInside_data() { moments(); }
    void otherHandlerDestroyedInside();
    void zoneDestroyedInside_data() { moments(); }
    void zoneDestroyedInside();
    void zoneDestroyedLaterInside_data() { moments(); }
    void zoneDestroyedLaterInside();
    void windowDestroyedInside_data() { moments(); }
    void windowDestroyedInside();
    void listClearedInside_data() { moments(); }
    void listClearedInside();
    void listClearedInsideEntered();
    void listClearedInsideExited();
    void handlerAddedInside_data() { moments(); }
    void handlerAddedInside();
    void listChangedByAHandlerThatIsAsked();

    void handlerDestroyedWhileAsked_data() { answers(); }
    void handlerDestroyedWhileAsked();
    void otherHandlersDestroyedWhileOneIsAsked();
    void zoneDestroyedWhileAHandlerIsAsked_data() { answers(); }
    void zoneDestroyedWhileAHandlerIsAsked();
    void sourceDestroyedWhileAHandlerIsAsked();
    void mimeDataDestroyedWhileAHandlerIsAsked();
    void handlerAddedByEachThatIsAsked();
    void handlerDestroyedWhileAskedForData();
    void zoneDestroyedWhileAHandlerIsAskedForData();
    void listClearedByAHandlerAskedForData();

private:
    static void answers();
};

void TestDropZoneLifetimes::sourceThatDiesDuringTheDrag()
{
    support::Pointer parked;
    RecordingHandler a("a");
    DropZone zone;
    append(&zone, &a);
    auto source = std::make_unique<QObject>();
    support::withDragFrom(source.get(), [&](QDrag *) {
        support::DragEvents drag(&zone);
        drag.enter();
        QCOMPARE(dataOf(&zone)->source(), source.get());
        source.reset();
        QCOMPARE(dataOf(&zone)->source(), nullptr);
        QCOMPARE(a.dragSource(), nullptr);
        drag.leave();
    });
    QCOMPARE(dataOf(&zone)->source(), nullptr);
    QVERIFY(!zone.containsDrag());
}

void TestDropZoneLifetimes::mimeDataThatDiesInsideContainsDragChanged()
{
    RecordingHandler a("a");
    DropZone zone;
    append(&zone, &a);
    support::DragEvents drag(&zone);
    connect(&zone, &DropZone::containsDragChanged, [&drag] { drag.dropMimeData(); });
    drag.enter();
    QVERIFY(!happened.contains(QStringLiteral("a.dropData")));
    QCOMPARE(happened.last(), QStringLiteral("a.entered"));
    QVERIFY(!dataOf(&zone)->data().isValid());
    drag.leave();
    QVERIFY(!zone.containsDrag());
}

void TestDropZoneLifetimes::handlerDestroyedInTheList()
{
    RecordingHandler a("a"), c("c");
    DropZone zone;
    auto b = std::make_unique<RecordingHandler>("b");
    append(&zone, &a);
    append(&zone, b.get());
    append(&zone, &c);
    watch(&zone);
    b.reset();
    QCOMPARE(takeHappened(), words("dropHandlersChanged"));
    QCOMPARE(count(&zone), 2);
    QCOMPARE(at(&zone, 0), &a);
    QCOMPARE(at(&zone, 1), &c);
    dragOver(&zone, true);
    QCOMPARE(takeHappened().count(QStringLiteral("a.dropped")), 1);
}

void TestDropZoneLifetimes::handlerDestroyedWhileActive()
{
    DropZone zone;
    auto a = std::make_unique<RecordingHandler>("a");
    RecordingHandler b("b");
    append(&zone, a.get());
    append(&zone, &b);
    watch(&zone);
    support::DragEvents drag(&zone);
    drag.enter();
    takeHappened();
    a.reset();
    QVERIFY(!zone.containsDrag());
    QCOMPARE(takeHappened(), words("dropHandlersChanged containsDragChanged"));
    QVERIFY(!drag.move());
    drag.leave();
    QCOMPARE(takeHappened(), QStringList());
    QVERIFY(drag.enter());
    QCOMPARE(takeHappened(), words("b.canHandle containsDragChanged b.dropData b.entered"));
}

void TestDropZoneLifetimes::handlerListedTwiceAndDestroyed()
{
    DropZone zone;
    auto a = std::make_unique<RecordingHandler>("a");
    append(&zone, a.get());
    append(&zone, a.get());
    QCOMPARE(count(&zone), 2);
    watch(&zone);
    a.reset();
    QCOMPARE(count(&zone), 0);
    QCOMPARE(takeHappened(), words("dropHandlersChanged"));
}

void TestDropZoneLifetimes::handlerOfTwoZonesDestroyed_data()
{
    QTest::addColumn<Step>("step");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char *name, const char *expected, Step step) {
        QTest::newRow(name) << step << words(expected);
    };
    const char *atItsEnd = "dropHandlersChanged containsDragChanged";
    row("enter", atItsEnd, [](support::DragEvents *drag) { QVERIFY(!drag->enter()); });
    row("move", atItsEnd, [](support::DragEvents *drag) { QVERIFY(!drag->move()); });
    const char *before = "containsDragChanged dropHandlersChanged";
    row("leave", before, [](support::DragEvents *drag) { drag->leave(); });
    row("drop", before, [](support::DragEvents *drag) { drag->drop(); });
}

/// The first zone tells that the handler has gone while the second, which has a drag with it, has
/// not learned of it.
void TestDropZoneLifetimes::handlerOfTwoZonesDestroyed()
{
    QFETCH(const Step, step);
    QFETCH(const QStringList, expected);
    DropZone first, second;
    auto shared = std::make_unique<RecordingHandler>("shared");
    append(&first, shared.get());
    append(&second, shared.get());
    support::DragEvents drag(&second);
    QVERIFY(drag.enter());
    watch(&second);
    takeHappened();
    once(&first, &DropZone::dropHandlersChanged, [&] {
        QCOMPARE(count(&first), 0);
        QCOMPARE(at(&second, 0), nullptr);
        step(&drag);
    });
    shared.reset();
    QCOMPARE(takeHappened(), expected);
    QVERIFY(!second.containsDrag());
    QCOMPARE(count(&second), 0);
}

void TestDropZoneLifetimes::clearedListLeavesOtherConnections()
{
    // The application is connected to the same signal, with the zone as the context.
    DropZone zone;
    auto a = std::make_unique<RecordingHandler>("a");
    int told = 0;
    connect(a.get(), &QObject::destroyed, &zone, [&told] { ++told; });
    append(&zone, a.get());
    clear(&zone);
    watch(&zone);
    a.reset();
    QCOMPARE(told, 1);
    QCOMPARE(takeHappened(), QStringList());
}

void TestDropZoneLifetimes::handlerDestroyedAfterItsZone()
{
    auto zone = std::make_unique<DropZone>();
    auto a = std::make_unique<RecordingHandler>("a");
    auto *child = new RecordingHandler("child");
    child->setParent(zone.get());
    append(zone.get(), a.get());
    append(zone.get(), child);
    watch(zone.get());
    takeHappened();
    zone.reset();
    a.reset();
    QCOMPARE(takeHappened(), QStringList());
}

void TestDropZoneLifetimes::handlerDestroyedWhileItsZoneIs()
{
    QQuickItem parent;
    auto *zone = new DropZone(&parent);
    QPointer<RecordingHandler> a(new RecordingHandler("a"));
    append(zone, a);
    watch(zone);
    takeHappened();
    connect(&parent, &QQuickItem::childrenChanged, [&a] { delete a; });
    delete zone;
    QVERIFY(!a);
    QCOMPARE(takeHappened(), QStringList());
}

void TestDropZoneLifetimes::activeHandlerDestroyedInside()
{
    QFETCH(Moment, moment);
    QFETCH(bool, dropped);
    DropZone zone;
    auto *a = new RecordingHandler("a");
    RecordingHandler b("b");
    append(&zone, a);
    append(&zone, &b);
    moment(&zone, a, [a] { delete a; });
    dragOver(&zone, dropped);
    QVERIFY(!zone.containsDrag());
    QCOMPARE(count(&zone), 1);
    takeHappened();
    dragOver(&zone, dropped);
    QCOMPARE(takeHappened().last(),
             dropped ? QStringLiteral("b.dropped") : QStringLiteral("b.exited"));
}

void TestDropZoneLifetimes::otherHandlerDestroyedInside()
{
    QFETCH(Moment, moment);
    QFETCH(bool, dropped);
    RecordingHandler b("b");
    DropZone zone;
    auto *a = new RecordingHandler("a", false);
    auto *c = new RecordingHandler("c");
    append(&zone, a);
    append(&zone, &b);
    append(&zone, c);
    moment(&zone, &b, [a, c] {
        delete a;
        delete c;
    });
    dragOver(&zone, dropped);
    QCOMPARE(count(&zone), 1);
    QCOMPARE(takeHappened().last(),
             dropped ? QStringLiteral("b.dropped") : QStringLiteral("b.exited"));
}

void TestDropZoneLifetimes::zoneDestroyedInside()
{
    QFETCH(Moment, moment);
    QFETCH(bool, dropped);
    // Events straight to the zone: Qt's own delivery in windows does not survive an item that is
    // deleted on the spot.
    RecordingHandler a("a");
    QPointer<DropZone> zone(new DropZone);
    append(zone, &a);
    moment(zone, &a, [&zone] { delete zone; });
    support::DragEvents drag(zone);
    const std::function<void()> steps[] = {[&] { drag.enter(); }, [&] { drag.move(); },
                                           [&] { dropped ? void(drag.drop()) : drag.leave(); }};
    for (const auto &step : steps) {
        if (zone) {
            step();
        }
    }
    QVERIFY(!zone);
}

void TestDropZoneLifetimes::zoneDestroyedLaterInside()
{
    QFETCH(Moment, moment);
    QFETCH(bool, dropped);
    QQuickWindow window;
    window.resize(100, 100);
    RecordingHandler a("a");
    QPointer<DropZone> zone(new DropZone(window.contentItem()));
    zone->setSize({100, 100});
    append(zone, &a);
    moment(zone, &a, [&zone] { zone->deleteLater(); });
    dragOver(&window, dropped, &window);
    QVERIFY(!zone);
    takeHappened();
    dragOver(&window, dropped, &window);
    QCOMPARE(takeHappened(), QStringList());
}

void TestDropZoneLifetimes::windowDestroyedInside()
{
    QFETCH(Moment, moment);
    QFETCH(bool, dropped);
    auto *window = new QQuickWindow;
    window->resize(100, 100);
    RecordingHandler a("a");
    QPointer<QQuickWindow> alive(window);
    QPointer<DropZone> zone(new DropZone(window->contentItem()));
    zone->setParent(window->contentItem());
    zone->setSize({100, 100});
    append(zone, &a);
    moment(zone, &a, [window] { window->deleteLater(); });
    dragOver(window, dropped, window);
    QVERIFY(!alive);
    QVERIFY(!zone);
}

void TestDropZoneLifetimes::listClearedInside()
{
    QFETCH(Moment, moment);
    QFETCH(bool, dropped);
    RecordingHandler a("a");
    DropZone zone;
    append(&zone, &a);
    bool cleared = false;
    bool active = false;
    moment(&zone, &a, [&] {
        active = zone.containsDrag();
        if (active) {
            QTest::ignoreMessage(QtWarningMsg, "Drop handlers changed during drag operation");
        }
        clear(&zone);
        cleared = true;
    });
    dragOver(&zone, dropped);
    QVERIFY(cleared);
    QCOMPARE(active,
             !QByteArray(QTest::currentDataTag()).startsWith("containsDragChanged, ending"));
    QVERIFY(!zone.containsDrag());
    QCOMPARE(count(&zone), 0);
}

void TestDropZoneLifetimes::listClearedInsideEntered()
{
    RecordingHandler a("a");
    DropZone zone;
    append(&zone, &a);
    watch(&zone);
    connect(&a, &DropHandler::entered, &zone, [&zone] { clear(&zone); });
    QTest::ignoreMessage(QtWarningMsg, "Drop handlers changed during drag operation");
    support::DragEvents drag(&zone);
    QVERIFY(drag.enter());
    QCOMPARE(takeHappened(),
             words("a.canHandle containsDragChanged a.dropData a.entered "
                   "dropHandlersChanged"));
    QVERIFY(!drag.move());
    drag.leave();
    QCOMPARE(takeHappened(), QStringList());
}

void TestDropZoneLifetimes::listClearedInsideExited()
{
    RecordingHandler a("a");
    DropZone zone;
    append(&zone, &a);
    watch(&zone);
    connect(&a, &DropHandler::exited, &zone, [&zone] { clear(&zone); });
    support::DragEvents drag(&zone);
    drag.enter();
    takeHappened();
    QTest::ignoreMessage(QtWarningMsg, "Drop handlers changed during drag operation");
    drag.leave();
    // The leave is completed all the same.
    QCOMPARE(takeHappened(), words("a.exited dropHandlersChanged containsDragChanged"));
    QVERIFY(!zone.containsDrag());
}

void TestDropZoneLifetimes::handlerAddedInside()
{
    QFETCH(Moment, moment);
    QFETCH(bool, dropped);
    RecordingHandler a("a"), b("b");
    DropZone zone;
    append(&zone, &a);
    moment(&zone, &a, [&] {
        for (int i = 0; i < 100; ++i) {
            append(&zone, &b);
        }
    });
    dragOver(&zone, dropped);
    QCOMPARE(count(&zone), 101);
    QCOMPARE(takeHappened().last(),
             dropped ? QStringLiteral("a.dropped") : QStringLiteral("a.exited"));
}

void TestDropZoneLifetimes::listChangedByAHandlerThatIsAsked()
{
    RecordingHandler a("a", false), b("b"), c("c");
    DropZone zone;
    append(&zone, &a);
    append(&zone, &b);
    append(&zone, &c);
    a.whenAsked = [&zone] { clear(&zone); };
    support::DragEvents drag(&zone);
    QVERIFY(!drag.enter());
    QCOMPARE(takeHappened(), words("a.canHandle"));

    append(&zone, &b);
    b.whenAsked = [&zone] { clear(&zone); };
    QVERIFY(!drag.enter());
    QVERIFY(!zone.containsDrag());
}

void TestDropZoneLifetimes::answers()
{
    QTest::addColumn<bool>("takes");
    QTest::newRow("which takes the drag") << true;
    QTest::newRow("which does not") << false;
}

void TestDropZoneLifetimes::handlerDestroyedWhileAsked()
{
    QFETCH(bool, takes);
    DropZone zone;
    auto *const a = new RecordingHandler("a", takes);
    RecordingHandler b("b");
    append(&zone, a);
    append(&zone, &b);
    watch(&zone);
    a->whenAsked = [a] { delete a; };
    support::DragEvents drag(&zone);
    // The next handler that takes the drag gets it.
    QVERIFY(drag.enter());
    QCOMPARE(takeHappened(),
             words("a.canHandle dropHandlersChanged b.canHandle containsDragChanged b.dropData "
                   "b.entered"));
    drag.leave();
    QVERIFY(!zone.containsDrag());
}

void TestDropZoneLifetimes::otherHandlersDestroyedWhileOneIsAsked()
{
    auto *const a = new RecordingHandler("a", false);
    RecordingHandler b("b", false);
    auto *const c = new RecordingHandler("c");
    RecordingHandler d("d");
    DropZone zone;
    append(&zone, a);
    append(&zone, &b);
    append(&zone, c);
    append(&zone, &d);
    b.whenAsked = [a, c] {
        delete a;
        delete c;
    };
    support::DragEvents drag(&zone);
    QVERIFY(drag.enter());
    // No handler is skipped although the list has become shorter.
    QCOMPARE(takeHappened(), words("a.canHandle b.canHandle d.canHandle d.dropData d.entered"));
}

void TestDropZoneLifetimes::zoneDestroyedWhileAHandlerIsAsked()
{
    QFETCH(bool, takes);
    RecordingHandler a("a", takes), b("b");
    QPointer<DropZone> zone(new DropZone);
    append(zone, &a);
    append(zone, &b);
    watch(zone);
    a.whenAsked = [&zone] { delete zone; };
    takeHappened();
    support::DragEvents drag(zone);
    QVERIFY(!drag.enter());
    QVERIFY(!zone);
    QCOMPARE(takeHappened(), words("a.canHandle"));
}

void TestDropZoneLifetimes::sourceDestroyedWhileAHandlerIsAsked()
{
    support::Pointer parked;
    RecordingHandler a("a");
    DropZone zone;
    append(&zone, &a);
    auto source = std::make_unique<QObject>();
    a.whenAsked = [&source] { source.reset(); };
    support::withDragFrom(source.get(), [&](QDrag *) {
        support::DragEvents drag(&zone);
        QVERIFY(drag.enter());
        QCOMPARE(dataOf(&zone)->source(), nullptr);
        QCOMPARE(a.dragSource(), nullptr);
        drag.leave();
    });
    QVERIFY(!source);
}

void TestDropZoneLifetimes::mimeDataDestroyedWhileAHandlerIsAsked()
{
    RecordingHandler a("a", false), b("b");
    DropZone zone;
    append(&zone, &a);
    append(&zone, &b);
    support::DragEvents drag(&zone);
    a.whenAsked = [&drag] { drag.dropMimeData(); };
    // The MIME data are destroyed, so no further handler is asked.
    QVERIFY(!drag.enter());
    QCOMPARE(takeHappened(), words("a.canHandle"));
    QVERIFY(!zone.containsDrag());
}

void TestDropZoneLifetimes::handlerAddedByEachThatIsAsked()
{
    RecordingHandler a("a", false);
    DropZone zone;
    append(&zone, &a);
    // A walk without a fixed end would follow the growing list without end.
    a.whenAsked = [&] {
        QVERIFY2(count(&zone) < 1000, "the walk does not end");
        append(&zone, &a);
    };
    support::DragEvents drag(&zone);
    QVERIFY(!drag.enter());
    QCOMPARE(count(&zone), 2);
}

void TestDropZoneLifetimes::handlerDestroyedWhileAskedForData()
{
    DropZone zone;
    auto *const a = new RecordingHandler("a");
    append(&zone, a);
    watch(&zone);
    a->whenAskedForData = [a] { delete a; };
    support::DragEvents drag(&zone);
    drag.enter();
    QVERIFY(!zone.containsDrag());
    QCOMPARE(takeHappened(),
             words("a.canHandle containsDragChanged a.dropData dropHandlersChanged "
                   "containsDragChanged"));
    drag.leave();
    QCOMPARE(takeHappened(), QStringList());
}

void TestDropZoneLifetimes::zoneDestroyedWhileAHandlerIsAskedForData()
{
    RecordingHandler a("a");
    QPointer<DropZone> zone(new DropZone);
    append(zone, &a);
    a.whenAskedForData = [&zone] { delete zone; };
    support::DragEvents drag(zone);
    drag.enter();
    QVERIFY(!zone);
    QCOMPARE(takeHappened(), words("a.canHandle a.dropData"));
}

void TestDropZoneLifetimes::listClearedByAHandlerAskedForData()
{
    RecordingHandler a("a");
    DropZone zone;
    append(&zone, &a);
    watch(&zone);
    a.whenAskedForData = [&zone] { clear(&zone); };
    QTest::ignoreMessage(QtWarningMsg, "Drop handlers changed during drag operation");
    support::DragEvents drag(&zone);
    drag.enter();
    // The active handler has left the list, so none emits entered().
    QCOMPARE(takeHappened(),
             words("a.canHandle containsDragChanged a.dropData dropHandlersChanged"));
    drag.leave();
    QCOMPARE(takeHappened(), QStringList());
}

QTEST_MAIN(TestDropZoneLifetimes)
#include "tst_dropzonelifetimes.moc"
