// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/shelf/ShelfDocument.h"

#include "gallery/FolderDocument.h"

namespace om::gallery {

namespace {

int folderCount(QQmlListProperty<om::data::Document> *list)
{
    return static_cast<ShelfDocument *>(list->object)->treeFolders().size();
}

om::data::Document *folderAt(QQmlListProperty<om::data::Document> *list, int index)
{
    return static_cast<ShelfDocument *>(list->object)->treeFolders().value(index);
}

} // namespace

ShelfDocument::ShelfDocument(const ShelfEntry &entry, QObject *parent)
    : ShelfDocument(entry.path, entry, QByteArray(), parent)
{
    m_origin = entry.path;
}

ShelfDocument::ShelfDocument(const QString &id, const ShelfEntry &entry, const QByteArray &content,
                             QObject *parent)
    : Document(parent)
    , m_entry(entry)
    , m_content(content)
    , m_label(entry.label)
{
    setDocumentId(id);
    setName(entry.name);
    setTypes({entry.type, QStringLiteral("shelf")});
    setUrl(FolderDocument::urlOf(entry.path));
}

ShelfDocument::~ShelfDocument() = default;

void ShelfDocument::setOrigin(const QString &path)
{
    if (m_origin == path) {
        return;
    }
    m_origin = path;
    m_content.clear();
    setUrl(FolderDocument::urlOf(path));
    Q_EMIT addedChanged();
}

void ShelfDocument::setLabel(const QColor &label)
{
    if (m_label == label) {
        return;
    }
    m_label = label;
    Q_EMIT labelChanged();
}

QColor ShelfDocument::shownLabel() const
{
    return m_label.isValid() ? m_label : QColor(Qt::transparent);
}

ShelfDocument *ShelfDocument::parentFolder() const
{
    return static_cast<ShelfDocument *>(parentDocument());
}

QList<ShelfDocument *> ShelfDocument::entries() const
{
    QList<ShelfDocument *> entries;
    const QList<om::data::Document *> children = childDocuments();
    entries.reserve(children.size());
    for (om::data::Document *child : children) {
        entries.append(static_cast<ShelfDocument *>(child));
    }
    return entries;
}

QVector<ShelfDocument *> ShelfDocument::allInside() const
{
    QVector<ShelfDocument *> documents;
    QVector<const ShelfDocument *> waiting{this};
    for (int i = 0; i < waiting.size(); ++i) {
        const QList<ShelfDocument *> entries = waiting.at(i)->entries();
        for (ShelfDocument *entry : entries) {
            documents.append(entry);
            if (entry->isFolder()) {
                waiting.append(entry);
            }
        }
    }
    return documents;
}

bool ShelfDocument::holds(const ShelfDocument *other) const
{
    while (other && other != this) {
        other = other->parentFolder();
    }
    return other;
}

bool ShelfDocument::showFolders(int mostRows)
{
    bool more = false;
    int rows = 1;
    QVector<ShelfDocument *> waiting{this};
    for (int i = 0; i < waiting.size(); ++i) {
        QList<om::data::Document *> folders;
        const QList<ShelfDocument *> entries = waiting.at(i)->entries();
        for (ShelfDocument *entry : entries) {
            if (!entry->isFolder()) {
                continue;
            }
            if (++rows > mostRows) {
                more = true;
                break;
            }
            folders.append(entry);
            waiting.append(entry);
        }
        waiting.at(i)->setTreeFolders(folders);
    }
    return more;
}

void ShelfDocument::setTreeFolders(const QList<om::data::Document *> &folders)
{
    if (m_treeFolders == folders) {
        return;
    }
    m_treeFolders = folders;
    Q_EMIT foldersChanged();
}

void ShelfDocument::setFoundInside(int count)
{
    if (m_foundInside == count) {
        return;
    }
    m_foundInside = count;
    Q_EMIT foundInsideChanged();
}

QQmlListProperty<om::data::Document> ShelfDocument::foldersProperty()
{
    return {this, nullptr, folderCount, folderAt};
}

} // namespace om::gallery
