// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/datacore/DocumentLog.h"
#include "tests/support/Leftovers.h"

#include <OmbrelDataCore/Context.h>
#include <OmbrelDataCore/Document.h>

#include <QPointer>
#include <QQmlListReference>
#include <QScopedPointer>
#include <QSignalSpy>
#include <QTest>

#include <functional>

using om::data::Context;
using om::data::Document;

using Documents = QList<Document *>;

namespace {

/// A document that makes its children with `make`, when they are first asked for.
class LoadingDocument : public Document
{
public:
    int loads = 0;
    std::function<Documents()> make;

protected:
    Documents loadChildren() override
    {
        ++loads;
        return make ? make() : Documents();
    }
};

} // namespace

/// The child list of a document: order, ownership, destruction, and children loaded late.
class TestDocumentChildren : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(support::leftovers(), QString()); }
    void insertClampsItsIndex_data();
    void insertClampsItsIndex();
    void insertedElsewhereLeavesTheOldParent();
    void insertedAgainMoves();
    void refusesNullItselfAndAncestors();
    void setAllAtOnce();
    void setAllLeavesOutNullAncestorsAndRepeats();
    void setAllTakesFromOthers();
    void setAllReleasesRemovedChildren();
    void removeReleasesTheChild();
    void removeOfADocumentThatIsNoChild();
    void ownership();
    void ownedByItsChildDoesNotOwnIt();
    void deletedChildLeavesTheList();
    void deletedParentTakesOwnedChildren();
    void deletedParentFreesOthersChildren();
    void deepTreeOfOwnedDocuments();

    void listReference();
    void listReferenceClear();

    void childrenAreLoadedOnce();
    void childrenAreLoadedSilently();
    void loadedDocumentsThatAreRefusedAreLeftOut();
    void destructionLoadsNothing();
};

void TestDocumentChildren::insertClampsItsIndex_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("expected");
    QTest::newRow("far below") << -100 << 0;
    QTest::newRow("first") << 0 << 0;
    QTest::newRow("between") << 1 << 1;
    QTest::newRow("end") << 2 << 2;
    QTest::newRow("far above") << 100 << 2;
}

void TestDocumentChildren::insertClampsItsIndex()
{
    QFETCH(int, index);
    QFETCH(int, expected);
    DocumentLog log;
    NamedDocument parent("parent", &log);
    NamedDocument a("a");
    NamedDocument b("b");
    NamedDocument c("c");
    QVERIFY(parent.appendChild(&a));
    QVERIFY(parent.appendChild(&b));
    log.take();
    QVERIFY(parent.insertChild(index, &c));
    QCOMPARE(parent.childDocuments().indexOf(&c), expected);
    QCOMPARE(parent.childDocuments().size(), 3);
    QCOMPARE(c.parentDocument(), &parent);
    QCOMPARE(log.take(), QStringList{"parent.children"});
}

void TestDocumentChildren::insertedElsewhereLeavesTheOldParent()
{
    DocumentLog log;
    NamedDocument first("first", &log);
    NamedDocument second("second", &log);
    auto *child = new NamedDocument("child", &log, nullptr);
    first.appendChild(child);
    log.take();

    // Both lists are changed before the first of the two signals.
    QObject guard;
    connect(&first, &Document::childrenChanged, &guard, [&] {
        QVERIFY(first.childDocuments().isEmpty());
        QCOMPARE(second.childDocuments(), Documents{child});
    });
    QVERIFY(second.insertChild(0, child));
    QCOMPARE(log.take(), (QStringList{"first.children", "second.children"}));
    QCOMPARE(child->parentDocument(), &second);
    QCOMPARE(child->parent(), &second);
}

void TestDocumentChildren::insertedAgainMoves()
{
    DocumentLog log;
    NamedDocument parent("parent", &log);
    NamedDocument a("a");
    NamedDocument b("b");
    NamedDocument c("c");
    for (Document *child : {&a, &b, &c})
        parent.appendChild(child);
    log.take();

    QVERIFY(parent.insertChild(2, &a));
    QCOMPARE(parent.childDocuments(), (Documents{&b, &c, &a}));
    QVERIFY(parent.insertChild(0, &c));
    QCOMPARE(parent.childDocuments(), (Documents{&c, &b, &a}));
    QVERIFY(parent.appendChild(&c));
    QCOMPARE(parent.childDocuments(), (Documents{&b, &a, &c}));
    QCOMPARE(log.take().size(), 3);

    QVERIFY(parent.appendChild(&c));
    QVERIFY(parent.insertChild(1, &a));
    QCOMPARE(log.take(), QStringList());
}

