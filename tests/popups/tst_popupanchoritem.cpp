// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Leftovers.h"
#include "tests/support/Pixels.h"
#include "tests/support/QmlView.h"
#include "tests/support/QmlWindow.h"
#include "tests/support/SignalRecorder.h"

#include <QPointer>
#include <QQmlComponent>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>
#include <QThread>

using support::evaluate;
using support::QmlView;
using support::SignalRecorder;

/// PopupAnchorItem: a popup that is made on demand, keeps to its place, and goes when it should.
class TestPopupAnchorItem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void defaults();
    void persistentNotifiesOnce();
    void popupNotifiesOnceAndKeepsTheItem();
    void initialStateComesBeforeTheBindings();
    void orderOfTheFirstShow();
    void orderOfLaterShowsAndHides();
    void keptAcrossHideAndShow();
    void neverTouchesVisibleOrOpacity();
    void anchorLiesInTheContentItem();
    void distancesOfThePlace();
    void distancesTruncateTowardsZero();
    void rotationsAddUp();
    void followsItsPlace();
    void hiddenStaysWhereItIs();
    void followsTheWindowsSize();
    void repositionsOnTheGuiThread();

    void pressOutsideHidesAndPasses();
    void pressInsidePasses();
    void pressInATurnedPopup();
    void onlyTheShapeCounts();
    void escapeIsConsumed();
    void persistentIgnoresAll();
    void closingTheWindowHides_data();
    void closingTheWindowHides();
    void watchesTheWindowOnlyWhileShown();

    void shownBeforeTheWindow();
    void shownInQml();

    void idleWindowCostsNoFrame_data();
    void idleWindowCostsNoFrame();
    void movingPlaceCostsTwoFramesAMove();

    void withoutAComponent();
    void componentFails_data();
    void componentFails();
    void componentMakesNoItem();
    void componentDestroyedWhileShown();
    void popupItemDestroyedWhileShown();
    void destroyedWhileShown();
    void destroyedInsideItsEventFilter_data();
    void destroyedInsideItsEventFilter();
    void destroyedInsideASignal_data();
    void destroyedInsideASignal();
    void destroyedByItsLoader();
    void destroyedWithItsWindow();
    void windowDestroyedFirst();
    void movedToAnotherWindowWhileShown();
    void changeOfMindWhileShowing_data();
    void changeOfMindWhileShowing();
    void aThousandShowsAndHides();
};

namespace {

const QPoint outside(500, 400);

/// data/anchor.qml in its window.
struct Scene : support::QmlWindow
{
    Scene()
        : QmlWindow(QStringLiteral("data/anchor.qml"))
    {
        anchorItem = window->findChild<QQuickItem *>(QStringLiteral("anchor"));
    }

    QQuickItem *popup() const { return anchorItem->property("popupItem").value<QQuickItem *>(); }
    /// The item at the top of the window that the popup lies in.
    QQuickItem *anchor() const { return popup() ? popup()->parentItem() : nullptr; }
    bool isShown() const { return anchorItem->property("popupVisible").toBool(); }
    void press(const QPoint &point)
    {
        QTest::mouseClick(window.data(), Qt::LeftButton, Qt::NoModifier, point);
    }
    QList<int> distances() const
    {
        return {anchorItem->property("distanceTop").toInt(),
                anchorItem->property("distanceBottom").toInt(),
                anchorItem->property("distanceRight").toInt()};
    }

    QPointer<QQuickItem> anchorItem;
};

} // namespace

void TestPopupAnchorItem::cleanup()
{
    QCOMPARE(support::leftovers(), QString());
}

void TestPopupAnchorItem::defaults()
{
    QmlView view;
    view.load("PopupAnchorItem {}");
    QVERIFY(!view.root()->property("popup").value<QQmlComponent *>());
    QVERIFY(!view.root()->property("popupItem").value<QQuickItem *>());
    QCOMPARE(view.root()->property("popupVisible"), QVariant(false));
    QCOMPARE(view.root()->property("persistent"), QVariant(false));
    QCOMPARE(view.root()->property("distanceTop"), QVariant(0));
    QCOMPARE(view.root()->property("distanceBottom"), QVariant(0));
    QCOMPARE(view.root()->property("distanceRight"), QVariant(0));
    const QMetaObject *meta = view.root()->metaObject();
    QCOMPARE(QByteArray(meta->classInfo(meta->indexOfClassInfo("DefaultProperty")).value()),
             QByteArray("popup"));
    for (const char *name : {"popupItem", "distanceTop", "distanceBottom", "distanceRight"}) {
        QVERIFY2(!meta->property(meta->indexOfProperty(name)).isWritable(), name);
    }
}

