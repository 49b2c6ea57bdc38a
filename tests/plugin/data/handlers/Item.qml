// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12

// Items of Qt alone, one inside the other, with bindings to the one in the middle.
Stock {
    Item {
        objectName: "owner"
        readonly property real twice: subject.z * 2
        Item {
            id: subject
            objectName: "subject"
            x: 20
            y: 20
            width: 80
            height: 80
            Item {
                objectName: "bound"
                readonly property real twice: subject.z * 2
                width: twice
                Item { objectName: "inner" }
            }
            Item { objectName: "beside" }
        }
    }
}
