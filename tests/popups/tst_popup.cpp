// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Leftovers.h"
#include "tests/support/Pixels.h"
#include "tests/support/QmlView.h"
#include "tests/support/QmlWindow.h"
#include "tests/support/SignalRecorder.h"

#include <QPointer>
#include <QPropertyAnimation>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>
#include <QThread>

using support::evaluate;
using support::QmlView;
using support::SignalRecorder;

/// Popup in a real window: what it shows, what it keeps for itself, and what it survives.
class TestPopup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void defaults();
    void fadeRunsFromWholeZeroToWholeOne();
    void changesNotifyOnce_data();
    void changesNotifyOnce();
    void pointsCompareFuzzily();

    void movesToTheRootOnCompletion();
    void openedInQmlOpensAtCompletion();
    void openIsOnlyRememberedBeforeCompletion();
    void completedWithoutAParentStaysClosed();

    void orderOfOpening();
    void orderOfClosing();
    void acceptClosesBeforeItSaysSo();
    void rejectClosesBeforeItSaysSo();
    void closedPopupsAnswerAcceptAndReject();

    void positionOfTheHotspot();
    void attachedItemAloneDoesNotMove();
    void withoutAttachedItemTheParentCounts();
    void followsItsItem_data();
    void followsItsItem();
    void followsAcrossRotationAndScale();
    void completedBeforeItsWindow();
    void repositionsOnTheGuiThread();

    void pressOutsideIsConsumed();
    void pressOutsideWithoutAttachedItem();
    void pressInTheAttachedItemPasses();
    void pressInThePopupPasses();
    void onlyTheShapeCounts();
    void escapeIsConsumed();
    void otherKeysReachThePopup();
    void persistentIgnoresAll();
    void theLastOpenedIsAskedFirst();

    void closedStaysVisibleWhileItFades();
    void reopeningTurnsTheFadeRound();
    void animationFinishedBothWays();
    void aboveEverythingElse();

    void idleWindowCostsNoFrame_data();
    void idleWindowCostsNoFrame();
    void movingTargetCostsTwoFramesAMove();
    void opensWithinOneFrame();

    void attachedItemDestroyedWhileOpen();
    void attachedItemInsideThePopup();
    void destroyedWhileOpen();
    void destroyedInsideItsEventFilter_data();
    void destroyedInsideItsEventFilter();
    void destroyedInsideASignal_data();
    void destroyedInsideASignal();
    void destroyedByItsLoader_data();
    void destroyedByItsLoader();
    void destroyedWithItsWindow_data();
    void destroyedWithItsWindow();
    void movedToAnotherWindowWhileOpen();
    void takenOutOfItsWindowWhileOpen();
    void showInOnRejected();
    void changeOfMindWhileOpening_data();
    void changeOfMindWhileOpening();
    void reopenedWhileClosing();
    void aThousandOpensAndCloses();
};

namespace {

const QPoint outside(300, 250);
const QPoint inTarget(140, 65);
const QPoint inPopup(120, 120);

QPropertyAnimation *fadeOf(QQuickItem *popup)
{
    return popup->findChild<QPropertyAnimation *>(QString(), Qt::FindDirectChildrenOnly);
}

void press(QWindow *window, const QPoint &point)
{
    QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, point);
}

} // namespace

void TestPopup::cleanup()
{
    QCOMPARE(support::leftovers(), QString());
}

void TestPopup::defaults()
{
    QmlView view;
    view.load("Item { width: 100; height: 100; Popup { objectName: 'popup' } }");
    QQuickItem *popup = view.item<>("popup");
    QVERIFY(popup);
    QCOMPARE(popup->property("open"), QVariant(false));
    QCOMPARE(popup->property("persistent"), QVariant(false));
    QVERIFY(!popup->property("attachedItem").value<QQuickItem *>());
    QCOMPARE(popup->property("hotspot"), QVariant(QPointF()));
    QCOMPARE(popup->property("offset"), QVariant(QPointF()));
    QCOMPARE(popup->opacity(), 0.0);
    QCOMPARE(popup->z(), 65540.0);
    QVERIFY(!popup->isEnabled());
    QVERIFY(!popup->isVisible());
}

void TestPopup::fadeRunsFromWholeZeroToWholeOne()
{
    QmlView view;
    view.load("Item { Popup { objectName: 'popup' } }");
    QPropertyAnimation *fade = fadeOf(view.item<>("popup"));
    QVERIFY(fade);
    QCOMPARE(fade->targetObject(), static_cast<QObject *>(view.item<>("popup")));
    QCOMPARE(fade->propertyName(), QByteArray("opacity"));
    QCOMPARE(int(fade->startValue().userType()), int(QMetaType::Int));
    QCOMPARE(int(fade->endValue().userType()), int(QMetaType::Int));
    QCOMPARE(fade->startValue().toInt(), 0);
    QCOMPARE(fade->endValue().toInt(), 1);
    QCOMPARE(fade->duration(), 100);
}

void TestPopup::changesNotifyOnce_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QString>("value");
    const auto row = [](const char *property, const char *value) {
        QTest::newRow(property) << QByteArray(property) << QString::fromLatin1(value);
    };
    row("open", "true");
    row("persistent", "true");
    row("attachedItem", "root");
    row("hotspot", "Qt.point(3, 4)");
    row("offset", "Qt.point(-3, 4.5)");
}

void TestPopup::changesNotifyOnce()
{
    QFETCH(QByteArray, property);
    QFETCH(QString, value);
    QmlView view;
    view.load("Item { id: root; Popup { objectName: 'popup' } }");
    QQuickItem *popup = view.item<>("popup");
    const QVariant before = popup->property(property);
    SignalRecorder recorder;
    recorder.watch(popup, QStringLiteral("popup"),
                   {QString::fromLatin1(property) + QStringLiteral("Changed")});
    const QVariant after = evaluate(view.root(), value);
    QVERIFY(popup->setProperty(property, after));
    QCOMPARE(popup->property(property), after);
    QCOMPARE(recorder.entries().size(), 1);
    QCOMPARE(recorder.arguments(0).value(0), after);
    QVERIFY(popup->setProperty(property, after));
    QCOMPARE(recorder.entries().size(), 1);
    QVERIFY(popup->setProperty(property, before));
    QCOMPARE(recorder.entries().size(), 2);
    QCOMPARE(recorder.arguments(1).value(0), before);
}

