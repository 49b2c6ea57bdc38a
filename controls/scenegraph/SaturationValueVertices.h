// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QSGGeometry>

#include <array>

namespace om::controls {

/// The square of one hue, as a triangle strip over \a width times \a height at the origin: value
/// grows to the right, saturation upwards. \a hue is 0 to 359; 359 is red again.
std::array<QSGGeometry::ColoredPoint2D, 4> saturationValueVertices(int hue, double width,
                                                                   double height);

} // namespace om::controls
