// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/datacore/DocumentLog.h"
#include "tests/support/Leftovers.h"

#include <OmbrelDataCore/Context.h>
#include <OmbrelDataCore/Document.h>

#include <QPointer>
#include <QQmlListReference>
#include <QSignalSpy>
#include <QTest>

using om::data::Context;
using om::data::Document;

namespace {

/// A subclass with a property of its own, whose changes it reports to its context.
class SizedDocument : public Document
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

Q_SIGNALS:
    void sizeChanged();

private:
    int m_size = 0;
};

/// A subclass that overrides what the data core asks a document.
class OverridingDocument : public Document
{
    Q_OBJECT

public:
    QString documentId() const override { return QStringLiteral("foreign"); }
    bool hasType(const QString &type) const override { return type == QLatin1String("any"); }
    Context *context() const override { return m_context; }

    Context *m_context = nullptr;
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

/// The properties of a document, what a subclass overrides, and its end inside its own signals.
class TestDocument : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(support::leftovers(), QString()); }
    void defaults();
    void documentIdIsNullUntilSet();
    void propertyRows_data();
    void propertyRows();
    void hasType_data();
    void hasType();
    void listElementTypeIsKnownWithoutAnEngine();
    void subclassTellsTheContext();
    void overriddenVirtuals();
    void deletedInsideItsOwnSignal();
};

void TestDocument::defaults()
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

void TestDocument::documentIdIsNullUntilSet()
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

void TestDocument::propertyRows_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("value");

    QTest::newRow("documentId") << QByteArray("documentId") << QVariant("42");
    QTest::newRow("name") << QByteArray("name") << QVariant("Holiday");
    QTest::newRow("types") << QByteArray("types") << QVariant(QStringList{"image", "photo"});
    QTest::newRow("url") << QByteArray("url") << QVariant(QUrl("file:///a.png"));
}

void TestDocument::propertyRows()
{
    QFETCH(QByteArray, property);
    QFETCH(QVariant, value);

    DocumentLog log;
    Context context;
    context.setObjectName("context");
    log.watch(&context);
    NamedDocument document("document", &log);
    document.setContext(&context);
    QCOMPARE(log.take(), QStringList{"document.context"});

    // The context is told after the document's own signal.
    QVERIFY(document.setProperty(property, value));
    QCOMPARE(document.property(property), value);
    const QStringList once{"document." + property, "context(document)"};
    QCOMPARE(log.take(), once);

    QVERIFY(document.setProperty(property, value));
    QCOMPARE(log.take(), QStringList());

    QVERIFY(document.setProperty(property, QVariant(value.userType(), nullptr)));
    QCOMPARE(log.take(), once);
}

void TestDocument::hasType_data()
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

void TestDocument::hasType()
{
    QFETCH(QStringList, types);
    QFETCH(QString, type);
    QFETCH(bool, expected);
    Document document;
    document.setTypes(types);
    QCOMPARE(document.hasType(type), expected);
}

void TestDocument::listElementTypeIsKnownWithoutAnEngine()
{
    ListOwner owner;
    Document document;
    QQmlListReference list(&owner, "documents");
    QVERIFY(list.isValid());
    QCOMPARE(list.listElementType(), &Document::staticMetaObject);
    QVERIFY(list.append(&document));
    QCOMPARE(list.at(0), &document);
}

void TestDocument::subclassTellsTheContext()
{
    DocumentLog log;
    Context context;
    context.setObjectName("context");
    log.watch(&context);
    SizedDocument document;
    document.setObjectName("document");
    document.setContext(&context);
    document.setSize(3);
    QCOMPARE(log.take(), QStringList{"context(document)"});
}

void TestDocument::overriddenVirtuals()
{
    Context context;
    OverridingDocument parent;
    parent.m_context = &context;
    const Document *document = &parent;
    QCOMPARE(document->documentId(), QString("foreign"));
    QCOMPARE(parent.property("documentId").toString(), QString("foreign"));
    QVERIFY(document->hasType("any"));
    QVERIFY(!document->hasType("other"));

    // Children inherit the answer of the overridden context(), and tell that context.
    Document child;
    parent.appendChild(&child);
    QCOMPARE(child.context(), &context);
    QSignalSpy changed(&context, &Context::documentChanged);
    child.setName("name");
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().first().value<Document *>(), &child);
}

void TestDocument::deletedInsideItsOwnSignal()
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

    // A handler deletes the old parent and the new one.
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

QTEST_GUILESS_MAIN(TestDocument)

#include "tst_document.moc"
