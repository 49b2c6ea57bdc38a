// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drop/DropHandler.h"

#include "controls/drop/DropData.h"

#include <QPointer>

namespace om::controls {

class DropHandler::Private
{
public:
    explicit Private(DropHandler *handler)
        : q(handler)
    {
    }

    DropHandler *const q;
    QPointer<QObject> dragSource;
};

DropHandler::DropHandler(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>(this))
{
}

DropHandler::~DropHandler() = default;

void DropHandler::drop(DropData *data)
{
    Q_EMIT dropped(data);
}

QObject *DropHandler::dragSource() const
{
    return d->dragSource;
}

void DropHandler::setDragSource(QObject *source)
{
    d->dragSource = source;
}

} // namespace om::controls
