// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QQuickItem>

#include <memory>

namespace om::controls {

/// The ring that a Frame shows. It lives in the window's content item, above everything but
/// overlays, and its Frame tells it where to be.
class FrameItem : public QQuickItem
{
    Q_OBJECT

public:
    explicit FrameItem(QObject *owner);
    ~FrameItem() override;

    int frameWidth() const;
    /// Not negative; the Frame sees to that.
    void setFrameWidth(int frameWidth);

    QColor color() const;
    void setColor(const QColor &color);

    /// Where the outer edge of the ring is, in scene coordinates. Does nothing when \a rect differs
    /// from the present one by no more than rounding, or has NaN in it.
    void setRect(const QRectF &rect);

protected:
    QSGNode *updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *data) override;

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace om::controls
