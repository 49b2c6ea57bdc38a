// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Leftovers.h"
#include "tests/threads/ControlItem.h"

#include <QQuickWindow>
#include <QTest>

namespace {

std::atomic<int> reports = 0;

} // namespace

/// The sanitizer's runtime calls this for each race that it has printed.
extern "C" __attribute__((visibility("default"))) void __tsan_on_report(void *)
{
    ++reports;
}

/// Races are asked for here, and no failure of the process.
extern "C" __attribute__((visibility("default"))) const char *__tsan_default_options()
{
    return "exitcode=0";
}

/// What the thread sanitizer sees of items of pure Qt, which is what it would see of ours: nothing
/// of a right one although Qt is not instrumented, and each mistake.
class TestInstrument : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void seesMistakesOnly_data();
    void seesMistakesOnly();
    void cleanup();
};

void TestInstrument::seesMistakesOnly_data()
{
    QTest::addColumn<int>("mistake");
    QTest::newRow("none") << int(ControlItem::None);
    QTest::newRow("the node draws from the item") << int(ControlItem::DrawsFromTheItem);
    QTest::newRow("the render thread counts with an int") << int(ControlItem::CountsWithAnInt);
    QTest::newRow("the render thread writes to the item") << int(ControlItem::WritesWhileDrawing);
}

void TestInstrument::seesMistakesOnly()
{
    QFETCH(int, mistake);
    reports = 0;
    {
        QQuickWindow first;
        QQuickWindow second;
        for (QQuickWindow *window : {&first, &second}) {
            window->resize(100, 100);
            window->show();
            QVERIFY(QTest::qWaitForWindowExposed(window));
        }
        auto *item = new ControlItem(ControlItem::Mistake(mistake), first.contentItem());
        for (int round = 0; item->drawn() >= 0 && item->frames() < 60; ++round) {
            item->setExtent(round % 10);
            // The item comes and goes, also between windows.
            if (round % 16 == 0) {
                item->setParentItem(round % 32 ? first.contentItem() : second.contentItem());
            }
            if (round % 50 == 0) {
                first.grabWindow();
            }
            QTest::qWait(1);
        }
        first.hide();
        delete item;
    }
    if (mistake == ControlItem::None) {
        QCOMPARE(int(reports), 0);
    } else if (qEnvironmentVariable("QSG_RENDER_LOOP") == QLatin1String("threaded")) {
        QVERIFY2(reports > 0, "a race that is there was not seen");
    } else {
        QVERIFY2(reports == 0, "there is only one thread");
    }
}

void TestInstrument::cleanup()
{
    QCOMPARE(support::leftovers(), QString());
}

QTEST_MAIN(TestInstrument)
#include "tst_instrument.moc"
