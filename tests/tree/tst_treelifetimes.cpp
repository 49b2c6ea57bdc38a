// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Destroyer.h"
#include "tests/support/Leftovers.h"
#include "tests/support/SignalRecorder.h"
#include "tests/support/SignalTrap.h"
#include "tests/tree/TreeFixture.h"

#include <QMetaMethod>
#include <QQmlComponent>
#include <QTest>

#include <map>

using om::data::Document;
using support::evaluate;

/// Who owns what in a tree and how long it lives, and objects that are destroyed by C++ code which
/// one of their own signals calls.
class TestTreeLifetimes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(support::leftovers(), QString()); }
    void rowsOfEveryOriginAreFilled();
    void rowLoadedInADelegateIsFilled();
    void extraRowFollowsTheChildCount();
    void extraRowFollowsTheCollapse();
    void extraRowFollowsACollapseThatIsUndone();
    void oldEntriesAreChildrenOfTheView();
    void oldItemsGoWithTheirEntries();
    void oldRowsLeaveTheContentOnce();
    void createDelegateItemIsNullOnceTheContextGoes();
    void rootsAfterADestroyedOneGetRows();
    void destroyedRootsLeaveTheList();
    void childrenOfTheContentKeepTheApplicationsConnections();
    void collapseKeepsARowsPredecessor();
    void collapseLeavesRowsThatTheApplicationHasTaken();
    void collapseLeavesRowsThatAHandlerTakes();
    void collapseLeavesRowsThatAreOutsideTheContent();
    void collapseLeavesRowsThatAHandlerTakesOutside();
    void viewDestroyedFromItsSignals_data();
    void viewDestroyedFromItsSignals();
    void viewDestroyedFromASignalOfItsParts_data();
    void viewDestroyedFromASignalOfItsParts();
    void viewDestroyedWhileARowIsMade_data();
    void viewDestroyedWhileARowIsMade();
    void viewDestroyedWhenARowArrives();
    void viewDestroyedWhenAPredecessorIsSet();
};

/// A row has all its parts, whether the view, a delegate or a Loader has made it.
void TestTreeLifetimes::rowsOfEveryOriginAreFilled()
{
    TreeFixture f(TreeFixture::File{"data/filledrows.qml"});
    f.fill();
    for (const int index : {0, 3}) {
        QQuickItem *row = f.row(index);
        QVERIFY(evaluate(row, "typeof treeViewItem.populate === 'function'").toBool());
        auto *extra =
            evaluate(row, "createDelegateItem(1, treeViewItem.parent)").value<QQuickItem *>();
        QVERIFY(extra);
        for (const char *part : {"delegateItem", "backgroundItem", "branchHandleItem"}) {
            auto *item = extra->property(part).value<QQuickItem *>();
            QVERIFY2(item, part);
            QVERIFY2(item != row->property(part).value<QQuickItem *>(), part);
        }
        QCOMPARE(extra->height(), 30.0);
        QCOMPARE(extra->property("hasChildren").toBool(), index == 0);
        QCOMPARE(evaluate(extra, "delegateItem.name"), evaluate(row, "delegateItem.name"));
        QCOMPARE(evaluate(extra, "backgroundItem.width").toReal(), 300.0);
        QCOMPARE(evaluate(extra, "delegateItem.width"), evaluate(row, "delegateItem.width"));
        QCOMPARE(QQmlEngine::objectOwnership(extra), QQmlEngine::JavaScriptOwnership);
    }
}

void TestTreeLifetimes::rowLoadedInADelegateIsFilled()
{
    TreeFixture f(TreeFixture::File{"data/filledrows.qml"});
    f.fill();
    auto *loader = evaluate(f.row(1), "backgroundItem.loader").value<QQuickItem *>();
    QVERIFY(loader);
    loader->setProperty("active", true);
    auto *loaded = loader->property("item").value<QQuickItem *>();
    QVERIFY(loaded);
    QCOMPARE(loaded->height(), 30.0);
    QCOMPARE(evaluate(loaded, "delegateItem.name").toString(), QString("b"));
    QVERIFY(loaded->property("hasChildren").toBool());
}

