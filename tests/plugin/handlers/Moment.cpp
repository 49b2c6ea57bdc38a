// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/plugin/handlers/Moment.h"

#include <utility>

static MomentHandler &currentHandler()
{
    static MomentHandler handler;
    return handler;
}

void handleMoments(MomentHandler handler)
{
    currentHandler() = std::move(handler);
}

void tell(const Moment &moment)
{
    // A copy: what the handler does may end the row, and the handler with it.
    if (const MomentHandler handler = currentHandler()) {
        handler(moment);
    }
}
