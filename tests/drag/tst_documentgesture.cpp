// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/drag/FilteredSource.h"
#include "tests/support/Leftovers.h"
#include "tests/support/Text.h"

#include <QQmlEngine>
#include <QQuickWindow>
#include <QScopedPointer>

using om::data::Document;
using support::text;

/// The gesture of the two document sources step by step, and their properties.
class TestDocumentGesture : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void startsAtAManhattanLengthOfFour_data() { sources(); }
    void startsAtAManhattanLengthOfFour();
    void armedByExactlyTheLeftButton_data() { sources(); }
    void armedByExactlyTheLeftButton();
    void buttonsAreNotTestedAgain_data() { sources(); }
    void buttonsAreNotTestedAgain();
    void withoutDocumentsTheGestureIsGivenUp_data() { sources(); }
    void withoutDocumentsTheGestureIsGivenUp();
    void releaseDisarms_data() { sources(); }
    void releaseDisarms();
    void areaIsActiveUntilTheRelease();
    void zoneIsDoneWhenTheLoopIs();
    void areaPressWhileActiveAnnouncesNoEnd();
    void zoneReleaseInsideTheLoopIsDiscarded();
    void areaReleaseInsideTheLoopEndsSilently();
    void keptGrabEndsTheZonesGestureOnly_data() { sources(); }
    void keptGrabEndsTheZonesGestureOnly();
    void destroyedInsideDragActiveChanged_data() { sources(); }
    void destroyedInsideDragActiveChanged();
    void nextGestureWorks_data() { sources(); }
    void nextGestureWorks();

    void dragEnabledIsTheFilterFlag_data() { sources(); }
    void dragEnabledIsTheFilterFlag();
    void documentsList_data() { sources(); }
    void documentsList();
    void replacedDocumentsNotifyOnlyWhenDifferent_data() { sources(); }
    void replacedDocumentsNotifyOnlyWhenDifferent();
    void destroyedDocumentLeavesTheList_data() { sources(); }
    void destroyedDocumentLeavesTheList();
    void delegateNotifiesOnChange_data() { sources(); }
    void delegateNotifiesOnChange();
    void containsDragDocumentIsIdentity();
    void attachedObjects_data() { sources(); }
    void attachedObjects();

private:
    static void sources();
    FilteredSource *source() const { return m_source.data(); }

    QScopedPointer<QQuickWindow> m_window;
    QScopedPointer<FilteredSource> m_source;
    QScopedPointer<Document> m_document;
};

void TestDocumentGesture::sources()
{
    QTest::addColumn<bool>("isZone");
    QTest::newRow("DragArea") << false;
    QTest::newRow("DragZone") << true;
}

void TestDocumentGesture::initTestCase()
{
    qmlRegisterType<om::controls::DragArea>("test", 1, 0, "DragArea");
    qmlRegisterType<om::controls::DragZone>("test", 1, 0, "DragZone");
}

void TestDocumentGesture::init()
{
    m_window.reset(new QQuickWindow);
    const QByteArray name = QTest::currentTestFunction();
    bool isZone = name.startsWith("zone") || name.startsWith("contains");
    if (QTest::currentDataTag()) {
        isZone = qstrcmp(QTest::currentDataTag(), "DragZone") == 0;
    }
    if (isZone) {
        m_source.reset(new FilteredSourceOf<om::controls::DragZone>(m_window->contentItem()));
    } else {
        m_source.reset(new FilteredSourceOf<om::controls::DragArea>(m_window->contentItem()));
    }
    m_document.reset(new Document);
    m_source->setDocuments({m_document.data()});
}

void TestDocumentGesture::cleanup()
{
    m_source.reset();
    m_document.reset();
    m_window.reset();
    QCOMPARE(support::leftovers(), QString());
}

/// Counts starts by way of the signal; the loop returns at once.
static int starts(const support::SignalRecorder &recorder)
{
    int count = 0;
    for (int i = 0; i < recorder.entries().size(); ++i) {
        count += recorder.arguments(i).value(0).toBool();
    }
    return count;
}

void TestDocumentGesture::startsAtAManhattanLengthOfFour()
{
    support::SignalRecorder recorder;
    recorder.watch(source()->item(), text("source"), {text("dragActiveChanged")});
    source()->press();
    source()->move(3, 0.9);
    source()->move(-1.9, -2);
    QCOMPARE(starts(recorder), 0);
    source()->move(2, 2);
    QCOMPARE(starts(recorder), 1);
}

