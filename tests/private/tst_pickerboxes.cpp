// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Leftovers.h"
#include "tests/support/Pixels.h"
#include "tests/support/QmlView.h"
#include "tests/support/SignalRecorder.h"

#include <QPointer>
#include <QTest>

using namespace support;

/// The two boxes of a colour picker: numbers, mouse and markers.
class TestPickerBoxes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void defaults();
    void clampedAndSilentWhenEqual_data();
    void clampedAndSilentWhenEqual();
    void pressInTheStrip_data();
    void pressInTheStrip();
    void dragOutsideTheStripStaysClamped();
    void pressInTheSquare_data();
    void pressInTheSquare();
    void valueComesBeforeSaturation();
    void onlyTheLeftButton_data();
    void onlyTheLeftButton();
    void pressTakesFocusAndMouse();
    void pressTakesTheFocusFirst();
    void onlyTheSquaresHueRepaints();
    void pressInABoxWithoutExtent_data();
    void pressInABoxWithoutExtent();
    void newSliderStandsAtHueTimesWidth();
    void sliderFollowsTheHue();
    void geometryChangeLeavesTheSlidersX();
    void crossHairIsPlacedAtOnceAndAlways();
    void markersMoveAfterTheSignal();
    void markerBelongsToTheBox_data();
    void markerBelongsToTheBox();
    void replacedMarkerGoesLater_data();
    void replacedMarkerGoesLater();
    void delegateThatIsNoItem_data();
    void delegateThatIsNoItem();
    void delegateThatFailsToCreate_data();
    void delegateThatFailsToCreate();
    void delegateThatDestroysItself_data();
    void delegateThatDestroysItself();
    void delegateComponentDestroyed_data();
    void delegateComponentDestroyed();
    void delegateSetFromItsOwnSignal_data();
    void delegateSetFromItsOwnSignal();
    void delegateThatSetsAnother_data();
    void delegateThatSetsAnother();
    void warningIsOfTheLibrarysCategory_data();
    void warningIsOfTheLibrarysCategory();
    void delegateSeesTheBoxesContext();

private:
    void boxRows();
    QQuickItem *m_strip = nullptr;
    QQuickItem *m_square = nullptr;
    QScopedPointer<QmlView> m_view;
};

void TestPickerBoxes::init()
{
    m_view.reset(new QmlView);
    m_view->loadFile(QStringLiteral("data/boxes.qml"));
    m_view->show();
    m_strip = m_view->item("strip");
    m_square = m_view->item("square");
    QVERIFY(m_strip && m_square);
}

void TestPickerBoxes::cleanup()
{
    m_view.reset();
    QCOMPARE(support::leftovers(), QString());
}

void TestPickerBoxes::defaults()
{
    QCOMPARE(m_strip->property("hue").toInt(), 0);
    QVERIFY(m_strip->property("sliderDelegate").value<QObject *>() == nullptr);
    QCOMPARE(m_square->property("hue").toInt(), 0);
    QCOMPARE(m_square->property("saturation").toInt(), 255);
    QCOMPARE(m_square->property("value").toInt(), 255);
    QVERIFY(m_square->property("crossHairDelegate").value<QObject *>() == nullptr);
    for (QQuickItem *box : {m_strip, m_square}) {
        QVERIFY(box->flags() & QQuickItem::ItemHasContents);
        QCOMPARE(box->acceptedMouseButtons(), Qt::MouseButtons(Qt::LeftButton));
        QVERIFY(box->childItems().isEmpty());
    }
}

void TestPickerBoxes::clampedAndSilentWhenEqual_data()
{
    QTest::addColumn<QString>("box");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("last");
    QTest::newRow("hue of the strip") << "strip" << QByteArray("hue") << 359;
    QTest::newRow("hue of the square") << "square" << QByteArray("hue") << 359;
    QTest::newRow("saturation") << "square" << QByteArray("saturation") << 255;
    QTest::newRow("value") << "square" << QByteArray("value") << 255;
}

