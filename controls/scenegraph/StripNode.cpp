// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/scenegraph/StripNode.h"

namespace om::controls {

StripNode::StripNode(const QSGGeometry::AttributeSet &attributes, int vertexCount,
                     QSGMaterial *material)
{
    auto *geometry = new QSGGeometry(attributes, vertexCount);
    geometry->setDrawingMode(QSGGeometry::DrawTriangleStrip);
    setGeometry(geometry);
    setFlag(OwnsGeometry);
    setMaterial(material);
    setFlag(OwnsMaterial);
}

} // namespace om::controls
