// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Leftovers.h"
#include "tests/support/ObjectCensus.h"
#include "tests/support/QmlView.h"
#include "tests/support/SignalRecorder.h"
#include "tests/support/SignalTrap.h"
#include "tests/support/Text.h"

#include <QAbstractAnimation>
#include <QQmlComponent>
#include <QTest>

using support::text;

/// The order in which a popup and a dialog do what they do, with what holds in between.
class TestPopupsOrder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void popupOpensOnceItIsAtTheTop();
    void popupOpensAndCloses();
    void popupIsAcceptedAndRejected();
    void popupMovesBeforeItTells_data();
    void popupMovesBeforeItTells();
    void anchorShowsAndHidesItsPopup();
    void dialogIsShownAndAccepted();
    void secondDialogIsShownAndRejected();
    void dialogIsShownAgain();
    void dialogIsCountedBeforeItsSiblingsHear();
};

void TestPopupsOrder::cleanup()
{
    QCOMPARE(support::leftovers(), QString());
}

static QStringList lines(const char *latin1)
{
    return text(latin1).split(QStringLiteral(", "));
}

/// What is declared open opens when it lies where it belongs.
void TestPopupsOrder::popupOpensOnceItIsAtTheTop()
{
    QQmlEngine engine;
    QQuickItem top;
    QQmlComponent component(&engine);
    component.setData("import QtQuick 2.12\nimport ombrel.Controls 1.0\n"
                      "Item { Popup { objectName: 'popup'; open: true } }",
                      QUrl());
    QObject *const made = component.beginCreate(engine.rootContext());
    const std::unique_ptr<QQuickItem> page(qobject_cast<QQuickItem *>(made));
    QVERIFY2(page, qPrintable(component.errorString()));
    page->setParentItem(&top);
    auto *const popup = page->findChild<QQuickItem *>(text("popup"));
    support::SignalRecorder recorder;
    recorder.watch(popup, QStringLiteral("popup"), lines("parentChanged, openChanged"));
    recorder.follow(QStringLiteral("at the top"), [&] { return popup->parentItem() == &top; });
    recorder.follow(popup, QStringLiteral("popup"), lines("open"));
    component.completeCreate();
    QCOMPARE(recorder.take(),
             lines("at the top = true, popup.parentChanged, popup.open = true, "
                   "popup.openChanged"));
}

/// Follows what opening a popup touches, in no order that matters.
static void followPopup(support::SignalRecorder *recorder, QQuickItem *popup)
{
    const auto signalNames =
        lines("visibleChanged, enabledChanged, openChanged, xChanged, yChanged, "
              "activeFocusChanged, animationFinished, accepted, rejected, "
              "hotspotChanged, offsetChanged");
    recorder->watch(popup, QStringLiteral("popup"), signalNames);
    recorder->follow(popup, QStringLiteral("popup"),
                     lines("open, visible, enabled, x, y, activeFocus"));
    auto *const fade = popup->findChild<QAbstractAnimation *>();
    recorder->watch(fade, QStringLiteral("fade"), lines("directionChanged, stateChanged"));
    recorder->follow(QStringLiteral("forward"),
                     [fade] { return fade->direction() == QAbstractAnimation::Forward; });
    recorder->follow(QStringLiteral("filters"), [] { return support::eventFilters().size(); });
}

