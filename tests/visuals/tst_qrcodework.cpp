// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/scenegraph/QRCodeNode.h"
#include "controls/visuals/QRCode.h"
#include "qr/QrEncoder.h"
#include "tests/support/Leftovers.h"
#include "tests/support/Pixels.h"

#include <QAtomicInt>
#include <QQuickWindow>
#include <QSGGeometry>
#include <QSGTexture>
#include <QTest>

#include <functional>
#include <memory>

namespace {

QAtomicInt encodings;
QAtomicInt textures;
QAtomicInt livingTextures;

} // namespace

// The linker leads the item's calls here (see CMakeLists.txt), so that they can be counted.
extern "C" {
int __real__ZN2om8controls8qrEncodeEiiPKciPh(int, int, const char *, int, unsigned char *);
int __wrap__ZN2om8controls8qrEncodeEiiPKciPh(int level, int version, const char *text, int length,
                                             unsigned char *result)
{
    encodings.ref();
    return __real__ZN2om8controls8qrEncodeEiiPKciPh(level, version, text, length, result);
}
using Options = QQuickWindow::CreateTextureOptions;
QSGTexture *
__real__ZNK12QQuickWindow22createTextureFromImageERK6QImage6QFlagsINS_19CreateTextureOptionEE(
    const QQuickWindow *, const QImage &, Options);
QSGTexture *
__wrap__ZNK12QQuickWindow22createTextureFromImageERK6QImage6QFlagsINS_19CreateTextureOptionEE(
    const QQuickWindow *window, const QImage &image, Options options)
{
    textures.ref();
    livingTextures.ref();
    QSGTexture *texture =
        __real__ZNK12QQuickWindow22createTextureFromImageERK6QImage6QFlagsINS_19CreateTextureOptionEE(
            window, image, options);
    QObject::connect(texture, &QObject::destroyed, [] { livingTextures.deref(); });
    return texture;
}
}

using om::controls::QRCode;

namespace {

/// Notes what its node was given.
struct WatchedCode : QRCode
{
    using QRCode::QRCode;
    QSGNode *updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *data) override
    {
        QSGNode *node = QRCode::updatePaintNode(oldNode, data);
        ++repaints;
        const auto *shown = static_cast<om::controls::QRCodeNode *>(node);
        radius = shown->state()->radius;
        inset = shown->geometry()->vertexDataAsTexturedPoint2D()[0].tx;
        return node;
    }
    int repaints = 0;
    float radius = -1;
    float inset = -1;
};

} // namespace

/// What the item does, and above all what it does not do again.
class TestQRCodeWork : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(support::leftovers(), QString()); }
    void sourceRectangle();
    void samplingRadius();
    void comparesStates_data();
    void comparesStates();
    void nodeShape();
    void encodesOncePerUrl();
    void onlyANewUrlEncodesAndUploads();
    void repaintsWhenItHasTo();
    void smoothingWaitsForAGeometryChange();
    void scaleWaitsForARepaint();
    void smoothedWithoutAWidth();
    void urlChangedByItsOwnHandler();
    void lastOfSeveralUrls();
    void destroyedWithAnUrlToShow();
    void releasedWithAnUrlToShow();
    void texturesDoNotPileUp();
    void texturesGoWithTheItem();
    void texturesGoWithTheSceneGraph();
};

void TestQRCodeWork::sourceRectangle()
{
    const QRectF sharp = om::controls::qrSourceRect(25, false);
    QCOMPARE(sharp, QRectF(0.04, 0.04, 0.92, 0.92));
    const QRectF soft = om::controls::qrSourceRect(25, true);
    QCOMPARE(soft, QRectF(0.032, 0.032, 0.936, 0.936));
    QCOMPARE(om::controls::qrSourceRect(-1, false), QRectF(-1, -1, 3, 3));
}

void TestQRCodeWork::samplingRadius()
{
    QCOMPARE(om::controls::qrSamplingRadius(100, 1), 0.005f);
    QCOMPARE(om::controls::qrSamplingRadius(100, 0.5), 0.01f);
    QCOMPARE(om::controls::qrSamplingRadius(50, 4), 0.0025f);
}