void TestPopupAnchorItem::persistentNotifiesOnce()
{
    QmlView view;
    view.load("PopupAnchorItem {}");
    SignalRecorder recorder;
    recorder.watch(view.root(), QStringLiteral("anchor"));
    view.root()->setProperty("persistent", true);
    view.root()->setProperty("persistent", true);
    QCOMPARE(recorder.take(), QStringList{QStringLiteral("anchor.persistentChanged")});
    view.root()->setProperty("persistent", false);
    QCOMPARE(recorder.take(), QStringList{QStringLiteral("anchor.persistentChanged")});
}

void TestPopupAnchorItem::popupNotifiesOnceAndKeepsTheItem()
{
    Scene scene;
    scene.run(QStringLiteral("anchor.show()"));
    const QPointer<QQuickItem> before = scene.popup();
    SignalRecorder recorder;
    recorder.watch(scene.anchorItem, QStringLiteral("anchor"),
                   {QStringLiteral("popupChanged"), QStringLiteral("popupItemChanged")});
    scene.run(QStringLiteral("anchor.popup = other; anchor.popup = other"));
    QCOMPARE(recorder.take(), QStringList{QStringLiteral("anchor.popupChanged")});
    QCOMPARE(scene.popup(), before.data());
    scene.run(QStringLiteral("anchor.hide(); anchor.show()"));
    QCOMPARE(scene.popup(), before.data());
    QCOMPARE(recorder.take(), QStringList());
    // Only once it is gone, a show makes the other one.
    delete before.data();
    scene.run(QStringLiteral("anchor.hide()"));
    QVERIFY(!scene.popup());
    scene.run(QStringLiteral("anchor.show()"));
    QCOMPARE(scene.popup()->objectName(), QStringLiteral("other"));
    QCOMPARE(recorder.take(), QStringList{QStringLiteral("anchor.popupItemChanged")});
}

void TestPopupAnchorItem::initialStateComesBeforeTheBindings()
{
    Scene scene;
    scene.run(QStringLiteral("anchor.show()"));
    QQuickItem *popup = scene.popup();
    QVERIFY(popup);
    // The object exists when the call returns.
    QCOMPARE(popup->property("seenOnCompletion"), QVariant(true));
    QCOMPARE(popup->parent(), static_cast<QObject *>(scene.anchorItem));
    QCOMPARE(evaluate(popup, QStringLiteral("states.join()")).toString(),
             QStringLiteral("false,true"));
    // Bound once before it was enabled, and again with it.
    QCOMPARE(popup->property("atFirst").toString(), QStringLiteral("true true true"));

    QmlView view;
    view.load("Item { id: root; PopupAnchorItem { id: anchor; objectName: 'anchor'\n"
              "Item { property var log: []\n"
              "property bool first: { log.push(enabled, parent !== null, anchor.popupItem !== "
              "null); return true } } } }");
    QQuickItem *anchor = view.item<>("anchor");
    QMetaObject::invokeMethod(anchor, "show");
    auto *made = anchor->property("popupItem").value<QQuickItem *>();
    QCOMPARE(evaluate(made, QStringLiteral("log.slice(0, 3).join()")).toString(),
             QStringLiteral("false,true,true"));
}

void TestPopupAnchorItem::orderOfTheFirstShow()
{
    Scene scene;
    SignalRecorder recorder;
    recorder.watch(scene.anchorItem, QStringLiteral("anchor"),
                   {QStringLiteral("popupVisibleChanged"), QStringLiteral("popupItemChanged"),
                    QStringLiteral("distanceTopChanged"), QStringLiteral("distanceBottomChanged"),
                    QStringLiteral("distanceRightChanged")},
                   [&scene] {
                       return !scene.popup()            ? QStringLiteral("none")
                           : scene.popup()->isEnabled() ? QStringLiteral("enabled")
                                                        : QStringLiteral("disabled");
                   });
    QVERIFY(!scene.popup());
    scene.run(QStringLiteral("anchor.show()"));
    QCOMPARE(recorder.take(),
             (QStringList{QStringLiteral("anchor.popupVisibleChanged [none]"),
                          QStringLiteral("anchor.popupItemChanged [disabled]"),
                          QStringLiteral("anchor.distanceTopChanged [disabled]"),
                          QStringLiteral("anchor.distanceBottomChanged [disabled]"),
                          QStringLiteral("anchor.distanceRightChanged [disabled]")}));
    QVERIFY(scene.popup()->isEnabled());
    QVERIFY(scene.anchor()->isEnabled());
}

