// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Controls 2.5 as Controls
import QtQuick.Window 2.12
import ombrel.Controls 1.0
import "../kit"
import "../pages"

// The folders of the shelf as a tree: to open, rename, drag and drop into.
Item {
    id: place

    property var view
    readonly property alias tree: tree
    property QtObject renaming: null
    property QtObject target: null
    property string problem

    function documentAt(x, y) { return tree.documentAt(tree.indexAt(1, y + flick.contentY)); }
    // Going to another row ends it. The tree is a focus scope: it keeps the focus in the field.
    function settleName() {
        const item = renaming ? Window.activeFocusItem : null;
        if (item && item.finish)
            item.finish(true);
    }
    function stopRenaming() {
        renaming = null;
        tree.forceActiveFocus();
    }
    function showFolder() {
        const index = shelf.folder ? tree.indexOfDocument(shelf.folder) : -1;
        if (index >= 0 && tree.activeDocument !== shelf.folder)
            keys.activate(index);
    }
    function aim(document, dragged) {
        if (target === document)
            return;
        target = document;
        problem = document && dragged ? shelf.moveProblem(dragged, document) : "";
    }

    Accessible.role: Accessible.Pane
    Accessible.name: "Folders"

    TreeKeys {
        id: keys
        tree: tree
        view: flick
        stop: stop
    }
    readonly property QtObject folder: shelf.folder
    onFolderChanged: showFolder()

    DragZone {
        id: source
        anchors.fill: parent
        dragEnabled: !shelf.saving && place.renaming === null
        dragDocuments: tree.activeDocument && tree.activeDocument !== shelf.root ? [tree.activeDocument] : []
        dragDelegate: place.view.dragCard
        onDragActiveChanged: place.view.dragging(dragActive, source)

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

            MouseArea {
                z: 1
                width: flick.width
                height: Math.max(flick.height, tree.height)
                acceptedButtons: Qt.NoButton
                onWheel: {
                    const last = Math.max(-flick.topMargin, flick.contentHeight + flick.bottomMargin - flick.height);
                    flick.contentY = Math.max(-flick.topMargin, Math.min(last, flick.contentY - wheel.angleDelta.y * 0.7));
                }
            }
            FocusScope {
                id: stop
                width: flick.width
                height: tree.height
                activeFocusOnTab: true
                Accessible.role: Accessible.Tree
                Accessible.name: "Folders"
                Accessible.focusable: true

                TreeView {
                    id: tree
                    focus: true
                    x: 6
                    width: parent.width - 2 * x
                    childProperty: "folders"
                    rootCanCollapse: true
                    rootDocuments: shelf.root ? [shelf.root] : []
                    indent: 16
                    Keys.enabled: place.renaming === null
                    Keys.onPressed: {
                        if (event.key === Qt.Key_Delete) {
                            place.view.askToDelete();
                            event.accepted = true;
                        } else {
                            keys.press(event);
                        }
                    }
                    onActiveDocumentChanged: {
                        place.settleName();
                        if (activeDocument)
                            shelf.folder = activeDocument;
                    }
                    onIndexRebuilt: Qt.callLater(place.showFolder)
                    onEditRequested: if (activeDocument !== shelf.root && !shelf.saving) place.renaming = activeDocument

                    delegate: Item {
                        id: row
                        readonly property QtObject shown: document
                        readonly property bool edited: shown !== null && place.renaming === shown
                        // A rebuild makes all rows anew, and only those in sight are worth their parts. A
                        // row that has not been laid out yet lies on the first one, the root's.
                        readonly property bool inSight: parent !== null && parent.height > 0
                            && (parent.y > 0 || shown === shelf.root)
                            && parent.y < flick.contentY + flick.height && parent.y + height > flick.contentY
                        property bool seen: false
                        onInSightChanged: seen = true
                        height: 28
                        Accessible.role: Accessible.TreeItem
                        Accessible.name: shown ? Theme.oneLine(shown.name) : ""
                        Accessible.selected: TreeView.isActiveItem
                        Accessible.focusable: true

                        Loader {
                            anchors.fill: parent
                            active: row.seen
                            sourceComponent: ShelfTreeRow {
                                document: row.shown
                                active: row.TreeView.isActiveItem
                                edited: row.edited
                                onRenamed: {
                                    shelf.rename(row.shown, name);
                                    place.stopRenaming();
                                }
                                onRenameCancelled: place.stopRenaming()
                            }
                        }
                    }
                    backgroundDelegate: Rectangle {
                        readonly property QtObject shown: document
                        radius: 4
                        color: place.target && place.target === shown ? (place.problem === "" ? Theme.positiveSoft : Theme.errorSoft)
                             : TreeView.isActiveItem ? Theme.accentSoft : "transparent"
                        border.width: place.target && place.target === shown || TreeView.isActiveItem && tree.activeFocus ? 2 : 0
                        border.color: place.target && place.target === shown ? (place.problem === "" ? Theme.positive : Theme.error)
                                                                             : Theme.focus
                        // A row lets presses through, and what is below would take the focus and the drag.
                        MouseArea {
                            anchors.fill: parent
                            onDoubleClicked: if (parent.shown !== shelf.root && !shelf.saving) place.renaming = parent.shown
                        }
                    }
                }
            }
        }
    }

    DropZone {
        id: zone
        anchors.fill: parent
        onContainsDragChanged: if (!containsDrag) place.aim(null, null)
        FileDropHandler {
            onEntered: place.aim(place.documentAt(drag.position.x, drag.position.y), null)
            onPositionChanged: place.aim(place.documentAt(drag.position.x, drag.position.y), null)
            onDropped: shelf.add(Array.from(drag.data), place.documentAt(drag.position.x, drag.position.y) || shelf.folder, -1)
        }
        DocumentDropHandler {
            type: "shelf"
            property var dragged: []
            onEntered: {
                dragged = Array.from(drag.source.dragDocuments);
                place.aim(place.documentAt(drag.position.x, drag.position.y), dragged);
            }
            onPositionChanged: place.aim(place.documentAt(drag.position.x, drag.position.y), dragged)
            onDropped: {
                const folder = place.documentAt(drag.position.x, drag.position.y);
                place.view.taken = folder !== null && shelf.move(dragged, folder, -1);
            }
        }
    }
}
