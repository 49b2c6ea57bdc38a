// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <OmbrelDataCore/Document.h>

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

class QMimeData;

/// The MIME format "application/x-lumetra-documents": what a drag of documents carries.
///
/// One QString after another in QDataStream's encoding, the documents' ids in their order, and
/// nothing else. Null and empty ids stay apart.
namespace om::controls::documentspayload {

/// The name of the format.
QString format();
/// The bytes for \a documents as they are when it is called; none of them null. One that is
/// destroyed while the ones before it are asked for their ids is left out.
QByteArray write(const QList<om::data::Document *> &documents);
/// The ids in \a payload; what follows the last whole one is left out.
QStringList read(const QByteArray &payload);
/// True when \a mimeData has the format.
bool isIn(const QMimeData *mimeData);

} // namespace om::controls::documentspayload
