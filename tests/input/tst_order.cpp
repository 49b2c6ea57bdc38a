// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Leftovers.h"
#include "tests/support/ObjectCensus.h"
#include "tests/support/QmlView.h"
#include "tests/support/SignalRecorder.h"
#include "tests/support/Text.h"

#include <QTest>

using support::text;

/// The order in which the input helpers do what they do, with what holds in between.
class TestInputOrder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void editingBeginsAndEnds();
    void keysAreToldBeforeTheyArrive();
    void pressBesideEndsEditingBeforeItArrives();
    void areaIsHovered();

private:
    std::unique_ptr<support::QmlView> m_view;
    QQuickItem *m_editor = nullptr;
};

static QStringList lines(const char *latin1)
{
    return text(latin1).split(QStringLiteral(", "));
}

void TestInputOrder::init()
{
    m_view = std::make_unique<support::QmlView>();
    m_view->load("Item { width: 200; height: 100\n"
                 "    PropertyEditor { objectName: 'editor'; width: 80; height: 80\n"
                 "        TextEdit { objectName: 'field'; focus: true; text: 'abc' } }\n"
                 "    MouseArea { objectName: 'beside'; x: 100; width: 80; height: 80 }\n"
                 "    HoverArea { objectName: 'area'; x: 100; width: 80; height: 80 } }");
    m_view->show();
    m_editor = m_view->item<>("editor");
}

void TestInputOrder::cleanup()
{
    m_view.reset();
    QCOMPARE(support::leftovers(), QString());
}

/// The window is watched for as long as editing is told to go on.
void TestInputOrder::editingBeginsAndEnds()
{
    support::SignalRecorder recorder;
    recorder.watch(m_editor, QStringLiteral("editor"),
                   lines("beginEdit, endEdit, activeFocusChanged"));
    recorder.follow(m_editor, QStringLiteral("editor"), lines("activeFocus"));
    recorder.follow(QStringLiteral("filters"), [] { return support::eventFilters().size(); });
    m_editor->forceActiveFocus();
    QCOMPARE(recorder.take(),
             lines("editor.activeFocus = true, filters = 1, editor.beginEdit, "
                   "editor.activeFocusChanged"));
    m_editor->setFocus(false);
    QCOMPARE(recorder.take(),
             lines("editor.activeFocus = false, filters = 0, editor.endEdit, "
                   "editor.activeFocusChanged"));
}

void TestInputOrder::keysAreToldBeforeTheyArrive()
{
    m_editor->forceActiveFocus();
    auto *const field = m_view->item<>("field");
    support::SignalRecorder recorder;
    recorder.watch(m_editor, QStringLiteral("editor"), lines("spacePressed, enterPressed"));
    recorder.watch(field, QStringLiteral("field"), lines("textChanged"));
    QTest::keyClick(m_view->window(), Qt::Key_Space);
    QTest::keyClick(m_view->window(), Qt::Key_Return);
    QCOMPARE(recorder.take(),
             lines("editor.spacePressed, field.textChanged, editor.enterPressed, "
                   "field.textChanged"));
}

void TestInputOrder::pressBesideEndsEditingBeforeItArrives()
{
    m_editor->forceActiveFocus();
    support::SignalRecorder recorder;
    recorder.watch(m_editor, QStringLiteral("editor"), lines("endEdit, activeFocusChanged"));
    recorder.follow(QStringLiteral("filters"), [] { return support::eventFilters().size(); });
    recorder.watch(m_view->item<>("beside"), QStringLiteral("beside"), lines("pressedChanged"));
    QTest::mousePress(m_view->window(), Qt::LeftButton, {}, {140, 40});
    QCOMPARE(recorder.take(),
             lines("filters = 0, editor.endEdit, editor.activeFocusChanged, "
                   "beside.pressedChanged"));
    QTest::mouseRelease(m_view->window(), Qt::LeftButton, {}, {140, 40});
}

void TestInputOrder::areaIsHovered()
{
    auto *const area = m_view->item<>("area");
    support::SignalRecorder recorder;
    recorder.watch(area, QStringLiteral("area"), lines("hoveredChanged"));
    recorder.follow(area, QStringLiteral("area"), lines("hovered"));
    // Not where the last test has left it.
    QTest::mouseMove(m_view->window(), {90, 90});
    QTest::mouseMove(m_view->window(), {140, 40});
    QTest::mouseMove(m_view->window(), {95, 40});
    QCOMPARE(recorder.take(),
             lines("area.hovered = true, area.hoveredChanged, area.hovered = false, "
                   "area.hoveredChanged"));
}

QTEST_MAIN(TestInputOrder)
#include "tst_order.moc"
