// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

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

// Notes every change signal of the documents it watches as "name.signal" and every report of the
// contexts it watches as "context(name)", in the order they come.
class Log : public QObject
{
public:
    void watch(Document *document)
    {
        const auto note = [this, document](const char *signal) {
            return [this, document, signal] {
                entries.append(document->objectName() + '.' + QLatin1String(signal));
            };
        };
        connect(document, &Document::documentIdChanged, this, note("documentId"));
        connect(document, &Document::nameChanged, this, note("name"));
        connect(document, &Document::typesChanged, this, note("types"));
        connect(document, &Document::urlChanged, this, note("url"));
        connect(document, &Document::contextChanged, this, note("context"));
        connect(document, &Document::childrenChanged, this, note("children"));
    }

    void watch(Context *context)
    {
        connect(context, &Context::documentChanged, this, [this, context](Document *document) {
            entries.append(context->objectName() + '(' + document->objectName() + ')');
        });
    }

    QStringList take()
    {
        QStringList taken;
        taken.swap(entries);
        return taken;
    }

private:
    QStringList entries;
};

class Named : public Document
{
    Q_OBJECT

public:
    explicit Named(const char *name, Log *log = nullptr, QObject *parent = nullptr)
        : Document(parent)
    {
        setObjectName(QLatin1String(name));
        if (log)
            log->watch(this);
    }
};

// A document that makes its children when somebody asks.
class Lazy : public Document
{
    Q_OBJECT
    Q_PROPERTY(int size READ size WRITE setSize NOTIFY sizeChanged)

public:
    int size() const { return m_size; }
    void setSize(int size)
    {
        m_size = size;
        Q_EMIT sizeChanged();
        notifyContext();
    }

    int loads = 0;
    std::function<Documents()> make;

Q_SIGNALS:
    void sizeChanged();

protected:
    Documents loadChildren() override
    {
        ++loads;
        return make ? make() : Documents();
    }

private:
    int m_size = 0;
};

// A document class of an application that answers for itself.
class Foreign : public Document
{
    Q_OBJECT

public:
    QString documentId() const override { return QStringLiteral("foreign"); }
    bool hasType(const QString &type) const override { return type == QLatin1String("any"); }
    Context *context() const override { return m_context; }

    Context *m_context = nullptr;
};

class Receiver : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void receive(om::data::Document *document) { received.append(document); }

public:
    Documents received;
};

class ListOwner : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QQmlListProperty<om::data::Document> documents READ documents)

public:
    QQmlListProperty<Document> documents() { return {this, &m_documents}; }

private:
    QList<Document *> m_documents;
};

} // namespace

class tst_Document : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void defaults();
    void documentIdIsNullUntilSet();
    void propertyRows_data();
    void propertyRows();
    void hasType_data();
    void hasType();

    void insertClampsItsIndex_data();
    void insertClampsItsIndex();
    void insertedElsewhereLeavesTheOldParent();
    void insertedAgainMoves();
    void refusesNullItselfAndAncestors();
    void setAllAtOnce();
    void setAllLeavesOutWhatCannotBe();
    void setAllTakesFromOthers();
    void setAllHandsOverWhatGoes();
    void removeHandsOverOwnership();
    void removeOfAStranger();
    void ownership();
    void ownedByItsChildDoesNotOwnIt();
    void deletedChildLeavesTheList();
    void deletedParentTakesOwnedChildren();
    void deletedParentFreesOthersChildren();
    void deepTreeOfOwnedDocuments();

    void listReference();
    void listReferenceClear();
    void listElementTypeIsKnownWithoutAnEngine();

    void ownContextBeforeInherited();
    void contextSurvivesItsDeletion();
    void contextSignalReachesHeirsOnly();
    void contextReports();
    void movedBetweenContexts();
    void inheritedReports();
    void queuedReport();

    void childrenAreLoadedOnce();
    void childrenAreLoadedSilently();
    void loadedRefuseIsDropped();
    void neverLoadedForDestruction();
    void reportOfASubclass();
    void overriddenVirtuals();

    void deletedInsideItsOwnSignal();
};

