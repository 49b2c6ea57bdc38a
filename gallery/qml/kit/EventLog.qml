// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12

// The last signals of a demo, the newest at the top: `onClicked: log.note("clicked")`. It folds to one
// line with the newest, and clears.
Surface {
    id: log

    property string title: "Signals"
    property int lines: 5
    property bool folded: false
    readonly property alias count: entries.count
    // The text noted last, also when it was cleared.
    property string last

    function note(text) {
        last = text;
        if (entries.count > 0 && entries.get(0).text === text) {
            entries.setProperty(0, "times", entries.get(0).times + 1);
            return;
        }
        entries.insert(0, { text: text, times: 1 });
        while (entries.count > lines)
            entries.remove(entries.count - 1);
    }
    function clear() { entries.clear(); }

    width: parent ? parent.width : 0
    implicitHeight: 36 + (folded ? 0 : lines * 20 + 8)
    height: implicitHeight
    sunken: true

    ListModel { id: entries }

    Label {
        id: heading
        x: 12
        height: 36
        verticalAlignment: Text.AlignVCenter
        text: log.title
        color: Theme.faintText
        font.pixelSize: Theme.small
        font.capitalization: Font.AllUppercase
        font.letterSpacing: 0.8
    }
    Row {
        id: commands
        anchors { right: parent.right; rightMargin: 4 }
        y: 2
        Button {
            flat: true
            enabled: entries.count > 0
            sign: "close"
            text: "Clear the signals"
            onClicked: log.clear()
        }
        Button {
            flat: true
            sign: log.folded ? "chevron-down" : "chevron-up"
            text: log.folded ? "Unfold the signals" : "Fold the signals"
            onClicked: log.folded = !log.folded
        }
    }
    Label {
        anchors { left: heading.right; leftMargin: 16; right: commands.left; rightMargin: 8 }
        height: 36
        verticalAlignment: Text.AlignVCenter
        visible: entries.count === 0
        text: "none yet"
        color: Theme.faintText
        font.pixelSize: Theme.medium
    }
    Column {
        // Folded, the newest stands beside the title.
        x: log.folded ? heading.x + heading.width + 16 : 12
        y: log.folded ? 8 : 36
        width: (log.folded ? commands.x - 8 : log.width - 12) - x
        Repeater {
            model: entries
            Label {
                width: parent.width
                height: 20
                visible: index === 0 || !log.folded
                verticalAlignment: Text.AlignVCenter
                text: model.text + (model.times > 1 ? "  × " + model.times : "")
                color: index === 0 ? Theme.text : Theme.softText
                font.pixelSize: Theme.medium
            }
        }
    }
}
