// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <OmbrelDataCore/Document.h>

#include <QDateTime>
#include <QFileInfo>
#include <QPointer>

namespace om::gallery {

class FolderTree;

/// A file or folder on disk as a document.
///
/// `documentId` is the absolute path, `name` the file name, `url` the file URL. `types` holds one
/// of "folder", "image", "video", "text" and "file", by MIME type. The children of a folder are its
/// visible entries, folders first, then by name with numbers in their order; they are read when
/// somebody asks for them, and follow the disk from then on. A symbolic link to a folder is a
/// folder without children, so that links cannot make the tree endless.
class FolderDocument : public om::data::Document
{
    Q_OBJECT
    /// Whether the file, or the folder's list of files, can be read. A folder that cannot has no
    /// children.
    Q_PROPERTY(bool readable READ isReadable NOTIFY readableChanged)

public:
    FolderDocument(FolderTree *tree, const QFileInfo &file, QObject *parent = nullptr);
    ~FolderDocument() override;

    /// Whether the document stands for a folder, a link to one included.
    bool isFolder() const;
    bool isReadable() const;
    /// Whether the children have been read.
    bool isLoaded() const;

    /// Makes the children what the folder holds now: documents of files that are still there stay
    /// the same objects. Does nothing before the children have been read.
    void refresh();

    /// The type for a file: "folder", "image", "video", "text" or "file".
    static QString typeOf(const QFileInfo &file);
    /// Whether a file, or a folder's list of files, can be read.
    static bool canBeRead(const QFileInfo &file);
    /// The URL of the file with a path, and back; a path that begins with ":" is that of a
    /// resource.
    static QUrl urlOf(const QString &path);
    static QString pathOf(const QUrl &url);
    /// The order in which a folder shows what is in it.
    static bool comesBefore(const QFileInfo &a, const QFileInfo &b);
    static bool comesBefore(const QString &a, bool aIsFolder, const QString &b, bool bIsFolder);

Q_SIGNALS:
    void readableChanged();

protected:
    QList<om::data::Document *> loadChildren() override;

private:
    QFileInfoList entries() const;
    void updateReadable(const QFileInfo &file);
    bool standsFor(const QFileInfo &file) const;
    void updateType(const QFileInfo &file);

    const QPointer<FolderTree> m_tree;
    const QString m_path;
    const bool m_folder;
    const bool m_link;
    bool m_readable = true;
    bool m_loaded = false;
    qint64 m_typedSize = -1;
    QDateTime m_typedTime;
};

} // namespace om::gallery
