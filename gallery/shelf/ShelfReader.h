// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "gallery/shelf/ShelfDocument.h"
#include "gallery/shelf/ShelfNotes.h"

#include <QVector>

#include <atomic>
#include <functional>

namespace om::gallery {

/// A part of what a folder holds.
struct ShelfBatch
{
    QString folder;
    QVector<ShelfEntry> entries;
};

/// A file or folder from elsewhere, read into memory.
struct ShelfCopy
{
    ShelfEntry entry;
    QByteArray content;
    QVector<ShelfCopy> inside;
};

/// Reads files and folders for a shelf. Everything here may take long and belongs on a thread of
/// its own; none of it writes.
namespace ShelfReader {

/// A shelf holds no more than this many files and folders: what is beyond is left out.
constexpr int mostEntries = 20000;
/// What is copied into memory: a file is no larger than the first, all together than the second.
constexpr qint64 largestCopy = 64 * 1024 * 1024;
constexpr qint64 largestCopies = 256 * 1024 * 1024;

/// Reads all that is below the folder `path`, one folder after the other, those above first, in the
/// order of the notes and by name. `deliver` gets it in small parts. Ends early once `cancelled` is
/// set, and at the limit; returns whether it reached the limit.
bool readFolder(const QString &path, const ShelfNotes &notes, const std::atomic_bool &cancelled,
                const std::function<void(const ShelfBatch &)> &deliver);

/// Reads files, and folders with all that is in them. What cannot be taken is left out, with a
/// sentence in `problems` that says so.
QVector<ShelfCopy> readCopies(const QStringList &paths, const std::atomic_bool &cancelled,
                              QStringList *problems);

} // namespace ShelfReader

} // namespace om::gallery
