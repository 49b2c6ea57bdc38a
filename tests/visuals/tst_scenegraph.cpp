// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Leftovers.h"
#include "tests/support/Pixels.h"
#include "tests/support/QmlView.h"
#include "tests/support/Screen.h"
#include "tests/support/SignalRecorder.h"

#include <QPointer>
#include <QQmlComponent>
#include <QTest>

#include <cmath>

using namespace support;

/// What happens around the drawing: windows that come and go, scene graphs thrown away, frames that
/// are not rendered. The items are CheckerBox, DashedBorder, Frame, HueBox, SaturationValueBox.
class TestSceneGraph : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void noFramesWhileIdle();
    void dashesBelongToTheWindow();
    void dashedBorderWithoutColorShowsNothing();
    void dashedBorderProperties();
    void checkerBoxProperties();
    void sceneGraphMadeAgain_data();
    void sceneGraphMadeAgain();
    void movedToAnotherWindowAndBack();
    void extremeExtents_data();
    void extremeExtents();
    void frameProperties();
    void frameRingLivesInTheContentItem();
    void frameFollowsAndOnlyWhenItMoves();
    void frameCompletedWithoutAWindowNeverAttaches();
    void frameCallsTheBaseOnlyAsStated();
    void frameDestroyedTakesItsRing();
    void framesWindowClosedFirst();
    void frameLeavesOtherConnectionsAlone();
    void frameWithNaNPlaceRequestsNoFrames();
    void frameOutOfSightTakesItsRingAlong_data();
    void frameOutOfSightTakesItsRingAlong();

private:
    QQuickItem *make(QQuickWindow *window, const char *qml);
    QQuickItem *ring(QQuickItem *frame) const;

    QQmlEngine m_engine;
};

static const char *frameQml =
    "Frame { x: 40; y: 30; width: 60; height: 40; frameWidth: 4; color: 'red' }";

void TestSceneGraph::cleanup()
{
    QCOMPARE(leftovers(), QString());
}

/// Makes an item in \a window, as createObject() does: it has its window when it is completed.
QQuickItem *TestSceneGraph::make(QQuickWindow *window, const char *qml)
{
    QQmlComponent component(&m_engine);
    component.setData(QByteArray("import QtQuick 2.12\nimport ombrel.Controls 1.0\n"
                                 "import ombrel.Controls.Private 1.0\n")
                          + qml,
                      QUrl());
    auto *item = qobject_cast<QQuickItem *>(component.beginCreate(m_engine.rootContext()));
    if (!item) {
        qFatal("%s", qPrintable(component.errorString()));
    }
    if (window) {
        item->setParent(window);
        item->setParentItem(window->contentItem());
    }
    component.completeCreate();
    return item;
}

QQuickItem *TestSceneGraph::ring(QQuickItem *frame) const
{
    const auto children = frame->children();
    for (QObject *child : children) {
        if (qstrcmp(child->metaObject()->className(), "om::controls::FrameItem") == 0) {
            return qobject_cast<QQuickItem *>(child);
        }
    }
    return nullptr;
}

static void show(QQuickWindow &window)
{
    window.setFlag(Qt::FramelessWindowHint);
    window.setPosition(50, 50);
    window.resize(200, 150);
    window.setColor(Qt::black);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
}

void TestSceneGraph::noFramesWhileIdle()
{
    QmlView view;
    view.loadFile(QStringLiteral("data/all.qml"));
    view.show();
    QCOMPARE(framesWhileIdle(view.window()), 0);
    evaluate(view.root(), QStringLiteral("change()"));
    QCOMPARE(framesWhileIdle(view.window()), 0);
}

