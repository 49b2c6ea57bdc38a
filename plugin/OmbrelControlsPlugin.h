// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QQmlExtensionPlugin>

namespace om::controls {

/// The entry point of the library for a QML engine: registers every type.
///
/// The public types are registered under the URI that the engine passes, the colour-picking types
/// under "ombrel.Controls.Private".
class OmbrelControlsPlugin : public QQmlExtensionPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QQmlExtensionInterface_iid)

public:
    explicit OmbrelControlsPlugin(QObject *parent = nullptr);

    void registerTypes(const char *uri) override;
    void initializeEngine(QQmlEngine *engine, const char *uri) override;
};

} // namespace om::controls
