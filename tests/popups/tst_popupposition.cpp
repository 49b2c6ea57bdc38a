// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/popups/PopupScene.h"
#include "tests/support/Leftovers.h"
#include "tests/support/Pixels.h"
#include "tests/support/QmlView.h"
#include "tests/support/SignalRecorder.h"

#include <QPropertyAnimation>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>
#include <QThread>

using support::evaluate;
using support::QmlView;
using support::SignalRecorder;

/// Where a Popup lies, what it follows, and how many frames following takes.
class TestPopupPosition : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void positionOfTheHotspot();
    void attachedItemAloneDoesNotMove();
    void withoutAttachedItemTheParentCounts();
    void followsItsItem_data();
    void followsItsItem();
    void followsAcrossRotationAndScale();
    void completedBeforeItsWindow();
    void repositionsOnTheGuiThread();

    void idleWindowCostsNoFrame_data();
    void idleWindowCostsNoFrame();
    void movingTargetCostsTwoFramesAMove();

    void attachedItemDestroyedWhileOpen();
    void attachedItemInsideThePopup();
    void attachedToEachOther_data();
    void attachedToEachOther();
    void followsOneThatIsAttachedInACircle();
    void placesThatAreNotFinite_data();
    void placesThatAreNotFinite();
    void anchorsWinWithoutFrames();
    void putBackItFollowsTheNextMove_data();
    void putBackItFollowsTheNextMove();
};

void TestPopupPosition::cleanup()
{
    QCOMPARE(support::leftovers(), QString());
}

void TestPopupPosition::positionOfTheHotspot()
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

void TestPopupPosition::attachedItemAloneDoesNotMove()
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

void TestPopupPosition::withoutAttachedItemTheParentCounts()
{
    QmlView view;
    view.load("Item { width: 200; height: 200\n"
              "Item { x: 30; Popup { objectName: 'popup'; offset: Qt.point(7, 8) } } }");
    QQuickItem *popup = view.item<>("popup");
    popup->setProperty("open", true);
    QCOMPARE(popup->position(), QPointF(7, 8));
}

void TestPopupPosition::followsItsItem_data()
{
    QTest::addColumn<bool>("open");
    QTest::newRow("open") << true;
    QTest::newRow("closed") << false;
}

void TestPopupPosition::followsItsItem()
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

void TestPopupPosition::followsAcrossRotationAndScale()
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

void TestPopupPosition::completedBeforeItsWindow()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/popup.qml"));
    // The view puts the document into its window only after it was made.
    QQuickItem *popup = view.item<>("popup");
    view.show();
    view.item<>("target")->setX(0);
    QTRY_COMPARE(popup->x(), 50.0);
}

void TestPopupPosition::repositionsOnTheGuiThread()
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

void TestPopupPosition::idleWindowCostsNoFrame_data()
{
    followsItsItem_data();
}

void TestPopupPosition::idleWindowCostsNoFrame()
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

void TestPopupPosition::movingTargetCostsTwoFramesAMove()
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

void TestPopupPosition::attachedItemDestroyedWhileOpen()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/attacheditemdestroyedwhileopen.qml"));
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

void TestPopupPosition::attachedItemInsideThePopup()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/attachediteminsidethepopup.qml"));
    view.show();
    QQuickItem *popup = view.item<>("popup");
    popup->setPosition(QPointF(30, 40));
    popup->setProperty("open", true);
    QTRY_VERIFY(fadeOf(popup)->state() == QAbstractAnimation::Stopped);
    support::grab(view.window());
    // The popup does not follow its own child.
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

void TestPopupPosition::attachedToEachOther_data()
{
    QTest::addColumn<QStringList>("attachments");
    QTest::newRow("two popups") << QStringList{"a b", "b a"};
    QTest::newRow("two popups' children") << QStringList{"a inB", "b inA"};
    QTest::newRow("three popups") << QStringList{"a b", "b c", "c inA"};
    QTest::newRow("a popup and the popup of a place in it") << QStringList{"b placeItem"};
    QTest::newRow("two popups by way of a place") << QStringList{"a placeItem", "b inA"};
}

/// Following each other, both popups would move with every frame, without end.
void TestPopupPosition::attachedToEachOther()
{
    QFETCH(QStringList, attachments);
    QmlView view;
    view.loadFile(QStringLiteral("data/attachedtoeachother.qml"));
    view.show();
    evaluate(view.item<>("place"), QStringLiteral("place.show()"));
    for (const QString &attachment : qAsConst(attachments)) {
        const QString popup = attachment.section(QLatin1Char(' '), 0, 0);
        const QString item = attachment.section(QLatin1Char(' '), 1);
        evaluate(view.root(),
                 QStringLiteral("find('%1').attachedItem = find('%2')").arg(popup, item));
    }
    for (const char *name : {"a", "b", "c"}) {
        QQuickItem *popup = view.item<>(name);
        popup->setProperty("open", true);
        QTRY_VERIFY(fadeOf(popup)->state() == QAbstractAnimation::Stopped);
    }
    support::grab(view.window());
    QCOMPARE(support::framesWhileIdle(view.window()), 0);
    QVERIFY(view.item<>("a")->position().manhattanLength() < 100);
    QVERIFY(view.item<>("b")->position().manhattanLength() < 100);
}