void TestPopup::pointsCompareFuzzily()
{
    QmlView view;
    view.load("Item { id: root; Popup { objectName: 'popup'; hotspot: Qt.point(3, 4); offset: "
              "Qt.point(5, 6) } }");
    QQuickItem *popup = view.item<>("popup");
    SignalRecorder recorder;
    recorder.watch(popup, QStringLiteral("popup"));
    popup->setProperty("hotspot", QPointF(3 + 1e-13, 4));
    popup->setProperty("offset", QPointF(5, 6 - 1e-13));
    QCOMPARE(recorder.take(), QStringList());
    popup->setProperty("hotspot", QPointF(3.001, 4));
    QCOMPARE(popup->x(), 5 - 3.001);
    QCOMPARE(
        recorder.take(),
        (QStringList{QStringLiteral("popup.xChanged"), QStringLiteral("popup.hotspotChanged")}));
}

void TestPopup::movesToTheRootOnCompletion()
{
    QmlView view;
    view.load("Item { Item { Item { Popup { objectName: 'popup' } } } }");
    QCOMPARE(view.item<>("popup")->parentItem(), view.root());

    QQmlComponent window(view.engine());
    window.setData("import QtQuick.Window 2.12; import QtQuick 2.12; import ombrel.Controls 1.0\n"
                   "Window { Item { property alias popup: popup; Popup { id: popup } } }",
                   QUrl());
    const QScopedPointer<QQuickWindow> second(qobject_cast<QQuickWindow *>(window.create()));
    QVERIFY2(second, qPrintable(window.errorString()));
    QQuickItem *declared = second->contentItem()->childItems().value(0);
    QCOMPARE(declared->property("popup").value<QQuickItem *>()->parentItem(),
             second->contentItem());
}

void TestPopup::openedInQmlOpensAtCompletion()
{
    QmlView view;
    view.load("Item { property var log: []; width: 100; height: 100\n"
              "Item { Popup { objectName: 'popup'; open: true; width: 50; height: 50\n"
              "onOpenChanged: log.push(open); Component.onCompleted: log.push('done') } } }");
    QQuickItem *popup = view.item<>("popup");
    QCOMPARE(popup->property("open"), QVariant(true));
    QVERIFY(popup->isEnabled());
    QVERIFY(popup->isVisible());
    QCOMPARE(evaluate(view.root(), QStringLiteral("log.join()")).toString(),
             QStringLiteral("true,done"));
    view.show();
    QTRY_COMPARE(popup->opacity(), 1.0);
    // The window came later; it is watched all the same.
    press(view.window(), QPoint(80, 80));
    QCOMPARE(popup->property("open"), QVariant(false));
}

void TestPopup::openIsOnlyRememberedBeforeCompletion()
{
    QmlView view;
    view.load("Item { id: root }");
    QQmlComponent component(view.engine());
    component.setData("import ombrel.Controls 1.0; Popup {}", QUrl());
    QScopedPointer<QQuickItem> popup(
        qobject_cast<QQuickItem *>(component.beginCreate(qmlContext(view.root()))));
    popup->setParentItem(view.root());
    QSignalSpy openChanged(popup.data(), SIGNAL(openChanged(bool)));
    popup->setProperty("open", true);
    QCOMPARE(popup->property("open"), QVariant(false));
    QVERIFY(!popup->isVisible());
    popup->setProperty("open", false);
    component.completeCreate();
    QCOMPARE(popup->property("open"), QVariant(false));
    QCOMPARE(openChanged.count(), 0);
}

void TestPopup::completedWithoutAParentStaysClosed()
{
    QmlView view;
    view.load("Item { width: 100; height: 100 }");
    QQmlComponent component(view.engine());
    component.setData("import ombrel.Controls 1.0; Popup { open: true; width: 10; height: 10 }",
                      QUrl());
    const QScopedPointer<QQuickItem> popup(qobject_cast<QQuickItem *>(component.create()));
    QCOMPARE(popup->property("open"), QVariant(false));
    // It works as any other once it has been put somewhere.
    popup->setParentItem(view.root());
    view.show();
    popup->setProperty("open", true);
    QTRY_COMPARE(popup->opacity(), 1.0);
    press(view.window(), QPoint(80, 80));
    QCOMPARE(popup->property("open"), QVariant(false));
}

void TestPopup::orderOfOpening()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/popup.qml"));
    view.show();
    QQuickItem *popup = view.item<>("popup");
    view.item<>("target")->setX(50);
    // As if the frame had not come yet: only opening itself puts the popup into place.
    QTRY_COMPARE(popup->x(), 100.0);
    popup->setX(0);
    SignalRecorder recorder;
    const auto probe = [popup] {
        const auto *fade = fadeOf(popup);
        return QStringLiteral("%1 %2 %3 %4")
            .arg(popup->isVisible() ? "visible" : "hidden",
                 fade->direction() == QAbstractAnimation::Forward ? "forward" : "backward",
                 fade->state() == QAbstractAnimation::Running ? "running" : "stopped",
                 popup->isEnabled() ? "enabled" : "disabled");
    };
    recorder.watch(popup, QStringLiteral("popup"),
                   {QStringLiteral("visibleChanged"), QStringLiteral("enabledChanged"),
                    QStringLiteral("openChanged"), QStringLiteral("xChanged"),
                    QStringLiteral("activeFocusChanged")},
                   probe);
    recorder.watch(fadeOf(popup), QStringLiteral("fade"), {QStringLiteral("stateChanged")}, probe);
    QVERIFY(popup->setProperty("open", true));
    QCOMPARE(recorder.entries(),
             (QStringList{
                 QStringLiteral("popup.visibleChanged [visible forward stopped disabled]"),
                 QStringLiteral("fade.stateChanged [visible forward running disabled]"),
                 QStringLiteral("popup.enabledChanged [visible forward running enabled]"),
                 QStringLiteral("popup.openChanged [visible forward running enabled]"),
                 QStringLiteral("popup.xChanged [visible forward running enabled]"),
                 QStringLiteral("popup.activeFocusChanged [visible forward running enabled]")}));
    QCOMPARE(recorder.arguments(3), QVariantList{true});
}

