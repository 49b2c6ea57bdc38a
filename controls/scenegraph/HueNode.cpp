// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/scenegraph/HueNode.h"

#include "controls/scenegraph/HueVertices.h"

#include <QSGVertexColorMaterial>

namespace om::controls {

HueNode::HueNode()
    : StripNode(QSGGeometry::defaultAttributes_ColoredPoint2D(), hueVertexCount,
                new QSGVertexColorMaterial)
{
    setHueColors(geometry()->vertexDataAsColoredPoint2D());
}

void HueNode::setSize(double width, double height)
{
    setHuePositions(geometry()->vertexDataAsColoredPoint2D(), width, height);
    markDirty(DirtyGeometry);
}

} // namespace om::controls
