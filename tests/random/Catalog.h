// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QJsonObject>

class QQmlEngine;

/// What there is to compose from: for each type that the plugin registers for QML its properties
/// (with their types, and whether they can be written), signals and invokables, as its meta-object
/// has them.
QJsonObject catalog(QQmlEngine &engine);
