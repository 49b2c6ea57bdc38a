// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/scenegraph/SaturationValueNode.h"

#include "controls/scenegraph/SaturationValueVertices.h"

#include <QSGVertexColorMaterial>

#include <algorithm>

namespace om::controls {

SaturationValueNode::SaturationValueNode()
    : StripNode(QSGGeometry::defaultAttributes_ColoredPoint2D(), 4, new QSGVertexColorMaterial)
{
}

void SaturationValueNode::setSquare(int hue, double width, double height)
{
    const auto vertices = saturationValueVertices(hue, width, height);
    std::copy(vertices.begin(), vertices.end(), geometry()->vertexDataAsColoredPoint2D());
    markDirty(DirtyGeometry);
}

} // namespace om::controls
