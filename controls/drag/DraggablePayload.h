// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

class QMimeData;

/// The MIME format "application/x-lumetra-draggable": the text of a dragged item as bare UTF-8,
/// without length, terminator or byte-order mark.
namespace om::controls::draggablepayload {

/// The name of the format.
QString format();
/// The bytes for \a text.
QByteArray write(const QString &text);
/// True when \a mimeData has the format.
bool isIn(const QMimeData *mimeData);
/// The bytes of the format in \a mimeData.
QByteArray bytes(const QMimeData *mimeData);

} // namespace om::controls::draggablepayload