void TestPopupAnchorItem::orderOfLaterShowsAndHides()
{
    Scene scene;
    scene.run(QStringLiteral("anchor.show()"));
    SignalRecorder recorder;
    recorder.watch(scene.anchorItem, QStringLiteral("anchor"),
                   {QStringLiteral("popupVisibleChanged"), QStringLiteral("popupItemChanged")});
    recorder.watch(scene.popup(), QStringLiteral("popup"), {QStringLiteral("enabledChanged")});
    recorder.watch(scene.anchor(), QStringLiteral("top"), {QStringLiteral("enabledChanged")});
    scene.run(QStringLiteral("anchor.popupVisible = true"));
    QCOMPARE(recorder.take(), QStringList());
    scene.run(QStringLiteral("anchor.hide()"));
    QCOMPARE(recorder.take(),
             (QStringList{QStringLiteral("anchor.popupVisibleChanged"),
                          QStringLiteral("popup.enabledChanged"),
                          QStringLiteral("top.enabledChanged")}));
    QVERIFY(!scene.anchor()->isEnabled());
    scene.run(QStringLiteral("anchor.hide()"));
    QCOMPARE(recorder.take(), QStringList());
    scene.run(QStringLiteral("anchor.popupVisible = true"));
    QCOMPARE(recorder.take().first(), QStringLiteral("anchor.popupVisibleChanged"));
    QVERIFY(scene.popup()->isEnabled());
}

void TestPopupAnchorItem::keptAcrossHideAndShow()
{
    Scene scene;
    scene.run(QStringLiteral("anchor.show()"));
    const QPointer<QQuickItem> popup = scene.popup();
    scene.run(QStringLiteral("anchor.hide()"));
    QCOMPARE(scene.popup(), popup.data());
    QVERIFY(!popup->isEnabled());
    scene.run(QStringLiteral("anchor.show()"));
    QCOMPARE(scene.popup(), popup.data());
    QCOMPARE(scene.run(QStringLiteral("log.join()")).toString(), QStringLiteral("completed"));
}

void TestPopupAnchorItem::neverTouchesVisibleOrOpacity()
{
    Scene scene;
    scene.run(QStringLiteral("anchor.show()"));
    QVERIFY(scene.popup()->isVisible());
    QVERIFY(scene.anchor()->isVisible());
    scene.run(QStringLiteral("anchor.hide()"));
    QVERIFY(scene.popup()->isVisible());
    QCOMPARE(scene.popup()->opacity(), 1.0);
    QCOMPARE(scene.anchor()->opacity(), 1.0);
    QCOMPARE(
        support::pixelError(support::grab(scene.window.data()), QPoint(60, 60), QColor("grey")),
        QString());
    scene.popup()->setVisible(false);
    scene.run(QStringLiteral("anchor.show()"));
    QVERIFY(!scene.popup()->isVisible());
}

void TestPopupAnchorItem::anchorLiesInTheContentItem()
{
    Scene scene;
    scene.run(QStringLiteral("anchor.show()"));
    QQuickItem *anchor = scene.anchor();
    QCOMPARE(anchor->parentItem(), scene.window->contentItem());
    QCOMPARE(anchor->parent(), static_cast<QObject *>(scene.anchorItem));
    QCOMPARE(anchor->z(), 65635.0);
    QCOMPARE(anchor->size(), QSizeF(0, 0));
    QVERIFY(!(anchor->flags() & QQuickItem::ItemHasContents));
}

void TestPopupAnchorItem::distancesOfThePlace()
{
    Scene scene;
    scene.run(QStringLiteral("anchor.show()"));
    QCOMPARE(scene.distances(), (QList<int>{40, 559, 769}));
    QCOMPARE(scene.anchor()->position(), QPointF(30.7, 40.9));
}

void TestPopupAnchorItem::distancesTruncateTowardsZero()
{
    Scene scene;
    scene.item("inner")->setPosition(QPointF(800, -41.5));
    SignalRecorder recorder;
    recorder.watch(scene.anchorItem, QStringLiteral("anchor"),
                   {QStringLiteral("distanceTopChanged"), QStringLiteral("distanceBottomChanged"),
                    QStringLiteral("distanceRightChanged")});
    scene.run(QStringLiteral("anchor.show()"));
    // (800.7, -40.6): towards zero on either side of it.
    QCOMPARE(scene.distances(), (QList<int>{-40, 640, 0}));
    // What has not changed says nothing.
    QCOMPARE(recorder.take(),
             (QStringList{QStringLiteral("anchor.distanceTopChanged"),
                          QStringLiteral("anchor.distanceBottomChanged")}));
}

