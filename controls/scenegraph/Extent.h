// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cmath>
#include <limits>

namespace om::controls {

/// An extent as a vertex coordinate. One that is no number, or is larger than a coordinate can be,
/// collapses to 0: such an item draws nothing instead of whatever the rasteriser makes of it.
inline float vertexCoordinate(double extent)
{
    // Not true of what is no number, either.
    const bool fits = std::fabs(extent) <= double(std::numeric_limits<float>::max());
    return fits ? static_cast<float>(extent) : 0.0f;
}

} // namespace om::controls