void TestDocumentGesture::armedByExactlyTheLeftButton()
{
    support::SignalRecorder recorder;
    recorder.watch(source()->item(), text("source"), {text("dragActiveChanged")});
    source()->press(Qt::LeftButton | Qt::RightButton);
    source()->move(20, 0);
    source()->press(Qt::RightButton);
    source()->move(20, 0);
    QCOMPARE(starts(recorder), 0);
    source()->press(Qt::LeftButton);
    source()->press(Qt::RightButton); // changes nothing
    source()->move(20, 0);
    QCOMPARE(starts(recorder), 1);
}

void TestDocumentGesture::buttonsAreNotTestedAgain()
{
    support::SignalRecorder recorder;
    recorder.watch(source()->item(), text("source"), {text("dragActiveChanged")});
    source()->press();
    source()->move(20, 0, Qt::NoButton);
    QCOMPARE(starts(recorder), 1);
}

void TestDocumentGesture::withoutDocumentsTheGestureIsGivenUp()
{
    support::SignalRecorder recorder;
    recorder.watch(source()->item(), text("source"), {text("dragActiveChanged")});
    source()->setDocuments({});
    source()->press();
    source()->move(1, 0);
    source()->setDocuments({m_document.data()});
    source()->move(20, 0);
    QCOMPARE(starts(recorder), 0);
    source()->press();
    source()->move(20, 0);
    QCOMPARE(starts(recorder), 1);
}

void TestDocumentGesture::releaseDisarms()
{
    support::SignalRecorder recorder;
    recorder.watch(source()->item(), text("source"), {text("dragActiveChanged")});
    source()->press();
    source()->release();
    source()->move(20, 0);
    QVERIFY(recorder.entries().isEmpty());
}

