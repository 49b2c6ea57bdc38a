// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Pixels.h"

#include "tests/support/Screen.h"

#include <QHash>
#include <QQuickWindow>
#include <QTest>
#include <QVector>

#include <algorithm>
#include <cstdlib>

namespace support {

/// The greatest of the differences in red, green and blue.
static int distance(QRgb a, QRgb b)
{
    return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                     std::abs(qBlue(a) - qBlue(b))});
}

bool similar(const QColor &a, const QColor &b, int tolerance)
{
    return std::abs(a.red() - b.red()) <= tolerance && std::abs(a.green() - b.green()) <= tolerance
        && std::abs(a.blue() - b.blue()) <= tolerance
        && std::abs(a.alpha() - b.alpha()) <= tolerance;
}

QString pixelError(const QImage &image, const QPoint &point, const QColor &expected, int tolerance)
{
    if (!image.rect().contains(point)) {
        return QStringLiteral("(%1, %2) lies outside the image of %3 by %4")
            .arg(point.x())
            .arg(point.y())
            .arg(image.width())
            .arg(image.height());
    }
    const QColor actual = image.pixelColor(point);
    if (similar(actual, expected, tolerance)) {
        return {};
    }
    return QStringLiteral("(%1, %2) is %3, not %4")
        .arg(point.x())
        .arg(point.y())
        .arg(actual.name(QColor::HexArgb), expected.name(QColor::HexArgb));
}

QString imageError(const QImage &actual, const QImage &expected, int tolerance)
{
    if (actual.size() != expected.size()) {
        return QStringLiteral("%1 by %2 pixels, not %3 by %4")
            .arg(actual.width())
            .arg(actual.height())
            .arg(expected.width())
            .arg(expected.height());
    }
    for (int y = 0; y < actual.height(); ++y) {
        for (int x = 0; x < actual.width(); ++x) {
            const QString error = pixelError(actual, {x, y}, expected.pixelColor(x, y), tolerance);
            if (!error.isEmpty()) {
                return error;
            }
        }
    }
    return {};
}

int coarseDifference(const QImage &a, const QImage &b)
{
    if (a.size() != b.size()) {
        return 255;
    }
    const auto coarse = [](const QImage &image) {
        return image.convertToFormat(QImage::Format_RGB32)
            .scaled((image.size() + QSize(7, 7)) / 8, Qt::IgnoreAspectRatio,
                    Qt::SmoothTransformation);
    };
    const QImage first = coarse(a);
    const QImage second = coarse(b);
    int worst = 0;
    for (int y = 0; y < first.height(); ++y) {
        for (int x = 0; x < first.width(); ++x) {
            worst = std::max(worst, distance(first.pixel(x, y), second.pixel(x, y)));
        }
    }
    return worst;
}

/// Whether gradients of \a image fall into bands: a hundredth of it is like what is beside and
/// above, and yet off by more than 4. Around letters, where colours change at once, nobody sees
/// that.
static bool hasBands(const QImage &image, const QVector<QRgb> &palette,
                     const QHash<QRgb, int> &indices)
{
    int off = 0;
    for (int y = 1; y < image.height(); ++y) {
        for (int x = 1; x < image.width(); ++x) {
            const QRgb color = image.pixel(x, y);
            if (distance(color, palette.at(indices.value(color))) > 4
                && distance(color, image.pixel(x - 1, y)) <= 4
                && distance(color, image.pixel(x, y - 1)) <= 4) {
                ++off;
            }
        }
    }
    return off > image.width() * image.height() / 100;
}

QImage withPalette(const QImage &image)
{
    const QImage pixels = image.convertToFormat(QImage::Format_RGB32);
    const int area = pixels.width() * pixels.height();
    QHash<QRgb, int> counts;
    for (int y = 0; y < pixels.height(); ++y) {
        for (int x = 0; x < pixels.width(); ++x) {
            ++counts[pixels.pixel(x, y)];
        }
    }
    QVector<QRgb> colors = counts.keys().toVector();
    // The most frequent first; the order of a hash differs from run to run.
    std::sort(colors.begin(), colors.end(), [&counts](QRgb a, QRgb b) {
        const int left = counts.value(a);
        const int right = counts.value(b);
        return left != right ? left > right : a < b;
    });
    constexpr int most = 256;
    QVector<QRgb> palette;
    QHash<QRgb, int> indices;
    for (int step = 4; step <= 16 && indices.isEmpty(); step += 4) {
        palette.clear();
        for (int i = 0; i < colors.size() && palette.size() <= most; ++i) {
            const QRgb color = colors.at(i);
            const auto near = std::find_if(palette.begin(), palette.end(), [=](QRgb other) {
                return distance(color, other) <= step;
            });
            // A ground keeps its own colour, however near it is to another ground's.
            const bool ground = counts.value(color) > area / 100;
            if (ground || near == palette.end()) {
                indices.insert(color, palette.size());
                palette.append(color);
            } else {
                indices.insert(color, int(near - palette.begin()));
            }
        }
        if (palette.size() > most || hasBands(pixels, palette, indices)) {
            indices.clear();
        }
    }
    if (indices.isEmpty()) {
        return pixels;
    }
    QImage packed(pixels.size(), QImage::Format_Indexed8);
    packed.setColorTable(palette);
    for (int y = 0; y < pixels.height(); ++y) {
        for (int x = 0; x < pixels.width(); ++x) {
            packed.setPixel(x, y, uint(indices.value(pixels.pixel(x, y))));
        }
    }
    return packed;
}

QImage grab(QQuickWindow *window)
{
    QCoreApplication::sendPostedEvents();
    return window->grabWindow();
}

int framesWhileIdle(QQuickWindow *window, int milliseconds)
{
    // Let what is on its way arrive first: a window that goes on rendering never gets quiet here
    // and is counted below.
    FrameCounter swapped(window);
    for (int quiet = 0, turn = 0; quiet < 3 && turn < 40; ++turn) {
        swapped.reset();
        QTest::qWait(50);
        quiet = swapped.count() == 0 ? quiet + 1 : 0;
    }
    swapped.reset();
    QTest::qWait(milliseconds);
    return swapped.count();
}

int framesOf(QQuickWindow *window, const std::function<void()> &change)
{
    const FrameCounter swapped(window);
    change();
    for (int quiet = 0, before = 0; quiet < 3; ++quiet) {
        QTest::qWait(50);
        if (swapped.count() != before) {
            before = swapped.count();
            quiet = 0;
        }
    }
    return swapped.count();
}

} // namespace support
