// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QLoggingCategory>

namespace om::controls {

/// The category "ombrel.controls"; warnings and worse are on unless logging rules say otherwise.
/// Only declared here: the plugin defines it, and the types of this module write through it.
Q_DECLARE_LOGGING_CATEGORY(lcControls)

} // namespace om::controls