void TestPickerBoxes::clampedAndSilentWhenEqual()
{
    QFETCH(QString, box);
    QFETCH(QByteArray, name);
    QFETCH(int, last);
    QObject *object = m_view->find(box);
    object->setProperty(name, 100);
    SignalRecorder recorder;
    recorder.watch(object, QString(), {QString::fromLatin1(name) + QStringLiteral("Changed")});
    const auto set = [&](int value) {
        object->setProperty(name, value);
        return QStringLiteral("%1 %2")
            .arg(object->property(name).toInt())
            .arg(recorder.take().size());
    };
    QCOMPARE(set(101), QStringLiteral("101 1"));
    QCOMPARE(set(101), QStringLiteral("101 0"));
    QCOMPARE(set(last + 1), QStringLiteral("%1 1").arg(last));
    QCOMPARE(set(INT_MAX), QStringLiteral("%1 0").arg(last));
    QCOMPARE(set(-1), QStringLiteral("0 1"));
    QCOMPARE(set(INT_MIN), QStringLiteral("0 0"));
}

void TestPickerBoxes::pressInTheStrip_data()
{
    QTest::addColumn<QPoint>("place");
    QTest::addColumn<int>("hue");
    QTest::newRow("left edge") << QPoint(0, 5) << 0;
    QTest::newRow("right edge") << QPoint(180, 5) << 359;
    QTest::newRow("middle") << QPoint(90, 5) << 180;
}

void TestPickerBoxes::pressInTheStrip()
{
    QFETCH(QPoint, place);
    m_strip->setProperty("hue", 7);
    const QPoint point = m_strip->mapToScene(place).toPoint();
    QTest::mousePress(m_view->window(), Qt::LeftButton, {}, point);
    QTEST(m_strip->property("hue").toInt(), "hue");
    QTest::mouseRelease(m_view->window(), Qt::LeftButton, {}, point);
    QTEST(m_strip->property("hue").toInt(), "hue");
}

void TestPickerBoxes::dragOutsideTheStripStaysClamped()
{
    QTest::mousePress(m_view->window(), Qt::LeftButton, {}, m_strip->mapToScene({50, 5}).toPoint());
    QTest::mouseMove(m_view->window(), m_strip->mapToScene({300, 100}).toPoint());
    QCOMPARE(m_strip->property("hue").toInt(), 359);
    QTest::mouseMove(m_view->window(), m_strip->mapToScene({-15, 100}).toPoint());
    QCOMPARE(m_strip->property("hue").toInt(), 0);
    QTest::mouseRelease(m_view->window(), Qt::LeftButton, {}, QPoint(2, 2));
    QTest::mouseMove(m_view->window(), m_strip->mapToScene({60, 5}).toPoint());
    QCOMPARE(m_strip->property("hue").toInt(), 0);
}

void TestPickerBoxes::pressInTheSquare_data()
{
    QTest::addColumn<QPoint>("place");
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("saturation");
    QTest::newRow("top left") << QPoint(0, 0) << 0 << 255;
    QTest::newRow("top right") << QPoint(100, 0) << 255 << 255;
    QTest::newRow("bottom left") << QPoint(0, 80) << 0 << 0;
    QTest::newRow("bottom right") << QPoint(100, 80) << 255 << 0;
    QTest::newRow("middle") << QPoint(50, 40) << 128 << 128;
}

void TestPickerBoxes::pressInTheSquare()
{
    QFETCH(QPoint, place);
    m_square->setProperty("value", 77);
    m_square->setProperty("saturation", 77);
    const QPoint point = m_square->mapToScene(place).toPoint();
    QTest::mousePress(m_view->window(), Qt::LeftButton, {}, point);
    QTEST(m_square->property("value").toInt(), "value");
    QTEST(m_square->property("saturation").toInt(), "saturation");
    QTest::mouseRelease(m_view->window(), Qt::LeftButton, {}, point);
}

void TestPickerBoxes::valueComesBeforeSaturation()
{
    SignalRecorder recorder;
    recorder.watch(m_square, QStringLiteral("square"),
                   {QStringLiteral("valueChanged"), QStringLiteral("saturationChanged")}, [this] {
                       return QStringLiteral("%1 %2")
                           .arg(m_square->property("value").toInt())
                           .arg(m_square->property("saturation").toInt());
                   });
    QTest::mousePress(m_view->window(), Qt::LeftButton, {},
                      m_square->mapToScene({0, 80}).toPoint());
    QCOMPARE(recorder.take(),
             (QStringList{QStringLiteral("square.valueChanged [0 255]"),
                          QStringLiteral("square.saturationChanged [0 0]")}));
    QTest::mouseRelease(m_view->window(), Qt::LeftButton, {},
                        m_square->mapToScene({0, 80}).toPoint());
}

