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
    TreeViewEntry(TreeView *view, om::data::Document *document, int index, int level);
    ~TreeViewEntry() override;

    int level() const;
    int index() const;
    om::data::Document *document() const;

    TreeView *view() const;
    QQuickItem *item() const;
    bool isCollapsed() const;
    bool isActive() const;

    /// Collapses or expands the row. Ignored without children, and for a root whose view does not
    /// let roots collapse.
    void setCollapsed(bool collapsed);
    /// Tells the row whether it is active, changed or not.
    void announceActive();
    /// Ends what is evaluated in the row, and after it the row item, ahead of the entry itself.
    void destroyContext();
    void destroyItem();
    /// The object behind the attached properties, made on the first call.
    TreeViewAttachedObject *attachedObject();

    /// Makes an object from one of the view's components (TreeView.ComponentType) in the row's
    /// context, with \a parent as its visual parent. The object belongs to the QML engine. Null
    /// when the view has no such component or it fails.
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
    QQuickItem *createItem(int component, QQuickItem *parent);
    void populate();
    void destroyPart(QObject *part);

    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace om::controls
