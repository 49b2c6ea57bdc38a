// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

Item {
    id: root

    property int rejections: 0

    width: 400
    height: 300

    Popup {
        id: popup

        objectName: "popup"
        width: 40
        height: 40
        onRejected: {
            if (++root.rejections < 3)
                popup.show();
        }
    }
}
