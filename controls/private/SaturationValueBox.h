// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QQmlComponent>
#include <QQuickItem>

#include <memory>

namespace om::controls {

/// The square of a colour picker: all saturations (upwards) and values (to the right) of one hue,
/// chosen by pressing and dragging with the left button. A cross-hair, made from a component, shows
/// where they are.
class SaturationValueBox : public QQuickItem
{
    Q_OBJECT
    /// 0 to 359, 0 at first. Values outside are clamped, here and below.
    Q_PROPERTY(int hue READ hue WRITE setHue NOTIFY hueChanged)
    /// 0 to 255, 255 at first.
    Q_PROPERTY(int saturation READ saturation WRITE setSaturation NOTIFY saturationChanged)
    /// 0 to 255, 255 at first.
    Q_PROPERTY(int value READ value WRITE setValue NOTIFY valueChanged)
    /// The component of the cross-hair. An object that is not an item gives a warning and no
    /// marker.
    Q_PROPERTY(QQmlComponent *crossHairDelegate READ crossHairDelegate WRITE setCrossHairDelegate
                   NOTIFY crossHairDelegateChanged)

public:
    explicit SaturationValueBox(QQuickItem *parent = nullptr);
    ~SaturationValueBox() override;

    int hue() const;
    void setHue(int hue);

    int saturation() const;
    void setSaturation(int saturation);

    int value() const;
    void setValue(int value);

    QQmlComponent *crossHairDelegate() const;
    void setCrossHairDelegate(QQmlComponent *delegate);

Q_SIGNALS:
    void hueChanged();
    void saturationChanged();
    void valueChanged();
    void crossHairDelegateChanged();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    QSGNode *updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *data) override;

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace om::controls
