// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/private/HueBox.h"

#include "controls/private/Marker.h"
#include "controls/private/PickerArithmetic.h"
#include "controls/scenegraph/HueNode.h"
#include "controls/scenegraph/Renderer.h"
#include "controls/support/ActiveFocus.h"

#include <QPointer>

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
    // The slider moves after the signal, whose handler may delete the box.
    const QPointer<HueBox> box(this);
    Q_EMIT hueChanged();
    if (!box) {
        return;
    }
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
    if (!d->slider.take(delegate)) {
        return;
    }
    const QPointer<HueBox> box(this);
    Q_EMIT sliderDelegateChanged();
    if (!box) {
        return;
    }
    if (d->slider.create(delegate, "Slider delegate must be a quick item")) {
        // It stays there until the hue changes: a new width of the box does not move it.
        d->slider.placeByHue(d->hue);
    }
}

void HueBox::mousePressEvent(QMouseEvent *event)
{
    if (takeActiveFocus(this)) {
        grabMouse();
        mouseMoveEvent(event);
    }
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
    const QPointer<HueBox> box(this);
    // Only y: x is set when the hue changes.
    if (QQuickItem *slider = d->slider.item()) {
        slider->setY(height() * 0.5);
    }
    if (box) {
        QQuickItem::geometryChanged(newGeometry, oldGeometry);
    }
}

QSGNode *HueBox::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *)
{
    if (!isDrawn(window(), NodeKind::Geometry)) {
        return nullptr;
    }
    auto *node = static_cast<HueNode *>(oldNode);
    if (!node) {
        node = new HueNode; // The scene graph owns it.
    }
    node->setSize(width(), height());
    return node;
}

} // namespace om::controls
