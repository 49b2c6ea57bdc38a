// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "controls/scenegraph/StripNode.h"

class QColor;

namespace om::controls {

struct CheckerParams;

/// A rectangle of squares in two colours.
class CheckerBoxNode : public StripNode
{
public:
    CheckerBoxNode();

    void setSize(double width, double height);
    /// Draws squares of \a size pixels from now on. The material is not marked dirty: its shader
    /// reads all of its state whenever it draws. The node has to be marked, or the renderer drops
    /// the frame, and a layer is not rendered again.
    void setSquares(int size, const QColor &light, const QColor &dark);

private:
    CheckerParams *const m_params; ///< In the material.
};

} // namespace om::controls
