// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <utility>
#include <vector>

namespace support {

/// The QML files whose text stands in a document: the blocks "```qml FILE", as pairs of FILE and
/// text. A block that names no file has an empty one.
std::vector<std::pair<QString, QByteArray>> qmlFilesIn(const QString &document);

} // namespace support
