// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Gesture.h"
#include "tests/support/Items.h"
#include "tests/support/Leftovers.h"
#include "tests/support/QmlView.h"

#include <QQmlListReference>
#include <QTest>

using support::itemsOf;
using support::itemWith;
using support::positionIn;

/// The page of popups, used by hand, also where the window ends.
class TestPopupsPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void menuOpensInsideTheWindow_data();
    void menuOpensInsideTheWindow();
    void comboOpensUpwardsWhereTheWindowEnds();
    void comboIsUsedByKeys();
    void flyoutCanBeLetTurn();

private:
    /// The page's popups in the order in which they moved to its root: inner ones come later.
    QQuickItem *popup(int index) const
    {
        return itemsOf(m_view->window()->contentItem(), "om::controls::Popup").value(index);
    }
    QQuickItem *menu() const { return popup(0); }
    QQuickItem *list() const { return popup(1); }
    QQuickItem *withText(const char *text) const
    {
        return itemWith(m_view->window()->contentItem(), "text", QString::fromUtf8(text));
    }
    /// Makes the window end \a below pixels below \a item.
    void endWindow(const QQuickItem *item, int below);
    bool isInside(const QQuickItem *item) const;

    std::unique_ptr<support::QmlView> m_view;
};

void TestPopupsPage::init()
{
    m_view = std::make_unique<support::QmlView>();
    m_view->window()->setResizeMode(QQuickView::SizeRootObjectToView);
    m_view->window()->setGeometry(0, 0, 1000, 520);
    m_view->loadFile(qEnvironmentVariable("OMBREL_SOURCE_DIR")
                     + "/gallery/qml/pages/PopupsPage.qml");
    m_view->show();
    // Columns are laid out with the first frame.
    QVERIFY(!m_view->window()->grabWindow().isNull());
}

void TestPopupsPage::cleanup()
{
    m_view.reset();
    QCOMPARE(support::leftovers(), QString());
}

bool TestPopupsPage::isInside(const QQuickItem *item) const
{
    return QRectF(QPointF(), m_view->window()->size())
        .contains(item->mapRectToScene(item->boundingRect()));
}

void TestPopupsPage::endWindow(const QQuickItem *item, int below)
{
    const int height = int(item->mapToScene({0, item->height()}).y()) + below;
    m_view->window()->resize(1000, height);
    QTRY_COMPARE(m_view->root()->height(), qreal(height));
    QVERIFY(!m_view->window()->grabWindow().isNull());
}

void TestPopupsPage::menuOpensInsideTheWindow_data()
{
    QTest::addColumn<int>("room");
    QTest::addColumn<QPointF>("place");
    QTest::addColumn<bool>("upwards");
    QTest::newRow("room below") << 160 << QPointF(0.1, 0.1) << false;
    QTest::newRow("none below") << 10 << QPointF(0.1, 0.9) << true;
    QTest::newRow("none below, far right") << 10 << QPointF(0.98, 0.9) << true;
}

void TestPopupsPage::menuOpensInsideTheWindow()
{
    QFETCH(int, room);
    QFETCH(QPointF, place);
    QFETCH(bool, upwards);
    QQuickItem *const field = withText("Press the right button here")->parentItem();
    endWindow(field, room);
    const QPoint at = positionIn(field, place.x() * field->width(), place.y() * field->height());
    QVERIFY(m_view->window()->geometry().contains(at));
    support::Gesture gesture;
    gesture.move(at).press(Qt::RightButton).release(Qt::RightButton);
    gesture.until([&] { return withText("Paste") && menu()->opacity() == 1.0; }, "the menu");
    QVERIFY2(gesture.run(), gesture.error());
    QVERIFY(isInside(menu()));
    // One of its corners is under the pointer.
    const QPointF pointer = m_view->window()->mapFromGlobal(at);
    QVERIFY(qAbs(pointer.y() - (menu()->y() + (upwards ? menu()->height() : 0))) <= 1);
}

