// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

Item {
    id: root

    property Item popup: loader.item
    property int pressedBelow: 0

    width: 400
    height: 300

    MouseArea {
        anchors.fill: parent
        onPressed: ++root.pressedBelow
    }

    Loader {
        id: loader

        sourceComponent: Popup {
            width: 40
            height: 40
        }
    }
}
