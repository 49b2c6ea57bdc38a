// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QImage>
#include <QPoint>
#include <QString>

#include <functional>

class QQuickWindow;

namespace support {

/// True when \a a and \a b differ by at most \a tolerance in each of red, green, blue and alpha.
bool similar(const QColor &a, const QColor &b, int tolerance);

/// An empty string when the pixel of \a image at \a point is \a expected within \a tolerance,
/// else a sentence that says what is there: QCOMPARE(pixelError(…), QString()).
QString pixelError(const QImage &image, const QPoint &point, const QColor &expected,
                   int tolerance = 2);

/// An empty string when the images have the same size and no pixel differs by more than
/// \a tolerance, else a sentence about the first difference.
QString imageError(const QImage &actual, const QImage &expected, int tolerance = 2);

/// How far two images are apart, 0 to 255, in the worst place: each is looked at in squares of
/// 8 pixels, so that the edges of letters do not count. 255 when their sizes differ.
int coarseDifference(const QImage &a, const QImage &b);

/// \a image with a palette, so that its file is small: no colour is off by more than 16 in
/// any part, and none of a gradient by more than 4. The image itself where 256 colours are too few.
QImage withPalette(const QImage &image);

/// The pixels of \a window after everything that is pending has been rendered.
QImage grab(QQuickWindow *window);

/// Counts the frames that \a window swaps while its event loop runs idle for \a milliseconds.
int framesWhileIdle(QQuickWindow *window, int milliseconds = 300);

/// Counts the frames that \a window swaps from \a change on until it is quiet again.
int framesOf(QQuickWindow *window, const std::function<void()> &change);

} // namespace support
