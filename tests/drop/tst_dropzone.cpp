// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drop/DropData.h"
#include "controls/drop/DropHandler.h"
#include "controls/drop/DropZone.h"
#include "tests/support/DragEvents.h"
#include "tests/support/Pointer.h"

#include <QDrag>
#include <QDragMoveEvent>
#include <QMetaMethod>
#include <QMimeData>
#include <QQmlProperty>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace om::controls;

namespace {

/// What happens, in order; one for all that a test makes.
QStringList happened;

QStringList takeHappened()
{
    QStringList taken;
    taken.swap(happened);
    return taken;
}

QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '));
}

/// Takes what it is told to take and tells what it is asked.
class Handler : public DropHandler
{
public:
    explicit Handler(const char *name, bool willTake = true)
        : takes(willTake)
        , m_name(QString::fromLatin1(name))
    {
        const auto note = [this](const char *what) {
            return [this, what] { happened.append(m_name + QString::fromLatin1(what)); };
        };
        connect(this, &DropHandler::entered, this, note(".entered"));
        connect(this, &DropHandler::positionChanged, this, note(".positionChanged"));
        connect(this, &DropHandler::exited, this, note(".exited"));
        connect(this, &DropHandler::dropped, this, note(".dropped"));
    }

    bool canHandle(const QMimeData *mimeData) override
    {
        happened.append(m_name + QStringLiteral(".canHandle"));
        asked = mimeData;
        if (whenAsked) {
            whenAsked();
        }
        return takes;
    }
    QVariant dropData(const QMimeData *) override
    {
        happened.append(m_name + QStringLiteral(".dropData"));
        return payload;
    }

    const QMimeData *asked = nullptr;
    std::function<void()> whenAsked;
    QVariant payload = 1;
    bool takes;

private:
    const QString m_name;
};

void append(DropZone *zone, DropHandler *handler)
{
    auto list = zone->dropHandlers();
    list.append(&list, handler);
}

void clear(DropZone *zone)
{
    auto list = zone->dropHandlers();
    list.clear(&list);
}

int count(DropZone *zone)
{
    auto list = zone->dropHandlers();
    return list.count(&list);
}

DropHandler *at(DropZone *zone, int index)
{
    auto list = zone->dropHandlers();
    return list.at(&list, index);
}

DropData *dataOf(DropZone *zone)
{
    return zone->findChild<DropData *>();
}

/// Notes the zone's own signals.
void watch(DropZone *zone)
{
    QObject::connect(zone, &DropZone::containsDragChanged,
                     [] { happened.append(QStringLiteral("containsDragChanged")); });
    QObject::connect(zone, &DropZone::dropHandlersChanged,
                     [] { happened.append(QStringLiteral("dropHandlersChanged")); });
}

using Moment = void (*)(DropZone *, DropHandler *, const std::function<void()> &);

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

/// A whole drag over the point (50, 50) of \a receiver. With \a alive, objects that were told to be
/// deleted later are gone before the next event, as in an event loop, and the drag ends with alive.
void dragOver(QObject *receiver, bool dropped, QObject *alive = nullptr)
{
    const bool inALoop = alive;
    const QPointer<QObject> guard(alive);
    support::DragEvents drag(receiver);
    drag.setData(QStringLiteral("application/x-test"), "x");
    const std::function<void()> steps[] = {[&] {
                                               drag.enter({50, 50});
                                           },
                                           [&] {
                                               drag.move({51, 50});
                                           },
                                           [&] {
                                               drag.move({52, 50});
                                           },
                                           [&] {
                                               dropped ? void(drag.drop({52, 50})) : drag.leave();
                                           }};
    for (const auto &step : steps) {
        if (!inALoop || guard) {
            step();
        }
        if (inALoop) {
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }
}

} // namespace

Q_DECLARE_METATYPE(Moment)