void TestPopupAnchorItem::rotationsAddUp()
{
    Scene scene;
    scene.item("outer")->setTransformOrigin(QQuickItem::TopLeft);
    scene.run(QStringLiteral("anchor.show()"));
    QCOMPARE(scene.anchor()->rotation(), 0.0);
    scene.item("outer")->setRotation(90);
    QTRY_COMPARE(scene.anchor()->rotation(), 90.0);
    scene.item("inner")->setRotation(30);
    scene.anchorItem->setRotation(-5);
    QTRY_COMPARE(scene.anchor()->rotation(), 115.0);
}

void TestPopupAnchorItem::followsItsPlace()
{
    Scene scene;
    scene.run(QStringLiteral("anchor.show()"));
    SignalRecorder recorder;
    recorder.watch(scene.anchorItem, QStringLiteral("anchor"),
                   {QStringLiteral("distanceTopChanged"), QStringLiteral("distanceBottomChanged"),
                    QStringLiteral("distanceRightChanged")});
    scene.item("inner")->setPosition(QPointF(200, 100));
    QTRY_COMPARE(scene.anchor()->position(), QPointF(200.7, 100.9));
    QCOMPARE(recorder.take(),
             (QStringList{QStringLiteral("anchor.distanceTopChanged"),
                          QStringLiteral("anchor.distanceBottomChanged"),
                          QStringLiteral("anchor.distanceRightChanged")}));
    QCOMPARE(scene.distances(), (QList<int>{100, 499, 599}));
}

void TestPopupAnchorItem::hiddenStaysWhereItIs()
{
    Scene scene;
    scene.run(QStringLiteral("anchor.show(); anchor.hide()"));
    scene.item("inner")->setX(200);
    support::grab(scene.window.data());
    QCOMPARE(scene.anchor()->x(), 30.7);
    QCOMPARE(scene.distances().last(), 769);
    scene.run(QStringLiteral("anchor.show()"));
    QCOMPARE(scene.anchor()->x(), 200.7);
}

void TestPopupAnchorItem::followsTheWindowsSize()
{
    Scene scene;
    scene.run(QStringLiteral("anchor.show()"));
    scene.window->resize(700, 500);
    QTRY_COMPARE(scene.distances(), (QList<int>{40, 459, 669}));
}

void TestPopupAnchorItem::repositionsOnTheGuiThread()
{
    Scene scene;
    scene.run(QStringLiteral("anchor.show()"));
    QList<QThread *> threads;
    connect(
        scene.anchor(), &QQuickItem::xChanged, scene.anchor(),
        [&threads] { threads.append(QThread::currentThread()); }, Qt::DirectConnection);
    scene.item("inner")->setX(200);
    QTRY_COMPARE(scene.anchor()->x(), 200.7);
    QCOMPARE(threads, QList<QThread *>{thread()});
}

void TestPopupAnchorItem::pressOutsideHidesAndPasses()
{
    Scene scene;
    scene.run(QStringLiteral("anchor.show()"));
    scene.press(outside);
    QVERIFY(!scene.isShown());
    QCOMPARE(scene.window->property("pressedBelow"), QVariant(1));
    scene.press(outside);
    QCOMPARE(scene.window->property("pressedBelow"), QVariant(2));
}

void TestPopupAnchorItem::pressInsidePasses()
{
    Scene scene;
    scene.run(QStringLiteral("anchor.show()"));
    scene.press(QPoint(100, 100));
    QVERIFY(scene.isShown());
    QCOMPARE(scene.window->property("pressedInPopup"), QVariant(1));
    QCOMPARE(scene.window->property("pressedBelow"), QVariant(0));
}

void TestPopupAnchorItem::pressInATurnedPopup()
{
    Scene scene;
    scene.item("inner")->setPosition(QPointF(400, 200));
    scene.run(QStringLiteral("anchor.show()"));
    scene.anchorItem->setRotation(180);
    QTRY_COMPARE(scene.anchor()->rotation(), 180.0);
    // The popup now reaches to the left and upwards.
    scene.press(QPoint(300, 150));
    QVERIFY(scene.isShown());
    QCOMPARE(scene.window->property("pressedInPopup"), QVariant(1));
    scene.press(QPoint(450, 250));
    QVERIFY(!scene.isShown());
}

void TestPopupAnchorItem::onlyTheShapeCounts()
{
    Scene scene;
    scene.run(QStringLiteral("anchor.show()"));
    QQuickItem half;
    half.setSize(QSizeF(20, 80));
    scene.popup()->setProperty("containmentMask", QVariant::fromValue<QObject *>(&half));
    scene.press(QPoint(40, 60));
    QVERIFY(scene.isShown());
    scene.press(QPoint(100, 60));
    QVERIFY(!scene.isShown());
    scene.popup()->setProperty("containmentMask", QVariant::fromValue<QObject *>(nullptr));
}

