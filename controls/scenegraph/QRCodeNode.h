// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "controls/scenegraph/QRData.h"
#include "controls/scenegraph/StripNode.h"

#include <QRectF>
#include <QSGSimpleMaterial>

namespace om::controls {

/// The part of the texture that is shown, in normalised coordinates, for a code of \a moduleCount
/// modules a side. It is cut by 1 / moduleCount on each side although the texture is two texels
/// wider than the code; a smoothed code is cut by less, for its edges to fade into the border.
QRectF qrSourceRect(int moduleCount, bool smoothed);

/// The sampling radius, in texture coordinates, of a smoothed code of this \a width whose scale in
/// the scene is \a scale: half a pixel of the scene.
float qrSamplingRadius(qreal width, qreal scale);

/// Draws a texture of modules as one quad. Owns the texture, too.
class QRCodeNode : public StripNode
{
public:
    QRCodeNode();
    ~QRCodeNode() override;

    void setRect(const QRectF &target, const QRectF &source);
    void setDark(const QColor &color);
    void setLight(const QColor &color);
    /// Takes \a texture over and deletes the present one with deleteLater().
    void setTexture(QSGTexture *texture);
    void setRadius(float radius);

    const QRData *state() const { return m_material->state(); }

private:
    QSGSimpleMaterialComparableMaterial<QRData> *const m_material; ///< Freed by the base class.
};

} // namespace om::controls
