// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/threads/ControlItem.h"

#include <QQuickWindow>
#include <QSGSimpleRectNode>

namespace {

class Node : public QSGSimpleRectNode
{
public:
    /// With an \a item the node takes its size from it with each frame.
    explicit Node(const ControlItem *item)
        : m_item(item)
    {
        setColor(Qt::red);
        setFlag(UsePreprocess);
    }

    /// The scene graph calls this before it draws; the GUI thread runs by then.
    void preprocess() override
    {
        if (m_item) {
            setRect(0, 0, m_item->extent(), 10);
        }
    }

private:
    const ControlItem *const m_item;
};

} // namespace

ControlItem::ControlItem(Mistake mistake, QQuickItem *parent)
    : m_mistake(mistake)
{
    setFlag(ItemHasContents);
    setSize({10, 10});
    setParentItem(parent);
}

void ControlItem::setExtent(int extent)
{
    m_extent = extent;
    m_dirty = true;
    update();
}

int ControlItem::frames() const
{
    return m_mistake == CountsWithAnInt ? m_plainFrames : m_frames->load();
}

void ControlItem::itemChange(ItemChange change, const ItemChangeData &value)
{
    if (change == ItemSceneChange) {
        follow(value.window);
    }
    QQuickItem::itemChange(change, value);
}

void ControlItem::follow(QQuickWindow *window)
{
    if (!window) {
        return;
    }
    connect(
        window, &QQuickWindow::frameSwapped, this, [frames = m_frames] { ++*frames; },
        Qt::DirectConnection);
    if (m_mistake == CountsWithAnInt) {
        connect(
            window, &QQuickWindow::frameSwapped, this, [this] { ++m_plainFrames; },
            Qt::DirectConnection);
    }
    if (m_mistake == WritesWhileDrawing) {
        connect(
            window, &QQuickWindow::beforeRendering, this, [this] { ++m_drawn; },
            Qt::DirectConnection);
    }
    // As an overlay follows its item: right, for the GUI thread waits meanwhile.
    connect(
        window, &QQuickWindow::beforeSynchronizing, this, [this] { m_dirty |= m_extent > 5; },
        Qt::DirectConnection);
}

QSGNode *ControlItem::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *)
{
    auto *node = static_cast<Node *>(oldNode);
    if (!node) {
        node = new Node(m_mistake == DrawsFromTheItem ? this : nullptr);
        m_dirty = true;
    }
    if (m_dirty) {
        node->setRect(0, 0, m_extent, 10);
    }
    m_dirty = false;
    return node;
}
