// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/popups/Dialogs.h"
#include "tests/support/Leftovers.h"
#include "tests/support/QmlView.h"
#include "tests/support/SignalRecorder.h"
#include "tests/support/SignalTrap.h"

#include <QMap>
#include <QPointer>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

#include <functional>
#include <iterator>

using support::evaluate;
using support::QmlView;
using support::SignalRecorder;
using support::SignalTrap;

/// Destruction, opening and closing of a DialogItem from inside its own operations.
class TestDialogLifetime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void siblingDestroyedWhileOpen();
    void destroyedWhileOpen();
    void destroyedInsideASignal_data();
    void destroyedInsideASignal();
    void deletedInEverySignal_data();
    void deletedInEverySignal();
    void readWhileItIsDestroyed();
    void destroyedByItsLoader_data();
    void destroyedByItsLoader();
    void destroyedWithItsWindow();
    void movedToAnotherWindowWhileOpen();
    void showInOnRejected();
    void openedThoughRejectedInOnOpenChanged();
    void closedAndShownInOnOpenChanged();
    void closedInOnZChanged();
    void shownInOnOpenChanged();
    void closedWhileDisablingSiblings();
    void reopenedWhileEnablingSiblings();
    void aThousandOpensAndCloses();
};

namespace {

/// A view in which dialogs without handlers of their own are made, beside two siblings.
struct Maker : QmlView
{
    Maker()
    {
        loadFile(QStringLiteral("data/dialogmaker.qml"));
        show();
    }

    /// A dialog that has moved to the content item, and back beside the siblings.
    QQuickItem *make() const
    {
        auto *dialog = evaluate(root(), QStringLiteral("make()")).value<QQuickItem *>();
        QCoreApplication::sendPostedEvents(dialog, QEvent::MetaCall);
        dialog->setParentItem(root());
        return dialog;
    }
};

/// What makes a dialog emit signals: something to do first, and what is looked at. A "!" marks what
/// QQuickItem emits before it is done with an item: there, no item may be deleted.
struct Entry
{
    const char *name;
    std::function<void(QQuickItem *)> prepare;
    std::function<void(QQuickItem *)> act;
    const char *expected;
};

void call(QQuickItem *dialog, const char *method)
{
    QMetaObject::invokeMethod(dialog, method);
}

const Entry entries[] = {
    {"shown", [](QQuickItem *) {}, [](QQuickItem *dialog) { call(dialog, "show"); },
     "dialog.enabledChanged dialog.focusChanged dialog.activeFocusChanged dialog.openChanged "
     "sibling.enabledChanged other.enabledChanged dialog.opened"},
    {"shown at another height", [](QQuickItem *dialog) { dialog->setZ(1); },
     [](QQuickItem *dialog) { call(dialog, "show"); },
     "dialog.enabledChanged dialog.focusChanged dialog.activeFocusChanged dialog.openChanged "
     "!dialog.zChanged sibling.enabledChanged other.enabledChanged dialog.opened"},
    {"shown again",
     [](QQuickItem *dialog) {
         call(dialog, "show");
         dialog->setFocus(false);
     },
     [](QQuickItem *dialog) { call(dialog, "show"); },
     "dialog.focusChanged dialog.activeFocusChanged dialog.opened"},
    {"accepted", [](QQuickItem *dialog) { call(dialog, "show"); },
     [](QQuickItem *dialog) { call(dialog, "accept"); },
     "!dialog.activeFocusChanged dialog.enabledChanged dialog.openChanged sibling.enabledChanged "
     "other.enabledChanged dialog.accepted"},
    {"rejected", [](QQuickItem *dialog) { call(dialog, "show"); },
     [](QQuickItem *dialog) { call(dialog, "reject"); },
     "!dialog.activeFocusChanged dialog.enabledChanged dialog.openChanged sibling.enabledChanged "
     "other.enabledChanged dialog.rejected"},
    {"type", [](QQuickItem *) {}, [](QQuickItem *dialog) { dialog->setProperty("type", 1); },
     "dialog.typeChanged"},
    {"modal", [](QQuickItem *) {}, [](QQuickItem *dialog) { dialog->setProperty("modal", false); },
     "dialog.modalChanged"},
};

} // namespace

void TestDialogLifetime::cleanup()
{
    QCOMPARE(openDialogs(), 0);
    QCOMPARE(support::leftovers(), QString());
}

void TestDialogLifetime::siblingDestroyedWhileOpen()
{
    Dialogs dialogs;
    auto *extra = new QQuickItem(dialogs.window->contentItem());
    dialogs.run(QStringLiteral("second.show()"));
    QVERIFY(!extra->isEnabled());
    delete extra;
    delete dialogs.item("first");
    dialogs.takeLog();
    dialogs.run(QStringLiteral("second.reject()"));
    QCOMPARE(dialogs.takeLog(), QStringLiteral("second false, last true"));
}