void TestPopupsOrder::popupOpensAndCloses()
{
    support::QmlView view;
    view.loadFile(QStringLiteral("data/orderofapopup.qml"));
    view.show();
    QQuickItem *const popup = view.item<>("popup");
    QVERIFY(popup);
    auto *const fade = popup->findChild<QAbstractAnimation *>();
    popup->setProperty("attachedItem", QVariant::fromValue(view.item<>("anchor")));
    popup->setPosition({0, 0});

    support::SignalRecorder recorder;
    followPopup(&recorder, popup);
    QMetaObject::invokeMethod(popup, "show");
    QCOMPARE(
        recorder.take(),
        lines("popup.open = true, popup.visible = true, popup.visibleChanged, "
              "fade.stateChanged, popup.enabled = true, popup.enabledChanged, popup.openChanged, "
              "popup.x = 90, popup.y = 80, popup.xChanged, popup.yChanged, "
              "popup.activeFocus = true, filters = 1, popup.activeFocusChanged"));
    fade->setCurrentTime(fade->totalDuration());
    QCOMPARE(recorder.take(), lines("fade.stateChanged, popup.animationFinished"));

    popup->setProperty("open", false);
    QCOMPARE(recorder.take(),
             lines("popup.open = false, forward = false, fade.directionChanged, "
                   "fade.stateChanged, popup.enabled = false, popup.activeFocus = false, "
                   "popup.activeFocusChanged, popup.enabledChanged, "
                   "popup.openChanged, filters = 0"));
    fade->setCurrentTime(0);
    QCOMPARE(recorder.take(),
             lines("fade.stateChanged, popup.animationFinished, popup.visible = false, "
                   "popup.visibleChanged"));
}

void TestPopupsOrder::popupIsAcceptedAndRejected()
{
    support::QmlView view;
    view.loadFile(QStringLiteral("data/orderofapopup.qml"));
    view.show();
    QQuickItem *const popup = view.item<>("popup");
    for (const char *end : {"accept", "reject"}) {
        QMetaObject::invokeMethod(popup, "show");
        support::SignalRecorder recorder;
        recorder.watch(popup, QStringLiteral("popup"), lines("openChanged, accepted, rejected"));
        recorder.follow(QStringLiteral("filters"), [] { return support::eventFilters().size(); });
        const bool accepts = qstrcmp(end, "accept") == 0;
        if (accepts) {
            QMetaObject::invokeMethod(popup, end, Q_ARG(QVariant, 1));
        } else {
            QMetaObject::invokeMethod(popup, end);
        }
        QCOMPARE(recorder.take(),
                 lines(accepts ? "popup.openChanged, filters = 0, popup.accepted"
                               : "popup.openChanged, filters = 0, popup.rejected"));
    }
}

void TestPopupsOrder::popupMovesBeforeItTells_data()
{
    QTest::addColumn<QString>("property");
    QTest::addColumn<QPointF>("place");
    QTest::newRow("hotspot") << text("hotspot") << QPointF(-5, 26);
    QTest::newRow("offset") << text("offset") << QPointF(-5, 4);
}

/// The popup is where the new point puts it before the change is told.
void TestPopupsOrder::popupMovesBeforeItTells()
{
    QFETCH(QString, property);
    QFETCH(QPointF, place);
    support::QmlView view;
    view.loadFile(QStringLiteral("data/orderofapopup.qml"));
    view.show();
    QQuickItem *const popup = view.item<>("popup");
    QMetaObject::invokeMethod(popup, "updatePosition");
    QCOMPARE(popup->position(), QPointF(-10, 30));
    support::SignalRecorder recorder;
    recorder.watch(popup, QStringLiteral("popup"),
                   lines("xChanged, yChanged, hotspotChanged, offsetChanged"));
    recorder.follow(popup, QStringLiteral("popup"), {property, text("x"), text("y")});
    popup->setProperty(property.toLatin1(), QPointF(5, 4));
    QCOMPARE(
        recorder.take(),
        (QStringList{QStringLiteral("popup.%1 = (5, 4)").arg(property),
                     QStringLiteral("popup.x = %1").arg(place.x()),
                     QStringLiteral("popup.y = %1").arg(place.y()), text("popup.xChanged"),
                     text("popup.yChanged"), QStringLiteral("popup.%1Changed").arg(property)}));
}

