// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Leftovers.h"
#include "tests/support/SignalTrap.h"
#include "tests/tree/TreeFixture.h"

#include <OmbrelDataCore/Context.h>

#include <QQmlContext>
#include <QQmlListProperty>
#include <QTest>

using om::data::Context;
using om::data::Document;
using support::evaluate;

/// A document whose children are elsewhere.
class Shelf : public Document
{
    Q_OBJECT
    Q_PROPERTY(QQmlListProperty<QObject> quiet READ list CONSTANT)
    Q_PROPERTY(QQmlListProperty<QObject> parts READ list NOTIFY stockTaken)
    Q_PROPERTY(QQmlListProperty<QObject> mute READ list)
    Q_PROPERTY(QString text MEMBER m_text NOTIFY stockTaken)
public:
    QQmlListProperty<QObject> list() { return {this, &objects}; }
    QList<QObject *> objects;
    QString m_text = QStringLiteral("not a list");
Q_SIGNALS:
    void stockTaken();
};

/// What a tree reads from its documents, and when they have it rebuilt.
class TestTreeDocuments : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(support::leftovers(), QString()); }
    void contextsAreRebound();
    void addedChildWithContextIsRebuiltTwice();
    void documentReachableTwice();
    void otherListProperties_data();
    void otherListProperties();
    void hasChildrenFollowsTheNameOfTheList();
};

void TestTreeDocuments::contextsAreRebound()
{
    TreeFixture f;
    Context first;
    Context second;
    f.fill();
    f.a->setContext(&first);
    f.e->setContext(&second);
    f.make("x", f.e); // for a rebuild, which is when the context is looked at
    f.settle();
    f.rebuilt->clear();
    f.a->setName("aa");
    f.settle();
    QCOMPARE(f.rebuilt->count(), 1);
    f.e->setName("ee");
    f.settle();
    QCOMPARE(f.rebuilt->count(), 1); // of another context than the first root
    f.roots().clear();
    f.append(f.e);
    f.settle();
    QCOMPARE(f.rebuilt->count(), 2);
    f.e->setName("eee");
    f.settle();
    QCOMPARE(f.rebuilt->count(), 3);
    f.a->setName("aaa");
    f.settle();
    QCOMPARE(f.rebuilt->count(), 3);
    Document rowless;
    Q_EMIT second.documentChanged(&rowless);
    f.settle();
    QCOMPARE(f.rebuilt->count(), 3);
    f.roots().clear();
    f.settle();
    f.e->setName("e");
    f.settle();
    QCOMPARE(f.rebuilt->count(), 4);
}

void TestTreeDocuments::addedChildWithContextIsRebuiltTwice()
{
    TreeFixture f;
    Context context;
    f.fill();
    f.a->setContext(&context);
    f.make("x", f.e);
    f.settle();
    f.settle();
    f.rebuilt->clear();
    f.make("y", f.a);
    // The child list's own signal queues one, before the context's arrives, which finds the row.
    QTRY_COMPARE(f.rebuilt->count(), 2);
    f.settle();
    QCOMPARE(f.rebuilt->count(), 2);
}

void TestTreeDocuments::documentReachableTwice()
{
    TreeFixture f;
    f.fill();
    f.append(f.b);
    f.settle();
    QCOMPARE(f.shown(), QString("a .b ..c .d e b .c"));
    int index = -2;
    QMetaObject::invokeMethod(f.tree, "indexOfDocument", Q_RETURN_ARG(int, index),
                              Q_ARG(om::data::Document *, f.c));
    QCOMPARE(index, 2);
    f.tree->setProperty("activeIndex", 6);
    QVERIFY(evaluate(f.row(6), "delegateItem.active").toBool());
    QVERIFY(evaluate(f.row(2), "treeViewItem.TreeView.isActiveItem").toBool());
}

void TestTreeDocuments::otherListProperties_data()
{
    QTest::addColumn<QString>("shown");
    QTest::addColumn<bool>("notifies");
    QTest::newRow("parts") << "shelf .one .two" << true;
    QTest::newRow("quiet") << "shelf .one .two" << false;
    QTest::newRow("mute") << "shelf .one .two" << false;
    QTest::newRow("text") << "shelf" << true;
    QTest::newRow("nothing") << "shelf" << false;
    QTest::newRow("") << "shelf" << false;
    QTest::newRow("context") << "shelf" << false;
    QTest::newRow("onTextChanged") << "shelf" << false;
}

/// Any warning of a row fails this test.
void TestTreeDocuments::otherListProperties()
{
    QFETCH(QString, shown);
    QFETCH(bool, notifies);
    const QString property = QString::fromLatin1(QTest::currentDataTag());
    TreeFixture f;
    f.tree->setProperty("childProperty", property);
    Shelf shelf;
    shelf.setName("shelf");
    Document one;
    one.setName("one");
    Document two;
    two.setName("two");
    QObject thing;
    shelf.objects = {&thing, &one, nullptr, &two};
    f.append(&shelf);
    f.settle();
    QCOMPARE(f.shown(), shown);
    QCOMPARE(f.row(0)->property("hasChildren").toBool(), shown.contains(QLatin1String("one")));
    QSignalSpy count(qmlContext(f.row(0))->parentContext()->contextObject(),
                     SIGNAL(childCountChanged(int)));
    f.rebuilt->clear();
    shelf.objects = {&two};
    Q_EMIT shelf.stockTaken();
    QCOMPARE(count.count(), property == QLatin1String("parts") ? 1 : 0);
    if (count.count() == 1) {
        QCOMPARE(count.first().first().toInt(), 1);
    }
    f.settle();
    QCOMPARE(f.rebuilt->count(), notifies ? 1 : 0);
    if (property == QLatin1String("parts")) {
        QCOMPARE(f.shown(), QString("shelf .two"));
    }
    f.roots().clear();
    f.settle();
}

/// Before the change of the name is told, and before the rebuild that it asks for.
void TestTreeDocuments::hasChildrenFollowsTheNameOfTheList()
{
    TreeFixture f(TreeFixture::File{"data/childpropertychanges.qml"});
    f.settle();
    bool onceTold = true;
    const support::SignalTrap trap(f.tree, "childPropertyChanged",
                                   [&] { onceTold = f.row(0)->property("hasChildren").toBool(); });
    f.tree->setProperty("childProperty", "none");
    QVERIFY(!onceTold);
    QVERIFY(!f.row(3)->property("hasChildren").toBool());
    QVERIFY(!f.row(3)->property("collapsable").toBool());
    f.tree->setProperty("childProperty", "other");
    QVERIFY(f.row(0)->property("hasChildren").toBool());
    QVERIFY(!f.row(1)->property("hasChildren").toBool());
    f.settle();
    QCOMPARE(f.shown(), QString("a .ao c .co"));
}

QTEST_MAIN(TestTreeDocuments)
#include "tst_treedocuments.moc"
