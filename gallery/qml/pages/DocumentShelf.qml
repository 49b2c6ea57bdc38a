// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.data.Core 1.0
import "../kit"

// Some documents of the open folder to pick and drag: a click picks one, with Ctrl several. The item
// around it carries `dragged`.
ListView {
    id: shelf

    property var picked: []
    // What a drag that starts now is about.
    property var dragged: []

    function press(document, more) {
        const held = picked.indexOf(document) >= 0;
        if (more)
            picked = held ? picked.filter(other => other !== document) : picked.concat([document]);
        else if (!held)
            picked = [document];
        dragged = picked.filter(other => other);
    }

    clip: true
    interactive: false
    keyNavigationEnabled: true
    activeFocusOnTab: true
    Keys.onSpacePressed: press(model[currentIndex], event.modifiers & Qt.ControlModifier)
    Accessible.role: Accessible.List
    Accessible.name: "Documents to drag"
    Accessible.focusable: true
    spacing: 4
    readonly property Samples samples: Samples { folder: gallery.folder }
    model: samples.documents
    delegate: Rectangle {
        id: row
        readonly property Document document: modelData
        readonly property bool chosen: shelf.picked.indexOf(document) >= 0
        width: shelf.width
        height: 40
        radius: Theme.radius
        color: chosen ? Theme.accentSoft : Theme.panel
        border.color: chosen ? Theme.accent : Theme.line
        Accessible.role: Accessible.ListItem
        Accessible.name: document ? Theme.oneLine(document.name) : ""
        Accessible.selectable: true
        Accessible.selected: chosen
        Accessible.onPressAction: shelf.press(document, true)
        FocusRing { shown: shelf.activeFocus && row.ListView.isCurrentItem }
        Thumbnail {
            x: 6
            anchors.verticalCenter: parent.verticalCenter
            width: 28
            height: 28
            document: row.document
        }
        Label {
            x: 44
            width: chip.x - x - 8
            anchors.verticalCenter: parent.verticalCenter
            text: row.document ? Theme.oneLine(row.document.name) : ""
        }
        Chip {
            id: chip
            anchors.right: parent.right
            anchors.rightMargin: 8
            anchors.verticalCenter: parent.verticalCenter
            readonly property string type: row.document && row.document.types.length > 0 ? row.document.types[0] : ""
            text: shelf.samples.isSample(row.document) ? "sample" : type
            tone: Theme.typeColor(type)
        }
        MouseArea {
            anchors.fill: parent
            onPressed: {
                shelf.currentIndex = index;
                shelf.forceActiveFocus(Qt.MouseFocusReason);
                shelf.press(row.document, mouse.modifiers & Qt.ControlModifier);
            }
        }
    }
}
