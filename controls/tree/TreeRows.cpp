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

/// Levels that get rows. The rows of a chain depend on one another through bindings, which takes
/// stack; and documents that contain themselves have to end somewhere.
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
    // One at a time: what the end of a row calls may have others deleted.
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

/// With a list of its own instead of the stack.
bool TreeRows::add(Document *root, QQuickItem *content,
                   const std::function<bool(const QString &)> &collapsed)
{
    struct Level
    {
        QPointer<Document> document;
        QQmlListReference children;
        int next;
        QPointer<QQuickItem> item;
    };
    const QPointer<QQuickItem> alive(m_view);
    const QPointer<QQuickItem> place(content);
    const QByteArray childProperty = m_host->childProperty();
    std::vector<Level> path;
    bool tooDeep = false;
    QPointer<Document> adding = root;
    while (adding || !path.empty()) {
        if (adding) {
            const QString id = adding->documentId();
            QQmlListReference children(adding, childProperty.constData());
            const int childCount = qMax(0, children.count());
            if (!alive) {
                return false;
            }
            if (!adding) {
                continue;
            }
            const int level = static_cast<int>(path.size());
            m_making = new TreeViewEntry(
                m_view, m_host, {adding, m_entries.size(), level, collapsed(id), childCount});
            m_making->createRow(place, path.empty() ? nullptr : path.back().item.data());
            if (!alive) {
                return false;
            }
            TreeViewEntry *entry = std::exchange(m_making, nullptr);
            m_entries.append(entry);
            if (adding) {
                m_documents.insert(adding);
            }
            path.push_back({adding, children, 0, entry->item()});
            adding = nullptr;
        }
        Level &top = path.back();
        // The count is asked for anew each time: making a row may have changed the list.
        QObject *element = nullptr;
        const bool more = top.document && top.next < top.children.count();
        if (more) {
            element = top.children.at(top.next++);
        }
        if (!alive) {
            return false;
        }
        if (!more) {
            path.pop_back();
            continue;
        }
        auto *child = qobject_cast<Document *>(element);
        if (!child) {
            continue;
        }
        if (static_cast<int>(path.size()) >= maximumLevels) {
            if (!m_warnedOfDepth) {
                m_warnedOfDepth = true;
                qmlWarning(m_view) << "The documents are nested more than " << maximumLevels
                                   << " levels deep, or contain themselves; deeper ones get no row";
            }
            tooDeep = true;
            continue;
        }
        // Documents that contain themselves more than once would fill all levels again and again.
        if (tooDeep && std::any_of(path.cbegin(), path.cend(), [child](const Level &above) {
                return above.document == child;
            })) {
            continue;
        }
        adding = child;
    }
    return alive;
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

/// Rows hang on one another by their anchors, so that each row that hides would move all rows below
/// it, thousands of times over. The rows from here to the first one after the subtree let go, hide
/// or show by themselves, and are put together again from the top.
bool TreeRows::hideOrShow(TreeViewEntry *entry, const std::function<void()> &change)
{
    const QPointer<QQuickItem> alive(m_view);
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
    for (int i = first; i < end; ++i) {
        if (QQuickItem *item = m_entries.at(i)->item()) {
            RowItemAccess(item).releaseTop();
        }
    }
    const int build = m_build;
    const int count = m_entries.size();
    change();
    // An entry that a handler has destroyed leaves the list, and those after it move up.
    const int gone = alive ? count - m_entries.size() : 0;
    for (int i = qMax(0, first - gone); alive && m_build == build && i < end - gone; ++i) {
        if (QQuickItem *item = m_entries.at(i)->item()) {
            RowItemAccess(item).anchorTop();
        }
    }
    return alive;
}

void TreeRows::entryEnds(TreeViewEntry *entry)
{
    for (auto retired = m_retired.begin(); retired != m_retired.end(); ++retired) {
        // They go from the last to the first.
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
        return;
    }
    m_entries.removeOne(entry);
}

/// Takes all entries of a build and their items from their parents, with the first of them that
/// goes. They go from the last to the first, and each that was still a child then would be searched
/// for among all children of its parent, from the first on: quadratic. In row order, each is found
/// at once.
///
/// But without their parent rows hidden rows would show themselves if their bindings still lived:
/// the contexts go before, from the last row to the first.
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

QQuickItem *TreeRows::firstItem() const
{
    return m_entries.isEmpty() ? nullptr : m_entries.constFirst()->item();
}

QQuickItem *TreeRows::lastItem() const
{
    return m_entries.isEmpty() ? nullptr : m_entries.constLast()->item();
}

std::vector<QQuickItem *> TreeRows::endItems() const
{
    std::vector<QQuickItem *> items{firstItem(), lastItem()};
    for (const Retired &retired : m_retired) {
        if (retired.attached) {
            items.push_back(retired.entries.front()->item());
            items.push_back(retired.entries.back()->item());
        }
    }
    items.erase(std::remove(items.begin(), items.end(), nullptr), items.end());
    return items;
}

} // namespace om::controls
