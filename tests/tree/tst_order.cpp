// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Leftovers.h"
#include "tests/support/QmlView.h"
#include "tests/support/SignalRecorder.h"
#include "tests/support/Text.h"

#include <QQmlListReference>
#include <QTest>

using support::text;

/// The order in which a tree view changes its active row and collapses one, with what holds in
/// between.
class TestTreeOrder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void activeRowChanges();
    void activeDocumentIsRemoved();
    void rowCollapses();
};

void TestTreeOrder::cleanup()
{
    QCOMPARE(support::leftovers(), QString());
}

static QStringList lines(const char *latin1)
{
    return text(latin1).split(QStringLiteral(", "));
}

namespace {

/// Two rows, the second of them with a child, and what is attached of each row.
struct Tree
{
    Tree()
    {
        view.load(R"(import ombrel.data.Core 1.0
            TreeView {
                width: 100; height: 100
                childProperty: "children"
                rootCanCollapse: true
                rootDocuments: [
                    Document { objectName: "one"; documentId: "one" },
                    Document {
                        objectName: "two"; documentId: "two"
                        Document { objectName: "three"; documentId: "three" }
                    }
                ]
                delegate: Item { enabled: TreeView.isActiveItem }
            })");
        if (!QTest::qWaitFor([this] { return attached(2) != nullptr; })) {
            qFatal("The tree has no rows");
        }
    }

    /// What is attached to everything in row \a index.
    QObject *attached(int index) const
    {
        const auto objects = view.root()->findChildren<QObject *>();
        for (QObject *object : objects) {
            if (object->inherits("om::controls::TreeViewAttachedObject")
                && object->parent()->property("index").toInt() == index) {
                return object;
            }
        }
        return nullptr;
    }

    support::QmlView view;
};

} // namespace

/// The row is told before the document is, and the new row before the old one.
void TestTreeOrder::activeRowChanges()
{
    Tree tree;
    QObject *const view = tree.view.root();
    view->setProperty("activeIndex", 0);
    support::SignalRecorder recorder;
    recorder.watch(view, QStringLiteral("view"),
                   lines("activeIndexChanged, activeDocumentChanged"));
    recorder.follow(view, QStringLiteral("view"), lines("activeIndex, activeDocument"));
    const QStringList names = lines("one, two");
    for (int i = 0; i < names.size(); ++i) {
        recorder.watch(tree.attached(i), names.at(i), lines("activeItemChanged"));
        recorder.follow(tree.attached(i), names.at(i), lines("isActiveItem"));
    }
    view->setProperty("activeIndex", 1);
    QCOMPARE(recorder.take(),
             lines("view.activeIndex = 1, view.activeIndexChanged, view.activeDocument = two, "
                   "one.isActiveItem = false, two.isActiveItem = true, view.activeDocumentChanged, "
                   "two.activeItemChanged, one.activeItemChanged"));
    view->setProperty("activeIndex", -1);
    QCOMPARE(recorder.take(),
             lines("view.activeIndex = -1, view.activeIndexChanged, view.activeDocument = null, "
                   "two.isActiveItem = false, view.activeDocumentChanged, two.activeItemChanged"));
}

void TestTreeOrder::activeDocumentIsRemoved()
{
    Tree tree;
    QObject *const view = tree.view.root();
    view->setProperty("activeIndex", 1);
    support::SignalRecorder recorder;
    recorder.watch(view, QStringLiteral("view"),
                   lines("rootDocumentsChanged, activeIndexChanged, activeDocumentChanged, "
                         "indexRebuilt"));
    recorder.follow(view, QStringLiteral("view"), lines("activeIndex, activeDocument"));
    QQmlListReference(view, "rootDocuments", tree.view.engine()).clear();
    QCOMPARE(recorder.take(), lines("view.rootDocumentsChanged"));
    QTRY_VERIFY(recorder.entries().contains(text("view.indexRebuilt")));
    QCOMPARE(recorder.take(),
             lines("view.activeIndex = -1, view.activeIndexChanged, view.activeDocument = null, "
                   "view.activeDocumentChanged, view.indexRebuilt"));
}

void TestTreeOrder::rowCollapses()
{
    Tree tree;
    QObject *const row = tree.attached(1);
    support::SignalRecorder recorder;
    recorder.watch(row, QStringLiteral("row"), lines("collapsedItemChanged"));
    recorder.follow(row, QStringLiteral("row"), lines("isCollapsedItem"));
    row->setProperty("isCollapsedItem", true);
    QCOMPARE(recorder.take(), lines("row.isCollapsedItem = true, row.collapsedItemChanged"));
    row->setProperty("isCollapsedItem", true);
    QCOMPARE(recorder.take(), QStringList());
}

QTEST_MAIN(TestTreeOrder)
#include "tst_order.moc"
