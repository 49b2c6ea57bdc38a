// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12

// A card for one type: the live object on a stage at the left, an editor per property at the right.
//
// What is declared inside goes onto the stage and may anchor to it; `stage` is its item.
// The editors stand below one another in the order given.
Surface {
    id: demo

    property string title
    property string hint
    property int stageHeight: 240
    // Stages grow with the window, so that a large one shows more and not only further apart.
    readonly property int grownHeight: width >= 1200 ? stageHeight * 1.3 : stageHeight
    property bool plainStage: false
    default property alias live: stageItem.data
    property alias editors: editorColumn.data
    readonly property alias stage: stageItem

    readonly property bool wide: width >= 720 && hasEditors
    readonly property bool hasEditors: editorColumn.children.length > 0
    readonly property int editorWidth: !wide ? inner : width >= 1200 ? 380 : 320
    readonly property int inner: width - 44

    width: parent ? parent.width : 0
    implicitHeight: (wide ? Math.max(stageFrame.y + stageFrame.height,
                                     editorColumn.y + editorColumn.height)
                          : hasEditors ? editorColumn.y + editorColumn.height
                                       : stageFrame.y + stageFrame.height) + 22
    height: implicitHeight

    Column {
        id: heading
        x: 22
        y: 18
        width: demo.inner
        spacing: 4
        Label {
            width: parent.width
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
        }
    }

    Surface {
        id: stageFrame
        x: 22
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
        x: demo.wide ? demo.width - 22 - width : 22
        y: demo.wide ? stageFrame.y : stageFrame.y + stageFrame.height + 16
        width: demo.editorWidth
    }
}
