// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drag/DocumentDropHandler.h"
#include "controls/drag/DragArea.h"
#include "controls/drag/DragZone.h"
#include "tests/drag/HookedDocument.h"
#include "tests/support/Leftovers.h"

#include <QMimeData>
#include <QPointer>
#include <QQmlEngine>
#include <QTest>

#include <memory>

using namespace om::controls;
using om::data::Document;

/// Which drags the handler of documents takes, and what the application's own hasType() may do
/// while it is asked.
class TestDocumentDropHandler : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qmlRegisterType<Document>("test", 1, 0, "Document"); }
    void init();
    void cleanup();

    void takesOneDocumentOfTheType();
    void takesZonesOnly();
    void handlerDestroyedWhileItAsks_data() { answers(); }
    void handlerDestroyedWhileItAsks();
    void zoneDestroyedWhileItIsAsked_data() { answers(); }
    void zoneDestroyedWhileItIsAsked();
    void documentDestroyedWhileItIsAsked_data() { answers(); }
    void documentDestroyedWhileItIsAsked();
    void otherDocumentDestroyedWhileOneIsAsked();
    void documentsClearedWhileOneIsAsked();
    void documentsAddedByEachThatIsAsked();
    void typeChangedWhileOneIsAsked();

private:
    static void answers();

    QMimeData m_mimeData;
    std::unique_ptr<DragZone> m_zone;
    std::unique_ptr<DocumentDropHandler> m_handler;
    std::unique_ptr<HookedDocument> m_first;
    std::unique_ptr<HookedDocument> m_second;
};

void TestDocumentDropHandler::answers()
{
    QTest::addColumn<bool>("has");
    QTest::newRow("which has the type") << true;
    QTest::newRow("which has not") << false;
}

void TestDocumentDropHandler::init()
{
    m_mimeData.setData(QStringLiteral("application/x-lumetra-documents"), "");
    m_first = std::make_unique<HookedDocument>("first");
    m_second = std::make_unique<HookedDocument>("second");
    m_zone = std::make_unique<DragZone>();
    m_zone->setDragDocuments({m_first.get(), m_second.get()});
    m_handler = std::make_unique<DocumentDropHandler>();
    m_handler->setType(QStringLiteral("image"));
    m_handler->setDragSource(m_zone.get());
}

void TestDocumentDropHandler::cleanup()
{
    m_handler.reset();
    m_zone.reset();
    m_first.reset();
    m_second.reset();
    QCOMPARE(support::leftovers(), QString());
}

void TestDocumentDropHandler::takesOneDocumentOfTheType()
{
    QVERIFY(!m_handler->canHandle(&m_mimeData));
    m_second->setTypes({QStringLiteral("text"), QStringLiteral("image")});
    QVERIFY(m_handler->canHandle(&m_mimeData));
    QVERIFY(!m_handler->dropData(&m_mimeData).isValid());
    QMimeData other;
    QVERIFY(!m_handler->canHandle(&other));
}

void TestDocumentDropHandler::takesZonesOnly()
{
    m_second->setTypes({QStringLiteral("image")});
    DragArea area;
    area.setDragDocuments({m_second.get()});
    m_handler->setDragSource(&area);
    QVERIFY(!m_handler->canHandle(&m_mimeData));
    m_handler->setDragSource(nullptr);
    QVERIFY(!m_handler->canHandle(&m_mimeData));
}

void TestDocumentDropHandler::handlerDestroyedWhileItAsks()
{
    QFETCH(bool, has);
    if (has) {
        m_first->setTypes({QStringLiteral("image")});
    }
    m_first->whenAskedForType = [this] { m_handler.reset(); };
    int asked = 0;
    m_second->whenAskedForType = [&asked] { ++asked; };
    DocumentDropHandler *const handler = m_handler.get();
    QCOMPARE(handler->canHandle(&m_mimeData), has);
    QVERIFY(!m_handler);
    QCOMPARE(asked, has ? 0 : 1);
}

void TestDocumentDropHandler::zoneDestroyedWhileItIsAsked()
{
    QFETCH(bool, has);
    if (has) {
        m_first->setTypes({QStringLiteral("image")});
    }
    m_first->whenAskedForType = [this] { m_zone.reset(); };
    QCOMPARE(m_handler->canHandle(&m_mimeData), has);
    QVERIFY(!m_zone);
}

void TestDocumentDropHandler::documentDestroyedWhileItIsAsked()
{
    QFETCH(bool, has);
    if (has) {
        m_first->setTypes({QStringLiteral("image")});
    }
    m_first->whenAskedForType = [this] { m_first.reset(); };
    QCOMPARE(m_handler->canHandle(&m_mimeData), has);
}

void TestDocumentDropHandler::otherDocumentDestroyedWhileOneIsAsked()
{
    m_first->whenAskedForType = [this] { m_second.reset(); };
    QVERIFY(!m_handler->canHandle(&m_mimeData));
}

void TestDocumentDropHandler::documentsClearedWhileOneIsAsked()
{
    m_second->setTypes({QStringLiteral("image")});
    m_first->whenAskedForType = [this] { m_zone->setDragDocuments({}); };
    QVERIFY(!m_handler->canHandle(&m_mimeData));
}

void TestDocumentDropHandler::documentsAddedByEachThatIsAsked()
{
    // A walk without a fixed end would follow the growing list without end.
    const auto addAnother = [this] {
        auto list = m_zone->dragDocuments();
        QVERIFY2(list.count(&list) < 1000, "the walk does not end");
        list.append(&list, m_first.get());
    };
    m_first->whenAskedForType = addAnother;
    m_second->whenAskedForType = addAnother;
    QVERIFY(!m_handler->canHandle(&m_mimeData));
    auto list = m_zone->dragDocuments();
    QCOMPARE(list.count(&list), 4);
}

void TestDocumentDropHandler::typeChangedWhileOneIsAsked()
{
    // Documents are compared with the type that the handler had at the beginning of the call.
    m_second->setTypes({QStringLiteral("image")});
    m_first->whenAskedForType = [this] { m_handler->setType(QStringLiteral("text")); };
    QVERIFY(m_handler->canHandle(&m_mimeData));
}

QTEST_MAIN(TestDocumentDropHandler)
#include "tst_documentdrophandler.moc"
