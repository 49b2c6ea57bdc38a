// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>

namespace om::controls {

/// What CheckerBoxShader draws with. The scene graph tells materials apart by the type of their
/// state: no other shader may use this one.
struct CheckerParams
{
    float size = 0; ///< Pixels along the edge of a square.
    QColor light;
    QColor dark; ///< The colour of the square in the top left corner.
};

} // namespace om::controls
