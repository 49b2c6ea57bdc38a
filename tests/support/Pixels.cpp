// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Pixels.h"

#include "tests/support/Screen.h"

#include <QQuickWindow>
#include <QTest>

#include <cstdlib>

namespace support {

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
