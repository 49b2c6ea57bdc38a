// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/private/CheckerBox.h"

#include "controls/scenegraph/CheckerBoxShader.h"
#include "controls/scenegraph/CheckerVertices.h"

#include <QSGGeometryNode>

#include <algorithm>

namespace om::controls {

namespace {

enum DirtyFlag {
    DirtyGeometry = 0x1,
    DirtyParameters = 0x2,
    DirtyAll = DirtyGeometry | DirtyParameters
};

QSGGeometryNode *createNode()
{
    // The scene graph owns the node (through its parent node); the node owns the rest.
    auto *node = new QSGGeometryNode;
    auto *geometry = new QSGGeometry(checkerAttributes(), 4, 0, QSGGeometry::UnsignedShortType);
    geometry->setDrawingMode(QSGGeometry::DrawTriangleStrip);
    node->setGeometry(geometry);
    node->setMaterial(CheckerBoxShader::createMaterial());
    node->setFlags(QSGNode::OwnedByParent | QSGNode::OwnsGeometry | QSGNode::OwnsMaterial);
    return node;
}

} // namespace

class CheckerBox::Private
{
public:
    void markDirty(CheckerBox *q, DirtyFlag flag)
    {
        dirty |= flag;
        q->update();
    }

    int dirty = DirtyAll;
    int checkerSize = 8;
    QColor lightColor = Qt::lightGray;
    QColor darkColor = Qt::gray;
};

CheckerBox::CheckerBox(QQuickItem *parent)
    : QQuickItem(parent)
    , d(std::make_unique<Private>())
{
    setFlag(ItemHasContents);
}

CheckerBox::~CheckerBox() = default;

int CheckerBox::checkerSize() const
{
    return d->checkerSize;
}

void CheckerBox::setCheckerSize(int size)
{
    const int clamped = qBound(2, size, 128);
    if (d->checkerSize == clamped) {
        return;
    }
    d->checkerSize = clamped;
    Q_EMIT checkerSizeChanged();
    d->markDirty(this, DirtyParameters);
}

QColor CheckerBox::lightColor() const
{
    return d->lightColor;
}

void CheckerBox::setLightColor(const QColor &color)
{
    if (d->lightColor == color) {
        return;
    }
    d->lightColor = color;
    Q_EMIT lightColorChanged();
    d->markDirty(this, DirtyParameters);
}

QColor CheckerBox::darkColor() const
{
    return d->darkColor;
}

void CheckerBox::setDarkColor(const QColor &color)
{
    if (d->darkColor == color) {
        return;
    }
    d->darkColor = color;
    Q_EMIT darkColorChanged();
    d->markDirty(this, DirtyParameters);
}

void CheckerBox::geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    d->markDirty(this, DirtyGeometry);
    QQuickItem::geometryChanged(newGeometry, oldGeometry);
}

QSGNode *CheckerBox::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *)
{
    auto *node = static_cast<QSGGeometryNode *>(oldNode);
    if (!node) {
        node = createNode();
        // Not only the first time: the window may have thrown its scene graph away.
        d->dirty = DirtyAll;
    }
    if (d->dirty & DirtyGeometry) {
        const auto vertices = checkerVertices(width(), height());
        std::copy(vertices.begin(), vertices.end(),
                  static_cast<CheckerVertex *>(node->geometry()->vertexData()));
        node->markDirty(QSGNode::DirtyGeometry);
    }
    if (d->dirty & DirtyParameters) {
        // The material is not marked dirty: its shader reads all of this whenever it draws.
        CheckerParams *params =
            static_cast<QSGSimpleMaterial<CheckerParams> *>(node->material())->state();
        params->size = static_cast<float>(d->checkerSize);
        params->light = d->lightColor;
        params->dark = d->darkColor;
    }
    d->dirty = 0;
    return node;
}

} // namespace om::controls