/// The dispatch of drags to handlers, event by event.
class TestDropZone : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { happened.clear(); }

    void freshZone();
    void declaredAsDescribed();
    void dragSourceIsWeak();

    void appendKeepsOrderAndEmits();
    void nullIsNotAppended();
    void atOutsideTheList();
    void clearOfAnEmptyListIsSilent();
    void clearEmptiesAndEmits();
    void clearKeepsTheApplicationsConnections();
    void handlersAreNotAdopted();

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
    void eventsInAWindowAreInTheZonesCoordinates();
    void disabledZoneGetsNothing();

    void zoneTurnedOffDuringADrag_data();
    void zoneTurnedOffDuringADrag();
    void enteredTwice();
    void enteredTwiceAndRefused();
    void leftTwice();
    void dragFromAnotherProcessHasNoSource();
    void sourceThatDiesDuringTheDrag();
    void mimeDataThatDiesInsideContainsDragChanged();
    void handlerDestroyedInTheList();
    void handlerDestroyedWhileActive();
    void handlerListedTwiceAndDestroyed();
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
};

void TestDropZone::freshZone()
{
    DropZone zone;
    QVERIFY(zone.flags() & QQuickItem::ItemAcceptsDrops);
    QVERIFY(!zone.containsDrag());
    QCOMPARE(count(&zone), 0);
    const auto datas = zone.findChildren<DropData *>();
    QCOMPARE(datas.size(), 1);
    QCOMPARE(datas.first()->parent(), &zone);
    QCOMPARE(datas.first()->position(), QPointF(0, 0));
    QCOMPARE(datas.first()->source(), nullptr);
    QVERIFY(!datas.first()->data().isValid());
}

void TestDropZone::declaredAsDescribed()
{
    const QMetaObject &zone = DropZone::staticMetaObject;
    QCOMPARE(QByteArray(zone.classInfo(zone.indexOfClassInfo("DefaultProperty")).value()),
             QByteArray("dropHandlers"));
    const QMetaProperty contains = zone.property(zone.indexOfProperty("containsDrag"));
    QVERIFY(!contains.isWritable());
    QCOMPARE(contains.notifySignal().methodSignature(), QByteArray("containsDragChanged()"));
    const QMetaProperty handlers = zone.property(zone.indexOfProperty("dropHandlers"));
    QCOMPARE(handlers.notifySignal().methodSignature(), QByteArray("dropHandlersChanged()"));

    const QMetaObject &handler = DropHandler::staticMetaObject;
    QStringList signalNames;
    for (int i = handler.methodOffset(); i < handler.methodCount(); ++i) {
        QCOMPARE(handler.method(i).parameterNames(), QList<QByteArray>{"drag"});
        signalNames.append(QString::fromLatin1(handler.method(i).name()));
    }
    QCOMPARE(signalNames, words("dropped entered positionChanged exited"));

    const QMetaObject &data = DropData::staticMetaObject;
    QStringList properties;
    for (int i = data.propertyOffset(); i < data.propertyCount(); ++i) {
        QVERIFY(data.property(i).isConstant());
        QVERIFY(!data.property(i).isWritable());
        properties.append(QString::fromLatin1(data.property(i).name()));
    }
    QCOMPARE(properties, words("source position data"));
}

void TestDropZone::dragSourceIsWeak()
{
    Handler handler("a");
    QCOMPARE(handler.dragSource(), nullptr);
    {
        QObject source;
        handler.setDragSource(&source);
        QCOMPARE(handler.dragSource(), &source);
    }
    QCOMPARE(handler.dragSource(), nullptr);
}

void TestDropZone::appendKeepsOrderAndEmits()
{
    Handler a("a"), b("b");
    DropZone zone;
    watch(&zone);
    append(&zone, &a);
    append(&zone, &b);
    QCOMPARE(takeHappened(), words("dropHandlersChanged dropHandlersChanged"));
    QCOMPARE(count(&zone), 2);
    QCOMPARE(at(&zone, 0), &a);
    QCOMPARE(at(&zone, 1), &b);
}

void TestDropZone::nullIsNotAppended()
{
    DropZone zone;
    watch(&zone);
    append(&zone, nullptr);
    QCOMPARE(count(&zone), 0);
    QCOMPARE(takeHappened(), QStringList());
    support::DragEvents drag(&zone);
    QVERIFY(!drag.enter());
}

void TestDropZone::atOutsideTheList()
{
    Handler a("a");
    DropZone zone;
    append(&zone, &a);
    QCOMPARE(at(&zone, -1), nullptr);
    QCOMPARE(at(&zone, 1), nullptr);
    QCOMPARE(at(&zone, 2), nullptr);
    QCOMPARE(at(&zone, 0), &a);
}