/// The change is told first of all; the popup is made, then placed, then enabled, and only then the
/// window is watched. What is hidden goes the same way.
void TestPopupsOrder::anchorShowsAndHidesItsPopup()
{
    support::QmlView view;
    view.load("Item { width: 200; height: 200\n"
              "    PopupAnchorItem { objectName: 'place'; x: 30; y: 40; rotation: 20\n"
              "        Item { objectName: 'content' } } }");
    view.show();
    QQuickItem *const place = view.item<>("place");
    const auto content = [place] { return place->property("popupItem").value<QQuickItem *>(); };
    support::SignalRecorder recorder;
    recorder.watch(place, QStringLiteral("place"),
                   lines("popupVisibleChanged, popupItemChanged, distanceTopChanged, "
                         "distanceBottomChanged, distanceRightChanged"));
    recorder.follow(place, QStringLiteral("place"), lines("popupVisible, popupItem"));
    recorder.follow(QStringLiteral("anchor.x"),
                    [content] { return content() ? content()->parentItem()->x() : 0; });
    recorder.follow(QStringLiteral("anchor.rotation"),
                    [content] { return content() ? content()->parentItem()->rotation() : 0; });
    recorder.follow(place, QStringLiteral("place"),
                    lines("distanceTop, distanceBottom, distanceRight"));
    recorder.follow(QStringLiteral("enabled"),
                    [content] { return content() && content()->isEnabled(); });
    recorder.follow(QStringLiteral("filters"), [] { return support::eventFilters().size(); });
    QMetaObject::invokeMethod(place, "show");
    QCOMPARE(recorder.take(),
             lines("place.popupVisible = true, place.popupVisibleChanged, "
                   "place.popupItem = content, place.popupItemChanged, "
                   "anchor.x = 30, anchor.rotation = 20, "
                   "place.distanceTop = 40, place.distanceTopChanged, "
                   "place.distanceBottom = 160, place.distanceBottomChanged, "
                   "place.distanceRight = 170, place.distanceRightChanged, "
                   "enabled = true, filters = 1"));
    recorder.watch(content(), QStringLiteral("content"), lines("enabledChanged"));
    recorder.watch(content()->parentItem(), QStringLiteral("anchor"), lines("enabledChanged"));
    QMetaObject::invokeMethod(place, "hide");
    QCOMPARE(recorder.take(),
             lines("place.popupVisible = false, place.popupVisibleChanged, enabled = false, "
                   "content.enabledChanged, anchor.enabledChanged, filters = 0"));
}

static void followDialog(support::SignalRecorder *recorder, const support::QmlView &view)
{
    const QString enabled = QStringLiteral("enabledChanged");
    QQuickItem *const content = view.window()->contentItem();
    const auto find = [content](const char *name) {
        const auto items = content->childItems();
        for (QQuickItem *item : items) {
            if (item->objectName() == text(name)) {
                return item;
            }
        }
        qFatal("There is no %s", name);
    };
    QQuickItem *const dialog = find("dialog");
    recorder->watch(dialog, QStringLiteral("dialog"),
                    lines("opened, accepted, rejected, openChanged, enabledChanged, zChanged, "
                          "activeFocusChanged"));
    recorder->follow(dialog, QStringLiteral("dialog"), lines("enabled, activeFocus, open, z"));
    for (const char *name : {"first", "disabled", "last"}) {
        recorder->watch(find(name), text(name), {enabled});
        recorder->follow(find(name), text(name), lines("enabled"));
    }
}

/// Shows the scene, with the dialogs and their siblings where they belong.
static QQuickItem *showDialogs(support::QmlView *view)
{
    view->loadFile(QStringLiteral("data/orderofadialog.qml"));
    view->show();
    QQuickItem *const dialog = view->root()->findChild<QQuickItem *>(text("dialog"));
    if (!QTest::qWaitFor([&] { return dialog->parentItem() == view->window()->contentItem(); })) {
        qFatal("The dialog stays where it was declared");
    }
    for (const char *name : {"first", "disabled", "last"}) {
        view->item<>(name)->setParentItem(view->window()->contentItem());
    }
    return dialog;
}

