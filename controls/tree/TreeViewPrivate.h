// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "controls/tree/TreeView.h"

#include <QHash>
#include <QList>
#include <QPointer>
#include <QSet>

#include <array>
#include <functional>
#include <vector>

namespace om::data {
class Context;
}

namespace om::controls {

/// The state of a TreeView, shared with its entries.
class TreeView::Private
{
public:
    explicit Private(TreeView *view);

    static Private *of(QQmlListProperty<om::data::Document> *list)
    {
        return static_cast<Private *>(list->data);
    }

    /// The component for a ComponentType; null for any other value.
    QQmlComponent *component(int type) const;
    TreeViewEntry *entryAt(int index) const;
    void setCollapsed(int index, bool collapsed);

    void createContent();
    void rebuild();
    void rebindContext();
    void addTree(om::data::Document *root, int *counter);
    void removeEntries();
    std::vector<TreeViewEntry *> takeEntries();
    void activate(int index);

    void appendRoot(om::data::Document *document);
    void clearRoots();
    void forgetRoot(om::data::Document *document);

    /// Calls \a change, in which the rows below \a entry hide or show.
    void hideOrShow(TreeViewEntry *entry, const std::function<void()> &change);

    /// The content item's height, see createContent().
    void updateContentHeight();
    void watchEnds();
    void contentChildrenChanged();
    void dropStranger(QQuickItem *item);
    /// What an entry says as it goes.
    void entryDestroyed(TreeViewEntry *entry);
    void destroyItems(const std::vector<TreeViewEntry *> &doomed);
    QQuickItem *firstRow() const;
    QQuickItem *lastRow() const;

    TreeView *const view;
    bool componentComplete = false;
    bool updateScheduled = false;
    bool rootCanCollapse = false;
    int indent = 20;
    int activeIndex = -1;
    /// Kept for its identity only: the document may be gone, which activeAlive tells.
    om::data::Document *activeDocument = nullptr;
    QPointer<om::data::Document> activeAlive;
    QString childProperty;
    QPointer<om::data::Context> context;
    QPointer<QQmlComponent> contentComponent;
    QPointer<QQmlComponent> entryComponent;
    QPointer<QQmlComponent> delegate;
    QPointer<QQmlComponent> backgroundDelegate;
    QPointer<QQmlComponent> branchHandleDelegate;
    QPointer<QQmlComponent> plainBranchHandle;
    QPointer<QQuickItem> contentItem;
    QList<TreeViewEntry *> entries;
    QSet<om::data::Document *> shownDocuments;
    QList<om::data::Document *> rootDocuments;
    QHash<om::data::Document *, QMetaObject::Connection> rootWatches;
    QHash<QString, bool> collapsedById;

    bool updateDeferred = false;
    bool rebuilding = false;
    bool destroying = false;
    bool warnedOfDepth = false;
    int generation = 0;
    /// The rows of an earlier rebuild that have not been deleted yet, in row order.
    struct OldRows
    {
        std::vector<TreeViewEntry *> entries;
        bool haveItems;
    };
    std::vector<OldRows> oldRows;
    /// The content item's children that are no rows.
    QSet<QQuickItem *> strangers;
    std::array<QMetaObject::Connection, 3> endWatches;
};

} // namespace om::controls
