// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/input/HoverArea.h"
#include "tests/support/Leftovers.h"

#include <QMouseEvent>
#include <QPointer>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace om::controls;

namespace {

/// Counts the presses that it takes.
class Pad : public QQuickItem
{
public:
    explicit Pad(QQuickItem *parent)
        : QQuickItem(parent)
    {
        setAcceptedMouseButtons(Qt::LeftButton);
    }
    int presses = 0;

protected:
    void mousePressEvent(QMouseEvent *event) override
    {
        ++presses;
        event->accept();
    }
};

/// Notes whether its handlers accept the events.
class Area : public HoverArea
{
public:
    using HoverArea::HoverArea;
    bool keepsAccepted(QEvent::Type type)
    {
        QHoverEvent event(type, QPointF(1, 1), QPointF(-1, -1));
        event.accept();
        if (type == QEvent::HoverEnter) {
            hoverEnterEvent(&event);
        } else {
            hoverLeaveEvent(&event);
        }
        return event.isAccepted();
    }
};

const QPoint inside(60, 60);
const QPoint outside(180, 180);

/// An area at 20, 20 of 80 × 80 over a pad that fills the window.
struct Scene
{
    Scene()
        : pad(new Pad(window.contentItem()))
        , area(new HoverArea(window.contentItem()))
    {
        window.resize(200, 200);
        pad->setSize(QSizeF(200, 200));
        area->setPosition(QPointF(20, 20));
        area->setSize(QSizeF(80, 80));
        QObject::connect(area, &HoverArea::hoveredChanged,
                         [this](bool hovered) { changes.append(hovered); });
        QObject::connect(area, &HoverArea::disabledChanged, [this] { ++disabledChanges; });
    }
    bool show()
    {
        window.show();
        window.requestActivate();
        return QTest::qWaitForWindowActive(&window);
    }
    void move(const QPoint &position)
    {
        QMouseEvent event(QEvent::MouseMove, position, window.mapToGlobal(position), Qt::NoButton,
                          Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &event);
    }
    QList<bool> changes;
    int disabledChanges = 0;
    QQuickWindow window;
    Pad *pad;
    QPointer<HoverArea> area;
};

} // namespace

class TestHoverArea : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(support::leftovers(), QString()); }
    void properties();
    void enterAndLeave();
    void onlyChangesAreSignalled();
    void pressesReachTheItemBelow();
    void handlersLeaveTheEventAlone();
    void disabledChangedIsNeverEmitted();
    void hiddenUnderARestingPointer();
    void disabledUnderARestingPointer();
    void movedUnderARestingPointer();
    void leavesWithItsWindow_data();
    void leavesWithItsWindow();
    void enteredAgainBeforeItHasLeft();
    void destroyedUnderARestingPointer();
    void readWhileItIsDestroyed();
    void destroyedInItsOwnSignal_data();
    void destroyedInItsOwnSignal();
    void windowDestroyedUnderARestingPointer();
};

void TestHoverArea::properties()
{
    HoverArea area;
    QVERIFY(!area.isHovered());
    QVERIFY(area.acceptHoverEvents());
    QCOMPARE(area.acceptedMouseButtons(), Qt::NoButton);
    const QMetaObject &type = HoverArea::staticMetaObject;
    const QMetaProperty hovered = type.property(type.indexOfProperty("hovered"));
    QVERIFY(!hovered.isWritable());
    QCOMPARE(hovered.notifySignal().methodSignature(), QByteArray("hoveredChanged(bool)"));
    QCOMPARE(hovered.notifySignal().parameterNames().value(0), QByteArray("hovered"));
    const int disabled = type.indexOfSignal("disabledChanged(bool)");
    QVERIFY(disabled >= 0);
    QCOMPARE(type.method(disabled).parameterNames().value(0), QByteArray("disabled"));
}

void TestHoverArea::enterAndLeave()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.move(outside);
    scene.changes.clear();
    scene.move(inside);
    QCOMPARE(scene.changes, QList<bool>({true}));
    QVERIFY(scene.area->isHovered());
    scene.move(outside);
    QCOMPARE(scene.changes, QList<bool>({true, false}));
    QVERIFY(!scene.area->isHovered());
}