void TestPopup::orderOfClosing()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/popup.qml"));
    view.show();
    QQuickItem *popup = view.item<>("popup");
    evaluate(view.root(), QStringLiteral("popup.show()"));
    QTRY_COMPARE(popup->opacity(), 1.0);
    QTRY_VERIFY(fadeOf(popup)->state() == QAbstractAnimation::Stopped);
    popup->setX(0);
    SignalRecorder recorder;
    const auto probe = [popup] {
        return QStringLiteral("%1 %2").arg(
            fadeOf(popup)->direction() == QAbstractAnimation::Forward ? "forward" : "backward",
            popup->isEnabled() ? "enabled" : "disabled");
    };
    recorder.watch(popup, QStringLiteral("popup"),
                   {QStringLiteral("visibleChanged"), QStringLiteral("enabledChanged"),
                    QStringLiteral("openChanged"), QStringLiteral("xChanged"),
                    QStringLiteral("animationFinished")},
                   probe);
    recorder.watch(fadeOf(popup), QStringLiteral("fade"), {QStringLiteral("stateChanged")}, probe);
    popup->setProperty("open", false);
    QCOMPARE(recorder.entries(),
             (QStringList{QStringLiteral("fade.stateChanged [backward enabled]"),
                          QStringLiteral("popup.enabledChanged [backward disabled]"),
                          QStringLiteral("popup.openChanged [backward disabled]"),
                          QStringLiteral("popup.xChanged [backward disabled]")}));
    QCOMPARE(recorder.arguments(2), QVariantList{false});
    recorder.take();
    QTRY_VERIFY(!popup->isVisible());
    QCOMPARE(recorder.take(),
             (QStringList{QStringLiteral("fade.stateChanged [backward disabled]"),
                          QStringLiteral("popup.animationFinished [backward disabled]"),
                          QStringLiteral("popup.visibleChanged [backward disabled]")}));
}

void TestPopup::acceptClosesBeforeItSaysSo()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/popup.qml"));
    QQuickItem *popup = view.item<>("popup");
    evaluate(view.root(), QStringLiteral("popup.show()"));
    SignalRecorder recorder;
    recorder.watch(
        popup, QStringLiteral("popup"),
        {QStringLiteral("openChanged"), QStringLiteral("accepted"), QStringLiteral("rejected")});
    evaluate(view.root(), QStringLiteral("popup.accept({ answer: [42] })"));
    QCOMPARE(recorder.entries(),
             (QStringList{QStringLiteral("popup.openChanged"), QStringLiteral("popup.accepted")}));
    QCOMPARE(recorder.arguments(0), QVariantList{false});
    const QVariant result = recorder.arguments(1).value(0);
    const QVariantMap map = result.userType() == qMetaTypeId<QJSValue>()
        ? result.value<QJSValue>().toVariant().toMap()
        : result.toMap();
    QCOMPARE(map, (QVariantMap{{QStringLiteral("answer"), QVariantList{42}}}));
    recorder.take();
    evaluate(view.root(), QStringLiteral("popup.show()"));
    recorder.take();
    evaluate(view.root(), QStringLiteral("popup.accept('text')"));
    QCOMPARE(recorder.arguments(1), QVariantList{QStringLiteral("text")});
}

void TestPopup::rejectClosesBeforeItSaysSo()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/popup.qml"));
    QQuickItem *popup = view.item<>("popup");
    evaluate(view.root(), QStringLiteral("popup.show()"));
    SignalRecorder recorder;
    recorder.watch(
        popup, QStringLiteral("popup"),
        {QStringLiteral("openChanged"), QStringLiteral("accepted"), QStringLiteral("rejected")});
    evaluate(view.root(), QStringLiteral("popup.reject()"));
    QCOMPARE(recorder.take(),
             (QStringList{QStringLiteral("popup.openChanged"), QStringLiteral("popup.rejected")}));
}

void TestPopup::closedPopupsAnswerAcceptAndReject()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/popup.qml"));
    QQuickItem *popup = view.item<>("popup");
    SignalRecorder recorder;
    recorder.watch(
        popup, QStringLiteral("popup"),
        {QStringLiteral("openChanged"), QStringLiteral("accepted"), QStringLiteral("rejected")});
    evaluate(view.root(), QStringLiteral("popup.reject(); popup.accept(1)"));
    QCOMPARE(recorder.take(),
             (QStringList{QStringLiteral("popup.rejected"), QStringLiteral("popup.accepted")}));
}

void TestPopup::positionOfTheHotspot()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/popup.qml"));
    QQuickItem *popup = view.item<>("popup");
    popup->setProperty("open", true);
    QCOMPARE(popup->parentItem(), view.root());
    QCOMPARE(popup->position(), QPointF(90, 80));
    popup->setProperty("hotspot", QPointF(-5, 7));
    QCOMPARE(popup->position(), QPointF(105, 73));
    popup->setProperty("offset", QPointF(1, 2));
    QCOMPARE(popup->position(), QPointF(106, 45));
}

void TestPopup::attachedItemAloneDoesNotMove()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/popup.qml"));
    QQuickItem *popup = view.item<>("popup");
    popup->setProperty("open", true);
    popup->setProperty("attachedItem", QVariant::fromValue(view.item<>("place")));
    QCOMPARE(popup->position(), QPointF(90, 80));
    evaluate(view.root(), QStringLiteral("popup.updatePosition()"));
    QCOMPARE(popup->position(), QPointF(50, 60));
}

