// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Destroyer.h"
#include "tests/support/Leftovers.h"
#include "tests/support/SignalTrap.h"
#include "tests/tree/TreeFixture.h"

#include <OmbrelDataCore/Context.h>

#include <QQmlComponent>
#include <QQmlContext>
#include <QRegularExpression>
#include <QTest>

using om::data::Context;
using om::data::Document;
using support::evaluate;

/// A document whose child list holds any objects, itself for instance.
class Knot : public Document
{
    Q_OBJECT
    Q_PROPERTY(QQmlListProperty<QObject> loop READ list CONSTANT)
public:
    QQmlListProperty<QObject> list()
    {
        return {this,
                this,
                nullptr,
                [](QQmlListProperty<QObject> *list) {
                    auto *self = static_cast<Knot *>(list->data);
                    if (self->onCount) {
                        self->onCount();
                    }
                    return self->objects.size();
                },
                [](QQmlListProperty<QObject> *list, int index) {
                    return static_cast<Knot *>(list->data)->objects.value(index);
                },
                nullptr};
    }
    QList<QObject *> objects;
    std::function<void()> onCount;
};

/// What an application may do to a tree at a bad moment. It must not crash, hang or leak.
class TestTreeAbuse : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(support::leftovers(), QString()); }
    void documentsDeletedWhileShown();
    void rootsDeleted();
    void otherObjectsPushedAsRoots();
    void contextDeletedFirst();
    void changedFromADelegatesCompletion();
    void childPropertyChangedFromADelegate();
    void changedFromIndexRebuilt();
    void changedFromAListDuringTheRebuild();
    void failingDelegates();
    void viewDestroyedWithARebuildPending();
    void viewDestroyedFromTheEndOfARow_data();
    void viewDestroyedFromTheEndOfARow();
    void oldRowsDeletedFromTheEndOfAView();
    void engineDestroyedWithOldRows();
    void documentsAreNotHandedToTheCollector();
    void cycleEndsWithOneWarning();
    void chainOfAThousand();
    void listOfTwentyThousand();
    void nestedCollapse();
    void rebuiltWhileACollapseReleasesRows();
    void partsThatLeaveTheirRow_data();
    void partsThatLeaveTheirRow();
    void delegateThatItsRowForgets();
    void rowWithoutItsMarker();
};

void TestTreeAbuse::documentsDeletedWhileShown()
{
    TreeFixture f;
    f.fill();
    QPointer<QQuickItem> row = f.row(3);
    delete f.d;
    QVERIFY(f.call("tree.documentAt(3) === null").toBool());
    QVERIFY(evaluate(row, "document === null").toBool());
    f.call("tree.toggleIndex(3)");
    f.tree->setProperty("activeIndex", 3);
    QCOMPARE(f.activeDocument(), nullptr);
    f.tree->setProperty("indent", 3);
    f.settle();
    QVERIFY(!row);
    QCOMPARE(f.shown(), QString("a .b ..c e"));
    QCOMPARE(f.activeIndex(), -1);
    // No signal tells of the changed list: the next rebuild, for another reason, reads it.
    Knot knot;
    auto *inner = new Document;
    inner->setName("inner");
    knot.objects = {inner};
    f.roots().clear();
    f.tree->setProperty("childProperty", "loop");
    f.append(&knot);
    f.settle();
    QCOMPARE(f.rows().count(), 2);
    knot.objects.clear();
    delete inner;
    f.settle();
    f.call("tree.toggleIndex(1); tree.collapseIndex(0)");
    f.append(f.e);
    f.settle();
    QCOMPARE(f.rows().count(), 2);
    f.roots().clear();
    f.settle();
}

void TestTreeAbuse::rootsDeleted()
{
    TreeFixture f;
    f.fill();
    f.append(f.a);
    QSignalSpy changed(f.tree, SIGNAL(rootDocumentsChanged()));
    delete f.a;
    QCOMPARE(changed.count(), 1);
    QCOMPARE(f.roots().count(), 1);
    f.settle();
    QCOMPARE(f.shown(), QString("e"));
    f.append(nullptr);
    QCOMPARE(changed.count(), 2);
    f.settle();
    QCOMPARE(f.shown(), QString("e"));
}

