// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Leftovers.h"
#include "tests/support/SignalRecorder.h"
#include "tests/tree/TreeFixture.h"

#include <QQmlContext>
#include <QTest>

using om::data::Document;
using support::evaluate;
using support::SignalRecorder;

class TestTreeView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(support::leftovers(), QString()); }
    void properties_data();
    void properties();
    void componentTypes();
    void rowsAreInDepthFirstOrder();
    void threeRootsAreOneRebuild();
    void aRebuildQueuesNone();
    void changesOfATurnAreOneRebuild();
    void clearingAnEmptyListEmitsNothing();
    void rowsHaveTheirPlaces();
    void rowsFollowTheirDelegates();
    void contentHeightIsThatOfTheChildren();
    void contentHeightFollowsRowsThatLeave_data();
    void contentHeightFollowsRowsThatLeave();
    void contentHeightFollowsTheRowOfAnotherView();
    void oldRowsCountUntilTheyAreDeleted();
    void oldRowsGoFromTheLastToTheFirst();
    void rowsAreIndented();
    void collapseHidesDescendants();
    void rootsCollapseOnlyWhenTheyMay();
    void leavesDoNotCollapse();
    void collapseStateSurvivesRebuilds();
    void documentsWithoutIdShareAState();
    void collapseIsAnnounced();
    void collapseAsksForNoLayout();
    void activeRowOrder();
    void activeRowIgnoresWrongNumbers();
    void activeDocumentKeepsItsRow();
    void activeDocumentThatIsGone();
    void newRowIsActiveAtOnce();
    void activeIndexWrittenFromItsSignal();
    void indexOperations();
    void indexAtPoints();
    void indicesOutOfRange();
};

void TestTreeView::properties_data()
{
    QTest::addColumn<QVariant>("initial");
    QTest::addColumn<QVariant>("other");
    QTest::newRow("childProperty") << QVariant(QString()) << QVariant(QStringLiteral("parts"));
    QTest::newRow("indent") << QVariant(20) << QVariant(-3);
    QTest::newRow("rootCanCollapse") << QVariant(false) << QVariant(true);
}

void TestTreeView::properties()
{
    QFETCH(QVariant, initial);
    QFETCH(QVariant, other);
    const char *name = QTest::currentDataTag();
    TreeFixture f("TreeView { objectName: 'tree'; delegate: Item {} }");
    f.settle();
    f.rebuilt->clear();
    QCOMPARE(f.tree->property(name), initial);
    SignalRecorder recorder;
    recorder.watch(f.tree, QStringLiteral("tree"));
    QVERIFY(f.tree->setProperty(name, initial));
    QCOMPARE(recorder.take(), QStringList());
    QVERIFY(f.tree->setProperty(name, other));
    QCOMPARE(recorder.take(), QStringList(QStringLiteral("tree.%1Changed").arg(name)));
    QCOMPARE(f.tree->property(name), other);
    f.settle();
    QCOMPARE(f.rebuilt->count(), qstrcmp(name, "childProperty") == 0 ? 1 : 0);
}

void TestTreeView::componentTypes()
{
    TreeFixture f;
    QCOMPARE(f.call("[TreeView.EntryComponent, TreeView.DelegateComponent, "
                    "TreeView.BackgroundComponent, TreeView.BranchHandleComponent].join()"),
             QVariant("1,2,3,4"));
    f.fill();
    QVERIFY(evaluate(f.row(0), "createDelegateItem(0, null) === null").toBool());
    QVERIFY(evaluate(f.row(0), "createDelegateItem(5, null) === null").toBool());
    QVERIFY(evaluate(f.row(0), "createDelegateItem(3, null) === null").toBool());
    QVERIFY(
        evaluate(f.row(0), "createDelegateItem(2, treeViewItem).parent === treeViewItem").toBool());
}

void TestTreeView::rowsAreInDepthFirstOrder()
{
    TreeFixture f;
    f.fill();
    QCOMPARE(f.shown(), QString(QStringLiteral("a .b ..c .d e")));
    QCOMPARE(f.row(0)->property("predecessor").value<QQuickItem *>(), nullptr);
    QCOMPARE(f.row(3)->property("predecessor").value<QQuickItem *>(), f.row(2));
    QCOMPARE(f.row(3)->property("treeParent").value<QQuickItem *>(), f.row(0));
    QCOMPARE(f.row(4)->property("treeParent").value<QQuickItem *>(), nullptr);
}

