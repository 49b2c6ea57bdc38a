// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import "../kit"
import "../start"

Page {
    id: page

    title: "Ombrel Controls"
    summary: "What desktop applications in Qt Quick need beyond buttons: drops that find their way, documents that are "
             + "dragged, popups that follow, trees, codes and colours. Each piece moves once; a press lets it move again."

    // How many pieces move now.
    property int movers: 0
    readonly property bool moving: movers > 0

    // A press, or Space, on a piece goes through it once more; afterwards nothing moves.
    Grid {
        id: grid
        width: parent.width
        columns: width >= 900 ? 3 : 2
        spacing: 16
        Repeater {
            model: [
                { file: "DropRouting.qml", type: "DropZone", text: "Drops find their handler" },
                { file: "LiveDelegate.qml", type: "DragZone", text: "Drags carry a live item" },
                { file: "TurningPopup.qml", type: "PopupAnchorItem", text: "Popups turn along" },
                { file: "TreeByDocument.qml", type: "TreeView", text: "Rows go by their document" },
                { file: "Recolour.qml", type: "QRCode", text: "Codes change colour at no cost" },
                { file: "DialogStack.qml", type: "DialogItem", text: "Dialogs lie on one another" }
            ]
            StartCard {
                width: (grid.width - (grid.columns - 1) * grid.spacing) / grid.columns
                piece: Qt.resolvedUrl("../start/" + modelData.file)
                type: modelData.type
                text: modelData.text
                onMovingChanged: page.movers += moving ? 1 : -1
                onWanted: page.linked(modelData.type + ".md")
            }
        }
    }
    Section {
        title: "Use it in three lines"
        Surface {
            width: parent.width
            height: code.implicitHeight + 24
            sunken: true
            TextEdit {
                id: code
                x: 16
                y: 12
                width: parent.width - 120
                readOnly: true
                selectByMouse: true
                activeFocusOnTab: true
                wrapMode: TextEdit.WrapAnywhere
                color: Theme.text
                selectionColor: Theme.accent
                selectedTextColor: Theme.accentContrast
                font.family: Theme.monoFamily
                font.pixelSize: Theme.medium
                renderType: Theme.textRendering
                Accessible.role: Accessible.EditableText
                Accessible.readOnly: true
                Accessible.name: "Three lines of QML"
                text: "import QtQuick 2.12\nimport ombrel.Controls 1.0\nQRCode { url: \"https://example.org\"; moduleSize: 6 }"
            }
            FocusRing { shown: code.activeFocus }
            Button {
                anchors { right: parent.right; top: parent.top; margins: 8 }
                text: "Copy"
                onClicked: session.copy(code.text + "\n")
            }
        }
    }
}
