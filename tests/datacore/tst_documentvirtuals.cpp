// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Leftovers.h"

#include <OmbrelDataCore/Context.h>
#include <OmbrelDataCore/Document.h>

#include <QDir>
#include <QPointer>
#include <QQmlListReference>
#include <QRegularExpression>
#include <QTest>

#include <functional>
#include <memory>
#include <vector>

using om::data::Context;
using om::data::Document;

/// The functions that a subclass of Document implements are the application's code, which the data
/// core calls in the midst of its own: there, any of the documents and the context may be
/// destroyed, and the same may be done once more. The sanitizers see what is touched afterwards.
class TestDocumentVirtuals : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void survives_data();
    void survives();
    void everyVirtualIsAsked();
    void cleanup();

private:
    QStringList m_asked;
};

namespace {

/// Calls \a hook each time that it is asked, and says what for.
class AskedDocument : public Document
{
public:
    using Hook = std::function<void(const AskedDocument *document, const char *function)>;

    explicit AskedDocument(Hook &hook)
        : m_hook(hook)
    {
    }

    QString documentId() const override
    {
        const QString id = Document::documentId();
        tell("documentId");
        return id;
    }
    Context *context() const override
    {
        // The parent document is asked for its own first, and may destroy this one.
        const QPointer<const AskedDocument> alive(this);
        const QPointer<Context> context = Document::context();
        if (alive) {
            tell("context");
        }
        return context;
    }
    bool hasType(const QString &type) const override
    {
        const bool has = Document::hasType(type);
        tell("hasType");
        return has;
    }

protected:
    QList<Document *> loadChildren() override
    {
        tell("loadChildren");
        return {};
    }

private:
    void tell(const char *function) const
    {
        if (m_hook) {
            const Hook copy = m_hook;
            copy(this, function);
        }
    }

    Hook &m_hook;
};

/// A document with children, in a context, and one elsewhere.
struct Scene
{
    AskedDocument::Hook hook;
    QPointer<Context> context = new Context;
    QPointer<Context> otherContext = new Context;
    QPointer<Document> parent = new AskedDocument(hook);
    QPointer<Document> document = new AskedDocument(hook);
    QPointer<Document> child = new AskedDocument(hook);
    QPointer<Document> other = new AskedDocument(hook);

    Scene()
    {
        parent->setContext(context);
        parent->appendChild(document);
        document->appendChild(child);
        other->setContext(otherContext);
    }
    ~Scene()
    {
        hook = nullptr;
        for (const QPointer<Document> &left : {parent, document, child, other}) {
            delete left;
        }
        delete context;
        delete otherContext;
    }
};

using Deed = std::function<void(Scene &)>;
using NamedDeeds = std::vector<std::pair<const char *, Deed>>;

/// What is done to the document of the scene, or with a new one that has not been asked yet.
const NamedDeeds &operations()
{
    static const NamedDeeds list = {
        {"setDocumentId", [](Scene &s) { s.document->setDocumentId(QStringLiteral("id")); }},
        {"setName", [](Scene &s) { s.document->setName(QStringLiteral("name")); }},
        {"setTypes", [](Scene &s) { s.document->setTypes({QStringLiteral("type")}); }},
        {"setUrl", [](Scene &s) { s.document->setUrl(QUrl(QStringLiteral("file:///a"))); }},
        {"setContext", [](Scene &s) { s.document->setContext(s.otherContext); }},
        {"setContext of the parent", [](Scene &s) { s.parent->setContext(s.otherContext); }},
        {"property", [](Scene &s) { s.document->property("documentId"); }},
        {"hasType", [](Scene &s) { s.document->hasType(QStringLiteral("type")); }},
        {"childDocuments", [](Scene &s) { s.other->childDocuments(); }},
        {"insertChild", [](Scene &s) { s.document->insertChild(0, s.other); }},
        {"insertChild in one not asked yet", [](Scene &s) { s.other->insertChild(0, s.child); }},
        {"appendChild", [](Scene &s) { s.document->appendChild(s.other); }},
        {"appendChild to one not asked yet", [](Scene &s) { s.other->appendChild(s.child); }},
        {"removeChild", [](Scene &s) { s.document->removeChild(s.child); }},
        {"removeChild from one not asked yet", [](Scene &s) { s.other->removeChild(s.child); }},
        {"setChildDocuments", [](Scene &s) { s.document->setChildDocuments({s.other}); }},
        {"setChildDocuments of one not asked yet",
         [](Scene &s) {
             s.other->setChildDocuments({s.child, s.document});
         }},
        {"clear", [](Scene &s) { QQmlListReference(s.document, "children").clear(); }},
        {"clear one not asked yet",
         [](Scene &s) { QQmlListReference(s.other, "children").clear(); }},
        {"count", [](Scene &s) { QQmlListReference(s.other, "children").count(); }},
        {"at", [](Scene &s) { QQmlListReference(s.other, "children").at(0); }},
        {"append", [](Scene &s) { QQmlListReference(s.other, "children").append(s.child); }},
    };
    return list;
}

const NamedDeeds &abuses()
{
    static const NamedDeeds list = {
        {"the document is deleted", [](Scene &s) { delete s.document; }},
        {"its parent is deleted", [](Scene &s) { delete s.parent; }},
        {"its child is deleted", [](Scene &s) { delete s.child; }},
        {"the other document is deleted", [](Scene &s) { delete s.other; }},
        {"its context is deleted", [](Scene &s) { delete s.context; }},
        {"the other context is deleted", [](Scene &s) { delete s.otherContext; }},
        {"all are deleted",
         [](Scene &s) {
             delete s.child;
             delete s.document;
             delete s.parent;
             delete s.other;
             delete s.context;
             delete s.otherContext;
         }},
        {"the child is moved",
         [](Scene &s) {
             if (s.other && s.child) {
                 s.other->appendChild(s.child);
             }
         }},
        {"its children are cleared",
         [](Scene &s) {
             if (s.document) {
                 s.document->setChildDocuments({});
             }
         }},
    };
    return list;
}

} // namespace

