// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.data.Core 1.0
import "../kit"

// Files of the opened folder to drag from, one at a time or all together. It stays in sight while the
// page scrolls: a drag cannot.
Section {
    id: shelf

    property Flickable page
    readonly property real stuck: page ? Math.max(0, page.contentY + 12 - parent.y - y) : 0
    // A tile that is being dragged has to stay, whatever becomes of its file.
    readonly property var present: filesOf(gallery.folder)
    property var files: []
    onPresentChanged: if (!dragging) files = present
    onDraggingChanged: if (!dragging) files = present
    property bool dragging: false

    function filesOf(folder) {
        const files = [];
        for (let i = 0; i < folder.children.length && files.length < 7; ++i) {
            const document = folder.children[i];
            if (!document.hasType("folder"))
                files.push(document.url);
        }
        return files;
    }

    z: 1
    transform: Translate { y: shelf.stuck }
    border.color: stuck > 0 ? Theme.focus : Theme.line

    title: "Files to drag"
    hint: files.length > 0
          ? "From the opened folder. Drag one, or all of them by the card at the end, into a zone below. Or "
            + "drag files in from your file manager."
          : "The opened folder has no files: drag some in from your file manager."

    Flow {
        width: parent.width
        spacing: 16
        visible: shelf.files.length > 0

        Repeater {
            model: shelf.files.concat([""])
            Item {
                id: card
                readonly property bool all: index === shelf.files.length
                readonly property var urls: all ? shelf.files : [modelData]
                width: 92
                height: 92

                FileTile {
                    anchors.fill: parent
                    visible: !card.all
                    url: card.all ? "" : modelData
                    opacity: mouse.pressed ? 0.5 : 1
                }
                Rectangle {
                    visible: card.all
                    width: parent.width
                    height: parent.height - 22
                    radius: 5
                    color: mouse.pressed ? Theme.accentSoft : Theme.panel
                    border.color: Theme.accent
                    Label {
                        anchors.centerIn: parent
                        text: "All " + shelf.files.length
                        color: Theme.accentText
                        font.weight: Font.DemiBold
                    }
                }
                Item {
                    id: handle
                    Drag.active: mouse.drag.active
                    Drag.dragType: Drag.Automatic
                    Drag.supportedActions: Qt.CopyAction
                    Drag.mimeData: ({ "text/uri-list": card.urls.map(url => url.toString()).join("\r\n") })
                    Drag.onDragStarted: shelf.dragging = true
                    Drag.onDragFinished: shelf.dragging = false
                }
                MouseArea {
                    id: mouse
                    anchors.fill: parent
                    cursorShape: Qt.OpenHandCursor
                    drag.target: handle
                    onPressed: card.grabToImage(result => handle.Drag.imageSource = result.url)
                }
            }
        }
    }
}
