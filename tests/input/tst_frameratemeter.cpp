// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/input/FrameRateMeter.h"

#include <QTest>

using namespace om::controls;

namespace {

constexpr qint64 start = 1600000000000;

/// The rates that a meter shows after each second of frames at the times that \a timeOf gives.
template<typename Time>
QList<int> rates(int frames, Time timeOf)
{
    FrameRateMeter meter(start);
    QList<int> seen;
    for (int i = 1; i <= frames; ++i) {
        if (meter.addFrame(timeOf(i))) {
            seen.append(meter.framesPerSecond());
        }
    }
    return seen;
}

} // namespace

/// The arithmetic of the frame rate, with the times given by the test.
class TestFrameRateMeter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void steadyRates_data();
    void steadyRates();
    void zeroUntilTheRingIsFull();
    void computedOnceASecond();
    void framesCountedTwice();
    void allAtOneTime();
    void theClockIsSetBack();
    void stepBackAfterTheOldestFrameIsNotCounted();
    void fastestAndSlowest();
};

void TestFrameRateMeter::steadyRates_data()
{
    QTest::addColumn<double>("hertz");
    QTest::addColumn<QList<int>>("allowed");
    QTest::newRow("60 Hz: 983 or 984 ms") << 60.0 << QList<int>{60, 61};
    QTest::newRow("30 Hz") << 30.0 << QList<int>{30};
    QTest::newRow("50 Hz: 1180 ms") << 50.0 << QList<int>{50};
    QTest::newRow("125 Hz: 472 ms") << 125.0 << QList<int>{127};
    QTest::newRow("1 Hz") << 1.0 << QList<int>{1};
}

void TestFrameRateMeter::steadyRates()
{
    QFETCH(double, hertz);
    QFETCH(QList<int>, allowed);
    const QList<int> seen =
        rates(600, [hertz](int i) { return start + static_cast<qint64>(i * 1000.0 / hertz); });
    QVERIFY(!seen.isEmpty());
    for (int rate : seen) {
        QVERIFY2(allowed.contains(rate), qPrintable(QString::number(rate)));
    }
}

void TestFrameRateMeter::zeroUntilTheRingIsFull()
{
    FrameRateMeter meter(start);
    for (int i = 1; i < 60; ++i) {
        QVERIFY(!meter.addFrame(start + i * 1000));
        QCOMPARE(meter.framesPerSecond(), 0);
    }
    QVERIFY(meter.addFrame(start + 60 * 1000));
    // 60000 / 59000
    QCOMPARE(meter.framesPerSecond(), 1);
}

void TestFrameRateMeter::computedOnceASecond()
{
    FrameRateMeter meter(start);
    for (int i = 1; i <= 99; ++i) {
        QVERIFY(!meter.addFrame(start + i * 10));
    }
    // 999 ms is not yet a second; 1000 ms is.
    QVERIFY(!meter.addFrame(start + 999));
    QCOMPARE(meter.framesPerSecond(), 0);
    QVERIFY(meter.addFrame(start + 1000));
    // The ring spans 420 ms to 1000 ms.
    QCOMPARE(meter.framesPerSecond(), 103);
    // Slower frames, but the second counts from the last computation.
    QVERIFY(!meter.addFrame(start + 1999));
    QCOMPARE(meter.framesPerSecond(), 103);
    // The ring now spans 440 ms to 2000 ms: 60000 / 1560.
    QVERIFY(meter.addFrame(start + 2000));
    QCOMPARE(meter.framesPerSecond(), 38);
}

void TestFrameRateMeter::framesCountedTwice()
{
    // The rate is computed at the first of two entries: the ring spans 30 frames of 20 ms.
    const QList<int> seen = rates(600, [](int i) { return start + (i + 1) / 2 * 20; });
    QCOMPARE(seen, QList<int>({100}));
}

void TestFrameRateMeter::allAtOneTime()
{
    const QList<int> seen = rates(600, [](int) { return start + 5000; });
    QCOMPARE(seen, QList<int>());
}

void TestFrameRateMeter::theClockIsSetBack()
{
    FrameRateMeter meter(start);
    for (int i = 1; i <= 100; ++i) {
        meter.addFrame(start + i * 20);
    }
    // At 1000 ms the ring was not full; the second time it spans 820 ms to 2000 ms.
    QCOMPARE(meter.framesPerSecond(), 50);
    // An hour back: nothing is computed until the clock has caught up.
    for (int i = 1; i <= 100; ++i) {
        QVERIFY(!meter.addFrame(start - 3600000 + i * 20));
    }
    QCOMPARE(meter.framesPerSecond(), 50);
}

void TestFrameRateMeter::stepBackAfterTheOldestFrameIsNotCounted()
{
    // The clock was set back right after the oldest of the 60 frames: that pair is not subtracted.
    FrameRateMeter meter(start);
    meter.addFrame(start + 999);
    for (int i = 0; i < 58; ++i) {
        meter.addFrame(start + 500 + i);
    }
    QVERIFY(meter.addFrame(start + 1100));
    // 60000 / (1100 - 999)
    QCOMPARE(meter.framesPerSecond(), 594);
}

void TestFrameRateMeter::fastestAndSlowest()
{
    // 59 frames at one time and one a millisecond later.
    FrameRateMeter fast(start);
    for (int i = 0; i < 59; ++i) {
        fast.addFrame(start + 999);
    }
    QVERIFY(fast.addFrame(start + 1000));
    QCOMPARE(fast.framesPerSecond(), 60000);

    const QList<int> slow = rates(200, [](int i) { return start + i * 1017; });
    // 60000 / 60003
    QCOMPARE(slow, QList<int>());
}

QTEST_GUILESS_MAIN(TestFrameRateMeter)
#include "tst_frameratemeter.moc"
