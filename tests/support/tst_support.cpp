// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Items.h"
#include "tests/support/Leftovers.h"
#include "tests/support/ObjectCensus.h"
#include "tests/support/Pixels.h"
#include "tests/support/QmlView.h"
#include "tests/support/SignalRecorder.h"

#include <QBasicTimer>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSGTexture>
#include <QTest>
#include <QTimer>
#include <QVariantAnimation>
#include <QWindow>

#include <memory>

/// The helpers are held to their promises first: a comparer that accepts anything makes every
/// test above it worthless.
class TestSupport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pixelErrorRejectsEachChannel_data();
    void pixelErrorRejectsEachChannel();
    void pixelErrorRejectsPointsOutside();
    void imageErrorRejectsSizeAndContent();
    void coarseDifferenceSeesMoreThanAPixel();
    void paletteKeepsColors();
    void paletteIsRefusedWhereItIsTooSmall();
    void recorderKeepsOrderAndArguments();
    void recorderSeesWritesBetweenSignals();
    void itemsAreFoundByTypePropertyAndText();
    void leftoversNameVisibleWindows();
    void leftoversNameObjects();
    void leftoversNameObjectsOfTheLibrary();
    void leftoversNameTextures();
    void leftoversNameNodes();
    void leftoversNameEventFilters();
    void leftoversNameTimers();
    void leftoversNameRunningAnimations();
    void leftoversCountOpenDialogs();
    void leftoversForgetEarlierTests_data();
    void leftoversForgetEarlierTests();

private:
    /// Lives from one row to the next.
    std::unique_ptr<QQuickItem> m_earlier;
};

void TestSupport::pixelErrorRejectsEachChannel_data()
{
    QTest::addColumn<QColor>("expected");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("same") << QColor(100, 100, 100, 200) << true;
    QTest::newRow("within tolerance") << QColor(102, 98, 102, 198) << true;
    QTest::newRow("red") << QColor(103, 100, 100, 200) << false;
    QTest::newRow("green") << QColor(100, 103, 100, 200) << false;
    QTest::newRow("blue") << QColor(100, 100, 97, 200) << false;
    QTest::newRow("alpha") << QColor(100, 100, 100, 203) << false;
}

void TestSupport::pixelErrorRejectsEachChannel()
{
    QFETCH(QColor, expected);
    QFETCH(bool, accepted);
    QImage image(2, 2, QImage::Format_ARGB32);
    image.fill(QColor(100, 100, 100, 200));
    QCOMPARE(support::pixelError(image, {1, 1}, expected, 2).isEmpty(), accepted);
}

void TestSupport::pixelErrorRejectsPointsOutside()
{
    QImage image(2, 2, QImage::Format_ARGB32);
    image.fill(Qt::red);
    QVERIFY(!support::pixelError(image, {2, 0}, Qt::red).isEmpty());
    QVERIFY(!support::pixelError(QImage(), {0, 0}, Qt::red).isEmpty());
}

void TestSupport::imageErrorRejectsSizeAndContent()
{
    QImage image(3, 2, QImage::Format_ARGB32);
    image.fill(Qt::red);
    QImage other = image;
    QCOMPARE(support::imageError(image, other), QString());
    other.setPixelColor(2, 1, Qt::blue);
    QVERIFY(!support::imageError(image, other).isEmpty());
    QVERIFY(!support::imageError(image, image.copy(0, 0, 2, 2)).isEmpty());
}

/// The comparison is coarse; this is what it still sees.
void TestSupport::coarseDifferenceSeesMoreThanAPixel()
{
    QImage one(80, 80, QImage::Format_RGB32);
    one.fill(Qt::white);
    QCOMPARE(support::coarseDifference(one, one), 0);
    QImage other = one;
    other.setPixel(40, 40, qRgb(0, 0, 0));
    QVERIFY(support::coarseDifference(one, other) <= 16);
    for (int x = 40; x < 48; ++x) {
        for (int y = 40; y < 48; ++y) {
            other.setPixel(x, y, qRgb(200, 255, 255));
        }
    }
    QVERIFY(support::coarseDifference(one, other) > 16);
    QCOMPARE(support::coarseDifference(one, QImage(80, 81, QImage::Format_RGB32)), 255);
    QCOMPARE(support::coarseDifference(one, QImage()), 255);
}

void TestSupport::paletteKeepsColors()
{
    // More colours than a palette has, most of them near another one.
    QImage image(40, 40, QImage::Format_RGB32);
    for (int x = 0; x < 40; ++x) {
        for (int y = 0; y < 40; ++y) {
            image.setPixel(x, y, qRgb(6 * x, 6 * x + y / 6, 100));
        }
    }
    // Two grounds that are nearly alike stay two.
    for (int x = 0; x < 40; ++x) {
        image.setPixel(x, 0, qRgb(250, 250, 250));
        image.setPixel(x, 1, qRgb(252, 252, 252));
    }
    const QImage packed = support::withPalette(image);
    QCOMPARE(packed.pixel(5, 0), qRgb(250, 250, 250));
    QCOMPARE(packed.pixel(5, 1), qRgb(252, 252, 252));
    QCOMPARE(packed.format(), QImage::Format_Indexed8);
    QCOMPARE(support::imageError(packed.convertToFormat(QImage::Format_RGB32), image, 16),
             QString());
}

