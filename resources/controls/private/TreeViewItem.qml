// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.2
import ombrel.Controls 1.0
import ombrel.data.Core 1.0

// A row of a TreeView, made of the view's three delegates. The context object is the row's
// TreeViewEntry: level, index, document, createDelegateItem().
Item {
    id: treeViewItem

    readonly property int effectiveLevel: TreeView.view.rootCanCollapse ? level : level - 1
    readonly property int indent: Math.max(0, effectiveLevel * TreeView.view.indent)
    readonly property bool isRoot: level === 0
    readonly property bool childrenCollapsed: treeParent
        ? treeParent.collapsed || treeParent.childrenCollapsed : false
    readonly property int displayHeight: delegateItem ? delegateItem.height : 24
    readonly property bool collapsable: (isRoot && !TreeView.view.rootCanCollapse)
        ? false : hasChildren
    readonly property int markerIndent: (isRoot && !TreeView.view.rootCanCollapse)
        ? 0 : collapseMarker.width
    readonly property bool hasChildren: childCount !== 0
    readonly property bool collapsed: TreeView.isCollapsedItem

    property Item predecessor
    property Item treeParent
    property Item delegateItem
    property Item backgroundItem
    property Item branchHandleItem

    // The length of the document's child list, kept by the entry: a binding on a list without a
    // notify signal would warn once a row.
    property int childCount: 0

    signal layoutRequired()

    function populate() {
        backgroundItem = createDelegateItem(TreeView.BackgroundComponent, treeViewItem)
        if (backgroundItem) {
            backgroundItem.anchors.fill = treeViewItem
            backgroundItem.z = -1
        }
        delegateItem = createDelegateItem(TreeView.DelegateComponent, treeViewItem)
        if (delegateItem) {
            delegateItem.anchors.right = treeViewItem.right
            delegateItem.width = Qt.binding(function() {
                return treeViewItem.width - treeViewItem.indent - treeViewItem.markerIndent
            })
        }
        branchHandleItem = createDelegateItem(TreeView.BranchHandleComponent, collapseMarker)
        if (!branchHandleItem) {
            branchHandleItem = defaultBranchHandle.createObject(collapseMarker)
        }
        // It has to see each press before the delegate does, so it goes on top of the siblings.
        pressArea.parent = null
        pressArea.parent = treeViewItem
    }

    width: parent ? parent.width : 100
    height: 0
    opacity: 0
    clip: true

    states: State {
        name: "displayed"
        when: !treeViewItem.childrenCollapsed
        PropertyChanges {
            target: treeViewItem
            height: treeViewItem.displayHeight
            opacity: 1
        }
    }

    onLayoutRequired: {
        anchors.top = undefined
        if (predecessor) {
            anchors.top = predecessor.bottom
        }
    }

    Component.onCompleted: populate()

    MouseArea {
        id: collapseMarker
        x: treeViewItem.indent
        width: childrenRect.width
        height: childrenRect.height
        anchors.verticalCenter: parent.verticalCenter
        acceptedButtons: Qt.LeftButton
        enabled: treeViewItem.collapsable
        visible: treeViewItem.collapsable
        onClicked: treeViewItem.TreeView.isCollapsedItem = !treeViewItem.TreeView.isCollapsedItem
    }

    MouseArea {
        id: pressArea
        anchors.fill: parent
        z: 0
        acceptedButtons: Qt.LeftButton
        onPressed: {
            treeViewItem.TreeView.view.activeIndex = index
            mouse.accepted = false
            treeViewItem.forceActiveFocus()
        }
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
