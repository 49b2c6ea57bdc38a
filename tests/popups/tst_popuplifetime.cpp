// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/popups/PopupScene.h"
#include "tests/popups/SentInput.h"
#include "tests/support/Leftovers.h"
#include "tests/support/ObjectCensus.h"
#include "tests/support/Pixels.h"
#include "tests/support/QmlView.h"
#include "tests/support/SignalRecorder.h"
#include "tests/support/SignalTrap.h"

#include <QPointer>
#include <QPropertyAnimation>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <iterator>

using support::evaluate;
using support::QmlView;
using support::SignalRecorder;
using support::SignalTrap;

/// Destruction, opening and closing of a Popup from inside its own operations.
class TestPopupLifetime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void destroyedWhileOpen();
    void destroyedInsideItsEventFilter_data();
    void destroyedInsideItsEventFilter();
    void destroyedInsideASignal_data();
    void destroyedInsideASignal();
    void destroyedByItsMoveToTheTop();
    void destroyedByItsLoader_data();
    void destroyedByItsLoader();
    void destroyedWithItsWindow_data();
    void destroyedWithItsWindow();
    void deletedInEverySignal_data();
    void deletedInEverySignal();
    void readWhileItIsDestroyed();

    void showInOnRejected();
    void closedWhileOpening_data();
    void closedWhileOpening();
    void toldOnceWhateverHandlersDo();
    void reopenedWhileClosing();
    void closedByAHandlerOfItsMove_data();
    void closedByAHandlerOfItsMove();
    void reopenedByAHandlerOfItsMove_data();
    void reopenedByAHandlerOfItsMove();
    void inputWhileItCloses();
    void placeChangedByAHandlerOfItsMove_data();
    void placeChangedByAHandlerOfItsMove();
    void aThousandOpensAndCloses();
};

namespace {

/// A view in which popups without handlers of their own are made.
struct Maker : QmlView
{
    Maker()
    {
        loadFile(QStringLiteral("data/popupmaker.qml"));
        show();
        target = item<>("target");
    }

    QQuickItem *make() const
    {
        return evaluate(root(), QStringLiteral("make()")).value<QQuickItem *>();
    }
    int pressedBelow() const { return root()->property("pressedBelow").toInt(); }

    QQuickItem *target = nullptr;
};

void open(QQuickItem *popup)
{
    popup->setProperty("open", true);
}

/// What makes a popup emit signals: something to do first, and what is looked at. A "!" marks what
/// QQuickItem emits before it is done with an item: there, no item may be deleted.
struct Entry
{
    const char *name;
    std::function<void(const Maker &, QQuickItem *)> prepare;
    std::function<void(const Maker &, QQuickItem *)> act;
    const char *expected;
};

/// All moves are along one axis: QQuickItem itself goes on with the item to emit yChanged() when
/// xChanged() has deleted it.
const Entry entries[] = {
    {"opened", [](const Maker &maker, QQuickItem *) { maker.target->setY(30); },
     [](const Maker &, QQuickItem *popup) { open(popup); },
     "!visibleChanged enabledChanged openChanged yChanged focusChanged activeFocusChanged"},
    {"opened with what is left of an opacity",
     [](const Maker &maker, QQuickItem *popup) {
         maker.target->setX(30);
         popup->setOpacity(0.5);
     },
     [](const Maker &, QQuickItem *popup) { open(popup); },
     "!visibleChanged opacityChanged enabledChanged openChanged xChanged focusChanged "
     "activeFocusChanged"},
    {"closed",
     [](const Maker &maker, QQuickItem *popup) {
         open(popup);
         maker.target->setY(40);
     },
     [](const Maker &, QQuickItem *popup) { popup->setProperty("open", false); },
     "!activeFocusChanged enabledChanged openChanged yChanged"},
    {"accepted", [](const Maker &, QQuickItem *popup) { open(popup); },
     [](const Maker &, QQuickItem *popup) {
         QMetaObject::invokeMethod(popup, "accept", Q_ARG(QVariant, QVariant(1)));
     },
     "!activeFocusChanged enabledChanged openChanged accepted"},
    {"rejected", [](const Maker &, QQuickItem *popup) { open(popup); },
     [](const Maker &, QQuickItem *popup) { QMetaObject::invokeMethod(popup, "reject"); },
     "!activeFocusChanged enabledChanged openChanged rejected"},
    {"rejected by a press", [](const Maker &, QQuickItem *popup) { open(popup); },
     [](const Maker &maker, QQuickItem *) { sendClick(maker.window(), outside); },
     "!activeFocusChanged enabledChanged openChanged rejected"},
    {"rejected by Escape", [](const Maker &, QQuickItem *popup) { open(popup); },
     [](const Maker &maker, QQuickItem *) { sendKey(maker.window(), Qt::Key_Escape); },
     "!activeFocusChanged enabledChanged openChanged rejected"},
    {"in the midst of its fade", [](const Maker &, QQuickItem *popup) { open(popup); },
     [](const Maker &, QQuickItem *popup) { fadeOf(popup)->setCurrentTime(50); }, "opacityChanged"},
    {"faded in", [](const Maker &, QQuickItem *popup) { open(popup); },
     [](const Maker &, QQuickItem *popup) { fadeOf(popup)->setCurrentTime(100); },
     "opacityChanged animationFinished"},
    {"faded out",
     [](const Maker &, QQuickItem *popup) {
         open(popup);
         fadeOf(popup)->setCurrentTime(100);
         popup->setProperty("open", false);
     },
     [](const Maker &, QQuickItem *popup) { fadeOf(popup)->setCurrentTime(0); },
     "opacityChanged animationFinished !visibleChanged"},
    {"hotspot", [](const Maker &, QQuickItem *) {},
     [](const Maker &, QQuickItem *popup) { popup->setProperty("hotspot", QPointF(0, 5)); },
     "yChanged hotspotChanged"},
    {"offset", [](const Maker &, QQuickItem *) {},
     [](const Maker &, QQuickItem *popup) { popup->setProperty("offset", QPointF(5, 0)); },
     "xChanged offsetChanged"},
    {"attachedItem", [](const Maker &, QQuickItem *) {},
     [](const Maker &maker, QQuickItem *popup) {
         popup->setProperty("attachedItem", QVariant::fromValue(maker.root()));
     },
     "attachedItemChanged"},
    {"persistent", [](const Maker &, QQuickItem *) {},
     [](const Maker &, QQuickItem *popup) { popup->setProperty("persistent", true); },
     "persistentChanged"},
    {"updatePosition", [](const Maker &maker, QQuickItem *) { maker.target->setY(50); },
     [](const Maker &, QQuickItem *popup) { QMetaObject::invokeMethod(popup, "updatePosition"); },
     "yChanged"},
};

} // namespace

