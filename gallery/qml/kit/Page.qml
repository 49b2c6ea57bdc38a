// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Controls 2.5 as Controls

// A page of the gallery: a heading, a line or two on what it is about, and sections or demos below
// one another. It scrolls by itself.
Flickable {
    id: page

    property string title
    property string summary
    default property alias content: column.data
    readonly property int margin: width < 700 ? 24 : 40

    contentWidth: width
    contentHeight: column.y + column.implicitHeight + 40
    clip: true
    boundsBehavior: Flickable.StopAtBounds
    // Drags on a page belong to the demos; it scrolls by wheel and bar.
    interactive: false

    function scrollBy(distance) {
        contentY = Math.max(0, Math.min(contentHeight - height, contentY + distance));
    }

    Keys.onPressed: {
        const page = height * 0.9;
        const distance = ({ [Qt.Key_PageDown]: page, [Qt.Key_PageUp]: -page, [Qt.Key_Down]: 60,
                            [Qt.Key_Up]: -60, [Qt.Key_Home]: -contentHeight,
                            [Qt.Key_End]: contentHeight })[event.key];
        if (distance === undefined)
            return;
        scrollBy(distance);
        event.accepted = true;
    }

    // A click beside everything takes the focus out of a field, which commits it.
    MouseArea {
        width: page.width
        height: Math.max(page.height, page.contentHeight)
        onPressed: page.forceActiveFocus()
        onWheel: page.scrollBy(-wheel.angleDelta.y * 0.8)
    }

    Controls.ScrollBar.vertical: ScrollBar {}

    Column {
        id: column
        // On large windows in the middle, at smallest with the width that the scroll bar leaves.
        x: Math.max(page.margin, Math.round((page.width - width) / 2))
        y: page.margin - 4
        width: Math.min(page.width - 2 * page.margin, 1400)
        spacing: 20

        Column {
            width: parent.width
            spacing: 6
            bottomPadding: 8
            Label {
                width: parent.width
                text: page.title
                font.pixelSize: Theme.huge
                font.weight: Font.Light
            }
            Label {
                width: Math.min(parent.width, 720)
                visible: text.length > 0
                text: page.summary
                color: Theme.softText
                wrapMode: Text.WordWrap
                font.pixelSize: 15
                lineHeight: 1.25
            }
        }
    }
}