void tst_Document::defaults()
{
    const Document document;
    QVERIFY(document.documentId().isNull());
    QVERIFY(document.name().isEmpty());
    QVERIFY(document.types().isEmpty());
    QVERIFY(document.url().isEmpty());
    QVERIFY(!document.context());
    QVERIFY(!document.parentDocument());
    QVERIFY(document.childDocuments().isEmpty());
    QVERIFY(!document.parent());
}

void tst_Document::documentIdIsNullUntilSet()
{
    Document document;
    QSignalSpy changed(&document, &Document::documentIdChanged);
    document.setDocumentId(QString());
    QCOMPARE(changed.count(), 0);
    document.setDocumentId(QLatin1String(""));
    QCOMPARE(changed.count(), 1);
    QVERIFY(!document.documentId().isNull());
    document.setDocumentId("a");
    QCOMPARE(document.documentId(), QString("a"));
    document.setDocumentId(QString());
    QVERIFY(document.documentId().isNull());
    QCOMPARE(changed.count(), 3);
}

void tst_Document::propertyRows_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("value");

    QTest::newRow("documentId") << QByteArray("documentId") << QVariant("42");
    QTest::newRow("name") << QByteArray("name") << QVariant("Holiday");
    QTest::newRow("types") << QByteArray("types") << QVariant(QStringList{"image", "photo"});
    QTest::newRow("url") << QByteArray("url") << QVariant(QUrl("file:///a.png"));
}

void tst_Document::propertyRows()
{
    QFETCH(QByteArray, property);
    QFETCH(QVariant, value);

    Log log;
    Context context;
    context.setObjectName("context");
    log.watch(&context);
    Named document("document", &log);
    document.setContext(&context);
    QCOMPARE(log.take(), QStringList{"document.context"});

    // The context hears of it after the document's own signal.
    QVERIFY(document.setProperty(property, value));
    QCOMPARE(document.property(property), value);
    const QStringList once{"document." + property, "context(document)"};
    QCOMPARE(log.take(), once);

    QVERIFY(document.setProperty(property, value));
    QCOMPARE(log.take(), QStringList());

    QVERIFY(document.setProperty(property, QVariant(value.userType(), nullptr)));
    QCOMPARE(log.take(), once);
}

void tst_Document::hasType_data()
{
    QTest::addColumn<QStringList>("types");
    QTest::addColumn<QString>("type");
    QTest::addColumn<bool>("expected");

    const QStringList types{"image", "Photo"};
    QTest::newRow("first") << types << "image" << true;
    QTest::newRow("last") << types << "Photo" << true;
    QTest::newRow("other case") << types << "photo" << false;
    QTest::newRow("part") << types << "imag" << false;
    QTest::newRow("longer") << types << "images" << false;
    QTest::newRow("pattern") << types << "im*" << false;
    QTest::newRow("empty text") << types << "" << false;
    QTest::newRow("null text") << types << QString() << false;
    QTest::newRow("no types") << QStringList() << "image" << false;
    QTest::newRow("empty text among the types") << QStringList{""} << "" << true;
}

void tst_Document::hasType()
{
    QFETCH(QStringList, types);
    QFETCH(QString, type);
    QFETCH(bool, expected);
    Document document;
    document.setTypes(types);
    QCOMPARE(document.hasType(type), expected);
}

void tst_Document::insertClampsItsIndex_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("expected");
    QTest::newRow("far below") << -100 << 0;
    QTest::newRow("first") << 0 << 0;
    QTest::newRow("between") << 1 << 1;
    QTest::newRow("end") << 2 << 2;
    QTest::newRow("far above") << 100 << 2;
}

void tst_Document::insertClampsItsIndex()
{
    QFETCH(int, index);
    QFETCH(int, expected);
    Log log;
    Named parent("parent", &log);
    Named a("a");
    Named b("b");
    Named c("c");
    QVERIFY(parent.appendChild(&a));
    QVERIFY(parent.appendChild(&b));
    log.take();
    QVERIFY(parent.insertChild(index, &c));
    QCOMPARE(parent.childDocuments().indexOf(&c), expected);
    QCOMPARE(parent.childDocuments().size(), 3);
    QCOMPARE(c.parentDocument(), &parent);
    QCOMPARE(log.take(), QStringList{"parent.children"});
}

