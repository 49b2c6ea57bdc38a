// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/private/SaturationValueBox.h"

#include "controls/private/Marker.h"
#include "controls/private/PickerArithmetic.h"
#include "controls/scenegraph/Renderer.h"
#include "controls/scenegraph/SaturationValueNode.h"
#include "controls/support/ActiveFocus.h"

#include <QPointer>

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

/// The item emits a signal for each coordinate. A handler of xChanged() may change what y depends
/// on, or delete the item or the box: callers with further steps hold a guard as well.
void SaturationValueBox::Private::placeCrossHair()
{
    const QPointer<SaturationValueBox> box(q);
    if (QQuickItem *item = crossHair.item()) {
        item->setX(q->width() * value / 255);
    }
    if (!box) {
        return;
    }
    if (QQuickItem *item = crossHair.item()) {
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
    update();
    Q_EMIT hueChanged();
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
    // The cross-hair moves after the signal, whose handler may delete the box.
    const QPointer<SaturationValueBox> box(this);
    Q_EMIT saturationChanged();
    if (box) {
        d->placeCrossHair();
    }
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
    // As in setSaturation().
    const QPointer<SaturationValueBox> box(this);
    Q_EMIT valueChanged();
    if (box) {
        d->placeCrossHair();
    }
}

QQmlComponent *SaturationValueBox::crossHairDelegate() const
{
    return d->crossHair.delegate();
}

void SaturationValueBox::setCrossHairDelegate(QQmlComponent *delegate)
{
    if (!d->crossHair.take(delegate)) {
        return;
    }
    const QPointer<SaturationValueBox> box(this);
    Q_EMIT crossHairDelegateChanged();
    if (!box) {
        return;
    }
    if (d->crossHair.create(delegate, "Crosshair delegate must be a quick item")) {
        // Placed as a HueBox places its slider first: handlers of the coordinates see both places.
        d->crossHair.placeByHue(d->hue);
        if (box) {
            d->placeCrossHair();
        }
    }
}

void SaturationValueBox::mousePressEvent(QMouseEvent *event)
{
    if (takeActiveFocus(this)) {
        grabMouse();
        mouseMoveEvent(event);
    }
}

void SaturationValueBox::mouseMoveEvent(QMouseEvent *event)
{
    const QPointF position = event->localPos();
    const QPointer<SaturationValueBox> box(this);
    setValue(valueAt(position.x(), width()));
    if (box) {
        setSaturation(saturationAt(position.y(), height()));
    }
}

void SaturationValueBox::mouseReleaseEvent(QMouseEvent *)
{
    ungrabMouse();
}

void SaturationValueBox::geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    update();
    const QPointer<SaturationValueBox> box(this);
    d->placeCrossHair();
    if (box) {
        QQuickItem::geometryChanged(newGeometry, oldGeometry);
    }
}

QSGNode *SaturationValueBox::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *)
{
    if (!isDrawn(window(), NodeKind::Geometry)) {
        return nullptr;
    }
    auto *node = static_cast<SaturationValueNode *>(oldNode);
    if (!node) {
        node = new SaturationValueNode; // The scene graph owns it.
    }
    node->setSquare(d->hue, width(), height());
    return node;
}

} // namespace om::controls
