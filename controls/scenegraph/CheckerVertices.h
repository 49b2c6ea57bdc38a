// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QSGGeometry>

#include <array>

namespace om::controls {

/// A corner of the checkerboard: where it is, and its coordinate in the item's pixels, from which
/// the shader finds the square.
struct CheckerVertex
{
    float x;
    float y;
    float pixelX;
    float pixelY;
};

/// How CheckerVertex lies in memory: "vertex" and "pixelCoord", two floats each.
const QSGGeometry::AttributeSet &checkerAttributes();

/// A triangle strip over the rectangle of \a width times \a height at the origin. Pixel coordinates
/// equal positions, so the squares keep their size and stay with the top left corner.
std::array<CheckerVertex, 4> checkerVertices(double width, double height);

} // namespace om::controls
