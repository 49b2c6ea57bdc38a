// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/scenegraph/DashedLineShader.h"

#include "shaders/DashedLineFrag.h"
#include "shaders/DashedLineVert.h"

namespace om::controls {

QList<QByteArray> DashedLineShader::attributes() const
{
    return {QByteArrayLiteral("vertex")};
}

void DashedLineShader::updateState(const DashedLine *state, const DashedLine *)
{
    // setUniformValue() uploads an invalid QColor as opaque black; without a colour nothing is to
    // be seen.
    program()->setUniformValue("om_Color",
                               state->color.isValid() ? state->color : QColor(Qt::transparent));
}

const char *DashedLineShader::vertexShader() const
{
    return glslForCurrentContext(shaders::DashedLineVert);
}

const char *DashedLineShader::fragmentShader() const
{
    return glslForCurrentContext(shaders::DashedLineFrag);
}

} // namespace om::controls
