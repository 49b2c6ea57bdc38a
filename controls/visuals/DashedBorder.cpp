// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/visuals/DashedBorder.h"

#include "controls/scenegraph/DashedGeometryNode.h"
#include "controls/scenegraph/Renderer.h"

namespace om::controls {

class DashedBorder::Private
{
public:
    explicit Private(DashedBorder *border)
        : q(border)
    {
    }

    DashedBorder *const q;
    QColor borderColor;
};

DashedBorder::DashedBorder(QQuickItem *parent)
    : QQuickItem(parent)
    , d(std::make_unique<Private>(this))
{
    setFlag(ItemHasContents);
}

DashedBorder::~DashedBorder() = default;

QColor DashedBorder::borderColor() const
{
    return d->borderColor;
}

void DashedBorder::setBorderColor(const QColor &color)
{
    if (d->borderColor == color) {
        return;
    }
    d->borderColor = color;
    update();
    Q_EMIT borderColorChanged();
}

void DashedBorder::geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    update();
    // Last, as it emits signals whose handlers may delete the item.
    QQuickItem::geometryChanged(newGeometry, oldGeometry);
}

QSGNode *DashedBorder::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *)
{
    if (!isDrawn(window(), NodeKind::Shader)) {
        return nullptr;
    }
    // The scene graph owns the node; the node owns its geometry and its material.
    auto *node = static_cast<DashedGeometryNode *>(oldNode);
    if (!node) {
        node = new DashedGeometryNode;
    }
    node->setColor(d->borderColor);
    node->setSize(width(), height());
    return node;
}

} // namespace om::controls