/// Such a row follows the child count as the view's rows do, before the rebuild that follows.
void TestTreeLifetimes::extraRowFollowsTheChildCount()
{
    TreeFixture f(TreeFixture::File{"data/filledrows.qml"});
    f.fill();
    auto *extra =
        evaluate(f.row(3), "createDelegateItem(1, treeViewItem.parent)").value<QQuickItem *>();
    QVERIFY(!extra->property("hasChildren").toBool());
    f.make("x", f.d);
    QVERIFY(f.row(3)->property("hasChildren").toBool());
    QVERIFY(extra->property("hasChildren").toBool());
    // Also one that is made when the list has another name and the rebuild has not run yet.
    f.tree->setProperty("childProperty", "none");
    extra = evaluate(f.row(0), "createDelegateItem(1, treeViewItem.parent)").value<QQuickItem *>();
    QVERIFY(!f.row(0)->property("hasChildren").toBool());
    QVERIFY(!extra->property("hasChildren").toBool());
}

/// And the collapse state, before that is told: also when another such row has gone.
void TestTreeLifetimes::extraRowFollowsTheCollapse()
{
    TreeFixture f(TreeFixture::File{"data/filledrows.qml"});
    f.fill();
    const auto makeExtra = [&f] {
        return evaluate(f.row(1), "createDelegateItem(1, treeViewItem.parent)")
            .value<QQuickItem *>();
    };
    QQuickItem *const row = f.row(1);
    std::unique_ptr<QQuickItem> gone(makeExtra());
    QQuickItem *const extra = makeExtra();
    QVERIFY(gone && extra);
    gone.reset();
    QVERIFY(!extra->property("collapsed").toBool());
    bool atOnce = false;
    const support::SignalTrap trap(f.entry(1), "collapsedChanged",
                                   [&] { atOnce = extra->property("collapsed").toBool(); });
    f.call("tree.collapseIndex(1)");
    QVERIFY(row->property("collapsed").toBool());
    QVERIFY(atOnce);
    QVERIFY(extra->property("collapsed").toBool());
    QVERIFY(makeExtra()->property("collapsed").toBool());
    f.call("tree.expandIndex(1)");
    QVERIFY(!extra->property("collapsed").toBool());
}

void TestTreeLifetimes::extraRowFollowsACollapseThatIsUndone()
{
    TreeFixture f(TreeFixture::File{"data/filledrows.qml"});
    f.fill();
    auto *extra =
        evaluate(f.row(1), "createDelegateItem(1, treeViewItem.parent)").value<QQuickItem *>();
    QVERIFY(extra);
    const support::SignalTrap trap(f.row(1), "entryCollapsedChanged",
                                   [&f] { f.call("tree.expandIndex(1)"); });
    f.call("tree.collapseIndex(1)");
    QVERIFY(!f.row(1)->property("collapsed").toBool());
    QVERIFY(!extra->property("collapsed").toBool());
}

void TestTreeLifetimes::oldEntriesAreChildrenOfTheView()
{
    TreeFixture f;
    f.fill();
    QList<QPointer<QObject>> entries;
    for (int i = 0; i < 5; ++i) {
        entries.append(f.entry(i));
        QCOMPARE(entries.last()->parent(), f.tree);
    }
    f.append(f.make("x"));
    QCoreApplication::sendPostedEvents(f.tree, QEvent::MetaCall);
    QCOMPARE(f.rebuilt->count(), 1);
    for (const QPointer<QObject> &entry : qAsConst(entries)) {
        QVERIFY2(entry, "deleted before its time");
        QCOMPARE(entry->parent(), f.tree);
    }
    f.settle();
    for (const QPointer<QObject> &entry : qAsConst(entries)) {
        QVERIFY(!entry);
    }
}

/// Each entry is deleted with its item, from the last to the first.
void TestTreeLifetimes::oldItemsGoWithTheirEntries()
{
    TreeFixture f;
    f.fill();
    QStringList ends;
    for (int i = 0; i < 5; ++i) {
        connect(f.row(i), &QObject::destroyed, this,
                [&ends, i] { ends.append(QStringLiteral("item %1").arg(i)); });
        connect(f.entry(i), &QObject::destroyed, this,
                [&ends, i] { ends.append(QStringLiteral("entry %1").arg(i)); });
    }
    f.append(f.make("x"));
    f.settle();
    QCOMPARE(ends.join(QLatin1Char(' ')),
             QString("item 4 entry 4 item 3 entry 3 item 2 entry 2 item 1 entry 1 item 0 entry 0"));
}

