// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Controls 2.5 as Controls
import "../kit"

// Says what saving will write, and where, before anything is written.
ShelfDialog {
    id: dialog

    property var steps: []

    function propose(focusItem) {
        steps = shelf.plan();
        ask(focusItem);
    }

    width: parent ? Math.min(560, parent.width - 60) : 560
    contentHeight: Math.min(list.contentHeight + 16, parent ? Math.max(80, Math.min(320, parent.height - 230)) : 320)
    title: "Save the shelf"
    text: steps.length === 0 ? "On disk everything is as the shelf shows it already."
        : (steps.length === 1 ? "This one thing" : "These " + steps.length + " things") + " will be done in “"
          + Theme.oneLine(decodeURIComponent(shelf.address.toString().replace("file://", "")))
          + "”. Afterwards they cannot be undone."
    main: "Save"
    mainEnabled: steps.length > 0
    onAccepted: shelf.save()

    Surface {
        anchors.fill: parent
        visible: dialog.steps.length > 0
        sunken: true
        ListView {
            id: list
            anchors { fill: parent; margins: 8 }
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            activeFocusOnTab: true
            model: dialog.steps
            Controls.ScrollBar.vertical: ScrollBar {}
            Accessible.role: Accessible.List
            Accessible.name: "What will be written"
            Keys.onUpPressed: flick(0, 600)
            Keys.onDownPressed: flick(0, -600)
            delegate: Label {
                width: list.width - 14
                leftPadding: 8
                topPadding: 4
                bottomPadding: 4
                wrapMode: Text.Wrap
                text: Theme.oneLine(modelData)
                font.pixelSize: Theme.medium
                Accessible.role: Accessible.ListItem
                Accessible.name: text
            }
        }
        Rectangle {
            anchors.fill: parent
            radius: Theme.radius
            color: "transparent"
            border.width: list.activeFocus ? 2 : 0
            border.color: Theme.focus
        }
    }
}