void TestTreeView::threeRootsAreOneRebuild()
{
    TreeFixture f;
    QSignalSpy changed(f.tree, SIGNAL(rootDocumentsChanged()));
    for (const char *id : {"a", "b", "c"}) {
        f.append(f.make(id));
    }
    QCOMPARE(changed.count(), 3);
    QCOMPARE(f.rebuilt->count(), 0);
    f.settle();
    QCOMPARE(f.rebuilt->count(), 1);
}

void TestTreeView::aRebuildQueuesNone()
{
    TreeFixture f;
    f.fill();
    for (int i = 0; i < 5; ++i) {
        f.settle();
    }
    QCOMPARE(f.rebuilt->count(), 0);
}

void TestTreeView::changesOfATurnAreOneRebuild()
{
    TreeFixture f;
    f.fill();
    f.make("x", f.a);
    f.make("y", f.d);
    f.tree->setProperty("childProperty", "nothing");
    f.tree->setProperty("childProperty", "children");
    f.settle();
    QCOMPARE(f.rebuilt->count(), 1);
    QCOMPARE(f.shown(), QString(QStringLiteral("a .b ..c .d ..y .x e")));
    f.settle();
    QCOMPARE(f.rebuilt->count(), 1);
}

void TestTreeView::clearingAnEmptyListEmitsNothing()
{
    TreeFixture f;
    f.settle();
    f.rebuilt->clear();
    QSignalSpy changed(f.tree, SIGNAL(rootDocumentsChanged()));
    f.roots().clear();
    f.settle();
    QCOMPARE(changed.count(), 0);
    QCOMPARE(f.rebuilt->count(), 0);
    f.append(f.make("a"));
    f.roots().clear();
    QCOMPARE(changed.count(), 2);
    f.settle();
    QCOMPARE(f.rebuilt->count(), 1);
    QCOMPARE(f.rows().count(), 0);
}

void TestTreeView::rowsHaveTheirPlaces()
{
    TreeFixture f;
    f.fill();
    QCOMPARE(f.places(), QString(QStringLiteral("0+30 30+30 60+30 90+30 120+30")));
    QCOMPARE(f.content()->height(), 150.0);
    QCOMPARE(f.tree->implicitHeight(), 150.0);
    QCOMPARE(f.tree->height(), 150.0);
    QCOMPARE(f.row(2)->width(), 300.0);
    f.tree->setWidth(200);
    QCOMPARE(f.row(2)->width(), 200.0);
    QVERIFY(f.row(0)->clip());
}

void TestTreeView::rowsFollowTheirDelegates()
{
    TreeFixture f;
    f.fill();
    f.row(1)->property("delegateItem").value<QQuickItem *>()->setHeight(50);
    QCOMPARE(f.places(), QString(QStringLiteral("0+30 30+50 80+30 110+30 140+30")));
    QCOMPARE(f.tree->implicitHeight(), 170.0);
    f.row(4)->property("delegateItem").value<QQuickItem *>()->setHeight(10);
    QCOMPARE(f.tree->implicitHeight(), 150.0);
}

void TestTreeView::contentHeightIsThatOfTheChildren()
{
    TreeFixture f;
    f.settle();
    QCOMPARE(f.content()->height(), 0.0);
    QQuickItem added;
    added.setSize(QSizeF(10, 40));
    added.setParentItem(f.content());
    QCOMPARE(f.content()->height(), 40.0);
    f.fill();
    QCOMPARE(f.content()->height(), 150.0);
    added.setY(200);
    QCOMPARE(f.content()->height(), 240.0);
    added.setY(-20);
    QCOMPARE(f.content()->height(), 170.0);
    added.setHeight(500);
    QCOMPARE(f.content()->height(), 500.0);
    added.setParentItem(nullptr);
    QCOMPARE(f.content()->height(), 150.0);
    auto *other = new QQuickItem(f.content());
    other->setSize(QSizeF(10, 1000));
    QCOMPARE(f.tree->implicitHeight(), 1000.0);
    delete other;
    QCOMPARE(f.tree->implicitHeight(), 150.0);
    // The height that the binding in TreeViewContent.qml would have.
    QCOMPARE(f.content()->childrenRect().height(), 150.0);
}

void TestTreeView::contentHeightFollowsRowsThatLeave_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("the first") << 0;
    QTest::newRow("the last") << 4;
}

