// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QQmlExtensionPlugin>

namespace om::data {

/// The QML module ombrel.data.Core: `Document` and `Context`, both creatable.
class OmbrelDataCorePlugin : public QQmlExtensionPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QQmlExtensionInterface_iid)

public:
    void registerTypes(const char *uri) override;
};

} // namespace om::data
