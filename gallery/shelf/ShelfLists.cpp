// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/shelf/ShelfLists.h"

#include "gallery/shelf/ShelfDocument.h"

#include <QSet>

#include <algorithm>

namespace om::gallery {

namespace {

QSet<om::data::Document *> setOf(const QList<ShelfDocument *> &documents)
{
    QSet<om::data::Document *> set;
    set.reserve(documents.size());
    for (ShelfDocument *document : documents) {
        set.insert(document);
    }
    return set;
}

QList<om::data::Document *> without(const QList<om::data::Document *> &list,
                                    const QSet<om::data::Document *> &documents)
{
    QList<om::data::Document *> left;
    for (om::data::Document *document : list) {
        if (!documents.contains(document)) {
            left.append(document);
        }
    }
    return left;
}

} // namespace

ShelfLists ShelfLists::moving(const QList<ShelfDocument *> &documents, ShelfDocument *folder,
                              int index)
{
    const QList<om::data::Document *> before = folder->childDocuments();
    const int place = index < 0 ? before.size() : qMin(index, before.size());
    const QSet<om::data::Document *> moved = setOf(documents);
    QList<om::data::Document *> after = without(before.mid(0, place), moved);
    QList<ShelfDocument *> fromElsewhere;
    for (ShelfDocument *document : documents) {
        after.append(document);
        if (document->parentFolder() && document->parentFolder() != folder) {
            fromElsewhere.append(document);
        }
    }
    after += without(before.mid(place), moved);
    if (after == before) {
        return {};
    }
    ShelfLists lists = removing(fromElsewhere);
    lists.m_lists.append({folder, after});
    return lists;
}

ShelfLists ShelfLists::removing(const QList<ShelfDocument *> &documents)
{
    const QSet<om::data::Document *> removed = setOf(documents);
    QSet<ShelfDocument *> seen;
    ShelfLists lists;
    for (const ShelfDocument *document : documents) {
        ShelfDocument *const folder = document->parentFolder();
        if (!seen.contains(folder)) {
            seen.insert(folder);
            lists.m_lists.append({folder, without(folder->childDocuments(), removed)});
        }
    }
    return lists;
}

ShelfLists ShelfLists::undoing() const
{
    ShelfLists before;
    for (const auto &list : m_lists) {
        before.m_lists.append({list.first, list.first->childDocuments()});
    }
    std::reverse(before.m_lists.begin(), before.m_lists.end());
    return before;
}

void ShelfLists::apply() const
{
    for (const auto &list : m_lists) {
        list.first->setChildDocuments(list.second);
    }
}

} // namespace om::gallery