void TestHoverArea::onlyChangesAreSignalled()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.move(outside);
    scene.changes.clear();
    const auto send = [&scene](QEvent::Type type) {
        QHoverEvent event(type, QPointF(1, 1), QPointF(-1, -1));
        QCoreApplication::sendEvent(scene.area, &event);
    };
    send(QEvent::HoverLeave);
    QCOMPARE(scene.changes, QList<bool>());
    send(QEvent::HoverEnter);
    send(QEvent::HoverEnter);
    QCOMPARE(scene.changes, QList<bool>({true}));
    send(QEvent::HoverLeave);
    send(QEvent::HoverLeave);
    QCOMPARE(scene.changes, QList<bool>({true, false}));
}

void TestHoverArea::pressesReachTheItemBelow()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.move(inside);
    QTest::mouseClick(&scene.window, Qt::LeftButton, Qt::NoModifier, inside);
    QCOMPARE(scene.pad->presses, 1);
    QVERIFY(scene.area->isHovered());
}

void TestHoverArea::handlersLeaveTheEventAlone()
{
    Area area;
    QVERIFY(area.keepsAccepted(QEvent::HoverEnter));
    QVERIFY(area.keepsAccepted(QEvent::HoverLeave));
}

void TestHoverArea::disabledChangedIsNeverEmitted()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.area->setEnabled(false);
    scene.area->setEnabled(true);
    scene.window.contentItem()->setEnabled(false);
    scene.window.contentItem()->setEnabled(true);
    scene.move(inside);
    scene.move(outside);
    QCOMPARE(scene.disabledChanges, 0);
}

void TestHoverArea::hiddenUnderARestingPointer()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.move(inside);
    scene.area->setVisible(false);
    scene.move(outside);
    QVERIFY(!scene.area->isHovered());
    scene.area->setVisible(true);
    scene.move(inside);
    QVERIFY(scene.area->isHovered());
}

void TestHoverArea::disabledUnderARestingPointer()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.move(inside);
    scene.area->setEnabled(false);
    scene.move(outside);
    scene.area->setEnabled(true);
    scene.move(inside);
    QVERIFY(scene.area->isHovered());
    scene.move(outside);
    QVERIFY(!scene.area->isHovered());
}

void TestHoverArea::movedUnderARestingPointer()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.move(inside);
    QVERIFY(scene.area->isHovered());
    scene.area->setPosition(QPointF(110, 110));
    scene.move(inside + QPoint(1, 0));
    QVERIFY(!scene.area->isHovered());
    scene.move(QPoint(150, 150));
    QVERIFY(scene.area->isHovered());
    // Into another window.
    QQuickWindow other;
    scene.area->setParentItem(other.contentItem());
    scene.move(outside);
    scene.area->setParentItem(scene.window.contentItem());
    scene.move(QPoint(150, 150));
    QVERIFY(scene.area->isHovered());
}

void TestHoverArea::leavesWithItsWindow_data()
{
    QTest::addColumn<bool>("toAnother");
    QTest::addColumn<bool>("deleted");
    QTest::newRow("into another window") << true << false;
    QTest::newRow("out of its window") << false << false;
    QTest::newRow("into another window, deleted for it") << true << true;
    QTest::newRow("out of its window, deleted for it") << false << true;
}

/// A window sends no hover-leave event to an item that leaves it.
void TestHoverArea::leavesWithItsWindow()
{
    QFETCH(bool, toAnother);
    QFETCH(bool, deleted);
    Scene scene;
    QQuickWindow other;
    QVERIFY(scene.show());
    scene.move(outside);
    scene.changes.clear();
    scene.move(inside);
    if (deleted) {
        connect(scene.area, &HoverArea::hoveredChanged, this,
                [&scene] { delete scene.area.data(); });
    }
    scene.area->setParentItem(toAnother ? other.contentItem() : nullptr);
    QTRY_COMPARE(scene.changes, QList<bool>({true, false}));
    if (deleted) {
        QVERIFY(!scene.area);
        return;
    }
    QVERIFY(!scene.area->isHovered());
    // Back again, it is told of the pointer as before.
    scene.area->setParentItem(scene.window.contentItem());
    scene.move(inside + QPoint(1, 0));
    QCOMPARE(scene.changes, QList<bool>({true, false, true}));
}

