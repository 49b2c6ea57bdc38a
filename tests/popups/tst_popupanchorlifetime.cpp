// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/popups/AnchorScene.h"
#include "tests/popups/SentInput.h"
#include "tests/support/Leftovers.h"
#include "tests/support/Pixels.h"
#include "tests/support/QmlView.h"
#include "tests/support/SignalRecorder.h"
#include "tests/support/SignalTrap.h"

#include <QMap>
#include <QPointer>
#include <QQmlComponent>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

#include <functional>
#include <iterator>

using support::evaluate;
using support::QmlView;
using support::SignalRecorder;
using support::SignalTrap;

/// A PopupAnchorItem without a popup, with a failing one, and with parts that are destroyed.
class TestPopupAnchorLifetime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void withoutAComponent();
    void componentFails_data();
    void componentFails();
    void componentMakesNoItem();
    void componentDestroyedWhileShown();
    void popupItemDestroyedWhileShown();

    void destroyedWhileShown();
    void destroyedInsideItsEventFilter_data();
    void destroyedInsideItsEventFilter();
    void windowDestroyedInsideItsEventFilter_data();
    void windowDestroyedInsideItsEventFilter();
    void destroyedInsideASignal_data();
    void destroyedInsideASignal();
    void deletedInEverySignal_data();
    void deletedInEverySignal();
    void anchorDestroyedWhileShown();
    void deletedWhileItMakesItsPopup();
    void hiddenWhileItMakesItsPopup();
    void deletedByTheShapeOfItsPopup();
    void destroyedByItsLoader();
    void destroyedWithItsWindow();
    void windowDestroyedFirst();

    void hiddenWhileShowing_data();
    void hiddenWhileShowing();
    void aThousandShowsAndHides();
};

namespace {

void press(QWindow *window, const QPoint &point)
{
    QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, point);
}

/// A view in which anchor items without handlers of their own are made, in a place at (0, 0).
struct Maker : QmlView
{
    Maker()
    {
        loadFile(QStringLiteral("data/anchormaker.qml"));
        show();
    }

    QQuickItem *make() const
    {
        return evaluate(root(), QStringLiteral("make()")).value<QQuickItem *>();
    }
    QQuickItem *place() const { return item<>("place"); }
    int pressedBelow() const { return root()->property("pressedBelow").toInt(); }
};

/// What makes an anchor item, its popup and its anchor emit signals: something to do first, and
/// what is looked at. A "!" marks what QQuickItem emits before it is done with an item: there, no
/// item may be deleted.
struct Entry
{
    const char *name;
    std::function<void(const Maker &, QQuickItem *)> prepare;
    std::function<void(const Maker &, QQuickItem *)> act;
    const char *expected;
};

void call(QQuickItem *item, const char *method)
{
    QMetaObject::invokeMethod(item, method);
}

/// All moves are along one axis: QQuickItem itself goes on with the item to emit yChanged() when
/// xChanged() has deleted it.
const Entry entries[] = {
    {"shown", [](const Maker &maker, QQuickItem *) { maker.place()->setY(30); },
     [](const Maker &, QQuickItem *item) { call(item, "show"); },
     "item.popupVisibleChanged item.popupItemChanged item.distanceTopChanged "
     "item.distanceBottomChanged item.distanceRightChanged"},
    {"hidden", [](const Maker &, QQuickItem *item) { call(item, "show"); },
     [](const Maker &maker, QQuickItem *item) {
         maker.place()->setY(30);
         call(item, "hide");
     },
     "item.popupVisibleChanged anchor.yChanged item.distanceTopChanged "
     "item.distanceBottomChanged popup.enabledChanged anchor.enabledChanged"},
    {"shown again",
     [](const Maker &maker, QQuickItem *item) {
         call(item, "show");
         call(item, "hide");
         maker.place()->setX(30);
     },
     [](const Maker &, QQuickItem *item) { call(item, "show"); },
     "item.popupVisibleChanged anchor.xChanged item.distanceRightChanged !popup.enabledChanged "
     "anchor.enabledChanged"},
    {"hidden by a press", [](const Maker &, QQuickItem *item) { call(item, "show"); },
     [](const Maker &maker, QQuickItem *) { sendClick(maker.window(), outside); },
     "item.popupVisibleChanged popup.enabledChanged anchor.enabledChanged"},
    {"hidden by Escape", [](const Maker &, QQuickItem *item) { call(item, "show"); },
     [](const Maker &maker, QQuickItem *) { sendKey(maker.window(), Qt::Key_Escape); },
     "item.popupVisibleChanged popup.enabledChanged anchor.enabledChanged"},
    {"persistent", [](const Maker &, QQuickItem *) {},
     [](const Maker &, QQuickItem *item) { item->setProperty("persistent", true); },
     "item.persistentChanged"},
};

} // namespace

