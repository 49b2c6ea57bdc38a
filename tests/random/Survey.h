// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QJsonArray>
#include <QJsonObject>

/// Makes the documents of \a steps and evaluates their expressions, and does nothing else with
/// them. Counts what they have of all that random use is to find mistakes in:
///
/// - "documents", and those of them that are "loaded"
/// - "trees", and those of them that are "nested": they have rows below the first level
/// - "lists": by type and name, the objects whose list had something in it
/// - "shared": objects that were in the lists of two
/// - "kept": lists that the parent of their owner keeps
QJsonObject survey(const QJsonArray &steps);