void TestSceneGraph::dashesBelongToTheWindow()
{
    QQuickWindow window;
    show(window);
    QQuickItem *border =
        make(&window,
             "DashedBorder { x: 20.5; y: 30.5; width: 101; height: 61; borderColor: '#ffffff' }");
    for (const QPoint &corner : {QPoint(20, 30), QPoint(21, 30), QPoint(27, 43)}) {
        border->setPosition(QPointF(corner) + QPointF(0.5, 0.5));
        for (const int width : {101, 64}) {
            border->setWidth(width);
            const QImage image = grab(&window);
            const auto expected = [&image](const QPoint &point) {
                // Fragments are counted from the lower left corner, at their centres.
                const double place = point.x() + 0.5 + image.height() - point.y() - 0.5;
                return std::fmod(place, 10.0) > 6.0 ? QColor(Qt::black) : QColor(Qt::white);
            };
            // Corners belong to two lines: left out.
            for (int x = corner.x() + 2; x < corner.x() + width - 2; ++x) {
                for (const int y : {corner.y(), corner.y() + 61}) {
                    QCOMPARE(pixelError(image, {x, y}, expected({x, y})), QString());
                }
            }
            for (int y = corner.y() + 2; y < corner.y() + 59; ++y) {
                for (const int x : {corner.x(), corner.x() + width}) {
                    QCOMPARE(pixelError(image, {x, y}, expected({x, y})), QString());
                }
            }
            QCOMPARE(pixelError(image, corner + QPoint(30, 30), Qt::black), QString());
        }
    }
    // Faded as any item.
    border->setOpacity(0.5);
    const QImage image = grab(&window);
    const QPoint inDash(40 - (40 + image.height() - 43) % 10 + 13, 43);
    QCOMPARE(pixelError(image, inDash, QColor(128, 128, 128), 3), QString());
}

void TestSceneGraph::dashedBorderWithoutColorShowsNothing()
{
    QQuickWindow window;
    window.setColor(Qt::white);
    show(window);
    window.setColor(Qt::white);
    QQuickItem *border = make(&window, "DashedBorder { x: 20.5; y: 30.5; width: 100; height: 60 }");
    QVERIFY(!border->property("borderColor").value<QColor>().isValid());
    QImage blank(200, 150, QImage::Format_ARGB32);
    blank.fill(Qt::white);
    QCOMPARE(imageError(grab(&window).convertToFormat(QImage::Format_ARGB32), blank), QString());
    border->setProperty("borderColor", QColor(Qt::red));
    QVERIFY(!imageError(grab(&window).convertToFormat(QImage::Format_ARGB32), blank).isEmpty());
    border->setProperty("borderColor", QColor());
    QCOMPARE(imageError(grab(&window).convertToFormat(QImage::Format_ARGB32), blank), QString());
}

void TestSceneGraph::dashedBorderProperties()
{
    const QScopedPointer<QQuickItem> border(make(nullptr, "DashedBorder {}"));
    SignalRecorder recorder;
    recorder.watch(border.data(), QString(), {QStringLiteral("borderColorChanged")},
                   [&border] { return border->property("borderColor").value<QColor>().name(); });
    border->setProperty("borderColor", QColor(Qt::red));
    border->setProperty("borderColor", QColor(Qt::red));
    QCOMPARE(recorder.take(), QStringList{QStringLiteral(".borderColorChanged [#ff0000]")});
}

