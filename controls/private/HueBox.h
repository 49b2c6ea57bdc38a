// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QQmlComponent>
#include <QQuickItem>

#include <memory>

namespace om::controls {

/// The hue strip of a colour picker: all hues from left to right, chosen by pressing and dragging
/// with the left button. A marker, made from a component, shows where the hue is.
class HueBox : public QQuickItem
{
    Q_OBJECT
    /// 0 to 359, 0 at first. Values outside are clamped.
    Q_PROPERTY(int hue READ hue WRITE setHue NOTIFY hueChanged)
    /// The component of the marker. An object that is not an item gives a warning and no marker.
    Q_PROPERTY(QQmlComponent *sliderDelegate READ sliderDelegate WRITE setSliderDelegate NOTIFY
                   sliderDelegateChanged)

public:
    explicit HueBox(QQuickItem *parent = nullptr);
    ~HueBox() override;

    int hue() const;
    void setHue(int hue);

    QQmlComponent *sliderDelegate() const;
    void setSliderDelegate(QQmlComponent *delegate);

Q_SIGNALS:
    void hueChanged();
    void sliderDelegateChanged();

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
