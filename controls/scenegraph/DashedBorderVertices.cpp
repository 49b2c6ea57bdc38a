// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/scenegraph/DashedBorderVertices.h"

#include "controls/scenegraph/Extent.h"

namespace om::controls {

std::array<QSGGeometry::Point2D, 4> dashedBorderVertices(double width, double height)
{
    const float w = vertexCoordinate(width);
    const float h = vertexCoordinate(height);
    return {{{0, 0}, {w, 0}, {w, h}, {0, h}}};
}

} // namespace om::controls
