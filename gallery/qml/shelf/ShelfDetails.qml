// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Controls 2.5 as Controls
import ombrel.Controls 1.0
import "../kit"

// What is known of the current document: its picture, its label and its address as a QR code.
Rectangle {
    id: details

    property var view
    readonly property QtObject document: shelf.model.selectedCount > 0 ? shelf.model.currentDocument : shelf.folder
    readonly property var labels: ["#C8643C", "#ECD284", "#90C695", "#40A1BB", "#B08FB8"]

    function placeOf(document) {
        return decodeURIComponent(document.url.toString().replace(/^file:\/\/|^qrc:/, ""));
    }

    color: Theme.panel
    Accessible.role: Accessible.Pane
    Accessible.name: "Details"

    Rectangle {
        width: 1
        height: parent.height
        color: Theme.line
    }
    // Where the details cover the thumbnails, presses here are not for these.
    MouseArea {
        anchors.fill: parent
        enabled: !details.view.wide
    }
    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.NoButton
        onWheel: flick.contentY = Math.max(0, Math.min(flick.contentHeight - flick.height, flick.contentY - wheel.angleDelta.y * 0.7))
    }
    Flickable {
        id: flick
        anchors.fill: parent
        contentHeight: column.height + 32
        clip: true
        interactive: false
        boundsBehavior: Flickable.StopAtBounds
        visible: details.document !== null
        Controls.ScrollBar.vertical: ScrollBar {}

        Column {
            id: column
            x: 16
            y: 16
            width: details.width - 32
            spacing: 12

            Surface {
                width: parent.width
                height: Math.round(width * 0.66)
                sunken: true
                ShelfPicture {
                    anchors { fill: parent; margins: 1 }
                    whole: true
                    document: details.document
                }
            }
            Label {
                width: parent.width
                text: details.document ? Theme.oneLine(details.document.name) : ""
                font.pixelSize: Theme.large
                font.weight: Font.DemiBold
                wrapMode: Text.Wrap
                maximumLineCount: 3
                elide: Text.ElideRight
            }
            Label {
                width: parent.width
                text: !details.document ? ""
                    : shelf.model.selectedCount > 1 ? shelf.model.selectedCount + " items are selected"
                    : details.document.types[0] + (details.document.folder ? "" : ", " + shelf.sizeText(details.document.size))
                      + (details.document.added ? ", not saved yet" : "")
                color: Theme.softText
                font.pixelSize: Theme.medium
                wrapMode: Text.Wrap
            }
            Row {
                spacing: 8
                leftPadding: 4
                topPadding: 4
                visible: details.document !== shelf.root
                Repeater {
                    model: details.labels
                    ShelfSwatch {
                        color: modelData
                        name: "Label " + modelData
                        chosenNow: details.document !== null && Qt.colorEqual(details.document.label, modelData)
                        onChosen: shelf.setLabel(details.view.chosenDocuments(), chosenNow ? "transparent" : modelData)
                    }
                }
                Button {
                    y: -4
                    width: 50
                    text: "More"
                    Accessible.name: "More labels"
                    onClicked: details.view.askForLabel()
                }
            }
            Label {
                text: "Address"
                topPadding: 8
                color: Theme.faintText
                font.pixelSize: Theme.small
            }
            Rectangle {
                width: Math.min(parent.width, 196)
                height: width
                radius: 4
                visible: !tooLong.visible
                color: code.lightColor
                border.color: Theme.line
                QRCode {
                    id: code
                    anchors.centerIn: parent
                    // Four modules of light on each side of the code, whatever its version is.
                    readonly property int modules: Math.max(21, Math.round(implicitWidth / moduleSize))
                    width: Math.floor(parent.width * modules / (modules + 8))
                    height: width
                    url: details.document ? details.document.url : ""
                    Accessible.role: Accessible.Graphic
                    Accessible.name: "QR code of " + (details.document ? details.placeOf(details.document) : "")
                }
            }
            Label {
                id: tooLong
                width: parent.width
                visible: code.implicitWidth < 0
                text: "This address is too long for a code"
                color: Theme.errorText
                wrapMode: Text.Wrap
                font.pixelSize: Theme.small
            }
            Label {
                width: parent.width
                text: details.document ? Theme.oneLine(details.placeOf(details.document)) : ""
                color: Theme.softText
                wrapMode: Text.WrapAnywhere
                maximumLineCount: 4
                elide: Text.ElideRight
                font.pixelSize: Theme.small
            }
        }
    }
}
