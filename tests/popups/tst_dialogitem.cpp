// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/popups/Dialogs.h"
#include "tests/support/Leftovers.h"
#include "tests/support/QmlView.h"
#include "tests/support/SignalRecorder.h"

#include <QMetaEnum>
#include <QQmlComponent>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>

using support::evaluate;
using support::QmlView;
using support::SignalRecorder;

/// DialogItem: where it goes, what it disables, and that it gives everything back.
class TestDialogItem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void defaults();
    void changesNotifyOnce_data();
    void changesNotifyOnce();
    void typesAreFlags();
    void signalsInTheirOrder();
    void movesToTheContentItem();
    void neverEmitsWindowChanged();
    void windowlessDialogsStayWhereTheyAre();
    void orderOfShowing();
    void orderOfAccepting();
    void orderOfRejecting();
    void acceptWithoutResult();
    void modalDisablesItsSiblings();
    void nonModalDisablesNothing();
    void enablesSiblingsThoughModalWasTurnedOff();
    void modalTurnedOnWhileOpenDisablesNothing();
    void showingAgainOnlyFocuses();
    void closingAgainOnlySaysSo();
    void laterDialogsLieHigher();
    void theCounterIsProcessWide();
    void stackedModalDialogs();
    void modalKeepsPressesAway();
    void takesTheFocus();
    void opensBeforeItHasMoved();
};

void TestDialogItem::cleanup()
{
    QCOMPARE(openDialogs(), 0);
    QCOMPARE(support::leftovers(), QString());
}

void TestDialogItem::defaults()
{
    QmlView view;
    view.load("DialogItem {}");
    QQuickItem *dialog = view.root();
    QCOMPARE(dialog->property("type").toInt(), 0);
    QCOMPARE(dialog->property("open"), QVariant(false));
    QCOMPARE(dialog->property("modal"), QVariant(true));
    QCOMPARE(dialog->z(), 65535.0);
    QVERIFY(!dialog->isEnabled());
    QVERIFY(dialog->isFocusScope());
    QVERIFY(dialog->isVisible());
    QVERIFY(!dialog->metaObject()
                 ->property(dialog->metaObject()->indexOfProperty("open"))
                 .isWritable());
}

void TestDialogItem::changesNotifyOnce_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("type") << QByteArray("type") << QVariant(2);
    QTest::newRow("modal") << QByteArray("modal") << QVariant(false);
}

void TestDialogItem::changesNotifyOnce()
{
    QFETCH(QByteArray, property);
    QFETCH(QVariant, value);
    QmlView view;
    view.load("DialogItem {}");
    const QVariant before = view.root()->property(property);
    SignalRecorder recorder;
    recorder.watch(view.root(), QStringLiteral("dialog"));
    const QString entry = QStringLiteral("dialog.%1Changed").arg(QString::fromLatin1(property));
    QVERIFY(view.root()->setProperty(property, value));
    QCOMPARE(view.root()->property(property).toInt(), value.toInt());
    QCOMPARE(recorder.take(), QStringList{entry});
    QVERIFY(view.root()->setProperty(property, value));
    QCOMPARE(recorder.take(), QStringList());
    QVERIFY(view.root()->setProperty(property, before));
    QCOMPARE(recorder.take(), QStringList{entry});
}

void TestDialogItem::typesAreFlags()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/typesareflags.qml"));
    QCOMPARE(view.root()->property("type").toInt(), 3);
    QCOMPARE(evaluate(view.root(), QStringLiteral("values.join()")).toString(),
             QStringLiteral("0,1,2,4"));
    const QMetaObject *meta = view.root()->metaObject();
    const QMetaProperty type = meta->property(meta->indexOfProperty("type"));
    QVERIFY(type.isFlagType());
    QCOMPARE(QByteArray(type.enumerator().name()), QByteArray("DialogTypes"));
    evaluate(view.root(), QStringLiteral("root.type = DialogItem.TypeOk"));
    QCOMPARE(view.root()->property("type").toInt(), 4);
}

void TestDialogItem::signalsInTheirOrder()
{
    QmlView view;
    view.load("DialogItem {}");
    const QMetaObject *meta = view.root()->metaObject();
    while (QByteArray(meta->className()) != "om::controls::DialogItem") {
        meta = meta->superClass();
    }
    QStringList names;
    for (int i = meta->methodOffset(); i < meta->methodCount(); ++i) {
        if (meta->method(i).methodType() == QMetaMethod::Signal) {
            names.append(QString::fromLatin1(meta->method(i).methodSignature()));
        }
    }
    QCOMPARE(names.join(QLatin1Char(' ')),
             QStringLiteral("opened() accepted(QVariant) rejected() typeChanged() openChanged() "
                            "modalChanged()"));
}

