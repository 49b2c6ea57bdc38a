// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Leftovers.h"
#include "tests/support/QmlView.h"

#include <OmbrelDataCore/Context.h>
#include <OmbrelDataCore/Document.h>

#include <QPointer>
#include <QQmlContext>
#include <QTest>

using namespace support;

/// An object goes while calls to it are queued, and what goes with it turns the event loop: the
/// calls find nobody.
class TestQueuedCalls : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void arriveNowhere_data();
    void arriveNowhere();
    void framesArriveNowhere_data();
    void framesArriveNowhere();

private:
    void make(const QByteArray &document);
    void destroyInATurn();

    om::data::Context m_context;
    om::data::Document m_document;
    QScopedPointer<QmlView> m_view;
    QScopedPointer<QQuickWindow> m_other;
    QPointer<QObject> m_object;
    int m_turns = 0;
};

void TestQueuedCalls::init()
{
    m_turns = 0;
    m_document.setContext(&m_context);
    m_view.reset(new QmlView);
    m_view->engine()->rootContext()->setContextProperty(QStringLiteral("listed"), &m_document);
    m_view->load("Item { id: root; width: 200; height: 200 }");
    m_view->show();
    m_other.reset(new QQuickWindow);
}

void TestQueuedCalls::cleanup()
{
    m_other.reset();
    m_view.reset();
    QCOMPARE(leftovers(), QString());
}

/// Destroys the object; from within its destructor, the loop is turned when an item leaves it, and
/// again when an object goes with it.
void TestQueuedCalls::destroyInATurn()
{
    const auto turn = [this] {
        m_view->window()->update();
        QTest::qWait(60);
        ++m_turns;
    };
    int turns = 1;
    if (auto *const item = qobject_cast<QQuickItem *>(m_object)) {
        auto *const guest = new QQuickItem(item);
        guest->setParent(m_view->window());
        connect(guest, &QQuickItem::parentChanged, guest, turn);
        ++turns;
    }
    connect(new QObject(m_object), &QObject::destroyed, this, turn);
    delete m_object;
    QCOMPARE(m_turns, turns);
}

/// Makes the object of \a document in the item of the view.
void TestQueuedCalls::make(const QByteArray &document)
{
    const QString text = QStringLiteral("import QtQuick 2.12; import ombrel.Controls 1.0; ")
        + QString::fromUtf8(document);
    m_object =
        evaluate(m_view->root(), QStringLiteral("Qt.createQmlObject(\"%1\", root)").arg(text))
            .value<QObject *>();
    QVERIFY(m_object);
    if (auto *const item = qobject_cast<QQuickItem *>(m_object)) {
        item->setSize({100, 100});
    }
}

void TestQueuedCalls::arriveNowhere_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("call");

    QTest::newRow("DialogItem") << QByteArray("DialogItem {}") << "move";
    QTest::newRow("DragArea") << QByteArray("DragArea {}") << "move";
    QTest::newRow("DragZone") << QByteArray("DragZone {}") << "move";
    QTest::newRow("Draggable") << QByteArray("Draggable {}") << "move";
    QTest::newRow("Frame") << QByteArray("Frame {}") << "move";
    QTest::newRow("HoverArea") << QByteArray("HoverArea {}") << "move";
    QTest::newRow("HoverArea, by its end") << QByteArray("HoverArea {}") << "";
    QTest::newRow("PopupAnchorItem")
        << QByteArray("PopupAnchorItem { popup: Component { Item { width: 20; height: 20 } } }")
        << "take out";
    QTest::newRow("TreeView, other roots")
        << QByteArray("TreeView { delegate: Component { Text { text: 'row' } } }") << "list";
    QTest::newRow("TreeView, a document")
        << QByteArray("TreeView { delegate: Component { Text { text: 'row' } } "
                      "rootDocuments: [listed] }")
        << "rename";
}

void TestQueuedCalls::arriveNowhere()
{
    QFETCH(const QByteArray, document);
    QFETCH(const QString, call);
    make(document);
    auto *const item = qobject_cast<QQuickItem *>(m_object);
    QTest::mouseMove(m_view->window(), {50, 50});
    if (document.startsWith("PopupAnchorItem")) {
        evaluate(item, QStringLiteral("show()"));
    }
    QTest::qWait(50);

    if (call == QLatin1String("move")) {
        item->setParentItem(m_other->contentItem());
    } else if (call == QLatin1String("take out")) {
        item->setParentItem(nullptr);
    } else if (call == QLatin1String("list")) {
        evaluate(item, QStringLiteral("rootDocuments = [listed]"));
    } else if (call == QLatin1String("rename")) {
        m_document.setName(QStringLiteral("renamed"));
    }
    destroyInATurn();
}

void TestQueuedCalls::framesArriveNowhere_data()
{
    QTest::addColumn<QByteArray>("document");

    QTest::newRow("Frame") << QByteArray("Frame {}");
    QTest::newRow("FpsCounter") << QByteArray("FpsCounter {}");
    QTest::newRow("Popup") << QByteArray("Popup { open: true; attachedItem: root }");
    QTest::newRow("PopupAnchorItem")
        << QByteArray("PopupAnchorItem { popup: Component { Item { width: 20; height: 20 } } "
                      "Component.onCompleted: show() }");
}

/// Under the threaded render loop each frame is a queued call: here behind the one in which the
/// object goes.
void TestQueuedCalls::framesArriveNowhere()
{
    QFETCH(const QByteArray, document);
    bool isTime = false;
    const auto destroy = [this, &isTime] {
        if (isTime) {
            isTime = false;
            destroyInATurn();
        }
    };
    const bool atTheEnd = document.startsWith("FpsCounter");
    connect(m_view->window(),
            atTheEnd ? &QQuickWindow::frameSwapped : &QQuickWindow::beforeSynchronizing, this,
            destroy);
    make(document);
    QTest::qWait(200);
    isTime = true;
    m_view->window()->update();
    QTRY_VERIFY(!m_object);
    QVERIFY(m_turns > 0);
}

QTEST_MAIN(TestQueuedCalls)
#include "tst_queuedcalls.moc"
