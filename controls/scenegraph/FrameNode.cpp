// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/scenegraph/FrameNode.h"

#include "controls/scenegraph/FrameVertices.h"

#include <QSGFlatColorMaterial>

#include <algorithm>

namespace om::controls {

FrameNode::FrameNode()
    : StripNode(QSGGeometry::defaultAttributes_Point2D(), 10, new QSGFlatColorMaterial)
    , m_material(static_cast<QSGFlatColorMaterial *>(material()))
{
}

void FrameNode::setRing(double width, double height, int frameWidth)
{
    const auto vertices = frameVertices(width, height, frameWidth);
    std::copy(vertices.begin(), vertices.end(), geometry()->vertexDataAsPoint2D());
    markDirty(DirtyGeometry);
}

void FrameNode::setColor(const QColor &color)
{
    m_material->setColor(color);
    markDirty(DirtyMaterial);
}

} // namespace om::controls
