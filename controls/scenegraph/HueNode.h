// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "controls/scenegraph/StripNode.h"

namespace om::controls {

/// All hues from left to right.
class HueNode : public StripNode
{
public:
    HueNode();

    void setSize(double width, double height);
};

} // namespace om::controls
