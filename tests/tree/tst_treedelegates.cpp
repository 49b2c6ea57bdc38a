// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Leftovers.h"
#include "tests/support/Pixels.h"
#include "tests/tree/TreeFixture.h"

#include <QQmlComponent>
#include <QTest>

using support::evaluate;

/// The parts of a row: what they see, how large they are, what pressing them does.
class TestTreeDelegates : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(support::leftovers(), QString()); }
    void attachedObjectFollowsTheContextChain();
    void delegatesOfAllKinds();
    void markerIsAsLargeAsItsChildren();
    void markerFollowsAHandleThatTheRowForgets();
    void markerFollowsItsHandleOutsideTheRow();
    void markerFollowsWhatStandsForTheHandle();
    void pressReachesTheDelegateToo();
    void markerClickCollapses();
    void f2AsksForEditing();
    void defaultHandleTurns();
    void delegateComesTooLate();
    void asynchronousLoader();
    void idleTreeRendersNothing();
};

void TestTreeDelegates::attachedObjectFollowsTheContextChain()
{
    TreeFixture f(TreeFixture::File{"data/contexts.qml"});
    f.fill();
    f.tree->setProperty("activeIndex", 1);
    for (const char *object :
         {"treeViewItem", "treeViewItem.delegateItem", "treeViewItem.backgroundItem",
          "treeViewItem.branchHandleItem", "treeViewItem.backgroundItem.far",
          "treeViewItem.backgroundItem.made.item"}) {
        const QString active = QString::fromLatin1(object) + ".TreeView.isActiveItem";
        QVERIFY2(evaluate(f.row(1), active).toBool(), object);
        QVERIFY2(!evaluate(f.row(2), active).toBool(), object);
    }
    QVERIFY(evaluate(f.row(1), "treeViewItem.TreeView.view === tree").toBool());
    QVERIFY(evaluate(f.view.root(), "tree.TreeView.view === undefined").toBool());
    QVERIFY(evaluate(f.view.root(), "tree.contentItem.TreeView.view === undefined").toBool());
}

void TestTreeDelegates::delegatesOfAllKinds()
{
    TreeFixture f(TreeFixture::File{"data/parts.qml"});
    f.fill();
    QCOMPARE(f.places(), QString("0+24 24+24 48+24 72+24 96+24"));
    auto *row = f.row(1);
    QVERIFY(!row->property("delegateItem").value<QQuickItem *>());
    auto *background = row->property("backgroundItem").value<QQuickItem *>();
    QCOMPARE(background->z(), -1.0);
    QCOMPARE(background->size(), QSizeF(300, 24));
    auto *handle = row->property("branchHandleItem").value<QQuickItem *>();
    QCOMPARE(handle->property("n").toInt(), 1);
    QCOMPARE(row->property("markerIndent").toInt(), 9);
    QCOMPARE(handle->mapToItem(row, QPointF()).y(), 9.0);
    QVERIFY(handle->isVisible());
    QVERIFY(!f.row(0)->property("branchHandleItem").value<QQuickItem *>()->isVisible());
}

void TestTreeDelegates::markerIsAsLargeAsItsChildren()
{
    TreeFixture f(TreeFixture::File{"data/handles.qml"});
    f.fill();
    QQuickItem *row = f.row(1);
    auto *handle = row->property("branchHandleItem").value<QQuickItem *>();
    QQuickItem *marker = handle->parentItem();
    QCOMPARE(marker->size(), QSizeF(9, 6));
    handle->setSize(QSizeF(11, 8));
    handle->setX(3);
    QCOMPARE(marker->size(), QSizeF(11, 8));
    QCOMPARE(row->property("markerIndent").toInt(), 11);
    // A rectangle around children has no negative size, whatever size they have.
    handle->setSize(QSizeF(-5, 8));
    QCOMPARE(marker->size(), QSizeF(0, 8));
    QCOMPARE(row->property("markerIndent").toInt(), 0);
    handle->setSize(QSizeF(11, -1));
    QCOMPARE(marker->size(), QSizeF(11, 0));
    handle->setSize(QSizeF(11, 8));
    auto *component = f.tree->property("sibling").value<QQmlComponent *>();
    std::unique_ptr<QQuickItem> sibling(qobject_cast<QQuickItem *>(component->create()));
    sibling->setParentItem(marker);
    QCOMPARE(marker->size(), QSizeF(22, 12));
    sibling->setWidth(15);
    handle->setWidth(40);
    QCOMPARE(marker->size(), QSizeF(40, 12));
    sibling.reset();
    QCOMPARE(marker->size(), QSizeF(40, 8));
    handle->setParentItem(row);
    QCOMPARE(marker->size(), QSizeF(0, 0));
    handle->setSize(QSizeF(1, 1));
    QCOMPARE(marker->size(), QSizeF(0, 0));
    QCOMPARE(row->property("markerIndent").toInt(), 0);
}

