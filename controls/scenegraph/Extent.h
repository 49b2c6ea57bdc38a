// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cmath>
#include <limits>

namespace om::controls {

/// Whether \a extent is in the range of float, which vertices have. False for NaN as well.
inline bool isVertexCoordinate(double extent)
{
    return std::fabs(extent) <= double(std::numeric_limits<float>::max());
}

/// An extent as a vertex coordinate. NaN and extents beyond the range of float become 0: such an
/// item draws nothing, while a rasteriser's result for such vertices is undefined.
inline float vertexCoordinate(double extent)
{
    return isVertexCoordinate(extent) ? static_cast<float>(extent) : 0.0f;
}

} // namespace om::controls
