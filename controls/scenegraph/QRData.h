// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>

class QSGTexture;

namespace om::controls {

/// What the material of a QR code draws with.
struct QRData
{
    QColor dark;
    QColor light;
    QSGTexture *texture = nullptr; ///< Owned by the node; null until the first image is uploaded.
    float radius = 0; ///< Of the circle sampled around each fragment, in texture coordinates;
                      ///< 0 without smoothing.

    /// Orders by the red, green and blue of \c dark, then of \c light, then by the texture's id.
    /// Alpha is left out. Codes never share a texture, so no two nodes are equal while both are
    /// drawn.
    int compare(const QRData *other) const;
};

} // namespace om::controls