void TestSceneGraph::checkerBoxProperties()
{
    const QScopedPointer<QQuickItem> box(make(nullptr, "CheckerBox {}"));
    SignalRecorder recorder;
    recorder.watch(box.data(), QString(),
                   {QStringLiteral("checkerSizeChanged"), QStringLiteral("lightColorChanged"),
                    QStringLiteral("darkColorChanged")});
    const auto size = [&](int value) {
        box->setProperty("checkerSize", value);
        return QStringLiteral("%1 %2")
            .arg(box->property("checkerSize").toInt())
            .arg(recorder.take().join(QLatin1Char(' ')));
    };
    QCOMPARE(box->property("checkerSize").toInt(), 8);
    QCOMPARE(size(8), QStringLiteral("8 "));
    QCOMPARE(size(1), QStringLiteral("2 .checkerSizeChanged"));
    QCOMPARE(size(INT_MIN), QStringLiteral("2 "));
    QCOMPARE(size(500), QStringLiteral("128 .checkerSizeChanged"));
    QCOMPARE(size(128), QStringLiteral("128 "));
    QCOMPARE(box->property("lightColor").value<QColor>(), QColor(Qt::lightGray));
    QCOMPARE(box->property("darkColor").value<QColor>(), QColor(Qt::gray));
    for (const char *name : {"lightColor", "darkColor"}) {
        box->setProperty(name, QColor(Qt::red));
        box->setProperty(name, QColor(Qt::red));
        QCOMPARE(recorder.take(),
                 QStringList{QLatin1Char('.') + QLatin1String(name) + QStringLiteral("Changed")});
    }
}

void TestSceneGraph::sceneGraphMadeAgain_data()
{
    QTest::addColumn<QString>("how");
    QTest::newRow("hidden with nothing kept, shown again") << "hide";
    QTest::newRow("platform window destroyed and made again") << "destroy";
    QTest::newRow("resources released") << "release";
    QTest::newRow("layer on and off") << "layer";
    QTest::newRow("invisible and visible again") << "visible";
}

void TestSceneGraph::sceneGraphMadeAgain()
{
    QFETCH(QString, how);
    QmlView view;
    view.loadFile(QStringLiteral("data/all.qml"));
    view.window()->setPersistentOpenGLContext(false);
    view.window()->setPersistentSceneGraph(false);
    view.show();
    for (int round = 0; round < 2; ++round) {
        framesWhileIdle(view.window(), 0);
        const QImage before = grab(view.window());
        QVERIFY(!before.isNull());
        const FrameCounter invalidated(view.window(), &QQuickWindow::sceneGraphInvalidated);
        if (how == QLatin1String("hide")) {
            view.window()->hide();
        } else if (how == QLatin1String("destroy")) {
            view.window()->destroy();
        } else if (how == QLatin1String("release")) {
            view.window()->releaseResources();
        } else if (how == QLatin1String("layer")) {
            evaluate(view.root(), QStringLiteral("layer.enabled = true"));
            grab(view.window());
            evaluate(view.root(), QStringLiteral("layer.enabled = false"));
        } else {
            view.root()->setVisible(false);
            grab(view.window());
            view.root()->setVisible(true);
        }
        if (!view.window()->isVisible() || how == QLatin1String("destroy")) {
            // The basic loop keeps more of a window than it is told to.
            if (qEnvironmentVariable("QSG_RENDER_LOOP") == QLatin1String("threaded")) {
                QTRY_VERIFY(invalidated.count() > 0);
            }
            view.show();
        }
        framesWhileIdle(view.window(), 0);
        QCOMPARE(imageError(grab(view.window()), before), QString());
        // And changes get through as ever.
        evaluate(view.root(), QStringLiteral("change()"));
        framesWhileIdle(view.window(), 0);
        if (round == 0) {
            QVERIFY(!imageError(grab(view.window()), before).isEmpty());
        }
    }
}

