// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

Item {
    id: root

    property var log: []

    width: 200
    height: 200

    Popup {
        id: first

        objectName: "first"
        onRejected: log.push("first")
    }

    Popup {
        id: second

        objectName: "second"
        onRejected: log.push("second")
    }
}