void TestDropZone::clearOfAnEmptyListIsSilent()
{
    DropZone zone;
    watch(&zone);
    clear(&zone);
    QCOMPARE(takeHappened(), QStringList());
}

void TestDropZone::clearEmptiesAndEmits()
{
    Handler a("a"), b("b");
    DropZone zone;
    append(&zone, &a);
    append(&zone, &b);
    watch(&zone);
    clear(&zone);
    QCOMPARE(count(&zone), 0);
    QCOMPARE(takeHappened(), words("dropHandlersChanged"));
    support::DragEvents drag(&zone);
    QVERIFY(!drag.enter());
    QCOMPARE(takeHappened(), QStringList());
}

void TestDropZone::clearKeepsTheApplicationsConnections()
{
    Handler a("a");
    DropZone zone;
    append(&zone, &a);
    QObject::connect(&a, &DropHandler::entered, &zone, [&zone] { zone.setObjectName("told"); });
    clear(&zone);
    Q_EMIT a.entered(dataOf(&zone));
    QCOMPARE(zone.objectName(), QStringLiteral("told"));
}

void TestDropZone::handlersAreNotAdopted()
{
    QObject owner;
    auto *owned = new Handler("a");
    owned->setParent(&owner);
    Handler free("b");
    QPointer<DropHandler> alive(owned);
    {
        DropZone zone;
        append(&zone, owned);
        append(&zone, &free);
        QCOMPARE(owned->parent(), &owner);
        QCOMPARE(free.parent(), nullptr);
    }
    QVERIFY(alive);
}

