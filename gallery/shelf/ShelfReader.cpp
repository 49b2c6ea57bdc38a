// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/shelf/ShelfReader.h"

#include "gallery/FolderDocument.h"

#include <QDir>
#include <QQueue>

#include <algorithm>

namespace om::gallery {

namespace {

// As many as take the GUI thread a few milliseconds.
constexpr int batchSize = 200;

ShelfEntry entryOf(const QFileInfo &file)
{
    ShelfEntry entry;
    entry.path = file.absoluteFilePath();
    entry.name = file.fileName();
    entry.type = FolderDocument::typeOf(file);
    entry.folder = file.isDir();
    entry.link = file.isSymLink();
    entry.readable = FolderDocument::canBeRead(file);
    entry.size = file.isDir() ? 0 : file.size();
    return entry;
}

QFileInfoList filesIn(const QString &path)
{
    QFileInfoList files =
        QDir(path).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::NoSort);
    std::sort(files.begin(), files.end(), [](const QFileInfo &a, const QFileInfo &b) {
        return FolderDocument::comesBefore(a, b);
    });
    return files;
}

// What the notes name comes first, in their order; the rest follows in its own.
void arrange(QFileInfoList &files, const QStringList &names)
{
    if (names.isEmpty()) {
        return;
    }
    QHash<QString, int> places;
    for (const QString &name : names) {
        places.insert(name, places.size());
    }
    const int last = places.size();
    std::stable_sort(files.begin(), files.end(), [&](const QFileInfo &a, const QFileInfo &b) {
        return places.value(a.fileName(), last) < places.value(b.fileName(), last);
    });
}

/// Copies one after the other, and counts what it has.
class Copier
{
public:
    Copier(const std::atomic_bool &cancelled, QStringList *problems)
        : m_cancelled(cancelled)
        , m_problems(problems)
    {
    }

    void copy(const QFileInfo &file, QVector<ShelfCopy> *into)
    {
        if (m_cancelled) {
            return;
        }
        ShelfCopy made;
        made.entry = entryOf(file);
        // Its copy is a file of its own.
        made.entry.link = false;
        const bool whole = made.entry.folder ? copyFolder(file, &made) : copyFile(file, &made);
        if (whole) {
            into->append(made);
        }
    }

private:
    bool refuse(const QFileInfo &file, const QString &reason)
    {
        m_problems->append(QStringLiteral("“%1” was not taken: %2").arg(file.fileName(), reason));
        return false;
    }

    bool copyFolder(const QFileInfo &file, ShelfCopy *made)
    {
        if (!made->entry.readable) {
            return refuse(file, QStringLiteral("it cannot be read"));
        }
        if (++m_count > ShelfReader::mostEntries) {
            return refuse(file, QStringLiteral("there is too much of it"));
        }
        const QFileInfoList files = filesIn(file.absoluteFilePath());
        for (const QFileInfo &inside : files) {
            // A link to a folder may lead back to where it stands.
            if (inside.isSymLink() && inside.isDir()) {
                refuse(inside, QStringLiteral("it is a link to a folder"));
            } else {
                copy(inside, &made->inside);
            }
        }
        return true;
    }

    bool copyFile(const QFileInfo &file, ShelfCopy *made)
    {
        if (!file.exists()) {
            return refuse(file, QStringLiteral("it is gone"));
        }
        // A pipe or a device would keep whoever reads it waiting.
        if (!file.isFile()) {
            return refuse(file, QStringLiteral("it is no file"));
        }
        if (file.size() > ShelfReader::largestCopy) {
            return refuse(file, QStringLiteral("it is larger than 64 MB"));
        }
        if (m_bytes + file.size() > ShelfReader::largestCopies) {
            return refuse(file, QStringLiteral("256 MB are in memory already"));
        }
        if (++m_count > ShelfReader::mostEntries) {
            return refuse(file, QStringLiteral("there is too much of it"));
        }
        QFile source(file.absoluteFilePath());
        if (!source.open(QFile::ReadOnly)) {
            return refuse(file, QStringLiteral("it cannot be read"));
        }
        made->content = source.read(ShelfReader::largestCopy);
        if (source.error() != QFile::NoError) {
            return refuse(file, QStringLiteral("it cannot be read"));
        }
        made->entry.size = made->content.size();
        m_bytes += made->content.size();
        return true;
    }

    const std::atomic_bool &m_cancelled;
    QStringList *const m_problems;
    qint64 m_bytes = 0;
    int m_count = 0;
};

} // namespace

bool ShelfReader::readFolder(const QString &path, const ShelfNotes &notes,
                             const std::atomic_bool &cancelled,
                             const std::function<void(const ShelfBatch &)> &deliver)
{
    const QDir top(path);
    const auto relative = [&](const QString &file) {
        return file == path ? QString() : top.relativeFilePath(file);
    };
    QQueue<QString> waiting;
    waiting.enqueue(path);
    int count = 0;
    while (!waiting.isEmpty()) {
        ShelfBatch batch;
        batch.folder = waiting.dequeue();
        QFileInfoList files = filesIn(batch.folder);
        arrange(files, notes.orders.value(relative(batch.folder)));
        for (const QFileInfo &file : qAsConst(files)) {
            if (cancelled) {
                return false;
            }
            if (++count > mostEntries) {
                deliver(batch);
                return true;
            }
            ShelfEntry entry = entryOf(file);
            entry.label = notes.labels.value(relative(entry.path));
            if (entry.folder && !entry.link && entry.readable) {
                waiting.enqueue(entry.path);
            }
            batch.entries.append(entry);
            if (batch.entries.size() == batchSize) {
                deliver(batch);
                batch.entries.clear();
            }
        }
        if (!batch.entries.isEmpty()) {
            deliver(batch);
        }
    }
    return false;
}

QVector<ShelfCopy> ShelfReader::readCopies(const QStringList &paths,
                                           const std::atomic_bool &cancelled, QStringList *problems)
{
    QVector<ShelfCopy> copies;
    Copier copier(cancelled, problems);
    for (const QString &path : paths) {
        copier.copy(QFileInfo(path), &copies);
    }
    return copies;
}

} // namespace om::gallery