void TestQRCodeWork::comparesStates_data()
{
    QTest::addColumn<QColor>("dark");
    QTest::addColumn<QColor>("light");
    QTest::addColumn<int>("order"); // Of (10, 20, 30) on (40, 50, 60) against it.

    const QColor dark(10, 20, 30);
    const QColor light(40, 50, 60);
    QTest::newRow("equal") << dark << light << 0;
    QTest::newRow("alpha is left out") << QColor(10, 20, 30, 4) << QColor(40, 50, 60, 5) << 0;
    QTest::newRow("red before green") << QColor(11, 0, 0) << light << -1;
    QTest::newRow("green before blue") << QColor(10, 19, 99) << light << 1;
    QTest::newRow("blue of dark before light") << QColor(10, 20, 31) << QColor(0, 0, 0) << -1;
    QTest::newRow("red of light") << dark << QColor(39, 99, 99) << 1;
    QTest::newRow("green of light") << dark << QColor(40, 51, 0) << -1;
    QTest::newRow("blue of light") << dark << QColor(40, 50, 59) << 1;
}

void TestQRCodeWork::comparesStates()
{
    QFETCH(QColor, dark);
    QFETCH(QColor, light);
    QFETCH(int, order);
    om::controls::QRData one;
    one.dark = QColor(10, 20, 30);
    one.light = QColor(40, 50, 60);
    om::controls::QRData other;
    other.dark = dark;
    other.light = light;
    other.radius = 0.5; // Says nothing about the order.
    QCOMPARE(one.compare(&other), order);
    QCOMPARE(other.compare(&one), -order);
}

void TestQRCodeWork::nodeShape()
{
    om::controls::QRCodeNode node;
    QCOMPARE(node.geometry()->vertexCount(), 4);
    QCOMPARE(node.geometry()->indexCount(), 0);
    QCOMPARE(node.geometry()->drawingMode(), unsigned(QSGGeometry::DrawTriangleStrip));
    QVERIFY(node.material()->flags() & QSGMaterial::Blending);
    QVERIFY(!node.state()->texture);
    QCOMPARE(node.state()->radius, 0.0f);
    node.setRect(QRectF(1, 2, 30, 40), QRectF(0.25, 0.5, 0.5, 0.25));
    const auto *points = node.geometry()->vertexDataAsTexturedPoint2D();
    const float expected[4][4] = {
        {1, 2, 0.25f, 0.5f}, {1, 42, 0.25f, 0.75f}, {31, 2, 0.75f, 0.5f}, {31, 42, 0.75f, 0.75f}};
    for (int index = 0; index < 4; ++index) {
        QCOMPARE(points[index].x, expected[index][0]);
        QCOMPARE(points[index].y, expected[index][1]);
        QCOMPARE(points[index].tx, expected[index][2]);
        QCOMPARE(points[index].ty, expected[index][3]);
    }
}

void TestQRCodeWork::encodesOncePerUrl()
{
    encodings = 0;
    QRCode code;
    QCOMPARE(int(encodings), 1);
    code.setUrl(QUrl(QStringLiteral("about:black")));
    code.setUrl(QUrl());
    QCOMPARE(int(encodings), 1);
    code.setUrl(QUrl(QStringLiteral("about:white")));
    QCOMPARE(int(encodings), 2);
}

void TestQRCodeWork::onlyANewUrlEncodesAndUploads()
{
    QQuickWindow window;
    window.resize(400, 400);
    auto *code = new QRCode(window.contentItem());
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    support::grab(&window);
    encodings = 0;
    textures = 0;
    const auto look = [&](const std::function<void()> &change) {
        const QImage before = support::grab(&window);
        change();
        QVERIFY2(support::grab(&window) != before, "the change is not seen");
    };
    look([&] { code->setDarkColor(Qt::red); });
    look([&] { code->setLightColor(Qt::yellow); });
    look([&] { code->setModuleSize(12); });
    look([&] { code->setSize(QSizeF(300, 300)); });
    look([&] { code->setAntialiasing(true); });
    look([&] { code->setRotation(20); });
    look([&] { code->setScale(0.5); });
    look([&] { code->setAntialiasing(false); });
    look([&] { code->setOpacity(0.5); });
    QCOMPARE(int(encodings), 0);
    QCOMPARE(int(textures), 0);

    code->setUrl(QUrl(QStringLiteral("about:white")));
    support::grab(&window);
    QCOMPARE(int(encodings), 1);
    QCOMPARE(int(textures), 1);
}

