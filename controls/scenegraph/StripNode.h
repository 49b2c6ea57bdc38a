// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QSGGeometryNode>

namespace om::controls {

/// A node that draws one triangle strip. Owns its geometry and its material.
class StripNode : public QSGGeometryNode
{
protected:
    /// Makes a geometry of \a vertexCount vertices, without indices, and takes \a material over.
    StripNode(const QSGGeometry::AttributeSet &attributes, int vertexCount, QSGMaterial *material);
};

} // namespace om::controls
