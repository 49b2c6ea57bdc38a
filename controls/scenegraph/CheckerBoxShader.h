// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "controls/scenegraph/CheckerParams.h"

#include <QSGSimpleMaterialShader>

namespace om::controls {

/// Fills a quad of CheckerVertex corners with squares of two colours.
class CheckerBoxShader : public QSGSimpleMaterialShader<CheckerParams>
{
    QSG_DECLARE_SIMPLE_SHADER(CheckerBoxShader, CheckerParams)

public:
    QList<QByteArray> attributes() const override;
    void resolveUniforms() override;
    /// Uploads all uniforms at each draw, so that a new size or colour is drawn although the
    /// material is not marked dirty.
    void updateState(const CheckerParams *state, const CheckerParams *oldState) override;

protected:
    const char *vertexShader() const override;
    const char *fragmentShader() const override;

private:
    int m_size = -1;
    int m_light = -1;
    int m_dark = -1;
};

} // namespace om::controls
