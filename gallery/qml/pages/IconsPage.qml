// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import "../kit"

Page {
    id: page
    title: "Images and icons"
    summary: "What the library carries under qrc:/controls/, each at its real size, and enlarged, on a ground of "
             + "the kind that it is made for."

    readonly property bool moving: turning.running
    readonly property var images: ["collapse-indicator.svg", "dialog-shadow.png", "dropdown-indicator.png",
                                   "flyout-peak.png"]
    readonly property var icons: [
        "add-group.png", "add.png", "cal.png", "calendar-left.png", "calendar-right.png", "calendar.png",
        "check.png", "delete.png", "dropdown-indicator-w.png", "dropdown-indicator.png", "edit-16.png",
        "edit-24.png", "error.png", "fb-settings.png", "icon-add.png", "icon-back.png", "icon-redo.png",
        "icon-save.png", "icon-undo.png", "infotip-ohne-pfeilchen-9-slice.png", "key-arrow.png",
        "key-backspace.png", "key-enter.png", "key-shift.png", "list-sort-indicator.png", "logout.png",
        "move-up-24.png", "orientation-landscape-32.png", "orientation-landscape.svg",
        "orientation-portrait-32.png", "orientation-portrait.svg", "radiobutton-circle.png", "remove-tag.png",
        "remove.png", "search-delete.png", "search-loupe.png", "settings.png", "status-ok.png",
        "stepper-arrows.png", "unavailable-cursor.png", "visibility.png", "warning.png"]

    // An instance of the module's type keeps its library loaded, and with it the pictures.
    DropZone { visible: false }

    Section {
        title: "icons"
        Flow {
            width: parent.width
            spacing: 8
            Repeater {
                model: page.icons
                IconTile { folder: "icons"; file: modelData }
            }
        }
    }
    Section {
        title: "images"
        Flow {
            width: parent.width
            spacing: 8
            Repeater {
                model: page.images
                IconTile { folder: "images"; file: modelData }
            }
        }
    }
    Section {
        title: "loading-sprite.png"
        hint: "Twelve frames of 64 × 64, one after the other."
        Row {
            spacing: 24
            Item {
                width: 64
                height: 64
                clip: true
                Image {
                    x: -64 * frame
                    source: "qrc:/controls/images/loading-sprite.png"
                    property int frame: 0
                    NumberAnimation on frame { id: turning; from: 0; to: 11; duration: 900; loops: 3 }
                }
            }
            Image {
                width: 600
                height: 50
                anchors.verticalCenter: parent.verticalCenter
                smooth: true
                source: "qrc:/controls/images/loading-sprite.png"
            }
        }
    }
    Section {
        title: "Nine slices"
        hint: "A shadow and a frame, stretched from their middles."
        Row {
            spacing: 24
            BorderImage {
                width: 260
                height: 150
                source: "qrc:/controls/images/dialog-shadow.png"
                border { left: 36; right: 36; top: 36; bottom: 36 }
                Rectangle { anchors.fill: parent; anchors.margins: 20; radius: Theme.radius; color: Theme.paper }
            }
            BorderImage {
                width: 220
                height: 110
                anchors.verticalCenter: parent.verticalCenter
                source: "qrc:/controls/icons/infotip-ohne-pfeilchen-9-slice.png"
                border { left: 16; right: 16; top: 15; bottom: 16 }
                Label { anchors.centerIn: parent; text: "An info tip"; color: Theme.ink }
            }
        }
    }
}
