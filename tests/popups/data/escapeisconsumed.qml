// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

Item {
    id: root

    property int escapes: 0

    width: 100
    height: 100
    focus: true
    Keys.onEscapePressed: ++escapes

    Popup {
        id: popup

        objectName: "popup"
        width: 50
        height: 50
    }
}
