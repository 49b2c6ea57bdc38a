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
    property int firstCount: -1
    Component.onCompleted: firstCount = count

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
    hint: "The selected document can be changed here; what it is on disk stays."
    steps: [
        Step {
            text: "Double-click a folder to look inside; its documents are made at that moment."
            when: demo.path.length > 1
        },
        Step {
            text: "Create or delete a file on disk: the list follows."
            when: demo.firstCount >= 0 && demo.path.length === 1 && demo.count !== demo.firstCount
        }
    ]
    subject: demo.selected
    logs: false
    stageHeight: 420

    Row {
        id: crumbs
        x: 16
        height: 40
        spacing: 4
        Repeater {
            model: demo.path
            Row {
                height: crumbs.height
                spacing: 4
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
                    readonly property bool leads: index < demo.path.length - 1
                    activeFocusOnTab: leads
                    Keys.onSpacePressed: demo.leaveTo(index)
                    Keys.onReturnPressed: demo.leaveTo(index)
                    Accessible.role: leads ? Accessible.Link : Accessible.StaticText
                    Accessible.focusable: leads
                    Accessible.onPressAction: if (leads) demo.leaveTo(index)
                    FocusRing { anchors.margins: -4 }
                    MouseArea {
                        anchors.fill: parent
                        enabled: parent.leads
                        cursorShape: enabled ? Qt.PointingHandCursor : Qt.ArrowCursor
                        onClicked: demo.leaveTo(index)
                    }
                }
            }
        }
    }
    Label {
        anchors.right: parent.right
        anchors.rightMargin: 16
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
        anchors.topMargin: crumbs.height + 1
        topMargin: 8
        bottomMargin: 8
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        model: demo.folder ? demo.folder.children : []
        activeFocusOnTab: true
        onActiveFocusChanged: if (activeFocus && currentIndex < 0) currentIndex = 0
        currentIndex: -1
        onCurrentItemChanged: if (currentItem && activeFocus) demo.selected = currentItem.document
        Keys.onReturnPressed: if (currentItem && currentItem.type === "folder") demo.enter(currentItem.document)
        Keys.onPressed: {
            if (event.key !== Qt.Key_Backspace || demo.path.length < 2)
                return;
            demo.leaveTo(demo.path.length - 2);
            event.accepted = true;
        }
        Accessible.role: Accessible.List
        Accessible.name: "Documents of the folder"
        Accessible.focusable: true
        Controls.ScrollBar.vertical: ScrollBar {}

        delegate: Item {
            id: entry
            readonly property Document document: modelData
            readonly property string type: document && document.types.length > 0 ? document.types[0] : ""
            width: list.width
            height: 44
            Accessible.role: Accessible.ListItem
            Accessible.name: document ? Theme.oneLine(document.name) + ", " + type : ""
            Accessible.selectable: true
            Accessible.selected: document === demo.selected
            Accessible.onPressAction: demo.selected = document

            Rectangle {
                anchors.fill: parent
                anchors.leftMargin: 8
                anchors.rightMargin: 12
                radius: Theme.radius
                color: entry.document === demo.selected ? Theme.accentSoft
                     : mouse.containsMouse ? Theme.hover : "transparent"
                border.width: list.activeFocus && entry.ListView.isCurrentItem ? Theme.focusWidth : 0
                border.color: Theme.focus
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
                onClicked: {
                    list.currentIndex = index;
                    list.forceActiveFocus(Qt.MouseFocusReason);
                    demo.selected = entry.document;
                }
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
