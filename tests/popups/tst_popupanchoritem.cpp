// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/popups/AnchorScene.h"
#include "tests/support/Leftovers.h"
#include "tests/support/Pixels.h"
#include "tests/support/QmlView.h"
#include "tests/support/SignalRecorder.h"

#include <QPointer>
#include <QQmlComponent>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>
#include <QThread>

#include <limits>

using support::evaluate;
using support::QmlView;
using support::SignalRecorder;

/// PopupAnchorItem: a popup that is made on demand and keeps to its place.
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
    void shownBeforeTheWindow();
    void shownInQml();

    void distancesOfThePlace();
    void distancesTruncateTowardsZero();
    void rotationsAddUp();
    void followsItsPlace();
    void hiddenStaysWhereItIs();
    void followsTheWindowsSize();
    void repositionsOnTheGuiThread();
    void idleWindowCostsNoFrame_data();
    void idleWindowCostsNoFrame();
    void movingPlaceCostsTwoFramesAMove();
    void putBackItFollowsTheNextMove_data();
    void putBackItFollowsTheNextMove();
    void farOutsideTheScene_data();
    void farOutsideTheScene();
    void insideItsOwnPopup();
};

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
    AnchorScene scene;
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
    AnchorScene scene;
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
    view.loadFile(QStringLiteral("data/initialstatecomesbeforethebindings.qml"));
    QQuickItem *anchor = view.item<>("anchor");
    QMetaObject::invokeMethod(anchor, "show");
    auto *made = anchor->property("popupItem").value<QQuickItem *>();
    QCOMPARE(evaluate(made, QStringLiteral("log.slice(0, 3).join()")).toString(),
             QStringLiteral("false,true,true"));
}

void TestPopupAnchorItem::orderOfTheFirstShow()
{
    AnchorScene scene;
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
    AnchorScene scene;
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
    AnchorScene scene;
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
    AnchorScene scene;
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
    AnchorScene scene;
    scene.run(QStringLiteral("anchor.show()"));
    QQuickItem *anchor = scene.anchor();
    QCOMPARE(anchor->parentItem(), scene.window->contentItem());
    QCOMPARE(anchor->parent(), static_cast<QObject *>(scene.anchorItem));
    QCOMPARE(anchor->z(), 65635.0);
    QCOMPARE(anchor->size(), QSizeF(0, 0));
    QVERIFY(!(anchor->flags() & QQuickItem::ItemHasContents));
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
    view.loadFile(QStringLiteral("data/showninqml.qml"));
    QQuickItem *anchor = view.item<>("anchor");
    auto *popup = anchor->property("popupItem").value<QQuickItem *>();
    QVERIFY(popup);
    view.show();
    QTRY_COMPARE(popup->parentItem()->position(), QPointF(20, 30));
    QVERIFY(popup->isEnabled());
    QCOMPARE(support::pixelError(support::grab(view.window()), QPoint(40, 50), QColor("orange")),
             QString());
}

void TestPopupAnchorItem::distancesOfThePlace()
{
    AnchorScene scene;
    scene.run(QStringLiteral("anchor.show()"));
    QCOMPARE(scene.distances(), (QList<int>{40, 559, 769}));
    QCOMPARE(scene.anchor()->position(), QPointF(30.7, 40.9));
}

void TestPopupAnchorItem::distancesTruncateTowardsZero()
{
    AnchorScene scene;
    scene.item("inner")->setPosition(QPointF(800, -41.5));
    SignalRecorder recorder;
    recorder.watch(scene.anchorItem, QStringLiteral("anchor"),
                   {QStringLiteral("distanceTopChanged"), QStringLiteral("distanceBottomChanged"),
                    QStringLiteral("distanceRightChanged")});
    scene.run(QStringLiteral("anchor.show()"));
    // (800.7, -40.6): towards zero on either side of it.
    QCOMPARE(scene.distances(), (QList<int>{-40, 640, 0}));
    // A distance that is the same as before emits nothing.
    QCOMPARE(recorder.take(),
             (QStringList{QStringLiteral("anchor.distanceTopChanged"),
                          QStringLiteral("anchor.distanceBottomChanged")}));
}

void TestPopupAnchorItem::rotationsAddUp()
{
    AnchorScene scene;
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
    AnchorScene scene;
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
    AnchorScene scene;
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
    AnchorScene scene;
    scene.run(QStringLiteral("anchor.show()"));
    scene.window->resize(700, 500);
    QTRY_COMPARE(scene.distances(), (QList<int>{40, 459, 669}));
}

