// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "controls/scenegraph/StripNode.h"

namespace om::controls {

/// All saturations and values of one hue.
class SaturationValueNode : public StripNode
{
public:
    SaturationValueNode();

    /// \a hue is 0 to 359.
    void setSquare(int hue, double width, double height);
};

} // namespace om::controls
