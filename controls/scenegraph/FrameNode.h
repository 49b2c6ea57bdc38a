// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "controls/scenegraph/StripNode.h"

class QColor;
class QSGFlatColorMaterial;

namespace om::controls {

/// A solid ring.
class FrameNode : public StripNode
{
public:
    FrameNode();

    /// The ring lies inside the rectangle of \a width times \a height at the origin.
    void setRing(double width, double height, int frameWidth);
    void setColor(const QColor &color);

private:
    QSGFlatColorMaterial *const m_material; ///< Freed by the base class.
};

} // namespace om::controls
