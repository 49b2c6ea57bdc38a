// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import handlers 1.0

ToldItem {
    objectName: "told"
    width: 10
    height: 10
    Component.onCompleted: tellOf("onCompleted")
    Component.onDestruction: tellOf("onDestruction")
}