void TestPickerBoxes::onlyTheLeftButton_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("right") << int(Qt::RightButton);
    QTest::newRow("middle") << int(Qt::MiddleButton);
}

void TestPickerBoxes::onlyTheLeftButton()
{
    QFETCH(int, button);
    const QPoint strip = m_strip->mapToScene({90, 5}).toPoint();
    const QPoint square = m_square->mapToScene({9, 9}).toPoint();
    QTest::mouseClick(m_view->window(), Qt::MouseButton(button), {}, strip);
    QTest::mouseClick(m_view->window(), Qt::MouseButton(button), {}, square);
    QCOMPARE(m_strip->property("hue").toInt(), 0);
    QCOMPARE(m_square->property("value").toInt(), 255);
    QCOMPARE(m_square->property("saturation").toInt(), 255);
}

void TestPickerBoxes::pressTakesFocusAndMouse()
{
    for (QQuickItem *box : {m_strip, m_square}) {
        const QPoint point = box->mapToScene({5, 5}).toPoint();
        QVERIFY(!box->hasActiveFocus());
        QTest::mousePress(m_view->window(), Qt::LeftButton, {}, point);
        QVERIFY(box->hasActiveFocus());
        QCOMPARE(m_view->window()->mouseGrabberItem(), box);
        QTest::mouseRelease(m_view->window(), Qt::LeftButton, {}, point);
        QVERIFY(m_view->window()->mouseGrabberItem() != box);
    }
}