/// Sends real events, for the child to have the mouse.
static void realPressAndMove(QQuickWindow *window)
{
    const auto send = [window](QEvent::Type type, const QPointF &at, Qt::MouseButton button) {
        QMouseEvent event(type, at, at, at, button, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(window, &event);
    };
    send(QEvent::MouseButtonPress, {20, 20}, Qt::LeftButton);
    send(QEvent::MouseMove, {24, 20}, Qt::NoButton);
    QCoreApplication::processEvents();
}

static void realRelease(QQuickWindow *window)
{
    const QPointF at(24, 20);
    QMouseEvent event(QEvent::MouseButtonRelease, at, at, at, Qt::LeftButton, Qt::NoButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(window, &event);
}

/// A child that takes the mouse, as the rows of a list do.
class Taker : public QQuickItem
{
public:
    using QQuickItem::QQuickItem;

protected:
    void mousePressEvent(QMouseEvent *event) override { event->accept(); }
    void mouseMoveEvent(QMouseEvent *event) override { event->accept(); }
};

static Taker *addTaker(QQuickItem *source)
{
    auto *const taker = new Taker(source);
    taker->setSize({100, 100});
    taker->setAcceptedMouseButtons(Qt::LeftButton);
    return taker;
}

void TestDocumentGesture::areaIsActiveUntilTheRelease()
{
    addTaker(source()->item());
    support::SignalRecorder recorder;
    recorder.watch(source()->item(), text("source"), {text("dragActiveChanged")},
                   [this] { return source()->isActive() ? text("on") : text("off"); });
    realPressAndMove(m_window.data());
    QVERIFY(source()->isActive());
    realRelease(m_window.data());
    QVERIFY(!source()->isActive());
    QCOMPARE(recorder.take(),
             (QStringList{text("source.dragActiveChanged [on]"),
                          text("source.dragActiveChanged [off]")}));
}

void TestDocumentGesture::zoneIsDoneWhenTheLoopIs()
{
    addTaker(source()->item());
    support::SignalRecorder recorder;
    recorder.watch(source()->item(), text("source"), {text("dragActiveChanged")});
    realPressAndMove(m_window.data());
    QVERIFY(!source()->isActive());
    QCOMPARE(recorder.entries().size(), 2);
    QCOMPARE(recorder.arguments(0), QVariantList{true});
    QCOMPARE(recorder.arguments(1), QVariantList{false});
    realRelease(m_window.data());
    QCOMPARE(recorder.entries().size(), 2);
}

void TestDocumentGesture::areaPressWhileActiveAnnouncesNoEnd()
{
    addTaker(source()->item());
    realPressAndMove(m_window.data());
    QVERIFY(source()->isActive());
    support::SignalRecorder recorder;
    recorder.watch(source()->item(), text("source"), {text("dragActiveChanged")});
    source()->press();
    QVERIFY(!source()->isActive());
    QVERIFY(recorder.entries().isEmpty());
    source()->release();
    QVERIFY(recorder.entries().isEmpty());
}

void TestDocumentGesture::zoneReleaseInsideTheLoopIsDiscarded()
{
    support::SignalRecorder recorder;
    recorder.watch(source()->item(), text("source"), {text("dragActiveChanged")});
    auto *const zone = qobject_cast<om::controls::DragZone *>(source()->item());
    connect(zone, &om::controls::DragZone::dragActiveChanged, zone, [this](bool active) {
        if (active) {
            source()->release();
        }
    });
    QTest::ignoreMessage(QtDebugMsg, "discard");
    source()->press();
    source()->move(10, 0);
    QVERIFY(!source()->isActive());
    QCOMPARE(recorder.entries().size(), 2);
}

void TestDocumentGesture::areaReleaseInsideTheLoopEndsSilently()
{
    auto *const area = qobject_cast<om::controls::DragArea *>(source()->item());
    connect(area, &om::controls::DragArea::dragActiveChanged, area, [this](bool active) {
        if (active) {
            source()->release();
        }
    });
    source()->press();
    source()->move(10, 0);
    QVERIFY(!source()->isActive());
}

void TestDocumentGesture::keptGrabEndsTheZonesGestureOnly()
{
    QFETCH(bool, isZone);
    auto *const taker = addTaker(source()->item());
    taker->setKeepMouseGrab(true);
    support::SignalRecorder recorder;
    recorder.watch(source()->item(), text("source"), {text("dragActiveChanged")});
    realPressAndMove(m_window.data());
    QCOMPARE(starts(recorder), isZone ? 0 : 1);
    realRelease(m_window.data());
    taker->setKeepMouseGrab(false);
}

void TestDocumentGesture::destroyedInsideDragActiveChanged()
{
    QPointer<QQuickItem> item = source()->item();
    QMetaObject::Connection connection;
    const auto destroy = [item] { delete item.data(); };
    if (auto *const zone = qobject_cast<om::controls::DragZone *>(item)) {
        connect(zone, &om::controls::DragZone::dragActiveChanged, this, destroy);
    } else {
        connect(qobject_cast<om::controls::DragArea *>(item),
                &om::controls::DragArea::dragActiveChanged, this, destroy);
    }
    source()->press();
    source()->move(10, 0);
    QVERIFY(!item);
}

void TestDocumentGesture::nextGestureWorks()
{
    support::SignalRecorder recorder;
    recorder.watch(source()->item(), text("source"), {text("dragActiveChanged")});
    for (int i = 1; i <= 3; ++i) {
        source()->press();
        source()->move(10, 0);
        source()->release();
        QVERIFY(!source()->isActive());
        QCOMPARE(starts(recorder), i);
    }
}

void TestDocumentGesture::dragEnabledIsTheFilterFlag()
{
    QQuickItem *const item = source()->item();
    support::SignalRecorder recorder;
    recorder.watch(item, text("source"));
    QCOMPARE(item->property("dragEnabled").toBool(), true);
    item->setProperty("dragEnabled", true);
    QVERIFY(recorder.entries().isEmpty());
    item->setProperty("dragEnabled", false);
    QVERIFY(!item->filtersChildMouseEvents());
    QCOMPARE(recorder.entries(), QStringList{text("source.dragEnabledChanged")});
    QCOMPARE(recorder.arguments(0), QVariantList{false});
}

void TestDocumentGesture::documentsList()
{
    source()->setDocuments({});
    support::SignalRecorder recorder;
    recorder.watch(source()->item(), text("source"), {text("dragDocumentsChanged")});
    QQmlListProperty<Document> list = source()->list();
    list.append(&list, nullptr);
    list.clear(&list);
    QVERIFY(recorder.take().isEmpty());
    Document other;
    list.append(&list, m_document.data());
    list.append(&list, &other);
    list.append(&list, &other);
    QCOMPARE(recorder.take().size(), 3);
    QCOMPARE(list.count(&list), 3);
    QCOMPARE(list.at(&list, 1), &other);
    list.clear(&list);
    QCOMPARE(recorder.take().size(), 1);
    QCOMPARE(list.count(&list), 0);
}

void TestDocumentGesture::replacedDocumentsNotifyOnlyWhenDifferent()
{
    support::SignalRecorder recorder;
    recorder.watch(source()->item(), text("source"), {text("dragDocumentsChanged")});
    source()->setDocuments({m_document.data()});
    QVERIFY(recorder.take().isEmpty());
    source()->setDocuments({m_document.data(), m_document.data()});
    QCOMPARE(recorder.take().size(), 1);
}

void TestDocumentGesture::destroyedDocumentLeavesTheList()
{
    Document kept;
    source()->setDocuments({m_document.data(), &kept, m_document.data()});
    support::SignalRecorder recorder;
    recorder.watch(source()->item(), text("source"), {text("dragDocumentsChanged")});
    m_document.reset();
    QQmlListProperty<Document> list = source()->list();
    QCOMPARE(list.count(&list), 1);
    QCOMPARE(list.at(&list, 0), &kept);
    QCOMPARE(recorder.take().size(), 1);
    source()->setDocuments({});
}

void TestDocumentGesture::delegateNotifiesOnChange()
{
    QQmlEngine engine;
    QQmlComponent component(&engine);
    support::SignalRecorder recorder;
    recorder.watch(source()->item(), text("source"));
    source()->setDelegate(nullptr);
    source()->setDelegate(&component);
    source()->setDelegate(&component);
    QCOMPARE(recorder.entries(), QStringList{text("source.dragDelegateChanged")});
    QCOMPARE(source()->item()->property("dragDelegate").value<QQmlComponent *>(), &component);
}

void TestDocumentGesture::containsDragDocumentIsIdentity()
{
    auto *const zone = qobject_cast<om::controls::DragZone *>(source()->item());
    Document equal;
    QVERIFY(zone->containsDragDocument(m_document.data()));
    QVERIFY(!zone->containsDragDocument(&equal));
    QVERIFY(!zone->containsDragDocument(nullptr));
    zone->setDragDocuments({});
    QVERIFY(!zone->containsDragDocument(m_document.data()));
}

void TestDocumentGesture::attachedObjects()
{
    QFETCH(bool, isZone);
    QObject owner;
    QObject *const attached = isZone ? qmlAttachedPropertiesObject<om::controls::DragZone>(&owner)
                                     : qmlAttachedPropertiesObject<om::controls::DragArea>(&owner);
    QVERIFY(attached);
    QCOMPARE(attached->parent(), &owner);
    const char *const sourceName = isZone ? "dragZone" : "area";
    const QMetaObject *const meta = attached->metaObject();
    QVERIFY(meta->property(meta->indexOfProperty(sourceName)).isConstant());
    QVERIFY(!attached->property(sourceName).value<QObject *>());

    support::SignalRecorder recorder;
    recorder.watch(attached, text("attached"));
    QCOMPARE(attached->property("isOutside").toBool(), false);
    QCOMPARE(attached->property("isDropped").toBool(), false);
    QCOMPARE(attached->property("delayRemove").toBool(), false);
    QCOMPARE(attached->property("hotspot").toPointF(), QPointF());
    QVERIFY(!attached->setProperty("isOutside", true));
    QVERIFY(!attached->setProperty("isDropped", true));
    attached->setProperty("delayRemove", false);
    attached->setProperty("hotspot", QPointF(1e-13, 0));
    QVERIFY(recorder.entries().isEmpty());
    attached->setProperty("hotspot", QPointF(5, 6));
    attached->setProperty("hotspot", QPointF(5 + 1e-13, 6));
    attached->setProperty("delayRemove", true);
    QCOMPARE(recorder.entries(),
             (QStringList{text("attached.hotspotChanged"), text("attached.delayRemoveChanged")}));
    QCOMPARE(recorder.arguments(0), QVariantList{QPointF(5, 6)});
    QCOMPARE(recorder.arguments(1), QVariantList{true});
}

QTEST_MAIN(TestDocumentGesture)
#include "tst_documentgesture.moc"
