// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "gallery/shelf/ShelfDocument.h"
#include "gallery/shelf/ShelfHistory.h"
#include "gallery/shelf/ShelfJobs.h"
#include "gallery/shelf/ShelfLists.h"
#include "gallery/shelf/ShelfModel.h"
#include "gallery/shelf/ShelfPlan.h"
#include "gallery/shelf/ShelfReader.h"
#include "gallery/shelf/ShelfSearch.h"
#include "gallery/shelf/ShelfThumbnails.h"

#include <QObject>
#include <QTimer>
#include <QVector>

#include <memory>

namespace om::gallery {

/// A folder to be put in order: its files and folders as documents that can be renamed, moved,
/// labelled, removed and added, all of it in memory, until it is saved.
///
/// Documents are read and written on another thread. While something is written nothing can be
/// changed. What takes a list of documents takes documents of this shelf.
class Shelf : public QObject
{
    Q_OBJECT
    /// Null before the first folder is opened.
    Q_PROPERTY(om::data::Document *root READ root NOTIFY rootChanged)
    /// The folder whose documents `model` has.
    Q_PROPERTY(om::data::Document *folder READ folder WRITE setFolder NOTIFY folderChanged)
    Q_PROPERTY(QUrl address READ address NOTIFY rootChanged)
    Q_PROPERTY(om::gallery::ShelfModel *model READ model CONSTANT)
    Q_PROPERTY(om::gallery::ShelfHistory *history READ history CONSTANT)
    Q_PROPERTY(bool reading READ isReading NOTIFY stateChanged)
    Q_PROPERTY(bool saving READ isSaving NOTIFY stateChanged)
    /// Whether anything has been done since the shelf was opened or saved.
    Q_PROPERTY(bool changed READ isChanged NOTIFY stateChanged)
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    /// How many of them cannot be read.
    Q_PROPERTY(int unreadable READ unreadable NOTIFY countChanged)
    /// Whether the folder has more than a shelf holds, and more folders than its tree shows.
    Q_PROPERTY(bool cut READ isCut NOTIFY countChanged)
    Q_PROPERTY(bool treeCut READ isTreeCut NOTIFY countChanged)
    Q_PROPERTY(int foundCount READ foundCount NOTIFY foundChanged)
    /// What was said last; empty again when there is no more reason to show it.
    Q_PROPERTY(QString message READ message NOTIFY said)

public:
    /// Rows of a tree cost what they show even while they are hidden, and are all made anew when
    /// folders come or go: it has no more of them than can be made without a stall.
    static constexpr int mostTreeRows = 120;

    explicit Shelf(QObject *parent = nullptr);
    ~Shelf() override;

    std::shared_ptr<ShelfThumbnails::Store> thumbnails() const { return m_thumbnails; }

    om::data::Document *root() const { return m_root; }
    om::data::Document *folder() const { return m_folder; }
    /// Documents that are no folder, or not on the shelf, are ignored.
    void setFolder(om::data::Document *folder);
    QUrl address() const;
    ShelfModel *model() { return &m_model; }
    ShelfHistory *history() { return &m_history; }
    /// Of the folder, or of what is being added.
    bool isReading() const { return m_jobs.count() > 0 && !m_saving; }
    bool isSaving() const { return m_saving; }
    bool isChanged() const { return m_history.canUndo() || m_halfSaved; }
    int count() const { return m_count; }
    int unreadable() const { return m_unreadable; }
    bool isCut() const { return m_cut; }
    bool isTreeCut() const { return m_treeCut; }
    int foundCount() const { return m_search.count(); }
    QString message() const { return m_message; }

    /// Opens a folder, and forgets the one before with all that was not saved. Opening the same
    /// folder again does nothing.
    Q_INVOKABLE void open(const QUrl &folder);

    /// Opens the folder that holds the open one and makes that one current there.
    Q_INVOKABLE void openParent();