void TestTreeAbuse::otherObjectsPushedAsRoots()
{
    TreeFixture f;
    f.fill();
    const int roots = f.call("tree.rootDocuments.length").toInt();
    f.call("tree.rootDocuments.push(tree)");
    QCOMPARE(f.call("tree.rootDocuments.length").toInt(), roots);
    f.settle();
    QCOMPARE(f.shown(), QString("a .b ..c .d e"));
}

void TestTreeAbuse::contextDeletedFirst()
{
    TreeFixture f;
    auto context = std::make_unique<Context>();
    f.fill();
    f.a->setContext(context.get());
    f.make("x", f.e);
    f.settle();
    f.a->setName("aa");
    context.reset();
    f.settle();
    f.make("y", f.e);
    f.settle();
    QCOMPARE(f.shown(), QString("aa .b ..c .d e .x .y"));
}

void TestTreeAbuse::changedFromADelegatesCompletion()
{
    TreeFixture f(TreeFixture::File{"data/actsoncompletion.qml"});
    f.fill();
    // Requests made during a rebuild are swallowed.
    f.call("tree.act = function(d) { d.name = d.name + '+'; if (d.name == 'c+') d.children = []; "
           "if (d.name == 'd+') tree.rootDocuments = []; tree.activeIndex = 0 }");
    f.make("x", f.e);
    f.settle();
    QCOMPARE(f.rebuilt->count(), 1);
    f.settle();
    QCOMPARE(f.rebuilt->count(), 1);
    f.call("tree.act = null");
    f.append(f.e);
    f.settle();
    // The rebuild went on with the roots that were there when it began, and completed their rows.
    QCOMPARE(f.shown(), QString("e+ .x+"));
}

/// It counts from the document on whose row has just been made.
void TestTreeAbuse::childPropertyChangedFromADelegate()
{
    TreeFixture f(TreeFixture::File{"data/childpropertychanges.qml"});
    f.settle();
    QCOMPARE(f.shown(), QString("a .b .b2 c .cc"));
    f.tree->setProperty("changes", true);
    QMetaObject::invokeMethod(f.tree, "rootDocumentsChanged");
    f.settle();
    QCOMPARE(f.shown(), QString("a .ao c .co"));
}

void TestTreeAbuse::changedFromIndexRebuilt()
{
    TreeFixture f(
        TreeFixture::plain("property int times: 0\n"
                           "onIndexRebuilt: if (++times < 9) childProperty = 'x' + times"));
    f.fill();
    for (int i = 0; i < 10; ++i) {
        f.settle();
    }
    QCOMPARE(f.tree->property("times").toInt(), 1);
    QCOMPARE(f.call("childProperty"), QVariant("x1"));
}

void TestTreeAbuse::changedFromAListDuringTheRebuild()
{
    TreeFixture f;
    f.tree->setProperty("childProperty", "loop");
    Knot knot;
    auto *first = new Document;
    Document second;
    knot.objects = {first, &second};
    knot.onCount = [&] {
        if (f.rows().count() == 2) { // the root and its first child are there
            delete first;
            first = nullptr;
            knot.objects = {&second};
            f.roots().clear();
        }
    };
    f.append(&knot);
    f.append(&second);
    f.settle();
    QVERIFY(!first);
    knot.onCount = nullptr;
    f.settle();
    f.append(&second);
    f.settle();
    QCOMPARE(f.rows().count(), 1);
    f.roots().clear();
    f.settle();
}

void TestTreeAbuse::failingDelegates()
{
    TreeFixture f(TreeFixture::File{"data/failingparts.qml"});
    f.fill();
    QCOMPARE(f.places(), QString("0+24 24+24 48+24 72+24 96+24"));
    QCOMPARE(f.row(1)->property("markerIndent").toInt(), 16);
}

