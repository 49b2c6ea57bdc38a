// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

/// The z of what lies above the content of a window, from below to above.
namespace om::controls::overlayz {

constexpr qreal frameRing = 65534.0;
/// Of the first dialog. Each that opens above others is higher by one.
constexpr qreal dialog = 65535.0;
constexpr qreal dragVisual = 65535.0;
constexpr qreal popup = 65540.0;
/// Above all popups, as the place that an anchor marks may lie in one.
constexpr qreal popupAnchor = 65635.0;

} // namespace om::controls::overlayz
