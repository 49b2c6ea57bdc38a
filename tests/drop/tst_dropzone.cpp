// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drop/DropData.h"
#include "controls/drop/DropHandler.h"
#include "controls/drop/DropZone.h"
#include "tests/drop/RecordingHandler.h"
#include "tests/support/Leftovers.h"

#include <QMetaMethod>
#include <QQuickWindow>
#include <QTest>

using namespace om::controls;

/// A drop zone as it is declared, its list of handlers, and its place in a window.
class TestDropZone : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(support::leftovers(), QString()); }
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
    void eventsInAWindowAreInTheZonesCoordinates();
    void disabledZoneGetsNothing();
    void zoneTurnedOffDuringADrag_data();
    void zoneTurnedOffDuringADrag();
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
    RecordingHandler handler("a");
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
    RecordingHandler a("a"), b("b");
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
    RecordingHandler a("a");
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
    RecordingHandler a("a"), b("b");
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
    RecordingHandler a("a");
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
    auto *owned = new RecordingHandler("a");
    owned->setParent(&owner);
    RecordingHandler free("b");
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

void TestDropZone::eventsInAWindowAreInTheZonesCoordinates()
{
    QQuickWindow window;
    window.resize(200, 200);
    DropZone zone(window.contentItem());
    zone.setPosition({20, 30});
    zone.setSize({100, 100});
    RecordingHandler a("a");
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
    RecordingHandler a("a");
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
    RecordingHandler a("a");
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

QTEST_MAIN(TestDropZone)
#include "tst_dropzone.moc"
