// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

#include <memory>

namespace om::controls {

class TreeView;
class TreeViewEntry;

/// The attached object of TreeView: one for each row, shared by all objects that were created in
/// the row's context. Owned by the row's entry.
class TreeViewAttachedObject : public QObject
{
    Q_OBJECT
    /// The view that the row is in.
    Q_PROPERTY(om::controls::TreeView *view READ view CONSTANT)
    /// Whether the row is collapsed. Ignored for rows without children, and for roots of a view
    /// whose roots must not collapse.
    Q_PROPERTY(bool isCollapsedItem READ isCollapsedItem WRITE setCollapsedItem NOTIFY
                   collapsedItemChanged)
    /// Whether the row's document is the view's active document.
    Q_PROPERTY(bool isActiveItem READ isActiveItem NOTIFY activeItemChanged)

public:
    ~TreeViewAttachedObject() override;

    /// The one of \a entry, made on the first call.
    static TreeViewAttachedObject *of(TreeViewEntry *entry);

    TreeView *view() const;

    bool isCollapsedItem() const;
    void setCollapsedItem(bool collapsed);

    bool isActiveItem() const;

Q_SIGNALS:
    void collapsedItemChanged(bool collapsed);
    void activeItemChanged(bool active);

private:
    explicit TreeViewAttachedObject(TreeViewEntry *entry);

    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace om::controls
