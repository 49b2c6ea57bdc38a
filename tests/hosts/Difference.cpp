// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/hosts/Difference.h"

#include <QImage>
#include <QRect>
#include <QVector>

#include <algorithm>

namespace {

constexpr int squareSize = 8;

int apart(QRgb a, QRgb b)
{
    return std::max(
        {qAbs(qRed(a) - qRed(b)), qAbs(qGreen(a) - qGreen(b)), qAbs(qBlue(a) - qBlue(b))});
}

/// A pixel for each square: its average.
QImage inSquares(const QImage &image)
{
    const QSize squares((image.width() + squareSize - 1) / squareSize,
                        (image.height() + squareSize - 1) / squareSize);
    QImage result(squares, QImage::Format_RGB32);
    for (int y = 0; y < squares.height(); ++y) {
        for (int x = 0; x < squares.width(); ++x) {
            const QRect square = QRect(squareSize * x, squareSize * y, squareSize, squareSize)
                                     .intersected(image.rect());
            int red = 0;
            int green = 0;
            int blue = 0;
            for (int v = square.top(); v <= square.bottom(); ++v) {
                for (int u = square.left(); u <= square.right(); ++u) {
                    const QRgb pixel = image.pixel(u, v);
                    red += qRed(pixel);
                    green += qGreen(pixel);
                    blue += qBlue(pixel);
                }
            }
            const int pixels = square.width() * square.height();
            result.setPixel(x, y, qRgb(red / pixels, green / pixels, blue / pixels));
        }
    }
    return result;
}

/// The places of items of these \a types, as host_pictures has noted them.
QVector<QRect> placesOf(const QStringList &types, const QImage &picture)
{
    QVector<QRect> places;
    const QStringList lines =
        picture.text(QStringLiteral("Drawn")).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        const QStringList words = line.split(QLatin1Char(' '));
        if (types.contains(words.value(0))) {
            places.append(QRect(words.value(1).toInt(), words.value(2).toInt(),
                                words.value(3).toInt(), words.value(4).toInt()));
        }
    }
    return places;
}

} // namespace

QString differenceError(const QImage &actual, const QImage &expected, const QStringList &leftOut,
                        int tolerance)
{
    const QImage seen =
        inSquares(actual.scaled(expected.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    const QImage due = inSquares(expected);
    const QVector<QRect> places = placesOf(leftOut, expected);
    int worstMissing = places.isEmpty() ? 255 : 0;
    for (int y = 0; y < due.height(); ++y) {
        for (int x = 0; x < due.width(); ++x) {
            const QRect square(squareSize * x, squareSize * y, squareSize, squareSize);
            const int difference = apart(seen.pixel(x, y), due.pixel(x, y));
            const bool isLeftOut =
                std::any_of(places.begin(), places.end(), [&square](const QRect &place) {
                    return place.adjusted(-1, -1, 1, 1).intersects(square);
                });
            if (isLeftOut) {
                worstMissing = std::max(worstMissing, difference);
            } else if (difference > tolerance) {
                return QStringLiteral("it looks different by %1 around (%2, %3)")
                    .arg(difference)
                    .arg(square.center().x())
                    .arg(square.center().y());
            }
        }
    }
    return worstMissing > 10 ? QString() : QStringLiteral("what is to be left out is seen");
}
