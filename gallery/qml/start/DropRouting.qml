// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.gallery 1.0
import "../kit"

// Three files come to the same place of one zone, and each goes to the handler that takes it. The zone is
// real: the drags are played to it, and while none is played it takes files of the desktop.
Item {
    id: piece

    readonly property var files: [{ name: "hills.png", type: "image" }, { name: "clip.mp4", type: "video" },
                                  { name: "notes.txt", type: "text" }]
    property alias motion: motion
    property alias zone: zone

    // Which handler has the drag, -1 without one, and what each has taken.
    property int taker: -1
    property var taken: ["", "", ""]

    // The file on its way, -1 without one, and the one after it.
    property int at: -1
    property int next: 0
    // How far it is from its place to the zone's. An animation of the place itself would go where that was
    // when it began, and the window's width may change.
    property real way: 0
    onWayChanged: follow()

    function begin() {
        drag.leave();
        at = -1;
        next = 0;
        taken = ["", "", ""];
    }
    function take(handler, urls) {
        taken = taken.map((name, index) => index === handler ? fileName(urls[0]) : name);
        taker = -1;
    }
    function fileName(url) { return decodeURIComponent(String(url).replace(/^.*\//, "")); }
    function lift() {
        way = 0;
        at = next++;
    }
    function follow() {
        if (at < 0)
            return;
        const place = carried.mapToItem(zone, carried.width / 2, 8);
        if (!zone.contains(place))
            return;
        if (zone.containsDrag)
            drag.move(place);
        else
            drag.enter("file:///" + files[at].name, place);
    }
    function letGo() {
        drag.drop(carried.mapToItem(zone, carried.width / 2, 8));
        at = -1;
    }

    DropZone {
        id: zone
        x: 12
        y: 12
        width: parent.width - 24
        height: 84
        enabled: !motion.running

        ImageDropHandler {
            onEntered: piece.taker = 0
            onExited: piece.taker = -1
            onDropped: piece.take(0, drag.data)
        }
        VideoDropHandler {
            onEntered: piece.taker = 1
            onExited: piece.taker = -1
            onDropped: piece.take(1, drag.data)
        }
        FileDropHandler {
            suffixes: ["txt", "md", "pdf"]
            onEntered: piece.taker = 2
            onExited: piece.taker = -1
            onDropped: piece.take(2, drag.data)
        }
    }
    PlayedDrag {
        id: drag
        target: zone
    }

    Rectangle {
        anchors.fill: zone
        radius: Theme.radius
        color: zone.containsDrag ? Theme.accentSoft : Theme.panel
        border.color: zone.containsDrag ? Theme.accent : Theme.strongLine
    }
    Row {
        x: zone.x + 8
        y: zone.y + 8
        spacing: 8
        Repeater {
            model: ["Images", "Films", "Texts"]
            Rectangle {
                readonly property bool active: piece.taker === index
                width: (zone.width - 32) / 3
                height: 48
                radius: 4
                color: active ? Theme.accent : Theme.sunken
                border.color: active ? Theme.accent : Theme.line
                Label {
                    y: 6
                    width: parent.width
                    horizontalAlignment: Text.AlignHCenter
                    text: modelData
                    font.pixelSize: Theme.small
                    font.weight: Font.DemiBold
                    color: parent.active ? Theme.accentContrast : Theme.text
                }
                Label {
                    y: 25
                    x: 4
                    width: parent.width - 8
                    horizontalAlignment: Text.AlignHCenter
                    text: Theme.oneLine(piece.taken[index])
                    font.pixelSize: Theme.small
                    elide: Text.ElideMiddle
                    color: parent.active ? Theme.accentContrast : Theme.positiveText
                }
            }
        }
    }

    Row {
        id: desk
        x: 12
        y: 120
        spacing: 8
        Repeater {
            model: piece.files
            StartFile {
                width: (piece.width - 40) / 3
                file: modelData
                opacity: piece.at === index ? 0.4 : 1
            }
        }
    }
    StartFile {
        id: carried
        readonly property real homeX: desk.x + Math.max(0, piece.at) * (width + desk.spacing)
        x: homeX + piece.way * ((piece.width - width) / 2 - homeX)
        y: desk.y - piece.way * 48
        width: (piece.width - 40) / 3
        visible: piece.at >= 0
        lifted: true
        file: piece.files[Math.max(0, piece.at)]
    }

    SequentialAnimation {
        id: motion
        ScriptAction { script: piece.begin() }
        PauseAnimation { duration: 300 }
        SequentialAnimation {
            loops: 3
            ScriptAction { script: piece.lift() }
            NumberAnimation { target: piece; property: "way"; from: 0; to: 1; duration: 800; easing.type: Easing.InOutCubic }
            PauseAnimation { duration: 350 }
            ScriptAction { script: piece.letGo() }
            PauseAnimation { duration: 350 }
        }
    }
}
