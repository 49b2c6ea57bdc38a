// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

#include <memory>

namespace om::controls {

class TreeView;
class TreeViewEntry;

/// The attached `TreeView` of every object made inside a row: what the row knows about itself.
/// One per row, shared by all objects in it; owned by the row's entry.
class TreeViewAttachedObject : public QObject
{
    Q_OBJECT
    /// The view that the row belongs to.
    Q_PROPERTY(om::controls::TreeView *view READ view CONSTANT)
    /// True while the row is collapsed. A write is ignored for a row without children, and for a
    /// root while the view's rootCanCollapse is false.
    Q_PROPERTY(bool isCollapsedItem READ isCollapsedItem WRITE setCollapsedItem NOTIFY
                   collapsedItemChanged)
    /// True while the row shows the view's active document.
    Q_PROPERTY(bool isActiveItem READ isActiveItem NOTIFY activeItemChanged)

public:
    explicit TreeViewAttachedObject(TreeViewEntry *entry);
    ~TreeViewAttachedObject() override;

    TreeView *view() const;
    bool isCollapsedItem() const;
    void setCollapsedItem(bool collapsed);
    bool isActiveItem() const;

Q_SIGNALS:
    void collapsedItemChanged(bool collapsed);
    void activeItemChanged(bool active);

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace om::controls
