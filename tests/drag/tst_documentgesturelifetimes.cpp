// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drag/DragAreaAttachedObject.h"
#include "tests/drag/FilteredSource.h"
#include "tests/drag/HookedDocument.h"
#include "tests/support/Leftovers.h"
#include "tests/support/Text.h"

#include <QDataStream>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlIncubationController>
#include <QQuickWindow>
#include <QRegularExpression>

#include <functional>
#include <memory>

using om::data::Document;
using support::text;

namespace {

/// What a drag of documents with the ids \a ids carries.
QByteArray payloadOf(const QStringList &ids)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    for (const QString &id : ids) {
        stream << id;
    }
    return bytes;
}

/// Makes things only when it is asked to.
class LazyController : public QQmlIncubationController
{
public:
    /// Takes one step of what waits: the first makes the objects, the second hands them out.
    void step()
    {
        volatile bool goOn = false;
        incubateWhile(&goOn);
    }
};

/// Counts the calls that the delegates make from QML.
class Notes : public QObject
{
    Q_OBJECT
public:
    Q_INVOKABLE void note(const QString &what) { taken.append(what); }
    QStringList taken;
};

} // namespace

Q_DECLARE_METATYPE(std::function<void(FilteredSource *)>)

/// The application's code at every place where the two document sources call it: it destroys the
/// source, its documents and its visual, changes the list, and sends further events.
class TestDocumentGestureLifetimes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void documentsChangedWhileThePayloadIsWritten_data() { sources(); }
    void documentsChangedWhileThePayloadIsWritten();
    void documentDestroyedWhileThePayloadIsWritten_data() { sources(); }
    void documentDestroyedWhileThePayloadIsWritten();
    void askedDocumentDestroysItself_data() { sources(); }
    void askedDocumentDestroysItself();
    void sourceDestroyedWhileThePayloadIsWritten_data() { sources(); }
    void sourceDestroyedWhileThePayloadIsWritten();
    void releasedWhileThePayloadIsWritten_data() { sources(); }
    void releasedWhileThePayloadIsWritten();
    void startedAnewWhileThePayloadIsWritten_data() { sources(); }
    void startedAnewWhileThePayloadIsWritten();

    void startedAnewBeforeTheLoop_data();
    void startedAnewBeforeTheLoop();

    void documentDestroyedWhileItsSourceIs_data() { sources(); }
    void documentDestroyedWhileItsSourceIs();
    void nullDocumentsAreLeftOut_data() { sources(); }
    void nullDocumentsAreLeftOut();

    void incubationNotBegunByTheEndNeverRuns_data() { sources(); }
    void incubationNotBegunByTheEndNeverRuns();
    void incubationBegunByTheEndIsNeverCompleted_data();
    void incubationBegunByTheEndIsNeverCompleted();
    void incubationOfADestroyedSourceNeverRuns_data() { sources(); }
    void incubationOfADestroyedSourceNeverRuns();

    void areaStaysActiveThoughItsChildHasNoGrab();
    void areaEndsWithTheLoopWhereNoReleaseCanCome_data();
    void areaEndsWithTheLoopWhereNoReleaseCanCome();
    void dragRunsThoughNoReleaseCanArriveAtItsStart_data();
    void dragRunsThoughNoReleaseCanArriveAtItsStart();
    void movesBeforeTheLoopDoNotEndTheDrag_data() { sources(); }
    void movesBeforeTheLoopDoNotEndTheDrag();
    void areaEndsOnceNoReleaseCanCome_data();
    void areaEndsOnceNoReleaseCanCome();
    void areaWaitsForAChildThatTookTheMouseOver();
    void pressedAnewInsideTheEnd_data() { sources(); }
    void pressedAnewInsideTheEnd();
    void startedAnewInsideTheStart_data() { sources(); }
    void startedAnewInsideTheStart();
    void startedAndRunInsideTheStart();

    void sourceDestroyedByItsVisualAtTheNextPress();
    void sourceDestroyedByItsVisualAtTheRelease_data() { sources(); }
    void sourceDestroyedByItsVisualAtTheRelease();