void TestTreeDelegates::markerFollowsAHandleThatTheRowForgets()
{
    TreeFixture f(TreeFixture::File{"data/handles.qml"});
    f.fill();
    auto *handle = f.row(1)->property("branchHandleItem").value<QQuickItem *>();
    f.row(1)->setProperty("branchHandleItem", QVariant::fromValue<QQuickItem *>(nullptr));
    handle->setWidth(40);
    QCOMPARE(handle->parentItem()->size(), QSizeF(40, 6));
    QCOMPARE(f.row(1)->property("markerIndent").toInt(), 40);
}

void TestTreeDelegates::markerFollowsItsHandleOutsideTheRow()
{
    TreeFixture f(TreeFixture::File{"data/handles.qml"});
    f.fill();
    QQuickItem *extra =
        evaluate(f.row(1), "createDelegateItem(1, treeViewItem.parent)").value<QQuickItem *>();
    for (QQuickItem *row : {f.row(1), extra}) {
        auto *handle = row->property("branchHandleItem").value<QQuickItem *>();
        evaluate(row, "treeViewItem.marker.anchors.verticalCenter = undefined");
        handle->parentItem()->setParentItem(f.tree);
        handle->setWidth(40);
        QCOMPARE(handle->parentItem()->size(), QSizeF(40, 6));
        QCOMPARE(row->property("markerIndent").toInt(), 40);
    }
}

/// A handle that puts another item into its place.
void TestTreeDelegates::markerFollowsWhatStandsForTheHandle()
{
    TreeFixture f(TreeFixture::plain("branchHandleDelegate: Item { id: handle\n"
                                     "property Item marker\n"
                                     "onParentChanged: if (!marker) { marker = parent;\n"
                                     "stand.parent = marker; parent = marker.parent }\n"
                                     "Item { id: stand; width: 12; height: 5 } }"));
    f.fill();
    auto *marker = f.row(1)->property("marker").value<QQuickItem *>();
    QVERIFY(marker);
    QCOMPARE(marker->childItems().size(), 1);
    QCOMPARE(marker->size(), QSizeF(12, 5));
    marker->childItems().constFirst()->setWidth(40);
    QCOMPARE(marker->size(), QSizeF(40, 5));
}

void TestTreeDelegates::pressReachesTheDelegateToo()
{
    TreeFixture f(TreeFixture::File{"data/presses.qml"});
    f.fill();
    f.view.show();
    QTest::mouseClick(f.view.window(), Qt::LeftButton, {}, QPoint(150, 105));
    QCOMPARE(f.call("tree.presses.join()"), QVariant("d3"));
    QVERIFY(f.row(3)->hasActiveFocus());
    QVERIFY(f.tree->hasActiveFocus());
    QTest::mouseClick(f.view.window(), Qt::RightButton, {}, QPoint(150, 15));
    QCOMPARE(f.activeIndex(), 3);
}

void TestTreeDelegates::markerClickCollapses()
{
    TreeFixture f(TreeFixture::File{"data/page.qml"});
    f.fill();
    f.view.show();
    QTest::mouseClick(f.view.window(), Qt::LeftButton, {}, QPoint(8, 45));
    QCOMPARE(f.places(), QString("0+30 30+30 60+0 60+30 90+30"));
    QTest::mouseClick(f.view.window(), Qt::RightButton, {}, QPoint(8, 45));
    QCOMPARE(f.row(2)->height(), 0.0);
    QTest::mouseClick(f.view.window(), Qt::LeftButton, {}, QPoint(8, 45));
    QCOMPARE(f.row(2)->height(), 30.0);
    // A root and a leaf have no marker to click.
    QTest::mouseClick(f.view.window(), Qt::LeftButton, {}, QPoint(8, 15));
    QTest::mouseClick(f.view.window(), Qt::LeftButton, {}, QPoint(28, 75));
    QCOMPARE(f.places(), QString("0+30 30+30 60+30 90+30 120+30"));
}

