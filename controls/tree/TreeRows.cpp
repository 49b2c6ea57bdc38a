// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/tree/TreeRows.h"

#include "controls/tree/RowItemAccess.h"
#include "controls/tree/TreeViewEntry.h"
#include "controls/tree/TreeViewEntryHost.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>
#include <QQmlInfo>
#include <QQmlListReference>
#include <QQuickItem>

#include <algorithm>
#include <utility>

using om::data::Document;

namespace om::controls {

/// The levels that get rows. A row's bindings read its parent row's, so a change at the root
/// recurses once a level on the stack; and documents that contain themselves would have endless
/// levels.
static const int maximumLevels = 1024;

TreeRows::TreeRows(QQuickItem *view, TreeViewEntryHost *host)
    : m_view(view)
    , m_host(host)
{
}

TreeRows::~TreeRows()
{
    destroy();
}

void TreeRows::destroy()
{
    std::vector<TreeViewEntry *> entries = takeEntries();
    if (m_making) {
        entries.push_back(std::exchange(m_making, nullptr));
    }
    if (!entries.empty()) {
        m_retired.push_back({std::move(entries), true});
    }
    // The list is read anew after each deletion: handlers of a row's end may delete other entries.
    while (!m_retired.empty()) {
        TreeViewEntry *entry = m_retired.front().entries.back();
        QCoreApplication::removePostedEvents(entry, QEvent::DeferredDelete);
        delete entry;
    }
}

int TreeRows::count() const
{
    return m_entries.size();
}

TreeViewEntry *TreeRows::at(int index) const
{
    return m_entries.value(index, nullptr);
}

int TreeRows::indexOf(const QQuickItem *item) const
{
    const TreeViewEntry *entry = TreeViewEntry::ofRowItem(item);
    return entry && at(entry->index()) == entry ? entry->index() : -1;
}

int TreeRows::indexOf(Document *document) const
{
    if (!contains(document)) {
        return -1;
    }
    for (int i = 0; i < m_entries.size(); ++i) {
        if (m_entries.at(i)->document() == document) {
            return i;
        }
    }
    return -1;
}

bool TreeRows::contains(Document *document) const
{
    return document && m_documents.contains(document);
}

std::vector<TreeViewEntry *> TreeRows::takeEntries()
{
    ++m_build;
    m_documents.clear();
    std::vector<TreeViewEntry *> entries(m_entries.cbegin(), m_entries.cend());
    m_entries.clear();
    return entries;
}

void TreeRows::retire()
{
    std::vector<TreeViewEntry *> entries = takeEntries();
    for (auto entry = entries.crbegin(); entry != entries.crend(); ++entry) {
        (*entry)->deleteLater();
    }
    if (!entries.empty()) {
        m_retired.push_back({std::move(entries), true});
    }
}

/// The state of add().
struct TreeRows::Walk
{
    /// A document on the way from the root to the row that is being made.
    struct Level
    {
        QPointer<Document> document;
        QQmlListReference children;
        int next; ///< The index of the child that is added next.
        QPointer<QQuickItem> item;
    };

