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

    /// Sets the colour. Each call makes a new material and deletes the old one; setMaterial() marks
    /// the node as dirty.
    void setColor(const QColor &color);
    void setSize(double width, double height);
};

} // namespace om::controls