/// Taken to another parent, brought back, and destroyed.
void TestTreeView::contentHeightFollowsRowsThatLeave()
{
    QFETCH(int, index);
    TreeFixture f;
    f.fill();
    QQuickItem *const row = f.row(index);
    QQuickItem *const inside = f.row(index == 0 ? 4 : 3);
    row->setParentItem(f.tree);
    QCOMPARE(f.content()->height(), 120.0);
    row->setParentItem(f.content());
    QCOMPARE(f.content()->height(), 150.0);
    delete row;
    QCOMPARE(f.content()->height(), 120.0);
    inside->property("delegateItem").value<QQuickItem *>()->setHeight(40);
    QCOMPARE(f.content()->height(), 130.0);
    QCOMPARE(f.content()->childrenRect().height(), 130.0);
}

void TestTreeView::contentHeightFollowsTheRowOfAnotherView()
{
    TreeFixture f;
    TreeFixture other;
    f.fill();
    other.fill();
    QQuickItem *const row = other.row(4);
    evaluate(row, "treeViewItem.anchors.top = undefined");
    row->setParentItem(f.content());
    row->setY(400);
    QCOMPARE(f.content()->height(), 430.0);
    QCOMPARE(other.content()->height(), 120.0);
    other.roots().clear();
    other.settle();
    QCOMPARE(f.content()->height(), 150.0);
}

void TestTreeView::oldRowsCountUntilTheyAreDeleted()
{
    TreeFixture f;
    f.fill();
    f.roots().clear();
    QCoreApplication::sendPostedEvents(f.tree, QEvent::MetaCall);
    QCOMPARE(f.rebuilt->count(), 1);
    QCOMPARE(f.rows().count(), 5);
    QCOMPARE(f.content()->height(), 150.0);
    f.settle();
    QCOMPARE(f.rows().count(), 0);
    QCOMPARE(f.content()->height(), 0.0);
    QCOMPARE(f.tree->implicitHeight(), 0.0);
}

/// A row that a collapsed parent hides stays hidden although the parent's row is deleted before.
void TestTreeView::oldRowsGoFromTheLastToTheFirst()
{
    TreeFixture f(TreeFixture::File{"data/ends.qml"});
    f.fill();
    QMetaObject::invokeMethod(f.tree, "collapseIndex", Q_ARG(int, 0));
    f.roots().clear();
    f.view.root()->setProperty("log", QString());
    f.settle();
    QCOMPARE(f.view.root()->property("log").toString(), QString("e d c b a "));
    QCOMPARE(f.rows().count(), 0);
}

void TestTreeView::rowsAreIndented()
{
    TreeFixture f;
    f.fill();
    const auto numbers = [&f](const char *property) {
        QStringList texts;
        const auto rows = f.rows();
        for (const QQuickItem *row : rows) {
            texts.append(row->property(property).toString());
        }
        return texts.join(QLatin1Char(' '));
    };
    QCOMPARE(numbers("effectiveLevel"), QString("-1 0 1 0 -1"));
    QCOMPARE(numbers("indent"), QString("0 0 20 0 0"));
    // Leaves leave room for the marker as well, so that texts line up.
    QCOMPARE(numbers("markerIndent"), QString("0 16 16 16 0"));
    QCOMPARE(numbers("hasChildren"), QString("true true false false false"));
    QCOMPARE(numbers("collapsable"), QString("false true false false false"));
    QCOMPARE(numbers("isRoot"), QString("true false false false true"));
    QCOMPARE(f.row(2)->property("delegateItem").value<QQuickItem *>()->x(), 36.0);
    QCOMPARE(f.row(2)->property("delegateItem").value<QQuickItem *>()->width(), 264.0);
    f.tree->setProperty("rootCanCollapse", true);
    f.tree->setProperty("indent", 7);
    QCOMPARE(numbers("indent"), QString("0 7 14 7 0"));
    QCOMPARE(numbers("markerIndent"), QString("16 16 16 16 16"));
    QCOMPARE(numbers("collapsable"), QString("true true false false false"));
    QCOMPARE(f.row(2)->property("delegateItem").value<QQuickItem *>()->x(), 30.0);
    f.tree->setProperty("indent", -7);
    QCOMPARE(numbers("indent"), QString("0 0 0 0 0"));
}

