// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QSGGeometry>

#include <array>

namespace om::controls {

/// A triangle strip that covers the ring between the rectangle of \a width times \a height at the
/// origin and the same rectangle inset by \a frameWidth. All zeros, which draw nothing, where an
/// extent is NaN or beyond the range of float.
std::array<QSGGeometry::Point2D, 10> frameVertices(double width, double height, int frameWidth);

} // namespace om::controls