void TestDocumentChildren::refusesNullItselfAndAncestors()
{
    DocumentLog log;
    NamedDocument top("top", &log);
    NamedDocument middle("middle", &log);
    NamedDocument leaf("leaf", &log);
    top.appendChild(&middle);
    middle.appendChild(&leaf);
    log.take();

    QVERIFY(!leaf.appendChild(nullptr));
    QVERIFY(!leaf.appendChild(&leaf));
    QVERIFY(!leaf.appendChild(&middle));
    QVERIFY(!leaf.insertChild(0, &top));
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(top.childDocuments(), Documents{&middle});
    QCOMPARE(middle.childDocuments(), Documents{&leaf});
    QVERIFY(leaf.childDocuments().isEmpty());
    QVERIFY(!top.parentDocument());

    // A descendant may become a child of an ancestor: that makes no cycle.
    QVERIFY(top.appendChild(&leaf));
    QCOMPARE(top.childDocuments(), (Documents{&middle, &leaf}));
}

void TestDocumentChildren::setAllAtOnce()
{
    DocumentLog log;
    Context context;
    context.setObjectName("context");
    log.watch(&context);
    NamedDocument parent("parent", &log);
    parent.setContext(&context);
    NamedDocument a("a");
    NamedDocument b("b");
    NamedDocument c("c");
    parent.appendChild(&a);
    parent.appendChild(&b);
    log.take();
    log.watch(&c);

    parent.setChildDocuments({&c, &b, &a});
    QCOMPARE(parent.childDocuments(), (Documents{&c, &b, &a}));
    QCOMPARE(c.parentDocument(), &parent);
    QCOMPARE(log.take(), (QStringList{"parent.children", "context(parent)", "c.context"}));
    parent.setChildDocuments({&c, &b, &a});
    QCOMPARE(log.take(), QStringList());
}

void TestDocumentChildren::setAllLeavesOutNullAncestorsAndRepeats()
{
    Document top;
    Document parent;
    Document a;
    Document b;
    top.appendChild(&parent);
    parent.setChildDocuments({nullptr, &a, &top, &b, &parent, &a});
    QCOMPARE(parent.childDocuments(), (Documents{&a, &b}));
    QVERIFY(!top.parentDocument());
}

void TestDocumentChildren::setAllTakesFromOthers()
{
    DocumentLog log;
    NamedDocument first("first", &log);
    NamedDocument second("second", &log);
    NamedDocument parent("parent", &log);
    NamedDocument a("a");
    NamedDocument b("b");
    NamedDocument c("c");
    first.setChildDocuments({&a, &b});
    second.setChildDocuments({&c});
    log.take();

    QObject guard;
    connect(&first, &Document::childrenChanged, &guard, [&] {
        QCOMPARE(parent.childDocuments(), (Documents{&a, &b, &c}));
    });
    parent.setChildDocuments({&a, &b, &c});
    QVERIFY(first.childDocuments().isEmpty());
    QVERIFY(second.childDocuments().isEmpty());
    QCOMPARE(log.take(), (QStringList{"first.children", "second.children", "parent.children"}));
    QCOMPARE(a.parent(), &parent);
}

void TestDocumentChildren::setAllReleasesRemovedChildren()
{
    DocumentLog log;
    Context context;
    NamedDocument parent("parent", &log);
    parent.setContext(&context);
    QScopedPointer<Document> gone(new NamedDocument("gone", &log));
    auto *stays = new NamedDocument("stays", &log);
    parent.setChildDocuments({gone.data(), stays});
    log.take();
    parent.setChildDocuments({stays});
    QCOMPARE(log.take(), (QStringList{"parent.children", "gone.context"}));
    QVERIFY(!gone->parentDocument());
    QVERIFY(!gone->parent());
    QVERIFY(!gone->context());
    QCOMPARE(stays->parent(), &parent);
}

