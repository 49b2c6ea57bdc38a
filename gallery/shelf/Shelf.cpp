// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/shelf/Shelf.h"

#include "gallery/FolderDocument.h"

#include <QDir>
#include <QFileInfo>
#include <QRunnable>

#include <algorithm>

namespace om::gallery {

namespace {

// Rows of a tree are all built anew when its folders change: not with every part that is read.
constexpr int treeDelayWhileReading = 250; // ms

class Job : public QRunnable
{
public:
    explicit Job(std::function<void()> work)
        : m_work(std::move(work))
    {
    }
    void run() override { m_work(); }

private:
    const std::function<void()> m_work;
};

QString countOf(int count, const QString &name)
{
    return count == 1 ? QStringLiteral("“%1”").arg(name) : QStringLiteral("%1 items").arg(count);
}

QList<om::data::Document *> documentsOf(const QList<ShelfDocument *> &documents)
{
    QList<om::data::Document *> list;
    list.reserve(documents.size());
    for (ShelfDocument *document : documents) {
        list.append(document);
    }
    return list;
}

} // namespace

Shelf::Shelf(QObject *parent)
    : QObject(parent)
    , m_thumbnails(std::make_shared<ShelfThumbnails::Store>())
    , m_documents(std::make_unique<QObject>())
    , m_cancelled(std::make_shared<std::atomic_bool>(false))
{
    m_threads.setMaxThreadCount(1);
    m_treeTimer.setSingleShot(true);
    connect(&m_treeTimer, &QTimer::timeout, this, &Shelf::updateTree);
    connect(&m_history, &ShelfHistory::changed, this, &Shelf::stateChanged);
}

Shelf::~Shelf()
{
    *m_cancelled = true;
    m_threads.waitForDone();
}

template<typename Result>
void Shelf::inBackground(std::function<Result()> work, std::function<void(const Result &)> done)
{
    ++m_jobs;
    Q_EMIT stateChanged();
    const auto cancelled = m_cancelled;
    m_threads.start(new Job([this, cancelled, work = std::move(work), done = std::move(done)] {
        const Result result = work();
        // The shelf waits for its threads before it goes.
        QMetaObject::invokeMethod(
            this,
            [this, cancelled, done, result] {
                if (*cancelled) {
                    return;
                }
                --m_jobs;
                done(result);
                Q_EMIT stateChanged();
            },
            Qt::QueuedConnection);
    }));
}

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
    *m_cancelled = true;
    m_threads.waitForDone();
    m_cancelled = std::make_shared<std::atomic_bool>(false);
    m_jobs = 0;

