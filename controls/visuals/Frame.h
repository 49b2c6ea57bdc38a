// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QQuickItem>

#include <memory>

namespace om::controls {

/// An item with a solid ring around its outside, drawn on top of everything in the window: neither
/// clipped by the item's ancestors nor covered by its siblings.
///
/// The ring is an item of its own (FrameItem) in the window's content item, owned by the Frame. It
/// is there when the Frame was completed in a window; a Frame completed without one never shows it.
class Frame : public QQuickItem
{
    Q_OBJECT
    /// The width of the ring in pixels, 1 at first. Negative values become 0: no ring.
    Q_PROPERTY(int frameWidth READ frameWidth WRITE setFrameWidth NOTIFY frameWidthChanged)
    /// The colour of the ring, black at first.
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)

public:
    explicit Frame(QQuickItem *parent = nullptr);
    ~Frame() override;

    int frameWidth() const;
    void setFrameWidth(int frameWidth);

    QColor color() const;
    void setColor(const QColor &color);

Q_SIGNALS:
    void frameWidthChanged();
    void colorChanged();

protected:
    void componentComplete() override;
    void itemChange(ItemChange change, const ItemChangeData &value) override;

private Q_SLOTS:
    void updateGeometry();

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace om::controls
