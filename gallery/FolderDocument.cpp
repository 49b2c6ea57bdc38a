// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/FolderDocument.h"

#include "gallery/FolderTree.h"

#include <QDir>
#include <QHash>
#include <QMimeDatabase>

#include <algorithm>

namespace om::gallery {

namespace {

// The number at `position` of `text`, without leading zeros; moves `position` behind it.
QStringView numberAt(const QString &text, int &position)
{
    while (position < text.size() - 1 && text.at(position) == QLatin1Char('0')
           && text.at(position + 1).isDigit()) {
        ++position;
    }
    const int start = position;
    while (position < text.size() && text.at(position).isDigit()) {
        ++position;
    }
    return QStringView(text).mid(start, position - start);
}

// Negative, zero or positive, as "shot 9" comes before "Shot 10". Not QCollator, whose numeric mode
// does nothing in the "C" locale, which a test or a server runs in.
int compareNames(const QString &a, const QString &b)
{
    int i = 0;
    int j = 0;
    while (i < a.size() && j < b.size()) {
        if (a.at(i).isDigit() && b.at(j).isDigit()) {
            const QStringView left = numberAt(a, i);
            const QStringView right = numberAt(b, j);
            if (left.size() != right.size()) {
                return left.size() < right.size() ? -1 : 1;
            }
            if (const int order = left.compare(right)) {
                return order;
            }
        } else {
            const QChar left = a.at(i++).toCaseFolded();
            const QChar right = b.at(j++).toCaseFolded();
            if (left != right) {
                return left < right ? -1 : 1;
            }
        }
    }
    return (a.size() - i) - (b.size() - j);
}

} // namespace

FolderDocument::FolderDocument(FolderTree *tree, const QFileInfo &file, QObject *parent)
    : Document(parent)
    , m_tree(tree)
    , m_path(file.absoluteFilePath())
    , m_folder(file.isDir())
    , m_link(file.isSymLink())
    , m_readable(canBeRead(file))
{
    setDocumentId(m_path);
    setName(file.fileName().isEmpty() ? m_path : file.fileName());
    setUrl(urlOf(m_path));
    updateType(file);
}

FolderDocument::~FolderDocument()
{
    if (m_tree && m_loaded) {
        m_tree->unwatch(m_path, this);
    }
}

bool FolderDocument::isFolder() const
{
    return m_folder;
}

bool FolderDocument::isReadable() const
{
    return m_readable;
}

bool FolderDocument::isLoaded() const
{
    return m_loaded;
}

void FolderDocument::refresh()
{
    if (!m_loaded || !m_tree) {
        return;
    }
    updateReadable(QFileInfo(m_path));
    m_tree->watch(m_path, this);

    const QFileInfoList files = entries();
    QHash<QString, QFileInfo> present;
    for (const QFileInfo &file : files) {
        present.insert(file.absoluteFilePath(), file);
    }

    QHash<QString, FolderDocument *> kept;
    QList<FolderDocument *> gone;
    const QList<om::data::Document *> children = childDocuments();
    for (om::data::Document *child : children) {
        auto *document = qobject_cast<FolderDocument *>(child);
        if (!document) {
            continue;
        }
        if (document->standsFor(present.value(document->m_path))) {
            kept.insert(document->m_path, document);
        } else {
            gone.append(document);
        }
    }

    QList<om::data::Document *> now;
    for (const QFileInfo &file : files) {
        FolderDocument *document = kept.value(file.absoluteFilePath());
        now.append(document ? document : new FolderDocument(m_tree, file));
    }
    setChildDocuments(now);
    // Whoever shows them may be in the middle of something.
    for (FolderDocument *document : qAsConst(gone)) {
        document->deleteLater();
    }

    for (FolderDocument *document : qAsConst(kept)) {
        document->updateType(present.value(document->m_path));
        document->updateReadable(present.value(document->m_path));
        // A folder that was deleted and made anew between two looks is another one on disk.
        if (document->m_loaded && m_tree->watch(document->m_path, document)) {
            document->refresh();
        }
    }
}

void FolderDocument::updateType(const QFileInfo &file)
{
    // Finding a type may mean reading the file; large folders have many that did not change.
    if (file.size() == m_typedSize && file.lastModified() == m_typedTime) {
        return;
    }
    m_typedSize = file.size();
    m_typedTime = file.lastModified();
    setTypes({typeOf(file)});
}

void FolderDocument::updateReadable(const QFileInfo &file)
{
    const bool readable = canBeRead(file);
    if (readable == m_readable) {
        return;
    }
    m_readable = readable;
    Q_EMIT readableChanged();
}

bool FolderDocument::standsFor(const QFileInfo &file) const
{
    return file.absoluteFilePath() == m_path && file.isDir() == m_folder
        && file.isSymLink() == m_link;
}

QString FolderDocument::typeOf(const QFileInfo &file)
{
    if (file.isDir()) {
        return QStringLiteral("folder");
    }
    const QMimeType mime = QMimeDatabase().mimeTypeForFile(file);
    if (mime.name().startsWith(QLatin1String("image/"))) {
        return QStringLiteral("image");
    }
    if (mime.name().startsWith(QLatin1String("video/"))) {
        return QStringLiteral("video");
    }
    if (mime.inherits(QStringLiteral("text/plain"))) {
        return QStringLiteral("text");
    }
    return QStringLiteral("file");
}

QList<om::data::Document *> FolderDocument::loadChildren()
{
    QList<om::data::Document *> children;
    if (!m_folder || m_link || !m_tree) {
        return children;
    }
    m_loaded = true;
    updateReadable(QFileInfo(m_path));
    m_tree->watch(m_path, this);
    const QFileInfoList files = entries();
    for (const QFileInfo &file : files) {
        children.append(new FolderDocument(m_tree, file));
    }
    return children;
}

QFileInfoList FolderDocument::entries() const
{
    QFileInfoList files =
        QDir(m_path).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::NoSort);
    std::sort(files.begin(), files.end(),
              [](const QFileInfo &a, const QFileInfo &b) { return comesBefore(a, b); });
    return files;
}

bool FolderDocument::canBeRead(const QFileInfo &file)
{
    // Without the right to enter a folder its files have names and nothing else.
    // Those of resources have no rights.
    return file.isReadable() && (!file.isDir() || file.isExecutable() || !file.isNativePath());
}

QUrl FolderDocument::urlOf(const QString &path)
{
    return path.startsWith(QLatin1Char(':')) ? QUrl(QLatin1String("qrc") + path)
                                             : QUrl::fromLocalFile(path);
}

QString FolderDocument::pathOf(const QUrl &url)
{
    return url.scheme() == QLatin1String("qrc") ? QLatin1Char(':') + url.path() : url.toLocalFile();
}

bool FolderDocument::comesBefore(const QFileInfo &a, const QFileInfo &b)
{
    return comesBefore(a.fileName(), a.isDir(), b.fileName(), b.isDir());
}

bool FolderDocument::comesBefore(const QString &a, bool aIsFolder, const QString &b, bool bIsFolder)
{
    if (aIsFolder != bIsFolder) {
        return aIsFolder;
    }
    const int order = compareNames(a, b);
    return order != 0 ? order < 0 : a < b;
}

} // namespace om::gallery
