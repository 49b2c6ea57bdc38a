// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>

namespace om::controls {

/// What DashedLineShader draws with. The scene graph tells materials apart by the type of their
/// state: no other shader may use this one.
struct DashedLine
{
    QColor color;
};

} // namespace om::controls
