// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Controls 2.5 as Controls
import QtQuick.Window 2.12

// A page of the gallery: a heading, a line or two on what it is about, and sections or demos below
// one another. It scrolls by itself.
Flickable {
    id: page

    property string title
    property string summary
    default property alias content: column.data
    readonly property int margin: width < 700 ? 24 : 40

    // A link of a reference page on this page was followed.
    signal linked(string address)

    // Brings the demo of a type to the top.
    function showDemo(type) {
        const demo = Array.from(column.children).find(card => card.title === type);
        if (!demo)
            return;
        // Its place is known once the page has been laid out.
        column.forceLayout();
        contentY = Math.max(0, Math.min(contentHeight - height, column.y + demo.y - 12));
    }
    Component.onCompleted: {
        for (const card of Array.from(column.children)) {
            if (card.linked)
                card.linked.connect(page.linked);
        }
    }

    // What the keyboard comes to is brought into sight.
    property Item focused: Window.activeFocusItem
    // How much of the top something covers that does not scroll along.
    property real covered: 0
    onFocusedChanged: {
        if (!focused || focused === page)
            return;
        for (let item = focused; item !== column; item = item.parent) {
            if (!item)
                return;
        }
        const top = focused.mapToItem(column, 0, 0).y + column.y - 24 - covered;
        // What is pressed is in sight, and must not move from under the pointer.
        const middle = top + 24 + covered + focused.height / 2;
        if (middle > contentY + covered && middle < contentY + height)
            return;
        // Of what is higher than the page some part has to do.
        if (focused.height > height / 2 && top < contentY + height / 2 && top + focused.height > contentY + height / 2)
            return;
        const bottom = top + Math.min(focused.height + 48 + covered, height);
        contentY = Math.max(0, Math.min(contentHeight - height, Math.min(top, Math.max(contentY, bottom - height))));
    }

    contentWidth: width
    contentHeight: column.y + column.implicitHeight + 40
    clip: true
    boundsBehavior: Flickable.StopAtBounds
    // Drags on a page belong to the demos; it scrolls by wheel and bar.
    interactive: false

    function scrollBy(distance) {
        contentY = Math.max(0, Math.min(contentHeight - height, contentY + distance));
    }

    Accessible.role: Accessible.Pane
    Accessible.name: title

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
            spacing: 8
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
                font.pixelSize: Theme.normal
                lineHeight: 1.25
                // Whole: what stands below is drawn sharp.
                height: Math.ceil(implicitHeight)
            }
        }
    }
}
