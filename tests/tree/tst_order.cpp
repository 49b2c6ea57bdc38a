// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Leftovers.h"
#include "tests/support/QmlView.h"
#include "tests/support/SignalRecorder.h"
#include "tests/support/SignalTrap.h"
#include "tests/support/Text.h"
#include "tests/tree/TreeFixture.h"

#include <QQmlListReference>
#include <QRegularExpression>
#include <QSignalSpy>
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
    void rowsAreInTheirPlacesWhenACollapseIsTold();
    void collapseThatIsUndoneMeanwhileIsNotTold();
    void collapseThatIsUndoneBeforeItShowsStaysUndone();
    void collapseThatIsRedoneMeanwhileIsToldOnce();
    void childCountThatIsChangedMeanwhileIsToldOnce();
    void childPropertyIsToldBeforeAnUpdateIsAskedFor();
    void rowsAreMadeOneAfterTheOther();
    void hiddenRowIsHiddenBeforeItsPartsAreMade();
    void pressActivatesARowBeforeItFocusesIt();
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
        view.loadFile(QStringLiteral("data/orderofrows.qml"));
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

/// activeIndexChanged() comes before activeDocumentChanged(), the new row's signal before the
/// old's.
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

void TestTreeOrder::rowsAreInTheirPlacesWhenACollapseIsTold()
{
    support::QmlView view;
    view.loadFile(text("data/collapseistold.qml"));
    QObject *const tree = view.find(text("tree"));
    QTRY_COMPARE(tree->property("implicitHeight").toReal(), 60.0);
    const auto log = [&view] {
        return support::evaluate(view.root(), text("log.splice(0).join(', ')")).toString();
    };
    QVERIFY(QMetaObject::invokeMethod(tree, "collapseIndex", Q_ARG(int, 0)));
    QCOMPARE(log(), text("binding: 20 of 40, attached: 20 of 40, entry: 20 of 40"));
    QVERIFY(QMetaObject::invokeMethod(tree, "expandIndex", Q_ARG(int, 0)));
    QCOMPARE(log(), text("binding: 40 of 60, attached: 40 of 60, entry: 40 of 60"));
}

/// Qt's own word on a handler that changes what is being evaluated.
static void announceBindingLoop(const char *property)
{
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("Binding loop detected for property "
                                                           "\"%1\"")
                                                .arg(text(property))));
}

/// A handler of the row that hides expands again: what is told last is the state.
void TestTreeOrder::collapseThatIsUndoneMeanwhileIsNotTold()
{
    support::QmlView view;
    view.loadFile(text("data/collapseistold.qml"));
    QObject *const tree = view.find(text("tree"));
    QTRY_COMPARE(tree->property("implicitHeight").toReal(), 60.0);
    support::evaluate(view.root(),
                      text("tree.contentItem.children[1].heightChanged.connect("
                           "function() { tree.expandIndex(0); })"));
    QObject *entry = nullptr;
    const auto children = tree->children();
    for (QObject *child : children) {
        if (!entry && child->inherits("om::controls::TreeViewEntry")) {
            entry = child;
        }
    }
    QVERIFY(entry && entry->property("index") == 0);
    QSignalSpy told(entry, SIGNAL(collapsedChanged(bool)));
    announceBindingLoop("collapsed");
    QVERIFY(QMetaObject::invokeMethod(tree, "collapseIndex", Q_ARG(int, 0)));
    QCOMPARE(told.count(), 1);
    QCOMPARE(told.first().first(), QVariant(false));
}

/// The arguments of a signal that has one, in the order of its emissions.
static QString told(const QSignalSpy &spy)
{
    QStringList values;
    for (const QVariantList &arguments : spy) {
        values.append(arguments.constFirst().toString());
    }
    return values.join(QStringLiteral(", "));
}

/// By a handler of a row that is released from its anchor, before any row hides.
void TestTreeOrder::collapseThatIsUndoneBeforeItShowsStaysUndone()
{
    TreeFixture f(TreeFixture::plain("rootCanCollapse: true"));
    f.fill();
    QSignalSpy collapsed(f.entry(0), SIGNAL(collapsedChanged(bool)));
    const support::SignalTrap trap(f.row(2)->property("anchors").value<QObject *>(), "topChanged",
                                   [&f] { f.call(text("tree.expandIndex(0)")); });
    f.call(text("tree.collapseIndex(0)"));
    QCOMPARE(told(collapsed), text("false"));
    QVERIFY(!f.row(0)->property("collapsed").toBool());
    QCOMPARE(f.places(), text("0+30 30+30 60+30 90+30 120+30"));
}

void TestTreeOrder::collapseThatIsRedoneMeanwhileIsToldOnce()
{
    TreeFixture f(TreeFixture::plain("rootCanCollapse: true"));
    f.fill();
    QSignalSpy collapsed(f.entry(0), SIGNAL(collapsedChanged(bool)));
    const support::SignalTrap trap(f.row(1), "heightChanged", [&f] {
        f.call(text("tree.expandIndex(0)"));
        f.call(text("tree.collapseIndex(0)"));
    });
    announceBindingLoop("collapsed");
    announceBindingLoop("collapsed");
    f.call(text("tree.collapseIndex(0)"));
    QCOMPARE(told(collapsed), text("false, true"));
    QCOMPARE(f.places(), text("0+30 30+0 30+0 30+0 30+30"));
}

