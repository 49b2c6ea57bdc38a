// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/drag/DocumentDragTest.h"

#include "tests/support/Text.h"

#include <QFile>
#include <QTest>

using support::positionIn;
using support::text;

void DocumentDragTest::sources()
{
    QTest::addColumn<QByteArray>("type");
    QTest::newRow("DragArea") << QByteArray("DragArea");
    QTest::newRow("DragZone") << QByteArray("DragZone");
}

QByteArray DocumentDragTest::typeName()
{
    const QByteArray function = QTest::currentTestFunction();
    if (function == "handlerRefusesAnArea") {
        return "DragArea";
    }
    return QByteArray(QTest::currentDataTag()).startsWith("DragArea") ? "DragArea" : "DragZone";
}

void DocumentDragTest::loadScene()
{
    QFile scene(QFINDTESTDATA("data/documents.qml"));
    QVERIFY(scene.open(QIODevice::ReadOnly));
    QByteArray qml = scene.readAll();
    if (typeName() == "DragArea") {
        qml.replace("DragZone.dragZone", "DragArea.area");
        qml.replace("DragZone", "DragArea");
    }
    m_view = std::make_unique<support::QmlView>();
    m_view->load(qml);
    // An empty text in QML arrives as a null one.
    m_view->find(text("b"))->setProperty("documentId", QString::fromLatin1(""));
    m_view->show();
    m_watch = std::make_unique<support::DragWatch>(m_view->window(),
                                                   text("application/x-lumetra-documents"));
}

void DocumentDragTest::closeScene()
{
    m_watch.reset();
    m_view.reset();
}

QObject *DocumentDragTest::source() const
{
    return m_view->find(text("source"));
}

QQuickItem *DocumentDragTest::visual() const
{
    const auto children = m_view->window()->contentItem()->childItems();
    for (QQuickItem *child : children) {
        if (child->objectName() == text("visual")) {
            return child;
        }
    }
    return nullptr;
}

bool DocumentDragTest::isActive() const
{
    return source()->property("dragActive").toBool();
}

QPoint DocumentDragTest::row() const
{
    return positionIn(m_view->item("row"));
}

support::Gesture &DocumentDragTest::dragOver(support::Gesture &gesture, const QPoint &over)
{
    const QPoint from = row();
    return gesture.drag(
        from, over, [this] { return m_watch->moves > 0; }, "the window to see the drag");
}

void DocumentDragTest::nextDragWorks()
{
    QTRY_VERIFY(!visual());
    m_watch->moves = 0;
    const int drops = m_view->root()->property("drops").toInt();
    const QPoint from = positionIn(m_view->item("other"));
    const QPoint over = positionIn(m_view->item("any"));
    support::Gesture gesture;
    gesture
        .drag(
            from, over,
            [this] { return m_view->find(text("any"))->property("containsDrag").toBool(); },
            "the next drag")
        .release();
    QVERIFY2(gesture.run(), gesture.error());
    QTRY_COMPARE(m_view->root()->property("drops").toInt(), drops + 1);
    QTRY_VERIFY(!isActive());
    QTRY_VERIFY(!visual());
}
