// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/scenegraph/SaturationValueVertices.h"

#include "controls/scenegraph/Extent.h"

#include <QColor>

namespace om::controls {

std::array<QSGGeometry::ColoredPoint2D, 4> saturationValueVertices(int hue, double width,
                                                                   double height)
{
    const double h = hue / 359.0;
    const auto corner = [h](float x, float y, double saturation, double value) {
        const QColor color = QColor::fromHsvF(h, saturation, value, 1);
        QSGGeometry::ColoredPoint2D vertex;
        vertex.set(x, y, static_cast<uchar>(color.red()), static_cast<uchar>(color.green()),
                   static_cast<uchar>(color.blue()), 255);
        return vertex;
    };
    const float right = vertexCoordinate(width);
    const float bottom = vertexCoordinate(height);
    return {{corner(0, 0, 1, 0), corner(right, 0, 1, 1), corner(0, bottom, 0, 0),
             corner(right, bottom, 0, 1)}};
}

} // namespace om::controls
