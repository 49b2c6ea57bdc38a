// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Controls 2.5 as Controls

// Text to read and to copy from, which scrolls by itself: by wheel, bar, and the keys when it has the
// focus.
Flickable {
    id: pane

    readonly property alias edit: edit
    property string name
    // For the kit's own page: "hover", "pressed" or "focus" has it look so without being it.
    property string pose

    signal linked(string address)

    function scrollBy(distance) {
        contentY = Math.max(0, Math.min(contentHeight - height, contentY + distance));
    }

    contentWidth: edit.wrapMode === TextEdit.NoWrap ? edit.contentWidth + 24 : width
    contentHeight: edit.contentHeight + 16
    clip: true
    boundsBehavior: Flickable.StopAtBounds
    Controls.ScrollBar.vertical: ScrollBar {}

    TextEdit {
        id: edit
        x: 12
        y: 4
        width: pane.width - 36
        readOnly: true
        selectByMouse: true
        activeFocusOnTab: true
        color: Theme.text
        selectionColor: Theme.accent
        selectedTextColor: Theme.accentContrast
        font.family: Theme.family
        font.pixelSize: Theme.medium
        renderType: Theme.textRendering
        Accessible.role: Accessible.EditableText
        Accessible.readOnly: true
        Accessible.name: pane.name
        onLinkActivated: pane.linked(link)
        Keys.onUpPressed: pane.scrollBy(-40)
        Keys.onDownPressed: pane.scrollBy(40)
        Keys.onPressed: {
            if (event.key === Qt.Key_PageUp || event.key === Qt.Key_PageDown) {
                pane.scrollBy((event.key === Qt.Key_PageUp ? -0.9 : 0.9) * pane.height);
                event.accepted = true;
            }
        }
    }
    FocusRing {
        parent: pane.parent
        shown: edit.activeFocus || pane.pose === "focus"
    }
}
