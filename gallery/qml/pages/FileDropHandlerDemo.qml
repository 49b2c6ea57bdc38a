// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import "../kit"

Demo {
    title: "FileDropHandler"
    hint: "Left every file, right those with a suffix of the list."
    steps: [
        Step {
            text: "Drag several kinds of files at once onto the right zone: it gets only its own."
            when: suffixPad.got.length > 0
        },
        Step {
            text: "Add a suffix in capitals: it matches nothing."
            when: Array.from(handler.suffixes).some(suffix => suffix !== suffix.toLowerCase())
        }
    ]
    subject: handler
    stageHeight: 320

    DropPad {
        id: anyPad
        anchors { fill: parent; margins: 16; rightMargin: parent.width / 2 + 8 }
        takes: "Every file"
        onHappened: log.note("any: " + what)
        FileDropHandler {}
    }
    DropPad {
        id: suffixPad
        anchors { fill: parent; margins: 16; leftMargin: parent.width / 2 + 8 }
        takes: handler.suffixes.length > 0 ? Array.from(handler.suffixes).join(", ")
                                           : "The list is empty: every file"
        onHappened: log.note("list: " + what)
        FileDropHandler {
            id: handler
            suffixes: ["md", "txt", "pdf"]
            onSuffixesChanged: log.note("suffixesChanged")
        }
    }

    editors: [
        TextEditor { target: handler; property: "suffixes"; list: true; placeholder: "every file" },
        ValueRow { label: "any: drag.data"; value: anyPad.countOf(anyPad.shown) },
        ValueRow { label: "list: drag.data"; value: suffixPad.countOf(suffixPad.shown) }
    ]
}
