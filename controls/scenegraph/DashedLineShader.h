// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "controls/scenegraph/DashedLine.h"

#include <QSGSimpleMaterialShader>

namespace om::controls {

/// Draws lines of one colour, dashed by the place of each fragment in the window: fragments are
/// drawn where (x + y) modulo 10 is 0 to 6 and left out where it is 7 to 9.
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
