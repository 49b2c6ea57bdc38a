// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/shelf/ShelfRules.h"

#include "gallery/shelf/ShelfDocument.h"

#include <QSet>

namespace om::gallery::ShelfRules {

namespace {

QSet<QString> namesIn(const ShelfDocument *folder)
{
    QSet<QString> names;
    const QList<ShelfDocument *> entries = folder->entries();
    for (const ShelfDocument *entry : entries) {
        names.insert(entry->name());
    }
    return names;
}

} // namespace

QString nameProblem(const om::data::Document *document, const QString &name)
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

QString moveProblem(const QList<ShelfDocument *> &documents, const ShelfDocument *folder)
{
    if (folder->isLink()) {
        return QStringLiteral("“%1” is a link to a folder elsewhere").arg(folder->name());
    }
    if (!folder->isReadable()) {
        return QStringLiteral("“%1” cannot be read").arg(folder->name());
    }
    if (documents.isEmpty()) {
        return QStringLiteral("There is nothing to move");
    }
    QSet<QString> names = namesIn(folder);
    for (const ShelfDocument *document : documents) {
        if (document->holds(folder)) {
            return QStringLiteral("“%1” cannot be put into itself").arg(document->name());
        }
        if (document->parentFolder() == folder) {
            continue;
        }
        if (names.contains(document->name())) {
            return QStringLiteral("“%1” is in “%2” already").arg(document->name(), folder->name());
        }
        names.insert(document->name());
    }
    return {};
}

QStringList freeNames(const ShelfDocument *folder, const QStringList &names)
{
    QSet<QString> taken = namesIn(folder);
    QStringList free;
    for (const QString &name : names) {
        const int dot = name.lastIndexOf(QLatin1Char('.'));
        const QString stem = dot > 0 ? name.left(dot) : name;
        const QString suffix = dot > 0 ? name.mid(dot) : QString();
        QString other = name;
        for (int i = 2; taken.contains(other); ++i) {
            other = QStringLiteral("%1 %2%3").arg(stem).arg(i).arg(suffix);
        }
        taken.insert(other);
        free.append(other);
    }
    return free;
}

} // namespace om::gallery::ShelfRules