void TestPopupAnchorItem::escapeIsConsumed()
{
    Scene scene;
    scene.run(QStringLiteral("anchor.show(); log = []"));
    QTest::keyClick(scene.window.data(), Qt::Key_A);
    QVERIFY(scene.isShown());
    QTest::keyClick(scene.window.data(), Qt::Key_Escape);
    QVERIFY(!scene.isShown());
    QCOMPARE(scene.run(QStringLiteral("log.join()")).toString(),
             QStringLiteral("key %1").arg(Qt::Key_A));
    QTest::keyClick(scene.window.data(), Qt::Key_Escape);
    QCOMPARE(scene.run(QStringLiteral("log.length")).toInt(), 2);
}

void TestPopupAnchorItem::persistentIgnoresAll()
{
    Scene scene;
    scene.run(QStringLiteral("anchor.persistent = true; anchor.show(); log = []"));
    scene.press(outside);
    QTest::keyClick(scene.window.data(), Qt::Key_Escape);
    QVERIFY(scene.isShown());
    QCOMPARE(scene.window->property("pressedBelow"), QVariant(1));
    QCOMPARE(scene.run(QStringLiteral("log.length")).toInt(), 1);
    scene.run(QStringLiteral("anchor.hide()"));
    QVERIFY(!scene.isShown());
}

void TestPopupAnchorItem::closingTheWindowHides_data()
{
    QTest::addColumn<bool>("persistent");
    QTest::newRow("persistent") << true;
    QTest::newRow("not persistent") << false;
}

void TestPopupAnchorItem::closingTheWindowHides()
{
    QFETCH(bool, persistent);
    Scene scene;
    scene.anchorItem->setProperty("persistent", persistent);
    scene.run(QStringLiteral("anchor.show()"));
    scene.window->close();
    QTRY_VERIFY(!scene.window->isVisible());
    QVERIFY(!scene.isShown());
    // The window itself got the event, too.
    QCOMPARE(scene.window->property("closings"), QVariant(1));
}

void TestPopupAnchorItem::watchesTheWindowOnlyWhileShown()
{
    support::CountingWindow window;
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData(
        "import QtQuick 2.12; import ombrel.Controls 1.0; PopupAnchorItem { Item {} }", QUrl());
    const QScopedPointer<QQuickItem> anchor(qobject_cast<QQuickItem *>(component.create()));
    anchor->setParentItem(window.contentItem());
    const int before = window.followers();
    for (int i = 0; i < 3; ++i) {
        anchor->setProperty("popupVisible", true);
        QCOMPARE(window.followers(), before + 1);
        anchor->setProperty("popupVisible", false);
        QCOMPARE(window.followers(), before);
    }
}

void TestPopupAnchorItem::shownBeforeTheWindow()
{
    QmlView view;
    view.load(
        "Item { width: 300; height: 200; PopupAnchorItem { objectName: 'anchor'; x: 20; y: 30\n"
        "Rectangle { width: 50; height: 50; color: 'orange' } } }");
    QQuickItem *anchor = view.item<>("anchor");
    QQuickItem loose;
    QQuickItem *home = anchor->parentItem();
    anchor->setParentItem(&loose);
    QVERIFY(!anchor->window());
    QMetaObject::invokeMethod(anchor, "show");
    auto *popup = anchor->property("popupItem").value<QQuickItem *>();
    QVERIFY(popup);
    QVERIFY(!popup->window());
    anchor->setParentItem(home);
    QCOMPARE(popup->parentItem()->parentItem(), view.window()->contentItem());
    view.show();
    QTRY_COMPARE(popup->parentItem()->position(), QPointF(20, 30));
    QTest::mouseClick(view.window(), Qt::LeftButton, Qt::NoModifier, QPoint(200, 150));
    QCOMPARE(anchor->property("popupVisible"), QVariant(false));
}

void TestPopupAnchorItem::shownInQml()
{
    QmlView view;
    view.load("Item { width: 300; height: 200\n"
              "PopupAnchorItem { objectName: 'anchor'; popupVisible: true; x: 20; y: 30\n"
              "Rectangle { width: 50; height: 50; color: 'orange' } } }");
    QQuickItem *anchor = view.item<>("anchor");
    auto *popup = anchor->property("popupItem").value<QQuickItem *>();
    QVERIFY(popup);
    view.show();
    QTRY_COMPARE(popup->parentItem()->position(), QPointF(20, 30));
    QVERIFY(popup->isEnabled());
    QCOMPARE(support::pixelError(support::grab(view.window()), QPoint(40, 50), QColor("orange")),
             QString());
}

void TestPopupAnchorItem::idleWindowCostsNoFrame_data()
{
    QTest::addColumn<bool>("shown");
    QTest::newRow("shown") << true;
    QTest::newRow("hidden") << false;
}

