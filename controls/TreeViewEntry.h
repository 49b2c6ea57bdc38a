// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <OmbrelDataCore/Document.h>

#include <QObject>

#include <memory>

class QQuickItem;

namespace om::controls {

class TreeView;
class TreeViewAttachedObject;

/// One row of a TreeView: its document, its place, its collapse state. The context object of
/// everything that is created in the row; owned by the view, made anew by every rebuild.
class TreeViewEntry : public QObject
{
    Q_OBJECT
    /// The depth of the row; roots have 0.
    Q_PROPERTY(int level READ level NOTIFY levelChanged)
    /// The row's number from the top, collapsed rows counted.
    Q_PROPERTY(int index READ index NOTIFY indexChanged)
    /// The document that the row shows; null once it has been destroyed.
    Q_PROPERTY(om::data::Document *document READ document CONSTANT)

public:
    /// Makes the row and its item, which goes into the view's content item.
    TreeViewEntry(TreeView *view, om::data::Document *document, int index, int level);
    ~TreeViewEntry() override;

    int level() const;
    int index() const;
    om::data::Document *document() const;

    /// The number of elements in the document's child list when it was last looked at.
    int childCount() const;
    TreeView *view() const;
    /// The row's item; null when it could not be made.
    QQuickItem *item() const;
    /// The attached object that the row's objects share; made when it is first asked for.
    TreeViewAttachedObject *attached();

    bool isCollapsed() const;
    /// Collapses or expands the row, and remembers it for the document. Nothing happens to a row
    /// without children, nor to a root while the view's rootCanCollapse is false.
    void setCollapsed(bool collapsed);

    /// True when the row shows the view's active document.
    bool isActive() const;
    /// Emits activeChanged() with the state that holds now.
    void announceActive();

    /// Creates the view's delegate of the type \a component (TreeView.ComponentType) in the row's
    /// context, with \a parent as parent item. Null when there is no such delegate or it fails.
    Q_INVOKABLE QObject *createDelegateItem(int component, QQuickItem *parent);

Q_SIGNALS:
    void levelChanged(int level);
    void indexChanged(int index);
    void collapsedChanged(bool collapsed);
    void activeChanged(bool active);
    void childCountChanged(int childCount);

private Q_SLOTS:
    void updateChildCount();

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace om::controls
