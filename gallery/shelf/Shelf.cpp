// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/shelf/Shelf.h"

#include "gallery/FolderDocument.h"
#include "gallery/shelf/ShelfRules.h"

#include <QDir>
#include <QFileInfo>

namespace om::gallery {

namespace {

// Rows of a tree are all built anew when its folders change: not with every part that is read.
constexpr int treeDelayWhileReading = 250; // ms

QString countOf(int count, const QString &name)
{
    return count == 1 ? QStringLiteral("“%1”").arg(name) : QStringLiteral("%1 items").arg(count);
}

} // namespace

Shelf::Shelf(QObject *parent)
    : QObject(parent)
    , m_thumbnails(std::make_shared<ShelfThumbnails::Store>())
    , m_documents(std::make_unique<QObject>())
{
    m_treeTimer.setSingleShot(true);
    connect(&m_treeTimer, &QTimer::timeout, this, &Shelf::updateTree);
    connect(&m_history, &ShelfHistory::changed, this, &Shelf::stateChanged);
    connect(&m_jobs, &ShelfJobs::changed, this, &Shelf::stateChanged);
}

Shelf::~Shelf() = default;

QUrl Shelf::address() const
{
    return m_root ? FolderDocument::urlOf(m_root->origin()) : QUrl();
}

void Shelf::open(const QUrl &folder)
{
    const QString path = QFileInfo(FolderDocument::pathOf(folder)).canonicalFilePath();
    if (path.isEmpty() || (m_root && m_root->origin() == path) || m_saving) {
        return;
    }
    m_jobs.cancelAll();

    m_history.clear();
    m_model.setFound({});
    m_model.setDocuments({});
    m_search.clear();
    m_folders.clear();
    m_known.clear();
    m_thumbnails->clear();
    const std::unique_ptr<QObject> before = std::move(m_documents);
    m_documents = std::make_unique<QObject>();
    m_cut = m_treeCut = m_halfSaved = false;
    m_opening = true;
    m_unreadable = 0;
    m_count = 0;

    const QFileInfo file(path);
    ShelfEntry entry;
    entry.path = path;
    entry.name = file.fileName().isEmpty() ? path : file.fileName();
    entry.type = QStringLiteral("folder");
    entry.folder = true;
    entry.readable = FolderDocument::canBeRead(file);
    m_root = new ShelfDocument(entry, m_documents.get());
    m_folder = m_root;
    m_folders.insert(path, m_root);

    QString problem;
    m_notes = ShelfNotes::read(path, &problem);
    const auto cancelled = m_jobs.cancelled();
    m_jobs.run<bool>(
        [this, path, notes = m_notes, cancelled] {
            return ShelfReader::readFolder(path, notes, *cancelled,
                                           [this, cancelled](const ShelfBatch &batch) {
                                               QMetaObject::invokeMethod(
                                                   this,
                                                   [this, cancelled, batch] {
                                                       if (!*cancelled) {
                                                           append(batch);
                                                       }
                                                   },
                                                   Qt::QueuedConnection);
                                           });
        },
        [this](bool cut) {
            m_cut = cut;
            m_opening = false;
            m_folders.clear();
            updateTree();
            updateFound();
            Q_EMIT countChanged();
        });
    Q_EMIT rootChanged();
    Q_EMIT folderChanged();
    Q_EMIT countChanged();
    Q_EMIT foundChanged();
    if (!problem.isEmpty()) {
        say(problem);
    }
}

void Shelf::append(const ShelfBatch &batch)
{
    ShelfDocument *const folder = m_folders.value(batch.folder);
    QList<om::data::Document *> children = folder->childDocuments();
    for (const ShelfEntry &entry : batch.entries) {
        auto *const document = new ShelfDocument(entry, m_documents.get());
        children.append(document);
        m_known.append(document);
        m_unreadable += entry.readable ? 0 : 1;
        if (entry.folder) {
            m_folders.insert(entry.path, document);
            if (!m_treeTimer.isActive()) {
                m_treeTimer.start(treeDelayWhileReading);
            }
        }
    }
    m_count += batch.entries.size();
    folder->setChildDocuments(children);
    if (folder == m_folder) {
        showFolder();
    }
    Q_EMIT countChanged();
}

void Shelf::setFolder(om::data::Document *folder)
{
    if (folder == m_folder || !isOwn(folder) || !static_cast<ShelfDocument *>(folder)->isFolder()) {
        return;
    }
    m_folder = static_cast<ShelfDocument *>(folder);
    m_model.clearSelection();
    showFolder();
    Q_EMIT folderChanged();
}

void Shelf::openParent()
{
    if (m_folder && m_folder != m_root) {
        ShelfDocument *const before = m_folder;
        setFolder(before->parentFolder());
        m_model.select({before});
    }
}

void Shelf::showFolder()
{
    m_model.setDocuments(m_folder ? m_folder->entries() : QList<ShelfDocument *>());
}

bool Shelf::isOwn(const om::data::Document *document) const
{
    const auto *const own = qobject_cast<const ShelfDocument *>(document);
    return own && m_root && m_root->holds(own);
}

QList<ShelfDocument *> Shelf::own(const QVariantList &documents) const
{
    QList<ShelfDocument *> list;
    for (const QVariant &document : documents) {
        auto *const own = qobject_cast<ShelfDocument *>(document.value<QObject *>());
        if (own != m_root && isOwn(own)) {
            list.append(own);
        }
    }
    return list;
}

QString Shelf::nameProblem(om::data::Document *document, const QString &name) const
{
    return ShelfRules::nameProblem(document, name);
}

bool Shelf::rename(om::data::Document *document, const QString &name)
{
    if (m_saving || !isOwn(document) || document == m_root) {
        return false;
    }
    const QString before = document->name();
    if (name == before) {
        return true;
    }
    const QString problem = nameProblem(document, name);
    if (!problem.isEmpty()) {
        say(problem);
        return false;
    }
    m_history.run(
        QStringLiteral("rename “%1”").arg(before), [document, name] { document->setName(name); },
        [document, before] { document->setName(before); });
    return true;
}

QString Shelf::busyProblem() const
{
    // What can be undone remembers lists of documents as they were; while the lists still grow it
    // would take away what has come since.
    return m_opening ? QStringLiteral("The folder is still being read")
        : m_saving   ? QStringLiteral("It is being saved")
                     : QString();
}

QString Shelf::moveProblem(const QVariantList &documents, om::data::Document *folder) const
{
    const auto *const target = qobject_cast<const ShelfDocument *>(folder);
    if (!isOwn(target) || !target->isFolder()) {
        return QStringLiteral("Nothing can be put there");
    }
    return ShelfRules::moveProblem(own(documents), target);
}

bool Shelf::move(const QVariantList &documents, om::data::Document *folder, int index)
{
    const QString busy = busyProblem();
    const QString problem = busy.isEmpty() ? moveProblem(documents, folder) : busy;
    if (!problem.isEmpty()) {
        say(problem);
        return false;
    }
    const QList<ShelfDocument *> moved = own(documents);
    auto *const target = static_cast<ShelfDocument *>(folder);
    const ShelfLists lists = ShelfLists::moving(moved, target, index);
    if (!lists.isEmpty()) {
        changeLists(QStringLiteral("move %1").arg(countOf(moved.size(), moved.first()->name())),
                    lists, moved);
    }
    return true;
}

void Shelf::remove(const QVariantList &documents)
{
    const QList<ShelfDocument *> removed = own(documents);
    const QString busy = busyProblem();
    if (!busy.isEmpty()) {
        say(busy);
        return;
    }
    if (removed.isEmpty()) {
        return;
    }
    changeLists(QStringLiteral("delete %1").arg(countOf(removed.size(), removed.first()->name())),
                ShelfLists::removing(removed), removed);
}

void Shelf::setLabel(const QVariantList &documents, const QColor &color)
{
    const QList<ShelfDocument *> labelled = own(documents);
    if (m_saving || labelled.isEmpty()) {
        return;
    }
    const QColor label = color.alpha() == 0 ? QColor() : color;
    QVector<QColor> before;
    for (const ShelfDocument *document : labelled) {
        before.append(document->label());
    }
    m_history.run(
        QStringLiteral("label %1").arg(countOf(labelled.size(), labelled.first()->name())),
        [labelled, label] {
            for (ShelfDocument *document : labelled) {
                document->setLabel(label);
            }
        },
        [labelled, before] {
            for (int i = 0; i < labelled.size(); ++i) {
                labelled.at(i)->setLabel(before.at(i));
            }
        });
}

void Shelf::makeFolder()
{
    const QString busy = busyProblem();
    if (!m_folder || !busy.isEmpty()) {
        say(busy);
        return;
    }
    ShelfCopy copy;
    copy.entry.name = QStringLiteral("New folder");
    copy.entry.type = QStringLiteral("folder");
    copy.entry.folder = true;
    copy.entry.path = FolderDocument::pathOf(m_folder->url()) + QLatin1Char('/') + copy.entry.name;
    addCopies({copy}, m_folder, m_folder->childDocuments().value(0));
}

void Shelf::add(const QList<QUrl> &urls, om::data::Document *folder, int index)
{
    auto *const target = qobject_cast<ShelfDocument *>(folder);
    if (m_saving || !isOwn(target) || !target->isFolder() || target->isLink()
        || !target->isReadable()) {
        say(QStringLiteral("Nothing can be put there"));
        return;
    }
    QStringList paths;
    for (const QUrl &url : urls) {
        if (url.isLocalFile()) {
            paths.append(QDir::cleanPath(url.toLocalFile()));
        } else {
            say(QStringLiteral("“%1” was not taken: it is no file of this computer")
                    .arg(url.toDisplayString()));
        }
    }
    if (paths.isEmpty()) {
        return;
    }
    om::data::Document *const before = target->childDocuments().value(index);
    using Taken = QPair<QVector<ShelfCopy>, QStringList>;
    const auto cancelled = m_jobs.cancelled();
    m_jobs.run<Taken>(
        [paths, cancelled] {
            Taken taken;
            taken.first = ShelfReader::readCopies(paths, *cancelled, &taken.second);
            return taken;
        },
        [this, target, before](const Taken &taken) {
            addCopies(taken.first, target, before);
            if (!taken.second.isEmpty()) {
                say(taken.second.size() == 1 ? taken.second.first()
                                             : QStringLiteral("%1, and %2 more")
                                                   .arg(taken.second.first())
                                                   .arg(taken.second.size() - 1));
            }
        });
}

ShelfDocument *Shelf::documentFor(const ShelfCopy &copy)
{
    const QString id = QStringLiteral("added %1").arg(++m_madeIds);
    auto *const document = new ShelfDocument(id, copy.entry, copy.content, m_documents.get());
    if (!copy.entry.folder) {
        m_thumbnails->setContent(id, copy.content);
    }
    QList<om::data::Document *> children;
    for (const ShelfCopy &inside : copy.inside) {
        children.append(documentFor(inside));
    }
    document->setChildDocuments(children);
    return document;
}

void Shelf::addCopies(const QVector<ShelfCopy> &copies, ShelfDocument *folder,
                      om::data::Document *before)
{
    if (copies.isEmpty() || m_saving || !isOwn(folder)) {
        return;
    }
    QStringList names;
    for (const ShelfCopy &copy : copies) {
        names.append(copy.entry.name);
    }
    names = ShelfRules::freeNames(folder, names);
    QList<ShelfDocument *> added;
    for (ShelfCopy copy : copies) {
        copy.entry.name = names.at(added.size());
        added.append(documentFor(copy));
    }
    const int place = before ? folder->childDocuments().indexOf(before) : -1;
    changeLists(QStringLiteral("add %1").arg(countOf(added.size(), added.first()->name())),
                ShelfLists::moving(added, folder, place), added);
}

void Shelf::changeLists(const QString &text, const ShelfLists &after,
                        const QList<ShelfDocument *> &touched)
{
    const auto change = [this, touched](const ShelfLists &lists) {
        lists.apply();
        structureChanged();
        m_model.select(touched);
    };
    m_history.run(
        text, [change, after] { change(after); },
        [change, before = after.undoing()] { change(before); });
}

void Shelf::structureChanged()
{
    // A folder that has left the shelf cannot stay open.
    const bool gone = !m_root->holds(m_folder);
    m_folder = gone ? m_root : m_folder;
    showFolder();
    m_count = m_root->allInside().size();
    updateTree();
    updateFound();
    if (gone) {
        Q_EMIT folderChanged();
    }
    Q_EMIT countChanged();
}

void Shelf::updateTree()
{
    m_treeTimer.stop();
    if (m_root) {
        m_treeCut = m_root->showFolders(mostTreeRows);
    }
}

void Shelf::find(const QString &text)
{
    if (m_search.text() == text) {
        return;
    }
    m_search.setText(text);
    updateFound();
}

void Shelf::updateFound()
{
    m_search.run(m_root);
    m_model.setFound(m_search.found());
    Q_EMIT foundChanged();
}

void Shelf::showNextFound(bool backwards)
{
    ShelfDocument *const document =
        m_search.next(static_cast<ShelfDocument *>(m_model.currentDocument()), backwards);
    if (document) {
        setFolder(document->parentFolder());
        m_model.select({document});
    }
}

ShelfPlan Shelf::planned() const
{
    return m_root ? ShelfPlan::of(m_root, m_known, m_notes) : ShelfPlan();
}

QStringList Shelf::plan() const
{
    return planned().texts();
}

void Shelf::save()
{
    if (m_saving || !m_root || isReading()) {
        return;
    }
    const ShelfPlan plan = planned();
    m_saving = true;
    m_jobs.run<ShelfPlan::Outcome>(
        [plan] { return plan.run(); },
        [this, plan](const ShelfPlan::Outcome &outcome) { finishSave(plan, outcome); });
}

void Shelf::finishSave(const ShelfPlan &plan, const ShelfPlan::Outcome &outcome)
{
    m_saving = false;
    m_halfSaved = !outcome.problems.isEmpty();
    m_notes = plan.notes();
    outcome.settle(m_root);
    m_known.clear();
    const QVector<ShelfDocument *> documents = m_root->allInside();
    for (ShelfDocument *document : documents) {
        if (!document->isAdded()) {
            m_known.append(document);
        }
    }
    // What was done cannot be taken back any more.
    m_history.clear();
    say(outcome.problems.isEmpty() ? QStringLiteral("Saved")
                                   : QStringLiteral("Not all could be saved: ")
                + outcome.problems.join(QStringLiteral("; ")));
}

QString Shelf::pictureSource(om::data::Document *document, bool whole) const
{
    const auto *const own = qobject_cast<const ShelfDocument *>(document);
    if (!own || !own->hasType(QStringLiteral("image"))) {
        return {};
    }
    return ShelfThumbnails::sourceFor(own->documentId(), own->origin(), whole);
}

QString Shelf::pictureProblem(om::data::Document *document) const
{
    return document ? m_thumbnails->problemOf(document->documentId()) : QString();
}

QString Shelf::sizeText(qint64 bytes) const
{
    return ShelfPlan::sizeText(bytes);
}

void Shelf::say(const QString &message)
{
    m_message = message;
    Q_EMIT said(message);
}

} // namespace om::gallery