void TestPopupAnchorItem::idleWindowCostsNoFrame()
{
    QFETCH(bool, shown);
    Scene scene;
    scene.run(QStringLiteral("anchor.show()"));
    scene.anchorItem->setProperty("popupVisible", shown);
    QCOMPARE(support::framesWhileIdle(scene.window.data()), 0);
}

void TestPopupAnchorItem::movingPlaceCostsTwoFramesAMove()
{
    Scene scene;
    scene.run(QStringLiteral("anchor.show()"));
    QCOMPARE(support::framesWhileIdle(scene.window.data()), 0);
    for (int i = 1; i <= 4; ++i) {
        const int frames =
            support::framesOf(scene.window.data(), [&] { scene.item("inner")->setX(30 + i); });
        QVERIFY2(frames >= 1 && frames <= 2, qPrintable(QString::number(frames)));
        QCOMPARE(scene.anchor()->x(), 30.7 + i);
    }
}

void TestPopupAnchorItem::withoutAComponent()
{
    Scene scene;
    scene.run(QStringLiteral("anchor.popup = null"));
    SignalRecorder recorder;
    recorder.watch(scene.anchorItem, QStringLiteral("anchor"));
    scene.run(QStringLiteral("anchor.show()"));
    QCOMPARE(recorder.take(), QStringList{QStringLiteral("anchor.popupVisibleChanged")});
    QVERIFY(!scene.popup());
    scene.press(outside);
    QVERIFY(!scene.isShown());
    scene.run(QStringLiteral("anchor.popup = other; anchor.show()"));
    QVERIFY(scene.popup());
}

void TestPopupAnchorItem::componentFails_data()
{
    QTest::addColumn<QByteArray>("qml");
    QTest::addColumn<QString>("message");
    QTest::newRow("does not compile") << QByteArray("import QtQuick 2.12; Item { nothing: 1 }")
                                      << QStringLiteral("QQmlComponent: Component is not ready");
    // The object is there already when the error comes up.
    QTest::newRow("cannot be created")
        << QByteArray("import QtQuick 2.12; Item { Item { required property int needed } }")
        << QString();
}

void TestPopupAnchorItem::componentFails()
{
    QFETCH(QByteArray, qml);
    QFETCH(QString, message);
    Scene scene;
    QQmlComponent component(&scene.engine);
    component.setData(qml, QUrl());
    scene.anchorItem->setProperty("popup", QVariant::fromValue(&component));
    for (int i = 0; i < 2; ++i) {
        if (!message.isEmpty()) {
            QTest::ignoreMessage(QtWarningMsg, qPrintable(message));
        }
        scene.run(QStringLiteral("anchor.show()"));
        QVERIFY(scene.isShown());
        QVERIFY(!scene.popup());
        scene.press(outside);
        QVERIFY(!scene.isShown());
    }
    scene.run(QStringLiteral("anchor.popup = other; anchor.show()"));
    QVERIFY(scene.popup());
}

void TestPopupAnchorItem::componentMakesNoItem()
{
    Scene scene;
    scene.run(QStringLiteral("anchor.popup = noItem"));
    scene.run(QStringLiteral("anchor.show()"));
    QVERIFY(scene.isShown());
    QVERIFY(!scene.popup());
    QTest::keyClick(scene.window.data(), Qt::Key_Escape);
    QVERIFY(!scene.isShown());
}

void TestPopupAnchorItem::componentDestroyedWhileShown()
{
    Scene scene;
    auto *component = new QQmlComponent(&scene.engine);
    component->setData("import QtQuick 2.12; Item { width: 10; height: 10 }", QUrl());
    scene.anchorItem->setProperty("popup", QVariant::fromValue(component));
    scene.run(QStringLiteral("anchor.show()"));
    const QPointer<QQuickItem> popup = scene.popup();
    delete component;
    QVERIFY(!scene.anchorItem->property("popup").value<QQmlComponent *>());
    QVERIFY(popup);
    scene.run(QStringLiteral("anchor.hide(); anchor.show()"));
    QCOMPARE(scene.popup(), popup.data());
    delete popup.data();
    scene.run(QStringLiteral("anchor.hide(); anchor.show()"));
    QVERIFY(!scene.popup());
    scene.press(outside);
    QVERIFY(!scene.isShown());
}

void TestPopupAnchorItem::popupItemDestroyedWhileShown()
{
    Scene scene;
    scene.run(QStringLiteral("anchor.show()"));
    delete scene.popup();
    QVERIFY(!scene.popup());
    QVERIFY(scene.isShown());
    scene.item("inner")->setX(50);
    support::grab(scene.window.data());
    scene.press(QPoint(60, 60));
    QVERIFY(!scene.isShown());
    QVERIFY(!scene.popup());
    scene.run(QStringLiteral("anchor.show()"));
    QVERIFY(scene.popup());
    QVERIFY(scene.popup()->isEnabled());
}

