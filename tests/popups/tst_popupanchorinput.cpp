// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/popups/AnchorScene.h"
#include "tests/support/Leftovers.h"
#include "tests/support/QmlWindow.h"

#include <QQmlComponent>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

/// Which input hides the popup of a PopupAnchorItem, and which it leaves to other items.
class TestPopupAnchorInput : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void pressOutsideHidesAndPasses();
    void pressInsidePasses();
    void pressInATurnedPopup();
    void onlyTheShapeCounts();
    void escapeIsConsumed();
    void persistentIgnoresAll();
    void closingTheWindowHides_data();
    void closingTheWindowHides();
    void watchesTheWindowOnlyWhileShown();
    void movedToAnotherWindowWhileShown();
};

void TestPopupAnchorInput::cleanup()
{
    QCOMPARE(support::leftovers(), QString());
}

void TestPopupAnchorInput::pressOutsideHidesAndPasses()
{
    AnchorScene scene;
    scene.run(QStringLiteral("anchor.show()"));
    scene.press(outside);
    QVERIFY(!scene.isShown());
    QCOMPARE(scene.window->property("pressedBelow"), QVariant(1));
    scene.press(outside);
    QCOMPARE(scene.window->property("pressedBelow"), QVariant(2));
}

void TestPopupAnchorInput::pressInsidePasses()
{
    AnchorScene scene;
    scene.run(QStringLiteral("anchor.show()"));
    scene.press(QPoint(100, 100));
    QVERIFY(scene.isShown());
    QCOMPARE(scene.window->property("pressedInPopup"), QVariant(1));
    QCOMPARE(scene.window->property("pressedBelow"), QVariant(0));
}

void TestPopupAnchorInput::pressInATurnedPopup()
{
    AnchorScene scene;
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

void TestPopupAnchorInput::onlyTheShapeCounts()
{
    AnchorScene scene;
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

void TestPopupAnchorInput::escapeIsConsumed()
{
    AnchorScene scene;
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

void TestPopupAnchorInput::persistentIgnoresAll()
{
    AnchorScene scene;
    scene.run(QStringLiteral("anchor.persistent = true; anchor.show(); log = []"));
    scene.press(outside);
    QTest::keyClick(scene.window.data(), Qt::Key_Escape);
    QVERIFY(scene.isShown());
    QCOMPARE(scene.window->property("pressedBelow"), QVariant(1));
    QCOMPARE(scene.run(QStringLiteral("log.length")).toInt(), 1);
    scene.run(QStringLiteral("anchor.hide()"));
    QVERIFY(!scene.isShown());
}

void TestPopupAnchorInput::closingTheWindowHides_data()
{
    QTest::addColumn<bool>("persistent");
    QTest::newRow("persistent") << true;
    QTest::newRow("not persistent") << false;
}

void TestPopupAnchorInput::closingTheWindowHides()
{
    QFETCH(bool, persistent);
    AnchorScene scene;
    scene.anchorItem->setProperty("persistent", persistent);
    scene.run(QStringLiteral("anchor.show()"));
    scene.window->close();
    QTRY_VERIFY(!scene.window->isVisible());
    QVERIFY(!scene.isShown());
    // The window itself got the event, too.
    QCOMPARE(scene.window->property("closings"), QVariant(1));
}

void TestPopupAnchorInput::watchesTheWindowOnlyWhileShown()
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

void TestPopupAnchorInput::movedToAnotherWindowWhileShown()
{
    AnchorScene scene;
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

QTEST_MAIN(TestPopupAnchorInput)
#include "tst_popupanchorinput.moc"