void TestDialogLifetime::destroyedWhileOpen()
{
    Dialogs dialogs;
    dialogs.run(QStringLiteral("dialog.show(); log = []"));
    SignalRecorder recorder;
    recorder.watch(
        dialogs.dialog, QStringLiteral("dialog"),
        {QStringLiteral("openChanged"), QStringLiteral("accepted"), QStringLiteral("rejected")});
    delete dialogs.dialog.data();
    QCOMPARE(dialogs.takeLog(), QStringLiteral("first true, last true"));
    QCOMPARE(recorder.take(), QStringList());
    QVERIFY(!dialogs.item("already")->isEnabled());
    QCOMPARE(openDialogs(), 0);

    // A handler that calls show() during the destruction opens nothing.
    Dialogs again;
    again.run(QStringLiteral("dialog.show(); first.enabledChanged.connect(function() { "
                             "if (dialog) dialog.show() })"));
    delete again.dialog.data();
    QVERIFY(again.item("first")->isEnabled());
    QVERIFY(again.item("last")->isEnabled());
    QCOMPARE(openDialogs(), 0);
}

void TestDialogLifetime::destroyedInsideASignal_data()
{
    QTest::addColumn<QString>("signalName");
    QTest::addColumn<QString>("action");
    QTest::newRow("opened") << "opened"
                            << "dialog.show()";
    QTest::newRow("opening") << "openChanged"
                             << "dialog.show()";
    QTest::newRow("accepted") << "accepted"
                              << "dialog.show(); dialog.accept(1)";
    QTest::newRow("rejected") << "rejected"
                              << "dialog.show(); dialog.reject()";
}

void TestDialogLifetime::destroyedInsideASignal()
{
    QFETCH(QString, signalName);
    QFETCH(QString, action);
    Maker maker;
    const QPointer<QQuickItem> dialog = maker.make();
    evaluate(dialog, QStringLiteral("%1.connect(function() { destroy() })").arg(signalName));
    evaluate(dialog, QString(action).remove(QStringLiteral("dialog.")));
    QTRY_VERIFY(!dialog);
    QVERIFY(maker.item<>("sibling")->isEnabled());
    QCOMPARE(openDialogs(), 0);
}

void TestDialogLifetime::deletedInEverySignal_data()
{
    QTest::addColumn<int>("index");
    for (size_t i = 0; i < std::size(entries); ++i) {
        QTest::newRow(entries[i].name) << int(i);
    }
}

/// A first run tells which signals there are, of the dialog ("dialog.") and of the siblings that it
/// disables, and in which order; then each of them gets a slot that deletes the dialog.
void TestDialogLifetime::deletedInEverySignal()
{
    QFETCH(int, index);
    const Entry &entry = entries[index];
    Maker maker;
    const QMap<QString, QObject *> siblings{{QStringLiteral("sibling"), maker.item<>("sibling")},
                                            {QStringLiteral("other"), maker.item<>("other")}};
    const auto prepared = [&maker, &entry] {
        QQuickItem *dialog = maker.make();
        entry.prepare(dialog);
        return dialog;
    };
    const QPointer<QQuickItem> first = prepared();
    SignalRecorder recorder;
    recorder.watch(first, QStringLiteral("dialog"));
    for (auto it = siblings.cbegin(); it != siblings.cend(); ++it) {
        recorder.watch(it.value(), it.key(), {QStringLiteral("enabledChanged")});
    }
    entry.act(first);
    const QString expected = QString::fromLatin1(entry.expected);
    QCOMPARE(recorder.take().join(QLatin1Char(' ')), QString(expected).remove(QLatin1Char('!')));
    delete first.data();

    for (const QString &one : expected.split(QLatin1Char(' '))) {
        if (one.startsWith(QLatin1Char('!'))) {
            continue;
        }
        const QPointer<QQuickItem> dialog = prepared();
        QObject *const sender = siblings.value(one.section(QLatin1Char('.'), 0, 0), dialog.data());
        const SignalTrap trap(sender, one.section(QLatin1Char('.'), 1).toLatin1(),
                              [dialog] { delete dialog.data(); });
        entry.act(dialog);
        QVERIFY2(!dialog, qPrintable(one));
        QVERIFY2(maker.item<>("sibling")->isEnabled(), qPrintable(one));
        QVERIFY2(maker.item<>("other")->isEnabled(), qPrintable(one));
        QCOMPARE(openDialogs(), 0);
    }
}

