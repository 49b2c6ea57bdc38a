// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/private/PickerArithmetic.h"
#include "controls/scenegraph/CheckerVertices.h"
#include "controls/scenegraph/DashedBorderVertices.h"
#include "controls/scenegraph/FrameVertices.h"
#include "controls/scenegraph/HueVertices.h"
#include "controls/scenegraph/SaturationValueVertices.h"

#include <QTest>

#include <cmath>
#include <limits>

using namespace om::controls;

/// The numbers behind what is drawn and what is picked, without a window.
class TestVertices : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dashedBorder();
    void frame();
    void frameOfNoWidthCoversNothing();
    void checkerboard();
    void checkerAttributesMatchTheStruct();
    void hueStrip();
    void square_data();
    void square();
    void extentsBeyondFloatBecomeZero_data();
    void extentsBeyondFloatBecomeZero();
    void hueFromPlace_data();
    void hueFromPlace();
    void valueAndSaturationFromPlace_data();
    void valueAndSaturationFromPlace();
};

namespace {

const double notANumber = std::numeric_limits<double>::quiet_NaN();
const double infinity = std::numeric_limits<double>::infinity();

template<typename Vertices>
QString text(const Vertices &vertices)
{
    QStringList points;
    for (const auto &vertex : vertices) {
        points.append(QStringLiteral("%1,%2").arg(double(vertex.x)).arg(double(vertex.y)));
    }
    return points.join(QLatin1Char(' '));
}

QString color(const QSGGeometry::ColoredPoint2D &vertex)
{
    return QStringLiteral("%1 %2 %3 %4").arg(vertex.r).arg(vertex.g).arg(vertex.b).arg(vertex.a);
}

} // namespace

void TestVertices::dashedBorder()
{
    QCOMPARE(text(dashedBorderVertices(30, 20)), QStringLiteral("0,0 30,0 30,20 0,20"));
    QCOMPARE(text(dashedBorderVertices(0, 0)), QStringLiteral("0,0 0,0 0,0 0,0"));
    QCOMPARE(text(dashedBorderVertices(-3, 20)), QStringLiteral("0,0 -3,0 -3,20 0,20"));
    QCOMPARE(text(dashedBorderVertices(1e9, 1e38)),
             QStringLiteral("0,0 1e+09,0 1e+09,1e+38 0,1e+38"));
}

void TestVertices::frame()
{
    QCOMPARE(text(frameVertices(100, 50, 4)),
             QStringLiteral("0,0 4,4 100,0 96,4 100,50 96,46 0,50 4,46 0,0 4,4"));
}

void TestVertices::frameOfNoWidthCoversNothing()
{
    const auto vertices = frameVertices(100, 50, 0);
    for (size_t i = 0; i < vertices.size(); i += 2) {
        QCOMPARE(vertices[i].x, vertices[i + 1].x);
        QCOMPARE(vertices[i].y, vertices[i + 1].y);
    }
}

void TestVertices::checkerboard()
{
    const auto vertices = checkerVertices(24, 10);
    QCOMPARE(text(vertices), QStringLiteral("0,0 24,0 0,10 24,10"));
    for (const CheckerVertex &vertex : vertices) {
        QCOMPARE(vertex.pixelX, vertex.x);
        QCOMPARE(vertex.pixelY, vertex.y);
    }
}

void TestVertices::checkerAttributesMatchTheStruct()
{
    const QSGGeometry::AttributeSet &set = checkerAttributes();
    QCOMPARE(set.count, 2);
    QCOMPARE(set.stride, 16);
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(set.attributes[i].position, i);
        QCOMPARE(set.attributes[i].tupleSize, 2);
        QCOMPARE(set.attributes[i].type, int(QSGGeometry::FloatType));
    }
    QVERIFY(set.attributes[0].isVertexCoordinate);
    QVERIFY(!set.attributes[1].isVertexCoordinate);
}

void TestVertices::hueStrip()
{
    QSGGeometry::ColoredPoint2D vertices[hueVertexCount];
    setHueColors(vertices);
    setHuePositions(vertices, 60, 8);
    const QStringList colors = {QStringLiteral("255 0 0 255"), QStringLiteral("255 255 0 255"),
                                QStringLiteral("0 255 0 255"), QStringLiteral("0 255 255 255"),
                                QStringLiteral("0 0 255 255"), QStringLiteral("255 0 255 255"),
                                QStringLiteral("255 0 0 255")};
    for (int i = 0; i < hueStopCount; ++i) {
        QCOMPARE(vertices[2 * i].x, 10.0f * float(i));
        QCOMPARE(vertices[2 * i].y, 0.0f);
        QCOMPARE(vertices[2 * i + 1].x, 10.0f * float(i));
        QCOMPARE(vertices[2 * i + 1].y, 8.0f);
        QCOMPARE(color(vertices[2 * i]), colors.at(i));
        QCOMPARE(color(vertices[2 * i + 1]), colors.at(i));
    }
    // New positions leave the colours alone.
    setHuePositions(vertices, 600, 80);
    QCOMPARE(color(vertices[4]), colors.at(2));
}

