// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/popups/PopupScene.h"
#include "tests/support/Leftovers.h"
#include "tests/support/Pixels.h"
#include "tests/support/QmlView.h"
#include "tests/support/Screen.h"
#include "tests/support/SignalRecorder.h"

#include <QPropertyAnimation>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>

using support::evaluate;
using support::QmlView;
using support::SignalRecorder;

/// Popup in a real window: what it offers, and the order in which it opens, fades and closes.
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

    void closedStaysVisibleWhileItFades();
    void reopeningTurnsTheFadeRound();
    void animationFinishedBothWays();
    void closedAsItsFadeEndsItIsHiddenAtOnce();
    void aboveEverythingElse();
    void opensWithinOneFrame();
};

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
    view.loadFile(QStringLiteral("data/openedinqmlopensatcompletion.qml"));
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

void TestPopup::closedAsItsFadeEndsItIsHiddenAtOnce()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/popup.qml"));
    view.show();
    QQuickItem *popup = view.item<>("popup");
    evaluate(popup, QStringLiteral("animationFinished.connect(() => popup.open = false)"));
    qreal opacityWhenHidden = 0;
    connect(popup, &QQuickItem::visibleChanged, popup, [popup, &opacityWhenHidden] {
        if (!popup->isVisible()) {
            opacityWhenHidden = popup->opacity();
        }
    });
    popup->setProperty("open", true);
    QTRY_COMPARE(opacityWhenHidden, 1.0);
    QCOMPARE(popup->property("open"), QVariant(false));
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
    view.loadFile(QStringLiteral("data/aboveeverythingelse.qml"));
    view.show();
    QQuickItem *popup = view.item<>("popup");
    popup->setProperty("open", true);
    QTRY_COMPARE(popup->opacity(), 1.0);
    QCOMPARE(support::pixelError(support::grab(view.window()), QPoint(50, 50), QColor("orange")),
             QString());
}

void TestPopup::opensWithinOneFrame()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/popup.qml"));
    view.show();
    support::grab(view.window());
    QCOMPARE(support::framesWhileIdle(view.window()), 0);
    QQuickItem *popup = view.item<>("popup");
    const support::FrameCounter swapped(view.window());
    popup->setProperty("open", true);
    // In place before the first frame, not only after it.
    QCOMPARE(popup->position(), QPointF(90, 80));
    QVERIFY(popup->isVisible());
    QTRY_VERIFY(swapped.count() >= 1);
}

QTEST_MAIN(TestPopup)
#include "tst_popup.moc"
