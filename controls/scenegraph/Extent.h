// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cmath>
#include <limits>

namespace om::controls {

/// An extent as a vertex coordinate. NaN and extents beyond the range of float become 0: such an
/// item draws nothing, while a rasteriser's result for such vertices is undefined.
inline float vertexCoordinate(double extent)
{
    // False for NaN as well.
    const bool fits = std::fabs(extent) <= double(std::numeric_limits<float>::max());
    return fits ? static_cast<float>(extent) : 0.0f;
}

} // namespace om::controls
