// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12

// A card on a page without editors: a title, a line on what to try, and items below one another.
Surface {
    id: section

    property string title
    property string hint
    // The name of its picture, when it is pictured as a demo is.
    property string pictureName
    default property alias content: body.data

    width: parent ? parent.width : 0
    implicitHeight: body.y + body.height + 24
    height: implicitHeight

    Column {
        id: heading
        x: 24
        y: 20
        width: section.width - 48
        spacing: 4
        Label {
            width: parent.width
            visible: text.length > 0
            text: section.title
            font.pixelSize: Theme.large
            font.weight: Font.DemiBold
        }
        Label {
            width: parent.width
            visible: text.length > 0
            text: section.hint
            color: Theme.softText
            wrapMode: Text.WordWrap
            lineHeight: 1.2
            // Whole: what stands below is drawn sharp.
            height: Math.ceil(implicitHeight)
        }
    }
    Column {
        id: body
        x: 24
        y: heading.y + heading.height + 16
        width: section.width - 48
        spacing: 12
    }
}
