// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace support {

/// A string of Latin-1 characters, for the names and values that a test compares with.
inline QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

} // namespace support