/// The destructor leaves the item tree and loses the focus: handlers of that may read the dialog.
void TestDialogLifetime::readWhileItIsDestroyed()
{
    Maker maker;
    const QPointer<QQuickItem> dialog = maker.make();
    dialog->setProperty("type", 2);
    QStringList seen;
    const auto look = [&seen, dialog] { seen.append(dialog->property("type").toString()); };
    const SignalTrap moved(dialog, "parentChanged", look);
    QMetaObject::invokeMethod(dialog, "show");
    const SignalTrap unfocused(dialog, "activeFocusChanged", look);
    delete dialog.data();
    QVERIFY(!seen.isEmpty());
    seen.removeDuplicates();
    QCOMPARE(seen, QStringList{QStringLiteral("2")});
}

void TestDialogLifetime::destroyedByItsLoader_data()
{
    destroyedInsideASignal_data();
}

void TestDialogLifetime::destroyedByItsLoader()
{
    QFETCH(QString, signalName);
    QFETCH(QString, action);
    QmlView view;
    view.loadFile(QStringLiteral("data/destroyedbyitsloader.qml"));
    view.show();
    const QPointer<QQuickItem> dialog = view.root()->property("dialog").value<QQuickItem *>();
    QTRY_COMPARE(dialog->parentItem(), view.window()->contentItem());
    evaluate(
        view.root(),
        QStringLiteral("dialog.%1.connect(function() { loader.active = false })").arg(signalName));
    evaluate(view.root(), QStringLiteral("(function(dialog) { %1 })(dialog)").arg(action));
    QTRY_VERIFY(!dialog);
    QVERIFY(view.root()->isEnabled());
    QCOMPARE(openDialogs(), 0);
}

void TestDialogLifetime::destroyedWithItsWindow()
{
    QPointer<QQuickItem> dialog;
    {
        Dialogs dialogs;
        dialogs.run(QStringLiteral("dialog.show(); second.show()"));
        dialog = dialogs.dialog;
        QCOMPARE(openDialogs(), 2);
    }
    QVERIFY(!dialog);
    QCOMPARE(openDialogs(), 0);
}

void TestDialogLifetime::movedToAnotherWindowWhileOpen()
{
    Dialogs dialogs;
    dialogs.run(QStringLiteral("dialog.show()"));
    QQuickWindow window;
    QQuickItem place(window.contentItem());
    dialogs.dialog->setParentItem(&place);
    QTRY_COMPARE(dialogs.dialog->parentItem(), window.contentItem());
    QVERIFY(!dialogs.item("first")->isEnabled());
    QVERIFY(place.isEnabled());
    dialogs.run(QStringLiteral("dialog.reject()"));
    QVERIFY(dialogs.item("first")->isEnabled());
    QVERIFY(dialogs.item("last")->isEnabled());
    dialogs.dialog->setParentItem(dialogs.window->contentItem());
}

void TestDialogLifetime::showInOnRejected()
{
    Dialogs dialogs;
    dialogs.run(QStringLiteral("var once = dialog.rejected.connect(function() { if "
                               "(++pressedBelow === 1) dialog.show() }); dialog.show()"));
    dialogs.run(QStringLiteral("dialog.reject()"));
    QCOMPARE(dialogs.dialog->property("open"), QVariant(true));
    QVERIFY(dialogs.dialog->isEnabled());
    QVERIFY(!dialogs.item("first")->isEnabled());
    QCOMPARE(openDialogs(), 1);
    dialogs.run(QStringLiteral("dialog.reject()"));
    QVERIFY(dialogs.item("first")->isEnabled());
    QCOMPARE(openDialogs(), 0);
}

/// show() emits opened() in any case; the property open says whether the dialog is still open.
void TestDialogLifetime::openedThoughRejectedInOnOpenChanged()
{
    Dialogs dialogs;
    dialogs.run(QStringLiteral(
        "dialog.openChanged.connect(function() { if (dialog.open) dialog.reject() })"));
    SignalRecorder recorder;
    recorder.watch(
        dialogs.dialog, QStringLiteral("dialog"),
        {QStringLiteral("openChanged"), QStringLiteral("opened"), QStringLiteral("rejected")},
        [&dialogs] { return dialogs.dialog->property("open").toBool() ? "open" : "closed"; });
    dialogs.run(QStringLiteral("dialog.show()"));
    // The handler comes before the recorder, which so sees the end of it first.
    QCOMPARE(recorder.take(),
             (QStringList{QStringLiteral("dialog.openChanged [closed]"),
                          QStringLiteral("dialog.rejected [closed]"),
                          QStringLiteral("dialog.openChanged [closed]"),
                          QStringLiteral("dialog.opened [closed]")}));
    QCOMPARE(dialogs.dialog->property("open"), QVariant(false));
    QVERIFY(!dialogs.dialog->isEnabled());
    QVERIFY(dialogs.item("first")->isEnabled());
    QCOMPARE(openDialogs(), 0);
}

