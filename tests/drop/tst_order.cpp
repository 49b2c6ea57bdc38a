// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/DragEvents.h"
#include "tests/support/Leftovers.h"
#include "tests/support/QmlView.h"
#include "tests/support/SignalRecorder.h"
#include "tests/support/Text.h"

#include <QQmlListReference>
#include <QTest>
#include <QUrl>

using support::text;

/// The order in which a drop zone does what it does, with what the drag's record holds in between.
class TestDropOrder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void entersMovesAndLeaves();
    void drops();
    void isClearedDuringADrag();

private:
    std::unique_ptr<support::QmlView> m_view;
    std::unique_ptr<support::SignalRecorder> m_recorder;
    std::unique_ptr<support::DragEvents> m_drag;
};

static QStringList lines(const char *latin1)
{
    return text(latin1).split(QStringLiteral("; "));
}

void TestDropOrder::init()
{
    m_view = std::make_unique<support::QmlView>();
    m_view->load("DropZone { width: 100; height: 100\n"
                 "    FileDropHandler { objectName: 'first' }\n"
                 "    FileDropHandler { objectName: 'second' } }");
    QObject *const zone = m_view->root();
    QObject *record = nullptr;
    for (QObject *child : zone->children()) {
        record = child->inherits("om::controls::DropData") ? child : record;
    }
    QVERIFY(record);
    m_recorder = std::make_unique<support::SignalRecorder>();
    m_recorder->watch(zone, QStringLiteral("zone"),
                      lines("containsDragChanged; dropHandlersChanged"));
    m_recorder->follow(zone, QStringLiteral("zone"), lines("containsDrag"));
    const QQmlListReference handlers(zone, "dropHandlers", m_view->engine());
    for (int i = 0; i < handlers.count(); ++i) {
        m_recorder->watch(handlers.at(i), handlers.at(i)->objectName());
    }
    m_recorder->follow(record, QStringLiteral("drag"), lines("position"));
    m_recorder->follow(QStringLiteral("urls"),
                       [record] { return record->property("data").value<QList<QUrl>>().size(); });
    m_drag = std::make_unique<support::DragEvents>(zone);
    m_drag->setUrls({QUrl(QStringLiteral("file:///a"))});
}

void TestDropOrder::cleanup()
{
    m_drag.reset();
    m_recorder.reset();
    m_view.reset();
    QCOMPARE(support::leftovers(), QString());
}

/// That the zone has a drag is told before the drag's record is filled, and while it leaves the
/// zone has it still.
void TestDropOrder::entersMovesAndLeaves()
{
    m_drag->enter({10, 10});
    QCOMPARE(m_recorder->take(),
             lines("zone.containsDrag = true; zone.containsDragChanged; drag.position = (10, 10); "
                   "urls = 1; first.entered"));
    m_drag->move({20, 30});
    QCOMPARE(m_recorder->take(), lines("drag.position = (20, 30); first.positionChanged"));
    m_drag->leave();
    QCOMPARE(m_recorder->take(),
             lines("drag.position = (0, 0); first.exited; zone.containsDrag = false; "
                   "zone.containsDragChanged"));
}

void TestDropOrder::drops()
{
    m_drag->enter({10, 10});
    m_recorder->take();
    m_drag->drop({12, 14});
    QCOMPARE(m_recorder->take(),
             lines("drag.position = (12, 14); first.dropped; zone.containsDrag = false; "
                   "zone.containsDragChanged"));
    // Emitted although there was no drag.
    m_drag->drop({15, 16});
    QCOMPARE(m_recorder->take(), lines("zone.containsDragChanged"));
}

/// Clearing the list during a drag emits no exited() and no containsDragChanged().
void TestDropOrder::isClearedDuringADrag()
{
    m_drag->enter({10, 10});
    m_recorder->take();
    QTest::ignoreMessage(QtWarningMsg, "Drop handlers changed during drag operation");
    QQmlListReference(m_view->root(), "dropHandlers", m_view->engine()).clear();
    QCOMPARE(m_recorder->take(), lines("zone.containsDrag = false; zone.dropHandlersChanged"));
}

QTEST_MAIN(TestDropOrder)
#include "tst_order.moc"
