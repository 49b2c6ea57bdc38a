// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Window 2.12
import ombrel.Controls 1.0
import ".."
import "../kit"

// A small media organiser: folders at the left, thumbnails in the middle, what is known of one of
// them at the right. All that is done stays in memory until it is saved.
FocusScope {
    id: page

    // Documents that wait to be pasted elsewhere.
    property var cut: []
    readonly property bool asking: deletion.open || saveDialog.open || labelDialog.open || replacement.open || closing.open

    // Unsaved changes may go with the window.
    signal closingAgreed()
    readonly property bool wide: width >= 860
    property bool detailsWanted: false
    readonly property bool detailsShown: wide || detailsWanted
    // Frames lie above everything in the window, and would lie above what covers the thumbnails.
    readonly property bool framesShown: wide || !detailsWanted

    // Of the drag that runs now: where it began, whether its drop was taken.
    property point home
    property bool taken: false
    readonly property string refusal: thumbnails.target && thumbnails.target.problem !== "" ? thumbnails.target.problem
                                    : folders.target ? folders.problem : ""
    readonly property Component dragCard: Component { ShelfDragCard { view: page } }

    function dragging(active, source) {
        if (!active)
            return;
        taken = false;
        const from = source.parent === thumbnails ? thumbnails.centerOf(shelf.model.currentRow) : null;
        home = from ? thumbnails.mapToItem(null, from.x, from.y)
                    : folders.mapToItem(null, 60, folders.tree.currentEntry().mapToItem(folders, 0, 14).y);
    }

    // What an action is about: the selected documents, or the folder when the tree has the keys.
    function chosenDocuments() {
        if (shelf.model.selectedCount > 0 && !folders.tree.activeFocus)
            return shelf.model.selection();
        return shelf.folder && shelf.folder !== shelf.root ? [shelf.folder] : [];
    }
    function nameOf(documents) {
        return documents.length === 1 ? "“" + Theme.oneLine(documents[0].name) + "”" : documents.length + " items";
    }
    function askToDelete() {
        deletion.documents = chosenDocuments();
        if (deletion.documents.length > 0 && !shelf.saving)
            deletion.ask(Window.activeFocusItem);
    }
    function askToClose() {
        if (!asking)
            closing.ask(Window.activeFocusItem);
    }
    function askForLabel() {
        const documents = chosenDocuments();
        if (documents.length > 0 && !shelf.saving)
            labelDialog.choose(documents, Window.activeFocusItem);
    }
    function askToSave() {
        if (!shelf.saving && !shelf.reading)
            saveDialog.propose(Window.activeFocusItem);
    }
    function cutSelection() { cut = shelf.model.selection(); }
    function paste() {
        if (cut.length > 0 && shelf.move(cut, shelf.folder, -1))
            cut = [];
    }
    // By keys what a drag does by hand: the selected documents go before or behind their neighbour.
    function moveBy(direction) {
        const documents = shelf.model.selection();
        if (documents.length === 0)
            return;
        const first = shelf.model.rowOf(documents[0]);
        const last = shelf.model.rowOf(documents[documents.length - 1]);
        if (direction < 0 ? first > 0 : last < shelf.model.count - 1)
            shelf.move(documents, shelf.folder, direction < 0 ? first - 1 : last + 2);
    }
    function openMenu(item, x, y) {
        const some = shelf.model.selectedCount > 0;
        const at = item.mapToItem(page, x, y);
        const free = !shelf.saving;
        menu.openAt(at.x, at.y, [
            { text: "Open", keys: "Return", enabled: some && shelf.model.currentDocument.folder, run: () => thumbnails.open(shelf.model.currentDocument, false) },
            { text: "Rename", keys: "F2", enabled: some && free, run: () => thumbnails.renameCurrent() },
            { text: "Label and colour", keys: "Ctrl+L", enabled: some && free, run: () => askForLabel() },
            { text: "Address as QR code", keys: "", enabled: some, run: () => detailsWanted = true },
            { text: "Cut", keys: "Ctrl+X", enabled: some && free, run: () => cutSelection() },
            { text: "Paste", keys: "Ctrl+V", enabled: cut.length > 0 && free, run: () => paste() },
            { text: "Delete", keys: "Del", enabled: some && free, run: () => askToDelete() },
            { text: "New folder", keys: "Ctrl+Shift+N", enabled: free, run: () => shelf.makeFolder() },
            { text: "Select all", keys: "Ctrl+A", enabled: shelf.model.count > 0, run: () => shelf.model.selectAll() }
        ], thumbnails.grid);
    }
    function countText() {
        const number = n => n.toLocaleString(Qt.locale("C"), "f", 0);
        return number(shelf.count) + (shelf.count === 1 ? " item" : " items")
             + (shelf.reading ? ", reading" : "")
             + (shelf.model.selectedCount > 0 ? ", " + number(shelf.model.selectedCount) + " selected" : "")
             + (shelf.unreadable > 0 ? ", " + number(shelf.unreadable) + " cannot be read" : "")
             + (shelf.cut ? ", the folder holds more" : "")
             + (shelf.treeCut ? ", more folders than the tree shows" : "");
    }
    function openFolder() {
        if (shelf.address.toString() === opened.toString())
            return;
        if (shelf.changed)
            replacement.ask(Window.activeFocusItem);
        else
            shelf.open(opened);
    }

    readonly property url opened: gallery.folder.url
    onOpenedChanged: openFolder()
    readonly property string message: shelf.message
    onMessageChanged: if (message !== "") fading.restart()
    Timer { id: fading; interval: 8000; onTriggered: shelf.say("") }
    readonly property bool saving: shelf.saving
    onSavingChanged: thumbnails.renaming = null

    Shortcut { sequence: "Ctrl+Z"; enabled: !page.asking && !shelf.saving; onActivated: shelf.history.undo() }
    Shortcut { sequences: ["Ctrl+Shift+Z", "Ctrl+Y"]; enabled: !page.asking && !shelf.saving; onActivated: shelf.history.redo() }
    Shortcut { sequence: "Ctrl+S"; enabled: !page.asking; onActivated: page.askToSave() }
    Shortcut { sequence: "Ctrl+L"; enabled: !page.asking; onActivated: page.askForLabel() }
    Shortcut { sequence: "Ctrl+Shift+N"; enabled: !page.asking && !shelf.saving; onActivated: shelf.makeFolder() }
    Shortcut { sequence: "F3"; enabled: !page.asking; onActivated: searchField.activeFocus || searchField.text === "" ? searchField.forceActiveFocus() : shelf.showNextFound() }
    Shortcut { sequence: "Shift+F3"; enabled: !page.asking; onActivated: shelf.showNextFound(true) }
    Shortcut { sequence: "F12"; onActivated: rate.visible = !rate.visible }

    Rectangle {
        anchors.fill: parent
        color: Theme.panel
    }

    Rectangle {
        id: bar
        width: parent.width
        height: 56
        color: Theme.window
        Accessible.role: Accessible.ToolBar
        Accessible.name: "Shelf"
        Rectangle { y: parent.height - 1; width: parent.width; height: 1; color: Theme.line }
        Row {
            x: 16
            anchors.verticalCenter: parent.verticalCenter
            spacing: 8
            Button {
                width: 64
                text: "Undo"
                enabled: shelf.history.canUndo && !shelf.saving
                Accessible.name: enabled ? "Undo: " + shelf.history.undoText : "Undo"
                onClicked: shelf.history.undo()
            }
            Button {
                width: 64
                text: "Redo"
                enabled: shelf.history.canRedo && !shelf.saving
                Accessible.name: enabled ? "Redo: " + shelf.history.redoText : "Redo"
                onClicked: shelf.history.redo()
            }
            Label {
                anchors.verticalCenter: parent.verticalCenter
                visible: page.width > 760
                width: Math.max(0, page.width - 64 * 2 - searchField.width - tools.width - 80)
                leftPadding: 8
                text: shelf.history.canUndo ? "Last: " + Theme.oneLine(shelf.history.undoText) : ""
                color: Theme.faintText
                font.pixelSize: Theme.small
            }
        }
        Row {
            id: tools
            anchors { right: parent.right; rightMargin: 16; verticalCenter: parent.verticalCenter }
            spacing: 8
            Label {
                anchors.verticalCenter: parent.verticalCenter
                visible: searchField.text !== ""
                text: shelf.foundCount + " found"
                color: Theme.softText
                font.pixelSize: Theme.small
            }
            Field {
                id: searchField
                width: page.width > 760 ? 190 : 130
                height: 30
                placeholderText: "Find (F3)"
                Accessible.name: "Find"
                Accessible.description: shelf.foundCount + " found"
                // Typing is not to wait for a search through thousands.
                onTextChanged: pause.restart()
                onAccepted: {
                    shelf.find(text);
                    shelf.showNextFound();
                }
                Keys.onEscapePressed: {
                    text = "";
                    thumbnails.grid.forceActiveFocus();
                }
                Keys.onDownPressed: thumbnails.grid.forceActiveFocus()
                Timer { id: pause; interval: 60; onTriggered: shelf.find(searchField.text) }
                Component.onDestruction: shelf.find("")
            }
            Button {
                visible: !page.wide
                text: "Details"
                Accessible.name: text
                checkable: true
                checked: page.detailsWanted
                onToggled: page.detailsWanted = checked
            }
            Button {
                text: shelf.saving ? "Saving" : "Save"
                Accessible.name: text
                primary: true
                enabled: shelf.changed && !shelf.saving && !shelf.reading
                onClicked: page.askToSave()
            }
        }
    }

    Rectangle {
        id: side
        y: bar.height
        width: page.width < 700 ? 160 : 210
        height: page.height - bar.height - status.height
        color: Theme.sunken
        ShelfTree {
            id: folders
            anchors.fill: parent
            view: page
        }
        Rectangle { anchors.right: parent.right; width: 1; height: parent.height; color: Theme.line }
    }
    ShelfGrid {
        id: thumbnails
        anchors { left: side.right; top: bar.bottom; bottom: status.top; right: page.wide ? details.left : parent.right }
        view: page
    }
    ShelfDetails {
        id: details
        anchors { right: parent.right; top: bar.bottom; bottom: status.top }
        width: 236
        visible: page.detailsShown
        view: page
    }

    Rectangle {
        id: status
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
        height: 32
        color: Theme.window
        Rectangle { width: parent.width; height: 1; color: Theme.line }
        Label {
            id: counts
            x: 16
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            text: page.countText()
            color: Theme.softText
            font.pixelSize: Theme.small
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        Label {
            anchors { left: counts.right; leftMargin: 16; right: rate.visible ? rate.left : parent.right; rightMargin: 16 }
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            horizontalAlignment: Text.AlignRight
            text: Theme.oneLine(page.refusal !== "" ? page.refusal : page.message)
            color: page.refusal !== "" ? Theme.errorText : Theme.text
            font.pixelSize: Theme.small
            Accessible.role: Accessible.AlertMessage
            Accessible.name: text
            Accessible.ignored: text === ""
        }
        Label {
            id: rate
            anchors { right: parent.right; rightMargin: 16 }
            visible: false
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            text: frames.value + " fps"
            color: Theme.accentText
            font.pixelSize: Theme.small
            font.family: Theme.monoFamily
            Accessible.role: Accessible.StaticText
            Accessible.name: "Frame rate " + text
            FrameRate { id: frames }
        }
    }

    ShelfMenu { id: menu }

    ShelfDialog {
        id: deletion
        property var documents: []
        title: "Delete " + page.nameOf(documents) + "?"
        text: "It leaves the shelf now and the disk when you save. Until then Undo brings it back."
        main: "Delete"
        tone: Theme.error
        onAccepted: shelf.remove(documents)
    }
    ShelfDialog {
        id: replacement
        title: "Open another folder?"
        text: "The shelf holds changes that are not saved. They are lost when another folder is opened."
        main: "Open it"
        tone: Theme.warning
        onAccepted: shelf.open(page.opened)
    }
    ShelfDialog {
        id: closing
        title: "Close without saving?"
        text: "The shelf holds changes that are not saved. They are lost when the window is closed."
        main: "Close"
        tone: Theme.warning
        onAccepted: page.closingAgreed()
    }
    LabelDialog { id: labelDialog }
    SaveDialog { id: saveDialog }
}
