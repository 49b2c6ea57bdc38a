// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/scenegraph/QRCodeShader.h"

#include "shaders/QRCodeFrag.h"
#include "shaders/QRCodeVert.h"

#include <QOpenGLShaderProgram>
#include <QSGTexture>

namespace om::controls {

const char *QRCodeShader::vertexShader() const
{
    return glslForCurrentContext(shaders::QRCodeVert);
}

const char *QRCodeShader::fragmentShader() const
{
    return glslForCurrentContext(shaders::QRCodeFrag);
}

QList<QByteArray> QRCodeShader::attributes() const
{
    return {QByteArrayLiteral("vertex"), QByteArrayLiteral("texCoord")};
}

void QRCodeShader::resolveUniforms()
{
    // The sampler stays at its default, the first texture unit.
    m_dark = program()->uniformLocation("dark");
    m_light = program()->uniformLocation("light");
    m_radius = program()->uniformLocation("radius");
}

void QRCodeShader::updateState(const QRData *newState, const QRData *oldState)
{
    if (!oldState || newState->dark != oldState->dark) {
        program()->setUniformValue(m_dark, newState->dark);
    }
    if (!oldState || newState->light != oldState->light) {
        program()->setUniformValue(m_light, newState->light);
    }
    if (newState->texture && (!oldState || newState->texture != oldState->texture)) {
        newState->texture->bind();
    }
    if (!oldState || !qFuzzyCompare(newState->radius, oldState->radius)) {
        program()->setUniformValue(m_radius, newState->radius);
    }
}

} // namespace om::controls