void TestTreeDelegates::f2AsksForEditing()
{
    TreeFixture f(TreeFixture::File{"data/page.qml"});
    f.fill();
    f.view.show();
    QSignalSpy edit(f.tree, SIGNAL(editRequested()));
    f.tree->forceActiveFocus();
    QTest::keyClick(f.view.window(), Qt::Key_F2);
    QCOMPARE(edit.count(), 1);
    QTest::keyClick(f.view.window(), Qt::Key_A);
    QTest::keyClick(f.view.window(), Qt::Key_Down);
    QCOMPARE(edit.count(), 1);
    QCOMPARE(f.view.root()->property("passedKeys").toInt(), 0);
    // From a row too, and from the view when a rebuild has taken the row.
    QTest::mouseClick(f.view.window(), Qt::LeftButton, {}, QPoint(150, 45));
    QTest::keyClick(f.view.window(), Qt::Key_F2);
    QCOMPARE(edit.count(), 2);
    f.make("x", f.e);
    f.settle();
    QTest::keyClick(f.view.window(), Qt::Key_F2);
    QCOMPARE(edit.count(), 3);
}

void TestTreeDelegates::defaultHandleTurns()
{
    TreeFixture f;
    f.fill();
    auto *handle = f.row(1)->property("branchHandleItem").value<QQuickItem *>();
    QCOMPARE(handle->size(), QSizeF(16, 16));
    const QQuickItem *image = handle->childItems().constFirst();
    QCOMPARE(image->property("source").toUrl(),
             QUrl("qrc:/controls/images/collapse-indicator.svg"));
    QCOMPARE(image->property("status").toInt(), 1);
    QCOMPARE(image->rotation(), 45.0);
    f.call("tree.collapseIndex(1)");
    QCOMPARE(image->rotation(), 0.0);
    QCOMPARE(QQmlEngine::objectOwnership(handle), QQmlEngine::JavaScriptOwnership);
    QPointer<QQuickItem> watched = handle;
    f.view.engine()->collectGarbage();
    QVERIFY(watched);
}

void TestTreeDelegates::delegateComesTooLate()
{
    QTest::ignoreMessage(QtCriticalMsg, "No delegate present - TreeView cannot render tree");
    TreeFixture f("TreeView { id: tree; objectName: 'tree'; childProperty: 'children'\n"
                  "property Component late: Item {} }");
    QVERIFY(!f.content());
    f.append(f.make("a"));
    f.settle();
    f.call("tree.delegate = tree.late");
    f.append(f.make("b"));
    f.settle();
    QVERIFY(!f.content());
    QCOMPARE(f.call("[tree.indexAt(0, 0), tree.documentAt(0), tree.currentEntry()].join()"),
             QVariant("-1,,"));
    f.tree->setProperty("activeIndex", 0);
    QCOMPARE(f.activeIndex(), -1);
}

void TestTreeDelegates::asynchronousLoader()
{
    support::QmlView view;
    view.loadFile(QStringLiteral("data/asynchronous.qml"));
    view.show();
    QTRY_VERIFY(view.find("tree"));
    QTRY_COMPARE(view.find("tree")->property("rebuilds").toInt(), 1);
    QCOMPARE(evaluate(view.find("tree"), "contentItem.children.length").toInt(), 1);
}

void TestTreeDelegates::idleTreeRendersNothing()
{
    TreeFixture f(TreeFixture::File{"data/page.qml"});
    f.fill();
    f.view.show();
    support::grab(f.view.window());
    QCOMPARE(support::framesWhileIdle(f.view.window()), 0);
}

QTEST_MAIN(TestTreeDelegates)
#include "tst_treedelegates.moc"