private:
    static void sources();
    FilteredSource *source() const { return m_source.get(); }
    /// A delegate that tells of its life, in an engine that makes what is asked for at once.
    void giveDelegate();
    /// An engine that counts an incubation as running for ever keeps its warnings back.
    void verifyThatTheEngineWarns();

    std::unique_ptr<QQmlEngine> m_engine;
    std::unique_ptr<QQmlComponent> m_delegate;
    Notes m_notes;
    std::unique_ptr<QQuickWindow> m_window;
    std::unique_ptr<FilteredSource> m_source;
    std::unique_ptr<HookedDocument> m_first;
    std::unique_ptr<HookedDocument> m_second;
    std::unique_ptr<HookedDocument> m_third;
};

void TestDocumentGestureLifetimes::sources()
{
    QTest::addColumn<bool>("isZone");
    QTest::newRow("DragArea") << false;
    QTest::newRow("DragZone") << true;
}

void TestDocumentGestureLifetimes::initTestCase()
{
    qmlRegisterType<om::controls::DragArea>("test", 1, 0, "DragArea");
    qmlRegisterType<om::controls::DragZone>("test", 1, 0, "DragZone");
}

void TestDocumentGestureLifetimes::init()
{
    m_notes.taken.clear();
    m_engine = std::make_unique<QQmlEngine>();
    m_window = std::make_unique<QQuickWindow>();
    const bool isZone = QByteArray(QTest::currentDataTag()).startsWith("DragZone");
    if (isZone) {
        m_source =
            std::make_unique<FilteredSourceOf<om::controls::DragZone>>(m_window->contentItem());
    } else {
        m_source =
            std::make_unique<FilteredSourceOf<om::controls::DragArea>>(m_window->contentItem());
    }
    m_first = std::make_unique<HookedDocument>("first");
    m_second = std::make_unique<HookedDocument>("second");
    m_third = std::make_unique<HookedDocument>("third");
    m_source->setDocuments({m_first.get(), m_second.get(), m_third.get()});
}

void TestDocumentGestureLifetimes::cleanup()
{
    m_source.reset();
    m_window.reset();
    m_delegate.reset();
    m_engine.reset();
    m_first.reset();
    m_second.reset();
    m_third.reset();
    QCOMPARE(support::leftovers(), QString());
}

void TestDocumentGestureLifetimes::giveDelegate()
{
    m_delegate = std::make_unique<QQmlComponent>(
        m_engine.get(), QUrl::fromLocalFile(QFINDTESTDATA("data/NotingVisual.qml")));
    QVERIFY2(m_delegate->isReady(), qPrintable(m_delegate->errorString()));
    m_engine->rootContext()->setContextProperty(text("notes"), &m_notes);
    m_source->setDelegate(m_delegate.get());
}

void TestDocumentGestureLifetimes::verifyThatTheEngineWarns()
{
    QQmlComponent broken(m_engine.get());
    broken.setData("import QtQml 2.12\nTimer { property var none; interval: none.thing }", QUrl());
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(text("Cannot read property 'thing'")));
    delete broken.create();
}

void TestDocumentGestureLifetimes::documentsChangedWhileThePayloadIsWritten()
{
    HookedDocument other("other");
    m_first->whenAskedForId = [&] { source()->setDocuments({&other}); };
    source()->press();
    source()->moveOnly(10, 0);
    QCOMPARE(source()->payload(), payloadOf({text("first"), text("second"), text("third")}));
    source()->setDocuments({});
}

void TestDocumentGestureLifetimes::documentDestroyedWhileThePayloadIsWritten()
{
    // The others are all there.
    m_first->whenAskedForId = [this] { m_second.reset(); };
    source()->press();
    source()->moveOnly(10, 0);
    QCOMPARE(source()->payload(), payloadOf({text("first"), text("third")}));
}

void TestDocumentGestureLifetimes::askedDocumentDestroysItself()
{
    m_second->whenAskedForId = [this] { m_second.reset(); };
    source()->press();
    source()->moveOnly(10, 0);
    QCOMPARE(source()->payload(), payloadOf({text("first"), text("second"), text("third")}));
}

void TestDocumentGestureLifetimes::sourceDestroyedWhileThePayloadIsWritten()
{
    QPointer<QQuickItem> item = source()->item();
    m_second->whenAskedForId = [item] { delete item.data(); };
    source()->press();
    source()->moveOnly(10, 0);
    QVERIFY(!item);
    QCoreApplication::processEvents();
}

