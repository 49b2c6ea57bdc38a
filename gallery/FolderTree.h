// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <OmbrelDataCore/Context.h>

#include <QFileSystemWatcher>
#include <QHash>
#include <QObject>
#include <QSet>
#include <QTimer>

#include <memory>

namespace om::gallery {

class FolderDocument;
class PictureProblems;

/// The folder that the gallery was opened on: its document, the context of all documents below it,
/// and the watch over those folders that have been read.
class FolderTree : public QObject
{
    Q_OBJECT
    /// The document of the folder itself.
    Q_PROPERTY(om::data::Document *folder READ folder NOTIFY folderChanged)
    /// The context of the folder and everything in it.
    Q_PROPERTY(om::data::Context *context READ context CONSTANT)

public:
    explicit FolderTree(const QString &path, QObject *parent = nullptr);
    ~FolderTree() override;

    om::data::Document *folder() const;
    om::data::Context *context();

    /// Whether `folder`, a path or a local URL, is a folder that can be read.
    Q_INVOKABLE bool canOpen(const QString &folder) const;
    /// Opens another folder; without a folder that can be read nothing happens. The documents of
    /// the one before are deleted with the next turn of the event loop.
    Q_INVOKABLE void open(const QString &folder);
    /// The names of the folders inside the one at `path`, hidden ones left out, in their order.
    Q_INVOKABLE QStringList foldersIn(const QString &path) const;

    /// The source that shows the picture in a file; empty for what is no file.
    Q_INVOKABLE QString pictureSource(const QUrl &file) const;
    /// What is wrong with the picture that was read last from a file, as the end of a sentence that
    /// begins with its name; empty when nothing is.
    Q_INVOKABLE QString pictureProblem(const QUrl &file) const;
    std::shared_ptr<PictureProblems> pictureProblems() const;

    /// From now on changes in the folder at `path` refresh `document`. Returns whether the folder
    /// was not watched before.
    bool watch(const QString &path, FolderDocument *document);
    void unwatch(const QString &path, FolderDocument *document);

Q_SIGNALS:
    void folderChanged();

private:
    std::unique_ptr<FolderDocument> documentOf(const QString &path);
    void refreshChanged();

    const std::shared_ptr<PictureProblems> m_problems;
    om::data::Context m_context;
    QFileSystemWatcher m_watcher;
    QHash<QString, FolderDocument *> m_watched;
    QSet<QString> m_changed;
    QTimer m_refresh;
    // The last member, for its documents take themselves out of the others.
    std::unique_ptr<FolderDocument> m_folder;
};

} // namespace om::gallery
