// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drag/DocumentsPayload.h"

#include <QDataStream>
#include <QMimeData>

namespace om::controls::documentspayload {

QString format()
{
    return QStringLiteral("application/x-lumetra-documents");
}

QByteArray write(const std::vector<QPointer<om::data::Document>> &documents)
{
    QByteArray payload;
    QDataStream stream(&payload, QIODevice::WriteOnly);
    for (const QPointer<om::data::Document> &document : documents) {
        if (document) {
            stream << document->documentId();
        }
    }
    return payload;
}

QStringList read(const QByteArray &payload)
{
    QStringList ids;
    QDataStream stream(payload);
    while (!stream.atEnd()) {
        QString id;
        stream >> id;
        if (stream.status() != QDataStream::Ok) {
            break;
        }
        ids.append(id);
    }
    return ids;
}

bool isIn(const QMimeData *mimeData)
{
    return mimeData->hasFormat(format());
}

} // namespace om::controls::documentspayload