void TestSceneGraph::movedToAnotherWindowAndBack()
{
    QmlView first;
    first.loadFile(QStringLiteral("data/all.qml"));
    first.show();
    framesWhileIdle(first.window(), 0);
    const QImage before = grab(first.window());
    QQuickItem *root = first.root();
    QQuickItem *home = root->parentItem();
    QPointer<QQuickItem> frame = ring(first.item("frame"));
    QVERIFY(frame);
    {
        QQuickWindow second;
        second.setFlag(Qt::FramelessWindowHint);
        second.setPosition(500, 100);
        second.resize(first.window()->size());
        second.show();
        QVERIFY(QTest::qWaitForWindowExposed(&second));
        // The Loader's item goes with the window attached to it: keep it.
        evaluate(first.item("loader"), QStringLiteral("active = true"));
        root->setParentItem(second.contentItem());
        QTRY_COMPARE(frame->window(), &second);
        framesWhileIdle(&second, 0);
        QCOMPARE(imageError(grab(&second), before), QString());
        evaluate(root, QStringLiteral("change()"));
        framesWhileIdle(&second, 0);
        QVERIFY(!imageError(grab(&second), before).isEmpty());
        const QImage changed = grab(&second);
        root->setParentItem(home);
        QTRY_COMPARE(frame->window(), first.window());
        framesWhileIdle(first.window(), 0);
        QCOMPARE(imageError(grab(first.window()), changed), QString());
        // Out of all windows and in again.
        root->setParentItem(nullptr);
        QTRY_VERIFY(!frame->window());
        root->setParentItem(home);
        QTRY_COMPARE(frame->window(), first.window());
        framesWhileIdle(first.window(), 0);
        QCOMPARE(imageError(grab(first.window()), changed), QString());
        QCOMPARE(framesWhileIdle(first.window()), 0);
    }
}

void TestSceneGraph::extremeExtents_data()
{
    QTest::addColumn<double>("extent");
    QTest::addColumn<double>("scale");
    QTest::newRow("zero") << 0.0 << 1.0;
    QTest::newRow("infinite") << qInf() << 1.0;
    QTest::newRow("not a number, which items refuse") << qQNaN() << 1.0;
    QTest::newRow("scale 0") << 50.0 << 0.0;
}

/// Nothing of them is seen, the window goes on drawing what else it has, and comes to rest.
void TestSceneGraph::extremeExtents()
{
    QFETCH(double, extent);
    QFETCH(double, scale);
    QQuickWindow window;
    show(window);
    make(&window, "Rectangle { x: 150; y: 100; width: 20; height: 20; color: 'blue' }");
    for (const char *type :
         {"CheckerBox", "DashedBorder", "HueBox", "SaturationValueBox", "Frame"}) {
        QQuickItem *item = make(&window, type + QByteArray(" { x: 20; y: 20; }"));
        if (qstrcmp(type, "Frame") == 0) {
            item->setProperty("frameWidth", 0);
        }
        if (item->property("borderColor").isValid()) {
            item->setProperty("borderColor", QColor(Qt::white));
        }
        item->setSize({extent, extent});
        item->setScale(scale);
        framesWhileIdle(&window, 0);
        const QImage image = grab(&window);
        for (int y = 0; y < image.height(); y += 3) {
            for (int x = 0; x < image.width(); x += 3) {
                const bool inside = x >= 150 && x < 170 && y >= 100 && y < 120;
                QVERIFY2(pixelError(image, {x, y}, inside ? Qt::blue : Qt::black).isEmpty(), type);
            }
        }
        QCOMPARE(framesWhileIdle(&window, 100), 0);
        delete item;
    }
}

void TestSceneGraph::frameProperties()
{
    const QScopedPointer<QQuickItem> frame(make(nullptr, "Frame {}"));
    QCOMPARE(frame->property("frameWidth").toInt(), 1);
    QCOMPARE(frame->property("color").value<QColor>(), QColor(Qt::black));
    SignalRecorder recorder;
    recorder.watch(frame.data(), QString(),
                   {QStringLiteral("frameWidthChanged"), QStringLiteral("colorChanged")});
    const auto width = [&](int value) {
        frame->setProperty("frameWidth", value);
        return QStringLiteral("%1 %2")
            .arg(frame->property("frameWidth").toInt())
            .arg(recorder.take().join(QLatin1Char(' ')));
    };
    QCOMPARE(width(1), QStringLiteral("1 "));
    QCOMPARE(width(-3), QStringLiteral("0 .frameWidthChanged"));
    QCOMPARE(width(INT_MIN), QStringLiteral("0 "));
    QCOMPARE(width(7), QStringLiteral("7 .frameWidthChanged"));
    frame->setProperty("color", QColor(Qt::red));
    frame->setProperty("color", QColor(Qt::red));
    QCOMPARE(recorder.take(), QStringList{QStringLiteral(".colorChanged")});
}