void TestDropZone::firstTakerGetsTheDrag()
{
    Handler a("a", false), b("b"), c("c");
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

void TestDropZone::refusedDragIsIgnored()
{
    Handler a("a", false), b("b", false);
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

void TestDropZone::refusedDragLeavesContainsDragAlone()
{
    Handler a("a", false);
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

void TestDropZone::zoneWithoutHandlersIgnoresEveryDrag()
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

void TestDropZone::sourceReachesAllHandlersBeforeAnyIsAsked()
{
    support::Pointer parked;
    Handler a("a", false), b("b"), c("c");
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

void TestDropZone::acceptedBeforeContainsDragChanges()
{
    Handler a("a");
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

void TestDropZone::containsDragChangesBeforeDropDataIsFilled()
{
    support::Pointer parked;
    Handler a("a");
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

void TestDropZone::dropDataIsFilledWhenEntered()
{
    support::Pointer parked;
    Handler a("a");
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

void TestDropZone::oneDropDataForEveryDrag()
{
    Handler a("a");
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

void TestDropZone::moveGivesThePosition()
{
    Handler a("a");
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
    // Nothing is asked again on the way.
    QCOMPARE(takeHappened(), words("a.positionChanged"));
    QCOMPARE(dataOf(&zone)->data(), QVariant(1));
}

void TestDropZone::moveIsAcceptedAfterItsSignal()
{
    Handler a("a");
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

void TestDropZone::moveWithoutActiveHandlerIsLeftAlone()
{
    Handler a("a", false);
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

void TestDropZone::leaveEndsTheDrag()
{
    Handler a("a");
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

void TestDropZone::leaveKeepsDataAndSource()
{
    support::Pointer parked;
    Handler a("a");
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

void TestDropZone::sourcesAreForgottenBeforeExited()
{
    support::Pointer parked;
    Handler a("a"), b("b");
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

void TestDropZone::leaveWithoutActiveHandlerIsSilent()
{
    support::Pointer parked;
    Handler a("a", false);
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

void TestDropZone::dropEndsTheDrag()
{
    Handler a("a");
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
    // The position of a drop stays; only a leave takes it back.
    QCOMPARE(dataOf(&zone)->position(), QPointF(20.5, 21.25));
    QCOMPARE(dataOf(&zone)->data(), QVariant(1));
}

void TestDropZone::sourcesAreThereWhenDropped()
{
    support::Pointer parked;
    Handler a("a"), b("b");
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

void TestDropZone::dropGoesThroughTheHandlersOperation()
{
    class Quiet : public Handler
    {
    public:
        Quiet()
            : Handler("quiet")
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

void TestDropZone::dropWithoutActiveHandlerEmitsContainsDragChanged()
{
    Handler a("a", false);
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

void TestDropZone::dropLeavesTheAcceptanceAsDelivered_data()
{
    QTest::addColumn<bool>("active");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("active handler, accepted") << true << true;
    QTest::newRow("active handler, ignored") << true << false;
    QTest::newRow("no active handler, accepted") << false << true;
    QTest::newRow("no active handler, ignored") << false << false;
}

void TestDropZone::dropLeavesTheAcceptanceAsDelivered()
{
    QFETCH(bool, active);
    QFETCH(bool, accepted);
    Handler a("a", active);
    DropZone zone;
    append(&zone, &a);
    support::DragEvents drag(&zone);
    drag.enter();
    QCOMPARE(zone.containsDrag(), active);
    QCOMPARE(drag.drop({1, 1}, accepted), accepted);
}

void TestDropZone::clearDuringADragWarnsAndIsSilent()
{
    Handler a("a");
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

void TestDropZone::appendDuringADragNeitherWarnsNorAsks()
{
    support::Pointer parked;
    Handler a("a"), b("b");
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

void TestDropZone::eventsInAWindowAreInTheZonesCoordinates()
{
    QQuickWindow window;
    window.resize(200, 200);
    DropZone zone(window.contentItem());
    zone.setPosition({20, 30});
    zone.setSize({100, 100});
    Handler a("a");
    append(&zone, &a);
    watch(&zone);
    support::DragEvents drag(&window);
    drag.enter({5, 5});
    QCOMPARE(takeHappened(), words("dropHandlersChanged").mid(1));
    drag.move({50, 60});
    QVERIFY(zone.containsDrag());
    QCOMPARE(dataOf(&zone)->position(), QPointF(30, 30));
    drag.move({21, 30});
    QCOMPARE(dataOf(&zone)->position(), QPointF(1, 0));
    takeHappened();
    drag.move({199, 199});
    QCOMPARE(takeHappened(), words("a.exited containsDragChanged"));
    drag.move({122, 131});
    QCOMPARE(takeHappened(), QStringList());
    drag.move({119, 129});
    // Windows deliver drops as ignored, and so they come back.
    QVERIFY(!drag.drop({118, 128}, true));
    QCOMPARE(dataOf(&zone)->position(), QPointF(98, 98));
}

void TestDropZone::disabledZoneGetsNothing()
{
    QQuickWindow window;
    window.resize(200, 200);
    DropZone zone(window.contentItem());
    zone.setSize({200, 200});
    zone.setEnabled(false);
    Handler a("a");
    append(&zone, &a);
    takeHappened();
    dragOver(&window, true);
    QCOMPARE(takeHappened(), QStringList());
}

void TestDropZone::zoneTurnedOffDuringADrag_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::newRow("disabled") << QByteArray("enabled");
    QTest::newRow("hidden") << QByteArray("visible");
}

void TestDropZone::zoneTurnedOffDuringADrag()
{
    QFETCH(QByteArray, property);
    QQuickWindow window;
    window.resize(200, 200);
    DropZone zone(window.contentItem());
    zone.setSize({200, 200});
    Handler a("a");
    append(&zone, &a);
    watch(&zone);
    support::DragEvents drag(&window);
    drag.enter();
    drag.move();
    QVERIFY(zone.containsDrag());
    zone.setProperty(property, false);
    takeHappened();
    // The window looks at its next event only.
    drag.move({20, 20});
    drag.leave();
    QVERIFY(!zone.containsDrag());
    QCOMPARE(takeHappened(), words("a.exited containsDragChanged"));
    zone.setProperty(property, true);
    drag.enter();
    drag.move();
    QVERIFY(zone.containsDrag());
    drag.leave();
    takeHappened();
}

void TestDropZone::enteredTwice()
{
    Handler a("a");
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

void TestDropZone::enteredTwiceAndRefused()
{
    // A refused drag is refused, and nothing else: the drag before it goes on.
    Handler a("a");
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

void TestDropZone::leftTwice()
{
    Handler a("a");
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
    // A drop without anything before it tells only that there is nothing.
    drag.drop();
    QCOMPARE(takeHappened(), words("containsDragChanged"));
}

void TestDropZone::dragFromAnotherProcessHasNoSource()
{
    Handler a("a");
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

void TestDropZone::sourceThatDiesDuringTheDrag()
{
    support::Pointer parked;
    Handler a("a");
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

void TestDropZone::mimeDataThatDiesInsideContainsDragChanged()
{
    Handler a("a");
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

void TestDropZone::handlerDestroyedInTheList()
{
    Handler a("a"), c("c");
    DropZone zone;
    auto b = std::make_unique<Handler>("b");
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

void TestDropZone::handlerDestroyedWhileActive()
{
    DropZone zone;
    auto a = std::make_unique<Handler>("a");
    Handler b("b");
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

void TestDropZone::handlerListedTwiceAndDestroyed()
{
    DropZone zone;
    auto a = std::make_unique<Handler>("a");
    append(&zone, a.get());
    append(&zone, a.get());
    QCOMPARE(count(&zone), 2);
    watch(&zone);
    a.reset();
    QCOMPARE(count(&zone), 0);
    QCOMPARE(takeHappened(), words("dropHandlersChanged"));
}

void TestDropZone::handlerDestroyedAfterItsZone()
{
    auto zone = std::make_unique<DropZone>();
    auto a = std::make_unique<Handler>("a");
    auto *child = new Handler("child");
    child->setParent(zone.get());
    append(zone.get(), a.get());
    append(zone.get(), child);
    watch(zone.get());
    takeHappened();
    zone.reset();
    a.reset();
    QCOMPARE(takeHappened(), QStringList());
}

void TestDropZone::handlerDestroyedWhileItsZoneIs()
{
    QQuickItem parent;
    auto *zone = new DropZone(&parent);
    QPointer<Handler> a(new Handler("a"));
    append(zone, a);
    watch(zone);
    takeHappened();
    connect(&parent, &QQuickItem::childrenChanged, [&a] { delete a; });
    delete zone;
    QVERIFY(!a);
    QCOMPARE(takeHappened(), QStringList());
}

void TestDropZone::activeHandlerDestroyedInside()
{
    QFETCH(Moment, moment);
    QFETCH(bool, dropped);
    DropZone zone;
    auto *a = new Handler("a");
    Handler b("b");
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

void TestDropZone::otherHandlerDestroyedInside()
{
    QFETCH(Moment, moment);
    QFETCH(bool, dropped);
    Handler b("b");
    DropZone zone;
    auto *a = new Handler("a", false);
    auto *c = new Handler("c");
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

void TestDropZone::zoneDestroyedInside()
{
    QFETCH(Moment, moment);
    QFETCH(bool, dropped);
    // Events straight to the zone: Qt's own delivery in windows does not survive an item that is
    // deleted on the spot.
    Handler a("a");
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

void TestDropZone::zoneDestroyedLaterInside()
{
    QFETCH(Moment, moment);
    QFETCH(bool, dropped);
    QQuickWindow window;
    window.resize(100, 100);
    Handler a("a");
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

void TestDropZone::windowDestroyedInside()
{
    QFETCH(Moment, moment);
    QFETCH(bool, dropped);
    auto *window = new QQuickWindow;
    window->resize(100, 100);
    Handler a("a");
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

void TestDropZone::listClearedInside()
{
    QFETCH(Moment, moment);
    QFETCH(bool, dropped);
    Handler a("a");
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

void TestDropZone::listClearedInsideEntered()
{
    Handler a("a");
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

void TestDropZone::listClearedInsideExited()
{
    Handler a("a");
    DropZone zone;
    append(&zone, &a);
    watch(&zone);
    connect(&a, &DropHandler::exited, &zone, [&zone] { clear(&zone); });
    support::DragEvents drag(&zone);
    drag.enter();
    takeHappened();
    QTest::ignoreMessage(QtWarningMsg, "Drop handlers changed during drag operation");
    drag.leave();
    // The leave goes on to its end all the same.
    QCOMPARE(takeHappened(), words("a.exited dropHandlersChanged containsDragChanged"));
    QVERIFY(!zone.containsDrag());
}

void TestDropZone::handlerAddedInside()
{
    QFETCH(Moment, moment);
    QFETCH(bool, dropped);
    Handler a("a"), b("b");
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

void TestDropZone::listChangedByAHandlerThatIsAsked()
{
    Handler a("a", false), b("b"), c("c");
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

QTEST_MAIN(TestDropZone)
#include "tst_dropzone.moc"
