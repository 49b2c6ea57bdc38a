// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/shelf/ShelfNotes.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace om::gallery {

QString ShelfNotes::fileIn(const QString &folder)
{
    return folder + QStringLiteral("/.shelf.json");
}

ShelfNotes ShelfNotes::read(const QString &folder, QString *problem)
{
    ShelfNotes notes;
    QFile file(fileIn(folder));
    if (!file.exists()) {
        return notes;
    }
    if (!file.open(QFile::ReadOnly)) {
        *problem = QStringLiteral("Labels and order cannot be read: .shelf.json is closed to you");
        return notes;
    }
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll());
    if (!document.isObject()) {
        *problem = QStringLiteral("Labels and order cannot be read: .shelf.json is damaged");
        return notes;
    }
    const QJsonObject labels = document.object().value(QLatin1String("labels")).toObject();
    for (auto it = labels.begin(); it != labels.end(); ++it) {
        const QString name = it.value().toString();
        if (QColor::isValidColor(name)) {
            notes.labels.insert(it.key(), QColor(name));
        }
    }
    const QJsonObject orders = document.object().value(QLatin1String("orders")).toObject();
    for (auto it = orders.begin(); it != orders.end(); ++it) {
        QStringList names;
        const QJsonArray entries = it.value().toArray();
        for (const QJsonValue &entry : entries) {
            names.append(entry.toString());
        }
        notes.orders.insert(it.key(), names);
    }
    return notes;
}

QByteArray ShelfNotes::toJson() const
{
    QJsonObject colors;
    for (auto it = labels.begin(); it != labels.end(); ++it) {
        colors.insert(it.key(), it.value().name());
    }
    QJsonObject lists;
    for (auto it = orders.begin(); it != orders.end(); ++it) {
        lists.insert(it.key(), QJsonArray::fromStringList(it.value()));
    }
    return QJsonDocument(
               QJsonObject{{QStringLiteral("labels"), colors}, {QStringLiteral("orders"), lists}})
        .toJson();
}

} // namespace om::gallery