    /// Why a document cannot have this name, as a sentence; empty when it can.
    Q_INVOKABLE QString nameProblem(om::data::Document *document, const QString &name) const;
    Q_INVOKABLE bool rename(om::data::Document *document, const QString &name);
    /// Why documents cannot be put into a folder; empty when they can.
    Q_INVOKABLE QString moveProblem(const QVariantList &documents,
                                    om::data::Document *folder) const;
    /// Puts documents before the one that is at `index` of the folder now; -1 is the end.
    Q_INVOKABLE bool move(const QVariantList &documents, om::data::Document *folder, int index);
    Q_INVOKABLE void remove(const QVariantList &documents);
    /// A transparent colour takes the label away.
    Q_INVOKABLE void setLabel(const QVariantList &documents, const QColor &color);
    Q_INVOKABLE void makeFolder();
    /// Copies files and folders from elsewhere into memory, and puts them into `folder` as move()
    /// does.
    Q_INVOKABLE void add(const QList<QUrl> &urls, om::data::Document *folder, int index);

    /// Marks what has `text` in its name, in all folders.
    Q_INVOKABLE void find(const QString &text);
    /// Opens the folder of the next document that was found after the current one, and selects it.
    Q_INVOKABLE void showNextFound(bool backwards = false);

    /// What save() would do, in sentences.
    Q_INVOKABLE QStringList plan() const;
    Q_INVOKABLE void save();

    /// The source of a small picture of a document, all of it or cut to fill its place; empty for
    /// what is no image.
    Q_INVOKABLE QString pictureSource(om::data::Document *document, bool whole) const;
    /// What is wrong with the picture that was made last, as the end of a sentence that begins with
    /// the name.
    Q_INVOKABLE QString pictureProblem(om::data::Document *document) const;
    Q_INVOKABLE QString sizeText(qint64 bytes) const;
    /// Tells the person something; with an empty text it takes back what was told.
    Q_INVOKABLE void say(const QString &message);

Q_SIGNALS:
    void rootChanged();
    void folderChanged();
    void stateChanged();
    void countChanged();
    void foundChanged();
    /// Something to tell the person: what could not be done or taken, or what has been done.
    void said(const QString &message);

private:
    void append(const ShelfBatch &batch);
    void addCopies(const QVector<ShelfCopy> &copies, ShelfDocument *folder,
                   om::data::Document *before);
    ShelfDocument *documentFor(const ShelfCopy &copy);
    QList<ShelfDocument *> own(const QVariantList &documents) const;
    bool isOwn(const om::data::Document *document) const;
    ShelfPlan planned() const;
    void finishSave(const ShelfPlan &plan, const ShelfPlan::Outcome &outcome);

    /// Why nothing can be changed now; empty when it can.
    QString busyProblem() const;
    /// Runs a change of child lists that can be undone: `after` holds what the lists become.
    void changeLists(const QString &text, const ShelfLists &after,
                     const QList<ShelfDocument *> &touched);
    void structureChanged();
    void showFolder();
    void updateTree();
    void updateFound();

    const std::shared_ptr<ShelfThumbnails::Store> m_thumbnails;
    ShelfModel m_model;
    ShelfHistory m_history;
    ShelfNotes m_notes;
    // Owns all documents, whatever list they are in: what is removed may come back.
    std::unique_ptr<QObject> m_documents;
    ShelfDocument *m_root = nullptr;
    ShelfDocument *m_folder = nullptr;
    QHash<QString, ShelfDocument *> m_folders; // while reading, by path
    QVector<ShelfDocument *> m_known; // what has been on disk
    ShelfSearch m_search;
    QString m_message;
    QTimer m_treeTimer;
    int m_count = 0;
    int m_unreadable = 0;
    int m_madeIds = 0;
    bool m_cut = false;
    bool m_treeCut = false;
    bool m_saving = false;
    bool m_halfSaved = false;
    bool m_opening = false;
    // The last member: its jobs use the others.
    ShelfJobs m_jobs;
};

} // namespace om::gallery