void tst_Document::insertedElsewhereLeavesTheOldParent()
{
    Log log;
    Named first("first", &log);
    Named second("second", &log);
    auto *child = new Named("child", &log, nullptr);
    first.appendChild(child);
    log.take();

    // Both lists are as they will be before either signal.
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

void tst_Document::insertedAgainMoves()
{
    Log log;
    Named parent("parent", &log);
    Named a("a");
    Named b("b");
    Named c("c");
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

void tst_Document::refusesNullItselfAndAncestors()
{
    Log log;
    Named top("top", &log);
    Named middle("middle", &log);
    Named leaf("leaf", &log);
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

    // The other way round it is no cycle: a descendant may move up.
    QVERIFY(top.appendChild(&leaf));
    QCOMPARE(top.childDocuments(), (Documents{&middle, &leaf}));
}

void tst_Document::setAllAtOnce()
{
    Log log;
    Context context;
    context.setObjectName("context");
    log.watch(&context);
    Named parent("parent", &log);
    parent.setContext(&context);
    Named a("a");
    Named b("b");
    Named c("c");
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

void tst_Document::setAllLeavesOutWhatCannotBe()
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

void tst_Document::setAllTakesFromOthers()
{
    Log log;
    Named first("first", &log);
    Named second("second", &log);
    Named parent("parent", &log);
    Named a("a");
    Named b("b");
    Named c("c");
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

void tst_Document::setAllHandsOverWhatGoes()
{
    Log log;
    Context context;
    Named parent("parent", &log);
    parent.setContext(&context);
    QScopedPointer<Document> gone(new Named("gone", &log));
    auto *stays = new Named("stays", &log);
    parent.setChildDocuments({gone.data(), stays});
    log.take();
    parent.setChildDocuments({stays});
    QCOMPARE(log.take(), (QStringList{"parent.children", "gone.context"}));
    QVERIFY(!gone->parentDocument());
    QVERIFY(!gone->parent());
    QVERIFY(!gone->context());
    QCOMPARE(stays->parent(), &parent);
}

void tst_Document::removeHandsOverOwnership()
{
    Log log;
    Named parent("parent", &log);
    QScopedPointer<Document> child(new Named("child", &log));
    parent.appendChild(child.data());
    QCOMPARE(child->parent(), &parent);
    log.take();

    QVERIFY(parent.removeChild(child.data()));
    QVERIFY(!child->parent());
    QVERIFY(!child->parentDocument());
    QVERIFY(parent.childDocuments().isEmpty());
    QCOMPARE(log.take(), QStringList{"parent.children"});
}

void tst_Document::removeOfAStranger()
{
    Log log;
    Named parent("parent", &log);
    Named child("child", &log);
    Named stranger("stranger");
    parent.appendChild(&child);
    log.take();
    QVERIFY(!parent.removeChild(nullptr));
    QVERIFY(!parent.removeChild(&stranger));
    QVERIFY(!parent.removeChild(&parent));
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(parent.childDocuments(), Documents{&child});
}

void tst_Document::ownership()
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

    // From one document to another the owner changes with the list.
    second->appendChild(free);
    second->appendChild(owned);
    QCOMPARE(free->parent(), second);
    QCOMPARE(owned->parent(), &application);

    QVERIFY(second->removeChild(owned));
    QCOMPARE(owned->parent(), &application);
}

void tst_Document::ownedByItsChildDoesNotOwnIt()
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

void tst_Document::deletedChildLeavesTheList()
{
    Log log;
    Context context;
    context.setObjectName("context");
    log.watch(&context);
    Named parent("parent", &log);
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

void tst_Document::deletedParentTakesOwnedChildren()
{
    Log log;
    auto *parent = new Named("parent", &log);
    QPointer<Document> child = new Named("child", &log);
    QPointer<Document> grandchild = new Named("grandchild", &log);
    parent->appendChild(child);
    child->appendChild(grandchild);
    log.take();
    delete parent;
    QVERIFY(!child);
    QVERIFY(!grandchild);
    QCOMPARE(log.take(), QStringList());
}

void tst_Document::deletedParentFreesOthersChildren()
{
    Log log;
    QObject application;
    Context context;
    Named *child = new Named("child", &log, &application);
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

void tst_Document::deepTreeOfOwnedDocuments()
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

void tst_Document::listReference()
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
    QObject stranger;
    QVERIFY(!list.append(&stranger));
}

void tst_Document::listReferenceClear()
{
    Log log;
    Context context;
    Named parent("parent", &log);
    parent.setContext(&context);
    Named a("a", &log);
    Named b("b", &log);
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

void tst_Document::listElementTypeIsKnownWithoutAnEngine()
{
    ListOwner owner;
    Document document;
    QQmlListReference list(&owner, "documents");
    QVERIFY(list.isValid());
    QCOMPARE(list.listElementType(), &Document::staticMetaObject);
    QVERIFY(list.append(&document));
    QCOMPARE(list.at(0), &document);
}

void tst_Document::ownContextBeforeInherited()
{
    Context outer;
    Context inner;
    Document parent;
    Document child;
    parent.appendChild(&child);
    QVERIFY(!child.context());
    parent.setContext(&outer);
    QCOMPARE(child.context(), &outer);
    child.setContext(&inner);
    QCOMPARE(child.context(), &inner);
    QCOMPARE(parent.context(), &outer);
    child.resetContext();
    QCOMPARE(child.context(), &outer);
    parent.removeChild(&child);
    QVERIFY(!child.context());
}

void tst_Document::contextSurvivesItsDeletion()
{
    Log log;
    Context outer;
    auto *inner = new Context;
    Named parent("parent", &log);
    Named child("child", &log);
    parent.setContext(&outer);
    parent.appendChild(&child);
    child.setContext(inner);
    log.take();

    delete inner;
    QCOMPARE(child.context(), &outer);
    QCOMPARE(log.take(), QStringList{"child.context"});

    auto *last = new Context;
    parent.setContext(last);
    log.take();
    delete last;
    QVERIFY(!parent.context());
    QVERIFY(!child.context());
    QCOMPARE(log.take(), (QStringList{"parent.context", "child.context"}));
    child.setName("still works");

    // A context that the document has left says nothing any more.
    auto *left = new Context;
    parent.setContext(left);
    parent.setContext(nullptr);
    log.take();
    delete left;
    QCOMPARE(log.take(), QStringList());
}

void tst_Document::contextSignalReachesHeirsOnly()
{
    Log log;
    Context one;
    Context two;
    Named top("top", &log);
    Named heir("heir", &log);
    Named own("own", &log);
    Named below("below", &log);
    top.appendChild(&heir);
    top.appendChild(&own);
    own.appendChild(&below);
    own.setContext(&two);
    log.take();

    top.setContext(&one);
    QCOMPARE(log.take(), (QStringList{"top.context", "heir.context"}));
    top.setContext(&one);
    QCOMPARE(log.take(), QStringList());
    // Its own from now on, but the same answer as before.
    heir.setContext(&one);
    QCOMPARE(log.take(), QStringList());
    top.setContext(nullptr);
    QCOMPARE(log.take(), QStringList{"top.context"});
}

void tst_Document::contextReports()
{
    Log log;
    Context context;
    context.setObjectName("context");
    log.watch(&context);
    Named parent("parent");
    Named child("child");

    // Coming and going is not a change of the document.
    parent.setContext(&context);
    QCOMPARE(log.take(), QStringList());
    parent.appendChild(&child);
    QCOMPARE(log.take(), QStringList{"context(parent)"});
    child.setName("name");
    QCOMPARE(log.take(), QStringList{"context(child)"});
    parent.removeChild(&child);
    QCOMPARE(log.take(), QStringList{"context(parent)"});
    child.setName("other");
    QCOMPARE(log.take(), QStringList());
    parent.setContext(nullptr);
    parent.setName("name");
    QCOMPARE(log.take(), QStringList());
}

void tst_Document::movedBetweenContexts()
{
    Log log;
    Context one;
    Context two;
    one.setObjectName("one");
    two.setObjectName("two");
    log.watch(&one);
    log.watch(&two);
    Named first("first");
    Named second("second");
    Named child("child");
    first.setContext(&one);
    second.setContext(&two);
    first.appendChild(&child);
    log.take();
    log.watch(&child);

    second.appendChild(&child);
    QCOMPARE(log.take(), (QStringList{"one(first)", "two(second)", "child.context"}));
    child.setName("name");
    QCOMPARE(log.take(), (QStringList{"child.name", "two(child)"}));
}

void tst_Document::inheritedReports()
{
    Log log;
    Context outer;
    outer.setObjectName("outer");
    log.watch(&outer);
    Named top("top");
    Named middle("middle");
    Named leaf("leaf");
    top.appendChild(&middle);
    middle.appendChild(&leaf);
    top.setContext(&outer);
    leaf.setTypes({"image"});
    QCOMPARE(log.take(), QStringList{"outer(leaf)"});
    middle.removeChild(&leaf);
    QCOMPARE(log.take(), QStringList{"outer(middle)"});
}

void tst_Document::queuedReport()
{
    Context context;
    Document document;
    document.setContext(&context);
    Receiver receiver;
    // By name, as a receiver that knows only the meta-objects connects.
    QVERIFY(connect(&context, SIGNAL(documentChanged(om::data::Document *)), &receiver,
                    SLOT(receive(om::data::Document *)), Qt::QueuedConnection));
    document.setName("a");
    QVERIFY(receiver.received.isEmpty());
    QTRY_COMPARE(receiver.received, Documents{&document});
}

void tst_Document::childrenAreLoadedOnce()
{
    Lazy parent;
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

    // A first change loads too: what is inserted comes after what was there.
    Lazy other;
    auto *there = new Document;
    other.make = [there] { return Documents{there}; };
    auto *added = new Document;
    other.appendChild(added);
    QCOMPARE(other.childDocuments(), (Documents{there, added}));
}

void tst_Document::childrenAreLoadedSilently()
{
    Log log;
    Context context;
    context.setObjectName("context");
    log.watch(&context);
    Lazy parent;
    log.watch(&parent);
    parent.setContext(&context);
    parent.make = [] { return Documents{new Document}; };
    log.take();
    QCOMPARE(parent.childDocuments().size(), 1);
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(parent.childDocuments().first()->context(), &context);
}

void tst_Document::loadedRefuseIsDropped()
{
    Lazy parent;
    Document elsewhere;
    auto *taken = new Document;
    elsewhere.appendChild(taken);
    auto *child = new Document;
    parent.make = [&] { return Documents{&parent, taken, child, child, nullptr}; };
    QCOMPARE(parent.childDocuments(), Documents{child});
    QCOMPARE(taken->parentDocument(), &elsewhere);
}

void tst_Document::neverLoadedForDestruction()
{
    int loads = 0;
    {
        Document top;
        auto *parent = new Lazy;
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

void tst_Document::reportOfASubclass()
{
    Log log;
    Context context;
    context.setObjectName("context");
    log.watch(&context);
    Lazy document;
    document.setObjectName("document");
    document.setContext(&context);
    document.setSize(3);
    QCOMPARE(log.take(), QStringList{"context(document)"});
}

void tst_Document::overriddenVirtuals()
{
    Context context;
    Foreign parent;
    parent.m_context = &context;
    const Document *document = &parent;
    QCOMPARE(document->documentId(), QString("foreign"));
    QCOMPARE(parent.property("documentId").toString(), QString("foreign"));
    QVERIFY(document->hasType("any"));
    QVERIFY(!document->hasType("other"));

    // Heirs ask the overridden function, and reports go by it.
    Document child;
    parent.appendChild(&child);
    QCOMPARE(child.context(), &context);
    QSignalSpy changed(&context, &Context::documentChanged);
    child.setName("name");
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().first().value<Document *>(), &child);
}

void tst_Document::deletedInsideItsOwnSignal()
{
    Context context;
    QSignalSpy reports(&context, &Context::documentChanged);

    auto *renamed = new Document;
    renamed->setContext(&context);
    connect(renamed, &Document::nameChanged, renamed, [renamed] { delete renamed; });
    renamed->setName("name");
    QCOMPARE(reports.count(), 0);

    auto *parent = new Document;
    parent->setContext(&context);
    connect(parent, &Document::childrenChanged, parent, [parent] { delete parent; });
    QPointer<Document> child = new Document;
    parent->appendChild(child);
    QVERIFY(!child);
    QCOMPARE(reports.count(), 0);

    // The old parent goes, and the new one with it.
    auto *first = new Document;
    auto *second = new Document;
    auto *moved = new Document;
    first->appendChild(moved);
    connect(first, &Document::childrenChanged, first, [first, second] {
        delete second;
        delete first;
    });
    second->appendChild(moved);
}

QTEST_GUILESS_MAIN(tst_Document)

#include "tst_document.moc"