    const QPointer<QQuickItem> content;
    const std::function<bool(const QString &)> &collapsed;
    std::vector<Level> path = {};
    bool tooDeep = false;
};

/// Walks depth first with a list instead of recursion: documents may be nested 1024 levels deep.
bool TreeRows::add(Document *root, QQuickItem *content,
                   const std::function<bool(const QString &)> &collapsed)
{
    const QPointer<QQuickItem> alive(m_view);
    Walk walk{content, collapsed};
    QPointer<Document> adding = root;
    while (adding || !walk.path.empty()) {
        if (adding && !addRow(adding, walk)) {
            return false;
        }
        adding = walk.path.empty() ? nullptr : takeChild(walk);
        if (!alive) {
            return false;
        }
    }
    return alive;
}

/// Makes the row of \a document below the last level of the path, and adds a level for it unless
/// the document is destroyed before. False when the view has been destroyed.
bool TreeRows::addRow(const QPointer<Document> &document, Walk &walk)
{
    const QPointer<QQuickItem> alive(m_view);
    const QByteArray childProperty = m_host->childProperty();
    const QString id = document->documentId();
    QQmlListReference children(document, childProperty.constData());
    const int childCount = qMax(0, children.count());
    if (!alive) {
        return false;
    }
    if (!document) {
        return true;
    }
    const int level = static_cast<int>(walk.path.size());
    m_making = new TreeViewEntry(
        m_view, m_host, {document, m_entries.size(), level, walk.collapsed(id), childCount});
    m_making->createRow(walk.content, level == 0 ? nullptr : walk.path.back().item.data());
    if (!alive) {
        return false;
    }
    TreeViewEntry *entry = std::exchange(m_making, nullptr);
    m_entries.append(entry);
    if (document) {
        m_documents.insert(document);
    }
    walk.path.push_back({document, children, 0, entry->item()});
    // A delegate of the row may have had the view read another list, for this document already.
    if (document && m_host->childProperty() != childProperty) {
        walk.path.back().children =
            QQmlListReference(document, m_host->childProperty().constData());
    }
    return alive;
}

/// The next document below the last level of the path that gets a row. Null when the next element
/// of the list gets none, when there is no further one, which removes the level, and when the view
/// has been destroyed.
Document *TreeRows::takeChild(Walk &walk)
{
    const QPointer<QQuickItem> alive(m_view);
    Walk::Level &top = walk.path.back();
    // The count is read for each child: making a row runs code that may change the list.
    const bool more = top.document && top.next < top.children.count();
    QObject *const element = more ? top.children.at(top.next++) : nullptr;
    if (!alive) {
        return nullptr;
    }
    if (!more) {
        walk.path.pop_back();
        return nullptr;
    }
    auto *child = qobject_cast<Document *>(element);
    if (child && static_cast<int>(walk.path.size()) >= maximumLevels) {
        if (!m_warnedOfDepth) {
            m_warnedOfDepth = true;
            qmlWarning(m_view) << "The documents are nested more than " << maximumLevels
                               << " levels deep, or contain themselves; deeper ones get no row";
        }
        walk.tooDeep = true;
        return nullptr;
    }
    // A document that contains itself twice would otherwise get 2 to the power of 1024 rows.
    const bool isAbove = walk.tooDeep
        && std::any_of(walk.path.cbegin(), walk.path.cend(),
                       [child](const Walk::Level &above) { return above.document == child; });
    return isAbove ? nullptr : child;
}

bool TreeRows::setPredecessors()
{
    const QPointer<QQuickItem> alive(m_view);
    QPointer<QQuickItem> predecessor;
    for (int i = 0; alive && i < m_entries.size(); ++i) {
        if (QQuickItem *item = m_entries.at(i)->item()) {
            const QPointer<QQuickItem> next(item);
            RowItemAccess(item).setPredecessor(predecessor);
            predecessor = next;
        }
    }
    return alive;
}

void TreeRows::layOut()
{
    const QPointer<QQuickItem> alive(m_view);
    const int build = m_build;
    for (int i = 0; alive && m_build == build && i < m_entries.size(); ++i) {
        if (QQuickItem *item = m_entries.at(i)->item()) {
            RowItemAccess(item).requireLayout();
        }
    }
}

bool TreeRows::showChildCounts()
{
    const QPointer<QQuickItem> alive(m_view);
    const int build = m_build;
    if (m_making) {
        m_making->showChildCount();
    }
    for (int i = 0; alive && m_build == build && i < m_entries.size(); ++i) {
        m_entries.at(i)->showChildCount();
    }
    return alive;
}

/// Each row is anchored to its predecessor, so each row that hides would move all rows below it:
/// quadratic in the rows. The rows from here to the first one after the subtree are released from
/// their top anchors, hide or show, and are anchored again from the top down. A row that the
/// application has released, anchored elsewhere or taken to another parent is left as it is. So is
/// one that a handler takes meanwhile, which its anchor or its y tells.
bool TreeRows::hideOrShow(TreeViewEntry *entry, const std::function<void()> &change)
{
    struct Released
    {
        QPointer<QQuickItem> item;
        qreal y;
    };
    const QPointer<QQuickItem> alive(m_view);
    const QPointer<TreeViewEntry> changing(entry);
    if (at(entry->index()) != entry) {
        change();
        return alive;
    }
    const int first = entry->index() + 1;
    int end = first;
    while (end < m_entries.size() && m_entries.at(end)->level() > entry->level()) {
        ++end;
    }
    end = qMin(end + 1, m_entries.size());
    std::vector<Released> released;
    const int build = m_build;
    for (int i = first; alive && m_build == build && i < qMin(end, m_entries.size()); ++i) {
        QQuickItem *item = m_entries.at(i)->item();
        if (item && RowItemAccess(item).isBelowPredecessor()) {
            released.push_back({item, item->y()});
            RowItemAccess(item).releaseTop();
        }
    }
    if (changing) {
        change();
    }
    for (const Released &row : released) {
        if (!alive || m_build != build) {
            break;
        }
        if (row.item && row.item->y() == row.y) {
            RowItemAccess(row.item).anchorTop();
        }
    }
    return alive;
}

bool TreeRows::entryEnds(TreeViewEntry *entry)
{
    for (auto retired = m_retired.begin(); retired != m_retired.end(); ++retired) {
        // Searched from the end, as entries are deleted from the last to the first.
        const auto place = std::find(retired->entries.rbegin(), retired->entries.rend(), entry);
        if (place == retired->entries.rend()) {
            continue;
        }
        const bool detaches = std::exchange(retired->attached, false);
        const std::vector<TreeViewEntry *> all =
            detaches ? retired->entries : std::vector<TreeViewEntry *>();
        retired->entries.erase(std::next(place).base());
        if (retired->entries.empty()) {
            m_retired.erase(retired);
        }
        detach(all);
        return detaches;
    }
    return m_entries.removeOne(entry);
}

/// Takes all entries of a build and their items from their parents when the first of them is
/// destroyed. Entries are deleted from the last to the first, and QObject and QQuickItem search the
/// parent's list of children from its beginning for each: quadratic. Taken in row order, each is
/// the first of the list.
///
/// The contexts are destroyed before, from the last row to the first: a hidden row whose parent row
/// is gone would show itself if its bindings still were evaluated.
void TreeRows::detach(const std::vector<TreeViewEntry *> &entries)
{
    const std::vector<QPointer<TreeViewEntry>> rows(entries.cbegin(), entries.cend());
    for (TreeViewEntry *entry : entries) {
        entry->setParent(nullptr);
    }
    for (auto row = rows.crbegin(); row != rows.crend(); ++row) {
        if (*row) {
            (*row)->destroyContext();
        }
    }
    for (const QPointer<TreeViewEntry> &row : rows) {
        if (row) {
            row->leaveContent();
        }
    }
}

bool TreeRows::haveMade(const QQuickItem *item) const
{
    const TreeViewEntry *entry = TreeViewEntry::ofRowItem(item);
    return entry && entry->view() == m_host->view();
}

/// The item of the first of the entries that has its item in \a content.
template<typename Iterator>
static QQuickItem *firstIn(const QQuickItem *content, Iterator begin, Iterator end)
{
    const auto found = std::find_if(begin, end, [content](const TreeViewEntry *entry) {
        return entry->item() && entry->item()->parentItem() == content;
    });
    return found == end ? nullptr : (*found)->item();
}

QQuickItem *TreeRows::firstItem(const QQuickItem *content) const
{
    return firstIn(content, m_entries.cbegin(), m_entries.cend());
}

QQuickItem *TreeRows::lastItem(const QQuickItem *content) const
{
    return firstIn(content, m_entries.crbegin(), m_entries.crend());
}

std::vector<QQuickItem *> TreeRows::endItems(const QQuickItem *content) const
{
    std::vector<QQuickItem *> items{firstItem(content), lastItem(content)};
    for (const Retired &retired : m_retired) {
        if (retired.attached) {
            const std::vector<TreeViewEntry *> &old = retired.entries;
            items.push_back(firstIn(content, old.cbegin(), old.cend()));
            items.push_back(firstIn(content, old.crbegin(), old.crend()));
        }
    }
    items.erase(std::remove(items.begin(), items.end(), nullptr), items.end());
    return items;
}

} // namespace om::controls