void TestPopupsOrder::dialogIsShownAndAccepted()
{
    support::QmlView view;
    QQuickItem *const dialog = showDialogs(&view);
    support::SignalRecorder recorder;
    followDialog(&recorder, view);
    QMetaObject::invokeMethod(dialog, "show");
    QCOMPARE(recorder.take(),
             lines("dialog.enabled = true, dialog.enabledChanged, dialog.activeFocus = true, "
                   "dialog.activeFocusChanged, dialog.open = true, dialog.openChanged, "
                   "first.enabled = false, first.enabledChanged, "
                   "last.enabled = false, last.enabledChanged, dialog.opened"));
    QMetaObject::invokeMethod(dialog, "accept", Q_ARG(QVariant, 1));
    QCOMPARE(recorder.take(),
             lines("dialog.enabled = false, dialog.activeFocus = false, dialog.activeFocusChanged, "
                   "dialog.enabledChanged, dialog.open = false, dialog.openChanged, "
                   "first.enabled = true, first.enabledChanged, "
                   "last.enabled = true, last.enabledChanged, dialog.accepted"));
}

void TestPopupsOrder::secondDialogIsShownAndRejected()
{
    support::QmlView view;
    QQuickItem *const dialog = showDialogs(&view);
    QQuickItem *const below = view.root()->findChild<QQuickItem *>(text("below"));
    QMetaObject::invokeMethod(below, "show");
    support::SignalRecorder recorder;
    recorder.watch(dialog, QStringLiteral("dialog"),
                   lines("opened, rejected, openChanged, zChanged"));
    recorder.follow(dialog, QStringLiteral("dialog"), lines("open, z"));
    recorder.watch(below, QStringLiteral("below"), lines("enabledChanged"));
    recorder.follow(below, QStringLiteral("below"), lines("enabled"));
    QMetaObject::invokeMethod(dialog, "show");
    QCOMPARE(recorder.take(),
             lines("dialog.open = true, dialog.openChanged, dialog.z = 65536, dialog.zChanged, "
                   "below.enabled = false, below.enabledChanged, dialog.opened"));
    QMetaObject::invokeMethod(dialog, "reject");
    QCOMPARE(recorder.take(),
             lines("dialog.open = false, dialog.openChanged, below.enabled = true, "
                   "below.enabledChanged, dialog.rejected"));
    QMetaObject::invokeMethod(below, "reject");
}

/// An open dialog tells that it is opened, and does nothing else.
void TestPopupsOrder::dialogIsShownAgain()
{
    support::QmlView view;
    QQuickItem *const dialog = showDialogs(&view);
    QMetaObject::invokeMethod(dialog, "show");
    support::SignalRecorder recorder;
    followDialog(&recorder, view);
    QMetaObject::invokeMethod(dialog, "show");
    QCOMPARE(recorder.take(), lines("dialog.opened"));
    QMetaObject::invokeMethod(dialog, "reject");
}

/// A dialog that a sibling shows when it hears of another one lies above that while it opens, and
/// takes its place when it closes.
void TestPopupsOrder::dialogIsCountedBeforeItsSiblingsHear()
{
    support::QmlView view;
    QQuickItem *const dialog = showDialogs(&view);
    QQuickItem *const below = view.root()->findChild<QQuickItem *>(text("below"));
    QQuickItem *const sibling = view.item<>("first");
    const auto showBelow = [below] { QMetaObject::invokeMethod(below, "show"); };
    {
        const support::SignalTrap trap(sibling, "enabledChanged", showBelow);
        QMetaObject::invokeMethod(dialog, "show");
        QVERIFY(trap.hasSprung());
        QCOMPARE(dialog->z(), 65535.0);
        QCOMPARE(below->z(), 65536.0);
    }
    QMetaObject::invokeMethod(below, "reject");
    const support::SignalTrap trap(sibling, "enabledChanged", showBelow);
    QMetaObject::invokeMethod(dialog, "reject");
    QVERIFY(trap.hasSprung());
    QCOMPARE(below->z(), 65535.0);
    QMetaObject::invokeMethod(below, "reject");
}

QTEST_MAIN(TestPopupsOrder)
#include "tst_order.moc"
