// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import "Example.js" as Example

// A card for one type: what to try, the live object on a stage at the left, an editor per property at
// the right, the last signals below, and on request its QML and its page of the reference.
//
// What is declared inside goes onto the stage and may anchor to it; `stage` is its item.
// The editors stand below one another in the order given.
Surface {
    id: demo

    property string title
    property string hint
    // The name of its picture.
    property string pictureName: title + "Demo"
    property list<Step> steps
    property int stageHeight: 240
    // Stages grow with the window, so that a large one shows more and not only further apart; not one
    // that is as high as what stands on it.
    property bool grows: true
    readonly property int grownHeight: grows && width >= 1200 ? stageHeight * 1.3 : stageHeight
    property bool plainStage: false
    default property alias live: stageItem.data
    property alias editors: editorColumn.data
    readonly property alias stage: stageItem
    readonly property alias log: eventLog
    property bool logs: true

    // What the QML is about: the object whose properties the editors write, its type, and further
    // values by their names; { code: "…" } for what is more than a value.
    property QtObject subject: null
    property string codeType: title
    property var codeValues: ({})
    property bool codeShown: false

    readonly property bool wide: width >= 720 && hasEditors
    readonly property bool hasEditors: editorColumn.children.length > 0
    readonly property int editorWidth: !wide ? inner : width >= 1200 ? 380 : 320
    readonly property int inner: width - 48

    // A link of the reference page was followed.
    signal linked(string address)
    // The editors have their first values back; a demo with more to put back does so.
    signal wasReset()

    function rows() {
        return Array.from(editorColumn.children).filter(row => row.reset !== undefined);
    }
    function remember() {
        for (const row of rows())
            row.remember();
    }
    function reset() {
        for (const row of rows())
            row.reset();
        for (const step of Array.from(steps))
            step.done = false;
        wasReset();
        log.clear();
    }
    // The names and values that the QML has.
    function values() {
        const found = {};
        for (const row of rows()) {
            if (row.writes && row.property !== "" && row.target !== null && row.target === subject)
                found[row.property] = row.value;
        }
        return Object.assign(found, codeValues);
    }
    function code() { return Example.withValues(reference.example(title), codeType, values()); }

    width: parent ? parent.width : 0
    implicitHeight: (codePanel.active ? codePanel.y + codePanel.height
                   : logs ? eventLog.y + eventLog.height : bodyEnd) + 24
    height: implicitHeight
    readonly property real bodyEnd: wide ? Math.max(stageFrame.y + stageFrame.height, editorColumn.y + editorColumn.height)
                                  : hasEditors ? editorColumn.y + editorColumn.height
                                               : stageFrame.y + stageFrame.height
    Component.onCompleted: Qt.callLater(remember)
    Accessible.role: Accessible.Grouping
    Accessible.name: title

    Row {
        id: commands
        anchors { right: parent.right; rightMargin: 16 }
        y: 16
        spacing: 4
        Button {
            flat: true
            text: "Reset"
            Accessible.name: "Reset " + demo.title
            onClicked: demo.reset()
        }
        Button {
            flat: true
            checkable: true
            checked: demo.codeShown
            text: "QML"
            Accessible.name: "QML and reference of " + demo.title
            onToggled: demo.codeShown = checked
        }
    }
    Column {
        id: heading
        x: 24
        y: 20
        width: demo.inner
        spacing: 8
        Label {
            width: parent.width - commands.width
            text: demo.title
            font.pixelSize: Theme.large
            font.weight: Font.DemiBold
        }
        Label {
            width: parent.width
            visible: text.length > 0
            text: demo.hint
            color: Theme.softText
            wrapMode: Text.WordWrap
            lineHeight: 1.2
            // Whole: what stands below is drawn sharp.
            height: Math.ceil(implicitHeight)
        }
        StepList {
            width: parent.width
            visible: demo.steps.length > 0
            steps: Array.from(demo.steps)
        }
    }

    Surface {
        id: stageFrame
        x: 24
        y: heading.y + heading.height + 16
        width: demo.wide ? demo.inner - demo.editorWidth - Theme.wideGap : demo.inner
        height: demo.wide ? Math.max(demo.grownHeight, editorColumn.height) : demo.grownHeight
        sunken: true
        color: demo.plainStage ? "transparent" : Theme.sunken
        border.color: demo.plainStage ? "transparent" : Theme.line

        Item {
            id: stageItem
            anchors.fill: parent
            anchors.margins: demo.plainStage ? 0 : 1
        }
    }

    Column {
        id: editorColumn
        x: demo.wide ? demo.width - 24 - width : 24
        y: demo.wide ? stageFrame.y : stageFrame.y + stageFrame.height + 16
        width: demo.editorWidth
    }

    EventLog {
        id: eventLog
        visible: demo.logs
        folded: true
        x: 24
        y: demo.bodyEnd + 16
        width: demo.inner
    }

    Loader {
        id: codePanel
        x: 24
        y: (demo.logs ? eventLog.y + eventLog.height : demo.bodyEnd) + 16
        width: demo.inner
        active: demo.codeShown
        source: "CodePanel.qml"
        onLoaded: {
            item.type = demo.title;
            item.code = Qt.binding(() => demo.code());
            item.linked.connect(demo.linked);
        }
    }
}