void TestSceneGraph::frameRingLivesInTheContentItem()
{
    QQuickWindow window;
    show(window);
    QQuickItem *frame = make(&window, frameQml);
    QQuickItem *item = ring(frame);
    QVERIFY(item);
    QCOMPARE(item->parentItem(), window.contentItem());
    QCOMPARE(item->z(), 65534.0);
    QTRY_COMPARE(QRectF(item->position(), item->size()), QRectF(36, 26, 68, 48));
    QVERIFY(frame->childItems().isEmpty());
    frame->setVisible(false);
    QVERIFY(!item->isVisible());
    frame->setVisible(true);
    QVERIFY(item->isVisible());
    frame->setOpacity(0.25);
    QCOMPARE(item->opacity(), 0.25);
}

void TestSceneGraph::frameFollowsAndOnlyWhenItMoves()
{
    QQuickWindow window;
    show(window);
    QQuickItem *frame = make(&window, frameQml);
    QQuickItem *item = ring(frame);
    QTRY_COMPARE(item->x(), 36.0);
    framesWhileIdle(&window, 0);
    SignalRecorder recorder;
    recorder.watch(item, QString(),
                   {QStringLiteral("xChanged"), QStringLiteral("yChanged"),
                    QStringLiteral("widthChanged"), QStringLiteral("heightChanged")});
    window.update();
    framesWhileIdle(&window, 0);
    // Not by a rounding error either.
    frame->setX(40.0 + 1e-13);
    framesWhileIdle(&window, 0);
    QCOMPARE(recorder.take(), QStringList());
    frame->setX(55);
    QTRY_COMPARE(item->x(), 51.0);
    QCOMPARE(recorder.take(), QStringList{QStringLiteral(".xChanged")});
    // The width of the ring is taken over at the next frame, not before.
    frame->setProperty("frameWidth", 10);
    QCOMPARE(item->x(), 51.0);
    QTRY_COMPARE(item->x(), 45.0);
    QTRY_COMPARE(item->width(), 80.0);
    QCOMPARE(framesWhileIdle(&window), 0);
}

void TestSceneGraph::frameCompletedWithoutAWindowNeverAttaches()
{
    QQuickWindow window;
    show(window);
    QQuickItem *frame = make(nullptr, frameQml);
    QQuickItem *item = ring(frame);
    QVERIFY(!item->parentItem());
    frame->setParent(&window);
    frame->setParentItem(window.contentItem());
    frame->setVisible(false);
    frame->setVisible(true);
    framesWhileIdle(&window, 0);
    QVERIFY(!item->parentItem());
    QCOMPARE(item->size(), QSizeF(0, 0));
    QCOMPARE(pixelError(grab(&window), {38, 50}, Qt::black), QString());
}

void TestSceneGraph::frameCallsTheBaseOnlyAsStated()
{
    QQuickWindow window;
    show(window);
    const QScopedPointer<QQuickItem> plain(make(nullptr, "Item {}"));
    const QScopedPointer<QQuickItem> frame(make(nullptr, frameQml));
    SignalRecorder recorder;
    recorder.watch(plain.data(), QStringLiteral("plain"), {QStringLiteral("windowChanged")});
    recorder.watch(frame.data(), QStringLiteral("frame"), {QStringLiteral("windowChanged")});
    plain->setParentItem(window.contentItem());
    frame->setParentItem(window.contentItem());
    QCOMPARE(recorder.take(), QStringList{QStringLiteral("plain.windowChanged")});
}