void TestTreeAbuse::viewDestroyedWithARebuildPending()
{
    support::QmlView view;
    view.load(
        "Item { property Component c: TreeView { childProperty: 'children'; delegate: Item {} } }");
    Document document;
    auto *component = view.root()->property("c").value<QQmlComponent *>();
    for (int i = 0; i < 3; ++i) {
        auto *tree = qobject_cast<QQuickItem *>(component->create());
        tree->setParentItem(view.root());
        QSignalSpy rebuilt(tree, SIGNAL(indexRebuilt()));
        QQmlListReference(tree, "rootDocuments").append(&document);
        if (i == 1) {
            QCoreApplication::sendPostedEvents(tree);
            document.setName("now there are old rows");
            QQmlListReference(tree, "rootDocuments").append(&document);
            QCoreApplication::sendPostedEvents(tree, QEvent::MetaCall);
        }
        // The row of the first rebuild, which is not deleted yet, and the two of the second.
        const int rebuilds = i == 1 ? 2 : 0;
        QList<QPointer<QQuickItem>> rows;
        const auto items = tree->property("contentItem").value<QQuickItem *>()->childItems();
        for (QQuickItem *item : items) {
            rows.append(item);
        }
        QCOMPARE(rebuilt.count(), rebuilds);
        QCOMPARE(rows.size(), i == 1 ? 3 : 0);
        delete tree;
        for (const QPointer<QQuickItem> &row : qAsConst(rows)) {
            QVERIFY(!row);
        }
        TreeFixture::settle();
        QCOMPARE(rebuilt.count(), rebuilds);
    }
}

void TestTreeAbuse::viewDestroyedFromTheEndOfARow_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("withItem");
    for (const int row : {0, 1, 2}) {
        QTest::addRow("handler in row %d", row) << row << false;
        QTest::addRow("item of row %d", row) << row << true;
    }
}

/// By C++ delete, from the destruction of a row's context and from that of its item.
void TestTreeAbuse::viewDestroyedFromTheEndOfARow()
{
    QFETCH(int, row);
    QFETCH(bool, withItem);
    Destroyer destroyer;
    support::QmlView view;
    view.engine()->rootContext()->setContextProperty(QStringLiteral("destroyer"), &destroyer);
    view.engine()->rootContext()->setContextProperty(QStringLiteral("fatal"), withItem ? -1 : row);
    view.loadFile(QStringLiteral("data/destroysatend.qml"));
    Document first;
    Document second;
    Document third;
    auto *component = view.root()->property("view").value<QQmlComponent *>();
    QPointer<QQuickItem> tree = qobject_cast<QQuickItem *>(component->create());
    destroyer.victim = tree;
    tree->setParentItem(view.root());
    QQmlListReference roots(tree.data(), "rootDocuments");
    for (Document *document : {&first, &second, &third}) {
        roots.append(document);
    }
    TreeFixture::settle();
    if (withItem) {
        auto *content = tree->property("contentItem").value<QQuickItem *>();
        QVERIFY(
            connect(content->childItems().at(row), SIGNAL(destroyed()), &destroyer, SLOT(act())));
    }
    roots.clear();
    TreeFixture::settle();
    QVERIFY(!tree);
    view.engine()->collectGarbage();
}

/// By deferred deletions that run in a handler of the end, as in an event loop there.
void TestTreeAbuse::oldRowsDeletedFromTheEndOfAView()
{
    Destroyer destroyer;
    support::QmlView view;
    view.engine()->rootContext()->setContextProperty(QStringLiteral("destroyer"), &destroyer);
    view.loadFile(QStringLiteral("data/deletesdeferredatend.qml"));
    Document document;
    auto *tree = view.item("tree");
    QQmlListReference roots(tree, "rootDocuments");
    for (int i = 0; i < 3; ++i) {
        roots.append(&document);
        QCoreApplication::sendPostedEvents(tree, QEvent::MetaCall);
    }
    delete tree;
    QCOMPARE(view.root()->property("ends").toInt(), 1 + 2 + 3);
    TreeFixture::settle();
}

void TestTreeAbuse::engineDestroyedWithOldRows()
{
    Document document;
    auto engine = std::make_unique<QQmlEngine>();
    QQmlComponent component(engine.get());
    component.setData("import QtQuick 2.12\nimport ombrel.Controls 1.0\n"
                      "TreeView { width: 50; childProperty: 'children'; delegate: Item {} }",
                      QUrl());
    std::unique_ptr<QObject> tree(component.create());
    QVERIFY(tree);
    QQmlListReference roots(tree.get(), "rootDocuments");
    roots.append(&document);
    TreeFixture::settle();
    roots.append(&document);
    QCoreApplication::sendPostedEvents(tree.get(), QEvent::MetaCall);
    QCOMPARE(tree->property("contentItem").value<QQuickItem *>()->childItems().count(), 3);
    engine.reset();
    TreeFixture::settle();
}