void TestQRCodeWork::repaintsWhenItHasTo()
{
    QQuickWindow window;
    window.resize(300, 300);
    auto *code = new WatchedCode(window.contentItem());
    code->setSize(QSizeF(168, 168));
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const auto repaints = [&](const std::function<void()> &change) {
        support::grab(&window);
        code->repaints = 0;
        change();
        support::grab(&window);
        return code->repaints;
    };
    QCOMPARE(repaints([&] { code->setModuleSize(12); }), 0);
    QCOMPARE(code->implicitWidth(), 252.0);
    QCOMPARE(repaints([&] { code->setPosition(QPointF(5, 5)); }), 0);
    QCOMPARE(repaints([&] { code->setUrl(code->url()); }), 0);
    QCOMPARE(repaints([&] { code->setDarkColor(Qt::black); }), 0);
    QCOMPARE(repaints([&] { code->setDarkColor(Qt::red); }), 1);
    QCOMPARE(repaints([&] { code->setLightColor(Qt::blue); }), 1);
    QCOMPARE(repaints([&] { code->setUrl(QUrl(QStringLiteral("about:white"))); }), 1);
    QCOMPARE(repaints([&] { code->setSize(QSizeF(200, 200)); }), 1);
}

void TestQRCodeWork::smoothingWaitsForAGeometryChange()
{
    QQuickWindow window;
    window.resize(300, 300);
    auto *code = new WatchedCode(window.contentItem());
    code->setSize(QSizeF(100, 100));
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    support::grab(&window);
    QCOMPARE(code->radius, 0.f);
    QCOMPARE(code->inset, 1 / 21.f);

    // The circle is there at once, the smaller cut with the next size.
    code->setAntialiasing(true);
    support::grab(&window);
    QCOMPARE(code->radius, 0.005f);
    QCOMPARE(code->inset, 1 / 21.f);
    code->setWidth(125);
    support::grab(&window);
    QCOMPARE(code->radius, 0.004f);
    QCOMPARE(code->inset, 0.8f / 21.f);
    code->setAntialiasing(false);
    support::grab(&window);
    QCOMPARE(code->radius, 0.f);
    QCOMPARE(code->inset, 0.8f / 21.f);

    // A longer url in more modules is a change of geometry, too.
    code->setUrl(QUrl(QStringLiteral("https://example.org/a/longer/one")));
    support::grab(&window);
    QCOMPARE(code->inset, 1 / 25.f);
}

void TestQRCodeWork::scaleWaitsForARepaint()
{
    QQuickWindow window;
    window.resize(300, 300);
    auto *code = new WatchedCode(window.contentItem());
    code->setSize(QSizeF(100, 100));
    code->setAntialiasing(true);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    support::grab(&window);
    QCOMPARE(code->radius, 0.005f);

    code->repaints = 0;
    window.contentItem()->setScale(2);
    support::grab(&window);
    QCOMPARE(code->repaints, 0);
    QCOMPARE(code->radius, 0.005f);
    code->setDarkColor(Qt::red);
    support::grab(&window);
    QCOMPARE(code->repaints, 1);
    QCOMPARE(code->radius, 0.0025f);
}

void TestQRCodeWork::smoothedWithoutAWidth()
{
    QQuickWindow window;
    window.resize(300, 300);
    window.setColor(Qt::green);
    auto *code = new WatchedCode(window.contentItem());
    code->setAntialiasing(true);
    code->setSize(QSizeF(0, 0));
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    for (const Qt::GlobalColor color : {Qt::red, Qt::blue}) {
        code->setDarkColor(color);
        QCOMPARE(support::pixelError(support::grab(&window), QPoint(1, 1), Qt::green), QString());
    }
    QVERIFY(code->repaints >= 2);
    code->setSize(QSizeF(168, 168));
    const QImage image = support::grab(&window);
    QCOMPARE(code->radius, 0.5f / 168);
    QCOMPARE(support::pixelError(image, QPoint(28, 28), Qt::blue, 30), QString());
}

void TestQRCodeWork::urlChangedByItsOwnHandler()
{
    const QUrl first(QStringLiteral("https://example.org/first"));
    const QUrl second(QStringLiteral("https://example.org/second/and/longer/by/far"));
    QQuickWindow window;
    window.resize(300, 300);
    auto *code = new QRCode(window.contentItem());
    code->setSize(QSizeF(200, 200));
    QObject::connect(code, &QRCode::urlChanged, code, [&](const QUrl &url) {
        if (url == first)
            code->setUrl(second);
    });
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    code->setUrl(first);
    QCOMPARE(code->url(), second);
    const QImage image = support::grab(&window);

    code->setUrl(QUrl(QStringLiteral("about:white")));
    QVERIFY(!support::imageError(support::grab(&window), image).isEmpty());
    code->setUrl(second);
    QCOMPARE(support::imageError(support::grab(&window), image), QString());
}