/// All at the end of the first: the content's height is computed then, and not for each of them.
void TestTreeLifetimes::oldRowsLeaveTheContentOnce()
{
    TreeFixture f;
    f.fill();
    int computed = 0;
    const qreal notComputed = 7;
    connect(f.content(), &QQuickItem::heightChanged, this, [&] {
        if (f.content()->height() != notComputed) {
            ++computed;
        }
    });
    for (int i = 0; i < 5; ++i) {
        connect(f.row(i), &QObject::destroyed, f.content(),
                [&] { f.content()->setHeight(notComputed); });
    }
    f.roots().clear();
    f.settle();
    QCOMPARE(computed, 1);
}

void TestTreeLifetimes::createDelegateItemIsNullOnceTheContextGoes()
{
    TreeFixture f(TreeFixture::File{"data/callsatend.qml"});
    f.append(f.make("a"));
    f.settle();
    f.roots().clear();
    f.settle();
    QCOMPARE(f.view.root()->property("answers").toStringList(), QStringList("null"));
}

/// A root that is destroyed while its row is made leaves the list, and the roots after it move up.
void TestTreeLifetimes::rootsAfterADestroyedOneGetRows()
{
    Destroyer destroyer;
    TreeFixture f(TreeFixture::File{"data/callsoncompletion.qml", &destroyer});
    auto *first = f.make("first");
    destroyer.deed = [&first](const QString &name) {
        if (name == QLatin1String("first")) {
            delete first;
            first = nullptr;
        }
    };
    f.append(first);
    f.append(f.make("second"));
    f.append(f.make("third"));
    f.settle();
    QVERIFY(!first);
    QCOMPARE(f.rows().count(), 3);
    QCOMPARE(f.call("tree.documentAt(1).name").toString(), QString("second"));
    QCOMPARE(f.roots().count(), 2);
}

void TestTreeLifetimes::destroyedRootsLeaveTheList()
{
    TreeFixture f;
    QList<Document *> made;
    for (const char *id : {"a", "b", "c", "d", "e", "f"}) {
        made.append(f.make(id));
        f.append(made.last());
    }
    f.append(nullptr);
    f.append(made.at(1));
    f.append(made.at(4));
    QSignalSpy changed(f.tree, SIGNAL(rootDocumentsChanged()));
    delete made.at(1); // which is there twice
    delete made.at(0);
    QCOMPARE(changed.count(), 2);
    QCOMPARE(f.roots().count(), 6);
    QCOMPARE(f.roots().at(0), made.at(2));
    QCOMPARE(f.roots().at(4), nullptr);
    QCOMPARE(f.roots().at(5), made.at(4));
    delete made.at(5);
    f.append(f.make("g"));
    QCOMPARE(f.roots().count(), 6);
    delete made.at(2);
    f.settle();
    QCOMPARE(f.shown(), QString("d e e g"));
    delete made.at(3);
    f.roots().clear();
    changed.clear();
    delete made.at(4); // which is in the list no more
    f.settle();
    QCOMPARE(changed.count(), 0);
    QCOMPARE(f.roots().count(), 0);
}

/// The view connects to items that an application adds to the content. When such an item leaves,
/// only the view's own connections are cut.
void TestTreeLifetimes::childrenOfTheContentKeepTheApplicationsConnections()
{
    TreeFixture f;
    f.fill();
    QQuickItem added;
    connect(&added, SIGNAL(yChanged()), f.tree, SIGNAL(editRequested()));
    QSignalSpy edit(f.tree, SIGNAL(editRequested()));
    added.setParentItem(f.content());
    added.setY(5);
    QCOMPARE(edit.count(), 1);
    added.setParentItem(nullptr);
    added.setY(500);
    QCOMPARE(edit.count(), 2);
    QCOMPARE(f.content()->height(), 150.0);
}

/// The application may write a row's predecessor; collapsing anchors the row to that one again.
void TestTreeLifetimes::collapseKeepsARowsPredecessor()
{
    TreeFixture f;
    f.tree->setProperty("rootCanCollapse", true);
    f.fill();
    f.row(4)->setProperty("predecessor", QVariant::fromValue(f.row(0)));
    QMetaObject::invokeMethod(f.row(4), "layoutRequired");
    QCOMPARE(f.places(), QString("0+30 30+30 60+30 90+30 30+30"));
    f.call("tree.collapseIndex(0)");
    QCOMPARE(f.places(), QString("0+30 30+0 30+0 30+0 30+30"));
    f.call("tree.expandIndex(0)");
    QCOMPARE(f.places(), QString("0+30 30+30 60+30 90+30 30+30"));
}

