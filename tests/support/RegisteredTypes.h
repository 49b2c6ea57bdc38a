// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

namespace support {

/// The types that QML can make, as plugin/Registration.cpp registers them.
QStringList registeredTypes();

} // namespace support
