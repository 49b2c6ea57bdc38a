// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12

// The last signals of a demo, the newest at the top: `onClicked: log.note("clicked")`.
Item {
    id: log

    property string title: "Signals"
    property int lines: 6

    function note(text) {
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
    implicitHeight: 36 + lines * 20
    height: implicitHeight

    ListModel { id: entries }

    Label {
        y: 12
        text: log.title
        color: Theme.faintText
        font.pixelSize: Theme.small
        font.capitalization: Font.AllUppercase
        font.letterSpacing: 0.8
    }
    Column {
        y: 34
        width: parent.width
        Label {
            visible: entries.count === 0
            height: 20
            text: "none yet"
            color: Theme.faintText
            font.pixelSize: 13
        }
        Repeater {
            model: entries
            Label {
                width: log.width
                height: 20
                text: model.text + (model.times > 1 ? "  × " + model.times : "")
                color: index === 0 ? Theme.text : Theme.softText
                font.pixelSize: 13
            }
        }
    }
}
