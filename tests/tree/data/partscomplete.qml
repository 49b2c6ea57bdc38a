// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// Views whose delegates call the destroyer while a row is made. The components of the first are the
// page's, those of the others their own, and go with them.
Item {
    id: page
    property bool nested: false

    Component {
        id: completes
        Item {
            Component.onCompleted: destroyer.act()
        }
    }
    Component {
        id: completesWithoutItem
        QtObject {
            Component.onCompleted: destroyer.act()
        }
    }

    property Component pageDelegate: TreeView {
        childProperty: "children"
        delegate: completes
    }
    property Component pageBackground: TreeView {
        childProperty: "children"
        delegate: Item {}
        backgroundDelegate: completes
    }
    property Component pageHandle: TreeView {
        childProperty: "children"
        delegate: Item {}
        branchHandleDelegate: completes
    }
    property Component handleThatIsNoItem: TreeView {
        childProperty: "children"
        delegate: Item {}
        branchHandleDelegate: completesWithoutItem
    }
    property Component ownDelegate: TreeView {
        childProperty: "children"
        delegate: Item {
            Component.onCompleted: destroyer.act()
        }
    }
    property Component ownBackground: TreeView {
        childProperty: "children"
        delegate: Item {}
        backgroundDelegate: Item {
            Component.onCompleted: destroyer.act()
        }
    }
    property Component ownHandle: TreeView {
        childProperty: "children"
        delegate: Item {}
        branchHandleDelegate: Item {
            Component.onCompleted: destroyer.act()
        }
    }
    property Component delegateGetsItsRow: TreeView {
        childProperty: "children"
        delegate: Item {
            onParentChanged: destroyer.act()
        }
    }
    property Component handleGetsItsMarker: TreeView {
        childProperty: "children"
        delegate: Item {}
        branchHandleDelegate: Item {
            onParentChanged: destroyer.act()
        }
    }
    property Component delegateGetsItsWidth: TreeView {
        width: 50
        childProperty: "children"
        delegate: Item {
            onWidthChanged: destroyer.act()
        }
    }
    property Component delegateGetsItsPlace: TreeView {
        width: 50
        childProperty: "children"
        delegate: Item {
            onXChanged: destroyer.act()
        }
    }
    property Component rowGetsItsHandle: TreeView {
        childProperty: "children"
        delegate: Item {
            onParentChanged: {
                if (parent)
                    parent.branchHandleItemChanged.connect(function() { destroyer.act(); });
            }
        }
    }
    property Component backgroundGetsItsDepth: TreeView {
        width: 50
        childProperty: "children"
        delegate: Item {}
        backgroundDelegate: Item {
            onZChanged: destroyer.act()
        }
    }
    property Component backgroundGetsItsSize: TreeView {
        width: 50
        childProperty: "children"
        delegate: Item {}
        backgroundDelegate: Item {
            onWidthChanged: destroyer.act()
        }
    }
    property Component rowOfARowCompletes: TreeView {
        childProperty: "children"
        delegate: Item {}
        backgroundDelegate: Item {
            Component.onCompleted: {
                if (!page.nested) {
                    page.nested = true;
                    createDelegateItem(TreeView.EntryComponent, this);
                } else {
                    destroyer.act();
                }
            }
        }
    }
}
