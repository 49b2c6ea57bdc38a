// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/scenegraph/QRCodeNode.h"

#include "controls/scenegraph/QRCodeShader.h"

#include <QSGGeometry>
#include <QSGTexture>

namespace om::controls {

QRectF qrSourceRect(int moduleCount, bool smoothed)
{
    const qreal module = 1.0 / moduleCount;
    const qreal cut = smoothed ? 0.8 * module : module;
    return QRectF(cut, cut, 1 - 2 * cut, 1 - 2 * cut);
}

float qrSamplingRadius(qreal width, qreal scale)
{
    return static_cast<float>(0.5 / (width * scale));
}

QRCodeNode::QRCodeNode()
    : StripNode(QSGGeometry::defaultAttributes_TexturedPoint2D(), 4, QRCodeShader::createMaterial())
    , m_material(static_cast<QSGSimpleMaterialComparableMaterial<QRData> *>(material()))
{
    m_material->setFlag(QSGMaterial::Blending);
}

QRCodeNode::~QRCodeNode()
{
    // Nodes are destroyed on the render thread with its context current, as textures have to be.
    delete m_material->state()->texture;
}

void QRCodeNode::setRect(const QRectF &target, const QRectF &source)
{
    QSGGeometry::updateTexturedRectGeometry(geometry(), target, source);
    markDirty(DirtyGeometry);
}

void QRCodeNode::setDark(const QColor &color)
{
    m_material->state()->dark = color;
    markDirty(DirtyMaterial);
}

void QRCodeNode::setLight(const QColor &color)
{
    m_material->state()->light = color;
    markDirty(DirtyMaterial);
}

void QRCodeNode::setTexture(QSGTexture *texture)
{
    QSGTexture *const previous = m_material->state()->texture;
    m_material->state()->texture = texture;
    if (previous) {
        previous->deleteLater();
    }
    markDirty(DirtyMaterial);
}

void QRCodeNode::setRadius(float radius)
{
    if (qFuzzyCompare(radius, m_material->state()->radius)) {
        return;
    }
    m_material->state()->radius = radius;
    markDirty(DirtyMaterial);
}

} // namespace om::controls
