// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/scenegraph/CheckerBoxShader.h"

#include "shaders/CheckerBoxFrag.h"
#include "shaders/CheckerBoxVert.h"

namespace om::controls {

QList<QByteArray> CheckerBoxShader::attributes() const
{
    return {QByteArrayLiteral("vertex"), QByteArrayLiteral("pixelCoord")};
}

void CheckerBoxShader::resolveUniforms()
{
    m_size = program()->uniformLocation("size");
    m_light = program()->uniformLocation("light");
    m_dark = program()->uniformLocation("dark");
}

void CheckerBoxShader::updateState(const CheckerParams *state, const CheckerParams *)
{
    program()->setUniformValue(m_size, state->size);
    program()->setUniformValue(m_light, state->light);
    program()->setUniformValue(m_dark, state->dark);
}

const char *CheckerBoxShader::vertexShader() const
{
    return glslForCurrentContext(shaders::CheckerBoxVert);
}

const char *CheckerBoxShader::fragmentShader() const
{
    return glslForCurrentContext(shaders::CheckerBoxFrag);
}

} // namespace om::controls