    m_history.clear();
    m_model.setFound({});
    m_model.setDocuments({});
    m_found.clear();
    m_foundFolders.clear();
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
    const auto cancelled = m_cancelled;
    inBackground<bool>(
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
    if (name.isEmpty()) {
        return QStringLiteral("A name is needed");
    }
    if (name == QLatin1String(".") || name == QLatin1String("..")) {
        return QStringLiteral("This name means a folder to every program");
    }
    if (name.contains(QLatin1Char('/')) || name.contains(QChar::Null)) {
        return QStringLiteral("A name has no “/”");
    }
    if (name.toUtf8().size() > 255) {
        return QStringLiteral("This name is too long for a disk");
    }
    const om::data::Document *const folder = document ? document->parentDocument() : nullptr;
    const QList<om::data::Document *> others =
        folder ? folder->childDocuments() : QList<om::data::Document *>();
    for (const om::data::Document *other : others) {
        if (other != document && other->name() == name) {
            return QStringLiteral("“%1” is there already").arg(name);
        }
    }
    return {};
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
    if (target->isLink()) {
        return QStringLiteral("“%1” is a link to a folder elsewhere").arg(target->name());
    }
    if (!target->isReadable()) {
        return QStringLiteral("“%1” cannot be read").arg(target->name());
    }
    QSet<QString> names;
    const QList<ShelfDocument *> entries = target->entries();
    const QList<ShelfDocument *> moved = own(documents);
    if (moved.isEmpty()) {
        return QStringLiteral("There is nothing to move");
    }
    for (const ShelfDocument *entry : entries) {
        names.insert(entry->name());
    }
    for (const ShelfDocument *document : moved) {
        if (document->holds(target)) {
            return QStringLiteral("“%1” cannot be put into itself").arg(document->name());
        }
        if (document->parentFolder() == target) {
            continue;
        }
        if (names.contains(document->name())) {
            return QStringLiteral("“%1” is in “%2” already").arg(document->name(), target->name());
        }
        names.insert(document->name());
    }
    return {};
}

bool Shelf::move(const QVariantList &documents, om::data::Document *folder, int index)
{
    const QString busy = busyProblem();
    const QString problem = busy.isEmpty() ? moveProblem(documents, folder) : busy;
    if (!problem.isEmpty()) {
        say(problem);
        return false;
    }
    auto *const target = static_cast<ShelfDocument *>(folder);
    const QList<ShelfDocument *> moved = own(documents);
    QSet<om::data::Document *> movedSet;
    QList<ShelfDocument *> sources;
    for (ShelfDocument *document : moved) {
        movedSet.insert(document);
        if (document->parentFolder() != target && !sources.contains(document->parentFolder())) {
            sources.append(document->parentFolder());
        }
    }

    const QList<om::data::Document *> before = target->childDocuments();
    const int place = index < 0 ? before.size() : qMin(index, before.size());
    QList<om::data::Document *> after;
    for (int i = 0; i < place; ++i) {
        if (!movedSet.contains(before.at(i))) {
            after.append(before.at(i));
        }
    }
    after += documentsOf(moved);
    for (int i = place; i < before.size(); ++i) {
        if (!movedSet.contains(before.at(i))) {
            after.append(before.at(i));
        }
    }
    if (sources.isEmpty() && after == before) {
        return true;
    }

    Lists lists;
    for (ShelfDocument *source : qAsConst(sources)) {
        QList<om::data::Document *> left;
        const QList<om::data::Document *> children = source->childDocuments();
        for (om::data::Document *child : children) {
            if (!movedSet.contains(child)) {
                left.append(child);
            }
        }
        lists.append({source, left});
    }
    lists.append({target, after});
    changeLists(QStringLiteral("move %1").arg(countOf(moved.size(), moved.first()->name())), lists,
                moved);
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
    QSet<om::data::Document *> removedSet;
    QList<ShelfDocument *> sources;
    for (ShelfDocument *document : removed) {
        removedSet.insert(document);
        if (!sources.contains(document->parentFolder())) {
            sources.append(document->parentFolder());
        }
    }
    Lists lists;
    for (ShelfDocument *source : qAsConst(sources)) {
        QList<om::data::Document *> left;
        const QList<om::data::Document *> children = source->childDocuments();
        for (om::data::Document *child : children) {
            if (!removedSet.contains(child)) {
                left.append(child);
            }
        }
        lists.append({source, left});
    }
    changeLists(QStringLiteral("delete %1").arg(countOf(removed.size(), removed.first()->name())),
                lists, removed);
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

QString Shelf::freeName(const ShelfDocument *folder, const QString &name) const
{
    QSet<QString> names;
    const QList<ShelfDocument *> entries = folder->entries();
    for (const ShelfDocument *entry : entries) {
        names.insert(entry->name());
    }
    const int dot = name.lastIndexOf(QLatin1Char('.'));
    const QString stem = dot > 0 ? name.left(dot) : name;
    const QString suffix = dot > 0 ? name.mid(dot) : QString();
    QString free = name;
    for (int i = 2; names.contains(free); ++i) {
        free = QStringLiteral("%1 %2%3").arg(stem).arg(i).arg(suffix);
    }
    return free;
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
    const auto cancelled = m_cancelled;
    inBackground<Taken>(
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
    const QList<om::data::Document *> children = folder->childDocuments();
    const int found = before ? children.indexOf(before) : -1;
    const int place = found < 0 ? children.size() : found;
    QList<om::data::Document *> after = children.mid(0, place);
    QList<ShelfDocument *> added;
    for (ShelfCopy copy : copies) {
        copy.entry.name = freeName(folder, copy.entry.name);
        for (const ShelfDocument *other : qAsConst(added)) {
            // Two of one name in one drop, from two folders.
            if (other->name() == copy.entry.name) {
                copy.entry.name =
                    QStringLiteral("%1 of %2").arg(added.size() + 1).arg(copy.entry.name);
                break;
            }
        }
        added.append(documentFor(copy));
    }
    after += documentsOf(added) + children.mid(place);
    changeLists(QStringLiteral("add %1").arg(countOf(added.size(), added.first()->name())),
                {{folder, after}}, added);
}

void Shelf::changeLists(const QString &text, const Lists &after,
                        const QList<ShelfDocument *> &touched)
{
    Lists before;
    for (const auto &list : after) {
        before.append({list.first, list.first->childDocuments()});
    }
    // The folder that loses documents has to be set before the one that gains them, or each of them
    // would be searched for in the list that it leaves.
    std::reverse(before.begin(), before.end());
    m_history.run(
        text,
        [this, after, touched] {
            applyLists(after);
            m_model.select(touched);
        },
        [this, before, touched] {
            applyLists(before);
            m_model.select(touched);
        });
}

void Shelf::applyLists(const Lists &lists)
{
    for (const auto &list : lists) {
        list.first->setChildDocuments(list.second);
    }
    structureChanged();
}

void Shelf::structureChanged()
{
    // A folder that has left the shelf cannot stay open.
    ShelfDocument *open = m_folder;
    if (!m_root->holds(open)) {
        open = m_root;
    }
    const bool moved = open != m_folder;
    m_folder = open;
    showFolder();
    m_count = all().size();
    updateTree();
    updateFound();
    if (moved) {
        Q_EMIT folderChanged();
    }
    Q_EMIT countChanged();
}

QVector<ShelfDocument *> Shelf::all() const
{
    QVector<ShelfDocument *> documents;
    QVector<ShelfDocument *> waiting;
    if (m_root) {
        waiting.append(m_root);
    }
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

void Shelf::updateTree()
{
    m_treeTimer.stop();
    if (!m_root) {
        return;
    }
    m_treeCut = false;
    int rows = 1;
    QVector<ShelfDocument *> waiting{m_root};
    for (int i = 0; i < waiting.size(); ++i) {
        QList<om::data::Document *> folders;
        const QList<ShelfDocument *> entries = waiting.at(i)->entries();
        for (ShelfDocument *entry : entries) {
            if (!entry->isFolder()) {
                continue;
            }
            if (++rows > mostTreeRows) {
                m_treeCut = true;
                break;
            }
            folders.append(entry);
            waiting.append(entry);
        }
        waiting.at(i)->setTreeFolders(folders);
    }
}

void Shelf::find(const QString &text)
{
    if (m_text == text) {
        return;
    }
    m_text = text;
    updateFound();
}

void Shelf::updateFound()
{
    const QVector<ShelfDocument *> before = m_foundFolders;
    m_foundFolders.clear();
    m_found.clear();
    QSet<const ShelfDocument *> found;
    QHash<ShelfDocument *, int> inside;
    if (!m_text.isEmpty()) {
        const QVector<ShelfDocument *> documents = all();
        for (ShelfDocument *document : documents) {
            if (document->name().contains(m_text, Qt::CaseInsensitive)) {
                m_found.append(document);
                found.insert(document);
                ++inside[document->parentFolder()];
            }
        }
    }
    m_model.setFound(found);
    for (ShelfDocument *folder : before) {
        folder->setFoundInside(inside.value(folder));
    }
    for (auto it = inside.begin(); it != inside.end(); ++it) {
        it.key()->setFoundInside(it.value());
        m_foundFolders.append(it.key());
    }
    Q_EMIT foundChanged();
}

void Shelf::showNextFound(bool backwards)
{
    if (m_found.isEmpty()) {
        return;
    }
    const int now = m_found.indexOf(static_cast<ShelfDocument *>(m_model.currentDocument()));
    const int last = m_found.size() - 1;
    int next = backwards ? now - 1 : now + 1;
    if (next < 0) {
        next = last;
    } else if (next > last) {
        next = 0;
    }
    ShelfDocument *const document = m_found.at(next);
    setFolder(document->parentFolder());
    m_model.select({document});
}

ShelfPlan Shelf::planned() const
{
    return m_root ? ShelfPlan::of(m_root, m_known, m_notes) : ShelfPlan();
}

QStringList Shelf::plan() const
{
    QStringList texts;
    const ShelfPlan plan = planned();
    for (const ShelfPlan::Step &step : plan.steps()) {
        if (!step.text.isEmpty()) {
            texts.append(step.text);
        }
    }
    return texts;
}

void Shelf::save()
{
    if (m_saving || !m_root || isReading()) {
        return;
    }
    const ShelfPlan plan = planned();
    m_saving = true;
    inBackground<ShelfPlan::Outcome>(
        [plan] { return plan.run(); },
        [this, plan](const ShelfPlan::Outcome &outcome) { finishSave(plan, outcome); });
}

void Shelf::finishSave(const ShelfPlan &plan, const ShelfPlan::Outcome &outcome)
{
    m_saving = false;
    m_halfSaved = !outcome.problems.isEmpty();
    m_notes = plan.notes();
    settle(m_root, m_root->origin(), outcome);
    m_known.clear();
    const QVector<ShelfDocument *> documents = all();
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

// Tells the documents where they are on disk now. `target` is where the folder was to be.
void Shelf::settle(ShelfDocument *folder, const QString &target, const ShelfPlan::Outcome &outcome)
{
    const QList<ShelfDocument *> entries = folder->entries();
    for (ShelfDocument *entry : entries) {
        const QString to = target + QLatin1Char('/') + entry->name();
        const QString beside = folder->origin() + QLatin1Char('/') + entry->name();
        entry->setOrigin(outcome.places.value(to, beside));
        if (entry->isFolder()) {
            settle(entry, to, outcome);
        }
    }
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
