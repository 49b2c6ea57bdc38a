// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

namespace om::controls {

/// From places in the two boxes of a colour picker to components. Places outside a box give the end
/// that they lie beyond; a place that is no number, or that no extent can be divided into, gives
/// the start.

/// The hue (0 to 359) at \a x, of which the whole pixels count, in a strip of \a width.
int hueAt(double x, double width);
/// The value (0 to 255) at \a x in a square of \a width: it grows to the right.
int valueAt(double x, double width);
/// The saturation (0 to 255) at \a y in a square of \a height: it grows upwards.
int saturationAt(double y, double height);

} // namespace om::controls
