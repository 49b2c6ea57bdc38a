// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cmath>

namespace om::controls {

/// An extent as a vertex coordinate. One that is no number, or is infinite, collapses to 0: such an
/// item draws nothing instead of whatever the rasteriser makes of it.
inline float vertexCoordinate(double extent)
{
    return std::isfinite(extent) ? static_cast<float>(extent) : 0.0f;
}

} // namespace om::controls
