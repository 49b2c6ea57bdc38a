// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/visuals/FrameItem.h"

#include "controls/scenegraph/FrameNode.h"
#include "controls/scenegraph/Renderer.h"
#include "controls/support/OverlayZ.h"

#include <QPointer>

#include <cmath>

namespace om::controls {

namespace {

enum DirtyFlag {
    DirtyGeometry = 0x1,
    DirtyColor = 0x2,
    DirtyAll = DirtyGeometry | DirtyColor
};

bool hasNaN(const QRectF &rect)
{
    return std::isnan(rect.x()) || std::isnan(rect.y()) || std::isnan(rect.width())
        || std::isnan(rect.height());
}

/// Infinite values have no difference that qFuzzyCompare() could weigh.
bool isSame(qreal a, qreal b)
{
    return a == b || qFuzzyCompare(a, b);
}

bool isSame(const QRectF &a, const QRectF &b)
{
    return isSame(a.x(), b.x()) && isSame(a.y(), b.y()) && isSame(a.width(), b.width())
        && isSame(a.height(), b.height());
}

} // namespace

class FrameItem::Private
{
public:
    int frameWidth = 1;
    QColor color = Qt::black;
    QRectF rect;
    int dirty = DirtyAll;
};

FrameItem::FrameItem(QObject *owner)
    : d(std::make_unique<Private>())
{
    setParent(owner);
    setFlag(ItemHasContents);
    setZ(overlayz::frameRing);
}

FrameItem::~FrameItem() = default;

int FrameItem::frameWidth() const
{
    return d->frameWidth;
}

void FrameItem::setFrameWidth(int frameWidth)
{
    d->frameWidth = frameWidth;
    d->dirty |= DirtyGeometry;
    update();
}

QColor FrameItem::color() const
{
    return d->color;
}

void FrameItem::setColor(const QColor &color)
{
    d->color = color;
    d->dirty |= DirtyColor;
    update();
}

void FrameItem::setRect(const QRectF &rect)
{
    // A rectangle with NaN differs from itself: taking it would request a frame with every frame.
    if (hasNaN(rect) || isSame(rect, d->rect)) {
        return;
    }
    d->rect = rect;
    // Without update(): setSize() requests one, and a new place alone does not change the
    // vertices.
    d->dirty |= DirtyGeometry;
    // Both calls emit signals whose handlers may delete the Frame.
    const QPointer<FrameItem> item(this);
    setPosition(rect.topLeft());
    if (item) {
        setSize(rect.size());
    }
}

QSGNode *FrameItem::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *)
{
    if (!isDrawn(window(), NodeKind::Geometry)) {
        return nullptr;
    }
    auto *node = static_cast<FrameNode *>(oldNode);
    if (!node) {
        // The scene graph owns the node.
        node = new FrameNode;
        // Not only the first time: the window may have thrown its scene graph away.
        d->dirty = DirtyAll;
    }
    if (d->dirty & DirtyGeometry) {
        node->setRing(width(), height(), d->frameWidth);
    }
    if (d->dirty & DirtyColor) {
        node->setColor(d->color);
    }
    d->dirty = 0;
    return node;
}

} // namespace om::controls