void TestDocumentGestureLifetimes::releasedWhileThePayloadIsWritten()
{
    QFETCH(bool, isZone);
    support::SignalRecorder recorder;
    recorder.watch(source()->item(), text("source"), {text("dragActiveChanged")},
                   [this] { return source()->isActive() ? text("on") : text("off"); });
    m_second->whenAskedForId = [this] { source()->release(); };
    if (isZone) {
        QTest::ignoreMessage(QtDebugMsg, "discard");
    }
    source()->press();
    source()->moveOnly(10, 0);
    QVERIFY(!source()->isActive());
    QVERIFY(source()->drags().isEmpty());
    m_second->whenAskedForId = nullptr;
    source()->press();
    source()->move(10, 0);
    source()->release();
    QCOMPARE(recorder.take(),
             (QStringList{
                 text("source.dragActiveChanged [on]"), text("source.dragActiveChanged [off]"),
                 text("source.dragActiveChanged [on]"), text("source.dragActiveChanged [off]")}));
}

void TestDocumentGestureLifetimes::startedAnewWhileThePayloadIsWritten()
{
    QFETCH(bool, isZone);
    support::SignalRecorder recorder;
    recorder.watch(source()->item(), text("source"), {text("dragActiveChanged")});
    m_second->whenAskedForId = [this] {
        m_second->whenAskedForId = nullptr;
        source()->release();
        source()->press();
        source()->moveOnly(10, 0);
    };
    if (isZone) {
        QTest::ignoreMessage(QtDebugMsg, "discard");
    }
    source()->press();
    source()->moveOnly(10, 0);
    QVERIFY(source()->isActive());
    QCOMPARE(source()->payload(), payloadOf({text("first"), text("second"), text("third")}));
    QCoreApplication::processEvents();
    source()->release();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!source()->isActive());
    QVERIFY(source()->drags().isEmpty());
    QCOMPARE(recorder.take().size(), 4);
}

void TestDocumentGestureLifetimes::startedAnewBeforeTheLoop_data()
{
    QTest::addColumn<int>("starts");
    for (const char *type : {"DragArea", "DragZone"}) {
        for (int starts : {2, 3}) {
            QTest::addRow("%s, %d starts", type, starts) << starts;
        }
    }
}

void TestDocumentGestureLifetimes::startedAnewBeforeTheLoop()
{
    QFETCH(int, starts);
    support::SignalRecorder recorder;
    recorder.watch(source()->item(), text("source"), {text("dragActiveChanged")},
                   [this] { return source()->isActive() ? text("on") : text("off"); });
    // A zone logs a debug message for each release while it is active.
    const bool isZone = QByteArray(QTest::currentDataTag()).startsWith("DragZone");
    QStringList expected;
    for (int i = 1; i <= starts; ++i) {
        source()->press();
        source()->moveOnly(10, 0);
        QCOMPARE(source()->drags().size(), 1);
        expected += {text("source.dragActiveChanged [on]"), text("source.dragActiveChanged [off]")};
        if (i < starts) {
            if (isZone) {
                QTest::ignoreMessage(QtDebugMsg, "discard");
            }
            source()->release();
            QVERIFY(source()->drags().isEmpty());
        }
    }
    // One turn runs the one drag that is left; a second call would find it over, and end it again.
    QCoreApplication::processEvents();
    QCOMPARE(source()->isActive(), !isZone);
    source()->release();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(source()->drags().isEmpty());
    QCOMPARE(recorder.take(), expected);
}

void TestDocumentGestureLifetimes::documentDestroyedWhileItsSourceIs()
{
    QQuickItem *const parent = source()->item()->parentItem();
    connect(parent, &QQuickItem::childrenChanged, this, [this] { m_second.reset(); });
    delete source()->item();
    QVERIFY(!m_second);
    disconnect(parent, nullptr, this, nullptr);
}

void TestDocumentGestureLifetimes::nullDocumentsAreLeftOut()
{
    support::SignalRecorder recorder;
    recorder.watch(source()->item(), text("source"), {text("dragDocumentsChanged")});
    source()->setDocuments({nullptr, m_first.get(), nullptr});
    QQmlListProperty<Document> list = source()->list();
    QCOMPARE(list.count(&list), 1);
    QCOMPARE(list.at(&list, 0), m_first.get());
    QCOMPARE(recorder.take().size(), 1);
    // The same list, once its nulls are left out.
    source()->setDocuments({m_first.get(), nullptr});
    QVERIFY(recorder.take().isEmpty());
    source()->press();
    source()->moveOnly(10, 0);
    QCOMPARE(source()->payload(), payloadOf({text("first")}));
    source()->setDocuments({nullptr});
    QCOMPARE(list.count(&list), 0);
}