void TestPopupAnchorItem::destroyedWhileShown()
{
    Scene scene;
    scene.run(QStringLiteral("anchor.show()"));
    const QPointer<QQuickItem> popup = scene.popup();
    const QPointer<QQuickItem> anchor = scene.anchor();
    delete scene.anchorItem.data();
    QVERIFY(!popup);
    QVERIFY(!anchor);
    scene.press(outside);
    QCOMPARE(scene.window->property("pressedBelow"), QVariant(1));
    support::grab(scene.window.data());
}

void TestPopupAnchorItem::destroyedInsideItsEventFilter_data()
{
    QTest::addColumn<QString>("what");
    QTest::newRow("press") << "press";
    QTest::newRow("Escape") << "Escape";
    QTest::newRow("close") << "close";
}

void TestPopupAnchorItem::destroyedInsideItsEventFilter()
{
    QFETCH(QString, what);
    Scene scene;
    scene.run(QStringLiteral("anchor.show()"));
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
    deleter.target = scene.anchorItem;
    QMetaObject::connect(scene.anchorItem,
                         scene.anchorItem->metaObject()->indexOfSignal("popupVisibleChanged()"),
                         &deleter, QObject::staticMetaObject.methodCount());
    if (what == QLatin1String("press")) {
        scene.press(outside);
        QCOMPARE(scene.window->property("pressedBelow"), QVariant(1));
    } else if (what == QLatin1String("Escape")) {
        QTest::keyClick(scene.window.data(), Qt::Key_Escape);
    } else {
        scene.window->close();
    }
    QVERIFY(!scene.anchorItem);
}

void TestPopupAnchorItem::destroyedInsideASignal_data()
{
    QTest::addColumn<QString>("handler");
    QTest::newRow("popupVisibleChanged") << "anchor.popupVisibleChanged";
    QTest::newRow("popupItemChanged") << "anchor.popupItemChanged";
    QTest::newRow("distanceTopChanged") << "anchor.distanceTopChanged";
    QTest::newRow("distanceRightChanged") << "anchor.distanceRightChanged";
}

void TestPopupAnchorItem::destroyedInsideASignal()
{
    QFETCH(QString, handler);
    Scene scene;
    QQmlComponent component(&scene.engine);
    component.setData("import QtQuick 2.12; import ombrel.Controls 1.0\n"
                      "PopupAnchorItem { id: anchor; x: 10; y: 10; Item {} }",
                      QUrl());
    for (const bool atOnce : {false, true}) {
        const QPointer<QQuickItem> anchor = qobject_cast<QQuickItem *>(component.create());
        anchor->setParentItem(scene.item("outer"));
        QQmlEngine::setObjectOwnership(anchor, QQmlEngine::JavaScriptOwnership);
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
        deleter.target = anchor;
        if (atOnce) {
            const QByteArray signal = handler.section(QLatin1Char('.'), 1).toLatin1() + "()";
            QMetaObject::connect(anchor, anchor->metaObject()->indexOfSignal(signal), &deleter,
                                 QObject::staticMetaObject.methodCount());
        } else {
            evaluate(anchor,
                     QStringLiteral("%1.connect(function() { anchor.destroy() })").arg(handler));
        }
        QMetaObject::invokeMethod(anchor, "show");
        QTRY_VERIFY(!anchor);
        scene.press(outside);
    }
    QCOMPARE(scene.window->property("pressedBelow"), QVariant(2));
}

void TestPopupAnchorItem::destroyedByItsLoader()
{
    QmlView view;
    view.load("Item { id: root; width: 300; height: 300; property int pressedBelow: 0\n"
              "MouseArea { anchors.fill: parent; onPressed: ++root.pressedBelow }\n"
              "Loader { id: loader; sourceComponent: PopupAnchorItem {\n"
              "onPopupVisibleChanged: if (!popupVisible) loader.active = false\n"
              "Rectangle { width: 20; height: 20 } } } }");
    view.show();
    const QPointer<QQuickItem> anchor =
        evaluate(view.root(), QStringLiteral("loader.item")).value<QQuickItem *>();
    QMetaObject::invokeMethod(anchor, "show");
    const QPointer<QQuickItem> popup = anchor->property("popupItem").value<QQuickItem *>();
    QVERIFY(popup);
    QTest::mouseClick(view.window(), Qt::LeftButton, Qt::NoModifier, QPoint(200, 200));
    QTRY_VERIFY(!anchor);
    QVERIFY(!popup);
    QCOMPARE(view.root()->property("pressedBelow"), QVariant(1));
}

