// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// A zone with three handlers, one below that takes every file, and Qt Quick's own area beside.
Rectangle {
    id: root
    width: 300
    height: 200

    property string took
    property int count: -1
    property string joined
    property bool isArray: false
    property point where
    property bool hadNoSource: false
    property int moves: 0
    property int exits: 0
    property int drops: 0

    function entered(name, drag) {
        took = name;
        see(drag);
    }
    function see(drag) {
        count = drag.data.length;
        joined = count < 100 ? drag.data.map(url => url.toString()).join(" ") : "";
        isArray = Array.isArray(drag.data) || drag.data instanceof Array;
        where = drag.position;
        hadNoSource = drag.source === null;
    }
    function moved(drag) { ++moves; where = drag.position; }
    function exited(drag) { ++exits; see(drag); }
    function dropped(drag) { ++drops; see(drag); }

    DropZone {
        objectName: "zone"
        width: 200
        height: 100

        FileDropHandler {
            objectName: "pdf"
            suffixes: ["pdf"]
            onEntered: root.entered("pdf", drag)
            onPositionChanged: root.moved(drag)
            onExited: root.exited(drag)
            onDropped: root.dropped(drag)
        }
        ImageDropHandler {
            onEntered: root.entered("images", drag)
            onPositionChanged: root.moved(drag)
            onExited: root.exited(drag)
            onDropped: root.dropped(drag)
        }
        VideoDropHandler {
            onEntered: root.entered("videos", drag)
        }
    }

    DropZone {
        objectName: "anyZone"
        y: 100
        width: 200
        height: 100

        FileDropHandler {
            onEntered: root.entered("any", drag)
            onDropped: root.dropped(drag)
        }
        FileDropHandler { suffixes: ["pdf"]; onEntered: root.entered("later", drag) }
    }

    DropArea {
        objectName: "area"
        x: 200
        width: 100
        height: 200
    }
}
