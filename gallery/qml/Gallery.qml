// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtQuick.Window 2.12
import "kit"
import "PageList.js" as PageList

// The gallery's window: the list of pages at the left, the current page beside it.
Window {
    id: window

    readonly property var pages: PageList.pages
    property string currentPage: pages[0].name
    readonly property var currentEntry: pages.find(page => page.name === currentPage)

    // For pictures: the height that shows the whole page, and whether there is no page to show.
    readonly property real pageHeight: loader.item ? loader.item.contentHeight : 0
    readonly property bool pageBroken: loader.status === Loader.Error || currentEntry === undefined

    width: 1240
    height: 820
    minimumWidth: 820
    minimumHeight: 480
    color: Theme.window
    title: currentEntry ? currentEntry.title : ""

    Sidebar {
        id: sidebar
        width: 228
        height: parent.height
        pages: window.pages
        currentPage: window.currentPage
        folder: gallery.folder
        onPageChosen: window.currentPage = name
    }

    Loader {
        id: loader
        anchors { left: sidebar.right; right: parent.right; top: parent.top; bottom: parent.bottom }
        source: window.currentEntry ? "pages/" + window.currentEntry.file : ""
    }
}
