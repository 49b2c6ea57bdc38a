// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

Item {
    id: root

    property Item dialog: loader.item

    width: 200
    height: 200

    Item {
        objectName: "sibling"
    }

    Loader {
        id: loader

        sourceComponent: DialogItem {
        }
    }
}