void TestPopupAnchorItem::destroyedWithItsWindow()
{
    QPointer<QQuickItem> popup;
    {
        Scene scene;
        scene.run(QStringLiteral("anchor.show()"));
        popup = scene.popup();
    }
    QVERIFY(!popup);
}

void TestPopupAnchorItem::windowDestroyedFirst()
{
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData("import QtQuick 2.12; import ombrel.Controls 1.0\n"
                      "PopupAnchorItem { Rectangle { width: 20; height: 20 } }",
                      QUrl());
    const QScopedPointer<QQuickItem> anchor(qobject_cast<QQuickItem *>(component.create()));
    QQuickItem before;
    QQuickItem after;
    {
        QQuickWindow window;
        before.setParentItem(window.contentItem());
        anchor->setParentItem(window.contentItem());
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        anchor->setProperty("popupVisible", true);
        after.setParentItem(window.contentItem());
    }
    // Nobody was skipped while the window let go of its items.
    QVERIFY(!before.window());
    QVERIFY(!after.window());
    QVERIFY(!anchor->window());
    auto *popup = anchor->property("popupItem").value<QQuickItem *>();
    QVERIFY(popup && !popup->window());
    QCoreApplication::processEvents();

    QQuickWindow second;
    anchor->setParentItem(second.contentItem());
    QCOMPARE(popup->window(), &second);
    anchor->setProperty("popupVisible", false);
    anchor->setParentItem(nullptr);
    QTRY_VERIFY(!popup->window());
}

void TestPopupAnchorItem::movedToAnotherWindowWhileShown()
{
    Scene scene;
    scene.run(QStringLiteral("anchor.show()"));
    support::CountingWindow second;
    second.setFlag(Qt::FramelessWindowHint);
    second.setGeometry(950, 100, 200, 200);
    second.show();
    QVERIFY(QTest::qWaitForWindowExposed(&second));
    const int followers = second.followers();
    QQuickItem *home = scene.anchorItem->parentItem();
    scene.anchorItem->setParentItem(second.contentItem());
    QCOMPARE(second.followers(), followers + 1);
    QCOMPARE(scene.anchor()->parentItem(), second.contentItem());
    QTRY_COMPARE(scene.distances(), (QList<int>{0, 199, 199}));
    scene.press(outside);
    QTest::keyClick(scene.window.data(), Qt::Key_Escape);
    QVERIFY(scene.isShown());
    scene.anchorItem->setX(40.5);
    QTRY_COMPARE(scene.anchor()->x(), 40.5);
    QTest::mouseClick(&second, Qt::LeftButton, Qt::NoModifier, QPoint(190, 190));
    QVERIFY(!scene.isShown());
    QCOMPARE(second.followers(), followers);
    scene.anchorItem->setParentItem(home);
    QCOMPARE(scene.anchor()->parentItem(), scene.window->contentItem());
}

void TestPopupAnchorItem::changeOfMindWhileShowing_data()
{
    QTest::addColumn<QString>("handler");
    QTest::newRow("popupVisibleChanged") << "anchor.popupVisibleChanged";
    QTest::newRow("popupItemChanged") << "anchor.popupItemChanged";
    QTest::newRow("distanceBottomChanged") << "anchor.distanceBottomChanged";
}

void TestPopupAnchorItem::changeOfMindWhileShowing()
{
    QFETCH(QString, handler);
    Scene scene;
    scene.run(QStringLiteral("%1.connect(function() { anchor.hide() })").arg(handler));
    scene.run(QStringLiteral("anchor.show()"));
    QVERIFY(!scene.isShown());
    QVERIFY(!scene.popup() || !scene.popup()->isEnabled());
    scene.run(QStringLiteral("log = []"));
    QTest::keyClick(scene.window.data(), Qt::Key_Escape);
    QCOMPARE(scene.run(QStringLiteral("log.length")).toInt(), 1);
}

void TestPopupAnchorItem::aThousandShowsAndHides()
{
    Scene scene;
    scene.run(QStringLiteral("for (let i = 0; i < 1000; ++i) { anchor.show(); anchor.hide(); }"));
    QCOMPARE(scene.run(QStringLiteral("log.join()")).toString(), QStringLiteral("completed"));
    QVERIFY(!scene.popup()->isEnabled());
    scene.press(outside);
    QCOMPARE(scene.window->property("pressedBelow"), QVariant(1));
    scene.run(QStringLiteral("anchor.show()"));
    scene.press(outside);
    QVERIFY(!scene.isShown());
}

QTEST_MAIN(TestPopupAnchorItem)
#include "tst_popupanchoritem.moc"
