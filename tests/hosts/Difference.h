// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

class QImage;

/// Empty when \a actual shows what \a expected does, else a sentence about where it does not. Sizes
/// may differ, as the scales of their windows do. Items of the types \a leftOut must not be seen,
/// and their places are not compared otherwise.
///
/// The pictures are compared in squares of 8 pixels, whose colours may be \a tolerance apart in
/// each channel: edges of letters differ from scale to scale and from a window to a layer, and so
/// do the single dashes of a border; a line or an item that is missing counts more.
QString differenceError(const QImage &actual, const QImage &expected, const QStringList &leftOut,
                        int tolerance);
