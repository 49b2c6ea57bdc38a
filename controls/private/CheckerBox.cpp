// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/private/CheckerBox.h"

#include "controls/scenegraph/CheckerBoxNode.h"
#include "controls/scenegraph/Renderer.h"

namespace om::controls {

namespace {

enum DirtyFlag {
    DirtyGeometry = 0x1,
    DirtyParameters = 0x2,
    DirtyAll = DirtyGeometry | DirtyParameters
};

} // namespace

class CheckerBox::Private
{
public:
    explicit Private(CheckerBox *box)
        : q(box)
    {
    }

    void markDirty(DirtyFlag flag)
    {
        dirty |= flag;
        q->update();
    }

    CheckerBox *const q;
    int dirty = DirtyAll;
    int checkerSize = 8;
    QColor lightColor = Qt::lightGray;
    QColor darkColor = Qt::gray;
};

CheckerBox::CheckerBox(QQuickItem *parent)
    : QQuickItem(parent)
    , d(std::make_unique<Private>(this))
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
    d->markDirty(DirtyParameters);
    Q_EMIT checkerSizeChanged();
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
    d->markDirty(DirtyParameters);
    Q_EMIT lightColorChanged();
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
    d->markDirty(DirtyParameters);
    Q_EMIT darkColorChanged();
}

void CheckerBox::geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    d->markDirty(DirtyGeometry);
    QQuickItem::geometryChanged(newGeometry, oldGeometry);
}

QSGNode *CheckerBox::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *)
{
    if (!isDrawn(window(), NodeKind::Shader)) {
        return nullptr;
    }
    auto *node = static_cast<CheckerBoxNode *>(oldNode);
    if (!node) {
        // The scene graph owns the node.
        node = new CheckerBoxNode;
        // Not only the first time: the window may have thrown its scene graph away.
        d->dirty = DirtyAll;
    }
    if (d->dirty & DirtyGeometry) {
        node->setSize(width(), height());
    }
    if (d->dirty & DirtyParameters) {
        node->setSquares(d->checkerSize, d->lightColor, d->darkColor);
    }
    d->dirty = 0;
    return node;
}

} // namespace om::controls
