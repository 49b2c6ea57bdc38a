// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QString>

namespace om::data {
class Document;
}

namespace om::gallery {

class ShelfDocument;

/// What a disk would not take is not taken by the shelf either. Problems are sentences; empty ones
/// mean that there is none.
namespace ShelfRules {

/// Why `document`, null for a new one, cannot have this name.
QString nameProblem(const om::data::Document *document, const QString &name);

/// Why the documents, all of one shelf, cannot be put into `folder`.
QString moveProblem(const QList<ShelfDocument *> &documents, const ShelfDocument *folder);

/// The name, or with the first number behind it that nothing in the folder has.
QString freeName(const ShelfDocument *folder, const QString &name);

} // namespace ShelfRules

} // namespace om::gallery
