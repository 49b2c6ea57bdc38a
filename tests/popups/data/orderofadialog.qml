// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// A modal dialog with three siblings, one of them disabled, and a second dialog.
Item {
    width: 200
    height: 200

    Item {
        objectName: "first"
    }
    Item {
        objectName: "disabled"
        enabled: false
    }
    Item {
        objectName: "last"
    }
    DialogItem {
        id: dialog
        objectName: "dialog"
        modal: true
    }
    DialogItem {
        objectName: "below"
        modal: false
    }
}
