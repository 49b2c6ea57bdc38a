// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/input/FpsCounter.h"
#include "tests/support/Leftovers.h"

#include <QQmlParserStatus>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>
#include <QThread>
#include <QTimer>

#include <memory>

using namespace om::controls;

namespace {

/// Counts the connections to its frameSwapped().
class Window : public QQuickWindow
{
public:
    Window() { resize(120, 80); }
    int listeners() const { return receivers(SIGNAL(frameSwapped())); }
};

/// Completes the counter as the QML engine does.
FpsCounter *completed(QObject *parent)
{
    auto *counter = new FpsCounter(parent);
    counter->classBegin();
    counter->componentComplete();
    return counter;
}

} // namespace

class TestFpsCounter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(support::leftovers(), QString()); }
    void isAPlainObject();
    void oneConnectionForEachAncestorInAWindow();
    void ancestorsInTwoWindows();
    void retriesUntilThereIsAWindow();
    void staysAtZeroOutsideAnyWindow();
    void countsFrames();
    void ratesChangeOnTheCountersThread();
    void requestsNoFrameInAnIdleWindow();
    void reparentedWithARetryPending();
    void reparentedWhenBound();
    void destroyedWithARetryPending();
    void destroyedWithAQueuedFramePending();
    void destroyedInItsOwnSignal();
    void windowDestroyedFirst();
};

void TestFpsCounter::isAPlainObject()
{
    FpsCounter counter;
    QVERIFY(!qobject_cast<QQuickItem *>(&counter));
    QVERIFY(qobject_cast<QQmlParserStatus *>(&counter));
    QCOMPARE(counter.currentFps(), 0);
    const QMetaProperty rate = FpsCounter::staticMetaObject.property(
        FpsCounter::staticMetaObject.indexOfProperty("currentFps"));
    QVERIFY(!rate.isWritable());
    QCOMPARE(rate.notifySignal().methodSignature(), QByteArray("currentFpsChanged()"));
}

void TestFpsCounter::oneConnectionForEachAncestorInAWindow()
{
    Window window;
    const int before = window.listeners();
    auto *outer = new QQuickItem(window.contentItem());
    // QObject parents count, whatever the visual parents are.
    auto *between = new QObject(outer);
    auto *inner = new QQuickItem;
    inner->setParent(between);
    inner->setParentItem(outer);
    completed(inner);
    // inner, outer and the content item, which the window itself holds.
    QCOMPARE(window.listeners(), before + 3);
}

void TestFpsCounter::ancestorsInTwoWindows()
{
    Window first;
    Window second;
    const int before[] = {first.listeners(), second.listeners()};
    auto *outer = new QQuickItem(first.contentItem());
    auto *inner = new QQuickItem;
    inner->setParent(outer);
    inner->setParentItem(second.contentItem());
    completed(inner);
    QCOMPARE(first.listeners(), before[0] + 2);
    QCOMPARE(second.listeners(), before[1] + 1);
}

void TestFpsCounter::retriesUntilThereIsAWindow()
{
    Window window;
    const int before = window.listeners();
    QQuickItem item;
    completed(&item);
    item.setParentItem(window.contentItem());
    QCOMPARE(window.listeners(), before);
    QTRY_COMPARE(window.listeners(), before + 1);
    item.setParentItem(nullptr);
}

void TestFpsCounter::staysAtZeroOutsideAnyWindow()
{
    QQuickItem item;
    auto *counter = completed(&item);
    const QSignalSpy changes(counter, &FpsCounter::currentFpsChanged);
    // Timers of the counter's own come and go: a retry a second, also after the first.
    Window window;
    const int before = window.listeners();
    int seconds = 0;
    QTimer clock;
    connect(&clock, &QTimer::timeout, this, [&seconds] { ++seconds; });
    clock.start(1000);
    QTRY_COMPARE(seconds, 2);
    QCOMPARE(counter->currentFps(), 0);
    QCOMPARE(changes.count(), 0);
    item.setParentItem(window.contentItem());
    QTRY_COMPARE(window.listeners(), before + 1);
    item.setParentItem(nullptr);
}

void TestFpsCounter::countsFrames()
{
    Window window;
    auto *item = new QQuickItem(window.contentItem());
    auto *counter = completed(item);
    const QSignalSpy changes(counter, &FpsCounter::currentFpsChanged);
    QTimer frames;
    connect(&frames, &QTimer::timeout, &window, &QQuickWindow::frameSwapped);
    frames.start(10);
    QTRY_VERIFY(counter->currentFps() > 0);
    QVERIFY(changes.count() >= 1);
    // Ten milliseconds a frame, and never quicker; two listeners make it half of the ring.
    QVERIFY2(counter->currentFps() <= 220, qPrintable(QString::number(counter->currentFps())));
}