void TestSceneGraph::frameDestroyedTakesItsRing()
{
    QQuickWindow window;
    show(window);
    QQuickItem *frame = make(&window, frameQml);
    const QPointer<QQuickItem> item = ring(frame);
    framesWhileIdle(&window, 0);
    QCOMPARE(pixelError(grab(&window), {38, 50}, Qt::red), QString());
    delete frame;
    QVERIFY(!item);
    QCOMPARE(pixelError(grab(&window), {38, 50}, Qt::black), QString());
}

void TestSceneGraph::framesWindowClosedFirst()
{
    QScopedPointer<QQuickItem> frame;
    {
        QQuickWindow window;
        show(window);
        frame.reset(make(&window, frameQml));
        frame->setParent(nullptr);
        framesWhileIdle(&window, 0);
    }
    QVERIFY(!frame->window());
    QVERIFY(ring(frame.data()));
    QCoreApplication::processEvents();
    QVERIFY(!ring(frame.data())->window());
    frame->setProperty("frameWidth", 9);
    frame->setX(3);
    frame->setVisible(false);
    // In a new window it is drawn as before.
    frame->setVisible(true);
    QQuickWindow window;
    show(window);
    frame->setParentItem(window.contentItem());
    QTRY_COMPARE(ring(frame.data())->window(), &window);
    framesWhileIdle(&window, 0);
    QCOMPARE(pixelError(grab(&window), {66, 50}, Qt::red), QString());
    frame.reset();
}

/// A Frame that changes windows stops following the old one; what the application has connected
/// goes on.
void TestSceneGraph::frameLeavesOtherConnectionsAlone()
{
    QQuickWindow first;
    QQuickWindow second;
    show(first);
    show(second);
    QQuickItem *frame = make(&first, frameQml);
    int resized = 0;
    connect(&first, &QWindow::widthChanged, frame, [&resized] { ++resized; });
    frame->setParentItem(second.contentItem());
    QTRY_COMPARE(ring(frame)->window(), &second);
    first.resize(250, 150);
    QTRY_COMPARE(resized, 1);
}

void TestSceneGraph::frameWithNaNPlaceRequestsNoFrames()
{
    QQuickWindow window;
    show(window);
    QQuickItem *frame = make(&window, frameQml);
    for (const double place : {qInf(), -qInf(), qQNaN()}) {
        frame->setX(place);
        frame->setScale(place);
        QCOMPARE(framesWhileIdle(&window, 100), 0);
    }
}

void TestSceneGraph::frameOutOfSightTakesItsRingAlong_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<double>("value");
    QTest::newRow("x") << QByteArray("x") << qInf();
    QTest::newRow("y") << QByteArray("y") << -qInf();
    QTest::newRow("width") << QByteArray("width") << qInf();
    QTest::newRow("height, beyond float") << QByteArray("height") << 1e300;
}

void TestSceneGraph::frameOutOfSightTakesItsRingAlong()
{
    QFETCH(QByteArray, property);
    QFETCH(double, value);
    QQuickWindow window;
    show(window);
    make(&window, "Rectangle { x: 150; y: 100; width: 20; height: 20; color: 'blue' }");
    QQuickItem *frame = make(&window, frameQml);
    framesWhileIdle(&window, 0);
    const QImage before = grab(&window);
    QCOMPARE(pixelError(before, {38, 50}, Qt::red), QString());
    const QVariant old = frame->property(property);

    frame->setProperty(property, value);
    QCOMPARE(framesWhileIdle(&window, 100), 0);
    const QImage image = grab(&window);
    for (int y = 0; y < image.height(); y += 2) {
        for (int x = 0; x < image.width(); x += 2) {
            const bool inside = x >= 150 && x < 170 && y >= 100 && y < 120;
            QCOMPARE(pixelError(image, {x, y}, inside ? Qt::blue : Qt::black), QString());
        }
    }

    frame->setProperty(property, old);
    framesWhileIdle(&window, 0);
    QCOMPARE(imageError(grab(&window), before), QString());
}

QTEST_MAIN(TestSceneGraph)
#include "tst_scenegraph.moc"