void TestTreeView::collapseHidesDescendants()
{
    TreeFixture f;
    f.tree->setProperty("rootCanCollapse", true);
    f.fill();
    f.call("tree.collapseIndex(1)");
    QCOMPARE(f.places(), QString("0+30 30+30 60+0 60+30 90+30"));
    QCOMPARE(f.row(2)->opacity(), 0.0);
    QCOMPARE(f.tree->implicitHeight(), 120.0);
    f.call("tree.toggleIndex(0)");
    QCOMPARE(f.places(), QString("0+30 30+0 30+0 30+0 30+30"));
    QCOMPARE(f.tree->implicitHeight(), 60.0);
    f.call("tree.expandIndex(1)");
    QCOMPARE(f.places(), QString("0+30 30+0 30+0 30+0 30+30"));
    f.call("tree.toggleIndex(0)");
    QCOMPARE(f.places(), QString("0+30 30+30 60+30 90+30 120+30"));
    QCOMPARE(f.row(2)->opacity(), 1.0);
    // The rows still follow one another.
    f.row(1)->property("delegateItem").value<QQuickItem *>()->setHeight(50);
    QCOMPARE(f.places(), QString("0+30 30+50 80+30 110+30 140+30"));
    // Nothing stands below the last subtree.
    f.roots().clear();
    f.append(f.a);
    f.settle();
    f.call("tree.collapseIndex(0)");
    QCOMPARE(f.tree->implicitHeight(), 30.0);
    f.call("tree.expandIndex(0)");
    QCOMPARE(f.places(), QString("0+30 30+30 60+30 90+30"));
}

void TestTreeView::rootsCollapseOnlyWhenTheyMay()
{
    TreeFixture f;
    f.fill();
    SignalRecorder recorder;
    recorder.watch(qmlContext(f.row(0))->parentContext()->contextObject(), "entry");
    f.call("tree.collapseIndex(0)");
    f.call("tree.toggleIndex(0)");
    evaluate(f.row(0), "treeViewItem.TreeView.isCollapsedItem = true");
    QCOMPARE(recorder.take(), QStringList());
    QCOMPARE(f.tree->implicitHeight(), 150.0);
    f.tree->setProperty("rootCanCollapse", true);
    QCOMPARE(f.tree->implicitHeight(), 150.0);
    evaluate(f.row(0), "treeViewItem.TreeView.isCollapsedItem = true");
    QCOMPARE(recorder.take(), QStringList("entry.collapsedChanged"));
    QCOMPARE(f.places(), QString("0+30 30+0 30+0 30+0 30+30"));
}

void TestTreeView::leavesDoNotCollapse()
{
    TreeFixture f;
    f.fill();
    f.call("tree.collapseIndex(3)");
    QVERIFY(!evaluate(f.row(3), "treeViewItem.TreeView.isCollapsedItem").toBool());
    // The refused collapse is not remembered either: a first child is shown.
    f.make("x", f.d);
    f.settle();
    QCOMPARE(f.shown(), QString("a .b ..c .d ..x e"));
    QCOMPARE(f.row(4)->height(), 30.0);
}

void TestTreeView::collapseStateSurvivesRebuilds()
{
    TreeFixture f;
    f.fill();
    f.call("tree.collapseIndex(1)");
    f.a->insertChild(0, f.d);
    f.settle();
    QCOMPARE(f.shown(), QString("a .d .b ..c e"));
    QCOMPARE(f.places(), QString("0+30 30+30 60+30 90+0 90+30"));
    QCOMPARE(f.tree->implicitHeight(), 120.0);
    f.roots().clear();
    f.settle();
    f.append(f.a);
    f.settle();
    QCOMPARE(f.places(), QString("0+30 30+30 60+30 90+0"));
    QVERIFY(f.row(2)->property("collapsed").toBool());
}

void TestTreeView::documentsWithoutIdShareAState()
{
    TreeFixture f;
    f.fill();
    f.b->setDocumentId(QString());
    f.make("x", f.d);
    f.d->setDocumentId(QString());
    f.settle();
    f.call("tree.collapseIndex(1)");
    QVERIFY(!f.row(3)->property("collapsed").toBool());
    f.make("y", f.e);
    f.settle();
    QVERIFY(f.row(3)->property("collapsed").toBool());
}

