// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Controls 2.5 as Controls
import ombrel.Controls 1.0
import ombrel.data.Core 1.0
import "../kit"

Demo {
    id: demo

    // A tree reads all that is below its roots, and a folder may hold a whole disk: what is shown is
    // a picture of the folder, breadth first, up to this many documents.
    property int limit: 1000
    property bool cut: false
    property int perShelf: 600
    property bool renaming: false
    property int rowCount: 0

    function mirrorOf(source, parentDocument) {
        return mirror.createObject(parentDocument || forest, {
            source: source, documentId: source.documentId, name: source.name, types: source.types,
            url: source.url, readable: source.readable
        });
    }
    function showFolder() {
        const root = mirrorOf(gallery.folder, null);
        const waiting = [root];
        let count = 1;
        while (waiting.length > 0 && count < limit) {
            const parentDocument = waiting.shift();
            const source = parentDocument.source;
            if (!source.hasType("folder"))
                continue;
            const children = [];
            const sources = Array.from(source.children);
            for (let i = 0; i < sources.length && count < limit; ++i, ++count) {
                const child = mirrorOf(sources[i], parentDocument);
                children.push(child);
                waiting.push(child);
            }
            parentDocument.readable = source.readable;
            parentDocument.children = children;
            if (children.length < sources.length)
                waiting.unshift(parentDocument);
        }
        show([root]);
        // What is left waiting had no place any more, with all that it holds.
        cut = waiting.some(left => left.source.children.length > left.children.length);
    }
    function showThousands() {
        const roots = [];
        for (let i = 0; i < 5; ++i) {
            const root = mirror.createObject(forest, { documentId: "r" + i, name: "Shelf " + (i + 1),
                                                       types: ["folder"] });
            const children = [];
            for (let j = 0; j < perShelf; ++j) {
                children.push(mirror.createObject(root, { documentId: "r" + i + "c" + j,
                                                          name: "Document " + (j + 1), types: ["text"] }));
            }
            root.children = children;
            roots.push(root);
        }
        show(roots);
    }
    function show(roots) {
        cut = false;
        const old = [];
        for (let i = 0; i < tree.rootDocuments.length; ++i)
            old.push(tree.rootDocuments[i]);
        tree.rootDocuments = roots;
        for (const document of old)
            document.destroy();
    }

    function rename(document, name) {
        document.name = name;
        if (document.source)
            document.source.name = name;
        stopRenaming();
    }
    function stopRenaming() {
        renaming = false;
        tree.forceActiveFocus();
    }

    function rowsOf(documents) {
        let count = documents.length;
        for (let i = 0; i < documents.length; ++i)
            count += rowsOf(documents[i].children);
        return count;
    }

    title: "TreeView"
    steps: [
        Step {
            text: "Click a triangle, or walk with the arrow keys; type the first letters of a name."
            when: tree.activeIndex >= 0
        },
        Step { text: "Press F2 and rename."; when: demo.renaming },
        Step {
            text: "Make “Thousands” of rows, 3,000 and more, and collapse one of the shelves."
            when: demo.rowCount >= 3000
        }
    ]
    subject: tree
    codeValues: ({ activeIndex: undefined })
    stageHeight: 460

    Component {
        id: mirror
        Document {
            property QtObject source: null
            property bool readable: true
        }
    }
    Item { id: forest }

    Row {
        id: commands
        x: 16
        y: 8
        spacing: 8
        Button { text: "Folder"; width: 84; onClicked: demo.showFolder() }
        Button { text: "Thousands"; width: 96; onClicked: demo.showThousands() }
        Button { text: "None"; width: 70; onClicked: demo.show([]) }
    }
    Label {
        anchors { left: commands.right; leftMargin: 12; right: parent.right; rightMargin: 16 }
        y: 8
        height: 32
        verticalAlignment: Text.AlignVCenter
        horizontalAlignment: Text.AlignRight
        visible: demo.cut
        text: "Cut at " + demo.limit.toLocaleString(Qt.locale("C"), "f", 0) + " rows: the folder holds more"
        color: Theme.softText
        font.pixelSize: Theme.small
        elide: Text.ElideLeft
    }
    Rectangle { y: 48; width: parent.width; height: 1; color: Theme.line }
    Label {
        anchors { centerIn: parent; verticalCenterOffset: 24 }
        visible: tree.rootDocuments.length === 0
        text: "The tree has no documents"
        color: Theme.softText
    }
    TreeKeys {
        id: treeKeys
        tree: tree
        view: flick
        stop: stop
    }

    DragZone {
        anchors { fill: parent; topMargin: commands.y + commands.height + 9 }
        dragDocuments: tree.activeDocument ? [tree.activeDocument] : []
        dragDelegate: DocumentTile { document: tree.activeDocument; width: 200; opacity: 0.8 }

        FocusRing { shown: tree.activeFocus && tree.activeIndex < 0 }
        Flickable {
            id: flick
            anchors.fill: parent
            topMargin: 8
            bottomMargin: 8
            contentHeight: tree.height
            clip: true
            interactive: false
            boundsBehavior: Flickable.StopAtBounds
            Controls.ScrollBar.vertical: ScrollBar {}

            // A flickable that does not take drags takes no wheel either.
            MouseArea {
                z: 1
                width: flick.width
                height: Math.max(flick.height, tree.height)
                acceptedButtons: Qt.NoButton
                onWheel: {
                    const before = flick.contentY;
                    const last = Math.max(0, flick.contentHeight + flick.bottomMargin - flick.height);
                    flick.contentY = Math.max(-flick.topMargin,
                                              Math.min(last, before - wheel.angleDelta.y * 0.7));
                    // At an end it is the page's.
                    wheel.accepted = flick.contentY !== before;
                }
            }

            // The stop of Tab: it carries the role and the name.
            FocusScope {
                id: stop
                x: 6
                width: flick.width - x
                height: tree.height
                activeFocusOnTab: true
                Accessible.role: Accessible.Tree
                Accessible.name: "Folder"
                Accessible.focusable: true

                TreeView {
                    id: tree
                    focus: true
                    width: parent.width
                    childProperty: "children"
                    rootCanCollapse: true
                    Keys.enabled: !demo.renaming
                    Keys.onPressed: treeKeys.press(event)
                    onActiveIndexChanged: { demo.renaming = false; log.note("activeIndexChanged"); }
                    onActiveDocumentChanged: log.note("activeDocumentChanged")
                    onIndexRebuilt: {
                        demo.rowCount = demo.rowsOf(rootDocuments);
                        log.note("indexRebuilt");
                    }
                    onEditRequested: { log.note("editRequested"); demo.renaming = activeIndex >= 0; }

                    delegate: Item {
                        id: rowContent
                        readonly property bool edited: demo.renaming && TreeView.isActiveItem
                        readonly property QtObject shown: document
                        height: 28
                        Accessible.role: Accessible.TreeItem
                        Accessible.name: document ? Theme.oneLine(document.name) : ""
                        Accessible.selectable: true
                        Accessible.selected: TreeView.isActiveItem

                        Thumbnail {
                            id: thumbnail
                            x: 4
                            anchors.verticalCenter: parent.verticalCenter
                            width: 20
                            height: 20
                            document: rowContent.shown
                        }
                        Label {
                            readonly property bool readable: !rowContent.shown || rowContent.shown.readable
                            anchors { left: thumbnail.right; leftMargin: 8; right: parent.right; rightMargin: 16 }
                            anchors.verticalCenter: parent.verticalCenter
                            visible: !rowContent.edited
                            text: !document ? "" : Theme.oneLine(document.name) + (readable ? "" : "  –  cannot be read")
                            color: readable ? Theme.text : Theme.errorText
                            Accessible.ignored: true
                        }
                        // One row at most has the field: a row costs what it shows.
                        Loader {
                            anchors { left: thumbnail.right; right: parent.right; rightMargin: 16 }
                            anchors.verticalCenter: parent.verticalCenter
                            active: rowContent.edited
                            sourceComponent: Field {
                                height: 24
                                name: "New name"
                                text: rowContent.shown.name
                                onAccepted: demo.rename(rowContent.shown, text)
                                Keys.onEscapePressed: demo.stopRenaming()
                                Component.onCompleted: {
                                    forceActiveFocus();
                                    selectAll();
                                }
                            }
                        }
                    }
                    backgroundDelegate: Rectangle {
                        color: TreeView.isActiveItem ? Theme.accentSoft : "transparent"
                        border.width: TreeView.isActiveItem && tree.activeFocus ? 2 : 0
                        border.color: Theme.focus
                        // A row lets presses through, and the page below would take the focus and the drag.
                        MouseArea { anchors.fill: parent }
                    }
                }
            }
        }
    }

    editors: [
        ValueRow { label: "rows"; value: demo.rowCount },
        NumberEditor { target: tree; property: "indent"; from: 0; to: 60 },
        BoolEditor { target: tree; property: "rootCanCollapse" },
        NumberEditor { target: tree; property: "activeIndex"; from: -1; to: Math.max(-1, demo.rowCount - 1) },
        ValueRow { label: "activeDocument"; value: tree.activeDocument ? tree.activeDocument.name : "none" },
        TextEditor { target: tree; property: "childProperty" },
        ValueRow { target: tree; property: "implicitHeight" },
        Item {
            width: parent ? parent.width : 0
            height: 66
            Rectangle {
                anchors { fill: parent; topMargin: 12 }
                radius: Theme.radius
                color: shelf.containsDrag ? Theme.positiveSoft : Theme.sunken
                border { width: 1; color: Theme.strongLine }
                Label { anchors.centerIn: parent; text: "Drop a file or folder here"; color: Theme.faintText }
                DropZone {
                    id: shelf
                    anchors.fill: parent
                    DocumentDropHandler { type: "folder"; onDropped: log.note("folder dropped") }
                    DocumentDropHandler { type: "file"; onDropped: log.note("file dropped") }
                    DocumentDropHandler { type: "text"; onDropped: log.note("text dropped") }
                    DocumentDropHandler { type: "image"; onDropped: log.note("image dropped") }
                }
            }
        }
    ]

    Component.onCompleted: showFolder()
}