void TestDocumentGestureLifetimes::incubationNotBegunByTheEndNeverRuns()
{
    LazyController controller;
    m_engine->setIncubationController(&controller);
    giveDelegate();
    source()->press();
    source()->moveOnly(10, 0);
    QCOMPARE(controller.incubatingObjectCount(), 1);
    QCoreApplication::processEvents();
    source()->release();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(m_notes.taken, QStringList());
    QCOMPARE(controller.incubatingObjectCount(), 0);
    controller.incubateFor(10);
    QCOMPARE(m_notes.taken, QStringList());
    verifyThatTheEngineWarns();
}

void TestDocumentGestureLifetimes::incubationBegunByTheEndIsNeverCompleted_data()
{
    QTest::addColumn<int>("steps");
    for (const char *type : {"DragArea", "DragZone"}) {
        for (int steps : {1, 2}) {
            QTest::addRow("%s, %d steps", type, steps) << steps;
        }
    }
}

void TestDocumentGestureLifetimes::incubationBegunByTheEndIsNeverCompleted()
{
    QFETCH(int, steps);
    LazyController controller;
    m_engine->setIncubationController(&controller);
    giveDelegate();
    source()->press();
    source()->moveOnly(10, 0);
    for (int i = 0; i < steps; ++i) {
        controller.step();
    }
    QCOMPARE(controller.incubatingObjectCount(), 1);
    QCOMPARE(m_window->contentItem()->childItems().size(), steps);
    QCoreApplication::processEvents();
    source()->release();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(m_window->contentItem()->childItems().size(), 1);
    QVERIFY(!m_notes.taken.contains(text("completed")));
    QCOMPARE(controller.incubatingObjectCount(), 0);
    verifyThatTheEngineWarns();
}

void TestDocumentGestureLifetimes::incubationOfADestroyedSourceNeverRuns()
{
    LazyController controller;
    m_engine->setIncubationController(&controller);
    giveDelegate();
    source()->press();
    source()->moveOnly(10, 0);
    QCOMPARE(controller.incubatingObjectCount(), 1);
    delete source()->item();
    QCOMPARE(controller.incubatingObjectCount(), 0);
    QCOMPARE(m_notes.taken, QStringList());
    verifyThatTheEngineWarns();
}

void TestDocumentGestureLifetimes::areaStaysActiveThoughItsChildHasNoGrab()
{
    // The events come through the filter alone: no item of the window has the mouse.
    QVERIFY(!m_window->mouseGrabberItem());
    source()->press();
    source()->move(10, 0);
    QVERIFY(source()->isActive());
    source()->release();
    QVERIFY(!source()->isActive());
}

void TestDocumentGestureLifetimes::areaEndsWithTheLoopWhereNoReleaseCanCome_data()
{
    using Happening = std::function<void(FilteredSource *)>;
    QTest::addColumn<Happening>("happening");
    QTest::newRow("pressed child destroyed")
        << Happening([](FilteredSource *source) { delete source->child(); });
    QTest::newRow("pressed child ungrabbed")
        << Happening([](FilteredSource *source) { source->ungrab(); });
    QTest::newRow("filtering switched off") << Happening(
        [](FilteredSource *source) { source->item()->setProperty("dragEnabled", false); });
}

void TestDocumentGestureLifetimes::areaEndsWithTheLoopWhereNoReleaseCanCome()
{
    QFETCH(std::function<void(FilteredSource *)>, happening);
    source()->press();
    source()->moveOnly(10, 0);
    happening(source());
    QVERIFY(source()->isActive());
    QCoreApplication::processEvents();
    QVERIFY(!source()->isActive());
}

void TestDocumentGestureLifetimes::dragRunsThoughNoReleaseCanArriveAtItsStart_data()
{
    QTest::addColumn<bool>("ungrabs");
    for (const char *type : {"DragArea", "DragZone"}) {
        QTest::addRow("%s, pressed child ungrabbed", type) << true;
        QTest::addRow("%s, filtering switched off", type) << false;
    }
}

