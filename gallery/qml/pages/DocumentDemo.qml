// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Controls 2.5 as Controls
import ombrel.data.Core 1.0
import "../kit"

Demo {
    id: demo

    // From the opened folder to the one shown.
    property var path: [gallery.folder]
    readonly property Document folder: path[path.length - 1]
    // A folder that is deleted on disk is null until the path is mended.
    readonly property int count: folder ? folder.children.length : 0
    readonly property bool readable: !folder || folder.readable
    property Document selected: firstOf(gallery.folder)

    function firstOf(document) {
        return document.children.length > 0 ? document.children[0] : document;
    }
    function holds(parentDocument, document) {
        if (!parentDocument)
            return false;
        for (let i = 0; i < parentDocument.children.length; ++i) {
            if (parentDocument.children[i] === document)
                return true;
        }
        return false;
    }
    function enter(document) {
        path = path.concat([document]);
        selected = firstOf(document);
    }
    function leaveTo(index) {
        const left = path[index + 1];
        path = path.slice(0, index + 1);
        selected = left;
    }
    // Documents come and go with their files: stay in the deepest folder that is left.
    readonly property int reach: {
        let reached = 1;
        while (reached < path.length && holds(path[reached - 1], path[reached]))
            ++reached;
        return reached;
    }
    readonly property bool selectionLost: selected !== folder && !holds(folder, selected)
    function settle() {
        if (reach < path.length)
            path = path.slice(0, reach);
        if (selectionLost)
            selected = firstOf(folder);
    }
    onReachChanged: Qt.callLater(settle)
    onSelectionLostChanged: Qt.callLater(settle)

    title: "Document"
    hint: "Double-click a folder to look inside; its documents are made at that moment. Create, rename or "
          + "delete a file on disk and the list follows. Change the selected document's name here."
    stageHeight: 420

    Row {
        id: crumbs
        x: 14
        height: 40
        spacing: 6
        Repeater {
            model: demo.path
            Row {
                height: crumbs.height
                spacing: 6
                Sign {
                    name: "chevron-right"
                    visible: index > 0
                    y: (parent.height - height) / 2
                }
                Label {
                    height: parent.height
                    verticalAlignment: Text.AlignVCenter
                    text: modelData ? Theme.oneLine(modelData.name) : "gone"
                    color: index === demo.path.length - 1 ? Theme.text : Theme.accentText
                    font.weight: index === demo.path.length - 1 ? Font.DemiBold : Font.Normal
                    MouseArea {
                        anchors.fill: parent
                        enabled: index < demo.path.length - 1
                        cursorShape: enabled ? Qt.PointingHandCursor : Qt.ArrowCursor
                        onClicked: demo.leaveTo(index)
                    }
                }
            }
        }
    }
    Label {
        anchors.right: parent.right
        anchors.rightMargin: 14
        height: 40
        verticalAlignment: Text.AlignVCenter
        text: demo.count === 1 ? "1 document" : demo.count + " documents"
        color: Theme.faintText
        font.pixelSize: Theme.small
    }
    Rectangle {
        y: 40
        width: parent.width
        height: 1
        color: Theme.line
    }

    Label {
        anchors.centerIn: list
        visible: list.count === 0
        text: demo.readable ? "This folder is empty" : "This folder cannot be read"
        color: demo.readable ? Theme.faintText : Theme.errorText
    }

    ListView {
        id: list
        anchors.fill: parent
        anchors.topMargin: 41
        topMargin: 6
        bottomMargin: 6
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        model: demo.folder ? demo.folder.children : []
        Controls.ScrollBar.vertical: ScrollBar {}

        delegate: Item {
            id: entry
            readonly property Document document: modelData
            readonly property string type: document && document.types.length > 0 ? document.types[0] : ""
            width: list.width
            height: 44

            Rectangle {
                anchors.fill: parent
                anchors.leftMargin: 6
                anchors.rightMargin: 12
                radius: Theme.radius
                color: entry.document === demo.selected ? Theme.accentSoft
                     : mouse.containsMouse ? Theme.window : "transparent"
            }
            Thumbnail {
                x: 14
                anchors.verticalCenter: parent.verticalCenter
                width: 32
                height: 32
                document: entry.document
            }
            Label {
                x: 58
                width: chip.x - x - 10
                anchors.verticalCenter: parent.verticalCenter
                text: entry.document ? Theme.oneLine(entry.document.name) : ""
            }
            Chip {
                id: chip
                anchors.right: parent.right
                anchors.rightMargin: 24
                anchors.verticalCenter: parent.verticalCenter
                text: entry.type
                tone: Theme.typeColor(entry.type)
            }
            MouseArea {
                id: mouse
                anchors.fill: parent
                hoverEnabled: true
                onClicked: demo.selected = entry.document
                onDoubleClicked: if (entry.document.hasType("folder")) demo.enter(entry.document)
            }
        }
    }

    editors: [
        TextEditor { target: demo.selected; property: "name" },
        TextEditor { target: demo.selected; property: "documentId" },
        TextEditor { target: demo.selected; property: "types"; list: true },
        TextEditor { id: typeEditor; label: "hasType(…)"; value: "image"; onEdited: value = newValue },
        ValueRow {
            label: "answers"
            value: demo.selected ? demo.selected.types.length >= 0 && demo.selected.hasType(typeEditor.value)
                                 : undefined
        },
        ValueRow { target: demo.selected; property: "url" },
        ValueRow {
            label: "children"
            value: demo.selected && demo.selected.hasType("folder") ? demo.selected.children.length : "none"
        },
        Item {
            width: parent ? parent.width : 0
            height: preview.visible ? preview.height + 16 : 0
            Thumbnail {
                id: preview
                y: 12
                width: parent.width
                height: 150
                visible: demo.selected && demo.selected.hasType("image")
                document: visible ? demo.selected : null
                large: true
            }
        }
    ]
}
