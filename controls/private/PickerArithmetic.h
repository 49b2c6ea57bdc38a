// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

namespace om::controls {

/// Converts places in the two boxes of a colour picker to components. A place outside a box gives
/// the end that it lies beyond; a place that is NaN, and any place in a box of the extent 0 or NaN,
/// gives the start.

/// The hue (0 to 359) at \a x, of which the whole pixels count, in a strip of \a width.
int hueAt(double x, double width);
/// The value (0 to 255) at \a x in a square of \a width: it grows to the right.
int valueAt(double x, double width);
/// The saturation (0 to 255) at \a y in a square of \a height: it grows upwards.
int saturationAt(double y, double height);

} // namespace om::controls
