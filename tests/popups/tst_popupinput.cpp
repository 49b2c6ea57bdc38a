// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/popups/PopupScene.h"
#include "tests/support/Leftovers.h"
#include "tests/support/QmlView.h"
#include "tests/support/QmlWindow.h"
#include "tests/support/SignalRecorder.h"
#include "tests/support/SignalTrap.h"

#include <QPointer>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

using support::evaluate;
using support::QmlView;
using support::SignalRecorder;
using support::SignalTrap;

/// The presses and keys that a Popup in a real window keeps for itself.
class TestPopupInput : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void pressOutsideIsConsumed();
    void doubleClickAfterTheConsumedPressPasses();
    void pressOutsideWithoutAttachedItem();
    void pressInTheAttachedItemPasses();
    void pressInThePopupPasses();
    void onlyTheShapeCounts();
    void escapeIsConsumed();
    void otherKeysReachThePopup();
    void persistentIgnoresAll();
    void theLastOpenedIsAskedFirst();
    void takesNoPressesWhileItsClosingIsSignalled();
    void shapeThatDeletesThePopup();

    void movedToAnotherWindowWhileOpen();
    void takenOutOfItsWindowWhileOpen();
};

void TestPopupInput::cleanup()
{
    QCOMPARE(support::leftovers(), QString());
}

void TestPopupInput::pressOutsideIsConsumed()
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

/// Of a double click the window sees press, release, press, double click, release: the popup opens
/// at the first press, and the second one closes it.
void TestPopupInput::doubleClickAfterTheConsumedPressPasses()
{
    QmlView view;
    view.load("Item { width: 200; height: 200; property int doubleClicks: 0\n"
              "MouseArea { anchors.fill: parent; onPressed: popup.open = true\n"
              "onDoubleClicked: ++parent.doubleClicks }\n"
              "Popup { id: popup; objectName: 'popup'; width: 20; height: 20 } }");
    view.show();
    const QQuickItem *popup = view.item<>("popup");
    QTest::mouseDClick(view.window(), Qt::LeftButton, {}, {100, 100});
    QCOMPARE(popup->property("open"), QVariant(false));
    QCOMPARE(view.root()->property("doubleClicks"), QVariant(1));
}

void TestPopupInput::pressOutsideWithoutAttachedItem()
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

void TestPopupInput::pressInTheAttachedItemPasses()
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

void TestPopupInput::pressInThePopupPasses()
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

void TestPopupInput::onlyTheShapeCounts()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/onlytheshapecounts.qml"));
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

void TestPopupInput::escapeIsConsumed()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/escapeisconsumed.qml"));
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

void TestPopupInput::otherKeysReachThePopup()
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

void TestPopupInput::persistentIgnoresAll()
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
    // Both events reach their receivers.
    QCOMPARE(view.root()->property("pressedBelow"), QVariant(1));
    QCOMPARE(view.root()->property("typed").toString(), QStringLiteral("\x1b"));
    evaluate(view.root(), QStringLiteral("popup.reject()"));
    QCOMPARE(popup->property("open"), QVariant(false));
}

void TestPopupInput::theLastOpenedIsAskedFirst()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/thelastopenedisaskedfirst.qml"));
    view.show();
    evaluate(view.root(), QStringLiteral("second.show(); first.show()"));
    QTest::keyClick(view.window(), Qt::Key_Escape);
    QCOMPARE(evaluate(view.root(), QStringLiteral("log.join()")).toString(),
             QStringLiteral("first"));
    press(view.window(), QPoint(100, 100));
    QCOMPARE(evaluate(view.root(), QStringLiteral("log.join()")).toString(),
             QStringLiteral("first,second"));
}

/// A handler of the closing may run a modal loop that delivers presses before it returns.
void TestPopupInput::takesNoPressesWhileItsClosingIsSignalled()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/popup.qml"));
    view.show();
    QQuickItem *popup = view.item<>("popup");
    popup->setProperty("open", true);
    const SignalTrap trap(popup, "openChanged", [&view] { press(view.window(), outside); });
    SignalRecorder recorder;
    recorder.watch(popup, QStringLiteral("popup"), {QStringLiteral("rejected")});
    popup->setProperty("open", false);
    QVERIFY(trap.hasSprung());
    QCOMPARE(recorder.take(), QStringList());
    QCOMPARE(view.root()->property("pressedBelow"), QVariant(1));
}

/// contains() of an item may call the application's containmentMask.
void TestPopupInput::shapeThatDeletesThePopup()
{
    class Shape : public QQuickItem
    {
    public:
        using QQuickItem::QQuickItem;
        bool contains(const QPointF &) const override
        {
            delete popup.data();
            return false;
        }
        QPointer<QQuickItem> popup;
    };
    QmlView view;
    view.loadFile(QStringLiteral("data/popupmaker.qml"));
    view.show();
    Shape shape(view.root());
    shape.popup = evaluate(view.root(), QStringLiteral("make()")).value<QQuickItem *>();
    shape.popup->setProperty("attachedItem", QVariant::fromValue<QQuickItem *>(&shape));
    shape.popup->setProperty("open", true);
    press(view.window(), outside);
    QVERIFY(!shape.popup);
    // The popup is closed by now, so the press is delivered.
    QCOMPARE(view.root()->property("pressedBelow"), QVariant(1));
}

void TestPopupInput::movedToAnotherWindowWhileOpen()
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

    // Presses in the old window do not reach the popup any more.
    press(view.window(), outside);
    QTest::keyClick(view.window(), Qt::Key_Escape);
    QCOMPARE(popup->property("open"), QVariant(true));
    QCOMPARE(view.root()->property("pressedBelow"), QVariant(1));
    // The popup follows the new window's frames and presses.
    target.setX(100);
    QTRY_COMPARE(popup->x(), 90.0);
    press(&second, QPoint(50, 200));
    QCOMPARE(popup->property("open"), QVariant(false));

    popup->setParentItem(view.root());
    QCOMPARE(second.followers(), followers);
}

void TestPopupInput::takenOutOfItsWindowWhileOpen()
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

QTEST_MAIN(TestPopupInput)
#include "tst_popupinput.moc"