void TestDocumentChildren::removeReleasesTheChild()
{
    DocumentLog log;
    NamedDocument parent("parent", &log);
    QScopedPointer<Document> child(new NamedDocument("child", &log));
    parent.appendChild(child.data());
    QCOMPARE(child->parent(), &parent);
    log.take();

    QVERIFY(parent.removeChild(child.data()));
    QVERIFY(!child->parent());
    QVERIFY(!child->parentDocument());
    QVERIFY(parent.childDocuments().isEmpty());
    QCOMPARE(log.take(), QStringList{"parent.children"});
}

void TestDocumentChildren::removeOfADocumentThatIsNoChild()
{
    DocumentLog log;
    NamedDocument parent("parent", &log);
    NamedDocument child("child", &log);
    NamedDocument other("other");
    parent.appendChild(&child);
    log.take();
    QVERIFY(!parent.removeChild(nullptr));
    QVERIFY(!parent.removeChild(&other));
    QVERIFY(!parent.removeChild(&parent));
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(parent.childDocuments(), Documents{&child});
}

void TestDocumentChildren::ownership()
{
    QObject application;
    auto *first = new Document(&application);
    auto *second = new Document(&application);
    auto *free = new Document;
    auto *owned = new Document(&application);

    first->appendChild(free);
    first->appendChild(owned);
    QCOMPARE(free->parent(), first);
    QCOMPARE(owned->parent(), &application);

    // A child owned by its parent document gets the new parent document as its owner.
    second->appendChild(free);
    second->appendChild(owned);
    QCOMPARE(free->parent(), second);
    QCOMPARE(owned->parent(), &application);

    QVERIFY(second->removeChild(owned));
    QCOMPARE(owned->parent(), &application);
}

void TestDocumentChildren::ownedByItsChildDoesNotOwnIt()
{
    auto *owner = new Document;
    auto *owned = new Document(owner);
    QVERIFY(owned->appendChild(owner));
    QCOMPARE(owned->childDocuments(), Documents{owner});
    QVERIFY(!owner->parent());
    QPointer<Document> alive(owned);
    delete owner;
    QVERIFY(!alive);
}

void TestDocumentChildren::deletedChildLeavesTheList()
{
    DocumentLog log;
    Context context;
    context.setObjectName("context");
    log.watch(&context);
    NamedDocument parent("parent", &log);
    parent.setContext(&context);
    auto *a = new Document;
    auto *b = new Document;
    parent.appendChild(a);
    parent.appendChild(b);
    log.take();

    QObject guard;
    connect(&parent, &Document::childrenChanged, &guard,
            [&] { QCOMPARE(parent.childDocuments(), Documents{b}); });
    delete a;
    QCOMPARE(parent.childDocuments(), Documents{b});
    QCOMPARE(log.take(), (QStringList{"parent.children", "context(parent)"}));
}

void TestDocumentChildren::deletedParentTakesOwnedChildren()
{
    DocumentLog log;
    auto *parent = new NamedDocument("parent", &log);
    QPointer<Document> child = new NamedDocument("child", &log);
    QPointer<Document> grandchild = new NamedDocument("grandchild", &log);
    parent->appendChild(child);
    child->appendChild(grandchild);
    log.take();
    delete parent;
    QVERIFY(!child);
    QVERIFY(!grandchild);
    QCOMPARE(log.take(), QStringList());
}

void TestDocumentChildren::deletedParentFreesOthersChildren()
{
    DocumentLog log;
    QObject application;
    Context context;
    NamedDocument *child = new NamedDocument("child", &log, &application);
    {
        Document parent;
        parent.setContext(&context);
        parent.appendChild(child);
        QCOMPARE(child->context(), &context);
        log.take();
    }
    QVERIFY(!child->parentDocument());
    QVERIFY(!child->context());
    QCOMPARE(log.take(), QStringList{"child.context"});
}

void TestDocumentChildren::deepTreeOfOwnedDocuments()
{
    Context context;
    auto *top = new Document;
    top->setContext(&context);
    Document *last = top;
    for (int level = 0; level < 2000; ++level) {
        auto *next = new Document;
        last->appendChild(next);
        last = next;
    }
    QCOMPARE(last->context(), &context);
    QSignalSpy changed(last, &Document::contextChanged);
    top->setContext(nullptr);
    QCOMPARE(changed.count(), 1);
    QVERIFY(!last->appendChild(top));
    delete top;
}