void TestQRCodeWork::lastOfSeveralUrls()
{
    QQuickWindow window;
    window.resize(300, 300);
    auto *code = new QRCode(window.contentItem());
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const QImage image = support::grab(&window);
    textures = 0;
    code->setUrl(QUrl(QStringLiteral("https://example.org/%1").arg(QString(3000, u'a'))));
    code->setUrl(QUrl(QStringLiteral("about:white")));
    code->setUrl(QUrl(QStringLiteral("about:black")));
    QCOMPARE(support::imageError(support::grab(&window), image), QString());
    QCOMPARE(int(textures), 1);
}

void TestQRCodeWork::destroyedWithAnUrlToShow()
{
    QTRY_COMPARE(int(livingTextures), 0);
    QQuickWindow window;
    window.resize(300, 300);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    for (int turn = 0; turn < 5; ++turn) {
        auto *code = new QRCode(window.contentItem());
        support::grab(&window);
        // The texture before is still to be deleted later, the next one is not made yet.
        code->setUrl(QUrl(QStringLiteral("https://example.org/%1").arg(turn)));
        support::grab(&window);
        code->setUrl(QUrl(QStringLiteral("about:white")));
        delete code;
    }
    support::grab(&window);
    QTRY_COMPARE(int(livingTextures), 0);
}

void TestQRCodeWork::releasedWithAnUrlToShow()
{
    QTRY_COMPARE(int(livingTextures), 0);
    const QUrl black(QStringLiteral("about:black"));
    const QUrl white(QStringLiteral("about:white"));
    {
        QQuickWindow window;
        window.resize(300, 300);
        window.setPersistentOpenGLContext(false);
        window.setPersistentSceneGraph(false);
        auto *code = new QRCode(window.contentItem());
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        code->setUrl(white);
        const QImage whites = support::grab(&window);
        code->setUrl(black);
        const QImage blacks = support::grab(&window);
        QVERIFY(!support::imageError(whites, blacks).isEmpty());
        for (int turn = 0; turn < 3; ++turn) {
            // One texture is in use, one still to be deleted, the next url has none yet.
            code->setUrl(white);
            window.destroy();
            // The basic loop keeps a window's scene graph for as long as there is the window.
            if (qgetenv("QSG_RENDER_LOOP") == "threaded")
                QTRY_COMPARE(int(livingTextures), 0);
            window.show();
            QVERIFY(QTest::qWaitForWindowExposed(&window));
            QCOMPARE(support::imageError(support::grab(&window), whites), QString());
            code->setUrl(black);
            QCOMPARE(support::imageError(support::grab(&window), blacks), QString());
        }
        QTRY_COMPARE(int(livingTextures), 1);
    }
    QTRY_COMPARE(int(livingTextures), 0);
}

void TestQRCodeWork::texturesDoNotPileUp()
{
    QTRY_COMPARE(int(livingTextures), 0);
    QQuickWindow window;
    window.resize(300, 300);
    auto *code = new QRCode(window.contentItem());
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    textures = 0;
    for (int turn = 0; turn < 300; ++turn) {
        code->setUrl(QUrl(QStringLiteral("https://example.org/%1").arg(turn)));
        support::grab(&window);
    }
    QCOMPARE(int(textures), 300);
    QTRY_COMPARE(int(livingTextures), 1);
}

void TestQRCodeWork::texturesGoWithTheItem()
{
    QQuickWindow window;
    window.resize(300, 300);
    auto *code = new QRCode(window.contentItem());
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    support::grab(&window);
    QTRY_COMPARE(int(livingTextures), 1);
    delete code;
    support::grab(&window);
    QTRY_COMPARE(int(livingTextures), 0);
}

void TestQRCodeWork::texturesGoWithTheSceneGraph()
{
    QRCode code;
    for (int turn = 0; turn < 3; ++turn) {
        auto window = std::make_unique<QQuickWindow>();
        window->resize(300, 300);
        window->setColor(Qt::green);
        code.setParentItem(window->contentItem());
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
        const QImage image = support::grab(window.get());
        QCOMPARE(support::pixelError(image, QPoint(12, 12), Qt::white), QString());
        QCOMPARE(support::pixelError(image, QPoint(4, 4), Qt::black), QString());
        QTRY_COMPARE(int(livingTextures), 1);
        window.reset();
        QTRY_COMPARE(int(livingTextures), 0);
    }
}

QTEST_MAIN(TestQRCodeWork)
#include "tst_qrcodework.moc"
