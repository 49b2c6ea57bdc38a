// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/DragEvents.h"
#include "tests/support/DragWatch.h"
#include "tests/support/ForeignProgram.h"
#include "tests/support/Gesture.h"
#include "tests/support/Text.h"

#include <QDrag>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QRasterWindow>
#include <QTest>

namespace {

using support::text;

/// Drags when it is pressed, takes every drop, keeps what it saw.
class Window : public QRasterWindow
{
public:
    Window()
    {
        setFlag(Qt::FramelessWindowHint);
        setGeometry(100, 100, 200, 200);
    }
    bool event(QEvent *event) override
    {
        switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::DragLeave:
            seen.append(event->type());
            break;
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::Drop: {
            auto *drop = static_cast<QDropEvent *>(event);
            seen.append(event->type());
            formats = drop->mimeData()->formats();
            urls = drop->mimeData()->urls();
            source = drop->source();
            drop->accept();
            return true;
        }
        default:
            break;
        }
        if (event->type() == QEvent::MouseButtonPress && mimeData) {
            auto *drag = new QDrag(this);
            drag->setMimeData(mimeData);
            mimeData = nullptr;
            result = drag->exec(Qt::CopyAction | Qt::MoveAction);
            ended = true;
        }
        return QRasterWindow::event(event);
    }
    QPoint center() const { return mapToGlobal(QPoint(width() / 2, height() / 2)); }

    QMimeData *mimeData = nullptr;
    Qt::DropAction result = Qt::IgnoreAction;
    bool ended = false;
    QList<QEvent::Type> seen;
    QStringList formats;
    QList<QUrl> urls;
    QPointer<QObject> source;
};

} // namespace

/// Real input and second programs do what their descriptions say.
class TestInput : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void buttonsAndKeysReachTheWindow();
    void gestureSaysWhatItWaitedFor();
    void gestureReleasesWhatItHeldWhenAWaitIsInVain();
    void blockingCallsDoNotStopAGesture();
    void dragWithinOneProgram();
    void escapeCancelsADrag();
    void dragToAnotherProgram();
    void dragToAProgramThatRefuses();
    void dragFromAnotherProgram();
    void manyUrlsFromAnotherProgram();
    void missingProgramsAreReported();
    void eventsReachAWindow();
    void watchNotesWhatADragBrings();
    void eventsHaveASourceInsideADrag();
};

void TestInput::buttonsAndKeysReachTheWindow()
{
    Window window;
    window.show();
    window.requestActivate();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    support::Gesture gesture;
    gesture.move(window.center())
        .press(Qt::RightButton)
        .until([&] { return window.seen.contains(QEvent::MouseButtonPress); }, "the press")
        .release(Qt::RightButton)
        .until([&] { return window.seen.contains(QEvent::MouseButtonRelease); }, "the release")
        .key(Qt::Key_Escape)
        .until([&] { return window.seen.contains(QEvent::KeyRelease); }, "the key");
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(window.seen,
             (QList<QEvent::Type>{QEvent::MouseButtonPress, QEvent::MouseButtonRelease,
                                  QEvent::KeyPress, QEvent::KeyRelease}));
}

void TestInput::gestureSaysWhatItWaitedFor()
{
    support::Gesture gesture;
    gesture.setPatience(50);
    gesture.until([] { return false; }, "nothing");
    QVERIFY(!gesture.run());
    QCOMPARE(QByteArray(gesture.error()), QByteArray("Waited in vain for: nothing"));
}

void TestInput::gestureReleasesWhatItHeldWhenAWaitIsInVain()
{
    Window window;
    window.mimeData = new QMimeData;
    window.mimeData->setText(text("x"));
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    support::Gesture gesture;
    gesture.setPatience(200);
    gesture.move(window.center()).press().until([] { return false; }, "nothing");
    QVERIFY(!gesture.run());
    QVERIFY(window.ended);
}

void TestInput::blockingCallsDoNotStopAGesture()
{
    QEventLoop loop;
    bool returned = false;
    support::Gesture gesture;
    gesture
        .then([&] {
            loop.exec();
            returned = true;
        })
        .until([&] { return loop.isRunning(); }, "the loop")
        .then([&] { loop.quit(); })
        .until([&] { return returned; }, "the end of the loop");
    QVERIFY2(gesture.run(), gesture.error());
}

void TestInput::dragWithinOneProgram()
{
    Window from;
    from.mimeData = new QMimeData;
    from.mimeData->setUrls({QUrl(text("file:///a.txt"))});
    Window to;
    to.setPosition(500, 100);
    from.show();
    to.show();
    QVERIFY(QTest::qWaitForWindowExposed(&from));
    QVERIFY(QTest::qWaitForWindowExposed(&to));
    support::Gesture gesture;
    gesture
        .drag(
            from.center(), to.center(), [&] { return to.seen.contains(QEvent::DragMove); },
            "the drag")
        .release()
        .until([&] { return from.ended; }, "the end of the drag");
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(to.seen.last(), QEvent::Drop);
    QCOMPARE(to.urls, QList<QUrl>{QUrl(text("file:///a.txt"))});
    QCOMPARE(to.source.data(), &from);
    QCOMPARE(from.result, Qt::MoveAction);
}

void TestInput::escapeCancelsADrag()
{
    Window window;
    window.mimeData = new QMimeData;
    window.mimeData->setText(text("x"));
    window.show();
    window.requestActivate();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    support::Gesture gesture;
    gesture.move(window.center())
        .press()
        .hoverUntil(
            window.center(), [&] { return window.seen.contains(QEvent::DragMove); }, "the drag")
        .key(Qt::Key_Escape)
        .until([&] { return window.ended; }, "the end of the drag")
        .release();
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(window.result, Qt::IgnoreAction);
    QVERIFY(!window.seen.contains(QEvent::Drop));
}