void TestPopupPosition::followsOneThatIsAttachedInACircle()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/attachedtoeachother.qml"));
    view.show();
    evaluate(view.root(),
             QStringLiteral("find('a').attachedItem = find('b'); find('b').attachedItem = "
                            "find('a'); find('c').attachedItem = find('inA')"));
    view.item<>("a")->setPosition(QPointF(100, 50));
    QTRY_COMPARE(view.item<>("c")->position(), QPointF(100 + 5 + 3, 50 + 2));
    QCOMPARE(view.item<>("a")->position(), QPointF(100, 50));
}

void TestPopupPosition::placesThatAreNotFinite_data()
{
    QTest::addColumn<QPointF>("offset");
    QTest::newRow("not a number") << QPointF(qQNaN(), 0);
    QTest::newRow("infinite") << QPointF(0, qInf());
}

/// NaN differs from itself: following it would be a move with every frame.
void TestPopupPosition::placesThatAreNotFinite()
{
    QFETCH(QPointF, offset);
    QmlView view;
    view.loadFile(QStringLiteral("data/popup.qml"));
    view.show();
    QQuickItem *popup = view.item<>("popup");
    popup->setProperty("open", true);
    QTRY_VERIFY(fadeOf(popup)->state() == QAbstractAnimation::Stopped);
    popup->setProperty("offset", offset);
    support::grab(view.window());
    QCOMPARE(support::framesWhileIdle(view.window()), 0);
    QCOMPARE(popup->position(), QPointF(90, 80));
    popup->setProperty("offset", QPointF(1, 30));
    QCOMPARE(popup->position(), QPointF(91, 80));
}

/// Following and anchors would put the popup here and there with each frame for ever.
void TestPopupPosition::anchorsWinWithoutFrames()
{
    QmlView view;
    view.load("Item { width: 200; height: 200\n"
              "Item { x: 10; y: 20; width: 50; height: 50; Popup { objectName: 'popup'\n"
              "width: 20; height: 20; offset: Qt.point(17, 80); anchors.left: parent.left } } }");
    view.show();
    QQuickItem *popup =
        view.window()->contentItem()->findChild<QQuickItem *>(QStringLiteral("popup"));
    popup->setProperty("open", true);
    QTRY_VERIFY(fadeOf(popup)->state() == QAbstractAnimation::Stopped);
    support::grab(view.window());
    QCOMPARE(support::framesWhileIdle(view.window()), 0);
    QCOMPARE(popup->position(), QPointF(0, 80));

    popup->setProperty("offset", QPointF(17, 60));
    QCOMPARE(popup->position(), QPointF(0, 60));

    // Without the anchors it follows frames again, and the frame after an attempt is the second.
    evaluate(popup, QStringLiteral("anchors.left = undefined"));
    support::grab(view.window());
    support::grab(view.window());
    QTRY_COMPARE(popup->position(), QPointF(17, 60));
    QCOMPARE(support::framesWhileIdle(view.window()), 0);
}

void TestPopupPosition::putBackItFollowsTheNextMove_data()
{
    QTest::addColumn<QByteArray>("puttingBack");
    QTest::addColumn<int>("moves");
    for (const int moves : {2, 3}) {
        QTest::addRow("by an anchor, %d moves", moves)
            << QByteArray("anchors.left: parent.left") << moves;
        QTest::addRow("by a handler, %d moves", moves)
            << QByteArray("onXChanged: if (x > 0) x = 0") << moves;
    }
}

/// One move in each of successive frames; none causes another frame after the last.
void TestPopupPosition::putBackItFollowsTheNextMove()
{
    QFETCH(QByteArray, puttingBack);
    QFETCH(int, moves);
    QmlView view;
    view.load("Item { width: 300; height: 300\n"
              "Item { objectName: 'box'; width: 50; height: 50; Popup { objectName: 'popup'\n"
              "width: 20; height: 20; offset: Qt.point(17, 30); "
              + puttingBack + "} } }");
    view.show();
    auto *const box = view.item("box");
    auto *const popup =
        view.window()->contentItem()->findChild<QQuickItem *>(QStringLiteral("popup"));
    popup->setParentItem(view.root());
    popup->setProperty("attachedItem", QVariant::fromValue(box));
    popup->setProperty("open", true);
    QTRY_VERIFY(fadeOf(popup)->state() == QAbstractAnimation::Stopped);
    QCOMPARE(support::framesWhileIdle(view.window(), 100), 0);

    int left = moves;
    const auto move = [&left, box] {
        if (left > 0) {
            --left;
            box->setY(box->y() + 20);
        }
    };
    connect(view.window(), &QQuickWindow::frameSwapped, box, move);
    move();
    QTRY_COMPARE(left, 0);
    QTRY_COMPARE(popup->position(), QPointF(0, 20 * moves + 30));
    QCOMPARE(support::framesWhileIdle(view.window(), 100), 0);
}

QTEST_MAIN(TestPopupPosition)
#include "tst_popupposition.moc"
