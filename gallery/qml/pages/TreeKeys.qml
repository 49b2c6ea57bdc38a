// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

// Moves the active row of a tree by keys and keeps it in sight, as the reference of TreeView shows:
// arrow keys, Home, End, the page keys, and letters, which find a name. Tab leaves the tree.
//
//     TreeView { Keys.onPressed: keys.press(event) }
//     TreeKeys { id: keys; tree: …; view: … }
QtObject {
    id: keys

    property TreeView tree
    // What the tree is the only content of.
    property Flickable view
    // What Tab goes to and leaves: an item around the tree with `activeFocusOnTab`.
    property Item stop: tree

    property string typed
    property Timer pause: Timer { interval: 900; onTriggered: keys.typed = "" }

    function press(event) {
        const actions = ({ [Qt.Key_Down]: () => stepBy(1), [Qt.Key_Up]: () => stepBy(-1),
                           [Qt.Key_PageDown]: () => pageBy(1), [Qt.Key_PageUp]: () => pageBy(-1),
                           [Qt.Key_Home]: () => activate(0),
                           [Qt.Key_End]: () => activate(rowAt(tree.contentItem.height - 1)),
                           [Qt.Key_Left]: collapse, [Qt.Key_Right]: expand,
                           [Qt.Key_Tab]: () => leave(true), [Qt.Key_Backtab]: () => leave(false) });
        if (event.modifiers & (Qt.ControlModifier | Qt.AltModifier))
            return;
        if (actions[event.key])
            actions[event.key]();
        else if (event.text.length === 1 && (event.text > " " || (event.text === " " && typed !== "")))
            find(event.text);
        else
            return;
        event.accepted = true;
    }

    function activate(index) {
        if (index < 0)
            return;
        tree.activeIndex = index;
        const row = tree.currentEntry();
        if (!row)
            return;
        const last = row.y - view.topMargin;
        const first = row.y + row.height + view.bottomMargin - view.height;
        view.contentY = Math.min(last, Math.max(first, view.contentY));
    }
    // Rows that are hidden have no height: a point inside a row is in one that is shown.
    function rowAt(y) { return tree.indexAt(1, y); }
    function stepBy(direction) {
        const row = tree.currentEntry();
        activate(!row ? 0 : rowAt(direction > 0 ? row.y + row.height + 1 : row.y - 1));
    }
    function pageBy(direction) {
        const row = tree.currentEntry();
        if (!row)
            return activate(0);
        const y = row.y + row.height / 2 + direction * (view.height - 2 * row.height);
        activate(rowAt(Math.max(1, Math.min(tree.contentItem.height - 1, y))));
    }

    function childrenOf(index) { return tree.documentAt(index)[tree.childProperty] || []; }
    function parentOf(index) {
        const document = tree.documentAt(index);
        for (let i = index - 1; i >= 0; --i) {
            const children = childrenOf(i);
            for (let j = 0; j < children.length; ++j) {
                if (children[j] === document)
                    return i;
            }
        }
        return -1;
    }
    function collapse() {
        const row = tree.currentEntry();
        if (!row)
            return;
        const open = childrenOf(tree.activeIndex).length > 0 && !row.TreeView.isCollapsedItem;
        if (open)
            tree.collapseIndex(tree.activeIndex);
        // A root may refuse.
        if (!open || !row.TreeView.isCollapsedItem)
            activate(parentOf(tree.activeIndex));
    }
    function expand() {
        const row = tree.currentEntry();
        if (!row || childrenOf(tree.activeIndex).length === 0)
            return;
        if (row.TreeView.isCollapsedItem)
            tree.expandIndex(tree.activeIndex);
        else
            activate(tree.activeIndex + 1);
    }

    // The next name that begins with what was typed; a letter again and again goes from one to the
    // next.
    function find(letter) {
        typed += letter.toLowerCase();
        pause.restart();
        const repeated = typed.split("").every(other => other === typed[0]);
        const wanted = repeated ? typed[0] : typed;
        const start = Math.max(0, tree.activeIndex + (repeated ? 1 : 0));
        const fits = index => String(tree.documentAt(index).name).toLowerCase().startsWith(wanted);
        for (let i = start; tree.documentAt(i); ++i) {
            if (fits(i))
                return reveal(i);
        }
        for (let i = 0; i < start && tree.documentAt(i); ++i) {
            if (fits(i))
                return reveal(i);
        }
    }
    function reveal(index) {
        for (let i = parentOf(index); i >= 0; i = parentOf(i))
            tree.expandIndex(i);
        activate(index);
    }

    // The view takes every key, Tab too, which would hold the keyboard in it.
    function leave(forward) {
        stop.nextItemInFocusChain(forward).forceActiveFocus(forward ? Qt.TabFocusReason
                                                                    : Qt.BacktabFocusReason);
    }
}