void TestInput::dragToAnotherProgram()
{
    support::ForeignProgram target(text("xdnd_target"));
    QVERIFY2(target.start({text("--at"), text("500,100")}), qPrintable(target.error()));
    QCOMPARE(target.geometry(), QRect(500, 100, 200, 200));
    Window window;
    window.mimeData = new QMimeData;
    window.mimeData->setData(text("application/x-test"), QByteArray("\0\xff", 2));
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const QPoint over = target.geometry().center();
    support::Gesture gesture;
    gesture
        .drag(
            window.center(), over, [&] { return target.count(text("move")) > 2; }, "the drag")
        .release()
        .until([&] { return window.ended && target.count(text("drop")); }, "the drop");
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(target.lines(text("enter")), QStringList{text("application/x-test")});
    QCOMPARE(target.lines(text("format")), QStringList{text("application/x-test 00ff")});
    QCOMPARE(window.result, Qt::MoveAction);
}

void TestInput::dragToAProgramThatRefuses()
{
    support::ForeignProgram target(text("xdnd_target"));
    QVERIFY2(target.start({text("--at"), text("500,100"), text("--refuse")}),
             qPrintable(target.error()));
    Window window;
    window.mimeData = new QMimeData;
    window.mimeData->setText(text("x"));
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const QPoint over = target.geometry().center();
    support::Gesture gesture;
    gesture
        .drag(
            window.center(), over, [&] { return target.count(text("enter")) > 0; }, "the drag")
        .release()
        .until([&] { return window.ended; }, "the end of the drag");
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(window.result, Qt::IgnoreAction);
    QCOMPARE(target.count(text("drop")), 0);
}

void TestInput::dragFromAnotherProgram()
{
    support::ForeignProgram source(text("xdnd_source"));
    QVERIFY2(source.start({text("--at"), text("500,100"), text("--url"), text("file:///b.png"),
                           text("--url"), text("file:///c.png"), text("--mime"),
                           text("application/x-test=00ff"), text("--actions"), text("move")}),
             qPrintable(source.error()));
    Window window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    support::Gesture gesture;
    gesture.move(source.geometry().center())
        .press()
        .until([&] { return source.count(text("drag")) > 0; }, "the start of the drag")
        .glide(source.geometry().center(), window.center())
        .hoverUntil(
            window.center(), [&] { return window.seen.count(QEvent::DragMove) > 2; }, "the drag")
        .release()
        .until([&] { return source.count(text("finished")) > 0; }, "the end of the drag");
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(window.seen.last(), QEvent::Drop);
    QCOMPARE(window.urls, (QList<QUrl>{QUrl(text("file:///b.png")), QUrl(text("file:///c.png"))}));
    QVERIFY(window.formats.contains(text("application/x-test")));
    QCOMPARE(window.source.data(), nullptr);
    QCOMPARE(source.lines(text("result")), QStringList{text("2")});
}

void TestInput::manyUrlsFromAnotherProgram()
{
    support::ForeignProgram source(text("xdnd_source"));
    QVERIFY2(source.start({text("--at"), text("500,100"), text("--many"), text("1000")}),
             qPrintable(source.error()));
    Window window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    support::Gesture gesture;
    gesture
        .drag(
            source.geometry().center(), window.center(),
            [&] { return window.seen.contains(QEvent::DragMove); }, "the drag")
        .release()
        .until([&] { return source.count(text("finished")) > 0; }, "the end of the drag");
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(window.urls.size(), 1000);
    QCOMPARE(window.urls.last(), QUrl(text("file:///many/999.png")));
}

void TestInput::missingProgramsAreReported()
{
    support::ForeignProgram program(text("no-such-program"));
    QVERIFY(!program.start({}));
    QVERIFY(program.error().contains(text("no-such-program")));
}

void TestInput::eventsReachAWindow()
{
    Window window;
    support::DragEvents drag(&window);
    drag.setUrls({QUrl(text("file:///d.txt"))});
    QVERIFY(drag.enter());
    QVERIFY(drag.move());
    QCOMPARE(window.source.data(), nullptr);
    QVERIFY(drag.drop());
    drag.leave();
    QCOMPARE(window.seen,
             (QList<QEvent::Type>{QEvent::DragEnter, QEvent::DragMove, QEvent::Drop,
                                  QEvent::DragLeave}));
    QCOMPARE(window.urls, QList<QUrl>{QUrl(text("file:///d.txt"))});
}

void TestInput::watchNotesWhatADragBrings()
{
    Window window;
    support::DragWatch watch(&window, text("application/x-test"));
    support::DragEvents drag(&window);
    drag.setData(text("application/x-test"), "\x01\xff");
    drag.setData(text("application/x-other"), "other");
    drag.enter();
    QCOMPARE(watch.moves, 0);
    drag.move({20, 30});
    drag.move({21, 32});
    QCOMPARE(watch.formats, (QStringList{text("application/x-test"), text("application/x-other")}));
    QCOMPARE(watch.payload, QByteArray("\x01\xff"));
    QCOMPARE(watch.position, QPoint(21, 32));
    QCOMPARE(watch.moves, 2);
    QVERIFY(watch.actions != Qt::DropActions());
    // It only watches.
    QCOMPARE(window.seen.size(), 3);
}

void TestInput::eventsHaveASourceInsideADrag()
{
    Window window;
    QObject source;
    bool called = false;
    support::withDragFrom(&source, [&](QDrag *) {
        called = true;
        support::DragEvents drag(&window);
        drag.enter();
    });
    QVERIFY(called);
    QCOMPARE(window.source.data(), &source);
}

QTEST_MAIN(TestInput)
#include "tst_input.moc"
