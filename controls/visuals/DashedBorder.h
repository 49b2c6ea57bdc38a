// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QQuickItem>

#include <memory>

namespace om::controls {

/// An item that draws a dashed outline, one pixel wide, along its rectangle. The dashes are cut by
/// the place in the window, along its diagonals: they stay where they are when the item moves.
class DashedBorder : public QQuickItem
{
    Q_OBJECT
    /// The colour of the dashes. Invalid at first: nothing is seen.
    Q_PROPERTY(QColor borderColor READ borderColor WRITE setBorderColor NOTIFY borderColorChanged)

public:
    explicit DashedBorder(QQuickItem *parent = nullptr);
    ~DashedBorder() override;

    QColor borderColor() const;
    void setBorderColor(const QColor &color);

Q_SIGNALS:
    void borderColorChanged();

protected:
    void geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    QSGNode *updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *data) override;

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace om::controls
