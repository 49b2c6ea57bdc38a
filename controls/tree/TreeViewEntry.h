// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <OmbrelDataCore/Document.h>

#include <QObject>

#include <memory>

QT_BEGIN_NAMESPACE
class QQuickItem;
QT_END_NAMESPACE

namespace om::controls {

class TreeView;
class TreeViewAttachedObject;
class TreeViewEntryHost;

/// A row of a TreeView, and the context object of all that the row is made of.
///
/// An entry lives from one rebuild of the view to the next. It owns its QML context, its row item
/// and its attached object; the objects made from delegates belong to the QML engine.
class TreeViewEntry : public QObject
{
    Q_OBJECT
    /// Depth in the tree; roots are at 0. Never changes, as every rebuild makes new entries.
    Q_PROPERTY(int level READ level NOTIFY levelChanged)
    /// The row's number in the view. Never changes either.
    Q_PROPERTY(int index READ index NOTIFY indexChanged)
    /// The row's document, not owned; null once it is destroyed.
    Q_PROPERTY(om::data::Document *document READ document CONSTANT)

public:
    /// What is known of a row before it is made.
    struct Row
    {
        om::data::Document *document;
        int index;
        int level;
        bool collapsed;
        int childCount;
    };

    /// An entry without an item yet. \a view is the host's view.
    TreeViewEntry(QObject *view, TreeViewEntryHost *host, const Row &row);
    ~TreeViewEntry() override;

    /// The entry that \a item is the row item of; null when it is no row item.
    static TreeViewEntry *ofRowItem(const QQuickItem *item);

    int level() const;
    int index() const;
    om::data::Document *document() const;

    TreeView *view() const;
    QQuickItem *item() const;
    bool isCollapsed() const;
    bool isActive() const;

    /// Makes the row item and what it shows, in \a content, below the row \a treeParent, which is
    /// null for a root. The delegates run the application's code: the view may be gone afterwards,
    /// and the entry with it.
    void createRow(QQuickItem *content, QQuickItem *treeParent);
    /// Destroys the row's context, which ends the evaluation of its bindings, ahead of the entry's
    /// destruction.
    void destroyContext();
    /// Takes the row's item out of the content, ahead of the entry's destruction.
    void leaveContent();

    /// Collapses or expands the row; told when the rows below have hidden or shown and are in their
    /// places. Ignored without children, and for a root whose view does not let roots collapse.
    void setCollapsed(bool collapsed);
    /// Has the row show whether the document has children by the present name of their list. The
    /// entry's own count, which the collapse rule asks, stays until the document tells of a change.
    /// May destroy the view, and the entry with it.
    void showChildCount();
    /// Emits activeChanged() with the present state, also when it is the same as before.
    void announceActive();

    /// The object behind the attached properties, null until it is asked for; the entry's child.
    TreeViewAttachedObject *attachedObject() const;
    void setAttachedObject(TreeViewAttachedObject *attached);

    /// Makes an object from one of the view's components (TreeView.ComponentType) in the row's
    /// context, with \a parent as its visual parent. The object belongs to the QML engine. Null
    /// when the view has no such component or it fails, and once the row's context is gone.
    Q_INVOKABLE QObject *createDelegateItem(int component, QQuickItem *parent);
    /// Makes the background, delegate and branch handle of \a row, an object made from the rows'
    /// file, which calls this on completion.
    Q_INVOKABLE void populateRow(QQuickItem *row);

Q_SIGNALS:
    void levelChanged(int level);
    void indexChanged(int index);
    void collapsedChanged(bool collapsed);
    void activeChanged(bool active);
    void childCountChanged(int childCount);

private Q_SLOTS:
    void updateChildCount();
    void measureSendersRow();
    void fitSendersMarker();

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace om::controls
