// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import "../kit"

Demo {
    id: demo

    readonly property bool tooLong: code.implicitWidth < 0
    readonly property int modules: tooLong ? 0 : code.implicitWidth / code.moduleSize

    title: "QRCode"
    hint: "Type a url and hold a phone to the screen. The light rectangle leaves the quiet zone of four modules "
          + "that scanners want; a url of more than 2953 bytes has no code."
    stageHeight: 470

    // The quiet zone: the code itself has none.
    Rectangle {
        anchors.centerIn: parent
        width: code.width + 8 * code.moduleSize
        height: width
        visible: !demo.tooLong && width <= parent.width && height <= parent.height
        color: code.lightColor
        border.color: Theme.line

        QRCode {
            id: code
            anchors.centerIn: parent
            url: "https://example.org/catalogue?item=4711"
            antialiasing: true
            onUrlChanged: log.note("urlChanged " + url)
            onModuleSizeChanged: log.note("moduleSizeChanged " + moduleSize)
            onDarkColorChanged: log.note("darkColorChanged " + color)
            onLightColorChanged: log.note("lightColorChanged " + color)
        }
    }
    Label {
        anchors.centerIn: parent
        width: parent.width - 60
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.WordWrap
        visible: demo.tooLong
        text: "This url is too long for a QR code."
        color: Theme.softText
    }
    Label {
        anchors.centerIn: parent
        width: parent.width - 60
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.WordWrap
        visible: !demo.tooLong && !code.parent.visible
        text: "The code is larger than this stage: choose smaller modules."
        color: Theme.softText
    }

    editors: [
        TextEditor {
            label: "url"
            value: code.url
            // Without a scheme it would be looked for beside this file.
            onEdited: code.url = newValue.indexOf(":") < 0 ? "https://" + newValue : newValue
        },
        NumberEditor { target: code; property: "moduleSize"; from: 2; to: 24 },
        ColorEditor { target: code; property: "darkColor" },
        ColorEditor {
            target: code
            property: "lightColor"
            swatches: ["#FFFFFF", "#D9ECF1", "#E3F1E4", "#FAF3DA", "#F4E2DB"]
        },
        BoolEditor { label: "antialiasing"; target: code; property: "antialiasing" },
        NumberEditor { target: code; property: "rotation"; from: -45; to: 45 },
        ValueRow { label: "modules a side"; value: demo.tooLong ? "too long" : demo.modules },
        ValueRow { target: code; property: "implicitWidth" },
        EventLog { id: log }
    ]
}