/// The second opening has disabled the siblings; the first does not free and disable them again.
void TestDialogLifetime::closedAndShownInOnOpenChanged()
{
    Dialogs dialogs;
    const SignalTrap trap(dialogs.dialog, "openChanged", [&dialogs] {
        dialogs.run(QStringLiteral("dialog.reject(); dialog.show()"));
    });
    dialogs.takeLog();
    dialogs.run(QStringLiteral("dialog.show()"));
    QCOMPARE(dialogs.takeLog(),
             QStringLiteral("dialog true, dialog false, dialog true, first false, last false"));
    QCOMPARE(openDialogs(), 1);
    dialogs.run(QStringLiteral("dialog.reject()"));
    QVERIFY(dialogs.item("first")->isEnabled());
    QVERIFY(dialogs.item("last")->isEnabled());
}

/// A dialog that a handler of zChanged() closes while it opens does not count as open.
void TestDialogLifetime::closedInOnZChanged()
{
    Dialogs dialogs;
    int others = -1;
    dialogs.dialog->setZ(1);
    const SignalTrap trap(dialogs.dialog, "zChanged", [&] {
        dialogs.run(QStringLiteral("dialog.reject()"));
        others = openDialogs();
    });
    dialogs.takeLog();
    dialogs.run(QStringLiteral("dialog.show()"));
    QVERIFY(trap.hasSprung());
    QCOMPARE(others, 0);
    QCOMPARE(openDialogs(), 0);
    QCOMPARE(dialogs.takeLog(), QStringLiteral("dialog true, dialog false"));
    QVERIFY(dialogs.item("first")->isEnabled());
}

void TestDialogLifetime::shownInOnOpenChanged()
{
    Dialogs dialogs;
    dialogs.run(QStringLiteral("dialog.openChanged.connect(function() { if (!dialog.open && "
                               "++pressedBelow === 1) dialog.show() }); dialog.show()"));
    dialogs.run(QStringLiteral("dialog.reject()"));
    QCOMPARE(dialogs.dialog->property("open"), QVariant(true));
    QVERIFY(!dialogs.item("first")->isEnabled());
    QCOMPARE(openDialogs(), 1);
    dialogs.run(QStringLiteral("dialog.reject()"));
    QVERIFY(dialogs.item("first")->isEnabled());
    QVERIFY(dialogs.item("last")->isEnabled());
}

void TestDialogLifetime::closedWhileDisablingSiblings()
{
    Dialogs dialogs;
    dialogs.run(QStringLiteral("first.enabledChanged.connect(function() { if (!first.enabled) "
                               "dialog.reject() }); log = []; dialog.show()"));
    QCOMPARE(dialogs.dialog->property("open"), QVariant(false));
    QVERIFY(dialogs.item("first")->isEnabled());
    QVERIFY(dialogs.item("last")->isEnabled());
    QCOMPARE(openDialogs(), 0);
}

void TestDialogLifetime::reopenedWhileEnablingSiblings()
{
    Dialogs dialogs;
    dialogs.run(QStringLiteral("first.enabledChanged.connect(function() { if (first.enabled && "
                               "++pressedBelow === 1) dialog.show() }); dialog.show(); "
                               "dialog.reject()"));
    QCOMPARE(dialogs.dialog->property("open"), QVariant(true));
    QVERIFY(!dialogs.item("first")->isEnabled());
    QVERIFY(!dialogs.item("last")->isEnabled());
    dialogs.run(QStringLiteral("dialog.reject()"));
    QVERIFY(dialogs.item("first")->isEnabled());
    QVERIFY(dialogs.item("last")->isEnabled());
}

void TestDialogLifetime::aThousandOpensAndCloses()
{
    Dialogs dialogs;
    dialogs.run(QStringLiteral(
        "for (let i = 0; i < 1000; ++i) { dialog.show(); second.show(); second.accept(i); "
        "dialog.reject(); }"));
    QCOMPARE(openDialogs(), 0);
    QVERIFY(dialogs.item("first")->isEnabled());
    QVERIFY(!dialogs.dialog->isEnabled());
    dialogs.run(QStringLiteral("dialog.show()"));
    QCOMPARE(dialogs.dialog->z(), 65535.0);
    dialogs.run(QStringLiteral("dialog.reject()"));
}

QTEST_MAIN(TestDialogLifetime)
#include "tst_dialoglifetime.moc"
