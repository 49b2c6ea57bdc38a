// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/scenegraph/CheckerBoxNode.h"

#include "controls/scenegraph/CheckerBoxShader.h"
#include "controls/scenegraph/CheckerVertices.h"

#include <algorithm>

namespace om::controls {

CheckerBoxNode::CheckerBoxNode()
    : StripNode(checkerAttributes(), 4, CheckerBoxShader::createMaterial())
    , m_params(static_cast<QSGSimpleMaterial<CheckerParams> *>(material())->state())
{
}

void CheckerBoxNode::setSize(double width, double height)
{
    const auto vertices = checkerVertices(width, height);
    std::copy(vertices.begin(), vertices.end(),
              static_cast<CheckerVertex *>(geometry()->vertexData()));
    markDirty(DirtyGeometry);
}

void CheckerBoxNode::setSquares(int size, const QColor &light, const QColor &dark)
{
    m_params->size = static_cast<float>(size);
    m_params->light = light;
    m_params->dark = dark;
    markDirty(DirtyGeometry);
}

} // namespace om::controls
