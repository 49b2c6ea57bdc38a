// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

namespace om::controls {

/// Registers the types of the public module under \a uri, version 1.0.
void registerPublicTypes(const char *uri);

/// Registers the colour-picking types under \a uri, version 1.0.
void registerPrivateTypes(const char *uri);

} // namespace om::controls