void TestTreeAbuse::documentsAreNotHandedToTheCollector()
{
    TreeFixture f;
    auto root = std::make_unique<Document>();
    QPointer<Document> watched = root.get();
    f.append(root.get());
    f.settle();
    f.call("tree.documentAt(0).name = 'seen'");
    for (int i = 0; i < 3; ++i) {
        f.view.engine()->collectGarbage();
        f.settle();
    }
    QVERIFY(watched);
    QCOMPARE(root->name(), QString("seen"));
    f.roots().clear();
    f.settle();
}

void TestTreeAbuse::cycleEndsWithOneWarning()
{
    TreeFixture f;
    f.tree->setProperty("childProperty", "loop");
    Knot knot;
    knot.objects = {&knot, &knot};
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("contain themselves"));
    f.append(&knot);
    f.settle();
    QCOMPARE(f.rows().count(), 1024);
    f.append(f.make("e"));
    f.settle();
    QCOMPARE(f.rows().count(), 1025);
    f.roots().clear();
    f.settle();
    QCOMPARE(f.rows().count(), 0);
}

void TestTreeAbuse::chainOfAThousand()
{
    TreeFixture f;
    f.tree->setProperty("rootCanCollapse", true);
    f.tree->setProperty("indent", 0);
    auto *root = f.make("0");
    Document *last = root;
    for (int i = 1; i < 1000; ++i) {
        last = f.make(qPrintable(QString::number(i)), last);
    }
    f.append(root);
    f.settle();
    QCOMPARE(f.tree->implicitHeight(), 30000.0);
    f.call("tree.collapseIndex(0)");
    QCOMPARE(f.tree->implicitHeight(), 30.0);
    f.call("tree.expandIndex(0)");
    QCOMPARE(f.tree->implicitHeight(), 30000.0);
    f.call("tree.collapseIndex(998)");
    QCOMPARE(f.tree->implicitHeight(), 29970.0);
    f.tree->setWidth(100);
    f.tree->setProperty("activeIndex", 999);
    f.make("x", last);
    f.settle();
    QCOMPARE(f.rows().count(), 1001);
    f.tree->setProperty("rootCanCollapse", false);
    f.row(0)->property("delegateItem").value<QQuickItem *>()->setHeight(31);
    f.roots().clear();
    f.settle();
    QCOMPARE(f.tree->implicitHeight(), 0.0);
}

void TestTreeAbuse::listOfTwentyThousand()
{
    TreeFixture f;
    f.tree->setProperty("rootCanCollapse", true);
    auto *root = f.make("root");
    QList<Document *> children;
    for (int i = 1; i < 20000; ++i) {
        f.make("child", root);
    }
    f.append(root);
    f.settle();
    QCOMPARE(f.tree->implicitHeight(), 600000.0);
    f.call("tree.collapseIndex(0)");
    QCOMPARE(f.tree->implicitHeight(), 30.0);
    f.call("tree.expandIndex(0)");
    QCOMPARE(f.tree->implicitHeight(), 600000.0);
    f.tree->setWidth(100);
    f.row(0)->property("delegateItem").value<QQuickItem *>()->setHeight(40);
    QCOMPARE(f.tree->implicitHeight(), 600010.0);
    f.tree->setProperty("activeIndex", 19999);
    f.make("x", root);
    f.settle();
    QCOMPARE(f.rows().count(), 20001);
    f.roots().clear();
    f.settle();
    QCOMPARE(f.tree->implicitHeight(), 0.0);
}

void TestTreeAbuse::nestedCollapse()
{
    TreeFixture f(TreeFixture::File{"data/togglesanother.qml"});
    f.fill();
    f.call("tree.collapseIndex(0)");
    QCOMPARE(f.places(), QString("0+30 30+0 30+0 30+0 30+30"));
    f.call("tree.expandIndex(1)");
    f.call("tree.expandIndex(0)"); // which collapses 1
    QCOMPARE(f.places(), QString("0+30 30+30 60+0 60+30 90+30"));
    QCOMPARE(f.tree->implicitHeight(), 120.0);
}

