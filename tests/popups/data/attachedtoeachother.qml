// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// Three popups that a case attaches to one another or to what they hold, and a place that opens a
// fourth. Each keeps a distance, so that none could ever arrive.
Item {
    id: root
    width: 400
    height: 300

    property alias placeItem: place.popupItem

    function find(name) {
        return {
            "root": root,
            "a": a,
            "inA": inA,
            "b": b,
            "inB": inB,
            "c": c,
            "place": place,
            "placeItem": place.popupItem
        }[name];
    }

    Popup {
        id: a
        objectName: "a"
        width: 40
        height: 40
        offset: Qt.point(3, 2)
        Item {
            id: inA
            x: 5
        }
    }
    Popup {
        id: b
        objectName: "b"
        width: 40
        height: 40
        offset: Qt.point(3, 2)
        Item {
            id: inB
            y: 5
            PopupAnchorItem {
                id: place
                objectName: "place"
                x: 4
                y: 4
                Item {
                    width: 10
                    height: 10
                }
            }
        }
    }
    Popup {
        id: c
        objectName: "c"
        width: 40
        height: 40
        offset: Qt.point(3, 2)
    }
}