void TestPopup::withoutAttachedItemTheParentCounts()
{
    QmlView view;
    view.load("Item { width: 200; height: 200\n"
              "Item { x: 30; Popup { objectName: 'popup'; offset: Qt.point(7, 8) } } }");
    QQuickItem *popup = view.item<>("popup");
    popup->setProperty("open", true);
    QCOMPARE(popup->position(), QPointF(7, 8));
}

void TestPopup::followsItsItem_data()
{
    QTest::addColumn<bool>("open");
    QTest::newRow("open") << true;
    QTest::newRow("closed") << false;
}

void TestPopup::followsItsItem()
{
    QFETCH(bool, open);
    QmlView view;
    view.loadFile(QStringLiteral("data/popup.qml"));
    view.show();
    QQuickItem *popup = view.item<>("popup");
    popup->setProperty("open", open);
    view.item<>("place")->setPosition(QPointF(100, 10));
    QTRY_COMPARE(popup->position(), QPointF(130, 60));
}

void TestPopup::followsAcrossRotationAndScale()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/popup.qml"));
    view.show();
    QQuickItem *popup = view.item<>("popup");
    QQuickItem *target = view.item<>("target");
    target->setTransformOrigin(QQuickItem::TopLeft);
    target->setRotation(90);
    target->setScale(2);
    // The anchor point (0, 30) turns to the left of the target's corner and twice as far away.
    QTRY_COMPARE(popup->position().toPoint(), QPoint(100 - 60 - 10, 50));
    QCOMPARE(popup->rotation(), 0.0);
}

void TestPopup::completedBeforeItsWindow()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/popup.qml"));
    // The view puts the document into its window only after it was made.
    QQuickItem *popup = view.item<>("popup");
    view.show();
    view.item<>("target")->setX(0);
    QTRY_COMPARE(popup->x(), 50.0);
}

void TestPopup::repositionsOnTheGuiThread()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/popup.qml"));
    view.show();
    QQuickItem *popup = view.item<>("popup");
    popup->setProperty("open", true);
    QList<QThread *> threads;
    connect(
        popup, &QQuickItem::xChanged, popup,
        [&threads] { threads.append(QThread::currentThread()); }, Qt::DirectConnection);
    view.item<>("target")->setX(0);
    QTRY_COMPARE(popup->x(), 50.0);
    QCOMPARE(threads, QList<QThread *>{thread()});
}

void TestPopup::pressOutsideIsConsumed()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/popup.qml"));
    view.show();
    QQuickItem *popup = view.item<>("popup");
    press(view.window(), outside);
    QCOMPARE(view.root()->property("pressedBelow"), QVariant(1));
    popup->setProperty("open", true);
    SignalRecorder recorder;
    recorder.watch(
        popup, QStringLiteral("popup"),
        {QStringLiteral("openChanged"), QStringLiteral("accepted"), QStringLiteral("rejected")});
    press(view.window(), outside);
    QCOMPARE(recorder.take(),
             (QStringList{QStringLiteral("popup.openChanged"), QStringLiteral("popup.rejected")}));
    QCOMPARE(view.root()->property("pressedBelow"), QVariant(1));
    // Closed, it leaves presses alone.
    press(view.window(), outside);
    QCOMPARE(recorder.take(), QStringList());
    QCOMPARE(view.root()->property("pressedBelow"), QVariant(2));
}

void TestPopup::pressOutsideWithoutAttachedItem()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/popup.qml"));
    view.show();
    QQuickItem *popup = view.item<>("popup");
    popup->setProperty("attachedItem", QVariant::fromValue<QQuickItem *>(nullptr));
    popup->setProperty("open", true);
    QCOMPARE(popup->position(), QPointF(-10, 30));
    press(view.window(), inTarget);
    QCOMPARE(popup->property("open"), QVariant(false));
    QCOMPARE(view.root()->property("pressedInTarget"), QVariant(0));
}

void TestPopup::pressInTheAttachedItemPasses()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/popup.qml"));
    view.show();
    QQuickItem *popup = view.item<>("popup");
    popup->setProperty("open", true);
    press(view.window(), inTarget);
    QCOMPARE(popup->property("open"), QVariant(true));
    QCOMPARE(view.root()->property("pressedInTarget"), QVariant(1));
}

void TestPopup::pressInThePopupPasses()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/popup.qml"));
    view.show();
    QQuickItem *popup = view.item<>("popup");
    popup->setProperty("open", true);
    press(view.window(), inPopup);
    QCOMPARE(popup->property("open"), QVariant(true));
    QCOMPARE(view.root()->property("pressedInPopup"), QVariant(1));
    QCOMPARE(view.root()->property("pressedBelow"), QVariant(0));
}

void TestPopup::onlyTheShapeCounts()
{
    QmlView view;
    view.load("Item { id: root; width: 300; height: 300\n"
              "Item { id: half; width: 20; height: 100 }\n"
              "Item { id: target; x: 150; width: 100; height: 100; containmentMask: half }\n"
              "Popup { id: popup; objectName: 'popup'; width: 100; height: 100\n"
              "attachedItem: root } }");
    view.show();
    QQuickItem *popup = view.item<>("popup");
    popup->setProperty("containmentMask",
                       evaluate(view.root(), QStringLiteral("target.containmentMask")));
    // Over the popup's frame but outside its shape, the attached item being all of the window.
    popup->setProperty("open", true);
    press(view.window(), QPoint(60, 50));
    QCOMPARE(popup->property("open"), QVariant(true));
    evaluate(view.root(),
             QStringLiteral("popup.attachedItem = target; popup.offset = "
                            "Qt.point(-150, 0)"));
    press(view.window(), QPoint(10, 50));
    QCOMPARE(popup->property("open"), QVariant(true));
    press(view.window(), QPoint(160, 50));
    QCOMPARE(popup->property("open"), QVariant(true));
    press(view.window(), QPoint(60, 50));
    QCOMPARE(popup->property("open"), QVariant(false));
    popup->setProperty("open", true);
    press(view.window(), QPoint(200, 50));
    QCOMPARE(popup->property("open"), QVariant(false));
}