void TestVertices::square_data()
{
    QTest::addColumn<int>("hue");
    QTest::addColumn<QString>("fullHue");
    QTest::newRow("red") << 0 << "255 0 0 255";
    QTest::newRow("359 is red again") << 359 << "255 0 0 255";
    QTest::newRow("hue 180 of 359, a little past cyan") << 180 << "0 253 255 255";
}

void TestVertices::square()
{
    QFETCH(int, hue);
    QFETCH(QString, fullHue);
    const auto vertices = saturationValueVertices(hue, 40, 30);
    QCOMPARE(text(vertices), QStringLiteral("0,0 40,0 0,30 40,30"));
    QCOMPARE(color(vertices[0]), QStringLiteral("0 0 0 255"));
    QCOMPARE(color(vertices[1]), fullHue);
    QCOMPARE(color(vertices[2]), QStringLiteral("0 0 0 255"));
    QCOMPARE(color(vertices[3]), QStringLiteral("255 255 255 255"));
}

void TestVertices::extentsBeyondFloatBecomeZero_data()
{
    QTest::addColumn<double>("extent");
    QTest::newRow("not a number") << notANumber;
    QTest::newRow("infinite") << infinity;
    QTest::newRow("minus infinite") << -infinity;
    QTest::newRow("more than a float can be") << 1e300;
    QTest::newRow("less than a float can be") << -1e300;
}

void TestVertices::extentsBeyondFloatBecomeZero()
{
    QFETCH(double, extent);
    QCOMPARE(text(dashedBorderVertices(extent, 7)), QStringLiteral("0,0 0,0 0,7 0,7"));
    QCOMPARE(text(checkerVertices(7, extent)), QStringLiteral("0,0 7,0 0,0 7,0"));
    QCOMPARE(text(saturationValueVertices(3, extent, extent)), QStringLiteral("0,0 0,0 0,0 0,0"));
    QCOMPARE(text(frameVertices(extent, 7, 4)), text(frameVertices(0, 0, 0)));
    QCOMPARE(text(frameVertices(7, extent, 4)), text(frameVertices(0, 0, 0)));
    QSGGeometry::ColoredPoint2D vertices[hueVertexCount];
    setHuePositions(vertices, extent, extent);
    for (const auto &vertex : vertices) {
        QCOMPARE(vertex.x, 0.0f);
        QCOMPARE(vertex.y, 0.0f);
    }
}

void TestVertices::hueFromPlace_data()
{
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("width");
    QTest::addColumn<int>("hue");
    QTest::newRow("left edge") << 0.0 << 359.0 << 0;
    QTest::newRow("right edge") << 359.0 << 359.0 << 359;
    QTest::newRow("left of the box") << -40.0 << 100.0 << 0;
    QTest::newRow("right of the box") << 140.0 << 100.0 << 359;
    QTest::newRow("part of a pixel does not count") << 10.99 << 359.0 << 10;
    QTest::newRow("part of a pixel left of the box") << -0.5 << 100.0 << 0;
    QTest::newRow("half is rounded up") << 1.0 << 718.0 << 1;
    QTest::newRow("middle") << 50.0 << 100.0 << 180; // 179.5
    QTest::newRow("no width, at 0") << 0.0 << 0.0 << 0;
    QTest::newRow("no width, beyond") << 5.0 << 0.0 << 359;
    QTest::newRow("no width, before") << -5.0 << 0.0 << 0;
    QTest::newRow("negative width") << 5.0 << -10.0 << 0;
    QTest::newRow("place is NaN") << notANumber << 100.0 << 0;
    QTest::newRow("infinitely far") << infinity << 100.0 << 359;
    QTest::newRow("all infinite") << infinity << infinity << 0;
    QTest::newRow("huge place") << 1e300 << 100.0 << 359;
    QTest::newRow("huge box") << 5e8 << 1e9 << 180;
}

void TestVertices::hueFromPlace()
{
    QFETCH(double, x);
    QFETCH(double, width);
    QTEST(hueAt(x, width), "hue");
}

void TestVertices::valueAndSaturationFromPlace_data()
{
    QTest::addColumn<double>("place");
    QTest::addColumn<double>("extent");
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("saturation");
    QTest::newRow("start") << 0.0 << 255.0 << 0 << 255;
    QTest::newRow("end") << 255.0 << 255.0 << 255 << 0;
    QTest::newRow("before") << -1.0 << 255.0 << 0 << 255;
    QTest::newRow("beyond") << 256.0 << 255.0 << 255 << 0;
    QTest::newRow("parts of a pixel count") << 10.6 << 255.0 << 11 << 244;
    QTest::newRow("no extent, at 0") << 0.0 << 0.0 << 0 << 255;
    QTest::newRow("no extent, beyond") << 1.0 << 0.0 << 255 << 0;
    QTest::newRow("place is NaN") << notANumber << 10.0 << 0 << 255;
    QTest::newRow("extent is NaN") << 3.0 << notANumber << 0 << 255;
}

void TestVertices::valueAndSaturationFromPlace()
{
    QFETCH(double, place);
    QFETCH(double, extent);
    QTEST(valueAt(place, extent), "value");
    QTEST(saturationAt(place, extent), "saturation");
}

QTEST_GUILESS_MAIN(TestVertices)
#include "tst_vertices.moc"