void TestDocumentGestureLifetimes::dragRunsThoughNoReleaseCanArriveAtItsStart()
{
    // As a list that prevents flicking during a drag does.
    QFETCH(bool, ungrabs);
    support::SignalRecorder recorder;
    recorder.watch(source()->item(), text("source"), {text("dragActiveChanged")}, [&] {
        if (!source()->isActive()) {
            return text("off");
        }
        if (ungrabs) {
            source()->ungrab();
        } else {
            source()->item()->setProperty("dragEnabled", false);
        }
        return text("on");
    });
    source()->press();
    source()->moveOnly(10, 0);
    QVERIFY2(source()->isActive(), "the drag is still to run");
    QCOMPARE(source()->payload(), payloadOf({text("first"), text("second"), text("third")}));
    QCoreApplication::processEvents();
    QVERIFY2(!source()->isActive(), "the end of the loop is the end of the drag");
    QCOMPARE(recorder.take(),
             (QStringList{text("source.dragActiveChanged [on]"),
                          text("source.dragActiveChanged [off]")}));
}

void TestDocumentGestureLifetimes::movesBeforeTheLoopDoNotEndTheDrag()
{
    // Neither inside the signal, nor those from which on a list keeps the grab for being flicked.
    QFETCH(bool, isZone);
    support::SignalRecorder recorder;
    recorder.watch(source()->item(), text("source"), {text("dragActiveChanged")}, [this] {
        if (!source()->isActive()) {
            return text("off");
        }
        source()->moveOnly(15, 0);
        return text("on");
    });
    source()->press();
    source()->moveOnly(10, 0);
    source()->child()->grabMouse();
    source()->child()->setKeepMouseGrab(true);
    QCOMPARE(m_window->mouseGrabberItem(), source()->child());
    source()->moveOnly(20, 0);
    QVERIFY2(source()->isActive(), "the drag is still to run");
    QCOMPARE(source()->drags().size(), 1);
    QCoreApplication::processEvents();
    QCOMPARE(source()->isActive(), !isZone);
    source()->release();
    QCOMPARE(recorder.take(),
             (QStringList{text("source.dragActiveChanged [on]"),
                          text("source.dragActiveChanged [off]")}));
}

void TestDocumentGestureLifetimes::areaEndsOnceNoReleaseCanCome_data()
{
    using Happening = std::function<void(FilteredSource *)>;
    QTest::addColumn<Happening>("happening");
    QTest::newRow("pressed child destroyed")
        << Happening([](FilteredSource *source) { delete source->child(); });
    QTest::newRow("pressed child ungrabbed")
        << Happening([](FilteredSource *source) { source->ungrab(); });
    QTest::newRow("filtering switched off") << Happening(
        [](FilteredSource *source) { source->item()->setProperty("dragEnabled", false); });
}

void TestDocumentGestureLifetimes::areaEndsOnceNoReleaseCanCome()
{
    QFETCH(std::function<void(FilteredSource *)>, happening);
    source()->press();
    source()->move(10, 0);
    QVERIFY2(source()->isActive(), "the loop is over, and the release is still to come");
    support::SignalRecorder recorder;
    recorder.watch(source()->item(), text("source"),
                   {text("dragActiveChanged"), text("dragEnabledChanged")});
    happening(source());
    QCoreApplication::processEvents();
    QVERIFY(!source()->isActive());
    QCOMPARE(recorder.take().constFirst(), text("source.dragActiveChanged"));
}

void TestDocumentGestureLifetimes::areaWaitsForAChildThatTookTheMouseOver()
{
    // As a list inside the area does when flicking begins.
    QQuickItem other(source()->item());
    source()->press();
    source()->ungrab();
    QMouseEvent move(QEvent::MouseMove, {40, 20}, Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    source()->filter(&other, &move);
    QCoreApplication::processEvents();
    QVERIFY(source()->isActive());
    QMouseEvent release(QEvent::MouseButtonRelease, {40, 20}, Qt::LeftButton, Qt::NoButton,
                        Qt::NoModifier);
    source()->filter(&other, &release);
    QVERIFY(!source()->isActive());
}

void TestDocumentGestureLifetimes::pressedAnewInsideTheEnd()
{
    // A handler of the end runs an event loop, in which the next gesture begins.
    bool first = true;
    support::SignalRecorder recorder;
    recorder.watch(source()->item(), text("source"), {text("dragActiveChanged")}, [&] {
        const bool active = source()->isActive();
        if (!active && first) {
            first = false;
            source()->press();
            source()->moveOnly(10, 0);
        }
        return active ? text("on") : text("off");
    });
    source()->press();
    source()->move(10, 0);
    if (first) {
        source()->release();
    }
    QVERIFY2(source()->isActive(), "the next gesture goes on");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(source()->drags().size(), 1);
    QCoreApplication::processEvents();
    source()->release();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!source()->isActive());
    QVERIFY(source()->drags().isEmpty());
    QStringList entries = recorder.take();
    entries.sort();
    QCOMPARE(entries,
             (QStringList{
                 text("source.dragActiveChanged [off]"), text("source.dragActiveChanged [off]"),
                 text("source.dragActiveChanged [on]"), text("source.dragActiveChanged [on]")}));
}