void TestPopup::escapeIsConsumed()
{
    QmlView view;
    view.load("Item { id: root; property int escapes: 0; width: 100; height: 100; focus: true\n"
              "Keys.onEscapePressed: ++escapes\n"
              "Popup { id: popup; objectName: 'popup'; width: 50; height: 50 } }");
    view.show();
    QQuickItem *popup = view.item<>("popup");
    SignalRecorder recorder;
    recorder.watch(popup, QStringLiteral("popup"),
                   {QStringLiteral("openChanged"), QStringLiteral("rejected")});
    popup->setProperty("open", true);
    QTest::keyClick(view.window(), Qt::Key_Escape);
    QCOMPARE(recorder.take(),
             (QStringList{QStringLiteral("popup.openChanged"), QStringLiteral("popup.openChanged"),
                          QStringLiteral("popup.rejected")}));
    QCOMPARE(view.root()->property("escapes"), QVariant(0));
    view.root()->forceActiveFocus();
    QTest::keyClick(view.window(), Qt::Key_Escape);
    QCOMPARE(view.root()->property("escapes"), QVariant(1));
}

void TestPopup::otherKeysReachThePopup()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/popup.qml"));
    view.show();
    QQuickItem *popup = view.item<>("popup");
    popup->setProperty("open", true);
    QVERIFY(popup->hasActiveFocus());
    QTest::keyClick(view.window(), Qt::Key_A);
    QTest::keyClick(view.window(), Qt::Key_B);
    QCOMPARE(view.root()->property("typed").toString(), QStringLiteral("ab"));
    QCOMPARE(popup->property("open"), QVariant(true));
}

void TestPopup::persistentIgnoresAll()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/popup.qml"));
    view.show();
    QQuickItem *popup = view.item<>("popup");
    popup->setProperty("persistent", true);
    popup->setProperty("open", true);
    press(view.window(), outside);
    QTest::keyClick(view.window(), Qt::Key_Escape);
    QCOMPARE(popup->property("open"), QVariant(true));
    // Neither is kept from whom it was meant for.
    QCOMPARE(view.root()->property("pressedBelow"), QVariant(1));
    QCOMPARE(view.root()->property("typed").toString(), QStringLiteral("\x1b"));
    evaluate(view.root(), QStringLiteral("popup.reject()"));
    QCOMPARE(popup->property("open"), QVariant(false));
}

void TestPopup::theLastOpenedIsAskedFirst()
{
    QmlView view;
    view.load("Item { id: root; property var log: []; width: 200; height: 200\n"
              "Popup { id: first; objectName: 'first'; onRejected: log.push('first') }\n"
              "Popup { id: second; objectName: 'second'; onRejected: log.push('second') } }");
    view.show();
    evaluate(view.root(), QStringLiteral("second.show(); first.show()"));
    QTest::keyClick(view.window(), Qt::Key_Escape);
    QCOMPARE(evaluate(view.root(), QStringLiteral("log.join()")).toString(),
             QStringLiteral("first"));
    press(view.window(), QPoint(100, 100));
    QCOMPARE(evaluate(view.root(), QStringLiteral("log.join()")).toString(),
             QStringLiteral("first,second"));
}

void TestPopup::closedStaysVisibleWhileItFades()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/popup.qml"));
    view.show();
    QQuickItem *popup = view.item<>("popup");
    popup->setProperty("open", true);
    QTRY_VERIFY(fadeOf(popup)->state() == QAbstractAnimation::Stopped);
    QCOMPARE(popup->opacity(), 1.0);
    QCOMPARE(support::pixelError(support::grab(view.window()), inPopup, QColor("orange")),
             QString());
    popup->setProperty("open", false);
    fadeOf(popup)->pause();
    fadeOf(popup)->setCurrentTime(50);
    QVERIFY(popup->isVisible());
    QVERIFY(!popup->isEnabled());
    QCOMPARE(popup->opacity(), 0.5);
    fadeOf(popup)->resume();
    QTRY_VERIFY(!popup->isVisible());
    QCOMPARE(popup->opacity(), 0.0);
    QCOMPARE(support::pixelError(support::grab(view.window()), inPopup, Qt::white), QString());
}

void TestPopup::reopeningTurnsTheFadeRound()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/popup.qml"));
    view.show();
    QQuickItem *popup = view.item<>("popup");
    QPropertyAnimation *fade = fadeOf(popup);
    popup->setProperty("open", true);
    QTRY_VERIFY(fade->state() == QAbstractAnimation::Stopped);
    QSignalSpy finished(popup, SIGNAL(animationFinished()));
    QSignalSpy visibleChanged(popup, SIGNAL(visibleChanged()));
    popup->setProperty("open", false);
    fade->setCurrentTime(40);
    const qreal before = popup->opacity();
    QCOMPARE(before, 0.4);
    popup->setProperty("open", true);
    QCOMPARE(popup->opacity(), before);
    QCOMPARE(fade->direction(), QAbstractAnimation::Forward);
    QTRY_COMPARE(finished.count(), 1);
    QCOMPARE(popup->opacity(), 1.0);
    QCOMPARE(visibleChanged.count(), 0);
}

void TestPopup::animationFinishedBothWays()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/popup.qml"));
    view.show();
    QQuickItem *popup = view.item<>("popup");
    SignalRecorder recorder;
    recorder.watch(popup, QStringLiteral("popup"), {QStringLiteral("animationFinished")},
                   [popup] { return popup->isVisible() ? QStringLiteral("visible") : QString(); });
    popup->setProperty("open", true);
    QTRY_COMPARE(recorder.entries().size(), 1);
    popup->setProperty("open", false);
    QTRY_COMPARE(recorder.entries().size(), 2);
    // The handler still sees the popup; only then it goes.
    QCOMPARE(recorder.entries().last(), QStringLiteral("popup.animationFinished [visible]"));
    QVERIFY(!popup->isVisible());
}