void TestSupport::paletteIsRefusedWhereItIsTooSmall()
{
    QImage image(60, 60, QImage::Format_RGB32);
    for (int x = 0; x < 60; ++x) {
        for (int y = 0; y < 60; ++y) {
            image.setPixel(x, y, qRgb(4 * x, 4 * y, (37 * x + 91 * y) % 256));
        }
    }
    QCOMPARE(support::withPalette(image), image);
}

void TestSupport::recorderKeepsOrderAndArguments()
{
    QObject first;
    QWindow second;
    support::SignalRecorder recorder;
    recorder.watch(&first, QStringLiteral("first"), {},
                   [&first] { return QStringLiteral("named %1").arg(first.objectName()); });
    recorder.watch(&second, QStringLiteral("second"), {QStringLiteral("widthChanged")});
    second.setWidth(321);
    first.setObjectName(QStringLiteral("x"));
    second.setHeight(123);
    QCOMPARE(recorder.arguments(0), QVariantList{321});
    QCOMPARE(recorder.arguments(1), QVariantList{QStringLiteral("x")});
    QCOMPARE(recorder.take(),
             (QStringList{QStringLiteral("second.widthChanged"),
                          QStringLiteral("first.objectNameChanged [named x]")}));
    QVERIFY(recorder.entries().isEmpty());
}

/// Two setters that do the same in another order make different records; what is written without a
/// signal and what is written back are in them.
void TestSupport::recorderSeesWritesBetweenSignals()
{
    const auto record = [](bool zFirst) {
        QQuickItem item;
        int secret = 0;
        support::SignalRecorder recorder;
        recorder.watch(&item, QStringLiteral("item"),
                       {QStringLiteral("xChanged"), QStringLiteral("yChanged")});
        recorder.follow(&item, QStringLiteral("item"),
                        {QStringLiteral("x"), QStringLiteral("z"), QStringLiteral("parent")});
        recorder.follow(QStringLiteral("secret"), [&secret] { return secret; });
        if (zFirst) {
            item.setZ(2);
        }
        item.setX(1);
        if (!zFirst) {
            item.setZ(2);
        }
        secret = 7;
        item.setY(1);
        secret = 0;
        return recorder.take();
    };
    QCOMPARE(record(true).join(QStringLiteral(", ")),
             QStringLiteral("item.x = 1, item.z = 2, item.xChanged, secret = 7, item.yChanged, "
                            "secret = 0"));
    QCOMPARE(record(false).join(QStringLiteral(", ")),
             QStringLiteral("item.x = 1, item.xChanged, item.z = 2, secret = 7, item.yChanged, "
                            "secret = 0"));
}

void TestSupport::itemsAreFoundByTypePropertyAndText()
{
    QQmlEngine engine;
    QQmlComponent component(&engine, QUrl::fromLocalFile(QFINDTESTDATA("data/items/page.qml")));
    const QScopedPointer<QObject> object(component.create());
    QVERIFY2(object, qPrintable(component.errorString()));
    auto *const page = qobject_cast<QQuickItem *>(object.data());
    const auto name = [](const QQuickItem *item) { return item ? item->objectName() : QString(); };

    QStringList pads;
    const auto found = support::itemsOf(page, "Pad");
    for (const QQuickItem *item : found) {
        pads.append(name(item));
    }
    QCOMPARE(pads.join(QLatin1Char(' ')), QStringLiteral("hidden flat first inner last"));
    QCOMPARE(support::itemsOf(page, "QQuickItem").size(), 2);

    QCOMPARE(name(support::itemWith(page, "number", 5)), QStringLiteral("inner"));
    QCOMPARE(name(support::itemWith(page, "text", QStringLiteral("c"))), QStringLiteral("last"));
    QVERIFY(!support::itemWith(page, "text", QStringLiteral("d")));
    QVERIFY(!support::itemWith(page, "absent", 5));

    QCOMPARE(support::textsOn(page).join(QLatin1Char(' ')), QStringLiteral("b a c"));
}

void TestSupport::leftoversNameVisibleWindows()
{
    QCOMPARE(support::leftovers(), QString());
    QWindow window;
    window.setTitle(QStringLiteral("left"));
    window.show();
    QVERIFY(support::leftovers().contains(QStringLiteral("'left'")));
    window.hide();
    window.destroy();
    QCOMPARE(support::leftovers(), QStringLiteral("an object QWindow"));
}

void TestSupport::leftoversNameObjects()
{
    auto item = std::make_unique<QQuickItem>();
    auto second = std::make_unique<QQuickItem>();
    QCOMPARE(support::leftovers(), QStringLiteral("an object QQuickItem (2 times)"));
    second.release()->deleteLater();
    QCOMPARE(support::leftovers(), QStringLiteral("an object QQuickItem"));
    item.reset();
    QCOMPARE(support::leftovers(), QString());
}

