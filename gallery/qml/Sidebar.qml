// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Controls 2.5 as Controls
import "kit"

// Search, the list of pages and their types, grouped by section, light or dark, and the folder that
// the gallery was opened on.
//
// The list is one stop of Tab: Up and Down go from page to page, Right and Left through the types of
// the current one.
Rectangle {
    id: sidebar

    property var pages: []
    property string currentPage
    // The type of the current page that the keys have walked to, -1 for none.
    property int typeAt: -1
    property QtObject folder
    readonly property alias search: search

    signal pageChosen(string name)
    signal typeChosen(string type)
    signal folderWanted()
    signal pageWanted()

    function step(distance) {
        const index = pages.findIndex(page => page.name === currentPage) + distance;
        if (index >= 0 && index < pages.length)
            pageChosen(pages[index].name);
    }
    function stepType(distance) {
        const page = pages.find(page => page.name === currentPage);
        const types = page ? page.types : [];
        const next = Math.min(types.length - 1, typeAt + distance);
        if (next < 0)
            return;
        typeAt = next;
        typeChosen(types[typeAt]);
    }
    onCurrentPageChanged: typeAt = -1

    color: Theme.panel
    Accessible.role: Accessible.Pane
    Accessible.name: "Pages"
    Rectangle {
        anchors.right: parent.right
        width: 1
        height: parent.height
        color: Theme.line
    }

    Row {
        id: brand
        x: 20
        y: 20
        spacing: 12
        // The mark: an umbrella of three panels.
        Row {
            anchors.verticalCenter: parent.verticalCenter
            Repeater {
                model: [Theme.accent, Theme.positive, Theme.warning]
                Rectangle { width: 7; height: 22 - Math.abs(index - 1) * 7; color: modelData; radius: 2; y: Math.abs(index - 1) * 7 / 2 }
            }
        }
        Column {
            Label { text: "Ombrel"; font.pixelSize: Theme.large; font.weight: Font.DemiBold }
            Label { text: "Controls gallery"; color: Theme.faintText; font.pixelSize: Theme.small }
        }
    }

    SearchBox {
        id: search
        z: 1
        x: 12
        width: parent.width - 24
        anchors.top: brand.bottom
        anchors.topMargin: 16
        pages: sidebar.pages
        onTypePicked: sidebar.typeChosen(type)
        onPagePicked: sidebar.pageChosen(name)
        onLeft: sidebar.pageWanted()
    }

    Flickable {
        id: list
        anchors { left: parent.left; right: parent.right; top: search.bottom; bottom: foot.top }
        anchors.topMargin: 8
        anchors.bottomMargin: 8
        contentHeight: entries.height
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        activeFocusOnTab: true
        Controls.ScrollBar.vertical: ScrollBar {}
        Accessible.role: Accessible.List
        Accessible.name: "Pages and types"
        Accessible.focusable: true

        // The current page stays in sight, with the heading above it.
        function showEntry(item) {
            const top = item.y - (item.first ? 0 : 12);
            const bottom = item.y + item.height + 12;
            contentY = Math.max(0, Math.min(top, Math.max(bottom - height, contentY)));
        }
        onHeightChanged: if (repeater.currentItem) showEntry(repeater.currentItem)

        Keys.onUpPressed: sidebar.step(-1)
        Keys.onDownPressed: sidebar.step(1)
        Keys.onRightPressed: sidebar.stepType(1)
        Keys.onLeftPressed: sidebar.stepType(-1)

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
                    readonly property var page: modelData
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
                    readonly property bool first: modelData.section !== ""
                                                  && (index === 0 || sidebar.pages[index - 1].section !== modelData.section)
                    Label {
                        visible: parent.first
                        height: index === 0 ? 20 : 28
                        x: 22
                        verticalAlignment: Text.AlignBottom
                        bottomPadding: 4
                        text: modelData.section
                        color: Theme.faintText
                        font.pixelSize: Theme.tiny
                        font.weight: Font.DemiBold
                        font.capitalization: Font.AllUppercase
                        font.letterSpacing: 1
                    }
                    SidebarEntry {
                        width: parent.width
                        height: 28
                        text: modelData.title
                        current: place.current
                        focused: place.current && sidebar.typeAt < 0 && list.activeFocus
                        onClicked: {
                            list.forceActiveFocus();
                            sidebar.pageChosen(modelData.name);
                        }
                    }
                    Repeater {
                        model: place.page.types
                        SidebarEntry {
                            width: place.width
                            height: 22
                            minor: true
                            text: modelData
                            focused: place.current && sidebar.typeAt === index && list.activeFocus
                            onClicked: {
                                list.forceActiveFocus();
                                sidebar.typeChosen(modelData);
                                sidebar.typeAt = index;
                            }
                        }
                    }
                }
            }
        }
    }

    // The focus is seen on the current page's entry, which a page that is not in the list has not.
    FocusRing {
        anchors.fill: list
        shown: list.activeFocus && sidebar.pages.every(page => page.name !== sidebar.currentPage)
    }

    Column {
        id: foot
        x: 12
        width: parent.width - 24
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 12
        spacing: 4
        Row {
            id: appearances
            spacing: 4
            Repeater {
                model: [{ name: "light", text: "Light" }, { name: "dark", text: "Dark" }, { name: "system", text: "System" }]
                Button {
                    width: (foot.width - 8) / 3
                    implicitHeight: 28
                    flat: true
                    checkable: true
                    autoExclusive: true
                    text: modelData.text
                    checked: session.appearance === modelData.name
                    Accessible.role: Accessible.RadioButton
                    Accessible.name: modelData.text + " appearance"
                    onClicked: session.appearance = modelData.name
                }
            }
        }
        Controls.AbstractButton {
            id: opened
            width: parent.width
            height: 44
            Accessible.role: Accessible.Button
            Accessible.name: "Opened on " + folderName.text + ". Open another folder"
            onClicked: sidebar.folderWanted()
            background: Rectangle {
                radius: Theme.radius
                color: opened.hovered ? Theme.hover : "transparent"
                FocusRing { shown: opened.visualFocus }
            }
            contentItem: Item {
                Label {
                    x: 4
                    y: 4
                    text: "Opened on"
                    color: Theme.faintText
                    font.pixelSize: Theme.small
                    Accessible.ignored: true
                }
                Label {
                    id: folderName
                    x: 4
                    y: 20
                    width: parent.width - 8
                    text: sidebar.folder ? Theme.oneLine(sidebar.folder.name) : ""
                    font.pixelSize: Theme.medium
                    Accessible.ignored: true
                }
            }
        }
    }
}
