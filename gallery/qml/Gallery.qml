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
    readonly property var allPages: PageList.pages.concat(PageList.apart)
    property string currentPage: pages[0].name
    readonly property var currentEntry: PageList.pageNamed(currentPage)

    // For pictures: the height that shows the whole page, whether it moves by itself now, and
    // whether there is no page to show.
    readonly property real pageHeight: loader.item ? loader.item.contentHeight : 0
    readonly property bool pageMoves: loader.item !== null && loader.item.moving === true
    readonly property bool pageBroken: loader.status === Loader.Error || currentEntry === undefined

    // Pages that were left, and those that were left by going back.
    property var past: []
    property var future: []
    property string shownPage
    property bool begun: false
    property bool travelling: false

    function goBack() { travel(past, future); }
    function goForward() { travel(future, past); }
    function travel(from, to) {
        if (from.length === 0)
            return;
        to.push(currentPage);
        travelling = true;
        currentPage = from.pop();
        travelling = false;
    }
    onCurrentPageChanged: {
        if (!begun)
            return;
        if (!travelling) {
            past.push(shownPage);
            future = [];
        }
        shownPage = currentPage;
        session.page = currentPage;
    }

    // Where a type is shown; without a demo of its own, nowhere.
    function showType(type) {
        const page = PageList.pageOf(type);
        if (!page)
            return;
        currentPage = page.name;
        loader.item.showDemo(type);
    }
    // A link of the reference: the page of a type, when it has a demo.
    function follow(address) {
        const type = address.replace(/^.*\//, "").replace(/\.md.*$/, "");
        if (PageList.pageOf(type))
            showType(type);
    }
    // The page is made anew: what it shows are documents of the folder before.
    property bool turning: false
    function openFolder(folder) {
        if (!gallery.canOpen(folder))
            return false;
        turning = true;
        gallery.open(folder);
        turning = false;
        return true;
    }

    width: 1240
    height: 820
    minimumWidth: 820
    minimumHeight: 480
    color: Theme.window
    title: currentEntry ? currentEntry.title : ""

    Component.onCompleted: {
        for (const page of pages) {
            for (const type of page.types)
                reference.addSteps(type, Qt.resolvedUrl("pages/" + type + "Demo.qml"));
        }
        if (PageList.pageNamed(session.page))
            currentPage = session.page;
        shownPage = currentPage;
        begun = true;
    }

    // Shelf keeps its changes in memory until they are saved: the window asks before they go with it.
    property bool closingAgreed: false
    onClosing: {
        if (!shelf.changed || closingAgreed)
            return;
        close.accepted = false;
        currentPage = "shelf";
        question.start();
    }
    // A page that is just made has its dialogs in the window only after this turn.
    Timer { id: question; interval: 1; onTriggered: if (loader.item.askToClose) loader.item.askToClose() }
    function closeAnyway() {
        closingAgreed = true;
        close();
    }

    Binding { target: Theme; property: "dark"; value: session.dark }
    Binding { target: Theme; property: "pixelRatio"; value: window.Screen.devicePixelRatio }

    Shortcut { sequence: "Alt+Left"; onActivated: window.goBack() }
    Shortcut { sequence: "Alt+Right"; onActivated: window.goForward() }
    Shortcut { sequences: ["Ctrl+F", "Ctrl+K"]; onActivated: sidebar.search.begin() }
    Shortcut { sequence: "Ctrl+O"; onActivated: chooser.open() }

    // A folder that is dropped where nothing else takes it is opened.
    DropArea {
        anchors.fill: parent
        function folderOf(drag) { return drag.urls.length === 1 && gallery.canOpen(drag.urls[0]) ? drag.urls[0] : ""; }
        onEntered: drag.accepted = String(folderOf(drag)) !== ""
        onDropped: {
            const folder = folderOf(drop);
            if (String(folder) === "")
                return;
            drop.accept(Qt.CopyAction);
            // After the drop: the page has parts in the drag that is ending.
            Qt.callLater(window.openFolder, folder);
        }
    }

    Sidebar {
        id: sidebar
        z: 1
        width: 228
        height: parent.height
        pages: window.pages
        currentPage: window.currentPage
        folder: gallery.folder
        onPageChosen: window.currentPage = name
        onTypeChosen: window.showType(type)
        onFolderWanted: chooser.open()
        onPageWanted: loader.item.forceActiveFocus()
    }

    Loader {
        id: loader
        anchors { left: sidebar.right; right: parent.right; top: parent.top; bottom: parent.bottom }
        source: window.currentEntry && !window.turning ? "pages/" + window.currentEntry.file : ""
        onLoaded: {
            if (item.linked)
                item.linked.connect(window.follow);
            if (item.closingAgreed)
                item.closingAgreed.connect(window.closeAnyway);
        }
    }

    FolderChooser {
        id: chooser
        z: 2
        anchors.fill: parent
        onChosen: window.openFolder(folder)
    }

    // The buttons for back and forward at the side of a mouse; all else goes through.
    MouseArea {
        anchors.fill: parent
        z: 3
        acceptedButtons: Qt.BackButton | Qt.ForwardButton
        onPressed: mouse.button === Qt.BackButton ? window.goBack() : window.goForward()
    }
}