void TestDialogItem::movesToTheContentItem()
{
    Dialogs dialogs;
    QCOMPARE(dialogs.dialog->parentItem(), dialogs.window->contentItem());

    QmlView view;
    view.load("Item { width: 100; height: 100; Item { DialogItem { objectName: 'dialog' } } }");
    QQuickItem *dialog = view.item<>("dialog");
    QQuickItem *declared = dialog->parentItem();
    QVERIFY(declared != view.window()->contentItem());
    // Not within the change of the tree, but one turn of the event loop later.
    QCoreApplication::sendPostedEvents(dialog, QEvent::MetaCall);
    QCOMPARE(dialog->parentItem(), view.window()->contentItem());
}

void TestDialogItem::neverEmitsWindowChanged()
{
    QmlView view;
    view.load("Item { DialogItem { objectName: 'dialog' } }");
    QQuickItem *dialog = view.item<>("dialog");
    QQuickWindow window;
    QSignalSpy windowChanged(dialog, &QQuickItem::windowChanged);
    dialog->setParentItem(window.contentItem());
    QCOMPARE(dialog->window(), &window);
    QCOMPARE(windowChanged.count(), 0);
    dialog->setParentItem(view.root());
}

void TestDialogItem::windowlessDialogsStayWhereTheyAre()
{
    QQuickItem root;
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData("import ombrel.Controls 1.0; DialogItem {}", QUrl());
    const QScopedPointer<QQuickItem> dialog(qobject_cast<QQuickItem *>(component.create()));
    dialog->setParentItem(&root);
    QVERIFY(QMetaObject::invokeMethod(dialog.data(), "reparent"));
    QCOMPARE(dialog->parentItem(), &root);
    QQuickItem sibling(&root);
    QMetaObject::invokeMethod(dialog.data(), "show");
    QVERIFY(dialog->isEnabled());
    QVERIFY(!sibling.isEnabled());
    QMetaObject::invokeMethod(dialog.data(), "reject");
    QVERIFY(sibling.isEnabled());
    dialog->setParentItem(nullptr);
    QMetaObject::invokeMethod(dialog.data(), "show");
    QCOMPARE(dialog->property("open"), QVariant(true));
    QMetaObject::invokeMethod(dialog.data(), "reject");
}

void TestDialogItem::orderOfShowing()
{
    Dialogs dialogs;
    SignalRecorder recorder;
    QQuickItem *first = dialogs.item("first");
    const auto probe = [&dialogs, first] {
        return QStringLiteral("%1 %2 %3")
            .arg(dialogs.dialog->hasActiveFocus() ? "focus" : "-")
            .arg(first->isEnabled() ? "free" : "blocked")
            .arg(dialogs.dialog->property("open").toBool() ? "open" : "closed");
    };
    recorder.watch(dialogs.dialog, QStringLiteral("dialog"),
                   {QStringLiteral("enabledChanged"), QStringLiteral("activeFocusChanged"),
                    QStringLiteral("openChanged"), QStringLiteral("opened"),
                    QStringLiteral("accepted"), QStringLiteral("rejected")},
                   probe);
    dialogs.run(QStringLiteral("dialog.show()"));
    QCOMPARE(recorder.take(),
             (QStringList{QStringLiteral("dialog.enabledChanged [- free closed]"),
                          QStringLiteral("dialog.activeFocusChanged [focus free closed]"),
                          QStringLiteral("dialog.openChanged [focus free open]"),
                          QStringLiteral("dialog.opened [focus blocked open]")}));
    dialogs.run(QStringLiteral("dialog.reject()"));
}

void TestDialogItem::orderOfAccepting()
{
    Dialogs dialogs;
    dialogs.run(QStringLiteral("dialog.show()"));
    QQuickItem *first = dialogs.item("first");
    SignalRecorder recorder;
    recorder.watch(dialogs.dialog, QStringLiteral("dialog"),
                   {QStringLiteral("enabledChanged"), QStringLiteral("openChanged"),
                    QStringLiteral("accepted"), QStringLiteral("rejected")},
                   [first] { return first->isEnabled() ? "free" : "blocked"; });
    dialogs.run(QStringLiteral("dialog.accept('saved')"));
    QCOMPARE(recorder.entries(),
             (QStringList{QStringLiteral("dialog.enabledChanged [blocked]"),
                          QStringLiteral("dialog.openChanged [blocked]"),
                          QStringLiteral("dialog.accepted [free]")}));
    QCOMPARE(recorder.arguments(2), QVariantList{QStringLiteral("saved")});
}

