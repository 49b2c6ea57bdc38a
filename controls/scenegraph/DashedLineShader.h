// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "controls/scenegraph/DashedLine.h"

#include <QSGSimpleMaterialShader>

namespace om::controls {

/// Draws lines of one colour with dashes cut by the fragment's place in the window: of each ten
/// pixels, counted as x + y, seven are drawn (0 to 6, both included) and three left out.
class DashedLineShader : public QSGSimpleMaterialShader<DashedLine>
{
    QSG_DECLARE_SIMPLE_SHADER(DashedLineShader, DashedLine)

public:
    QList<QByteArray> attributes() const override;
    void updateState(const DashedLine *state, const DashedLine *oldState) override;

protected:
    const char *vertexShader() const override;
    const char *fragmentShader() const override;
};

} // namespace om::controls