void TestPopupsPage::comboOpensUpwardsWhereTheWindowEnds()
{
    QQuickItem *const demo = itemsOf(m_view->root(), "PopupDemo").value(0);
    QQuickItem *const box = itemWith(demo, "text", "Summer")->parentItem();
    endWindow(box, 40);
    support::Gesture gesture;
    gesture.move(positionIn(box))
        .press()
        .release()
        .until([&] { return list()->opacity() == 1.0; }, "the list");
    QVERIFY2(gesture.run(), gesture.error());
    QVERIFY(isInside(list()));
    QVERIFY(list()->y() + list()->height() <= box->mapToScene({0, 0}).y());
    // Its place is the usual one again where there is room.
    support::Gesture again;
    again.key(Qt::Key_Escape).until([&] { return !list()->isVisible(); }, "the list to go");
    again.then([&] { endWindow(box, 200); });
    again.move(positionIn(box))
        .press()
        .release()
        .until([&] { return list()->opacity() == 1.0; }, "the list");
    QVERIFY2(again.run(), again.error());
    QVERIFY(list()->y() > box->mapToScene({0, 0}).y());
}

void TestPopupsPage::comboIsUsedByKeys()
{
    QQuickItem *const box =
        itemWith(itemsOf(m_view->root(), "PopupDemo").value(0), "text", "Summer")->parentItem();
    support::Gesture gesture;
    gesture.setPatience(2000);
    gesture.move(positionIn(box))
        .press()
        .release()
        .until([&] { return list()->property("open").toBool(); }, "the list");
    gesture.key(Qt::Key_Down).key(Qt::Key_Return);
    gesture.until([&] { return !list()->property("open").toBool(); }, "the choice");
    // The box has the keys again.
    gesture.key(Qt::Key_Down).until([&] { return list()->property("open").toBool(); }, "the list");
    gesture.key(Qt::Key_Up).key(Qt::Key_Up).key(Qt::Key_Space);
    gesture.until([&] { return !list()->property("open").toBool(); }, "the second choice");
    gesture.key(Qt::Key_Space).until([&] { return list()->property("open").toBool(); }, "the list");
    gesture.key(Qt::Key_Escape)
        .until([&] { return !list()->property("open").toBool(); }, "the end");
    QVERIFY2(gesture.run(), gesture.error());
    // Summer, one down, two up.
    QVERIFY(itemWith(box, "text", "Spring"));
}

void TestPopupsPage::flyoutCanBeLetTurn()
{
    QQuickItem *const demo = itemsOf(m_view->root(), "PopupAnchorItemDemo").value(0);
    m_view->window()->resize(1000, 900);
    m_view->root()->setProperty("contentY", 300);
    QVERIFY(!m_view->window()->grabWindow().isNull());
    // As the step says it: the switch first, then the disc.
    QQuickItem *turning = nullptr;
    const auto switches = itemsOf(demo, "BoolEditor");
    for (QQuickItem *const candidate : switches) {
        if (candidate->property("label").toString() == "turning") {
            turning = candidate;
        }
    }
    QVERIFY(turning);
    const QQmlListReference steps(demo, "steps");
    QVERIFY(steps.at(1)->property("text").toString().startsWith(
        QStringLiteral("Switch on \u201cturning\u201d")));
    QQuickItem *const disc = itemWith(demo, "text", "Show");
    support::Gesture gesture;
    gesture.move(positionIn(turning, 140, turning->height() / 2)).press().release();
    gesture.until([&] { return turning->property("value").toBool(); }, "the switch");
    gesture.move(positionIn(disc))
        .press()
        .release()
        .until([&] { return withText("Hide"); }, "the flyout");
    QVERIFY2(gesture.run(), gesture.error());
    const qreal before = disc->parentItem()->rotation();
    QTRY_VERIFY(disc->parentItem()->rotation() != before);
    QVERIFY(withText("Hide"));
}

QTEST_MAIN(TestPopupsPage)
#include "tst_popupspage.moc"
