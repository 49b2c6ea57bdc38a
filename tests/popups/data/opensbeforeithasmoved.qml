// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

Item {
    id: root

    width: 200
    height: 200

    Item {
        objectName: "place"

        Item {
            objectName: "neighbour"
        }

        DialogItem {
            id: dialog

            Component.onCompleted: show()
        }
    }
}
