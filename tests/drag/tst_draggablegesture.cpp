// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drag/Draggable.h"
#include "tests/support/Leftovers.h"
#include "tests/support/SignalRecorder.h"
#include "tests/support/Text.h"

#include <QDrag>
#include <QMouseEvent>
#include <QPointer>
#include <QQuickWindow>
#include <QRegularExpression>
#include <QTest>

#include <limits>

using om::controls::Draggable;

namespace {

using support::text;

/// A child that takes the mouse and counts the moves that reach it.
class Child : public QQuickItem
{
public:
    using QQuickItem::QQuickItem;
    int moves = 0;

protected:
    void mousePressEvent(QMouseEvent *event) override { event->accept(); }
    void mouseMoveEvent(QMouseEvent *event) override
    {
        event->accept();
        ++moves;
    }
};

/// Hands events to an item's own handlers.
class DirectEvents : public Draggable
{
public:
    static void send(Draggable *card, QMouseEvent *event)
    {
        if (event->type() == QEvent::MouseMove) {
            (card->*&DirectEvents::mouseMoveEvent)(event);
        } else {
            (card->*&DirectEvents::mousePressEvent)(event);
        }
    }
};

} // namespace

/// The gesture of a draggable item step by step; on this platform the drag loop returns at once.
class TestDraggableGesture : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void defaults();
    void dragDataNotifiesOnChange();
    void startsAboveFivePixels_data();
    void startsAboveFivePixels();
    void childSeesNoMovesWhileArmed();
    void armedByExactlyTheLeftButton();
    void lifeOfADrag();
    void releaseBeforeTheStartStillStarts();
    void keptGrabGivesUp();
    void zComesBack();
    void nextGestureWorks();
    void newParentOwns();
    void destroyedWhilePressedWarns();
    void destroyedInsideDragStarted();
    void destroyedWithAStartPending();
    void destroyedByItsOwnZ_data();
    void destroyedByItsOwnZ();
    void startedAnewInsideDragStarted();
    void startedAnewInsideDragEnded();

private:
    void send(QEvent::Type type, const QPointF &at, Qt::MouseButtons buttons = Qt::LeftButton);
    void press(const QPointF &at = {30, 30}) { send(QEvent::MouseButtonPress, at); }
    void move(qreal dx, qreal dy) { send(QEvent::MouseMove, QPointF(30 + dx, 30 + dy)); }
    void release() { send(QEvent::MouseButtonRelease, {30, 30}, Qt::NoButton); }

    std::unique_ptr<QQuickWindow> m_window;
    QPointer<Draggable> m_card;
    Child *m_child = nullptr;
};

void TestDraggableGesture::init()
{
    m_window = std::make_unique<QQuickWindow>();
    m_window->resize(400, 300);
    m_card = new Draggable(m_window->contentItem());
    m_card->setPosition({20, 20});
    m_card->setSize({100, 50});
    m_card->setZ(3);
    m_child = new Child(m_card);
    m_child->setX(60);
    m_child->setSize({40, 50});
    m_child->setAcceptedMouseButtons(Qt::LeftButton);
}

void TestDraggableGesture::cleanup()
{
    delete m_card.data();
    m_window.reset();
    QCOMPARE(support::leftovers(), QString());
}

void TestDraggableGesture::send(QEvent::Type type, const QPointF &at, Qt::MouseButtons buttons)
{
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, at, at, at, button, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(m_window.get(), &event);
}

void TestDraggableGesture::defaults()
{
    QCOMPARE(m_card->isDragged(), false);
    QCOMPARE(m_card->dragData(), QString());
    QCOMPARE(m_card->transformOrigin(), QQuickItem::TopLeft);
    QCOMPARE(m_card->acceptedMouseButtons(), Qt::MouseButtons(Qt::LeftButton));
    QVERIFY(m_card->filtersChildMouseEvents());
}

void TestDraggableGesture::dragDataNotifiesOnChange()
{
    support::SignalRecorder recorder;
    recorder.watch(m_card, text("card"), {text("dragDataChanged")});
    m_card->setDragData(QString());
    m_card->setDragData(text("x"));
    m_card->setDragData(text("x"));
    QCOMPARE(recorder.take(), QStringList{text("card.dragDataChanged")});
}

void TestDraggableGesture::startsAboveFivePixels_data()
{
    QTest::addColumn<int>("dx");
    QTest::addColumn<int>("dy");
    QTest::addColumn<bool>("starts");
    QTest::newRow("5 to the right") << 5 << 0 << false;
    QTest::newRow("2 left, 3 up") << -2 << -3 << false;
    QTest::newRow("6 down") << 0 << 6 << true;
    QTest::newRow("3 left, 3 down") << -3 << 3 << true;
}

