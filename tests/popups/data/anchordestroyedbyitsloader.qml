// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

Item {
    id: root

    property int pressedBelow: 0

    width: 300
    height: 300

    MouseArea {
        anchors.fill: parent
        onPressed: ++root.pressedBelow
    }

    Loader {
        id: loader

        sourceComponent: PopupAnchorItem {
            onPopupVisibleChanged: {
                if (!popupVisible) {
                    loader.active = false;
                }
            }

            Rectangle {
                width: 20
                height: 20
            }
        }
    }
}