void TestDocumentChildren::listReference()
{
    Document parent;
    QSignalSpy changed(&parent, &Document::childrenChanged);
    QQmlListReference list(&parent, "children");
    QVERIFY(list.isValid());
    QVERIFY(list.canAppend());
    QVERIFY(list.canCount());
    QVERIFY(list.canAt());
    QVERIFY(list.canClear());
    QCOMPARE(list.listElementType(), &Document::staticMetaObject);

    auto *child = new Document;
    QVERIFY(list.append(child));
    QVERIFY(list.append(nullptr));
    QVERIFY(list.append(&parent));
    QCOMPARE(list.count(), 1);
    QCOMPARE(list.at(0), child);
    QCOMPARE(changed.count(), 1);
    QVERIFY(!list.at(1));
    QVERIFY(!list.at(-1));
    QObject noDocument;
    QVERIFY(!list.append(&noDocument));
}

void TestDocumentChildren::listReferenceClear()
{
    DocumentLog log;
    Context context;
    NamedDocument parent("parent", &log);
    parent.setContext(&context);
    NamedDocument a("a", &log);
    NamedDocument b("b", &log);
    Context own;
    b.setContext(&own);
    parent.appendChild(&a);
    parent.appendChild(&b);
    log.take();

    QQmlListReference list(&parent, "children");
    QVERIFY(list.clear());
    QCOMPARE(list.count(), 0);
    QCOMPARE(log.take(), (QStringList{"parent.children", "a.context"}));
    QVERIFY(!a.parentDocument());
    QCOMPARE(a.parent(), &parent);
    QCOMPARE(b.context(), &own);

    QVERIFY(list.clear());
    QCOMPARE(log.take(), QStringList());
    a.setParent(nullptr);
    b.setParent(nullptr);
}

void TestDocumentChildren::childrenAreLoadedOnce()
{
    LoadingDocument parent;
    auto *child = new Document;
    parent.make = [child] { return Documents{child, nullptr}; };
    QCOMPARE(parent.loads, 0);
    parent.setName("name");
    parent.hasType("image");
    parent.context();
    QCOMPARE(parent.loads, 0);

    QQmlListReference list(&parent, "children");
    QCOMPARE(parent.loads, 0);
    QCOMPARE(list.count(), 1);
    QCOMPARE(parent.loads, 1);
    QCOMPARE(list.at(0), child);
    QCOMPARE(child->parentDocument(), &parent);
    QCOMPARE(child->parent(), &parent);
    QCOMPARE(parent.childDocuments(), Documents{child});
    QVERIFY(parent.removeChild(child));
    QVERIFY(parent.childDocuments().isEmpty());
    QCOMPARE(parent.loads, 1);
    delete child;

    // The first insertion loads the children, and the new one comes after them.
    LoadingDocument other;
    auto *there = new Document;
    other.make = [there] { return Documents{there}; };
    auto *added = new Document;
    other.appendChild(added);
    QCOMPARE(other.childDocuments(), (Documents{there, added}));
}

void TestDocumentChildren::childrenAreLoadedSilently()
{
    DocumentLog log;
    Context context;
    context.setObjectName("context");
    log.watch(&context);
    LoadingDocument parent;
    log.watch(&parent);
    parent.setContext(&context);
    parent.make = [] { return Documents{new Document}; };
    log.take();
    QCOMPARE(parent.childDocuments().size(), 1);
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(parent.childDocuments().first()->context(), &context);
}

void TestDocumentChildren::loadedDocumentsThatAreRefusedAreLeftOut()
{
    LoadingDocument parent;
    Document elsewhere;
    auto *taken = new Document;
    elsewhere.appendChild(taken);
    auto *child = new Document;
    parent.make = [&] { return Documents{&parent, taken, child, child, nullptr}; };
    QCOMPARE(parent.childDocuments(), Documents{child});
    QCOMPARE(taken->parentDocument(), &elsewhere);
}

void TestDocumentChildren::destructionLoadsNothing()
{
    int loads = 0;
    {
        Document top;
        auto *parent = new LoadingDocument;
        parent->make = [&loads] {
            ++loads;
            return Documents();
        };
        top.appendChild(parent);
        Context context;
        top.setContext(&context);
        top.removeChild(parent);
        delete parent;
    }
    QCOMPARE(loads, 0);
}

QTEST_GUILESS_MAIN(TestDocumentChildren)

#include "tst_documentchildren.moc"