/// Only the layout of a rebuild anchors a row below its predecessor: one that the application has
/// released from its anchor or hung elsewhere stays there, whatever collapses above it.
void TestTreeLifetimes::collapseLeavesRowsThatTheApplicationHasTaken()
{
    TreeFixture f;
    f.tree->setProperty("rootCanCollapse", true);
    f.fill();
    evaluate(f.row(2), "treeViewItem.anchors.top = treeViewItem.treeParent.top");
    evaluate(f.row(3), "treeViewItem.anchors.top = undefined");
    f.row(3)->setY(300);
    evaluate(f.row(4), "treeViewItem.anchors.top = undefined");
    QCOMPARE(f.places(), QString("0+30 30+30 30+30 300+30 330+30"));
    f.call("tree.collapseIndex(0)");
    QCOMPARE(f.places(), QString("0+30 30+0 30+0 300+0 330+30"));
    f.call("tree.expandIndex(0)");
    QCOMPARE(f.places(), QString("0+30 30+30 30+30 300+30 330+30"));
    f.make("x", f.e);
    f.settle();
    QCOMPARE(f.places(), QString("0+30 30+30 60+30 90+30 120+30 150+30"));
}

void TestTreeLifetimes::collapseLeavesRowsThatAHandlerTakes()
{
    TreeFixture f(TreeFixture::plain("rootCanCollapse: true"));
    f.fill();
    const support::SignalTrap trap(f.row(1), "childrenCollapsedChanged", [&f] {
        evaluate(f.row(2), "treeViewItem.anchors.top = undefined");
        f.row(2)->setY(200);
        evaluate(f.row(4), "treeViewItem.anchors.top = treeViewItem.parent.top");
    });
    f.call("tree.collapseIndex(0)");
    QCOMPARE(f.places(), QString("0+30 30+0 200+0 200+0 0+30"));
    f.call("tree.expandIndex(0)");
    QCOMPARE(f.places(), QString("0+30 30+30 200+30 230+30 0+30"));
}

/// Nor does it release them: a row that comes back follows its predecessor again. Qt Quick warns of
/// an item that is anchored to one with another parent.
void TestTreeLifetimes::collapseLeavesRowsThatAreOutsideTheContent()
{
    TreeFixture f(TreeFixture::plain("rootCanCollapse: true"));
    f.fill();
    QQuickItem *const last = f.row(4);
    QQuickItem *const away = f.row(2);
    away->setParentItem(f.tree);
    f.call("tree.collapseIndex(0)");
    QCOMPARE(f.places(), QString("0+30 30+0 90+0 90+30"));
    f.call("tree.expandIndex(0)");
    QCOMPARE(f.places(), QString("0+30 30+30 90+30 120+30"));
    away->setParentItem(f.content());
    f.row(1)->property("delegateItem").value<QQuickItem *>()->setHeight(50);
    QCOMPARE(away->y(), 80.0);
    QCOMPARE(last->y(), 140.0);
}

void TestTreeLifetimes::collapseLeavesRowsThatAHandlerTakesOutside()
{
    TreeFixture f(TreeFixture::plain("rootCanCollapse: true"));
    f.fill();
    QQuickItem *const away = f.row(3);
    const support::SignalTrap trap(f.row(1), "childrenCollapsedChanged",
                                   [&] { away->setParentItem(f.tree); });
    f.call("tree.collapseIndex(0)");
    QCOMPARE(f.places(), QString("0+30 30+0 30+0 120+30"));
    QCOMPARE(away->y(), 90.0);
}

