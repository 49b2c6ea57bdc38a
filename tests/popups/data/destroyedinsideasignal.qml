// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

Item {
    id: root

    property Item popup
    property int pressedBelow: 0
    property Component maker: Popup {
        width: 40
        height: 40
    }

    width: 400
    height: 300
    MouseArea {
        anchors.fill: parent
        onPressed: ++root.pressedBelow
    }
}
