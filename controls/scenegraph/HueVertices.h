// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QSGGeometry>

namespace om::controls {

/// The hue strip has seven stops, the first and the last both red; each has a vertex at the top and
/// one at the bottom, and all make a triangle strip.
constexpr int hueStopCount = 7;
constexpr int hueVertexCount = 2 * hueStopCount;

/// Gives the hueVertexCount vertices from \a vertices on their colours, which never change.
void setHueColors(QSGGeometry::ColoredPoint2D *vertices);

/// Spreads the stops evenly over \a width, from 0 down to \a height; colours stay as they are.
void setHuePositions(QSGGeometry::ColoredPoint2D *vertices, double width, double height);

} // namespace om::controls
