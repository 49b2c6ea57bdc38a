// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/scenegraph/FrameVertices.h"

#include "controls/scenegraph/Extent.h"

namespace om::controls {

std::array<QSGGeometry::Point2D, 10> frameVertices(double width, double height, int frameWidth)
{
    // With one extent as 0 the sides of the other would be drawn as a bar.
    if (!isVertexCoordinate(width) || !isVertexCoordinate(height)) {
        return {};
    }
    const float W = static_cast<float>(width);
    const float H = static_cast<float>(height);
    const float w = static_cast<float>(frameWidth);
    // Outer and inner corners in turn, clockwise; the first pair again closes the ring.
    return {{{0, 0},
             {w, w},
             {W, 0},
             {W - w, w},
             {W, H},
             {W - w, H - w},
             {0, H},
             {w, H - w},
             {0, 0},
             {w, w}}};
}

} // namespace om::controls
