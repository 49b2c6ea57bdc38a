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
    /// Sets the squares to \a size pixels. The material is not marked dirty, as its shader uploads
    /// its whole state at each draw. The node is marked: without any mark the renderer drops the
    /// frame, and a layer is not rendered again.
    void setSquares(int size, const QColor &light, const QColor &dark);

private:
    CheckerParams *const m_params; ///< In the material.
};

} // namespace om::controls