/// What is told last is the count.
void TestTreeOrder::childCountThatIsChangedMeanwhileIsToldOnce()
{
    TreeFixture f;
    f.fill();
    QSignalSpy count(f.entry(4), SIGNAL(childCountChanged(int)));
    const support::SignalTrap trap(f.row(4), "hasChildrenChanged",
                                   [&f] { f.e->setChildDocuments({}); });
    announceBindingLoop("hasChildren");
    const std::unique_ptr<om::data::Document> child(f.make("child", f.e));
    QCOMPARE(told(count), text("0"));
    QCOMPARE(f.row(4)->property("childCount").toInt(), 0);
}

/// An update that a handler waits for has not been asked for yet.
void TestTreeOrder::childPropertyIsToldBeforeAnUpdateIsAskedFor()
{
    Tree tree;
    QObject *const view = tree.view.root();
    support::SignalRecorder recorder;
    recorder.watch(view, QStringLiteral("view"), lines("childPropertyChanged, indexRebuilt"));
    recorder.follow(view, QStringLiteral("view"), lines("childProperty"));
    const support::SignalTrap trap(view, "childPropertyChanged", [&] {
        QCoreApplication::sendPostedEvents(view);
        recorder.note(text("told"));
    });
    view->setProperty("childProperty", text("none"));
    QCoreApplication::sendPostedEvents(view);
    QCOMPARE(recorder.take(),
             lines("view.childProperty = none, view.childPropertyChanged, told, "
                   "view.indexRebuilt"));
}

/// The parts of a row are made in their order and come into the row when they are complete, the
/// background also into its place before the delegate is made. When all rows are there, each gets
/// its predecessor; then one is active; then they are laid out; and only then the rebuild is told.
void TestTreeOrder::rowsAreMadeOneAfterTheOther()
{
    support::QmlView view;
    view.loadFile(text("data/order.qml"));
    QObject *const tree = view.find(text("tree"));
    const auto isRebuilt = [&view] {
        return support::evaluate(view.root(), text("log.indexOf('rebuilt') >= 0")).toBool();
    };
    QTRY_VERIFY(isRebuilt());
    tree->setProperty("activeIndex", 1);
    support::evaluate(view.root(), text("log = []"));
    QQmlListReference roots(tree, "rootDocuments", view.engine());
    QObject *const last = roots.at(1);
    QObject *const first = roots.at(0);
    roots.clear();
    roots.append(last);
    roots.append(first);
    QTRY_VERIFY(isRebuilt());
    const QString upToTheEnd = text("log.slice(0, log.indexOf('rebuilt') + 1).join(', ')");
    QCOMPARE(support::evaluate(view.root(), upToTheEnd).toString().split(text(", ")),
             lines("background of b, background in its row, it fills 100, it goes below, "
                   "it is named, delegate of b, delegate in its row, "
                   "handle of b, handle in its row, "
                   "background of a, background in its row, it fills 100, it goes below, "
                   "it is named, delegate of a, delegate in its row, "
                   "handle of a, handle in its row, "
                   "a follows, active row 0, b laid out, a laid out, rebuilt"));
}

void TestTreeOrder::hiddenRowIsHiddenBeforeItsPartsAreMade()
{
    support::QmlView view;
    view.loadFile(text("data/hiddenrows.qml"));
    QObject *const tree = view.find(text("tree"));
    const auto log = [&view] {
        return support::evaluate(view.root(), text("log.join(', ')")).toString();
    };
    QTRY_COMPARE(log(), text("root in 24, child in 24"));
    QVERIFY(QMetaObject::invokeMethod(tree, "collapseIndex", Q_ARG(int, 0)));
    support::evaluate(view.root(), text("log = []"));
    QVERIFY(QMetaObject::invokeMethod(tree, "rootDocumentsChanged"));
    QTRY_COMPARE(log(), text("root in 24, child in 0"));
}

void TestTreeOrder::pressActivatesARowBeforeItFocusesIt()
{
    Tree tree;
    tree.view.show();
    QObject *const view = tree.view.root();
    auto *const row = qobject_cast<QQuickItem *>(
        view->property("contentItem").value<QQuickItem *>()->childItems().value(1));
    QVERIFY(row);
    support::SignalRecorder recorder;
    recorder.watch(view, QStringLiteral("view"), lines("activeIndexChanged"));
    recorder.watch(row, QStringLiteral("row"), lines("activeFocusChanged"));
    recorder.follow(view, QStringLiteral("view"), lines("activeIndex"));
    recorder.follow(row, QStringLiteral("row"), lines("activeFocus"));
    QTest::mousePress(tree.view.window(), Qt::LeftButton, {}, {50, 30});
    QCOMPARE(recorder.take(),
             lines("view.activeIndex = 1, view.activeIndexChanged, row.activeFocus = true, "
                   "row.activeFocusChanged"));
    QTest::mouseRelease(tree.view.window(), Qt::LeftButton, {}, {50, 30});
}

QTEST_MAIN(TestTreeOrder)
#include "tst_order.moc"
