// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/shelf/ShelfPlan.h"

#include "gallery/FolderDocument.h"
#include "gallery/shelf/ShelfDocument.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>

namespace om::gallery {

namespace {

QString quoted(const QString &name)
{
    return QStringLiteral("“%1”").arg(name);
}

int depthOf(const QString &path)
{
    return path.count(QLatin1Char('/'));
}

bool isNaturalOrder(const QList<ShelfDocument *> &entries)
{
    return std::is_sorted(entries.begin(), entries.end(), [](ShelfDocument *a, ShelfDocument *b) {
        return FolderDocument::comesBefore(a->name(), a->isFolder(), b->name(), b->isFolder());
    });
}

} // namespace

/// Walks over a shelf and notes where it differs from the disk.
class ShelfPlan::Maker
{
public:
    explicit Maker(ShelfPlan *plan)
        : m_plan(plan)
    {
    }

    void walk(const ShelfDocument *folder, const QString &path)
    {
        const QList<ShelfDocument *> entries = folder->entries();
        if (!isNaturalOrder(entries)) {
            QStringList names;
            for (const ShelfDocument *entry : entries) {
                names.append(entry->name());
            }
            m_plan->m_notes.orders.insert(relative(path), names);
        }
        for (const ShelfDocument *entry : entries) {
            const QString to = path + QLatin1Char('/') + entry->name();
            if (entry->label().isValid()) {
                m_plan->m_notes.labels.insert(relative(to), entry->label());
            }
            place(folder, entry, to);
            if (entry->isFolder()) {
                walk(entry, to);
            }
        }
    }

    void remove(const ShelfDocument *document)
    {
        Step step;
        step.kind = Delete;
        step.from = document->origin();
        step.folder = document->isFolder() && !document->isLink();
        const ShelfDocument *const folder = document->parentFolder();
        const bool spokenOf = folder && !folder->isAdded()
            && folder->origin() == QFileInfo(document->origin()).path();
        if (!spokenOf) {
            step.text = step.folder
                ? QStringLiteral("Delete the folder %1 with all that the shelf showed in it")
                      .arg(shown(document->origin()))
                : QStringLiteral("Delete %1").arg(shown(document->origin()));
        }
        m_plan->m_steps.append(step);
    }

private:
    QString relative(const QString &path) const { return path.mid(m_plan->m_root.size() + 1); }
    QString shown(const QString &path) const { return quoted(relative(path)); }

    void place(const ShelfDocument *folder, const ShelfDocument *entry, const QString &to)
    {
        Step step;
        step.to = to;
        step.folder = entry->isFolder() && !entry->isLink();
        if (entry->isAdded()) {
            step.kind = step.folder ? MakeFolder : Write;
            step.content = entry->content();
            step.text = step.folder
                ? QStringLiteral("Make the folder %1").arg(shown(to))
                : QStringLiteral("Write %1, %2").arg(shown(to), sizeText(step.content.size()));
            m_plan->m_steps.append(step);
            return;
        }
        const QFileInfo now(entry->origin());
        if (now.fileName() == entry->name() && !folder->isAdded()
            && now.path() == folder->origin()) {
            return;
        }
        step.kind = Move;
        step.from = entry->origin();
        step.text = now.path() == folder->origin()
            ? QStringLiteral("Rename %1 to %2").arg(shown(step.from), quoted(entry->name()))
            : QStringLiteral("Move %1 to %2").arg(shown(step.from), shown(to));
        m_plan->m_steps.append(step);
    }

    ShelfPlan *const m_plan;
};

/// Carries a plan out in an order in which every path holds when its turn comes: first what goes
/// away from its place, the deepest first, for a folder that goes takes along what is in it; then
/// what arrives, the topmost first. What moves waits in between under a name of its own, so that
/// two files can exchange their names.
class ShelfPlan::Runner
{
public:
    explicit Runner(const ShelfPlan &plan)
        : m_plan(plan)
    {
    }

    Outcome run()
    {
        QVector<const Step *> leaving;
        QVector<const Step *> arriving;
        for (const Step &step : m_plan.m_steps) {
            if (step.kind == Move || step.kind == Delete) {
                leaving.append(&step);
            }
            if (step.kind != Delete) {
                arriving.append(&step);
            }
        }
        std::stable_sort(leaving.begin(), leaving.end(), [](const Step *a, const Step *b) {
            return depthOf(a->from) > depthOf(b->from);
        });
        std::stable_sort(arriving.begin(), arriving.end(), [](const Step *a, const Step *b) {
            return depthOf(a->to) < depthOf(b->to);
        });
        for (const Step *step : qAsConst(leaving)) {
            leave(*step);
        }
        for (const Step *step : qAsConst(arriving)) {
            arrive(*step);
        }
        return m_outcome;
    }

private:
    void leave(const Step &step)
    {
        const QString name = quoted(QFileInfo(step.from).fileName());
        if (step.kind == Move) {
            const QString waiting = freeName();
            if (QFile::rename(step.from, waiting)) {
                m_waiting.insert(step.from, waiting);
            } else {
                m_outcome.places.insert(step.to, step.from);
                m_outcome.problems.append(QStringLiteral("%1 could not be moved").arg(name));
            }
            return;
        }
        const bool gone = step.folder ? QDir().rmdir(step.from) : QFile::remove(step.from);
        if (!gone && QFileInfo::exists(step.from)) {
            m_outcome.problems.append(
                step.folder
                    ? QStringLiteral("%1 holds more than the shelf showed, and stays").arg(name)
                    : QStringLiteral("%1 could not be deleted").arg(name));
        }
    }

