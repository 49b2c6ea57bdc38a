// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/private/SaturationValueBox.h"

#include "controls/private/Marker.h"
#include "controls/private/PickerArithmetic.h"
#include "controls/scenegraph/SaturationValueVertices.h"

#include <QSGGeometryNode>
#include <QSGVertexColorMaterial>

#include <algorithm>

namespace om::controls {

class SaturationValueBox::Private
{
public:
    explicit Private(SaturationValueBox *box)
        : q(box)
        , crossHair(box)
    {
    }

    void placeCrossHair();

    SaturationValueBox *const q;
    int hue = 0;
    int saturation = 255;
    int value = 255;
    Marker crossHair;
};

void SaturationValueBox::Private::placeCrossHair()
{
    if (QQuickItem *item = crossHair.item()) {
        item->setX(q->width() * value / 255);
        item->setY(q->height() * (1 - saturation / 255.0));
    }
}

SaturationValueBox::SaturationValueBox(QQuickItem *parent)
    : QQuickItem(parent)
    , d(std::make_unique<Private>(this))
{
    setFlag(ItemHasContents);
    setAcceptedMouseButtons(Qt::LeftButton);
}

SaturationValueBox::~SaturationValueBox() = default;

int SaturationValueBox::hue() const
{
    return d->hue;
}

void SaturationValueBox::setHue(int hue)
{
    const int clamped = qBound(0, hue, 359);
    if (d->hue == clamped) {
        return;
    }
    d->hue = clamped;
    Q_EMIT hueChanged();
    update();
}

int SaturationValueBox::saturation() const
{
    return d->saturation;
}

void SaturationValueBox::setSaturation(int saturation)
{
    const int clamped = qBound(0, saturation, 255);
    if (d->saturation == clamped) {
        return;
    }
    d->saturation = clamped;
    Q_EMIT saturationChanged();
    d->placeCrossHair();
}

int SaturationValueBox::value() const
{
    return d->value;
}

void SaturationValueBox::setValue(int value)
{
    const int clamped = qBound(0, value, 255);
    if (d->value == clamped) {
        return;
    }
    d->value = clamped;
    Q_EMIT valueChanged();
    d->placeCrossHair();
}

QQmlComponent *SaturationValueBox::crossHairDelegate() const
{
    return d->crossHair.delegate();
}

void SaturationValueBox::setCrossHairDelegate(QQmlComponent *delegate)
{
    d->crossHair.setDelegate(
        delegate, "Crosshair delegate must be a quick item",
        [this] { Q_EMIT crossHairDelegateChanged(); },
        [this](QQuickItem *) { d->placeCrossHair(); });
}

void SaturationValueBox::mousePressEvent(QMouseEvent *event)
{
    forceActiveFocus();
    grabMouse();
    mouseMoveEvent(event);
}

void SaturationValueBox::mouseMoveEvent(QMouseEvent *event)
{
    const QPointF position = event->localPos();
    setValue(valueAt(position.x(), width()));
    setSaturation(saturationAt(position.y(), height()));
}

void SaturationValueBox::mouseReleaseEvent(QMouseEvent *)
{
    ungrabMouse();
}

void SaturationValueBox::geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    update();
    d->placeCrossHair();
    QQuickItem::geometryChanged(newGeometry, oldGeometry);
}

QSGNode *SaturationValueBox::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *)
{
    auto *node = static_cast<QSGGeometryNode *>(oldNode);
    if (!node) {
        // The scene graph owns the node (through its parent node); the node owns the rest.
        node = new QSGGeometryNode;
        auto *geometry = new QSGGeometry(QSGGeometry::defaultAttributes_ColoredPoint2D(), 4);
        geometry->setDrawingMode(QSGGeometry::DrawTriangleStrip);
        node->setGeometry(geometry);
        node->setMaterial(new QSGVertexColorMaterial);
        node->setFlags(QSGNode::OwnedByParent | QSGNode::OwnsGeometry | QSGNode::OwnsMaterial);
    }
    const auto vertices = saturationValueVertices(d->hue, width(), height());
    std::copy(vertices.begin(), vertices.end(), node->geometry()->vertexDataAsColoredPoint2D());
    node->markDirty(QSGNode::DirtyGeometry);
    return node;
}

} // namespace om::controls
