// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QQuickItem>

#include <memory>

namespace om::controls {

/// An item filled with a checkerboard, as a ground for translucent colours. Squares keep their size
/// and stay with the top left corner when the item is resized; the corner's square is dark.
class CheckerBox : public QQuickItem
{
    Q_OBJECT
    /// Pixels along the edge of a square: 2 to 128, 8 at first. Values outside are clamped.
    Q_PROPERTY(int checkerSize READ checkerSize WRITE setCheckerSize NOTIFY checkerSizeChanged)
    /// Light grey at first.
    Q_PROPERTY(QColor lightColor READ lightColor WRITE setLightColor NOTIFY lightColorChanged)
    /// Grey at first.
    Q_PROPERTY(QColor darkColor READ darkColor WRITE setDarkColor NOTIFY darkColorChanged)

public:
    explicit CheckerBox(QQuickItem *parent = nullptr);
    ~CheckerBox() override;

    int checkerSize() const;
    void setCheckerSize(int size);

    QColor lightColor() const;
    void setLightColor(const QColor &color);

    QColor darkColor() const;
    void setDarkColor(const QColor &color);

Q_SIGNALS:
    void checkerSizeChanged();
    void lightColorChanged();
    void darkColorChanged();

protected:
    void geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    QSGNode *updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *data) override;

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace om::controls
