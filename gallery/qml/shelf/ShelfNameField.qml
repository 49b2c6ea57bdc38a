// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import "../kit"

// Where a document's name is edited. It begins with the name without its suffix selected, and says
// below what is wrong with a new one.
Field {
    id: field

    property QtObject document
    readonly property string problem: document && text !== document.name ? shelf.nameProblem(document, text) : ""

    signal renamed(string name)
    signal cancelled()

    // Leaving a field commits it; what cannot be committed is given up.
    property bool over: false
    function finish(commit) {
        if (over)
            return;
        over = true;
        if (commit && problem === "")
            renamed(text);
        else
            cancelled();
    }

    height: 26
    text: document ? document.name : ""
    valid: problem === ""
    Accessible.name: "New name"
    Accessible.description: problem
    onAccepted: if (valid) finish(true)
    onActiveFocusChanged: if (!activeFocus) finish(true)
    Keys.onEscapePressed: finish(false)
    Component.onCompleted: {
        forceActiveFocus();
        const dot = document.folder ? -1 : text.lastIndexOf(".");
        select(0, dot > 0 ? dot : text.length);
    }

    Rectangle {
        visible: field.problem !== ""
        y: field.height + 2
        z: 10
        width: Math.max(field.width, reason.implicitWidth + 14)
        height: 22
        radius: 4
        color: Theme.errorSoft
        Label {
            id: reason
            anchors.centerIn: parent
            text: field.problem
            color: Theme.errorText
            font.pixelSize: Theme.small
        }
    }
}
