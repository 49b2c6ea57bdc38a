// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "controls/scenegraph/QRData.h"

#include <QSGSimpleMaterial>

namespace om::controls {

/// Maps the two tones of a texture of modules to two colours, with softened edges where the state
/// has a radius.
class QRCodeShader : public QSGSimpleMaterialShader<QRData>
{
    QSG_DECLARE_SIMPLE_COMPARABLE_SHADER(QRCodeShader, QRData)

public:
    const char *vertexShader() const override;
    const char *fragmentShader() const override;
    QList<QByteArray> attributes() const override;
    void resolveUniforms() override;
    void updateState(const QRData *newState, const QRData *oldState) override;

private:
    int m_dark = -1;
    int m_light = -1;
    int m_radius = -1;
};

} // namespace om::controls