void TestTreeView::collapseIsAnnounced()
{
    TreeFixture f;
    f.fill();
    auto *entry = qmlContext(f.row(1))->parentContext()->contextObject();
    QObject *attached = nullptr;
    const auto children = entry->children();
    for (QObject *child : children) {
        if (child->metaObject()->indexOfProperty("isCollapsedItem") >= 0) {
            QVERIFY2(!attached, "one for all objects of the row");
            attached = child;
        }
    }
    QVERIFY(attached);
    SignalRecorder recorder;
    recorder.watch(entry, "entry", {},
                   [attached] { return attached->property("isCollapsedItem").toString(); });
    recorder.watch(attached, "attached");
    attached->setProperty("isCollapsedItem", true);
    attached->setProperty("isCollapsedItem", true);
    auto entries = recorder.take();
    entries.sort();
    QCOMPARE(entries,
             (QStringList{"attached.collapsedItemChanged", "entry.collapsedChanged [true]"}));
}

void TestTreeView::collapseAsksForNoLayout()
{
    TreeFixture f;
    f.fill();
    SignalRecorder recorder;
    for (int i = 0; i < 5; ++i) {
        recorder.watch(f.row(i), QString::number(i), {"layoutRequired"});
    }
    f.call("tree.toggleIndex(1)");
    f.settle();
    QCOMPARE(recorder.take(), QStringList());
    QCOMPARE(f.rebuilt->count(), 0);
}

void TestTreeView::activeRowOrder()
{
    TreeFixture f;
    f.fill();
    f.tree->setProperty("activeIndex", 1);
    SignalRecorder recorder;
    const auto probe = [&f] {
        return QStringLiteral("%1 %2")
            .arg(f.activeIndex())
            .arg(f.activeDocument() ? f.activeDocument()->name() : QString());
    };
    recorder.watch(f.tree, "tree", {}, probe);
    recorder.watch(qmlContext(f.row(1))->parentContext()->contextObject(), "b");
    recorder.watch(qmlContext(f.row(3))->parentContext()->contextObject(), "d");
    f.tree->setProperty("activeIndex", 3);
    QCOMPARE(recorder.entries(),
             (QStringList{"tree.activeIndexChanged [3 b]", "tree.activeDocumentChanged [3 d]",
                          "d.activeChanged", "b.activeChanged"}));
    QCOMPARE(recorder.arguments(2), QVariantList{true});
    QCOMPARE(recorder.arguments(3), QVariantList{false});
    QVERIFY(evaluate(f.row(3), "delegateItem.active").toBool());
    QVERIFY(!evaluate(f.row(1), "delegateItem.active").toBool());
    QCOMPARE(f.call("tree.currentEntry()").value<QQuickItem *>(), f.row(3));
    recorder.take();
    f.tree->setProperty("activeIndex", -1);
    QCOMPARE(recorder.take(),
             (QStringList{"tree.activeIndexChanged [-1 d]", "tree.activeDocumentChanged [-1 ]",
                          "d.activeChanged"}));
    QVERIFY(f.call("tree.currentEntry() === null").toBool());
}

void TestTreeView::activeRowIgnoresWrongNumbers()
{
    TreeFixture f;
    f.fill();
    f.tree->setProperty("activeIndex", 2);
    SignalRecorder recorder;
    recorder.watch(f.tree, "tree");
    for (int index : {-2, 5, 2, 1000}) {
        f.tree->setProperty("activeIndex", index);
    }
    QCOMPARE(recorder.take(), QStringList());
    QCOMPARE(f.activeIndex(), 2);
}

void TestTreeView::activeDocumentKeepsItsRow()
{
    TreeFixture f;
    f.fill();
    f.tree->setProperty("activeIndex", 3);
    SignalRecorder recorder;
    recorder.watch(f.tree, "tree", {"activeIndexChanged", "activeDocumentChanged", "indexRebuilt"});
    f.a->insertChild(0, f.d);
    f.settle();
    QCOMPARE(recorder.take(), (QStringList{"tree.activeIndexChanged", "tree.indexRebuilt"}));
    QCOMPARE(f.activeIndex(), 1);
    QCOMPARE(f.activeDocument(), f.d);
    f.a->removeChild(f.d);
    f.d->setParent(&f.owner);
    f.settle();
    QCOMPARE(recorder.take(),
             (QStringList{"tree.activeIndexChanged", "tree.activeDocumentChanged",
                          "tree.indexRebuilt"}));
    QCOMPARE(f.activeIndex(), -1);
    QCOMPARE(f.activeDocument(), nullptr);
}

