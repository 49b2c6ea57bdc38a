// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.gallery 1.0

// The QML of a demo, to be copied, and the reference page of its type beside it, or below it where
// there is no room.
Item {
    id: panel

    property string type
    property string code
    readonly property bool wide: width >= 800
    property bool copied: false
    onCodeChanged: copied = false

    signal linked(string address)

    implicitHeight: wide ? 400 : 2 * 320 + 12

    Surface {
        id: codeSide
        width: panel.wide ? Math.round((panel.width - 12) / 2) : panel.width
        height: panel.wide ? panel.height : 320
        sunken: true

        Label {
            x: 12
            height: 36
            verticalAlignment: Text.AlignVCenter
            text: "QML"
            color: Theme.faintText
            font.pixelSize: Theme.small
            font.letterSpacing: 0.8
        }
        Button {
            anchors { right: parent.right; rightMargin: 4 }
            y: 2
            flat: true
            text: panel.copied ? "Copied" : "Copy"
            onClicked: {
                session.copy(panel.code);
                panel.copied = true;
            }
        }
        TextPane {
            anchors { fill: parent; topMargin: 36; bottomMargin: 4 }
            name: "QML of " + panel.type
            edit.text: panel.code
            edit.textFormat: TextEdit.PlainText
            edit.wrapMode: TextEdit.Wrap
            edit.font.family: Theme.monoFamily
            edit.font.pixelSize: Theme.small
            QmlHighlighter {
                textDocument: codeSide.document
                typeColor: Theme.accentText
                nameColor: Theme.text
                valueColor: Theme.positiveText
                commentColor: Theme.faintText
            }
            Component.onCompleted: codeSide.document = edit.textDocument
        }
        property var document: null
    }
    Surface {
        x: panel.wide ? codeSide.width + 12 : 0
        y: panel.wide ? 0 : codeSide.height + 12
        width: panel.wide ? panel.width - x : panel.width
        height: panel.wide ? panel.height : 320
        sunken: true

        TextPane {
            anchors { fill: parent; topMargin: 12; bottomMargin: 4 }
            name: "Reference of " + panel.type
            edit.textFormat: TextEdit.RichText
            edit.wrapMode: TextEdit.WordWrap
            // Qt gives headings twice the size of the text, and no style changes that.
            function withHeadings(html) {
                const sizes = [Theme.large, 16, Theme.normal];
                return html.replace(/<h([1-3])>/g, (all, level) => "<p style='font-size: " + sizes[level - 1] + "px; font-weight: 600'>")
                           .replace(/<\/h[1-3]>/g, "</p>");
            }
            edit.text: "<style>code, pre { font-family: monospace; font-size: 12px } pre { white-space: pre-wrap }"
                       + " .head { color: " + Theme.faintText + " }"
                       + " a { color: " + Theme.accentText + " }</style>" + withHeadings(reference.page(panel.type))
            onLinked: panel.linked(address)
        }
    }
}
