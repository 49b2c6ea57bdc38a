// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Gesture.h"
#include "tests/support/Leftovers.h"
#include "tests/support/QmlView.h"
#include "tests/support/Text.h"

#include <QDrag>
#include <QTest>

using support::positionIn;
using support::text;

/// Both sources begin with the same press; Qt runs the drag of the one and refuses that of the
/// other.
class TestNestedSources : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(support::leftovers(), QString()); }
    void refusedDragLeavesNothing_data();
    void refusedDragLeavesNothing();
};

void TestNestedSources::refusedDragLeavesNothing_data()
{
    QTest::addColumn<QString>("outer");
    QTest::newRow("zone in a zone") << text("zone");
    QTest::newRow("zone in an area") << text("area");
    QTest::newRow("zone in a draggable") << text("draggable");
}

void TestNestedSources::refusedDragLeavesNothing()
{
    QFETCH(QString, outer);
    support::QmlView view;
    view.loadFile(text("data/nestedsources.qml"));
    view.root()->setProperty("outer", outer);
    view.show();
    const QObject *const any = view.find(text("any"));
    for (int drops = 1; drops <= 2; ++drops) {
        QTest::ignoreMessage(QtWarningMsg, "QDragManager::drag in possibly invalid state");
        support::Gesture gesture;
        gesture
            .drag(
                positionIn(view.item("row")), positionIn(view.item("any")),
                [any] { return any->property("containsDrag").toBool(); }, "the drag")
            .release();
        QVERIFY2(gesture.run(), gesture.error());
        QTRY_COMPARE(view.root()->property("drops").toInt(), drops);
        for (const char *source : {"outer", "inner"}) {
            const QObject *const item = view.find(text(source));
            QTRY_VERIFY2(item->findChildren<QDrag *>().isEmpty(), source);
            QVERIFY2(!item->property("dragActive").toBool(), source);
            QVERIFY2(!item->property("isDragged").toBool(), source);
        }
    }
}

QTEST_MAIN(TestNestedSources)
#include "tst_nestedsources.moc"