void TestDraggableGesture::startsAboveFivePixels()
{
    QFETCH(int, dx);
    QFETCH(int, dy);
    QFETCH(bool, starts);
    support::SignalRecorder recorder;
    recorder.watch(m_card, text("card"), {text("dragStarted")});
    press();
    move(dx, dy);
    QVERIFY2(recorder.entries().isEmpty(), "the start is queued");
    QCOMPARE(m_card->z() > 3, starts);
    QCoreApplication::processEvents();
    QCOMPARE(recorder.entries().size(), int(starts));
    release();
}

void TestDraggableGesture::childSeesNoMovesWhileArmed()
{
    press({90, 30});
    send(QEvent::MouseMove, {93, 31});
    send(QEvent::MouseMove, {95, 30});
    QCOMPARE(m_child->moves, 0);
    release();
    // A child that keeps its grab ends the gesture and gets its moves.
    m_child->setKeepMouseGrab(true);
    press({90, 30});
    // Not at the place of the last move: a window drops a move to the same place.
    send(QEvent::MouseMove, {97, 31});
    QCOMPARE(m_child->moves, 1);
    release();
}

void TestDraggableGesture::armedByExactlyTheLeftButton()
{
    support::SignalRecorder recorder;
    recorder.watch(m_card, text("card"), {text("dragStarted")});
    // To the item itself: a window delivers no press while another button is held.
    const auto drag = [this](Qt::MouseButtons buttons) {
        for (QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseMove}) {
            const QPointF at = type == QEvent::MouseMove ? QPointF(50, 30) : QPointF(30, 30);
            QMouseEvent event(type, at, at, at, Qt::LeftButton, buttons, Qt::NoModifier);
            QCoreApplication::sendEvent(m_card, &event);
        }
        QCoreApplication::processEvents();
    };
    drag(Qt::LeftButton | Qt::RightButton);
    QVERIFY(recorder.entries().isEmpty());
    drag(Qt::LeftButton);
    QVERIFY(!recorder.entries().isEmpty());
}

void TestDraggableGesture::lifeOfADrag()
{
    support::SignalRecorder recorder;
    recorder.watch(m_card, text("card"),
                   {text("isDraggedChanged"), text("dragStarted"), text("dragEnded")},
                   [this] { return m_card->isDragged() ? text("dragged") : text("not"); });
    press();
    move(6, 0);
    QCoreApplication::processEvents();
    QCOMPARE(
        recorder.take(),
        (QStringList{text("card.isDraggedChanged [dragged]"), text("card.dragStarted [dragged]"),
                     text("card.isDraggedChanged [not]"), text("card.dragEnded [not]")}));
    release();
    QVERIFY(recorder.entries().isEmpty());
}

void TestDraggableGesture::releaseBeforeTheStartStillStarts()
{
    support::SignalRecorder recorder;
    recorder.watch(m_card, text("card"), {text("dragStarted"), text("dragEnded")});
    press();
    move(6, 0);
    release();
    QVERIFY(recorder.entries().isEmpty());
    QCoreApplication::processEvents();
    QCOMPARE(recorder.take(), (QStringList{text("card.dragStarted"), text("card.dragEnded")}));
    QCOMPARE(m_card->z(), 3.0);
}

void TestDraggableGesture::keptGrabGivesUp()
{
    support::SignalRecorder recorder;
    recorder.watch(m_card, text("card"), {text("dragStarted")});
    press({90, 30});
    m_child->setKeepMouseGrab(true);
    send(QEvent::MouseMove, {110, 30});
    m_child->setKeepMouseGrab(false);
    send(QEvent::MouseMove, {130, 30});
    QCoreApplication::processEvents();
    QVERIFY(recorder.entries().isEmpty());
    QCOMPARE(m_child->moves, 2);
    release();
}

void TestDraggableGesture::zComesBack()
{
    press();
    move(6, 0);
    QCOMPARE(m_card->z(), qreal(std::numeric_limits<float>::max()));
    QCoreApplication::processEvents();
    QCOMPARE(m_card->z(), 3.0);
    release();
}