void TestPopup::aboveEverythingElse()
{
    QmlView view;
    view.load("Item { width: 100; height: 100\n"
              "Popup { objectName: 'popup'; width: 100; height: 100\n"
              "Rectangle { anchors.fill: parent; color: 'orange' } }\n"
              "Rectangle { anchors.fill: parent; z: 65539; color: 'blue' } }");
    view.show();
    QQuickItem *popup = view.item<>("popup");
    popup->setProperty("open", true);
    QTRY_COMPARE(popup->opacity(), 1.0);
    QCOMPARE(support::pixelError(support::grab(view.window()), QPoint(50, 50), QColor("orange")),
             QString());
}

void TestPopup::idleWindowCostsNoFrame_data()
{
    followsItsItem_data();
}

void TestPopup::idleWindowCostsNoFrame()
{
    QFETCH(bool, open);
    QmlView view;
    view.loadFile(QStringLiteral("data/popup.qml"));
    view.show();
    QQuickItem *popup = view.item<>("popup");
    popup->setProperty("open", true);
    QTRY_COMPARE(popup->opacity(), 1.0);
    popup->setProperty("open", open);
    QTRY_VERIFY(fadeOf(popup)->state() == QAbstractAnimation::Stopped);
    support::grab(view.window());
    QCOMPARE(support::framesWhileIdle(view.window()), 0);
}

void TestPopup::movingTargetCostsTwoFramesAMove()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/popup.qml"));
    view.show();
    QQuickItem *popup = view.item<>("popup");
    popup->setProperty("open", true);
    QTRY_VERIFY(fadeOf(popup)->state() == QAbstractAnimation::Stopped);
    support::grab(view.window());
    QCOMPARE(support::framesWhileIdle(view.window()), 0);
    for (int i = 1; i <= 4; ++i) {
        const int frames =
            support::framesOf(view.window(), [&] { view.item<>("target")->setX(40 + i); });
        QVERIFY2(frames >= 1 && frames <= 2, qPrintable(QString::number(frames)));
        QCOMPARE(popup->x(), 90.0 + i);
    }
}

void TestPopup::opensWithinOneFrame()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/popup.qml"));
    view.show();
    support::grab(view.window());
    QCOMPARE(support::framesWhileIdle(view.window()), 0);
    QQuickItem *popup = view.item<>("popup");
    QSignalSpy swapped(view.window(), &QQuickWindow::frameSwapped);
    popup->setProperty("open", true);
    // In place before the first frame, not only after it.
    QCOMPARE(popup->position(), QPointF(90, 80));
    QVERIFY(popup->isVisible());
    QTRY_VERIFY(swapped.count() >= 1);
}

void TestPopup::attachedItemDestroyedWhileOpen()
{
    QmlView view;
    view.load("Item { id: root; width: 300; height: 300; property Item target\n"
              "property Component maker: Item { x: 50; y: 50; width: 50; height: 50 }\n"
              "Component.onCompleted: target = maker.createObject(root)\n"
              "Popup { id: popup; objectName: 'popup'; width: 40; height: 40\n"
              "attachedItem: root.target } }");
    view.show();
    QQuickItem *popup = view.item<>("popup");
    popup->setProperty("attachedItem", view.root()->property("target"));
    popup->setProperty("open", true);
    QCOMPARE(popup->position(), QPointF(50, 50));
    SignalRecorder recorder;
    recorder.watch(popup, QStringLiteral("popup"), {QStringLiteral("attachedItemChanged")});
    delete view.root()->property("target").value<QQuickItem *>();
    QVERIFY(!popup->property("attachedItem").value<QQuickItem *>());
    QCOMPARE(recorder.take(), QStringList{QStringLiteral("popup.attachedItemChanged")});
    QCOMPARE(popup->property("open"), QVariant(true));
    evaluate(view.root(), QStringLiteral("popup.updatePosition()"));
    QCOMPARE(popup->position(), QPointF(0, 0));
    press(view.window(), QPoint(70, 70));
    QCOMPARE(popup->property("open"), QVariant(false));
}

void TestPopup::attachedItemInsideThePopup()
{
    QmlView view;
    view.load("Item { id: root; width: 300; height: 300\n"
              "Popup { id: popup; objectName: 'popup'; width: 40; height: 40\n"
              "offset: Qt.point(3, 3); attachedItem: inner\n"
              "Item { id: inner; x: 60; width: 20; height: 20 } } }");
    view.show();
    QQuickItem *popup = view.item<>("popup");
    popup->setPosition(QPointF(30, 40));
    popup->setProperty("open", true);
    QTRY_VERIFY(fadeOf(popup)->state() == QAbstractAnimation::Stopped);
    support::grab(view.window());
    // It does not run after itself.
    QCOMPARE(support::framesWhileIdle(view.window()), 0);
    QCOMPARE(popup->position(), QPointF(30, 40));
    press(view.window(), QPoint(30 + 65, 45));
    QCOMPARE(popup->property("open"), QVariant(true));
    popup->setProperty("attachedItem", QVariant::fromValue(popup));
    evaluate(view.root(), QStringLiteral("popup.updatePosition()"));
    QCOMPARE(popup->position(), QPointF(30, 40));
    press(view.window(), QPoint(200, 200));
    QCOMPARE(popup->property("open"), QVariant(false));
}

void TestPopup::destroyedWhileOpen()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/popup.qml"));
    view.show();
    const QPointer<QQuickItem> popup = view.item<>("popup");
    popup->setProperty("open", true);
    QSignalSpy openChanged(popup.data(), SIGNAL(openChanged(bool)));
    delete popup.data();
    QCOMPARE(openChanged.count(), 0);
    press(view.window(), outside);
    QTest::keyClick(view.window(), Qt::Key_Escape);
    QCOMPARE(view.root()->property("pressedBelow"), QVariant(1));
    view.item<>("target")->setX(1);
    support::grab(view.window());
}

void TestPopup::destroyedInsideItsEventFilter_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::addColumn<bool>("atOnce");
    QTest::newRow("press, at once") << false << true;
    QTest::newRow("press, by destroy()") << false << false;
    QTest::newRow("Escape, at once") << true << true;
    QTest::newRow("Escape, by destroy()") << true << false;
}

