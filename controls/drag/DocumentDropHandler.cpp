// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drag/DocumentDropHandler.h"

#include "controls/drag/DocumentsPayload.h"
#include "controls/drag/DragZone.h"

#include <OmbrelDataCore/Document.h>

#include <QQmlListReference>

namespace om::controls {

class DocumentDropHandler::Private
{
public:
    QString type;
};

DocumentDropHandler::DocumentDropHandler(QObject *parent)
    : DropHandler(parent)
    , d(std::make_unique<Private>())
{
}

DocumentDropHandler::~DocumentDropHandler() = default;

QString DocumentDropHandler::type() const
{
    return d->type;
}

void DocumentDropHandler::setType(const QString &type)
{
    if (d->type == type) {
        return;
    }
    d->type = type;
    Q_EMIT typeChanged(type);
}

QVariant DocumentDropHandler::dropData(const QMimeData *)
{
    return {};
}

bool DocumentDropHandler::canHandle(const QMimeData *mimeData)
{
    if (!documentspayload::isIn(mimeData)) {
        return false;
    }
    auto *const zone = qobject_cast<DragZone *>(dragSource());
    if (!zone) {
        return false;
    }
    // The payload is not read: the zone's list has the documents. hasType() is the application's
    // code, which may destroy this handler and the zone: only copies are used after the first call.
    // The count is read once: a hasType() that appends a document each time would otherwise keep
    // the loop running.
    const QString type = d->type;
    const QQmlListReference documents(zone, "dragDocuments");
    const int count = documents.count();
    for (int i = 0; i < count && documents.isValid(); ++i) {
        const auto *const document = qobject_cast<om::data::Document *>(documents.at(i));
        if (document && document->hasType(type)) {
            return true;
        }
    }
    return false;
}

} // namespace om::controls