/// A window makes the item that accepts a press the mouse grabber. The box grabs the mouse itself,
/// so that a press sent to it directly works as well.
void TestPickerBoxes::pressTakesTheFocusFirst()
{
    for (QQuickItem *box : {m_strip, m_square}) {
        const QString chosen =
            box == m_strip ? QStringLiteral("hueChanged") : QStringLiteral("valueChanged");
        SignalRecorder recorder;
        recorder.watch(box, QString(), {QStringLiteral("activeFocusChanged"), chosen}, [this, box] {
            const bool grabbed = m_view->window()->mouseGrabberItem() == box;
            return grabbed ? QStringLiteral("grabbed") : QStringLiteral("free");
        });
        QMouseEvent press(QEvent::MouseButtonPress, {50, 5}, Qt::LeftButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(box, &press);
        QCOMPARE(recorder.take(),
                 (QStringList{QStringLiteral(".activeFocusChanged [free]"),
                              QStringLiteral(".%1 [grabbed]").arg(chosen)}));
        QMouseEvent release(QEvent::MouseButtonRelease, {50, 5}, Qt::LeftButton, {}, {});
        QCoreApplication::sendEvent(box, &release);
        QVERIFY(!m_view->window()->mouseGrabberItem());
    }
}

void TestPickerBoxes::onlyTheSquaresHueRepaints()
{
    const auto frames = [this](QQuickItem *box, const char *name) {
        return framesOf(m_view->window(), [&] { box->setProperty(name, 100); });
    };
    QCOMPARE(framesWhileIdle(m_view->window()), 0);
    QCOMPARE(frames(m_strip, "hue"), 0);
    QCOMPARE(frames(m_square, "saturation"), 0);
    QCOMPARE(frames(m_square, "value"), 0);
    QVERIFY(frames(m_square, "hue") > 0);
}

void TestPickerBoxes::pressInABoxWithoutExtent_data()
{
    QTest::addColumn<double>("extent");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    QTest::newRow("zero") << 0.0 << 0 << 359;
    QTest::newRow("negative") << -10.0 << 0 << 0;
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << 0 << 0;
    QTest::newRow("10^9") << 1e9 << 0 << 0;
}

/// Such a box gets no events from its window; they are handed to it directly.
void TestPickerBoxes::pressInABoxWithoutExtent()
{
    QFETCH(double, extent);
    for (QQuickItem *box : {m_strip, m_square}) {
        box->setSize({extent, extent});
        const auto press = [box](const QPointF &place) {
            QMouseEvent event(QEvent::MouseMove, place, Qt::LeftButton, Qt::LeftButton, {});
            QCoreApplication::sendEvent(box, &event);
        };
        press({0, 0});
        QCOMPARE(m_strip->property("hue").toInt(), 0);
        press({20, 20});
        if (box == m_strip) {
            QTEST(m_strip->property("hue").toInt(), "last");
            press({-20, 20});
            if (extent >= 0) {
                QTEST(m_strip->property("hue").toInt(), "first");
            }
        }
        press({std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()});
        for (const char *name : {"value", "saturation"}) {
            const int component = m_square->property(name).toInt();
            QVERIFY(component >= 0 && component <= 255);
        }
        QVERIFY(m_strip->property("hue").toInt() >= 0 && m_strip->property("hue").toInt() <= 359);
    }
}

void TestPickerBoxes::newSliderStandsAtHueTimesWidth()
{
    m_strip->setProperty("hue", 3);
    evaluate(m_strip, QStringLiteral("sliderDelegate = markers"));
    QQuickItem *slider = m_strip->childItems().value(0);
    QVERIFY(slider);
    QCOMPARE(slider->x(), 3 * 180.0);
    QCOMPARE(slider->y(), 10.0);
    m_strip->setProperty("hue", 4);
    QCOMPARE(slider->x(), 180.0 * 4 / 359);
}

void TestPickerBoxes::sliderFollowsTheHue()
{
    evaluate(m_strip, QStringLiteral("sliderDelegate = markers"));
    QQuickItem *slider = m_strip->childItems().value(0);
    QCOMPARE(slider->position(), QPointF(0, 10));
    m_strip->setProperty("hue", 359);
    QCOMPARE(slider->x(), 180.0);
    QTest::mouseClick(m_view->window(), Qt::LeftButton, {}, m_strip->mapToScene({45, 5}).toPoint());
    QCOMPARE(slider->x(), 180.0 * m_strip->property("hue").toInt() / 359);
}

void TestPickerBoxes::geometryChangeLeavesTheSlidersX()
{
    evaluate(m_strip, QStringLiteral("sliderDelegate = markers"));
    m_strip->setProperty("hue", 100);
    QQuickItem *slider = m_strip->childItems().value(0);
    const qreal x = slider->x();
    m_strip->setSize({360, 40});
    QCOMPARE(slider->x(), x);
    QCOMPARE(slider->y(), 20.0);
}

void TestPickerBoxes::crossHairIsPlacedAtOnceAndAlways()
{
    m_square->setProperty("hue", 99);
    m_square->setProperty("value", 51);
    m_square->setProperty("saturation", 204);
    evaluate(m_square, QStringLiteral("crossHairDelegate = markers"));
    QQuickItem *cross = m_square->childItems().value(0);
    QVERIFY(cross);
    QCOMPARE(cross->x(), 20.0);
    QCOMPARE(cross->y(), 16.0);
    m_square->setProperty("value", 255);
    QCOMPARE(cross->x(), 100.0);
    m_square->setProperty("saturation", 0);
    QCOMPARE(cross->y(), 80.0);
    m_square->setSize({300, 200});
    QCOMPARE(cross->position(), QPointF(300, 200));
}

void TestPickerBoxes::markersMoveAfterTheSignal()
{
    evaluate(m_strip, QStringLiteral("sliderDelegate = markers"));
    evaluate(m_square, QStringLiteral("crossHairDelegate = markers"));
    QQuickItem *slider = m_strip->childItems().value(0);
    QQuickItem *cross = m_square->childItems().value(0);
    const auto place = [](const QQuickItem *item) {
        return QStringLiteral("%1 %2").arg(item->x()).arg(item->y());
    };
    SignalRecorder recorder;
    recorder.watch(m_strip, QStringLiteral("strip"), {QStringLiteral("hueChanged")},
                   [&] { return place(slider); });
    recorder.watch(m_square, QStringLiteral("square"),
                   {QStringLiteral("valueChanged"), QStringLiteral("saturationChanged")},
                   [&] { return place(cross); });
    m_strip->setProperty("hue", 359);
    m_square->setProperty("value", 51);
    m_square->setProperty("saturation", 0);
    QCOMPARE(recorder.take(),
             (QStringList{QStringLiteral("strip.hueChanged [0 10]"),
                          QStringLiteral("square.valueChanged [100 0]"),
                          QStringLiteral("square.saturationChanged [20 0]")}));
    QCOMPARE(place(slider), QStringLiteral("180 10"));
    QCOMPARE(place(cross), QStringLiteral("20 80"));
}

void TestPickerBoxes::boxRows()
{
    QTest::addColumn<QString>("box");
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QByteArray>("warning");
    QTest::newRow("strip") << "strip" << QByteArray("sliderDelegate")
                           << QByteArray("Slider delegate must be a quick item");
    QTest::newRow("square") << "square" << QByteArray("crossHairDelegate")
                            << QByteArray("Crosshair delegate must be a quick item");
}

static QQuickItem *give(QQuickItem *box, const QByteArray &property, const char *component)
{
    evaluate(box,
             QStringLiteral("%1 = %2").arg(QString::fromLatin1(property),
                                           QString::fromLatin1(component)));
    return box->childItems().value(0);
}

void TestPickerBoxes::markerBelongsToTheBox_data()
{
    boxRows();
}

void TestPickerBoxes::markerBelongsToTheBox()
{
    QFETCH(QString, box);
    QFETCH(QByteArray, property);
    auto *item = qobject_cast<QQuickItem *>(m_view->find(box));
    SignalRecorder recorder;
    recorder.watch(item, QString(), {QString::fromLatin1(property) + QStringLiteral("Changed")},
                   [item] { return QString::number(item->childItems().size()); });
    QQuickItem *marker = give(item, property, "markers");
    QVERIFY(marker);
    QCOMPARE(marker->parent(), item);
    // Announced before the marker is made, and not when set again.
    QCOMPARE(recorder.take(),
             QStringList{QStringLiteral(".%1Changed [0]").arg(QString::fromLatin1(property))});
    QCOMPARE(give(item, property, "markers"), marker);
    QCOMPARE(recorder.take(), QStringList());
}

void TestPickerBoxes::replacedMarkerGoesLater_data()
{
    boxRows();
}

void TestPickerBoxes::replacedMarkerGoesLater()
{
    QFETCH(QString, box);
    QFETCH(QByteArray, property);
    auto *item = qobject_cast<QQuickItem *>(m_view->find(box));
    const QPointer<QQuickItem> first = give(item, property, "markers");
    QVERIFY(first);
    give(item, property, "otherMarkers");
    QVERIFY(first);
    QCOMPARE(item->childItems().size(), 2);
    QTRY_VERIFY(!first);
    QCOMPARE(item->childItems().size(), 1);
    const QPointer<QQuickItem> second = item->childItems().value(0);
    give(item, property, "null");
    QTRY_VERIFY(!second);
    QVERIFY(item->childItems().isEmpty());
}

void TestPickerBoxes::delegateThatIsNoItem_data()
{
    boxRows();
}

void TestPickerBoxes::delegateThatIsNoItem()
{
    QFETCH(QString, box);
    QFETCH(QByteArray, property);
    QFETCH(QByteArray, warning);
    auto *item = qobject_cast<QQuickItem *>(m_view->find(box));
    QTest::ignoreMessage(QtWarningMsg, warning);
    QVERIFY(!give(item, property, "objects"));
    // The component stays.
    QCOMPARE(item->property(property).value<QObject *>(),
             evaluate(item, QStringLiteral("objects")).value<QObject *>());
    QCOMPARE(evaluate(item, QStringLiteral("objectsMade")).toInt(), 1);
    QTRY_COMPARE(evaluate(item, QStringLiteral("objectsGone")).toInt(), 1);
    item->setProperty("hue", 5);
    item->setSize({30, 30});
}

void TestPickerBoxes::delegateThatFailsToCreate_data()
{
    boxRows();
}

void TestPickerBoxes::delegateThatFailsToCreate()
{
    QFETCH(QString, box);
    QFETCH(QByteArray, property);
    QFETCH(QByteArray, warning);
    auto *item = qobject_cast<QQuickItem *>(m_view->find(box));
    QQmlComponent broken(m_view->engine());
    broken.setData("import QtQuick 2.12\nItem { width: }", QUrl());
    QTest::ignoreMessage(QtWarningMsg, "QQmlComponent: Component is not ready");
    QTest::ignoreMessage(QtWarningMsg, warning);
    item->setProperty(property, QVariant::fromValue(&broken));
    QVERIFY(item->childItems().isEmpty());
    item->setProperty("hue", 5);
    item->setSize({30, 30});
    QVERIFY(give(item, property, "markers"));
}

void TestPickerBoxes::delegateThatDestroysItself_data()
{
    boxRows();
}

void TestPickerBoxes::delegateThatDestroysItself()
{
    QFETCH(QString, box);
    QFETCH(QByteArray, property);
    auto *item = qobject_cast<QQuickItem *>(m_view->find(box));
    // Scheduled for deletion when it becomes a child of the box, before it is placed.
    SignalRecorder recorder;
    recorder.watch(item, QString(), {QStringLiteral("childrenChanged")}, [item] {
        if (QQuickItem *marker = item->childItems().value(0)) {
            marker->deleteLater();
        }
        return QString();
    });
    QVERIFY(give(item, property, "markers"));
    QTRY_VERIFY(item->childItems().isEmpty());
    item->setProperty("hue", 5);
    item->setProperty("value", 5);
    item->setSize({30, 30});
    QVERIFY(give(item, property, "otherMarkers"));
    delete item->childItems().value(0);
    item->setProperty("hue", 6);
    item->setSize({40, 40});
}

void TestPickerBoxes::delegateComponentDestroyed_data()
{
    boxRows();
}

void TestPickerBoxes::delegateComponentDestroyed()
{
    QFETCH(QString, box);
    QFETCH(QByteArray, property);
    auto *item = qobject_cast<QQuickItem *>(m_view->find(box));
    auto component = std::make_unique<QQmlComponent>(m_view->engine());
    component->setData("import QtQuick 2.12\nItem {}", QUrl());
    item->setProperty(property, QVariant::fromValue(component.get()));
    QCOMPARE(item->childItems().size(), 1);
    component.reset();
    QVERIFY(!item->property(property).value<QObject *>());
    item->setProperty("hue", 9);
    QVERIFY(give(item, property, "markers"));
}

void TestPickerBoxes::delegateSetFromItsOwnSignal_data()
{
    boxRows();
}

void TestPickerBoxes::delegateSetFromItsOwnSignal()
{
    QFETCH(QString, box);
    QFETCH(QByteArray, property);
    auto *item = qobject_cast<QQuickItem *>(m_view->find(box));
    SignalRecorder recorder;
    bool done = false;
    recorder.watch(item, QString(), {QString::fromLatin1(property) + QStringLiteral("Changed")},
                   [&] {
                       if (!done) {
                           done = true;
                           give(item, property, "otherMarkers");
                       }
                       return QString();
                   });
    give(item, property, "objects");
    QCOMPARE(item->childItems().size(), 1);
    QCOMPARE(item->childItems().value(0)->objectName(), QStringLiteral("other"));
    // The delegate that was replaced meanwhile makes no object.
    QCOMPARE(evaluate(item, QStringLiteral("objectsMade")).toInt(), 0);
}

void TestPickerBoxes::delegateThatSetsAnother_data()
{
    boxRows();
}

/// In its completion handler, before the box has got its item.
void TestPickerBoxes::delegateThatSetsAnother()
{
    QFETCH(QString, box);
    QFETCH(QByteArray, property);
    auto *item = qobject_cast<QQuickItem *>(m_view->find(box));
    QCOMPARE(give(item, property, "changingItsMind")->objectName(), QStringLiteral("other"));
    QCOMPARE(evaluate(item, QStringLiteral("changingItsMindMade")).toInt(), 1);
    QTRY_COMPARE(evaluate(item, QStringLiteral("changingItsMindGone")).toInt(), 1);
    QCOMPARE(item->childItems().size(), 1);
}

void TestPickerBoxes::warningIsOfTheLibrarysCategory_data()
{
    boxRows();
}

static QStringList categories;

void TestPickerBoxes::warningIsOfTheLibrarysCategory()
{
    QFETCH(QString, box);
    QFETCH(QByteArray, property);
    QFETCH(QByteArray, warning);
    auto *item = qobject_cast<QQuickItem *>(m_view->find(box));
    categories.clear();
    const QtMessageHandler before = qInstallMessageHandler([](QtMsgType,
                                                              const QMessageLogContext &context,
                                                              const QString &message) {
        categories.append(QString::fromLatin1(context.category) + QLatin1String(": ") + message);
    });
    give(item, property, "objects");
    qInstallMessageHandler(before);
    QCOMPARE(categories,
             QStringList{QLatin1String("ombrel.controls: ") + QString::fromLatin1(warning)});
}

void TestPickerBoxes::delegateSeesTheBoxesContext()
{
    give(m_strip, "sliderDelegate", "markers");
    QCOMPARE(m_strip->childItems().value(0)->property("boxHue").toInt(), 0);
    m_strip->setProperty("hue", 8);
    QCOMPARE(m_strip->childItems().value(0)->property("boxHue").toInt(), 8);
}

QTEST_MAIN(TestPickerBoxes)
#include "tst_pickerboxes.moc"