void TestPopup::destroyedInsideItsEventFilter()
{
    QFETCH(bool, byKey);
    QFETCH(bool, atOnce);
    QmlView view;
    view.load("Item { id: root; width: 400; height: 300; property int pressedBelow: 0\n"
              "property Component maker: Popup { width: 40; height: 40 }\n"
              "MouseArea { anchors.fill: parent; onPressed: ++root.pressedBelow } }");
    view.show();
    const QPointer<QQuickItem> popup =
        evaluate(view.root(), QStringLiteral("maker.createObject(root)")).value<QQuickItem *>();
    QVERIFY(popup);
    popup->setProperty("open", true);
    if (atOnce) {
        // An object without QML handlers of its own may be deleted where it stands.
        struct Deleter : QObject
        {
            int qt_metacall(QMetaObject::Call call, int id, void **arguments) override
            {
                id = QObject::qt_metacall(call, id, arguments);
                if (id == 0 && call == QMetaObject::InvokeMetaMethod) {
                    delete target.data();
                    return -1;
                }
                return id;
            }
            QPointer<QQuickItem> target;
        } deleter;
        deleter.target = popup;
        QMetaObject::connect(popup, popup->metaObject()->indexOfSignal("openChanged(bool)"),
                             &deleter, QObject::staticMetaObject.methodCount());
        byKey ? QTest::keyClick(view.window(), Qt::Key_Escape) : press(view.window(), outside);
        QVERIFY(!popup);
    } else {
        evaluate(popup, QStringLiteral("rejected.connect(function() { destroy() })"));
        byKey ? QTest::keyClick(view.window(), Qt::Key_Escape) : press(view.window(), outside);
        QTRY_VERIFY(!popup);
    }
    QCOMPARE(view.root()->property("pressedBelow"), QVariant(0));
    press(view.window(), outside);
    QCOMPARE(view.root()->property("pressedBelow"), QVariant(1));
}

void TestPopup::destroyedInsideASignal_data()
{
    QTest::addColumn<QString>("signalName");
    QTest::addColumn<QString>("action");
    QTest::newRow("opening") << "openChanged"
                             << "popup.open = true";
    QTest::newRow("closing") << "openChanged"
                             << "popup.open = true; popup.open = false";
    QTest::newRow("accepted") << "accepted"
                              << "popup.open = true; popup.accept(1)";
    QTest::newRow("rejected") << "rejected"
                              << "popup.open = true; popup.reject()";
    QTest::newRow("faded in") << "animationFinished"
                              << "popup.open = true";
    QTest::newRow("faded out") << "animationFinished"
                               << "popup.open = true; popup.open = false";
}

void TestPopup::destroyedInsideASignal()
{
    QFETCH(QString, signalName);
    QFETCH(QString, action);
    QmlView view;
    view.load("Item { id: root; width: 400; height: 300; property Item popup\n"
              "property int pressedBelow: 0\n"
              "property Component maker: Popup { width: 40; height: 40 }\n"
              "MouseArea { anchors.fill: parent; onPressed: ++root.pressedBelow } }");
    view.show();
    evaluate(view.root(),
             QStringLiteral("popup = maker.createObject(root); popup.%1.connect(function() { "
                            "popup.destroy() })")
                 .arg(signalName));
    const QPointer<QQuickItem> popup = view.root()->property("popup").value<QQuickItem *>();
    QVERIFY(popup);
    evaluate(view.root(), QStringLiteral("(function(popup) { %1 })(popup)").arg(action));
    QTRY_VERIFY(!popup);
    press(view.window(), outside);
    QCOMPARE(view.root()->property("pressedBelow"), QVariant(1));
}

void TestPopup::destroyedByItsLoader_data()
{
    destroyedInsideASignal_data();
}

void TestPopup::destroyedByItsLoader()
{
    QFETCH(QString, signalName);
    QFETCH(QString, action);
    QmlView view;
    view.load("Item { id: root; width: 400; height: 300; property Item popup: loader.item\n"
              "property int pressedBelow: 0\n"
              "MouseArea { anchors.fill: parent; onPressed: ++root.pressedBelow }\n"
              "Loader { id: loader; sourceComponent: Popup { width: 40; height: 40 } } }");
    view.show();
    evaluate(
        view.root(),
        QStringLiteral("popup.%1.connect(function() { loader.active = false })").arg(signalName));
    const QPointer<QQuickItem> popup = view.root()->property("popup").value<QQuickItem *>();
    QVERIFY(popup);
    QCOMPARE(popup->parentItem(), view.root());
    evaluate(view.root(), QStringLiteral("(function(popup) { %1 })(popup)").arg(action));
    QTRY_VERIFY(!popup);
    press(view.window(), outside);
    QCOMPARE(view.root()->property("pressedBelow"), QVariant(1));
}

void TestPopup::destroyedWithItsWindow_data()
{
    followsItsItem_data();
}

void TestPopup::destroyedWithItsWindow()
{
    QFETCH(bool, open);
    QmlView view;
    view.loadFile(QStringLiteral("data/popup.qml"));
    view.show();
    const QPointer<QQuickItem> popup = view.item<>("popup");
    popup->setProperty("open", true);
    popup->setProperty("open", open);
    view.close();
    QVERIFY(!popup);

    // The window goes first, the popup stays.
    QmlView second;
    second.load("Item { width: 100; height: 100 }");
    QQmlComponent component(second.engine());
    component.setData("import QtQuick 2.12; import ombrel.Controls 1.0; Item { property alias "
                      "popup: popup; Popup { id: popup } }",
                      QUrl());
    const QScopedPointer<QQuickItem> root(qobject_cast<QQuickItem *>(component.create()));
    auto *orphan = root->property("popup").value<QQuickItem *>();
    {
        QQuickWindow window;
        root->setParentItem(window.contentItem());
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        orphan->setProperty("open", true);
        orphan->setProperty("open", open);
    }
    QVERIFY(!orphan->window());
    QCOMPARE(orphan->property("open"), QVariant(open));
    QTRY_VERIFY(fadeOf(orphan)->state() == QAbstractAnimation::Stopped);
    orphan->setProperty("open", false);
    QTRY_VERIFY(fadeOf(orphan)->state() == QAbstractAnimation::Stopped);
}

