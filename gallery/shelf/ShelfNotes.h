// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QHash>
#include <QStringList>

namespace om::gallery {

/// What a shelf knows and a folder on disk has no place for: colour labels, and the order in which
/// things lie. Kept in the file `.shelf.json` of the folder; paths in it are relative to that
/// folder, "" being the folder itself.
struct ShelfNotes
{
    QHash<QString, QColor> labels;
    QHash<QString, QStringList> orders;

    static QString fileIn(const QString &folder);
    /// Empty notes when there is no file. `problem` says why a file that is there cannot be used.
    static ShelfNotes read(const QString &folder, QString *problem);
    QByteArray toJson() const;

    bool isEmpty() const { return labels.isEmpty() && orders.isEmpty(); }
};

} // namespace om::gallery
