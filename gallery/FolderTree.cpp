// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/FolderTree.h"

#include "gallery/FolderDocument.h"
#include "gallery/PictureProvider.h"

#include <QDir>

namespace om::gallery {

namespace {

// Unpacking or checking out touches a folder many times in a row; it is read once for all of them.
constexpr int refreshDelay = 50; // ms

// A path, or a local URL as drags bring it.
QString folderPathOf(const QString &folder)
{
    return folder.startsWith(QLatin1String("file:")) ? QUrl(folder).toLocalFile() : folder;
}

} // namespace

FolderTree::FolderTree(const QString &path, QObject *parent)
    : QObject(parent)
    , m_problems(std::make_shared<PictureProblems>())
{
    m_refresh.setInterval(refreshDelay);
    m_refresh.setSingleShot(true);
    connect(&m_refresh, &QTimer::timeout, this, &FolderTree::refreshChanged);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this,
            [this](const QString &changed) {
                m_changed.insert(changed);
                if (!m_refresh.isActive()) {
                    m_refresh.start();
                }
            });
    m_folder = documentOf(path);
}

FolderTree::~FolderTree() = default;

om::data::Document *FolderTree::folder() const
{
    return m_folder.get();
}

om::data::Context *FolderTree::context()
{
    return &m_context;
}

bool FolderTree::canOpen(const QString &folder) const
{
    const QFileInfo file(folderPathOf(folder));
    return file.isAbsolute() && file.isDir() && file.isReadable() && file.isExecutable();
}

void FolderTree::open(const QString &folder)
{
    if (!canOpen(folder)) {
        return;
    }
    std::unique_ptr<FolderDocument> before = std::move(m_folder);
    m_folder = documentOf(folderPathOf(folder));
    // Whoever shows it may be in the middle of something.
    before.release()->deleteLater();
    Q_EMIT folderChanged();
}

QStringList FolderTree::foldersIn(const QString &path) const
{
    return QDir(path).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase);
}

QString FolderTree::pictureSource(const QUrl &file) const
{
    const QString path = FolderDocument::pathOf(file);
    return path.isEmpty() ? QString() : PictureProvider::sourceFor(path);
}

QString FolderTree::pictureProblem(const QUrl &file) const
{
    return m_problems->of(FolderDocument::pathOf(file));
}

std::shared_ptr<PictureProblems> FolderTree::pictureProblems() const
{
    return m_problems;
}

bool FolderTree::watch(const QString &path, FolderDocument *document)
{
    m_watched.insert(path, document);
    const QFileInfo file(path);
    // Resources do not change, and cannot be watched.
    if (m_watcher.directories().contains(path) || !document->isReadable() || !file.isDir()
        || !file.isNativePath()) {
        return false;
    }
    return m_watcher.addPath(path);
}

void FolderTree::unwatch(const QString &path, FolderDocument *document)
{
    // The path may belong to another document by now.
    if (m_watched.value(path) != document) {
        return;
    }
    m_watched.remove(path);
    if (m_watcher.directories().contains(path)) {
        m_watcher.removePath(path);
    }
}

std::unique_ptr<FolderDocument> FolderTree::documentOf(const QString &path)
{
    auto document =
        std::make_unique<FolderDocument>(this, QFileInfo(QFileInfo(path).canonicalFilePath()));
    document->setContext(&m_context);
    return document;
}

void FolderTree::refreshChanged()
{
    const QSet<QString> changed = m_changed;
    m_changed.clear();
    for (const QString &path : changed) {
        if (FolderDocument *document = m_watched.value(path)) {
            document->refresh();
        }
    }
}

} // namespace om::gallery
