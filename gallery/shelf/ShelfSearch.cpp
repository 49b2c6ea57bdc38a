// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/shelf/ShelfSearch.h"

#include "gallery/shelf/ShelfDocument.h"

#include <QHash>

namespace om::gallery {

void ShelfSearch::run(const ShelfDocument *root)
{
    const QVector<ShelfDocument *> before = m_folders;
    clear();
    QHash<ShelfDocument *, int> inside;
    if (!m_text.isEmpty()) {
        const QVector<ShelfDocument *> documents =
            root ? root->allInside() : QVector<ShelfDocument *>();
        for (ShelfDocument *document : documents) {
            if (document->name().contains(m_text, Qt::CaseInsensitive)) {
                m_found.append(document);
                ++inside[document->parentFolder()];
            }
        }
    }
    for (ShelfDocument *folder : before) {
        folder->setFoundInside(inside.value(folder));
    }
    for (auto it = inside.begin(); it != inside.end(); ++it) {
        it.key()->setFoundInside(it.value());
        m_folders.append(it.key());
    }
}

void ShelfSearch::clear()
{
    m_found.clear();
    m_folders.clear();
}

QSet<const ShelfDocument *> ShelfSearch::found() const
{
    QSet<const ShelfDocument *> found;
    found.reserve(m_found.size());
    for (const ShelfDocument *document : m_found) {
        found.insert(document);
    }
    return found;
}

ShelfDocument *ShelfSearch::next(const ShelfDocument *current, bool backwards) const
{
    if (m_found.isEmpty()) {
        return nullptr;
    }
    const int now = m_found.indexOf(const_cast<ShelfDocument *>(current));
    const int last = m_found.size() - 1;
    int next = backwards ? now - 1 : now + 1;
    if (next < 0) {
        next = last;
    } else if (next > last) {
        next = 0;
    }
    return m_found.at(next);
}

} // namespace om::gallery
