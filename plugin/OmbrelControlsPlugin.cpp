// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "plugin/OmbrelControlsPlugin.h"

#include "plugin/Registration.h"

#include <QDebug>

namespace om::controls {

static const char *const privateUri = "ombrel.Controls.Private";

OmbrelControlsPlugin::OmbrelControlsPlugin(QObject *parent)
    : QQmlExtensionPlugin(parent)
{
}

void OmbrelControlsPlugin::registerTypes(const char *uri)
{
    qDebug("Registering types of Controls plugin");
    registerPublicTypes(uri);
}

void OmbrelControlsPlugin::initializeEngine(QQmlEngine *engine, const char *uri)
{
    Q_UNUSED(engine)
    Q_UNUSED(uri)
    registerPrivateTypes(privateUri);
}

} // namespace om::controls
