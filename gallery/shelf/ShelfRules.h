// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QString>
#include <QStringList>

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

/// The names, each with the first number behind it that makes it differ from the names before it
/// and from those in the folder, if it does not so far.
QStringList freeNames(const ShelfDocument *folder, const QStringList &names);

} // namespace ShelfRules

} // namespace om::gallery
