// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QSet>
#include <QString>
#include <QVector>

namespace om::gallery {

class ShelfDocument;

/// The documents that have a text in their names, whatever its case.
class ShelfSearch
{
public:
    /// With an empty text nothing is found.
    QString text() const { return m_text; }
    void setText(const QString &text) { m_text = text; }

    /// Looks through the documents below `root`, and tells each folder how many were found in it.
    void run(const ShelfDocument *root);
    /// Forgets what was found, for it is about to be deleted.
    void clear();

    int count() const { return m_found.size(); }
    QSet<const ShelfDocument *> found() const;
    /// The one after or before `current`, around the ends; null when nothing was found.
    ShelfDocument *next(const ShelfDocument *current, bool backwards) const;

private:
    QString m_text;
    QVector<ShelfDocument *> m_found;
    QVector<ShelfDocument *> m_folders; // that have been told of any
};

} // namespace om::gallery
