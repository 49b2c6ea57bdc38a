// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace om::gallery {

/// The Markdown of the reference pages as HTML of the kind that Qt's text items show: headings,
/// paragraphs, lists, tables, fenced code, and within a line code, bold and italic text and links.
/// Comments and pictures are left out; all else stays text. Qt reads Markdown itself from 5.14 on;
/// this works from 5.12 on.
QString htmlOf(const QString &markdown);

} // namespace om::gallery
