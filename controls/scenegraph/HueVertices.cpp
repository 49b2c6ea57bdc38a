// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/scenegraph/HueVertices.h"

#include "controls/scenegraph/Extent.h"

#include <QColor>

namespace om::controls {

void setHueColors(QSGGeometry::ColoredPoint2D *vertices)
{
    for (int i = 0; i < hueStopCount; ++i) {
        const QColor color = QColor::fromHsvF(i / double(hueStopCount - 1), 1, 1, 1);
        for (int k = 2 * i; k <= 2 * i + 1; ++k) {
            vertices[k].r = static_cast<unsigned char>(color.red());
            vertices[k].g = static_cast<unsigned char>(color.green());
            vertices[k].b = static_cast<unsigned char>(color.blue());
            vertices[k].a = 255;
        }
    }
}

void setHuePositions(QSGGeometry::ColoredPoint2D *vertices, double width, double height)
{
    const float step = vertexCoordinate(width / (hueStopCount - 1));
    const float bottom = vertexCoordinate(height);
    for (int i = 0; i < hueStopCount; ++i) {
        vertices[2 * i].x = step * float(i);
        vertices[2 * i].y = 0;
        vertices[2 * i + 1].x = step * float(i);
        vertices[2 * i + 1].y = bottom;
    }
}

} // namespace om::controls
