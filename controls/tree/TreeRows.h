// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <OmbrelDataCore/Document.h>

#include <QList>
#include <QPointer>
#include <QSet>

#include <functional>
#include <vector>

QT_BEGIN_NAMESPACE
class QQuickItem;
QT_END_NAMESPACE

namespace om::controls {

class TreeViewEntry;
class TreeViewEntryHost;

/// The rows of a view: makes their entries from the documents, keeps them and retires them.
///
/// Making, moving and destroying rows runs the application's code, which may destroy the view and
/// this object with it: functions that say so return false then.
class TreeRows
{
    Q_DISABLE_COPY(TreeRows)
public:
    /// \a view is the host's view, the parent of all entries.
    TreeRows(QQuickItem *view, TreeViewEntryHost *host);
    ~TreeRows();

    /// Destroys all entries, the retired ones too.
    void destroy();

    int count() const;
    /// Null outside the rows.
    TreeViewEntry *at(int index) const;
    /// The row that \a item is the row item of, -1 when it is none of these.
    int indexOf(const QQuickItem *item) const;
    /// The first row of \a document, -1 when it has none.
    int indexOf(om::data::Document *document) const;
    bool contains(om::data::Document *document) const;

    /// Takes all entries off the list and schedules them for deferred deletion.
    void retire();
    /// Adds a row for \a root and, depth first, for each document below it; the row items go into
    /// \a content. \a collapsed is asked for the remembered state of an identifier. False when the
    /// view has been destroyed.
    bool add(om::data::Document *root, QQuickItem *content,
             const std::function<bool(const QString &)> &collapsed);
    /// Writes each row's predecessor. False when the view has been destroyed.
    bool setPredecessors();
    /// Has each row anchor itself below its predecessor.
    void layOut();
    /// Has each row show its child count anew. False when the view has been destroyed.
    bool showChildCounts();
    /// Calls \a change, in which the rows below \a entry hide or show. False when the view has been
    /// destroyed.
    bool hideOrShow(TreeViewEntry *entry, const std::function<void()> &change);
    /// To be called as \a entry is destroyed. Returns whether rows have left the content: the first
    /// destroyed entry of a retired build takes all rows of that build out. The view may be
    /// destroyed when the call returns.
    bool entryEnds(TreeViewEntry *entry);

    /// Whether \a item is the item of a row of the view, one of an earlier build perhaps.
    bool haveMade(const QQuickItem *item) const;
    /// The first and the last row item that is in \a content, null without any: the application may
    /// have destroyed others or taken them elsewhere.
    QQuickItem *firstItem(const QQuickItem *content) const;
    QQuickItem *lastItem(const QQuickItem *content) const;
    /// Both, and those of each earlier build whose rows still exist.
    std::vector<QQuickItem *> endItems(const QQuickItem *content) const;

private:
    /// The entries of an earlier build that have not been deleted yet, in row order.
    struct Retired
    {
        std::vector<TreeViewEntry *> entries;
        /// The entries are still children of the view, and their items of the content item.
        bool attached;
    };

    struct Walk;

    bool addRow(const QPointer<om::data::Document> &document, Walk &walk);
    om::data::Document *takeChild(Walk &walk);
    std::vector<TreeViewEntry *> takeEntries();
    void detach(const std::vector<TreeViewEntry *> &entries);

    QQuickItem *const m_view;
    TreeViewEntryHost *const m_host;
    QList<TreeViewEntry *> m_entries;
    /// The entry whose row is being made; in no list yet.
    TreeViewEntry *m_making = nullptr;
    QSet<om::data::Document *> m_documents;
    std::vector<Retired> m_retired;
    /// Counts the builds: loops that run the application's code end when it has caused one.
    int m_build = 0;
    bool m_warnedOfDepth = false;
};

} // namespace om::controls