void TestDialogItem::orderOfRejecting()
{
    Dialogs dialogs;
    dialogs.run(QStringLiteral("dialog.show()"));
    SignalRecorder recorder;
    recorder.watch(dialogs.dialog, QStringLiteral("dialog"),
                   {QStringLiteral("enabledChanged"), QStringLiteral("openChanged"),
                    QStringLiteral("accepted"), QStringLiteral("rejected")});
    dialogs.run(QStringLiteral("dialog.reject()"));
    QCOMPARE(
        recorder.take(),
        (QStringList{QStringLiteral("dialog.enabledChanged"), QStringLiteral("dialog.openChanged"),
                     QStringLiteral("dialog.rejected")}));
}

void TestDialogItem::acceptWithoutResult()
{
    Dialogs dialogs;
    dialogs.run(QStringLiteral("dialog.accepted.connect(function(result) { log.push(typeof result) "
                               "}); dialog.show(); log = []; dialog.accept()"));
    QVERIFY(dialogs.takeLog().endsWith(QStringLiteral("undefined")));
}

void TestDialogItem::modalDisablesItsSiblings()
{
    Dialogs dialogs;
    dialogs.run(QStringLiteral("dialog.show()"));
    QCOMPARE(dialogs.takeLog(), QStringLiteral("dialog true, first false, last false"));
    dialogs.run(QStringLiteral("dialog.accept()"));
    QCOMPARE(dialogs.takeLog(), QStringLiteral("dialog false, first true, last true"));
    QVERIFY(!dialogs.item("already")->isEnabled());
    QVERIFY(!dialogs.second->isEnabled());
}

void TestDialogItem::nonModalDisablesNothing()
{
    Dialogs dialogs;
    dialogs.run(QStringLiteral("dialog.modal = false; dialog.show()"));
    QCOMPARE(dialogs.takeLog(), QStringLiteral("dialog true"));
    dialogs.press(QPoint(200, 200));
    QCOMPARE(dialogs.window->property("pressedBelow"), QVariant(1));
    dialogs.run(QStringLiteral("dialog.accept()"));
    QCOMPARE(dialogs.takeLog(), QStringLiteral("dialog false"));
    QCOMPARE(openDialogs(), 0);
}

void TestDialogItem::enablesSiblingsThoughModalWasTurnedOff()
{
    Dialogs dialogs;
    dialogs.run(QStringLiteral("dialog.show(); log = []; dialog.modal = false"));
    QCOMPARE(dialogs.takeLog(), QString());
    dialogs.run(QStringLiteral("dialog.reject()"));
    QCOMPARE(dialogs.takeLog(), QStringLiteral("dialog false, first true, last true"));
}

void TestDialogItem::modalTurnedOnWhileOpenDisablesNothing()
{
    Dialogs dialogs;
    dialogs.run(QStringLiteral("dialog.modal = false; dialog.show(); dialog.modal = true"));
    QVERIFY(dialogs.item("first")->isEnabled());
    dialogs.run(QStringLiteral("dialog.reject()"));
    QCOMPARE(dialogs.takeLog(), QStringLiteral("dialog true, dialog false"));
}

void TestDialogItem::showingAgainOnlyFocuses()
{
    Dialogs dialogs;
    dialogs.run(QStringLiteral("dialog.show()"));
    dialogs.takeLog();
    const qreal z = dialogs.dialog->z();
    dialogs.item("first")->setEnabled(true);
    dialogs.item("first")->forceActiveFocus();
    QVERIFY(!dialogs.dialog->hasActiveFocus());
    dialogs.takeLog();
    SignalRecorder recorder;
    recorder.watch(
        dialogs.dialog, QStringLiteral("dialog"),
        {QStringLiteral("openChanged"), QStringLiteral("opened"), QStringLiteral("zChanged")});
    dialogs.run(QStringLiteral("dialog.show()"));
    QCOMPARE(recorder.take(), QStringList{QStringLiteral("dialog.opened")});
    QVERIFY(dialogs.dialog->hasActiveFocus());
    QVERIFY(dialogs.item("first")->isEnabled());
    QCOMPARE(dialogs.dialog->z(), z);
    QCOMPARE(openDialogs(), 1);
    dialogs.run(QStringLiteral("dialog.reject()"));
}