void TestPopup::movedToAnotherWindowWhileOpen()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/popup.qml"));
    view.show();
    QQuickItem *popup = view.item<>("popup");
    popup->setProperty("open", true);

    support::CountingWindow second;
    second.setFlag(Qt::FramelessWindowHint);
    second.setGeometry(600, 100, 300, 300);
    second.show();
    QVERIFY(QTest::qWaitForWindowExposed(&second));
    QQuickItem target(second.contentItem());
    target.setPosition(QPointF(20, 20));
    const int followers = second.followers();
    popup->setProperty("attachedItem", QVariant::fromValue(&target));
    popup->setParentItem(second.contentItem());
    QCOMPARE(second.followers(), followers + 1);
    second.update();
    QTRY_COMPARE(popup->position(), QPointF(10, 50));

    // The old window's input is its own again.
    press(view.window(), outside);
    QTest::keyClick(view.window(), Qt::Key_Escape);
    QCOMPARE(popup->property("open"), QVariant(true));
    QCOMPARE(view.root()->property("pressedBelow"), QVariant(1));
    // The new one's frames and presses are the popup's.
    target.setX(100);
    QTRY_COMPARE(popup->x(), 90.0);
    press(&second, QPoint(50, 200));
    QCOMPARE(popup->property("open"), QVariant(false));

    popup->setParentItem(view.root());
    QCOMPARE(second.followers(), followers);
}

void TestPopup::takenOutOfItsWindowWhileOpen()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/popup.qml"));
    view.show();
    QQuickItem *popup = view.item<>("popup");
    popup->setProperty("open", true);
    popup->setParentItem(nullptr);
    press(view.window(), outside);
    QCOMPARE(view.root()->property("pressedBelow"), QVariant(1));
    QCOMPARE(popup->property("open"), QVariant(true));
    evaluate(view.root(), QStringLiteral("popup.updatePosition()"));
    popup->setParentItem(view.root());
    press(view.window(), outside);
    QCOMPARE(view.root()->property("pressedBelow"), QVariant(1));
    QCOMPARE(popup->property("open"), QVariant(false));
}

void TestPopup::showInOnRejected()
{
    QmlView view;
    view.load("Item { id: root; width: 400; height: 300; property int rejections: 0\n"
              "Popup { id: popup; objectName: 'popup'; width: 40; height: 40\n"
              "onRejected: { if (++root.rejections < 3) popup.show() } } }");
    view.show();
    QQuickItem *popup = view.item<>("popup");
    popup->setProperty("open", true);
    for (int i = 1; i < 3; ++i) {
        press(view.window(), outside);
        QCOMPARE(view.root()->property("rejections"), QVariant(i));
        QCOMPARE(popup->property("open"), QVariant(true));
        QVERIFY(popup->isEnabled());
        QVERIFY(popup->hasActiveFocus());
    }
    QTest::keyClick(view.window(), Qt::Key_Escape);
    QCOMPARE(popup->property("open"), QVariant(false));
    QTRY_VERIFY(!popup->isVisible());
}

void TestPopup::changeOfMindWhileOpening_data()
{
    QTest::addColumn<QString>("handler");
    QTest::newRow("visibleChanged") << "visibleChanged";
    QTest::newRow("enabledChanged") << "enabledChanged";
    QTest::newRow("openChanged") << "openChanged";
    QTest::newRow("activeFocusChanged") << "activeFocusChanged";
}

void TestPopup::changeOfMindWhileOpening()
{
    QFETCH(QString, handler);
    QmlView view;
    view.loadFile(QStringLiteral("data/popup.qml"));
    view.show();
    QQuickItem *popup = view.item<>("popup");
    evaluate(view.root(),
             QStringLiteral("popup.%1.connect(function() { popup.open = false })").arg(handler));
    popup->setProperty("open", true);
    QCOMPARE(popup->property("open"), QVariant(false));
    QVERIFY(!popup->isEnabled());
    press(view.window(), outside);
    QCOMPARE(view.root()->property("pressedBelow"), QVariant(1));
    QTRY_VERIFY(!popup->isVisible());
    QCOMPARE(popup->opacity(), 0.0);
}

void TestPopup::reopenedWhileClosing()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/popup.qml"));
    view.show();
    QQuickItem *popup = view.item<>("popup");
    popup->setProperty("open", true);
    evaluate(view.root(),
             QStringLiteral("popup.openChanged.connect(function() { popup.open = true })"));
    popup->setProperty("open", false);
    QCOMPARE(popup->property("open"), QVariant(true));
    QVERIFY(popup->isEnabled());
    SignalRecorder recorder;
    recorder.watch(popup, QStringLiteral("popup"), {QStringLiteral("rejected")});
    press(view.window(), outside);
    QCOMPARE(recorder.take(), QStringList{QStringLiteral("popup.rejected")});
    QCOMPARE(view.root()->property("pressedBelow"), QVariant(0));
    QTRY_COMPARE(popup->opacity(), 1.0);
}

void TestPopup::aThousandOpensAndCloses()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/popup.qml"));
    view.show();
    QQuickItem *popup = view.item<>("popup");
    QSignalSpy finished(popup, SIGNAL(animationFinished()));
    evaluate(view.root(),
             QStringLiteral("for (let i = 0; i < 1000; ++i) { popup.show(); popup.reject(); }"));
    QTRY_VERIFY(!popup->isVisible());
    QVERIFY(finished.count() >= 1);
    press(view.window(), outside);
    QCOMPARE(view.root()->property("pressedBelow"), QVariant(1));
    evaluate(view.root(),
             QStringLiteral("for (let i = 0; i < 1001; ++i) popup.open = !popup.open"));
    QTRY_COMPARE(popup->opacity(), 1.0);
    press(view.window(), outside);
    QCOMPARE(view.root()->property("pressedBelow"), QVariant(1));
    QCOMPARE(popup->property("open"), QVariant(false));
}

QTEST_MAIN(TestPopup)
#include "tst_popup.moc"
