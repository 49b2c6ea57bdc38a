// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import "kit"

// A field that finds pages, types, properties, signals, methods and what to try. Up and Down walk
// through what it found, Return goes there, Escape clears it.
Item {
    id: box

    property var pages: []
    property var results: []
    property int at: 0

    signal typePicked(string type)
    signal pagePicked(string name)
    // The keys are for the page again.
    signal left()

    function begin() {
        field.forceActiveFocus(Qt.ShortcutFocusReason);
        field.selectAll();
    }
    function search(text) {
        const wanted = text.trim().toLowerCase();
        const titles = wanted === "" ? [] : pages.filter(page => page.title.toLowerCase().includes(wanted));
        results = titles.map(page => ({ kind: "page", name: page.title, page: page.name, type: "" }))
                        .concat(reference.find(text, 12));
        at = 0;
    }
    function pick(result) {
        field.text = "";
        results = [];
        if (result.kind === "page")
            pagePicked(result.page);
        else
            typePicked(result.type);
        left();
    }

    height: field.height

    Field {
        id: field
        width: parent.width
        leftPadding: 32
        name: "Search"
        placeholderText: "Search  (Ctrl+K)"
        onTextEdited: box.search(text)
        Keys.onDownPressed: box.at = Math.min(box.results.length - 1, box.at + 1)
        Keys.onUpPressed: box.at = Math.max(0, box.at - 1)
        Keys.onEscapePressed: {
            text = "";
            box.results = [];
            box.left();
        }
        onAccepted: if (box.results.length > 0) box.pick(box.results[box.at])
        Sign { x: 8; anchors.verticalCenter: parent.verticalCenter; name: "search" }
    }
    Surface {
        visible: field.activeFocus && field.text !== ""
        y: field.height + 4
        width: 420
        height: found.height + 8
        border.color: Theme.strongLine
        Accessible.role: Accessible.List
        Accessible.name: "Found"
        // Presses are not for the page below.
        MouseArea { anchors.fill: parent; hoverEnabled: true }

        Column {
            id: found
            x: 4
            y: 4
            width: parent.width - 8
            Label {
                visible: box.results.length === 0
                height: 32
                leftPadding: 8
                verticalAlignment: Text.AlignVCenter
                text: "Nothing has that in its name"
                color: Theme.faintText
            }
            Repeater {
                model: box.results
                Rectangle {
                    width: found.width
                    height: 32
                    radius: 4
                    color: box.at === index ? Theme.accentSoft : "transparent"
                    Accessible.role: Accessible.ListItem
                    Accessible.name: modelData.name + ", " + where.text
                    Accessible.selectable: true
                    Accessible.selected: box.at === index
                    Accessible.onPressAction: box.pick(modelData)
                    Label {
                        anchors { left: parent.left; leftMargin: 8; right: where.left; rightMargin: 12 }
                        height: parent.height
                        verticalAlignment: Text.AlignVCenter
                        text: modelData.name
                        font.pixelSize: Theme.medium
                        Accessible.ignored: true
                    }
                    Label {
                        id: where
                        anchors { right: parent.right; rightMargin: 8 }
                        height: parent.height
                        verticalAlignment: Text.AlignVCenter
                        text: modelData.kind === "type" || modelData.kind === "page" ? modelData.kind
                            : modelData.kind + " of " + modelData.type
                        color: box.at === index ? Theme.softText : Theme.faintText
                        font.pixelSize: Theme.small
                        Accessible.ignored: true
                    }
                    MouseArea {
                        anchors.fill: parent
                        hoverEnabled: true
                        onEntered: box.at = index
                        // The field loses the focus with the press, and its results with that.
                        onPressed: box.pick(modelData)
                    }
                }
            }
        }
    }
}