void TestPopupLifetime::cleanup()
{
    QCOMPARE(support::leftovers(), QString());
}

void TestPopupLifetime::destroyedWhileOpen()
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

void TestPopupLifetime::destroyedInsideItsEventFilter_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::addColumn<bool>("atOnce");
    QTest::newRow("press, at once") << false << true;
    QTest::newRow("press, by destroy()") << false << false;
    QTest::newRow("Escape, at once") << true << true;
    QTest::newRow("Escape, by destroy()") << true << false;
}

void TestPopupLifetime::destroyedInsideItsEventFilter()
{
    QFETCH(bool, byKey);
    QFETCH(bool, atOnce);
    QmlView view;
    view.loadFile(QStringLiteral("data/destroyedinsideitseventfilter.qml"));
    view.show();
    const QPointer<QQuickItem> popup =
        evaluate(view.root(), QStringLiteral("maker.createObject(root)")).value<QQuickItem *>();
    QVERIFY(popup);
    popup->setProperty("open", true);
    if (atOnce) {
        // An object without QML handlers of its own may be deleted where it stands.
        const SignalTrap trap(popup, "openChanged", [popup] { delete popup.data(); });
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

void TestPopupLifetime::destroyedInsideASignal_data()
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

void TestPopupLifetime::destroyedInsideASignal()
{
    QFETCH(QString, signalName);
    QFETCH(QString, action);
    QmlView view;
    view.loadFile(QStringLiteral("data/destroyedinsideasignal.qml"));
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

/// A popup that is visible from the start emits signals as it moves to the root of the item tree.
void TestPopupLifetime::destroyedByItsMoveToTheTop()
{
    Maker maker;
    QQuickItem *const top = maker.window()->contentItem();
    QPointer<QQuickItem> popup;
    const SignalTrap trap(top, "visibleChildrenChanged", [top, &popup] {
        popup = top->childItems().constLast();
        delete popup.data();
    });
    const auto holder =
        evaluate(maker.root(), QStringLiteral("visibleFromTheStart.createObject(root)"));
    QVERIFY(trap.hasSprung());
    QVERIFY(!popup);
    QVERIFY(holder.value<QQuickItem *>());
    support::grab(maker.window());
}

void TestPopupLifetime::destroyedByItsLoader_data()
{
    destroyedInsideASignal_data();
}

void TestPopupLifetime::destroyedByItsLoader()
{
    QFETCH(QString, signalName);
    QFETCH(QString, action);
    QmlView view;
    view.loadFile(QStringLiteral("data/popupdestroyedbyitsloader.qml"));
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

void TestPopupLifetime::destroyedWithItsWindow_data()
{
    QTest::addColumn<bool>("open");
    QTest::newRow("open") << true;
    QTest::newRow("closed") << false;
}

void TestPopupLifetime::destroyedWithItsWindow()
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

void TestPopupLifetime::deletedInEverySignal_data()
{
    QTest::addColumn<int>("index");
    for (size_t i = 0; i < std::size(entries); ++i) {
        QTest::newRow(entries[i].name) << int(i);
    }
}

/// A first run shows which signals there are, and in which order; then each of them gets a slot
/// that deletes the popup where it stands.
void TestPopupLifetime::deletedInEverySignal()
{
    QFETCH(int, index);
    const Entry &entry = entries[index];
    Maker maker;
    const auto prepared = [&maker, &entry] {
        maker.target->setPosition(QPointF());
        QQuickItem *popup = maker.make();
        entry.prepare(maker, popup);
        return popup;
    };
    const QPointer<QQuickItem> first = prepared();
    SignalRecorder recorder;
    recorder.watch(first, QStringLiteral("popup"));
    entry.act(maker, first);
    const QString emitted = recorder.take().join(QLatin1Char(' ')).remove(QStringLiteral("popup."));
    const QString expected = QString::fromLatin1(entry.expected);
    QCOMPARE(emitted, QString(expected).remove(QLatin1Char('!')));
    delete first.data();

    for (const QString &name : expected.split(QLatin1Char(' '))) {
        if (name.startsWith(QLatin1Char('!'))) {
            continue;
        }
        const QPointer<QQuickItem> popup = prepared();
        const SignalTrap trap(popup, name.toLatin1(), [popup] { delete popup.data(); });
        entry.act(maker, popup);
        QVERIFY2(!popup, qPrintable(name));
        // Nothing of it is left in the window.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const int before = maker.pressedBelow();
        press(maker.window(), outside);
        QVERIFY2(maker.pressedBelow() == before + 1, qPrintable(name));
        support::grab(maker.window());
    }
}

/// The destructor leaves the item tree and loses the focus: handlers of that may read the popup.
void TestPopupLifetime::readWhileItIsDestroyed()
{
    Maker maker;
    const QPointer<QQuickItem> popup = maker.make();
    open(popup);
    QVERIFY(popup->hasActiveFocus());
    QStringList seen;
    const auto look = [&seen, popup] {
        seen.append(popup->property("open").toString() + QLatin1Char(' ')
                    + QString::number(popup->property("offset").toPointF().x()));
    };
    const SignalTrap unfocused(popup, "activeFocusChanged", look);
    const SignalTrap moved(popup, "parentChanged", look);
    const SignalTrap left(popup, "windowChanged", look);
    popup->setProperty("offset", QPointF(3, 0));
    delete popup.data();
    QVERIFY(seen.size() >= 2);
    seen.removeDuplicates();
    QCOMPARE(seen, QStringList{QStringLiteral("true 3")});
}

void TestPopupLifetime::showInOnRejected()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/showinonrejected.qml"));
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

void TestPopupLifetime::closedWhileOpening_data()
{
    QTest::addColumn<QString>("handler");
    QTest::newRow("visibleChanged") << "visibleChanged";
    QTest::newRow("enabledChanged") << "enabledChanged";
    QTest::newRow("openChanged") << "openChanged";
    QTest::newRow("activeFocusChanged") << "activeFocusChanged";
}

void TestPopupLifetime::closedWhileOpening()
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

/// A handler closes and opens the popup again: the first opening emits nothing more after that.
void TestPopupLifetime::toldOnceWhateverHandlersDo()
{
    Maker maker;
    QQuickItem *popup = maker.make();
    SignalRecorder recorder;
    const SignalTrap trap(popup, "visibleChanged", [popup] {
        popup->setProperty("open", false);
        popup->setProperty("open", true);
    });
    recorder.watch(popup, QStringLiteral("popup"), {QStringLiteral("openChanged")}, [popup] {
        return popup->property("open").toBool() ? QStringLiteral("open") : QStringLiteral("closed");
    });
    open(popup);
    QCOMPARE(recorder.take(),
             (QStringList{QStringLiteral("popup.openChanged [closed]"),
                          QStringLiteral("popup.openChanged [open]")}));
    QVERIFY(popup->isEnabled());
    QVERIFY(popup->isVisible());
    delete popup;
}

void TestPopupLifetime::reopenedWhileClosing()
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

void TestPopupLifetime::closedByAHandlerOfItsMove_data()
{
    QTest::addColumn<QByteArray>("signalName");
    QTest::addColumn<QPointF>("place");
    QTest::newRow("xChanged") << QByteArray("xChanged") << QPointF(30, 0);
    QTest::newRow("yChanged") << QByteArray("yChanged") << QPointF(0, 30);
    QTest::newRow("yChanged after xChanged") << QByteArray("yChanged") << QPointF(30, 30);
}

void TestPopupLifetime::closedByAHandlerOfItsMove()
{
    QFETCH(QByteArray, signalName);
    QFETCH(QPointF, place);
    Maker maker;
    QQuickItem *popup = maker.make();
    maker.target->setPosition(place);
    const QStringList filters = support::eventFilters();
    const SignalTrap trap(popup, signalName, [popup] { popup->setProperty("open", false); });
    open(popup);
    QVERIFY(trap.hasSprung());
    QCOMPARE(popup->property("open"), QVariant(false));
    QVERIFY(!popup->hasFocus());
    QCOMPARE(support::eventFilters(), filters);
    SignalRecorder recorder;
    recorder.watch(popup, QStringLiteral("popup"), {QStringLiteral("rejected")});
    press(maker.window(), outside);
    QTest::keyClick(maker.window(), Qt::Key_Escape);
    QCOMPARE(recorder.take(), QStringList());
    QCOMPARE(maker.pressedBelow(), 1);
}

void TestPopupLifetime::reopenedByAHandlerOfItsMove_data()
{
    closedByAHandlerOfItsMove_data();
}

void TestPopupLifetime::reopenedByAHandlerOfItsMove()
{
    QFETCH(QByteArray, signalName);
    QFETCH(QPointF, place);
    Maker maker;
    QQuickItem *popup = maker.make();
    open(popup);
    maker.target->setPosition(place);
    const SignalTrap trap(popup, signalName, [popup] { popup->setProperty("open", true); });
    popup->setProperty("open", false);
    QVERIFY(trap.hasSprung());
    QCOMPARE(popup->property("open"), QVariant(true));
    QVERIFY(popup->hasActiveFocus());
    SignalRecorder recorder;
    recorder.watch(popup, QStringLiteral("popup"), {QStringLiteral("rejected")});
    press(maker.window(), outside);
    QCOMPARE(recorder.take(), QStringList{QStringLiteral("popup.rejected")});
    QCOMPARE(maker.pressedBelow(), 0);
}

/// While its closing is signalled the popup is closed already: no input rejects it again.
void TestPopupLifetime::inputWhileItCloses()
{
    Maker maker;
    QQuickItem *popup = maker.make();
    open(popup);
    SignalRecorder recorder;
    recorder.watch(popup, QStringLiteral("popup"), {QStringLiteral("rejected")});
    const SignalTrap trap(popup, "openChanged", [&maker] {
        press(maker.window(), outside);
        QTest::keyClick(maker.window(), Qt::Key_Escape);
    });
    popup->setProperty("open", false);
    QVERIFY(trap.hasSprung());
    QCOMPARE(recorder.take(), QStringList());
    QCOMPARE(maker.pressedBelow(), 1);
}

void TestPopupLifetime::placeChangedByAHandlerOfItsMove_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::newRow("hotspot") << QByteArray("hotspot");
    QTest::newRow("offset") << QByteArray("offset");
}

/// The properties have the signalled values while the signals are emitted.
void TestPopupLifetime::placeChangedByAHandlerOfItsMove()
{
    QFETCH(QByteArray, property);
    Maker maker;
    QQuickItem *popup = maker.make();
    const SignalTrap trap(popup, "xChanged",
                          [popup, property] { popup->setProperty(property, QPointF(7, 0)); });
    SignalRecorder recorder;
    const QString name = QString::fromLatin1(property) + QStringLiteral("Changed");
    recorder.watch(popup, QStringLiteral("popup"), {QStringLiteral("xChanged"), name});
    popup->setProperty(property, QPointF(5, 0));
    QVERIFY(trap.hasSprung());
    QCOMPARE(recorder.entries().filter(name).size(), 2);
    for (int i = 0; i < recorder.entries().size(); ++i) {
        if (recorder.entries().at(i).endsWith(name)) {
            QCOMPARE(recorder.arguments(i), QVariantList{QPointF(7, 0)});
        }
    }
    QCOMPARE(popup->property(property), QVariant(QPointF(7, 0)));
}

void TestPopupLifetime::aThousandOpensAndCloses()
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

QTEST_MAIN(TestPopupLifetime)
#include "tst_popuplifetime.moc"
