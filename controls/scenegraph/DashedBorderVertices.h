// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QSGGeometry>

#include <array>

namespace om::controls {

/// The corners of a rectangle of \a width times \a height at the origin, clockwise from the top
/// left: a line loop.
std::array<QSGGeometry::Point2D, 4> dashedBorderVertices(double width, double height);

} // namespace om::controls
