// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

Item {
    property var log: []

    width: 100
    height: 100

    Item {
        Popup {
            objectName: "popup"
            open: true
            width: 50
            height: 50
            onOpenChanged: log.push(open)
            Component.onCompleted: log.push("done")
        }
    }
}
