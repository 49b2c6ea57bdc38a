// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Leftovers.h"
#include "tests/support/ObjectCensus.h"
#include "tests/support/QmlView.h"
#include "tests/support/SignalRecorder.h"
#include "tests/support/Text.h"

#include <QAbstractAnimation>
#include <QTest>

using support::text;

/// The order in which a popup and a dialog do what they do, with what holds in between.
class TestPopupsOrder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void popupOpensAndCloses();
    void popupIsAcceptedAndRejected();
    void popupMovesBeforeItTells();
    void dialogIsShownAndAccepted();
    void secondDialogIsShownAndRejected();
    void dialogIsShownAgain();
};

void TestPopupsOrder::cleanup()
{
    QCOMPARE(support::leftovers(), QString());
}

static QStringList lines(const char *latin1)
{
    return text(latin1).split(QStringLiteral(", "));
}

/// A popup at (0, 0) whose anchor point is (90, 80).
static const char *const popupScene = R"(
    Item {
        width: 200; height: 200
        Item { objectName: "anchor"; x: 100; y: 50 }
        Popup { objectName: "popup"; width: 20; height: 20; offset: Qt.point(0, 30); hotspot: Qt.point(10, 0) }
    })";

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
    const auto *const fade = popup->findChild<QAbstractAnimation *>();
    recorder->follow(QStringLiteral("forward"),
                     [fade] { return fade->direction() == QAbstractAnimation::Forward; });
    recorder->follow(QStringLiteral("filters"), [] { return support::eventFilters().size(); });
}

void TestPopupsOrder::popupOpensAndCloses()
{
    support::QmlView view;
    view.load(popupScene);
    view.show();
    QQuickItem *const popup = view.item<>("popup");
    QVERIFY(popup);
    auto *const fade = popup->findChild<QAbstractAnimation *>();
    popup->setProperty("attachedItem", QVariant::fromValue(view.item<>("anchor")));
    popup->setPosition({0, 0});

    support::SignalRecorder recorder;
    followPopup(&recorder, popup);
    QMetaObject::invokeMethod(popup, "show");
    QCOMPARE(recorder.take(),
             lines("popup.open = true, popup.visible = true, popup.visibleChanged, "
                   "popup.enabled = true, popup.enabledChanged, popup.openChanged, "
                   "popup.x = 90, popup.y = 80, popup.xChanged, popup.yChanged, "
                   "popup.activeFocus = true, filters = 1, popup.activeFocusChanged"));
    fade->setCurrentTime(fade->totalDuration());
    QCOMPARE(recorder.take(), lines("popup.animationFinished"));

    popup->setProperty("open", false);
    QCOMPARE(recorder.take(),
             lines("popup.open = false, popup.enabled = false, popup.activeFocus = false, "
                   "forward = false, popup.activeFocusChanged, popup.enabledChanged, "
                   "popup.openChanged, filters = 0"));
    fade->setCurrentTime(0);
    QCOMPARE(recorder.take(),
             lines("popup.animationFinished, popup.visible = false, popup.visibleChanged"));
}

void TestPopupsOrder::popupIsAcceptedAndRejected()
{
    support::QmlView view;
    view.load(popupScene);
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

/// The popup is where the new point puts it before the change is told.
void TestPopupsOrder::popupMovesBeforeItTells()
{
    support::QmlView view;
    view.load(popupScene);
    view.show();
    QQuickItem *const popup = view.item<>("popup");
    QMetaObject::invokeMethod(popup, "updatePosition");
    QCOMPARE(popup->position(), QPointF(-10, 30));
    support::SignalRecorder recorder;
    recorder.watch(popup, QStringLiteral("popup"), lines("xChanged, yChanged, hotspotChanged"));
    recorder.follow(popup, QStringLiteral("popup"), lines("hotspot, x, y"));
    popup->setProperty("hotspot", QPointF(0, 0));
    QCOMPARE(recorder.take(),
             (QStringList{text("popup.hotspot = (0, 0)"), text("popup.x = 0"),
                          text("popup.xChanged"), text("popup.hotspotChanged")}));
}

static const char *const dialogScene = R"(
    Item {
        width: 200; height: 200
        Item { objectName: "first" }
        Item { objectName: "disabled"; enabled: false }
        Item { objectName: "last" }
        DialogItem { id: dialog; objectName: "dialog"; modal: true }
        DialogItem { objectName: "below"; modal: false }
    })";

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
    view->load(dialogScene);
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

QTEST_MAIN(TestPopupsOrder)
#include "tst_order.moc"
