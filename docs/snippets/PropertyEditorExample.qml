// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import ombrel.data.Core 1.0

// Click the name to edit it. Return and Tab write it to the document, Escape and a press elsewhere
// give up.
Rectangle {
    width: 240
    height: 80
    color: "#F8F7F5"

    Document { id: report; name: "Report" }

    //! [editor]
    PropertyEditor {
        id: editor

        property bool editing: false
        function commit() {
            document[property] = field.text;
            focus = false;
        }

        anchors.centerIn: parent
        width: 200
        height: 30
        document: report
        property: "name"
        onBeginEdit: {
            editing = true;
            field.text = document[property];
            field.selectAll();
        }
        onEndEdit: editing = false
        onEnterPressed: commit()
        onTabPressed: commit()
        onEscapePressed: focus = false

        Text {
            anchors.fill: parent
            visible: !editor.editing
            text: report.name
        }
        TextInput {
            id: field
            anchors.fill: parent
            focus: true
            opacity: editor.editing ? 1 : 0
        }
        MouseArea {
            anchors.fill: parent
            enabled: !editor.editing
            onClicked: editor.forceActiveFocus()
        }
    }
    //! [editor]
}