void TestPopupAnchorLifetime::cleanup()
{
    QCOMPARE(support::leftovers(), QString());
}

void TestPopupAnchorLifetime::withoutAComponent()
{
    AnchorScene scene;
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

void TestPopupAnchorLifetime::componentFails_data()
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

void TestPopupAnchorLifetime::componentFails()
{
    QFETCH(QByteArray, qml);
    QFETCH(QString, message);
    AnchorScene scene;
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

void TestPopupAnchorLifetime::componentMakesNoItem()
{
    AnchorScene scene;
    scene.run(QStringLiteral("anchor.popup = noItem"));
    scene.run(QStringLiteral("anchor.show()"));
    QVERIFY(scene.isShown());
    QVERIFY(!scene.popup());
    QTest::keyClick(scene.window.data(), Qt::Key_Escape);
    QVERIFY(!scene.isShown());
}

void TestPopupAnchorLifetime::componentDestroyedWhileShown()
{
    AnchorScene scene;
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

void TestPopupAnchorLifetime::popupItemDestroyedWhileShown()
{
    AnchorScene scene;
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

void TestPopupAnchorLifetime::destroyedWhileShown()
{
    AnchorScene scene;
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

void TestPopupAnchorLifetime::destroyedInsideItsEventFilter_data()
{
    QTest::addColumn<QString>("what");
    QTest::newRow("press") << "press";
    QTest::newRow("Escape") << "Escape";
    QTest::newRow("close") << "close";
}

void TestPopupAnchorLifetime::destroyedInsideItsEventFilter()
{
    QFETCH(QString, what);
    AnchorScene scene;
    scene.run(QStringLiteral("anchor.show()"));
    const SignalTrap trap(scene.anchorItem, "popupVisibleChanged",
                          [&scene] { delete scene.anchorItem.data(); });
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

void TestPopupAnchorLifetime::windowDestroyedInsideItsEventFilter_data()
{
    QTest::addColumn<QEvent::Type>("type");
    QTest::newRow("press") << QEvent::MouseButtonPress;
    QTest::newRow("close") << QEvent::Close;
}

/// The event ends with its window: it is not handed on to what is gone.
void TestPopupAnchorLifetime::windowDestroyedInsideItsEventFilter()
{
    QFETCH(QEvent::Type, type);
    AnchorScene scene;
    scene.run(QStringLiteral("anchor.show()"));
    const SignalTrap trap(scene.anchorItem, "popupVisibleChanged",
                          [&scene] { scene.window.reset(); });
    if (type == QEvent::MouseButtonPress) {
        QMouseEvent event(type, outside, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(scene.window.data(), &event);
    } else {
        QCloseEvent event;
        QCoreApplication::sendEvent(scene.window.data(), &event);
    }
    QVERIFY(!scene.window);
    QVERIFY(!scene.anchorItem);
}

void TestPopupAnchorLifetime::destroyedInsideASignal_data()
{
    QTest::addColumn<QString>("handler");
    QTest::newRow("popupVisibleChanged") << "anchor.popupVisibleChanged";
    QTest::newRow("popupItemChanged") << "anchor.popupItemChanged";
    QTest::newRow("distanceTopChanged") << "anchor.distanceTopChanged";
    QTest::newRow("distanceRightChanged") << "anchor.distanceRightChanged";
}

void TestPopupAnchorLifetime::destroyedInsideASignal()
{
    QFETCH(QString, handler);
    Maker maker;
    maker.place()->setPosition(QPointF(10, 10));
    const QPointer<QQuickItem> anchorItem = maker.make();
    QQmlEngine::setObjectOwnership(anchorItem, QQmlEngine::JavaScriptOwnership);
    evaluate(anchorItem,
             QStringLiteral("%1.connect(function() { anchor.destroy() })").arg(handler));
    QMetaObject::invokeMethod(anchorItem, "show");
    QTRY_VERIFY(!anchorItem);
    press(maker.window(), outside);
    QCOMPARE(maker.pressedBelow(), 1);
}

void TestPopupAnchorLifetime::deletedInEverySignal_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("victim");
    for (size_t i = 0; i < std::size(entries); ++i) {
        for (const char *victim : {"item", "popup", "anchor"}) {
            QTest::addRow("%s, the %s", entries[i].name, victim)
                << int(i) << QString::fromLatin1(victim);
        }
    }
}

/// A first run tells which signals there are, of the item, its popup and the anchor that the popup
/// lies in, and in which order; then each of them gets a slot that deletes one of the three.
void TestPopupAnchorLifetime::deletedInEverySignal()
{
    QFETCH(int, index);
    QFETCH(QString, victim);
    const Entry &entry = entries[index];
    Maker maker;
    const auto parts = [](QQuickItem *item) {
        auto *popup = item->property("popupItem").value<QQuickItem *>();
        return QMap<QString, QPointer<QQuickItem>>{
            {QStringLiteral("item"), item},
            {QStringLiteral("popup"), popup},
            {QStringLiteral("anchor"), popup ? popup->parentItem() : nullptr}};
    };
    const auto prepared = [&maker, &entry] {
        maker.place()->setPosition(QPointF());
        QQuickItem *item = maker.make();
        entry.prepare(maker, item);
        return item;
    };
    const QPointer<QQuickItem> first = prepared();
    SignalRecorder recorder;
    const auto firstParts = parts(first);
    for (auto it = firstParts.cbegin(); it != firstParts.cend(); ++it) {
        if (it.value()) {
            recorder.watch(it.value(), it.key());
        }
    }
    entry.act(maker, first);
    const QString expected = QString::fromLatin1(entry.expected);
    QCOMPARE(recorder.take().join(QLatin1Char(' ')), QString(expected).remove(QLatin1Char('!')));
    delete first.data();

    for (const QString &one : expected.split(QLatin1Char(' '))) {
        if (one.startsWith(QLatin1Char('!'))) {
            continue;
        }
        const QString sender = one.section(QLatin1Char('.'), 0, 0);
        const QPointer<QQuickItem> item = prepared();
        const SignalTrap trap(parts(item).value(sender),
                              one.section(QLatin1Char('.'), 1).toLatin1(),
                              [&] { delete parts(item).value(victim).data(); });
        entry.act(maker, item);
        QVERIFY2(trap.hasSprung(), qPrintable(one));
        if (item) {
            // It works on: a popup that is shown now is in its place.
            QMetaObject::invokeMethod(item, "hide");
            maker.place()->setPosition(QPointF(70, 80));
            QMetaObject::invokeMethod(item, "show");
            QQuickItem *popup = parts(item).value(QStringLiteral("popup"));
            QVERIFY2(popup, qPrintable(one));
            QVERIFY2(popup->isEnabled(), qPrintable(one));
            QCOMPARE(popup->mapToScene({}), QPointF(70, 80));
        } else {
            const int before = maker.pressedBelow();
            press(maker.window(), outside);
            QVERIFY2(maker.pressedBelow() == before + 1, qPrintable(one));
        }
        support::grab(maker.window());
        delete item.data();
    }
}

void TestPopupAnchorLifetime::anchorDestroyedWhileShown()
{
    AnchorScene scene;
    scene.run(QStringLiteral("anchor.show()"));
    const QPointer<QQuickItem> popup = scene.popup();
    delete scene.anchor();
    QVERIFY(popup);
    // The distances are computed without the anchor.
    scene.item("inner")->setPosition(QPointF(200, 100));
    QTRY_COMPARE(scene.distances(), (QList<int>{100, 499, 599}));
    scene.press(outside);
    QVERIFY(!scene.isShown());
    scene.run(QStringLiteral("anchor.show()"));
    QCOMPARE(scene.popup(), popup.data());
    QVERIFY(scene.anchor());
    QVERIFY(scene.anchor()->isEnabled());
    QCOMPARE(scene.anchor()->z(), 65635.0);
    QCOMPARE(popup->mapToScene({}), QPointF(200.7, 100.9));
    // On the way out of the window, too.
    delete scene.anchor();
    QQuickItem *home = scene.anchorItem->parentItem();
    scene.anchorItem->setParentItem(nullptr);
    QCoreApplication::processEvents();
    scene.anchorItem->setParentItem(home);
    // And before the anchor has left the window as well.
    scene.run(QStringLiteral("anchor.hide(); anchor.show()"));
    QVERIFY(scene.anchor());
    scene.anchorItem->setParentItem(nullptr);
    delete scene.anchor();
    QCoreApplication::processEvents();
    scene.anchorItem->setParentItem(home);
}

/// The popup's own code destroys the anchor item while the popup is made.
void TestPopupAnchorLifetime::deletedWhileItMakesItsPopup()
{
    Maker maker;
    const QPointer<QQuickItem> anchorItem = maker.make();
    const SignalTrap trap(maker.root(), "madeChanged", [anchorItem] { delete anchorItem.data(); });
    anchorItem->setProperty("popup", maker.root()->property("announcing"));
    QMetaObject::invokeMethod(anchorItem, "show");
    QVERIFY(trap.hasSprung());
    QVERIFY(!anchorItem);
    press(maker.window(), outside);
    QCOMPARE(maker.pressedBelow(), 1);
}

void TestPopupAnchorLifetime::hiddenWhileItMakesItsPopup()
{
    Maker maker;
    QQuickItem *anchorItem = maker.make();
    const SignalTrap trap(maker.root(), "madeChanged",
                          [anchorItem] { QMetaObject::invokeMethod(anchorItem, "hide"); });
    anchorItem->setProperty("popup", maker.root()->property("announcing"));
    SignalRecorder recorder;
    recorder.watch(anchorItem, QStringLiteral("item"),
                   {QStringLiteral("popupVisibleChanged"), QStringLiteral("popupItemChanged")},
                   [anchorItem] {
                       return anchorItem->property("popupVisible").toBool() ? "shown" : "hidden";
                   });
    QMetaObject::invokeMethod(anchorItem, "show");
    QVERIFY(trap.hasSprung());
    QCOMPARE(recorder.take(),
             (QStringList{QStringLiteral("item.popupVisibleChanged [shown]"),
                          QStringLiteral("item.popupVisibleChanged [hidden]"),
                          QStringLiteral("item.popupItemChanged [hidden]")}));
    QVERIFY(!anchorItem->property("popupItem").value<QQuickItem *>()->isEnabled());
    press(maker.window(), outside);
    QCOMPARE(maker.pressedBelow(), 1);
}

/// The shape of an item is the application's code, too.
void TestPopupAnchorLifetime::deletedByTheShapeOfItsPopup()
{
    class Shape : public QQuickItem
    {
    public:
        using QQuickItem::QQuickItem;
        bool contains(const QPointF &) const override
        {
            delete anchorItem.data();
            return false;
        }
        QPointer<QQuickItem> anchorItem;
    };
    Maker maker;
    Shape shape(maker.root());
    shape.anchorItem = maker.make();
    QMetaObject::invokeMethod(shape.anchorItem, "show");
    // The mask says what the popup contains.
    shape.anchorItem->property("popupItem")
        .value<QQuickItem *>()
        ->setProperty("containmentMask", QVariant::fromValue<QObject *>(&shape));
    press(maker.window(), outside);
    QVERIFY(!shape.anchorItem);
    QCOMPARE(maker.pressedBelow(), 1);
}

void TestPopupAnchorLifetime::destroyedByItsLoader()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/anchordestroyedbyitsloader.qml"));
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

void TestPopupAnchorLifetime::destroyedWithItsWindow()
{
    QPointer<QQuickItem> popup;
    {
        AnchorScene scene;
        scene.run(QStringLiteral("anchor.show()"));
        popup = scene.popup();
    }
    QVERIFY(!popup);
}

void TestPopupAnchorLifetime::windowDestroyedFirst()
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
    // The destroyed window took all of its items out, none was skipped.
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

void TestPopupAnchorLifetime::hiddenWhileShowing_data()
{
    QTest::addColumn<QString>("handler");
    QTest::newRow("popupVisibleChanged") << "anchor.popupVisibleChanged";
    QTest::newRow("popupItemChanged") << "anchor.popupItemChanged";
    QTest::newRow("distanceBottomChanged") << "anchor.distanceBottomChanged";
}

void TestPopupAnchorLifetime::hiddenWhileShowing()
{
    QFETCH(QString, handler);
    AnchorScene scene;
    scene.run(QStringLiteral("%1.connect(function() { anchor.hide() })").arg(handler));
    scene.run(QStringLiteral("anchor.show()"));
    QVERIFY(!scene.isShown());
    QVERIFY(!scene.popup() || !scene.popup()->isEnabled());
    scene.run(QStringLiteral("log = []"));
    QTest::keyClick(scene.window.data(), Qt::Key_Escape);
    QCOMPARE(scene.run(QStringLiteral("log.length")).toInt(), 1);
}

void TestPopupAnchorLifetime::aThousandShowsAndHides()
{
    AnchorScene scene;
    scene.run(QStringLiteral("for (let i = 0; i < 1000; ++i) { anchor.show(); anchor.hide(); }"));
    QCOMPARE(scene.run(QStringLiteral("log.join()")).toString(), QStringLiteral("completed"));
    QVERIFY(!scene.popup()->isEnabled());
    scene.press(outside);
    QCOMPARE(scene.window->property("pressedBelow"), QVariant(1));
    scene.run(QStringLiteral("anchor.show()"));
    scene.press(outside);
    QVERIFY(!scene.isShown());
}

QTEST_MAIN(TestPopupAnchorLifetime)
#include "tst_popupanchorlifetime.moc"