void TestFpsCounter::ratesChangeOnTheCountersThread()
{
    Window window;
    auto *item = new QQuickItem(window.contentItem());
    auto *counter = completed(item);
    QList<QThread *> threads;
    connect(
        counter, &FpsCounter::currentFpsChanged, counter,
        [&threads] { threads.append(QThread::currentThread()); }, Qt::DirectConnection);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    // Frame after frame, each asked for here and not by the counter.
    connect(
        &window, &QQuickWindow::afterAnimating, &window, [&window] { window.update(); },
        Qt::QueuedConnection);
    window.update();
    QTRY_VERIFY_WITH_TIMEOUT(!threads.isEmpty(), 20000);
    QCOMPARE(threads.first(), thread());
    QVERIFY(counter->currentFps() > 0);
}

void TestFpsCounter::requestsNoFrameInAnIdleWindow()
{
    Window window;
    auto *item = new QQuickItem(window.contentItem());
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    // Wait until the window has come to rest: a second without a frame.
    int frames = 0;
    connect(&window, &QQuickWindow::frameSwapped, this, [&frames] { ++frames; });
    const auto restingSecond = [&frames, &window] {
        const int before = frames;
        bool over = false;
        QTimer::singleShot(1100, &window, [&over] { over = true; });
        return QTest::qWaitFor([&over] { return over; }) && frames == before;
    };
    QTRY_VERIFY_WITH_TIMEOUT(restingSecond(), 20000);

    const int before = window.listeners();
    completed(item);
    QVERIFY(window.listeners() > before);
    // Longer than a recomputation and a retry take.
    QVERIFY(restingSecond());
    // A frame that comes is counted, and followed by none.
    Q_EMIT window.frameSwapped();
    QVERIFY(restingSecond());
}

void TestFpsCounter::reparentedWithARetryPending()
{
    Window window;
    const int before = window.listeners();
    auto first = std::make_unique<QQuickItem>();
    auto *counter = completed(first.get());
    QQuickItem second(window.contentItem());
    second.setParent(nullptr);
    counter->setParent(&second);
    first.reset();
    QTRY_COMPARE(window.listeners(), before + 1);
}

void TestFpsCounter::reparentedWhenBound()
{
    Window window;
    const int before = window.listeners();
    auto item = std::make_unique<QQuickItem>();
    item->setParentItem(window.contentItem());
    auto *counter = completed(item.get());
    QCOMPARE(window.listeners(), before + 1);
    // It stays with the window that it has found.
    counter->setParent(nullptr);
    item.reset();
    QCOMPARE(window.listeners(), before + 1);
    Q_EMIT window.frameSwapped();
    delete counter;
    QCOMPARE(window.listeners(), before);
}

void TestFpsCounter::destroyedWithARetryPending()
{
    QQuickItem item;
    delete completed(&item);
    // Waits for the retry of a second counter, which is due after that of the deleted one.
    Window window;
    const int before = window.listeners();
    completed(&item);
    item.setParentItem(window.contentItem());
    QTRY_COMPARE(window.listeners(), before + 1);
    item.setParentItem(nullptr);
}

void TestFpsCounter::destroyedWithAQueuedFramePending()
{
    Window window;
    auto *item = new QQuickItem(window.contentItem());
    auto *counter = completed(item);
    // As a render thread does.
    const std::unique_ptr<QThread> renderer(QThread::create([&window] {
        for (int i = 0; i < 100; ++i) {
            Q_EMIT window.frameSwapped();
        }
    }));
    renderer->start();
    QVERIFY(renderer->wait());
    const QPointer<FpsCounter> alive(counter);
    delete counter;
    QCoreApplication::sendPostedEvents();
    QVERIFY(!alive);
}

void TestFpsCounter::destroyedInItsOwnSignal()
{
    Window window;
    auto *item = new QQuickItem(window.contentItem());
    const QPointer<FpsCounter> counter(completed(item));
    connect(counter, &FpsCounter::currentFpsChanged, this, [&counter] { delete counter; });
    QTimer frames;
    connect(&frames, &QTimer::timeout, &window, &QQuickWindow::frameSwapped);
    frames.start(10);
    QTRY_VERIFY(!counter);
}

void TestFpsCounter::windowDestroyedFirst()
{
    auto window = std::make_unique<Window>();
    QQuickItem item;
    item.setParentItem(window->contentItem());
    auto *counter = completed(&item);
    item.setParentItem(nullptr);
    window.reset();
    QCoreApplication::sendPostedEvents();
    QCOMPARE(counter->currentFps(), 0);
}

QTEST_MAIN(TestFpsCounter)
#include "tst_fpscounter.moc"