void TestTreeView::activeDocumentThatIsGone()
{
    TreeFixture f;
    f.fill();
    f.tree->setProperty("activeIndex", 3);
    SignalRecorder recorder;
    recorder.watch(f.tree, "tree", {"activeIndexChanged", "activeDocumentChanged", "indexRebuilt"});
    delete f.d;
    QCOMPARE(f.activeDocument(), nullptr);
    f.settle();
    QCOMPARE(recorder.take(),
             (QStringList{"tree.activeIndexChanged", "tree.activeDocumentChanged",
                          "tree.indexRebuilt"}));
    QCOMPARE(f.activeIndex(), -1);
}

void TestTreeView::newRowIsActiveAtOnce()
{
    TreeFixture f(TreeFixture::File{"data/activerows.qml"});
    f.fill();
    f.tree->setProperty("activeIndex", 0);
    f.call("tree.seen = []");
    f.make("x", f.e);
    f.settle();
    QCOMPARE(f.call("tree.seen.join()"), QVariant("a"));
    QVERIFY(evaluate(f.row(0), "delegateItem.active").toBool());
}

void TestTreeView::activeIndexWrittenFromItsSignal()
{
    TreeFixture f(
        TreeFixture::plain("onActiveIndexChanged: if (activeIndex == 1) activeIndex = 3"));
    f.fill();
    f.tree->setProperty("activeIndex", 0);
    f.tree->setProperty("activeIndex", 1);
    QCOMPARE(f.activeIndex(), 3);
    QCOMPARE(f.activeDocument(), f.d);
    for (int i = 0; i < 5; ++i) {
        QCOMPARE(evaluate(f.row(i), "delegateItem.active").toBool(), i == 3);
    }
}

void TestTreeView::indexOperations()
{
    TreeFixture f;
    f.fill();
    const auto parentOf = [&f](int index) {
        return f.call(QStringLiteral("tree.indexOfParent(%1)").arg(index)).toInt();
    };
    QCOMPARE(parentOf(1), 0);
    QCOMPARE(parentOf(2), 1);
    // A later sibling: upward through the numbers, the next shallower row.
    QCOMPARE(parentOf(3), 4);
    QCOMPARE(parentOf(-1), -1);
    int index = -2;
    QMetaObject::invokeMethod(f.tree, "indexOfDocument", Q_RETURN_ARG(int, index),
                              Q_ARG(om::data::Document *, f.d));
    QCOMPARE(index, 3);
    Document other;
    QMetaObject::invokeMethod(f.tree, "indexOfDocument", Q_RETURN_ARG(int, index),
                              Q_ARG(om::data::Document *, &other));
    QCOMPARE(index, -1);
    QCOMPARE(f.call("tree.indexOfDocument(null)").toInt(), -1);
    QCOMPARE(f.call("tree.documentAt(2).name"), QVariant("c"));
}

void TestTreeView::indexAtPoints()
{
    TreeFixture f;
    f.fill();
    QCOMPARE(f.call("tree.indexAt(150, 15)").toInt(), 0);
    QCOMPARE(f.call("tree.indexAt(150, 105)").toInt(), 3);
    QCOMPARE(f.call("tree.indexAt(150, 155)").toInt(), -1);
    QCOMPARE(f.call("tree.indexAt(305, 15)").toInt(), -1);
    f.call("tree.collapseIndex(1)");
    QCOMPARE(f.call("tree.indexAt(150, 75)").toInt(), 3);
    QQuickItem added(f.content());
    added.setSize(QSizeF(300, 30));
    QCOMPARE(f.call("tree.indexAt(150, 15)").toInt(), -1);
}

void TestTreeView::indicesOutOfRange()
{
    TreeFixture f;
    f.fill();
    for (int index :
         {-1, -7, 5, 100000, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        const QString number = QString::number(index);
        QVERIFY(f.call(QStringLiteral("tree.documentAt(%1) === null").arg(number)).toBool());
        QCOMPARE(f.call(QStringLiteral("tree.indexOfParent(%1)").arg(number)).toInt(), -1);
        for (const char *operation : {"collapseIndex", "expandIndex", "toggleIndex"}) {
            f.call(QStringLiteral("tree.%1(%2)").arg(QLatin1String(operation), number));
        }
    }
    QCOMPARE(f.places(), QString("0+30 30+30 60+30 90+30 120+30"));
    // No row is shallower than a root: the end of the rows ends the search.
    QCOMPARE(f.call("tree.indexOfParent(0)").toInt(), -1);
    QCOMPARE(f.call("tree.indexOfParent(4)").toInt(), -1);
}

QTEST_MAIN(TestTreeView)
#include "tst_treeview.moc"
