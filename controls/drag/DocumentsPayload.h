// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <OmbrelDataCore/Document.h>

#include <QByteArray>
#include <QPointer>
#include <QString>
#include <QStringList>

#include <vector>

class QMimeData;

/// The MIME format "application/x-lumetra-documents": what a drag of documents carries.
///
/// One QString after another in QDataStream's encoding, the documents' ids in their order, and
/// nothing else. A null id and an empty one are encoded differently.
namespace om::controls::documentspayload {

/// The name of the format.
QString format();
/// The bytes for the \a documents. Those are left out that are destroyed, also by documentId() of
/// an earlier one, which is the application's code.
QByteArray write(const std::vector<QPointer<om::data::Document>> &documents);
/// The ids in \a payload; an incomplete string at its end is left out.
QStringList read(const QByteArray &payload);
/// True when \a mimeData has the format.
bool isIn(const QMimeData *mimeData);

} // namespace om::controls::documentspayload
