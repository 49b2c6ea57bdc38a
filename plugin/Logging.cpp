// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/private/Logging.h"

namespace om::controls {

Q_LOGGING_CATEGORY(lcControls, "ombrel.controls", QtWarningMsg)

} // namespace om::controls