    void arrive(const Step &step)
    {
        const QString name = quoted(QFileInfo(step.to).fileName());
        switch (step.kind) {
        case Write:
            m_outcome.places.insert(step.to, write(step) ? step.to : QString());
            break;
        case MakeFolder:
            if (QDir().mkdir(step.to)) {
                m_outcome.places.insert(step.to, step.to);
            } else {
                m_outcome.places.insert(step.to, QString());
                m_outcome.problems.append(
                    QStringLiteral("The folder %1 could not be made").arg(name));
            }
            break;
        case Move:
            moveIn(step);
            break;
        case WriteNotes: {
            QSaveFile file(step.to);
            if (!file.open(QFile::WriteOnly) || file.write(step.content) != step.content.size()
                || !file.commit()) {
                m_outcome.problems.append(QStringLiteral("Labels and order could not be written"));
            }
            break;
        }
        case Delete:
            break;
        }
    }

    void moveIn(const Step &step)
    {
        const QString waiting = m_waiting.value(step.from);
        if (waiting.isEmpty()) {
            return;
        }
        const QString name = quoted(QFileInfo(step.to).fileName());
        if (!isTaken(step.to) && QFile::rename(waiting, step.to)) {
            m_outcome.places.insert(step.to, step.to);
            return;
        }
        const bool back = !isTaken(step.from) && QFile::rename(waiting, step.from);
        const QString place = back ? step.from : waiting;
        m_outcome.places.insert(step.to, place);
        m_outcome.problems.append(
            QStringLiteral("%1 could not be put into place; it is %2").arg(name, place));
    }

    bool write(const Step &step)
    {
        QFile file(step.to);
        const bool made = file.open(QFile::WriteOnly | QFile::NewOnly);
        if (made && file.write(step.content) == step.content.size() && file.flush()) {
            return true;
        }
        if (made) {
            file.remove();
        }
        m_outcome.problems.append(QStringLiteral("%1 could not be written: %2")
                                      .arg(quoted(QFileInfo(step.to).fileName()),
                                           isTaken(step.to)
                                               ? QStringLiteral("there is another one by now")
                                               : file.errorString()));
        return false;
    }

    // A link whose target is gone does not exist, and takes the name all the same.
    static bool isTaken(const QString &path)
    {
        const QFileInfo file(path);
        return file.exists() || file.isSymLink();
    }

    QString freeName()
    {
        QString path;
        do {
            path = QStringLiteral("%1/.shelf-moving-%2").arg(m_plan.m_root).arg(++m_counter);
        } while (isTaken(path));
        return path;
    }

    const ShelfPlan &m_plan;
    Outcome m_outcome;
    QHash<QString, QString> m_waiting;
    int m_counter = 0;
};

QString ShelfPlan::sizeText(qint64 bytes)
{
    if (bytes < 1024) {
        return QStringLiteral("%1 bytes").arg(bytes);
    }
    return bytes < 1024 * 1024 ? QStringLiteral("%1 kB").arg(bytes / 1024)
                               : QStringLiteral("%1 MB").arg(bytes / 1024 / 1024);
}

ShelfPlan ShelfPlan::of(const ShelfDocument *root, const QVector<ShelfDocument *> &known,
                        const ShelfNotes &notes)
{
    ShelfPlan plan;
    plan.m_root = root->origin();
    Maker maker(&plan);
    maker.walk(root, plan.m_root);
    for (const ShelfDocument *document : known) {
        if (!root->holds(document)) {
            maker.remove(document);
        }
    }
    if (plan.m_notes.labels != notes.labels || plan.m_notes.orders != notes.orders) {
        Step step;
        step.kind = WriteNotes;
        step.to = ShelfNotes::fileIn(plan.m_root);
        step.content = plan.m_notes.toJson();
        step.text = QStringLiteral("Write labels and order to “.shelf.json”");
        plan.m_steps.append(step);
    }
    return plan;
}

QStringList ShelfPlan::texts() const
{
    QStringList texts;
    for (const Step &step : m_steps) {
        if (!step.text.isEmpty()) {
            texts.append(step.text);
        }
    }
    return texts;
}

ShelfPlan::Outcome ShelfPlan::run() const
{
    return Runner(*this).run();
}

void ShelfPlan::Outcome::settle(ShelfDocument *root) const
{
    settle(root, root->origin());
}

// `target` is where the folder was to be.
void ShelfPlan::Outcome::settle(ShelfDocument *folder, const QString &target) const
{
    const QList<ShelfDocument *> entries = folder->entries();
    for (ShelfDocument *entry : entries) {
        const QString to = target + QLatin1Char('/') + entry->name();
        const QString beside = folder->origin() + QLatin1Char('/') + entry->name();
        entry->setOrigin(places.value(to, beside));
        if (entry->isFolder()) {
            settle(entry, to);
        }
    }
}

} // namespace om::gallery