void TestDraggableGesture::nextGestureWorks()
{
    support::SignalRecorder recorder;
    recorder.watch(m_card, text("card"), {text("dragStarted"), text("dragEnded")});
    for (int i = 0; i < 3; ++i) {
        press();
        move(6, 0);
        move(9, 0);
        QCoreApplication::processEvents();
        release();
        QCoreApplication::processEvents();
        QCOMPARE(recorder.take(), (QStringList{text("card.dragStarted"), text("card.dragEnded")}));
        QCOMPARE(m_card->z(), 3.0);
    }
}

void TestDraggableGesture::newParentOwns()
{
    QQuickItem other(m_window->contentItem());
    m_card->setParentItem(&other);
    QCOMPARE(m_card->parent(), &other);
    m_card->setParentItem(nullptr);
    QCOMPARE(m_card->parent(), &other);
    m_card->setParentItem(m_window->contentItem());
    QCOMPARE(m_card->parent(), m_window->contentItem());
}

void TestDraggableGesture::destroyedWhilePressedWarns()
{
    m_card->setParent(this);
    press();
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(text("^Destroyed Draggable during drag! "
                                                 "TestDraggableGesture\\(0x[0-9a-f]+\\)$")));
    delete m_card.data();
}

void TestDraggableGesture::destroyedInsideDragStarted()
{
    connect(m_card, &Draggable::dragStarted, this, [this] { delete m_card.data(); });
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(text("^Destroyed Draggable")));
    press();
    move(6, 0);
    QCoreApplication::processEvents();
    QVERIFY(!m_card);
}

void TestDraggableGesture::destroyedWithAStartPending()
{
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(text("^Destroyed Draggable")));
    press();
    move(6, 0);
    delete m_card.data();
    QCoreApplication::processEvents();
}

void TestDraggableGesture::destroyedByItsOwnZ_data()
{
    QTest::addColumn<int>("change");
    QTest::newRow("lifted") << 1;
    QTest::newRow("lowered") << 2;
}

void TestDraggableGesture::destroyedByItsOwnZ()
{
    QFETCH(int, change);
    int changes = 0;
    // Not at once: QQuickItem::setZ() itself reads the item after its signal.
    connect(m_card, &QQuickItem::zChanged, this, [&] {
        if (++changes == change) {
            m_card->deleteLater();
        }
    });
    if (change == 1) {
        // Before the drag that the lifting has asked for.
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(text("^Destroyed Draggable")));
    }
    // To the item itself: a window goes on with the item after its event.
    QPointer<Draggable> card = m_card;
    for (QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseMove}) {
        const QPointF at = type == QEvent::MouseMove ? QPointF(50, 30) : QPointF(30, 30);
        QMouseEvent event(type, at, at, at, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        DirectEvents::send(card, &event);
    }
    if (change == 1) {
        QCoreApplication::sendPostedEvents(m_card, QEvent::DeferredDelete);
    }
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(m_card, QEvent::DeferredDelete);
    QVERIFY(!m_card);
    QCOMPARE(changes, change);
}

void TestDraggableGesture::startedAnewInsideDragStarted()
{
    // A release, a press and a move from a loop inside the signal ask for a second start.
    support::SignalRecorder recorder;
    recorder.watch(m_card, text("card"), {text("dragStarted"), text("dragEnded")});
    bool first = true;
    connect(m_card, &Draggable::dragStarted, this, [&] {
        if (first) {
            first = false;
            release();
            press();
            move(20, 0);
        }
    });
    press();
    move(6, 0);
    QCoreApplication::processEvents();
    release();
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(m_card->findChildren<QDrag *>().isEmpty());
    QVERIFY(!m_card->isDragged());
    QCOMPARE(m_card->z(), 3.0);
    QCOMPARE(recorder.entries().count(text("card.dragStarted")),
             recorder.entries().count(text("card.dragEnded")));
}

void TestDraggableGesture::startedAnewInsideDragEnded()
{
    support::SignalRecorder recorder;
    recorder.watch(m_card, text("card"), {text("dragStarted"), text("dragEnded")});
    bool first = true;
    connect(m_card, &Draggable::dragEnded, this, [&] {
        if (first) {
            first = false;
            release();
            press();
            move(20, 0);
        }
    });
    qreal zOfTheSecond = 0;
    connect(m_card, &Draggable::dragStarted, this, [&] { zOfTheSecond = m_card->z(); });
    press();
    move(6, 0);
    QTRY_COMPARE(recorder.entries().size(), 4);
    QCOMPARE(zOfTheSecond, qreal(std::numeric_limits<float>::max()));
    release();
    QCOMPARE(m_card->z(), 3.0);
}

QTEST_MAIN(TestDraggableGesture)
#include "tst_draggablegesture.moc"
