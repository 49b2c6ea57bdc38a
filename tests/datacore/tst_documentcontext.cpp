// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/datacore/DocumentLog.h"
#include "tests/support/Leftovers.h"

#include <OmbrelDataCore/Context.h>
#include <OmbrelDataCore/Document.h>

#include <QSignalSpy>
#include <QTest>

using om::data::Context;
using om::data::Document;

using Documents = QList<Document *>;

namespace {

class Receiver : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void receive(om::data::Document *document) { received.append(document); }

public:
    Documents received;
};

} // namespace

/// The context that a document is in: its own or an inherited one, and what it reports.
class TestDocumentContext : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(support::leftovers(), QString()); }
    void ownContextBeforeInherited();
    void contextSurvivesItsDeletion();
    void contextSignalReachesOnlyWhatInheritsIt();
    void contextIsToldOfChanges();
    void movedBetweenContexts();
    void inheritedContextIsToldOfChanges();
    void documentChangedArrivesQueued();
    void contextGoesInDestroyed();
};

void TestDocumentContext::ownContextBeforeInherited()
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

void TestDocumentContext::contextSurvivesItsDeletion()
{
    DocumentLog log;
    Context outer;
    auto *inner = new Context;
    NamedDocument parent("parent", &log);
    NamedDocument child("child", &log);
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

    // The end of a context that the document has left changes nothing.
    auto *left = new Context;
    parent.setContext(left);
    parent.setContext(nullptr);
    log.take();
    delete left;
    QCOMPARE(log.take(), QStringList());
}

void TestDocumentContext::contextSignalReachesOnlyWhatInheritsIt()
{
    DocumentLog log;
    Context one;
    Context two;
    NamedDocument top("top", &log);
    NamedDocument heir("heir", &log);
    NamedDocument own("own", &log);
    NamedDocument below("below", &log);
    top.appendChild(&heir);
    top.appendChild(&own);
    own.appendChild(&below);
    own.setContext(&two);
    log.take();

    top.setContext(&one);
    QCOMPARE(log.take(), (QStringList{"top.context", "heir.context"}));
    top.setContext(&one);
    QCOMPARE(log.take(), QStringList());
    // Setting the inherited context as its own leaves context() as it was: no signal.
    heir.setContext(&one);
    QCOMPARE(log.take(), QStringList());
    top.setContext(nullptr);
    QCOMPARE(log.take(), QStringList{"top.context"});
}

void TestDocumentContext::contextIsToldOfChanges()
{
    DocumentLog log;
    Context context;
    context.setObjectName("context");
    log.watch(&context);
    NamedDocument parent("parent");
    NamedDocument child("child");

    // Entering and leaving a context is no change of the document.
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

void TestDocumentContext::movedBetweenContexts()
{
    DocumentLog log;
    Context one;
    Context two;
    one.setObjectName("one");
    two.setObjectName("two");
    log.watch(&one);
    log.watch(&two);
    NamedDocument first("first");
    NamedDocument second("second");
    NamedDocument child("child");
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

void TestDocumentContext::inheritedContextIsToldOfChanges()
{
    DocumentLog log;
    Context outer;
    outer.setObjectName("outer");
    log.watch(&outer);
    NamedDocument top("top");
    NamedDocument middle("middle");
    NamedDocument leaf("leaf");
    top.appendChild(&middle);
    middle.appendChild(&leaf);
    top.setContext(&outer);
    leaf.setTypes({"image"});
    QCOMPARE(log.take(), QStringList{"outer(leaf)"});
    middle.removeChild(&leaf);
    QCOMPARE(log.take(), QStringList{"outer(middle)"});
}

void TestDocumentContext::documentChangedArrivesQueued()
{
    Context context;
    Document document;
    document.setContext(&context);
    Receiver receiver;
    // Connected by name, so that the argument's type has to be registered.
    QVERIFY(connect(&context, SIGNAL(documentChanged(om::data::Document *)), &receiver,
                    SLOT(receive(om::data::Document *)), Qt::QueuedConnection));
    document.setName("a");
    QVERIFY(receiver.received.isEmpty());
    QTRY_COMPARE(receiver.received, Documents{&document});
}

void TestDocumentContext::contextGoesInDestroyed()
{
    auto *const context = new Context;
    auto *const document = new Document;
    document->setContext(context);
    QSignalSpy changes(document, &Document::contextChanged);
    bool destroyed = false;
    connect(document, &QObject::destroyed, context, [context, &destroyed] {
        delete context;
        destroyed = true;
    });
    delete document;
    QVERIFY(destroyed);
    QCOMPARE(changes.size(), 0);
}

QTEST_GUILESS_MAIN(TestDocumentContext)

#include "tst_documentcontext.moc"
