// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.2
import ombrel.Controls 1.0
import ombrel.data.Core 1.0

// A row. Its context object is its entry, which gives it level, index, document and
// createDelegateItem(); the view sets predecessor and treeParent.
Item {
    id: treeViewItem

    readonly property int effectiveLevel: TreeView.view.rootCanCollapse ? level : level - 1
    readonly property int indent: Math.max(0, effectiveLevel * TreeView.view.indent)
    readonly property bool isRoot: level === 0
    readonly property bool childrenCollapsed: treeParent
        ? treeParent.collapsed || treeParent.childrenCollapsed : false
    readonly property int displayHeight: delegateItem ? delegateItem.height : 24
    readonly property bool collapsable: isRoot && !TreeView.view.rootCanCollapse ? false : hasChildren
    readonly property int markerIndent: isRoot && !TreeView.view.rootCanCollapse || !collapseMarker
        ? 0 : collapseMarker.width
    readonly property bool hasChildren: childCount !== 0
    readonly property bool collapsed: entryCollapsed
    property Item predecessor
    property Item treeParent
    property Item delegateItem
    property Item backgroundItem
    property Item branchHandleItem
    // The length of the document's list property named by the view's childProperty, written by the
    // entry: a binding on a list without a notify signal would cost a warning a row.
    property int childCount: 0
    // TreeView.isCollapsedItem, written by the entry before it tells of a change: the rows below
    // have hidden or shown, and lie in their places, when the application hears of it.
    property bool entryCollapsed: false

    signal layoutRequired()

    // For the entry, which makes the row's parts and puts them into the properties above. The press
    // area and the default handle have no alias: the entry reads the row's first child item and its
    // child of type Component, as each alias takes 48 bytes in each row once one is read.
    property alias marker: collapseMarker

    // Makes what the row shows. The view's own rows are populated by their entry, right after their
    // completion: what a delegate does may be to destroy the view, and the engine does not survive
    // the end of an item inside the item's own handler.
    property bool awaitsEntry: false
    function populate() {
        if (!awaitsEntry)
            populateRow(treeViewItem);
    }

    // Called by the entry when the row has all its parts: the width is evaluated once. Nothing may
    // follow what the application answers to it, which may be to destroy the row.
    function bindDelegateWidth() {
        if (delegateItem)
            delegateItem.width = Qt.binding(function() { return width - indent - markerIndent; });
    }

    // Called by the entry when the marker has other children than the handle. Until then it gives
    // the marker the handle's size: to ask for childrenRect has an item look at all of its children
    // at every change of any, for good.
    function measureMarker() {
        collapseMarker.width = Qt.binding(function() { return collapseMarker.childrenRect.width; });
        collapseMarker.height = Qt.binding(function() { return collapseMarker.childrenRect.height; });
    }

    Component.onCompleted: populate()

    width: parent ? parent.width : 100
    height: 0
    opacity: 0
    clip: true

    onLayoutRequired: {
        anchors.top = undefined;
        if (predecessor)
            anchors.top = predecessor.bottom;
    }

    states: State {
        name: "displayed"
        when: !treeViewItem.childrenCollapsed
        PropertyChanges {
            target: treeViewItem
            height: treeViewItem.displayHeight
            opacity: 1
        }
    }

    MouseArea {
        id: pressArea
        anchors.fill: parent
        acceptedButtons: Qt.LeftButton
        onPressed: {
            treeViewItem.TreeView.view.activeIndex = index;
            mouse.accepted = false;
            treeViewItem.forceActiveFocus();
        }
    }

    MouseArea {
        id: collapseMarker
        x: treeViewItem.indent
        anchors.verticalCenter: parent.verticalCenter
        enabled: treeViewItem.collapsable
        visible: treeViewItem.collapsable
        acceptedButtons: Qt.LeftButton
        onClicked: treeViewItem.TreeView.isCollapsedItem = !treeViewItem.TreeView.isCollapsedItem
    }

    Component {
        id: defaultBranchHandle
        Item {
            width: 16
            height: 16
            Image {
                anchors.centerIn: parent
                source: "qrc:/controls/images/collapse-indicator.svg"
                rotation: treeViewItem.collapsed ? 0 : 45
            }
        }
    }
}