namespace {

using Actions = std::map<QByteArray, std::function<void(TreeFixture &)>>;

/// What makes a view that has rows emit each of its signals.
const Actions &actionsOfTheView()
{
    const auto set = [](const char *property, const QVariant &value) {
        return [property, value](TreeFixture &f) { f.tree->setProperty(property, value); };
    };
    const auto setComponent = [](const char *property) {
        return [property](TreeFixture &f) {
            f.tree->setProperty(property, f.view.root()->property("component"));
        };
    };
    const auto addRoot = [](TreeFixture &f) {
        f.append(f.make("new"));
        f.settle();
    };
    static const Actions actions{
        {"rootDocumentsChanged()", addRoot},
        {"indexRebuilt()", addRoot},
        {"childPropertyChanged()", set("childProperty", "other")},
        {"indentChanged()", set("indent", 3)},
        {"rootCanCollapseChanged()", set("rootCanCollapse", false)},
        {"activeIndexChanged()", set("activeIndex", 2)},
        {"activeDocumentChanged()", set("activeIndex", 2)},
        {"delegateChanged()", setComponent("delegate")},
        {"backgroundDelegateChanged()", setComponent("backgroundDelegate")},
        {"branchHandleDelegateChanged()", setComponent("branchHandleDelegate")},
        {"editRequested()",
         [](TreeFixture &f) {
             f.tree->forceActiveFocus();
             QTest::keyClick(f.view.window(), Qt::Key_F2);
         }},
    };
    return actions;
}

} // namespace

/// All signals that the view declares: one that is added has to be added above.
void TestTreeLifetimes::viewDestroyedFromItsSignals_data()
{
    QTest::addColumn<QByteArray>("signal");
    const TreeFixture f;
    const QMetaObject *type = f.tree->metaObject();
    while (qstrcmp(type->className(), "om::controls::TreeView") != 0) {
        type = type->superClass();
        QVERIFY(type);
    }
    for (int i = type->methodOffset(); i < type->methodCount(); ++i) {
        if (type->method(i).methodType() == QMetaMethod::Signal) {
            const QByteArray signal = type->method(i).methodSignature();
            QTest::newRow(signal.constData()) << signal;
        }
    }
}

/// By C++ delete: in QML, destroy() waits for the event loop.
void TestTreeLifetimes::viewDestroyedFromItsSignals()
{
    QFETCH(QByteArray, signal);
    const auto action = actionsOfTheView().find(signal);
    QVERIFY2(action != actionsOfTheView().end(), "nothing is known to cause the signal");
    TreeFixture f(TreeFixture::File{"data/emitting.qml"});
    f.view.show();
    f.fill();
    Destroyer destroyer;
    destroyer.victim = f.tree;
    QVERIFY(connect(f.tree, QByteArray("2") + signal, &destroyer, SLOT(act())));
    action->second(f);
    QVERIFY2(!destroyer.victim, "the signal did not come");
    TreeFixture::settle();
}

void TestTreeLifetimes::viewDestroyedFromASignalOfItsParts_data()
{
    QTest::addColumn<QString>("part");
    QTest::addColumn<QByteArray>("signal");
    QTest::addColumn<QByteArray>("operation");
    const auto row = [](const char *part, const char *signal, const char *operation) {
        QTest::addRow("%s of the %s, %s", signal, part, operation)
            << QString(part) << QByteArray(signal) << QByteArray(operation);
    };
    row("view", "implicitHeightChanged()", "collapse");
    row("view", "implicitHeightChanged()", "add a root");
    row("view", "implicitHeightChanged()", "clear the roots");
    row("content", "heightChanged()", "collapse");
    row("content", "heightChanged()", "add a root");
    row("content", "heightChanged()", "clear the roots");
    row("content", "childrenChanged()", "clear the roots");
    row("entry", "collapsedChanged(bool)", "collapse");
    row("entry", "activeChanged(bool)", "activate");
    row("entry", "childCountChanged(int)", "add a child");
    row("attached object", "collapsedItemChanged(bool)", "collapse");
    row("attached object", "activeItemChanged(bool)", "activate");
    row("row", "childCountChanged()", "read another list");
    row("row", "entryCollapsedChanged()", "collapse");
    row("added", "yChanged()", "move the added");
}

