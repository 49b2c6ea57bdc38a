// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/scenegraph/CheckerVertices.h"

#include "controls/scenegraph/Extent.h"

namespace om::controls {

const QSGGeometry::AttributeSet &checkerAttributes()
{
    static const QSGGeometry::Attribute attributes[] = {
        QSGGeometry::Attribute::createWithAttributeType(0, 2, QSGGeometry::FloatType,
                                                        QSGGeometry::PositionAttribute),
        QSGGeometry::Attribute::createWithAttributeType(1, 2, QSGGeometry::FloatType,
                                                        QSGGeometry::TexCoordAttribute)};
    static const QSGGeometry::AttributeSet set = {2, sizeof(CheckerVertex), attributes};
    static_assert(sizeof(CheckerVertex) == 16, "two attributes of two floats, without gaps");
    return set;
}

std::array<CheckerVertex, 4> checkerVertices(double width, double height)
{
    const float w = vertexCoordinate(width);
    const float h = vertexCoordinate(height);
    return {{{0, 0, 0, 0}, {w, 0, w, 0}, {0, h, 0, h}, {w, h, w, h}}};
}

} // namespace om::controls
