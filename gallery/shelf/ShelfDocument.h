// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <OmbrelDataCore/Document.h>

#include <QByteArray>
#include <QColor>
#include <QUrl>
#include <QVector>

namespace om::gallery {

/// What is known of a file or folder before it is a document; made on any thread.
struct ShelfEntry
{
    QString path; ///< where it is on disk; for what is being added, where it comes from
    QString name;
    QString type; ///< "folder", "image", "video", "text" or "file"
    qint64 size = 0;
    bool folder = false;
    bool link = false;
    bool readable = true;
    QColor label; ///< invalid for none
};

/// A file or folder on the shelf. Nothing that happens to it reaches the disk before the shelf is
/// saved.
///
/// `types` holds the type of the entry and "shelf", which every document of a shelf has.
class ShelfDocument : public om::data::Document
{
    Q_OBJECT
    /// The folders in it, for a tree of folders; as many as Shelf puts there.
    Q_PROPERTY(
        QQmlListProperty<om::data::Document> folders READ foldersProperty NOTIFY foldersChanged)
    /// The colour label, transparent without one.
    Q_PROPERTY(QColor label READ shownLabel NOTIFY labelChanged)
    Q_PROPERTY(bool folder READ isFolder CONSTANT)
    Q_PROPERTY(bool readable READ isReadable CONSTANT)
    /// Whether it is only in memory.
    Q_PROPERTY(bool added READ isAdded NOTIFY addedChanged)
    Q_PROPERTY(qint64 size READ size CONSTANT)
    /// How many documents found by a search are in this folder itself.
    Q_PROPERTY(int foundInside READ foundInside NOTIFY foundInsideChanged)

public:
    /// A document for what is on disk.
    ShelfDocument(const ShelfEntry &entry, QObject *parent);
    /// A document for what is only in memory. `content` is that of a file.
    ShelfDocument(const QString &id, const ShelfEntry &entry, const QByteArray &content,
                  QObject *parent);
    ~ShelfDocument() override;

    bool isFolder() const { return m_entry.folder; }
    /// A link to a folder: it has no children here, so that links cannot make the shelf endless.
    bool isLink() const { return m_entry.link; }
    bool isReadable() const { return m_entry.readable; }
    qint64 size() const { return m_entry.size; }

    /// Where it is on disk now; empty for what is only in memory.
    QString origin() const { return m_origin; }
    bool isAdded() const { return m_origin.isEmpty(); }
    QByteArray content() const { return m_content; }
    /// It has been written: it is on disk now, at `path`.
    void setOrigin(const QString &path);

    /// Invalid without a label.
    QColor label() const { return m_label; }
    void setLabel(const QColor &label);

    ShelfDocument *parentFolder() const;
    /// The children, all of which are of the shelf.
    QList<ShelfDocument *> entries() const;
    /// All documents in it, whatever they are in, from the outside in.
    QVector<ShelfDocument *> allInside() const;
    /// Whether `other` is this document or somewhere in it.
    bool holds(const ShelfDocument *other) const;

    QList<om::data::Document *> treeFolders() const { return m_treeFolders; }
    /// Has a tree show this folder and those in it, from the outside in, in as many rows as may be.
    /// Returns whether there are more.
    bool showFolders(int mostRows);
    int foundInside() const { return m_foundInside; }
    void setFoundInside(int count);

Q_SIGNALS:
    void foldersChanged();
    void labelChanged();
    void addedChanged();
    void foundInsideChanged();

private:
    void setTreeFolders(const QList<om::data::Document *> &folders);
    QQmlListProperty<om::data::Document> foldersProperty();
    QColor shownLabel() const;

    const ShelfEntry m_entry;
    QString m_origin;
    QByteArray m_content;
    QColor m_label;
    QList<om::data::Document *> m_treeFolders;
    int m_foundInside = 0;
};

} // namespace om::gallery
