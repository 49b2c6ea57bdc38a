// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QQuickItem>

#include <atomic>
#include <memory>

/// An item of pure Qt, of the shape that the library's drawn items have: properties set on the GUI
/// thread, taken over by updatePaintNode(), and slots that the render thread calls. Right, or with
/// one mistake.
class ControlItem : public QQuickItem
{
    Q_OBJECT

public:
    enum Mistake {
        None,
        DrawsFromTheItem, ///< The node reads the item when it is drawn, not when it is
                          ///< synchronised.
        CountsWithAnInt, ///< Frames are counted on the render thread, in what the GUI thread reads.
        WritesWhileDrawing, ///< The render thread writes to the item when it draws.
    };

    ControlItem(Mistake mistake, QQuickItem *parent);

    void setExtent(int extent);
    int extent() const { return m_extent; }
    /// Frames that were swapped.
    int frames() const;
    /// Frames that were begun, of an item that makes the mistake of counting them.
    int drawn() const { return m_drawn; }

protected:
    void itemChange(ItemChange change, const ItemChangeData &value) override;
    QSGNode *updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *) override;

private:
    void follow(QQuickWindow *window);

    const Mistake m_mistake;
    int m_extent = 0;
    bool m_dirty = true;
    int m_drawn = 0;
    int m_plainFrames = 0;
    // Shared with the connection: the render thread may be counting while the item is destroyed.
    const std::shared_ptr<std::atomic<int>> m_frames = std::make_shared<std::atomic<int>>(0);
};