void TestPopupAnchorItem::repositionsOnTheGuiThread()
{
    AnchorScene scene;
    scene.run(QStringLiteral("anchor.show()"));
    QList<QThread *> threads;
    connect(
        scene.anchor(), &QQuickItem::xChanged, scene.anchor(),
        [&threads] { threads.append(QThread::currentThread()); }, Qt::DirectConnection);
    scene.item("inner")->setX(200);
    QTRY_COMPARE(scene.anchor()->x(), 200.7);
    QCOMPARE(threads, QList<QThread *>{thread()});
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
    AnchorScene scene;
    scene.run(QStringLiteral("anchor.show()"));
    scene.anchorItem->setProperty("popupVisible", shown);
    QCOMPARE(support::framesWhileIdle(scene.window.data()), 0);
}

void TestPopupAnchorItem::movingPlaceCostsTwoFramesAMove()
{
    AnchorScene scene;
    scene.run(QStringLiteral("anchor.show()"));
    QCOMPARE(support::framesWhileIdle(scene.window.data()), 0);
    for (int i = 1; i <= 4; ++i) {
        const int frames =
            support::framesOf(scene.window.data(), [&] { scene.item("inner")->setX(30 + i); });
        QVERIFY2(frames >= 1 && frames <= 2, qPrintable(QString::number(frames)));
        QCOMPARE(scene.anchor()->x(), 30.7 + i);
    }
}

void TestPopupAnchorItem::putBackItFollowsTheNextMove_data()
{
    QTest::addColumn<QString>("puttingBack");
    QTest::newRow("the place") << QStringLiteral(
        "a.xChanged.connect(function() { if (a.x > 0) a.x = 0; })");
    QTest::newRow("the rotation") << QStringLiteral(
        "a.rotationChanged.connect(function() { if (a.rotation !== 0) a.rotation = 0; })");
}

/// A handler that puts the anchor back asks for a frame, as the move before it has: without an end,
/// if every frame moved the anchor again.
void TestPopupAnchorItem::putBackItFollowsTheNextMove()
{
    QFETCH(QString, puttingBack);
    AnchorScene scene;
    scene.run(QStringLiteral("anchor.show()"));
    scene.run(QStringLiteral("var a = anchor.popupItem.parent; ") + puttingBack);
    QCOMPARE(support::framesWhileIdle(scene.window.data()), 0);
    for (int i = 1; i <= 3; ++i) {
        auto *const inner = scene.item("inner");
        const qreal y = scene.anchor()->y();
        inner->setPosition(inner->position() + QPointF(1, 10));
        inner->setRotation(i);
        QTRY_VERIFY(scene.anchor()->y() > y + 5);
        QCOMPARE(support::framesWhileIdle(scene.window.data()), 0);
    }
}

void TestPopupAnchorItem::farOutsideTheScene_data()
{
    QTest::addColumn<QPointF>("place");
    QTest::addColumn<QList<int>>("distances");
    const int most = std::numeric_limits<int>::max();
    const int least = std::numeric_limits<int>::min();
    QTest::newRow("a thousand million")
        << QPointF(1e9, -1e9) << QList<int>{-1000000000, 1000000600, -999999200};
    QTest::newRow("beyond the whole numbers")
        << QPointF(1e10, -1e10) << QList<int>{least, most, least};
    QTest::newRow("infinitely far") << QPointF(-qInf(), qInf()) << QList<int>{most, least, most};
    QTest::newRow("nowhere") << QPointF(qQNaN(), qQNaN()) << QList<int>{0, 0, 0};
}

/// The distances end with what an int can hold.
void TestPopupAnchorItem::farOutsideTheScene()
{
    QFETCH(QPointF, place);
    QFETCH(QList<int>, distances);
    AnchorScene scene;
    scene.anchorItem->setPosition(QPointF());
    scene.item("inner")->setPosition(place);
    scene.run(QStringLiteral("anchor.show()"));
    QCOMPARE(scene.distances(), distances);
    support::grab(scene.window.data());
    QCOMPARE(support::framesWhileIdle(scene.window.data()), 0);
}

/// Following its own popup, the item would move with every frame, without end.
void TestPopupAnchorItem::insideItsOwnPopup()
{
    AnchorScene scene;
    scene.run(QStringLiteral("anchor.show()"));
    scene.anchorItem->setParentItem(scene.popup());
    support::grab(scene.window.data());
    QCOMPARE(support::framesWhileIdle(scene.window.data()), 0);
    QCOMPARE(scene.anchor()->position(), QPointF(30.7, 40.9));
    scene.anchorItem->setParentItem(scene.item("inner"));
}

QTEST_MAIN(TestPopupAnchorItem)
#include "tst_popupanchoritem.moc"