void TestSupport::leftoversNameObjectsOfTheLibrary()
{
    auto engine = std::make_unique<QQmlEngine>();
    auto component = std::make_unique<QQmlComponent>(engine.get());
    component->setData("import ombrel.Controls 1.0; FileDropHandler {}", QUrl());
    std::unique_ptr<QObject> handler(component->create());
    QVERIFY2(handler, qPrintable(component->errorString()));
    component.reset();
    engine.reset();
    QCOMPARE(support::leftovers(), QStringLiteral("an object om::controls::FileDropHandler"));
    handler.reset();
    QCOMPARE(support::leftovers(), QString());
}

void TestSupport::leftoversNameTextures()
{
    support::QmlView view;
    view.load("Rectangle { width: 20; height: 20 }");
    view.show();
    QImage image(2, 2, QImage::Format_ARGB32);
    image.fill(Qt::red);
    const int before = support::livingTextures().size();
    std::unique_ptr<QSGTexture> texture(view.window()->createTextureFromImage(image));
    QCOMPARE(support::livingTextures().size(), before + 1);
    QVERIFY2(support::leftovers().contains(QStringLiteral("a texture ")),
             qPrintable(support::leftovers()));
    texture.reset();
    view.close();
    QCOMPARE(support::leftovers(), QString());
}

void TestSupport::leftoversNameNodes()
{
    support::QmlView view;
    view.load("Item { width: 40; height: 20; DashedBorder { width: 20; height: 20 }\n"
              "Frame { x: 20; width: 20; height: 20 } Rectangle { width: 9; height: 9 } }");
    view.show();
    QVERIFY(!view.window()->grabWindow().isNull());
    QCOMPARE(support::livingNodes().filter(QStringLiteral("om::controls::")),
             support::livingNodes());
    QVERIFY2(support::leftovers().contains(
                 QStringLiteral("a scene-graph node om::controls::DashedGeometryNode")),
             qPrintable(support::leftovers()));
    view.close();
    QCOMPARE(support::leftovers(), QString());
}

void TestSupport::leftoversNameTimers()
{
    QTimer timer;
    timer.start(100000);
    QCOMPARE(support::leftovers(), QStringLiteral("a timer of QTimer"));
    timer.stop();
    QCOMPARE(support::leftovers(), QString());
    QBasicTimer basic;
    auto receiver = std::make_unique<QQuickItem>();
    basic.start(100000, receiver.get());
    QCOMPARE(support::activeTimers(), QStringList{QStringLiteral("QQuickItem")});
    receiver.reset();
    QCOMPARE(support::leftovers(), QString());
}

void TestSupport::leftoversNameRunningAnimations()
{
    QVariantAnimation animation;
    animation.setStartValue(0);
    animation.setEndValue(1);
    animation.setDuration(100000);
    animation.start();
    QVERIFY2(support::leftovers().contains(QStringLiteral("a running animation QVariantAnimation")),
             qPrintable(support::leftovers()));
    animation.stop();
    QCOMPARE(support::leftovers(), QString());

    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData("import QtQuick 2.12; NumberAnimation { running: true; duration: 100000 }",
                      QUrl());
    const std::unique_ptr<QObject> started(component.create());
    QCOMPARE(support::runningAnimations(), QStringList{QStringLiteral("QQuickNumberAnimation")});
}

void TestSupport::leftoversNameEventFilters()
{
    QObject watched;
    auto filter = std::make_unique<QObject>();
    QCOMPARE(support::leftovers(), QString());
    watched.installEventFilter(filter.get());
    QCOMPARE(support::leftovers(), QStringLiteral("an event filter QObject on QObject"));
    watched.removeEventFilter(filter.get());
    QCOMPARE(support::leftovers(), QString());
    watched.installEventFilter(filter.get());
    filter.reset();
    QCOMPARE(support::leftovers(), QString());
}

void TestSupport::leftoversCountOpenDialogs()
{
    support::QmlView view;
    view.load("DialogItem {}");
    QCOMPARE(support::openDialogs(), 0);
    QMetaObject::invokeMethod(view.root(), "show");
    QCOMPARE(support::openDialogs(), 1);
    QVERIFY(support::leftovers().contains(QStringLiteral("1 open dialogs")));
    view.close();
    QCOMPARE(support::leftovers(), QString());
}

void TestSupport::leftoversForgetEarlierTests_data()
{
    QTest::addColumn<QString>("left");
    QTest::newRow("the row that makes an object") << QStringLiteral("an object QQuickItem");
    QTest::newRow("the row after it") << QString();
}

void TestSupport::leftoversForgetEarlierTests()
{
    QFETCH(QString, left);
    if (!m_earlier) {
        m_earlier = std::make_unique<QQuickItem>();
    }
    QCOMPARE(support::leftovers(), left);
}

QTEST_MAIN(TestSupport)
#include "tst_support.moc"