/// By a handler that runs the event loop while the rows below are released from their anchors.
void TestTreeAbuse::rebuiltWhileACollapseReleasesRows()
{
    TreeFixture f(TreeFixture::plain("rootCanCollapse: true"));
    f.fill();
    const support::SignalTrap trap(f.row(1)->property("anchors").value<QObject *>(), "topChanged",
                                   [&f] {
                                       f.roots().clear();
                                       f.append(f.e);
                                       QCoreApplication::sendPostedEvents();
                                   });
    f.call("tree.collapseIndex(0)");
    QVERIFY(trap.hasSprung());
    f.settle();
    QCOMPARE(f.shown(), QString("e"));
    f.append(f.a);
    f.settle();
    QCOMPARE(f.places(), QString("0+30 30+30 60+0 60+0 60+0"));
}

void TestTreeAbuse::partsThatLeaveTheirRow_data()
{
    QTest::addColumn<QString>("place");
    QTest::addColumn<bool>("isAnchored");
    QTest::newRow("out of the window") << "null" << false;
    QTest::newRow("elsewhere") << "elsewhere" << false;
    QTest::newRow("beside the rows") << "contentItem" << true;
}

/// Qt Quick anchors an item to its parent and to siblings only, and warns of others.
void TestTreeAbuse::partsThatLeaveTheirRow()
{
    QFETCH(QString, place);
    QFETCH(bool, isAnchored);
    TreeFixture f(TreeFixture::File{"data/partsleave.qml"});
    f.call("elsewhere.parent = tree.parent; place = " + place + "; partsLeave = true");
    f.append(f.make("a"));
    f.settle();
    QQuickItem *row = f.row(0);
    QVERIFY(row);
    auto *background = row->property("backgroundItem").value<QQuickItem *>();
    auto *delegate = row->property("delegateItem").value<QQuickItem *>();
    QVERIFY(background && delegate);
    QCOMPARE(background->parentItem(), f.tree->property("place").value<QQuickItem *>());
    QCOMPARE(delegate->parentItem(), background->parentItem());
    QCOMPARE(evaluate(background, "anchors.fill === null").toBool(), !isAnchored);
    QCOMPARE(background->z(), -1.0);
    QCOMPARE(background->width(), isAnchored ? 300.0 : 0.0);
    // The row stays as high as its delegate, which stays as wide as the row.
    QCOMPARE(f.places(), QString("0+30"));
    QCOMPARE(delegate->width(), 300.0);
    QCOMPARE(delegate->x(), 0.0);
    if (!background->parentItem()) {
        delete background;
        delete delegate;
    }
}

/// The handle writes to the row while that is being filled.
void TestTreeAbuse::delegateThatItsRowForgets()
{
    TreeFixture f(TreeFixture::plain("branchHandleDelegate: Item {\n"
                                     "onParentChanged: parent.parent.delegateItem = null }"));
    f.fill();
    QCOMPARE(f.places(), QString("0+24 24+24 48+24 72+24 96+24"));
}

/// The marker can be reached as the handle's parent. A row without one has no indent for it, and
/// does not take the marker of another row for its own.
void TestTreeAbuse::rowWithoutItsMarker()
{
    TreeFixture f;
    f.fill();
    const auto handle = [&f](int row) {
        return f.row(row)->property("branchHandleItem").value<QQuickItem *>();
    };
    QCOMPARE(f.row(1)->property("markerIndent").toInt(), 16);
    delete handle(1)->parentItem();
    QVERIFY(!handle(1));
    QCOMPARE(f.row(1)->property("markerIndent").toInt(), 0);
    QQuickItem *other = handle(2)->parentItem();
    other->setParentItem(f.row(1));
    handle(2)->setWidth(20);
    std::make_unique<QQuickItem>(other).reset();
    QCOMPARE(f.row(1)->property("markerIndent").toInt(), 0);
    f.call("toggleIndex(1); toggleIndex(0)");
    f.append(f.make("new"));
    f.settle();
    QCOMPARE(f.shown(), QString("a .b ..c .d e new"));
}

QTEST_MAIN(TestTreeAbuse)
#include "tst_treeabuse.moc"
