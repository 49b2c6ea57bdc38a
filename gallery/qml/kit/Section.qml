// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.15

// A card on a page: a title, a line on what to try, and anything below.
Surface {
    id: section

    property string title
    property string hint
    default property alias content: body.data

    width: parent ? parent.width : 0
    implicitHeight: column.implicitHeight + 40
    height: implicitHeight

    Column {
        id: column
        x: 22
        y: 20
        width: section.width - 44
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
        }
        Item {
            id: body
            width: parent.width
            height: childrenRect.height + y0
            readonly property int y0: 0
        }
    }
}
