// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/hosts/Host.h"

#include "tests/hosts/ControlHost.h"
#include "tests/hosts/ViewHost.h"
#include "tests/hosts/WidgetHost.h"

Host::~Host() = default;

std::unique_ptr<Host> makeHost(const QString &name)
{
    if (name == QLatin1String("widget")) {
        return std::make_unique<WidgetHost>();
    }
    if (name == QLatin1String("control")) {
        return std::make_unique<ControlHost>();
    }
    for (const ViewHost::Kind kind : ViewHost::kinds()) {
        if (name == ViewHost::nameOf(kind)) {
            return std::make_unique<ViewHost>(kind);
        }
    }
    return nullptr;
}
