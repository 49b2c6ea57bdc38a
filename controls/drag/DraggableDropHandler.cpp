// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drag/DraggableDropHandler.h"

#include "controls/drag/DraggablePayload.h"

namespace om::controls {

class DraggableDropHandler::Private
{
public:
    QString key;
};

DraggableDropHandler::DraggableDropHandler(QObject *parent)
    : DropHandler(parent)
    , d(std::make_unique<Private>())
{
}

DraggableDropHandler::~DraggableDropHandler() = default;

QString DraggableDropHandler::key() const
{
    return d->key;
}

void DraggableDropHandler::setKey(const QString &key)
{
    if (d->key == key) {
        return;
    }
    d->key = key;
    Q_EMIT keyChanged(key);
}

QVariant DraggableDropHandler::dropData(const QMimeData *mimeData)
{
    return draggablepayload::bytes(mimeData);
}

bool DraggableDropHandler::canHandle(const QMimeData *mimeData)
{
    return draggablepayload::isIn(mimeData)
        && draggablepayload::bytes(mimeData) == draggablepayload::write(d->key);
}

} // namespace om::controls