void TestDocumentGestureLifetimes::startedAnewInsideTheStart()
{
    QFETCH(bool, isZone);
    bool first = true;
    support::SignalRecorder recorder;
    recorder.watch(source()->item(), text("source"), {text("dragActiveChanged")}, [&] {
        if (first) {
            first = false;
            source()->release();
            source()->press();
            source()->moveOnly(10, 0);
        }
        return QString();
    });
    if (isZone) {
        QTest::ignoreMessage(QtDebugMsg, "discard");
    }
    source()->press();
    source()->moveOnly(10, 0);
    QVERIFY(source()->isActive());
    QCOMPARE(source()->drags().size(), 1);
    QCoreApplication::processEvents();
    source()->release();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!source()->isActive());
    QVERIFY(source()->drags().isEmpty());
    QCOMPARE(recorder.entries().size(), 4);
}

void TestDocumentGestureLifetimes::startedAndRunInsideTheStart()
{
    // A handler runs an event loop, in which a whole drag begins and ends except for its release.
    bool first = true;
    support::SignalRecorder recorder;
    recorder.watch(source()->item(), text("source"), {text("dragActiveChanged")}, [&] {
        if (first) {
            first = false;
            source()->release();
            source()->press();
            source()->move(10, 0);
        }
        return QString();
    });
    source()->press();
    source()->moveOnly(10, 0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY2(source()->drags().isEmpty(), "the second drag was the last");
    QVERIFY(source()->isActive());
    source()->release();
    QCOMPARE(recorder.entries().size(), 4);
}

void TestDocumentGestureLifetimes::sourceDestroyedByItsVisualAtTheNextPress()
{
    giveDelegate();
    QPointer<QQuickItem> item = source()->item();
    source()->press();
    source()->move(10, 0);
    QVERIFY(source()->isActive());
    QPointer<QQuickItem> visual = m_window->contentItem()->childItems().value(1);
    QVERIFY(visual);
    auto *const attached = qobject_cast<om::controls::DragAreaAttachedObject *>(
        qmlAttachedPropertiesObject<om::controls::DragArea>(visual));
    attached->setDelayRemove(true);
    connect(attached, &om::controls::DragAreaAttachedObject::droppedChanged, this,
            [item] { delete item.data(); });
    source()->press();
    QVERIFY(!item);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    delete visual.data();
}

void TestDocumentGestureLifetimes::sourceDestroyedByItsVisualAtTheRelease()
{
    QFETCH(bool, isZone);
    giveDelegate();
    QPointer<QQuickItem> item = source()->item();
    source()->press();
    source()->moveOnly(10, 0);
    QPointer<QQuickItem> visual = m_window->contentItem()->childItems().value(1);
    QVERIFY(visual);
    QObject *const attached = isZone ? qmlAttachedPropertiesObject<om::controls::DragZone>(visual)
                                     : qmlAttachedPropertiesObject<om::controls::DragArea>(visual);
    attached->setProperty("delayRemove", true);
    support::SignalRecorder recorder;
    recorder.watch(attached, text("visual"), {text("droppedChanged")}, [item] {
        delete item.data();
        return QString();
    });
    QCoreApplication::processEvents();
    if (item) {
        source()->release();
    }
    QVERIFY(!item);
    QCOMPARE(recorder.entries().size(), 1);
    QVERIFY(!attached->property(isZone ? "dragZone" : "area").value<QObject *>());
    delete visual.data();
}

QTEST_MAIN(TestDocumentGestureLifetimes)
#include "tst_documentgesturelifetimes.moc"
