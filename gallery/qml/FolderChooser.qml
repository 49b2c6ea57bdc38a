// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Window 2.12
import QtQuick.Controls 2.5 as Controls
import "kit"

// Asks for a folder: by its path, or step by step through the list of those inside.
FocusScope {
    id: chooser

    property string path
    property Item before: null

    signal chosen(string folder)

    function open() {
        if (visible)
            return;
        before = Window.activeFocusItem;
        show(gallery.folder.documentId);
        visible = true;
        field.forceActiveFocus();
    }
    function show(folder) {
        path = folder;
        folders.model = [".."].concat(gallery.foldersIn(folder));
        folders.currentIndex = 0;
    }
    function enter(name) {
        show(name === ".." ? path.replace(/\/[^\/]*$/, "") || "/" : (path === "/" ? "" : path) + "/" + name);
    }
    function close() {
        visible = false;
        if (before)
            before.forceActiveFocus();
    }
    function take() {
        if (!gallery.canOpen(path))
            return;
        close();
        chosen(path);
    }

    visible: false
    Keys.onEscapePressed: close()
    Accessible.role: Accessible.Dialog
    Accessible.name: "Open a folder"

    Rectangle {
        anchors.fill: parent
        color: Theme.veil
        MouseArea { anchors.fill: parent; hoverEnabled: true; onPressed: chooser.close(); onWheel: {} }
    }
    Surface {
        anchors.centerIn: parent
        width: 460
        height: 420
        border.color: Theme.strongLine
        MouseArea { anchors.fill: parent }

        Label { x: 20; y: 16; text: "Open a folder"; font.pixelSize: Theme.large; font.weight: Font.DemiBold }
        Field {
            id: field
            x: 20
            y: 52
            width: parent.width - 40
            name: "Path"
            shown: chooser.path
            valid: gallery.canOpen(text)
            onTextEdited: if (gallery.canOpen(text)) chooser.show(text)
            onAccepted: chooser.take()
            Keys.onDownPressed: folders.forceActiveFocus()
        }
        ListView {
            id: folders
            anchors { left: parent.left; right: parent.right; top: field.bottom; bottom: commands.top; margins: 20 }
            anchors.topMargin: 8
            clip: true
            activeFocusOnTab: true
            boundsBehavior: Flickable.StopAtBounds
            Controls.ScrollBar.vertical: ScrollBar {}
            Keys.onReturnPressed: chooser.enter(model[currentIndex])
            Keys.onEnterPressed: chooser.enter(model[currentIndex])
            Accessible.role: Accessible.List
            Accessible.name: "Folders inside"
            Accessible.focusable: true
            delegate: Rectangle {
                width: folders.width
                height: 28
                radius: 4
                color: ListView.isCurrentItem ? Theme.accentSoft : "transparent"
                border.width: ListView.isCurrentItem && folders.activeFocus ? Theme.focusWidth : 0
                border.color: Theme.focus
                Accessible.role: Accessible.ListItem
                Accessible.name: name.text
                Accessible.onPressAction: chooser.enter(modelData)
                Label {
                    id: name
                    x: 8
                    width: parent.width - 24
                    height: parent.height
                    verticalAlignment: Text.AlignVCenter
                    text: modelData === ".." ? "The folder above" : Theme.oneLine(modelData)
                    color: modelData === ".." ? Theme.accentText : Theme.text
                    Accessible.ignored: true
                }
                MouseArea {
                    anchors.fill: parent
                    onClicked: folders.currentIndex = index
                    onDoubleClicked: chooser.enter(modelData)
                }
            }
        }
        Row {
            id: commands
            anchors { right: parent.right; bottom: parent.bottom; margins: 20 }
            spacing: 8
            Button { text: "Cancel"; onClicked: chooser.close() }
            Button { text: "Open"; primary: true; enabled: gallery.canOpen(field.text); onClicked: chooser.take() }
        }
    }
}