void TestTreeLifetimes::viewDestroyedFromASignalOfItsParts()
{
    QFETCH(QString, part);
    QFETCH(QByteArray, signal);
    QFETCH(QByteArray, operation);
    TreeFixture f(TreeFixture::File{"data/emitting.qml"});
    f.fill();
    QQuickItem added;
    added.setParentItem(f.content());
    QObject *sender = f.tree;
    if (part == QLatin1String("content")) {
        sender = f.content();
    } else if (part == QLatin1String("entry")) {
        sender = f.entry(1);
    } else if (part == QLatin1String("row")) {
        sender = f.row(1);
    } else if (part == QLatin1String("attached object")) {
        for (QObject *child : f.entry(1)->children()) {
            if (child->inherits("om::controls::TreeViewAttachedObject")) {
                sender = child;
            }
        }
    } else if (part == QLatin1String("added")) {
        sender = &added;
    }
    Destroyer destroyer;
    destroyer.victim = f.tree;
    QVERIFY(connect(sender, QByteArray("2") + signal, &destroyer, SLOT(act())));
    if (operation == "collapse") {
        QMetaObject::invokeMethod(f.tree, "toggleIndex", Q_ARG(int, 1));
    } else if (operation == "activate") {
        f.tree->setProperty("activeIndex", 1);
    } else if (operation == "add a root") {
        f.append(f.make("new"));
        f.settle();
    } else if (operation == "clear the roots") {
        f.roots().clear();
        f.settle();
    } else if (operation == "add a child") {
        f.make("new", f.b);
    } else if (operation == "read another list") {
        f.tree->setProperty("childProperty", "other");
    } else if (operation == "move the added") {
        added.setY(1000);
    }
    QVERIFY2(!destroyer.victim, "the signal did not come");
    TreeFixture::settle();
}

/// Each property of the document that is a component makes a view.
void TestTreeLifetimes::viewDestroyedWhileARowIsMade_data()
{
    QTest::addColumn<QByteArray>("name");
    for (const char *name :
         {"pageDelegate", "pageBackground", "pageHandle", "handleThatIsNoItem", "ownDelegate",
          "ownBackground", "ownHandle", "delegateGetsItsRow", "handleGetsItsMarker",
          "delegateGetsItsWidth", "delegateGetsItsPlace", "backgroundGetsItsSize",
          "backgroundGetsItsDepth", "rowGetsItsHandle", "rowOfARowCompletes"}) {
        QTest::newRow(name) << QByteArray(name);
    }
}

void TestTreeLifetimes::viewDestroyedWhileARowIsMade()
{
    QFETCH(QByteArray, name);
    Destroyer destroyer;
    support::QmlView view;
    view.engine()->rootContext()->setContextProperty(QStringLiteral("destroyer"), &destroyer);
    view.loadFile(QStringLiteral("data/partscomplete.qml"));
    Document first;
    Document second;
    auto *component = view.root()->property(name.constData()).value<QQmlComponent *>();
    QVERIFY(component);
    QPointer<QQuickItem> tree =
        qobject_cast<QQuickItem *>(component->create(component->creationContext()));
    QVERIFY(tree);
    tree->setParentItem(view.root());
    destroyer.victim = tree;
    QQmlListReference roots(tree.data(), "rootDocuments");
    roots.append(&first);
    roots.append(&second);
    TreeFixture::settle();
    QVERIFY(!tree);
    view.engine()->collectGarbage();
    TreeFixture::settle();
}

/// While the row is being made, as it becomes a child of the content item.
void TestTreeLifetimes::viewDestroyedWhenARowArrives()
{
    TreeFixture f(TreeFixture::File{"data/emitting.qml"});
    f.fill();
    Destroyer destroyer;
    destroyer.victim = f.tree;
    connect(f.content(), SIGNAL(childrenChanged()), &destroyer, SLOT(act()));
    f.append(f.make("new"));
    f.settle();
    QVERIFY(!destroyer.victim);
    f.view.engine()->collectGarbage();
    TreeFixture::settle();
}

void TestTreeLifetimes::viewDestroyedWhenAPredecessorIsSet()
{
    TreeFixture f(TreeFixture::File{"data/emitting.qml"});
    f.fill();
    Destroyer destroyer;
    destroyer.victim = f.tree;
    QObject receiver;
    connect(f.content(), &QQuickItem::childrenChanged, &receiver, [&f, &destroyer] {
        if (destroyer.victim) {
            auto *newest = f.content()->childItems().constLast();
            connect(newest, SIGNAL(predecessorChanged()), &destroyer, SLOT(act()),
                    Qt::UniqueConnection);
        }
    });
    f.append(f.make("new"));
    f.settle();
    QVERIFY(!destroyer.victim);
    TreeFixture::settle();
}

QTEST_MAIN(TestTreeLifetimes)
#include "tst_treelifetimes.moc"
