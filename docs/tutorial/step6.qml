// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Controls 2.5 as Controls
import QtQuick.Window 2.12
import ombrel.Controls 1.0
import ombrel.data.Core 1.0

Rectangle {
    id: page

    property bool renaming: false
    property Item focused: null

    width: 420
    height: 300
    color: UI.color(UI.AreaEditorBackground)

    Document {
        id: library
        documentId: "library"
        name: "My documents"
        types: ["item", "folder"]
    }
    Component { id: maker; Document {} }

    function add(folder, name, types) {
        const document = maker.createObject(folder, {
            "documentId": folder.documentId + "/" + name, "name": name, "types": types
        });
        move(document, folder);
        return document;
    }
    // Assigning is how QML changes a list: what is there, and the new one behind it.
    function move(document, folder) {
        folder.children = Array.from(folder.children).concat([document]);
    }

    Component.onCompleted: {
        const holiday = add(library, "Holiday", ["item", "folder"]);
        add(holiday, "Beach", ["item"]);
        add(holiday, "Hills", ["item"]);
        add(library, "Work", ["item", "folder"]);
    }

    DropZone {
        id: fileZone
        anchors.fill: parent
        FileDropHandler {
            onDropped: {
                for (const url of Array.from(drag.data))
                    page.add(library, page.fileName(url), ["item"]).url = url;
            }
        }
    }
    DashedBorder {
        x: 4.5
        y: 4.5
        width: page.width - 9
        height: page.height - 9
        visible: fileZone.containsDrag
        borderColor: UI.color(UI.SecondaryPress)
    }

    function fileName(url) {
        return decodeURIComponent(url.toString().split("/").pop());
    }

    DragZone {
        anchors.fill: parent
        dragEnabled: !page.renaming && tree.activeDocument !== library
        dragDocuments: tree.activeDocument ? [tree.activeDocument] : []
        dragDelegate: Text {
            visible: !DragZone.isOutside
            text: tree.activeDocument ? tree.activeDocument.name : ""
        }

        Flickable {
            id: view
            anchors.fill: parent
            anchors.margins: 12
            contentHeight: tree.height
            clip: true
            // A flickable that takes drags for itself leaves none to the zone, and one that does not takes no wheel.
            interactive: false
            Controls.ScrollBar.vertical: Controls.ScrollBar {}

            MouseArea {
                z: 1
                width: view.width
                height: Math.max(view.height, tree.height)
                acceptedButtons: Qt.NoButton
                onWheel: view.contentY = Math.max(0, Math.min(tree.height - view.height,
                                                              view.contentY - wheel.angleDelta.y / 2))
            }
            TreeView {
                id: tree
                width: view.width
                focus: true
                rootDocuments: [library]
                childProperty: "children"
                onEditRequested: page.renaming = activeIndex > 0
                Keys.onDeletePressed: page.askToDelete()

                delegate: Item {
                    id: row
                    readonly property QtObject shown: document
                    readonly property bool edited: page.renaming && TreeView.isActiveItem
                    height: 28

                    Text {
                        anchors.fill: parent
                        verticalAlignment: Text.AlignVCenter
                        text: row.shown ? row.shown.name : ""
                        font.bold: row.shown && row.shown.types.includes("folder")
                        visible: !row.edited
                    }
                    Loader {
                        anchors.fill: parent
                        active: row.edited
                        sourceComponent: PropertyEditor {
                            document: row.shown
                            property: "name"
                            onBeginEdit: {
                                field.text = document[property];
                                field.selectAll();
                            }
                            onEnterPressed: {
                                document[property] = field.text;
                                page.stopRenaming();
                            }
                            onEscapePressed: page.stopRenaming()
                            onEndEdit: page.renaming = false
                            Component.onCompleted: forceActiveFocus()

                            TextInput {
                                id: field
                                anchors.fill: parent
                                verticalAlignment: Text.AlignVCenter
                                focus: true
                            }
                        }
                    }
                    DropZone {
                        id: zone
                        anchors.fill: parent
                        enabled: row.shown && row.shown.types.includes("folder")
                        DocumentDropHandler {
                            type: "item"
                            onDropped: page.move(drag.source.dragDocuments[0], row.shown)
                        }
                    }
                    DashedBorder {
                        x: 0.5
                        y: 0.5
                        width: parent.width - 1
                        height: parent.height - 1
                        visible: zone.containsDrag
                        borderColor: UI.color(UI.SecondaryPress)
                    }
                }
                backgroundDelegate: Rectangle {
                    color: TreeView.isActiveItem ? UI.color(UI.PrimaryHover) : "transparent"
                    // Without it presses would go on to what lies below the tree.
                    MouseArea {
                        id: mouse
                        anchors.fill: parent
                        acceptedButtons: Qt.LeftButton | Qt.RightButton
                        onPressed: {
                            if (mouse.button !== Qt.RightButton)
                                return;
                            tree.activeIndex = index;
                            page.showMenu(mapToItem(null, mouse.x, mouse.y));
                        }
                    }
                }
            }
        }
    }

    function stopRenaming() {
        renaming = false;
        tree.forceActiveFocus();
    }

    //! [menu]
    function showMenu(place) {
        menu.offset = place;
        menu.hotspot = Qt.point(place.x + menu.width > Window.width ? menu.width : 0,
                                place.y + menu.height > Window.height ? menu.height : 0);
        menu.show();
    }
    Popup {
        id: menu
        width: 120
        height: 56
        onAccepted: result === "Delete" ? page.askToDelete() : tree.editRequested()

        Rectangle {
            anchors.fill: parent
            border.color: UI.color(UI.PrimaryControlBorder)
        }
        Column {
            Repeater {
                model: ["Rename", "Delete"]
                Text {
                    width: menu.width
                    height: 28
                    leftPadding: 10
                    verticalAlignment: Text.AlignVCenter
                    text: modelData
                    MouseArea {
                        anchors.fill: parent
                        onClicked: menu.accept(modelData)
                    }
                }
            }
        }
    }
    //! [menu]

    //! [dialog]
    function askToDelete() {
        if (tree.activeIndex <= 0)
            return;
        question.document = tree.activeDocument;
        question.show();
    }
    DialogItem {
        id: question
        property QtObject document: null
        anchors.centerIn: parent
        width: 260
        height: 96
        visible: open
        type: DialogItem.TypeWarning
        onAccepted: {
            // It leaves its folder by itself, and its row goes.
            document.destroy();
            tree.forceActiveFocus();
        }
        onRejected: tree.forceActiveFocus()
        Keys.onEscapePressed: reject()
        Keys.onReturnPressed: accept()

        Rectangle {
            anchors.fill: parent
            color: UI.color(UI.WarningBackground)
        }
        Text {
            x: 16
            y: 16
            text: question.document ? "Delete “" + question.document.name + "”?" : ""
        }
        Row {
            x: 16
            y: 56
            spacing: 24
            Repeater {
                model: ["Delete", "Keep"]
                Text {
                    text: modelData
                    font.bold: true
                    MouseArea {
                        anchors.fill: parent
                        onClicked: modelData === "Delete" ? question.accept() : question.reject()
                    }
                }
            }
        }
    }
    //! [dialog]
}
