// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "controls/drag/DragVisualIncubator.h"

namespace om::controls {

/// Makes the drag visual of a DragArea.
class DragAreaIncubator : public DragVisualIncubator
{
public:
    using DragVisualIncubator::DragVisualIncubator;
};

} // namespace om::controls
