// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0
import "../kit"

Demo {
    id: demo

    readonly property bool tooLong: code.implicitWidth < 0
    readonly property int modules: tooLong ? 0 : code.implicitWidth / code.moduleSize

    readonly property string firstUrl: "https://example.org/catalogue?item=4711"
    property bool noUrl: false
    // What scanners want: modules that are darker than their ground, and enough so.
    readonly property string fault:
        Theme.contrast(code.darkColor, code.lightColor) < 3
            ? "Scanners may read nothing here: the two colours are too close"
        : Theme.luminance(code.darkColor) > Theme.luminance(code.lightColor)
            ? "Scanners read nothing here: the modules are lighter than their ground" : ""

    // The item keeps its code when it is given what is no url: the text is looked at here. An invalid
    // one reads as empty; without a scheme it would be looked for beside this file.
    property url probe
    property string typed
    function take(text) {
        const whole = text.indexOf(":") < 0 && text !== "" ? "https://" + text : text;
        probe = whole;
        typed = text;
        noUrl = !/^[a-z][a-z0-9+.-]*:/i.test(whole) || /^([a-z][a-z0-9+.-]*:\/*)?$/i.test(String(probe));
        if (!noUrl)
            code.url = whole;
    }

    title: "QRCode"
    hint: "The light rectangle leaves the quiet zone of four modules that scanners want; a url of "
          + "more than 2953 bytes has no code."
    steps: [
        Step { text: "Type a url and hold a phone to the screen."; when: String(code.url) !== demo.firstUrl },
        Step {
            text: "Choose weak colours, or lighter modules than their ground: scanners read nothing, and the stage says so."
            when: demo.fault !== ""
        },
        Step { text: "Type what is no url: the field turns red."; when: demo.noUrl }
    ]
    subject: code
    codeValues: ({ url: String(code.url) })
    stageHeight: 470

    // The quiet zone: the code itself has none.
    Rectangle {
        anchors.centerIn: parent
        width: code.width + 8 * code.moduleSize
        height: width
        visible: !demo.noUrl && !demo.tooLong && width <= parent.width && height <= parent.height
        color: code.lightColor
        border.color: Theme.line

        QRCode {
            id: code
            anchors.centerIn: parent
            url: demo.firstUrl
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
        visible: demo.tooLong || demo.noUrl
        text: demo.noUrl ? "No url, no code." : "This url is too long for a QR code."
        color: Theme.softText
    }
    Label {
        anchors { horizontalCenter: parent.horizontalCenter; bottom: parent.bottom; bottomMargin: 16 }
        width: parent.width - 40
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.WordWrap
        visible: code.parent.visible && demo.fault !== ""
        text: demo.fault
        color: Theme.errorText
    }
    Label {
        anchors.centerIn: parent
        width: parent.width - 60
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.WordWrap
        visible: !demo.tooLong && !demo.noUrl && !code.parent.visible
        text: "The code is larger than this stage: choose smaller modules."
        color: Theme.softText
    }

    editors: [
        TextEditor {
            label: "url"
            value: demo.noUrl ? demo.typed : code.url
            problem: demo.noUrl ? "This is no url" : ""
            onEdited: demo.take(newValue)
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
        ValueRow { target: code; property: "implicitWidth" }
    ]
}
