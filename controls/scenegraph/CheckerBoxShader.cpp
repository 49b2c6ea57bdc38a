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

void CheckerBoxShader::updateState(const CheckerParams *state, const CheckerParams *)
{
    program()->setUniformValue("size", state->size);
    program()->setUniformValue("light", state->light);
    program()->setUniformValue("dark", state->dark);
}

const char *CheckerBoxShader::vertexShader() const
{
    return shaders::CheckerBoxVert;
}

const char *CheckerBoxShader::fragmentShader() const
{
    return shaders::CheckerBoxFrag;
}

} // namespace om::controls
