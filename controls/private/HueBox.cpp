// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/private/HueBox.h"

#include "controls/private/Marker.h"
#include "controls/private/PickerArithmetic.h"
#include "controls/scenegraph/HueVertices.h"

#include <QSGGeometryNode>
#include <QSGVertexColorMaterial>

namespace om::controls {

class HueBox::Private
{
public:
    explicit Private(HueBox *box)
        : q(box)
        , slider(box)
    {
    }

    HueBox *const q;
    int hue = 0;
    Marker slider;
};

HueBox::HueBox(QQuickItem *parent)
    : QQuickItem(parent)
    , d(std::make_unique<Private>(this))
{
    setFlag(ItemHasContents);
    setAcceptedMouseButtons(Qt::LeftButton);
}

HueBox::~HueBox() = default;

int HueBox::hue() const
{
    return d->hue;
}

void HueBox::setHue(int hue)
{
    const int clamped = qBound(0, hue, 359);
    if (d->hue == clamped) {
        return;
    }
    d->hue = clamped;
    Q_EMIT hueChanged();
    if (QQuickItem *slider = d->slider.item()) {
        slider->setX(width() * d->hue / 359);
    }
}

QQmlComponent *HueBox::sliderDelegate() const
{
    return d->slider.delegate();
}

void HueBox::setSliderDelegate(QQmlComponent *delegate)
{
    d->slider.setDelegate(
        delegate, "Slider delegate must be a quick item",
        [this] { Q_EMIT sliderDelegateChanged(); },
        [this](QQuickItem *slider) {
            slider->setY(height() * 0.5);
            // The hue itself, not hue / 359: a new slider stands far to the right unless the hue is
            // 0, until the hue changes. Deliberate.
            slider->setX(d->hue * width());
        });
}

void HueBox::mousePressEvent(QMouseEvent *event)
{
    forceActiveFocus();
    grabMouse();
    mouseMoveEvent(event);
}

void HueBox::mouseMoveEvent(QMouseEvent *event)
{
    setHue(hueAt(event->localPos().x(), width()));
}

void HueBox::mouseReleaseEvent(QMouseEvent *)
{
    ungrabMouse();
}

void HueBox::geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    update();
    // Its x stays where it is until the hue changes.
    if (QQuickItem *slider = d->slider.item()) {
        slider->setY(height() * 0.5);
    }
    QQuickItem::geometryChanged(newGeometry, oldGeometry);
}

QSGNode *HueBox::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *)
{
    auto *node = static_cast<QSGGeometryNode *>(oldNode);
    if (!node) {
        // The scene graph owns the node (through its parent node); the node owns the rest.
        node = new QSGGeometryNode;
        auto *geometry =
            new QSGGeometry(QSGGeometry::defaultAttributes_ColoredPoint2D(), hueVertexCount);
        geometry->setDrawingMode(QSGGeometry::DrawTriangleStrip);
        setHueColors(geometry->vertexDataAsColoredPoint2D());
        node->setGeometry(geometry);
        node->setMaterial(new QSGVertexColorMaterial);
        node->setFlags(QSGNode::OwnedByParent | QSGNode::OwnsGeometry | QSGNode::OwnsMaterial);
    }
    setHuePositions(node->geometry()->vertexDataAsColoredPoint2D(), width(), height());
    node->markDirty(QSGNode::DirtyGeometry);
    return node;
}

} // namespace om::controls
