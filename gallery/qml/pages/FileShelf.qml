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
    readonly property var present: samples.documents.map(document => document.url)
    readonly property Samples samples: Samples { folder: gallery.folder }
    property var files: []
    onPresentChanged: if (!dragging) files = present
    onDraggingChanged: if (!dragging) files = present
    property bool dragging: false

    Binding { target: shelf.page; property: "covered"; value: shelf.height }

    z: 1
    transform: Translate { y: shelf.stuck }
    border.color: stuck > 0 ? Theme.focus : Theme.line

    title: "Files to drag"
    hint: "Some of each type, from the opened folder or, where it has none, samples. Drag one, or all of them by the "
          + "card at the end, into a zone below. Or drag files in from your file manager."

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
                property bool dragged: false
                width: 92
                height: 92
                Accessible.role: Accessible.Graphic
                Accessible.name: all ? "All files, to be dragged" : tile.name + ", to be dragged"

                FileTile {
                    id: tile
                    anchors.fill: parent
                    visible: !card.all
                    url: card.all ? "" : modelData
                    opacity: card.dragged ? 0.5 : 1
                }
                Rectangle {
                    visible: card.all
                    width: parent.width
                    height: parent.height - 22
                    radius: 5
                    color: card.dragged ? Theme.accentSoft : Theme.panel
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
                    // Not the mouse area's word for it: a drag that is cancelled leaves it pressed.
                    Drag.onDragStarted: shelf.dragging = card.dragged = true
                    Drag.onDragFinished: shelf.dragging = card.dragged = false
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
