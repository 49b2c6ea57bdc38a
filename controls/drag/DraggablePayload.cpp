// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drag/DraggablePayload.h"

#include <QMimeData>

namespace om::controls::draggablepayload {

QString format()
{
    return QStringLiteral("application/x-lumetra-draggable");
}

QByteArray write(const QString &text)
{
    return text.toUtf8();
}

bool isIn(const QMimeData *mimeData)
{
    return mimeData->hasFormat(format());
}

QByteArray bytes(const QMimeData *mimeData)
{
    return mimeData->data(format());
}

} // namespace om::controls::draggablepayload
