// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Controls 2.5 as Controls
import ombrel.Controls 1.0
import ombrel.data.Core 1.0

// A tree that scrolls and is walked through by keys: arrow keys, Home, End, page keys, first letters.
Flickable {
    id: view
    width: 240
    height: 120
    contentHeight: tree.height
    clip: true
    Controls.ScrollBar.vertical: Controls.ScrollBar {
        policy: Controls.ScrollBar.AlwaysOn
        minimumSize: 0.2
    }

    // Tab finds it, and leaves it: the tree itself takes every key.
    FocusScope {
        id: stop
        width: view.width
        height: tree.height
        activeFocusOnTab: true

        TreeView {
            id: tree
            focus: true
            width: parent.width
            childProperty: "children"
            rootCanCollapse: true
            rootDocuments: [
                Document {
                    documentId: "holiday"; name: "Holiday"
                    Document { documentId: "beach"; name: "Beach" }
                    Document { documentId: "hills"; name: "Hills" }
                },
                Document {
                    documentId: "work"; name: "Work"
                    Document { documentId: "plan"; name: "Plan" }
                    Document { documentId: "report"; name: "Report" }
                }
            ]
            delegate: Text {
                height: 24
                verticalAlignment: Text.AlignVCenter
                text: document.name
            }
            backgroundDelegate: Rectangle {
                color: TreeView.isActiveItem ? "#BCDDBF" : "transparent"
                MouseArea { anchors.fill: parent }
            }

            //! [keys]
            Keys.onPressed: {
                const row = currentEntry();
                const page = view.height - 24;
                event.accepted = true;
                switch (event.key) {
                case Qt.Key_Down: show(row ? rowAt(row.y + row.height + 1) : 0); break;
                case Qt.Key_Up: show(row ? rowAt(row.y - 1) : 0); break;
                case Qt.Key_PageDown: show(row ? rowAt(row.y + 12 + page) : 0); break;
                case Qt.Key_PageUp: show(row ? rowAt(row.y + 12 - page) : 0); break;
                case Qt.Key_Home: show(0); break;
                case Qt.Key_End: show(rowAt(contentItem.height)); break;
                case Qt.Key_Left:
                    if (row && isOpen(activeIndex))
                        collapseIndex(activeIndex);
                    else if (row)
                        show(parentOf(activeIndex));
                    break;
                case Qt.Key_Right:
                    if (row && isOpen(activeIndex))
                        show(activeIndex + 1);
                    else if (row)
                        expandIndex(activeIndex);
                    break;
                case Qt.Key_Tab: stop.nextItemInFocusChain(true).forceActiveFocus(); break;
                case Qt.Key_Backtab: stop.nextItemInFocusChain(false).forceActiveFocus(); break;
                default:
                    // F2 is the tree's own.
                    event.accepted = event.text > " ";
                    if (event.accepted)
                        find(event.text.toLowerCase());
                }
            }
            //! [keys]

            // Hidden rows have no height: a point inside a row is in one that is shown.
            function rowAt(y) {
                return indexAt(1, Math.max(1, Math.min(contentItem.height - 1, y)));
            }
            function show(index) {
                if (index < 0)
                    return;
                activeIndex = index;
                const row = currentEntry();
                view.contentY = Math.min(row.y, Math.max(row.y + row.height - view.height, view.contentY));
            }
            function isOpen(index) {
                return documentAt(index).children.length > 0 && !currentEntry().TreeView.isCollapsedItem;
            }
            function parentOf(index) {
                const document = documentAt(index);
                for (let i = index - 1; i >= 0; --i) {
                    if (Array.from(documentAt(i).children).includes(document))
                        return i;
                }
                return -1;
            }
            function find(letter) {
                let count = 0;
                while (documentAt(count))
                    ++count;
                for (let i = 1; i <= count; ++i) {
                    const index = (activeIndex + i) % count;
                    if (!documentAt(index).name.toLowerCase().startsWith(letter))
                        continue;
                    for (let j = parentOf(index); j >= 0; j = parentOf(j))
                        expandIndex(j);
                    return show(index);
                }
            }
        }
    }
}
