// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12

Item {
    width: 9

    Item {
        visible: false
        width: 9

        Pad { objectName: "hidden"; text: "b"; number: 5 }
    }
    Pad { objectName: "flat"; width: 0; number: 5 }
    Padded { objectName: "padded" }
    Pad {
        objectName: "first"
        text: "a"

        Pad { objectName: "inner"; text: "b"; number: 5 }
    }
    Pad { objectName: "last"; text: "c"; number: 5 }
}
