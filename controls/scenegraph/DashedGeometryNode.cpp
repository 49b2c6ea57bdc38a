// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/scenegraph/DashedGeometryNode.h"

#include "controls/scenegraph/DashedBorderVertices.h"
#include "controls/scenegraph/DashedLineShader.h"

#include <algorithm>

namespace om::controls {

DashedGeometryNode::DashedGeometryNode()
{
    setFlag(UsePreprocess);
    auto *geometry = new QSGGeometry(QSGGeometry::defaultAttributes_Point2D(), 4, 0,
                                     QSGGeometry::UnsignedShortType);
    geometry->setDrawingMode(QSGGeometry::DrawLineLoop);
    setGeometry(geometry);
    setFlag(OwnsGeometry);
}

void DashedGeometryNode::setColor(const QColor &color)
{
    auto *material = DashedLineShader::createMaterial();
    material->state()->color = color;
    material->setFlag(QSGMaterial::Blending);
    setMaterial(material);
    setFlag(OwnsMaterial);
}

void DashedGeometryNode::setSize(double width, double height)
{
    const auto vertices = dashedBorderVertices(width, height);
    std::copy(vertices.begin(), vertices.end(), geometry()->vertexDataAsPoint2D());
    markDirty(DirtyGeometry);
}

} // namespace om::controls
