// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QSGGeometryNode>

class QColor;

namespace om::controls {

/// The outline of a DashedBorder. Owns its geometry and its material.
class DashedGeometryNode : public QSGGeometryNode
{
public:
    DashedGeometryNode();

    /// Draws in \a color from now on. Each call brings a new material, and the old one is deleted:
    /// that is how the colour gets to the render thread.
    void setColor(const QColor &color);
    void setSize(double width, double height);
};

} // namespace om::controls