/// Out of the window and back within one turn of the event loop, with the pointer over the area.
void TestHoverArea::enteredAgainBeforeItHasLeft()
{
    Scene scene;
    QQuickWindow other;
    QVERIFY(scene.show());
    scene.move(outside);
    scene.changes.clear();
    scene.move(inside);
    scene.area->setParentItem(other.contentItem());
    scene.area->setParentItem(scene.window.contentItem());
    scene.move(inside + QPoint(1, 0));
    QCoreApplication::processEvents();
    QVERIFY(scene.area->isHovered());
    QCOMPARE(scene.changes, QList<bool>({true}));
    scene.move(outside);
    QCOMPARE(scene.changes, QList<bool>({true, false}));
}

void TestHoverArea::destroyedUnderARestingPointer()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.move(inside);
    QVERIFY(scene.area->isHovered());
    delete scene.area;
    scene.move(inside + QPoint(1, 0));
    scene.move(outside);
    // The window delivers as before.
    QTest::mouseClick(&scene.window, Qt::LeftButton, Qt::NoModifier, inside);
    QCOMPARE(scene.pad->presses, 1);
}

/// The destructor leaves the item tree first: handlers of that may read the area's properties.
void TestHoverArea::readWhileItIsDestroyed()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.move(inside);
    QVERIFY(scene.area->isHovered());
    const QObject *const area = scene.area;
    QVariantList seen;
    connect(scene.area, &QQuickItem::windowChanged, this,
            [&seen, area] { seen.append(area->property("hovered")); });
    delete scene.area;
    QCOMPARE(seen, QVariantList{true});
}

void TestHoverArea::destroyedInItsOwnSignal_data()
{
    QTest::addColumn<bool>("hovered");
    QTest::addColumn<bool>("atOnce");
    QTest::newRow("on entering, at once") << true << true;
    // Not deleted at once on leaving: the window uses the item after its event.
    QTest::newRow("on entering, later") << true << false;
    QTest::newRow("on leaving, later") << false << false;
}

void TestHoverArea::destroyedInItsOwnSignal()
{
    QFETCH(bool, hovered);
    QFETCH(bool, atOnce);
    Scene scene;
    QVERIFY(scene.show());
    scene.move(outside);
    connect(scene.area, &HoverArea::hoveredChanged, this, [&scene, hovered, atOnce](bool value) {
        if (value != hovered) {
            return;
        }
        if (atOnce) {
            delete scene.area.data();
        } else {
            scene.area->deleteLater();
        }
    });
    scene.move(inside);
    scene.move(outside);
    QTRY_VERIFY(!scene.area);
    scene.move(inside);
    scene.move(outside);
    QTest::mouseClick(&scene.window, Qt::LeftButton, Qt::NoModifier, inside);
    QCOMPARE(scene.pad->presses, 1);
}

void TestHoverArea::windowDestroyedUnderARestingPointer()
{
    HoverArea area;
    area.setSize(QSizeF(80, 80));
    {
        Scene scene;
        QVERIFY(scene.show());
        scene.area->setVisible(false);
        area.setParentItem(scene.window.contentItem());
        scene.move(outside);
        scene.move(inside);
        QVERIFY(area.isHovered());
    }
    QVERIFY(!area.window());
    Scene scene;
    QVERIFY(scene.show());
    area.setParentItem(scene.window.contentItem());
    scene.move(inside);
    scene.move(outside);
    QVERIFY(!area.isHovered());
    area.setParentItem(nullptr);
}

QTEST_MAIN(TestHoverArea)
#include "tst_hoverarea.moc"
