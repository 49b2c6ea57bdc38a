// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

#if defined(OMBREL_DATACORE_BUILD)
#define OMBREL_DATACORE_EXPORT Q_DECL_EXPORT
#else
#define OMBREL_DATACORE_EXPORT Q_DECL_IMPORT
#endif
