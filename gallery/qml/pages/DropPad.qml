// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import "../kit"

// A drop zone that shows what goes on in it: an invitation, what it would take while a drag is over
// it, and what it got. Handlers are declared inside.
Item {
    id: pad

    default property alias handlers: zone.dropHandlers
    readonly property alias zone: zone
    property string invitation: "Drop files here"
    property string takes
    // Copies: the zone's record of a drag does not tell when it changes.
    property var offered: []
    property var got: []
    property point position
    property DropHandler taker: null
    readonly property bool over: zone.containsDrag
    readonly property bool refuses: refusal.over
    readonly property var shown: over ? offered : got

    // For a log: the name of the signal, and its drag.
    signal happened(string what)

    Accessible.role: Accessible.Grouping
    Accessible.name: invitation + (takes === "" ? "" : ": " + takes)

    function countOf(files) { return files.length === 1 ? "1 file" : files.length + " files"; }

    function listen(handler) {
        handler.entered.connect(drag => {
            pad.taker = handler;
            pad.offered = Array.from(drag.data);
            pad.position = drag.position;
            pad.happened("entered");
        });
        handler.positionChanged.connect(drag => {
            pad.position = drag.position;
            pad.happened("positionChanged");
        });
        handler.exited.connect(() => {
            pad.taker = null;
            pad.happened("exited");
        });
        handler.dropped.connect(drag => {
            pad.got = Array.from(drag.data);
            pad.position = drag.position;
            pad.happened("dropped");
        });
    }

    Component.onCompleted: {
        for (let i = 0; i < zone.dropHandlers.length; ++i)
            listen(zone.dropHandlers[i]);
    }

    Rectangle {
        anchors.fill: parent
        radius: 10
        color: pad.over ? Theme.accentSoft : Theme.panel
        Behavior on color { ColorAnimation { duration: 120 } }
    }
    Canvas {
        id: outline
        readonly property color tone: pad.over ? Theme.accent : Theme.strongLine
        anchors.fill: parent
        onToneChanged: requestPaint()
        onPaint: {
            const context = getContext("2d");
            const line = pad.over ? 2 : 1.5;
            const radius = 10;
            context.reset();
            context.strokeStyle = tone;
            context.lineWidth = line;
            if (!pad.over)
                context.setLineDash([5, 4]);
            context.roundedRect(1, 1, width - 2, height - 2, radius, radius);
            context.stroke();
        }
    }

    Refusal {
        id: refusal
        anchors.fill: parent
    }
    DropZone {
        id: zone
        anchors.fill: parent
        onContainsDragChanged: pad.happened("containsDrag: " + containsDrag)
    }

    // Where the drag is.
    Rectangle {
        visible: pad.over
        x: pad.position.x - width / 2
        y: pad.position.y - height / 2
        width: 34
        height: 34
        radius: 17
        color: "transparent"
        border.color: Theme.accent
        border.width: 2
        opacity: 0.5
    }

    Column {
        anchors.centerIn: parent
        width: parent.width - 40
        visible: pad.shown.length === 0
        spacing: 8

        Rectangle {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 44
            height: 44
            radius: 22
            color: Theme.accentSoft
            Sign {
                name: "arrow-down"
                anchors.centerIn: parent
                size: 22
            }
        }
        Label {
            width: parent.width
            topPadding: 8
            horizontalAlignment: Text.AlignHCenter
            text: pad.over ? "A drag without files" : refusal.over ? "Would not take this" : pad.invitation
            color: refusal.over ? Theme.errorText : Theme.text
            font.pixelSize: Theme.large
        }
        Label {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: pad.takes
            color: Theme.faintText
            wrapMode: Text.WordWrap
            maximumLineCount: 3
            elide: Text.ElideRight
            font.pixelSize: Theme.medium
        }
    }

    Item {
        anchors.fill: parent
        anchors.margins: 16
        visible: pad.shown.length > 0

        Label {
            id: verb
            text: refusal.over ? "Would not take this"
                : pad.over ? "Would take " + pad.countOf(pad.shown) : "Got " + pad.countOf(pad.shown)
            color: refusal.over ? Theme.errorText : pad.over ? Theme.accentText : Theme.positiveText
            font.weight: Font.DemiBold
        }
        Button {
            anchors { right: parent.right; rightMargin: -8 }
            y: -8
            visible: !pad.over
            flat: true
            text: "Clear"
            onClicked: {
                pad.got = [];
                pad.taker = null;
            }
        }
        Flow {
            id: flow
            readonly property int columns: Math.max(1, Math.floor((width + spacing) / (92 + spacing)))
            readonly property int rows: Math.max(1, Math.floor((parent.height - y + spacing) / (92 + spacing)))
            readonly property int room: columns * rows
            // The last place tells how many more there are.
            readonly property int tiles: pad.shown.length <= room ? pad.shown.length : room - 1
            y: 30
            width: parent.width
            spacing: 12
            opacity: pad.over ? 0.75 : 1
            Repeater {
                model: pad.shown.slice(0, flow.tiles)
                FileTile { url: modelData }
            }
            Item {
                visible: pad.shown.length > flow.tiles
                width: 92
                height: 92
                Label {
                    anchors.fill: parent
                    anchors.bottomMargin: 24
                    horizontalAlignment: Text.AlignHCenter
                    verticalAlignment: Text.AlignVCenter
                    text: "+ " + (pad.shown.length - flow.tiles).toLocaleString(Qt.locale(), "f", 0)
                    color: Theme.softText
                    font.pixelSize: Theme.large
                }
            }
        }
    }
}
