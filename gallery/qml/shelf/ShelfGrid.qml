// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Controls 2.5 as Controls
import QtQuick.Window 2.12
import ombrel.Controls 1.0
import "../kit"

// The documents of the open folder as thumbnails: to select, rename, drag and drop.
Item {
    id: place

    property var view
    readonly property alias grid: grid
    // The document whose name is edited: its row may change meanwhile.
    property QtObject renaming: null
    // What a drop would do now: the folder it goes into, the place before which it lands, and why
    // nothing can be put there.
    property var target: null

    function renameCurrent() {
        // The field of another one ends here, and not while the bindings of its tile are evaluated.
        if (renaming !== shelf.model.currentDocument)
            settleName();
        if (shelf.model.currentRow >= 0 && !shelf.saving) {
            showRow(shelf.model.currentRow);
            renaming = shelf.model.currentDocument;
        }
    }
    // A press elsewhere ends it. The view is a focus scope: it keeps the focus in the field.
    function settleName() {
        const item = renaming ? Window.activeFocusItem : null;
        if (item && item.finish)
            item.finish(true);
    }
    function stopRenaming() {
        renaming = null;
        grid.forceActiveFocus();
    }
    function showRow(row) { grid.positionViewAtIndex(row, GridView.Contain); }
    function open(document, rename) {
        if (document.folder && !rename)
            shelf.folder = document;
        else
            renameCurrent();
    }
    // The middle of a row's tile.
    function centerOf(row) {
        const column = row % grid.columns;
        return Qt.point((column + 0.5) * grid.cellWidth,
                        (Math.floor(row / grid.columns) + 0.5) * grid.cellHeight - grid.contentY);
    }

    function aim(position, dragged) {
        edge = position.y < 28 ? -1 : position.y > height - 28 ? 1 : 0;
        target = targetAt(position.x - grid.x, position.y, dragged);
        return target;
    }
    function targetAt(x, y, dragged) {
        const column = Math.min(grid.columns - 1, Math.floor(x / grid.cellWidth));
        const row = Math.floor((y + grid.contentY) / grid.cellHeight) * grid.columns + column;
        const part = x / grid.cellWidth - column;
        const document = shelf.model.documentAt(row);
        const place = { folder: shelf.folder, row: -1, into: -1, problem: "" };
        if (document && document.folder && part > 0.2 && part < 0.8 && !(dragged && dragged.includes(document))) {
            place.folder = document;
            place.into = row;
        } else if (document) {
            place.row = part < 0.5 ? row : row + 1;
        }
        const known = target && target.folder === place.folder ? target.problem : undefined;
        place.problem = !dragged ? "" : known !== undefined ? known : shelf.moveProblem(dragged, place.folder);
        return place;
    }

    Accessible.role: Accessible.Pane
    Accessible.name: "Thumbnails"

    DragZone {
        id: source
        anchors.fill: parent
        dragEnabled: !shelf.saving && place.renaming === null
        dragDelegate: place.view.dragCard
        onDragActiveChanged: place.view.dragging(dragActive, source)

        // A press beside the tiles.
        MouseArea {
            anchors.fill: parent
            acceptedButtons: Qt.LeftButton | Qt.RightButton
            onPressed: {
                place.settleName();
                grid.forceActiveFocus();
                source.dragDocuments = [];
                shelf.model.press(-1, mouse.modifiers);
                if (mouse.button === Qt.RightButton)
                    place.view.openMenu(place, mouse.x, mouse.y);
            }
        }

        GridView {
            id: grid
            readonly property int columns: Math.max(2, Math.floor(width / 128))
            anchors { fill: parent; leftMargin: 8; rightMargin: 16 }
            topMargin: 8
            bottomMargin: 8
            cellWidth: Math.floor(width / columns)
            cellHeight: Math.round((cellWidth - 24) * 3 / 4) + 46
            clip: true
            // Drags belong to the documents; it scrolls by wheel and bar.
            interactive: false
            boundsBehavior: Flickable.StopAtBounds
            activeFocusOnTab: true
            keyNavigationEnabled: false
            cacheBuffer: 200
            model: shelf.model
            Controls.ScrollBar.vertical: ScrollBar { parent: place; anchors { top: parent.top; bottom: parent.bottom; right: parent.right } }
            Accessible.role: Accessible.List
            Accessible.name: "Documents in " + (shelf.folder ? Theme.oneLine(shelf.folder.name) : "")
            Keys.onPressed: place.press(event)
            // The keys start somewhere, and where that is can be seen.
            onActiveFocusChanged: if (activeFocus && shelf.model.currentRow < 0) shelf.model.step(0, Qt.ControlModifier)

            move: Transition { NumberAnimation { properties: "x,y"; duration: 160; easing.type: Easing.OutCubic } }
            displaced: Transition { NumberAnimation { properties: "x,y"; duration: 160; easing.type: Easing.OutCubic } }

            delegate: ShelfTile {
                id: tile
                width: grid.cellWidth
                height: grid.cellHeight
                document: model.document
                selected: model.selected
                found: model.found
                current: grid.activeFocus && index === shelf.model.currentRow
                entered: place.target !== null && place.target.into === index && place.target.problem === ""
                dimmed: source.dragActive && selected || place.view.cut.indexOf(model.document) >= 0
                renaming: document !== null && place.renaming === document
                whole: place.view.framesShown && y >= grid.contentY - 1 && y + height <= grid.contentY + grid.height + 1
                z: renaming ? 1 : 0
                onPressed: {
                    place.settleName();
                    grid.forceActiveFocus();
                    if (mouse.button === Qt.RightButton) {
                        if (!selected)
                            shelf.model.press(index, 0);
                        const at = mapToItem(place, mouse.x + 4, mouse.y + 4);
                        place.view.openMenu(place, at.x, at.y);
                        return;
                    }
                    shelf.model.press(index, mouse.modifiers);
                    source.dragDocuments = shelf.model.selection();
                }
                onClicked: if (mouse.button === Qt.LeftButton) shelf.model.click(index, mouse.modifiers)
                onOpened: place.open(model.document, name)
                onRenamed: {
                    shelf.rename(model.document, name);
                    place.stopRenaming();
                }
                onRenameCancelled: place.stopRenaming()
            }

            MouseArea {
                parent: grid
                anchors.fill: parent
                acceptedButtons: Qt.NoButton
                onWheel: grid.scrollBy(-wheel.angleDelta.y * 0.9)
            }
            function scrollBy(distance) {
                const last = Math.max(-topMargin, contentHeight + bottomMargin - height + originY);
                contentY = Math.max(originY - topMargin, Math.min(last, contentY + distance));
            }
        }
    }

    readonly property int currentRow: shelf.model.currentRow
    onCurrentRowChanged: if (currentRow >= 0 && !source.dragActive) showRow(currentRow)
    readonly property QtObject folder: shelf.folder
    onFolderChanged: {
        renaming = null;
        grid.positionViewAtBeginning();
    }

    Rectangle {
        anchors { fill: parent; margins: 4 }
        visible: grid.activeFocus && grid.count === 0
        radius: Theme.radius
        color: "transparent"
        border.width: 2
        border.color: Theme.focus
    }
    Column {
        anchors.centerIn: parent
        visible: grid.count === 0
        width: parent.width - 48
        spacing: 8
        Label {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.WordWrap
            text: !shelf.folder ? "" : !shelf.folder.readable ? "This folder cannot be read"
                : shelf.reading ? "Reading" : "This folder is empty"
            color: shelf.folder && !shelf.folder.readable ? Theme.errorText : Theme.text
            font.pixelSize: Theme.large
        }
        Label {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.WordWrap
            visible: shelf.folder !== null && shelf.folder.readable && !shelf.reading
            text: "Drop files here from your file manager"
            color: Theme.softText
        }
    }

    // Where a drop would land: a line between two tiles, or a frame around all of them.
    Rectangle {
        readonly property int row: place.target ? place.target.row : -1
        readonly property int column: row < 0 ? 0 : row % grid.columns
        visible: row >= 0 && place.target.problem === ""
        x: grid.x + column * grid.cellWidth - 1
        y: Math.floor(Math.max(0, row) / grid.columns) * grid.cellHeight - grid.contentY + 8
        width: 3
        height: grid.cellHeight - 16
        radius: 1.5
        color: Theme.positive
    }
    Rectangle {
        anchors { fill: parent; margins: 4 }
        visible: place.target !== null && place.target.into < 0 && (place.target.row < 0 || place.target.problem !== "")
        radius: Theme.radius
        color: "transparent"
        border.width: 2
        border.color: place.target && place.target.problem !== "" ? Theme.error : Theme.positive
    }

    DropZone {
        id: zone
        anchors.fill: parent
        onContainsDragChanged: if (!containsDrag) place.target = null
        FileDropHandler {
            onEntered: place.aim(drag.position, null)
            onPositionChanged: place.aim(drag.position, null)
            onDropped: {
                const at = place.aim(drag.position, null);
                shelf.add(Array.from(drag.data), at.folder, at.row);
            }
        }
        DocumentDropHandler {
            type: "shelf"
            property var dragged: []
            onEntered: {
                place.target = null;
                dragged = Array.from(drag.source.dragDocuments);
                place.aim(drag.position, dragged);
            }
            onPositionChanged: place.aim(drag.position, dragged)
            onDropped: {
                const at = place.aim(drag.position, dragged);
                place.view.taken = shelf.move(dragged, at.folder, at.row);
            }
        }
    }
    // Near the upper and the lower edge a drag scrolls.
    property int edge: 0
    Timer {
        interval: 16
        repeat: true
        running: zone.containsDrag && place.edge !== 0
        onTriggered: grid.scrollBy(place.edge * 9)
    }
    function press(event) {
        const model = shelf.model;
        const now = model.currentRow;
        const page = Math.max(1, Math.floor(grid.height / grid.cellHeight) - 1) * grid.columns;
        const last = model.count - 1;
        const rows = ({ [Qt.Key_Left]: now - 1, [Qt.Key_Right]: now + 1, [Qt.Key_Up]: now - grid.columns,
                        [Qt.Key_Down]: now + grid.columns, [Qt.Key_PageUp]: now - page,
                        [Qt.Key_PageDown]: now + page, [Qt.Key_Home]: 0, [Qt.Key_End]: last });
        const control = event.modifiers & Qt.ControlModifier;
        if ((event.modifiers & Qt.AltModifier) && (event.key === Qt.Key_Up || event.key === Qt.Key_Down)) {
            place.view.moveBy(event.key === Qt.Key_Up ? -1 : 1);
        } else if (rows[event.key] !== undefined && !(event.modifiers & Qt.AltModifier)) {
            const row = rows[event.key];
            // In the first and the last line Up and Down stay where they are.
            const vertical = event.key === Qt.Key_Up || event.key === Qt.Key_Down;
            if (vertical && (row < 0 || row > last) && now >= 0)
                model.step(event.key === Qt.Key_Down && Math.floor(now / grid.columns) < Math.floor(last / grid.columns)
                           ? last : now, event.modifiers);
            else
                model.step(Math.max(0, Math.min(last, row)), event.modifiers);
        } else if (event.key === Qt.Key_Space) {
            model.toggleCurrent();
        } else if (event.key === Qt.Key_A && control) {
            model.selectAll();
        } else if (event.key === Qt.Key_X && control) {
            place.view.cutSelection();
        } else if (event.key === Qt.Key_V && control) {
            place.view.paste();
        } else if (event.key === Qt.Key_F2) {
            renameCurrent();
        } else if (event.key === Qt.Key_Delete) {
            place.view.askToDelete();
        } else if ((event.key === Qt.Key_Return || event.key === Qt.Key_Enter) && now >= 0) {
            open(model.currentDocument, false);
        } else if (event.key === Qt.Key_Backspace) {
            shelf.openParent();
        } else if (event.key === Qt.Key_Escape) {
            model.clearSelection();
            place.view.cut = [];
        } else if (event.key === Qt.Key_Menu || (event.key === Qt.Key_F10 && (event.modifiers & Qt.ShiftModifier))) {
            const at = now >= 0 ? centerOf(now) : Qt.point(width / 2, height / 2);
            place.view.openMenu(place, at.x, at.y);
        } else {
            return;
        }
        event.accepted = true;
    }
}
