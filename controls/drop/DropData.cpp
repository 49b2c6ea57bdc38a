// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drop/DropData.h"

#include <QPointer>

namespace om::controls {

class DropData::Private
{
public:
    QVariant data;
    QPointer<QObject> source;
    QPointF position;
};

DropData::DropData(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>())
{
}

DropData::~DropData() = default;

QObject *DropData::source() const
{
    return d->source;
}

void DropData::setSource(QObject *source)
{
    d->source = source;
}

QPointF DropData::position() const
{
    return d->position;
}

void DropData::setPosition(const QPointF &position)
{
    d->position = position;
}

QVariant DropData::data() const
{
    return d->data;
}

void DropData::setData(const QVariant &data)
{
    d->data = data;
}

} // namespace om::controls
