// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12

// A field for a text property. With `list` it edits a list of strings, separated by commas.
PropertyRow {
    id: row

    property bool list: false
    // What is wrong with the text; the field is red and says so.
    property string problem
    property alias placeholder: field.placeholderText
    readonly property string shownText: value === undefined || value === null ? ""
                                      : list ? Array.from(value).join(", ") : String(value)

    function commit() {
        if (field.text === shownText)
            return;
        write(list ? field.text.split(",").map(part => part.trim()).filter(part => part.length > 0)
                   : field.text);
    }

    implicitHeight: problem === "" ? 36 : 56

    Label {
        y: 36
        width: parent.width
        visible: row.problem !== ""
        text: row.problem
        color: Theme.errorText
        font.pixelSize: Theme.small
    }
    Field {
        id: field
        name: row.label
        pose: row.pose
        anchors.left: parent.left
        anchors.right: parent.right
        y: (36 - height) / 2
        valid: row.problem === ""
        shown: row.shownText
        // The beginning is what tells a long text.
        onTextChanged: if (!activeFocus) cursorPosition = 0
        onTextEdited: if (!row.list) row.commit()
        onEditingFinished: {
            row.commit();
            restore();
        }
    }
}
