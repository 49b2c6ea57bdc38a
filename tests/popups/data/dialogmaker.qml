// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// Makes dialogs that have no handlers of their own, beside two siblings.
Item {
    id: root
    width: 200
    height: 200

    property Component maker: DialogItem {}

    Item {
        objectName: "sibling"
    }
    Item {
        objectName: "other"
    }

    function make() {
        return maker.createObject(root);
    }
}
