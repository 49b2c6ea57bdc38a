// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

Item {
    id: root

    PopupAnchorItem {
        id: anchor

        objectName: "anchor"

        Item {
            property var log: []
            property bool first: {
                log.push(enabled, parent !== null, anchor.popupItem !== null);
                return true;
            }
        }
    }
}
