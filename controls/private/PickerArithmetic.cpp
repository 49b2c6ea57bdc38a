// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/private/PickerArithmetic.h"

#include <cmath>

namespace om::controls {

namespace {

/// A number from 0 to 1 for any arguments: converting a larger one or NaN to int is undefined.
double fraction(double place, double extent)
{
    const double quotient = place / extent;
    if (!(quotient > 0)) {
        return 0;
    }
    return quotient < 1 ? quotient : 1;
}

int scaled(double part, int last)
{
    return static_cast<int>(std::lround(part * last));
}

} // namespace

int hueAt(double x, double width)
{
    return scaled(fraction(std::trunc(x), width), 359);
}

int valueAt(double x, double width)
{
    return scaled(fraction(x, width), 255);
}

int saturationAt(double y, double height)
{
    return scaled(1 - fraction(y, height), 255);
}

} // namespace om::controls
