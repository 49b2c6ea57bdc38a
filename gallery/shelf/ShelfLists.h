// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QPair>
#include <QVector>

namespace om::data {
class Document;
}

namespace om::gallery {

class ShelfDocument;

/// A change of what is where: the child lists of some folders, as they are to become.
class ShelfLists
{
public:
    /// The documents go from where they are, which is nowhere for new ones, to before the one that
    /// is at `index` of `folder` now; -1 is the end. Nothing changes when they are there already.
    static ShelfLists moving(const QList<ShelfDocument *> &documents, ShelfDocument *folder,
                             int index);
    /// The documents go from their folders.
    static ShelfLists removing(const QList<ShelfDocument *> &documents);

    bool isEmpty() const { return m_lists.isEmpty(); }
    /// What takes this change back: the lists as they are now.
    ShelfLists undoing() const;
    void apply() const;

private:
    // In the order in which they are set: the folder that loses documents before the one that gains
    // them, or each of them would be searched for in the list that it leaves.
    QVector<QPair<ShelfDocument *, QList<om::data::Document *>>> m_lists;
};

} // namespace om::gallery
