// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "datacore/qml/OmbrelDataCorePlugin.h"

#include <OmbrelDataCore/Context.h>
#include <OmbrelDataCore/Document.h>

#include <QtQml>

namespace om::data {

void OmbrelDataCorePlugin::registerTypes(const char *uri)
{
    qmlRegisterType<Document>(uri, 1, 0, "Document");
    qmlRegisterType<Context>(uri, 1, 0, "Context");
}

} // namespace om::data
