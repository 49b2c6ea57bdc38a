// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Controls 2.5 as Controls
import "kit"

// The list of pages, grouped by section, and the folder that the gallery was opened on.
Rectangle {
    id: sidebar

    property var pages: []
    property string currentPage
    property QtObject folder

    signal pageChosen(string name)

    function step(distance) {
        const index = pages.findIndex(page => page.name === currentPage) + distance;
        if (index >= 0 && index < pages.length)
            pageChosen(pages[index].name);
    }

    color: Theme.panel
    Rectangle {
        anchors.right: parent.right
        width: 1
        height: parent.height
        color: Theme.line
    }

    Row {
        id: brand
        x: 22
        y: 22
        spacing: 11
        // The mark: an umbrella of three panels.
        Row {
            anchors.verticalCenter: parent.verticalCenter
            Repeater {
                model: [Theme.accent, Theme.positive, Theme.warning]
                Rectangle { width: 7; height: 22 - Math.abs(index - 1) * 7; color: modelData; radius: 2; y: Math.abs(index - 1) * 7 / 2 }
            }
        }
        Column {
            Label { text: "Ombrel"; font.pixelSize: 19; font.weight: Font.DemiBold }
            Label { text: "Controls gallery"; color: Theme.faintText; font.pixelSize: Theme.small }
        }
    }

    Flickable {
        id: list
        anchors { left: parent.left; right: parent.right; top: brand.bottom; bottom: folderPlace.top }
        anchors.topMargin: 12
        anchors.bottomMargin: 10
        contentHeight: entries.height
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        activeFocusOnTab: true
        Controls.ScrollBar.vertical: ScrollBar {}

        // The current page stays in sight, with the heading above it.
        function showEntry(item) {
            const top = item.y - (item.first ? 0 : 12);
            const bottom = item.y + item.height + 12;
            contentY = Math.max(0, Math.min(top, Math.max(bottom - height, contentY)));
        }
        onHeightChanged: if (repeater.currentItem) showEntry(repeater.currentItem)

        Keys.onUpPressed: sidebar.step(-1)
        Keys.onDownPressed: sidebar.step(1)

        Column {
            id: entries
            width: parent.width - 1
            Repeater {
                id: repeater
                property Item currentItem: null
                model: sidebar.pages
                Column {
                    id: place
                    width: entries.width
                    readonly property bool current: modelData.name === sidebar.currentPage
                    function show() {
                        if (current && height > 0) {
                            repeater.currentItem = place;
                            list.showEntry(place);
                        }
                    }
                    onCurrentChanged: show()
                    onYChanged: show()
                    Component.onCompleted: show()
                    readonly property bool first: index === 0
                                                  || sidebar.pages[index - 1].section !== modelData.section
                    Label {
                        visible: parent.first
                        height: index === 0 ? 22 : 30
                        x: 22
                        verticalAlignment: Text.AlignBottom
                        bottomPadding: 4
                        text: modelData.section
                        color: Theme.faintText
                        font.pixelSize: 11
                        font.weight: Font.DemiBold
                        font.capitalization: Font.AllUppercase
                        font.letterSpacing: 1
                    }
                    Controls.AbstractButton {
                        id: entry
                        readonly property bool current: place.current
                        x: 12
                        width: parent.width - 24
                        height: 30
                        focusPolicy: Qt.NoFocus
                        onClicked: {
                            list.forceActiveFocus();
                            sidebar.pageChosen(modelData.name);
                        }
                        contentItem: Label {
                            leftPadding: 10
                            verticalAlignment: Text.AlignVCenter
                            text: modelData.title
                            color: entry.current ? Theme.accentText : Theme.text
                            font.weight: entry.current ? Font.DemiBold : Font.Normal
                        }
                        background: Rectangle {
                            radius: Theme.radius
                            color: entry.current ? Theme.accentSoft
                                 : entry.hovered ? Theme.window : "transparent"
                            border.width: entry.current && list.activeFocus ? 2 : 0
                            border.color: Theme.focus
                        }
                    }
                }
            }
        }
    }

    Column {
        id: folderPlace
        x: 22
        width: parent.width - 44
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 20
        spacing: 2
        Label { text: "Opened on"; color: Theme.faintText; font.pixelSize: Theme.small }
        Label {
            width: parent.width
            text: sidebar.folder ? Theme.oneLine(sidebar.folder.name) : ""
            font.pixelSize: 13
        }
    }
}
