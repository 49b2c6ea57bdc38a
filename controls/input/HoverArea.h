// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QQuickItem>

#include <memory>

namespace om::controls {

/// An item that tells whether the mouse hovers over it and takes no presses, so that it can lie
/// over other controls.
class HoverArea : public QQuickItem
{
    Q_OBJECT
    /// True while the mouse pointer is over the area.
    Q_PROPERTY(bool hovered READ isHovered NOTIFY hoveredChanged)

public:
    explicit HoverArea(QQuickItem *parent = nullptr);
    ~HoverArea() override;

    bool isHovered() const;

Q_SIGNALS:
    void hoveredChanged(bool hovered);
    /// Part of the type's face, and never emitted.
    void disabledChanged(bool disabled);

protected:
    void hoverEnterEvent(QHoverEvent *event) override;
    void hoverLeaveEvent(QHoverEvent *event) override;
    void itemChange(ItemChange change, const ItemChangeData &value) override;

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace om::controls