void TestDocumentVirtuals::survives_data()
{
    QTest::addColumn<int>("operation");
    QTest::addColumn<int>("abuse");
    for (size_t i = 0; i < operations().size(); ++i) {
        for (size_t k = 0; k <= abuses().size(); ++k) {
            const char *const abuse =
                k < abuses().size() ? abuses().at(k).first : "the same is done again";
            QTest::addRow("%s, %s", operations().at(i).first, abuse) << int(i) << int(k);
        }
    }
}

/// The abuse comes in the first call of a virtual function; in the next run in the second, and so
/// on until there are no more.
void TestDocumentVirtuals::survives()
{
    QFETCH(int, operation);
    QFETCH(int, abuse);
    const Deed run = operations().at(size_t(operation)).second;
    const Deed again = [run](Scene &scene) {
        if (scene.document && scene.parent && scene.child && scene.other) {
            run(scene);
        }
    };
    const Deed deed = size_t(abuse) < abuses().size() ? abuses().at(size_t(abuse)).second : again;
    bool isReached = true;
    for (int call = 0; isReached && call < 20; ++call) {
        isReached = false;
        int count = 0;
        Scene scene;
        scene.hook = [&](const AskedDocument *, const char *function) {
            m_asked.append(QString::fromLatin1(function));
            if (count++ == call) {
                isReached = true;
                deed(scene);
            }
        };
        run(scene);
        scene.hook = nullptr;
    }
    QVERIFY2(!isReached, "the calls do not end");
}

/// A virtual function that is added is in, too, or it is missed here.
void TestDocumentVirtuals::everyVirtualIsAsked()
{
    const QDir folder(qEnvironmentVariable("OMBREL_SOURCE_DIR")
                      + QStringLiteral("/datacore/OmbrelDataCore"));
    static const QRegularExpression function(QStringLiteral("\\bvirtual [^;(]*?(\\w+)\\("));
    int found = 0;
    for (const QString &name : folder.entryList({QStringLiteral("*.h")})) {
        QFile header(folder.filePath(name));
        QVERIFY(header.open(QIODevice::ReadOnly));
        auto functions = function.globalMatch(QString::fromUtf8(header.readAll()));
        while (functions.hasNext()) {
            const QString asked = functions.next().captured(1);
            QVERIFY2(m_asked.contains(asked), qPrintable(asked));
            ++found;
        }
    }
    QVERIFY(found >= 4);
}

void TestDocumentVirtuals::cleanup()
{
    QCOMPARE(support::leftovers(), QString());
}

QTEST_MAIN(TestDocumentVirtuals)
#include "tst_documentvirtuals.moc"