void TestDialogItem::closingAgainOnlySaysSo()
{
    Dialogs dialogs;
    SignalRecorder recorder;
    recorder.watch(
        dialogs.dialog, QStringLiteral("dialog"),
        {QStringLiteral("openChanged"), QStringLiteral("accepted"), QStringLiteral("rejected")});
    dialogs.dialog->setEnabled(true);
    dialogs.run(QStringLiteral("dialog.accept(1)"));
    QVERIFY(!dialogs.dialog->isEnabled());
    dialogs.dialog->setEnabled(true);
    dialogs.run(QStringLiteral("dialog.reject()"));
    QVERIFY(!dialogs.dialog->isEnabled());
    QCOMPARE(recorder.take(),
             (QStringList{QStringLiteral("dialog.accepted"), QStringLiteral("dialog.rejected")}));
    QCOMPARE(openDialogs(), 0);
}

void TestDialogItem::laterDialogsLieHigher()
{
    Dialogs dialogs;
    dialogs.run(QStringLiteral("dialog.show(); second.show()"));
    QCOMPARE(dialogs.dialog->z(), 65535.0);
    QCOMPARE(dialogs.second->z(), 65536.0);
    dialogs.run(QStringLiteral("second.accept(); dialog.accept(); second.show()"));
    QCOMPARE(dialogs.second->z(), 65535.0);
    dialogs.run(QStringLiteral("second.reject()"));
}

void TestDialogItem::theCounterIsProcessWide()
{
    Dialogs here;
    Dialogs there;
    here.run(QStringLiteral("dialog.show()"));
    there.run(QStringLiteral("dialog.modal = false; dialog.show()"));
    QCOMPARE(there.dialog->z(), 65536.0);
    here.run(QStringLiteral("dialog.reject()"));
    QCOMPARE(openDialogs(), 1);
    there.run(QStringLiteral("dialog.reject()"));
}

void TestDialogItem::stackedModalDialogs()
{
    Dialogs dialogs;
    dialogs.run(QStringLiteral("dialog.show()"));
    dialogs.takeLog();
    dialogs.run(QStringLiteral("second.show()"));
    QCOMPARE(dialogs.takeLog(), QStringLiteral("second true, dialog false"));
    dialogs.run(QStringLiteral("second.accept()"));
    QCOMPARE(dialogs.takeLog(), QStringLiteral("second false, dialog true"));
    QVERIFY(!dialogs.item("first")->isEnabled());
    dialogs.run(QStringLiteral("dialog.accept()"));
    QVERIFY(dialogs.item("first")->isEnabled());
}

void TestDialogItem::modalKeepsPressesAway()
{
    Dialogs dialogs;
    dialogs.run(QStringLiteral("dialog.show()"));
    dialogs.press(QPoint(200, 200));
    QCOMPARE(dialogs.window->property("pressedBelow"), QVariant(0));
    dialogs.run(QStringLiteral("dialog.reject()"));
    dialogs.press(QPoint(200, 200));
    QCOMPARE(dialogs.window->property("pressedBelow"), QVariant(1));
}

void TestDialogItem::takesTheFocus()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/takesthefocus.qml"));
    view.show();
    QTest::keyClick(view.window(), Qt::Key_A);
    evaluate(view.root(), QStringLiteral("dialog.show()"));
    QTest::keyClick(view.window(), Qt::Key_B);
    QCOMPARE(view.find(QStringLiteral("below"))->property("text").toString(), QStringLiteral("a"));
    auto *dialog = evaluate(view.root(), QStringLiteral("dialog")).value<QQuickItem *>();
    auto *field = dialog->findChild<QQuickItem *>(QStringLiteral("field"));
    QCOMPARE(field->property("text").toString(), QStringLiteral("b"));
    evaluate(view.root(), QStringLiteral("dialog.reject()"));
    QTest::keyClick(view.window(), Qt::Key_C);
    QCOMPARE(field->property("text").toString(), QStringLiteral("b"));
}

void TestDialogItem::opensBeforeItHasMoved()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/opensbeforeithasmoved.qml"));
    // The neighbours of that moment are the ones that are disabled, and given back.
    QQuickItem *neighbour = view.item<>("neighbour");
    QVERIFY(!neighbour->isEnabled());
    view.show();
    auto *dialog = evaluate(view.root(), QStringLiteral("dialog")).value<QQuickItem *>();
    QTRY_COMPARE(dialog->parentItem(), view.window()->contentItem());
    QVERIFY(!neighbour->isEnabled());
    QVERIFY(view.item<>("place")->isEnabled());
    evaluate(view.root(), QStringLiteral("dialog.accept()"));
    QVERIFY(neighbour->isEnabled());
}

QTEST_MAIN(TestDialogItem)
#include "tst_dialogitem.moc"
