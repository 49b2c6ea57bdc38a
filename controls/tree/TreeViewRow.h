// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QQuickItem;
QT_END_NAMESPACE

namespace om::controls {

/// What the view does to a row item, an object made from TreeViewItem.qml.
///
/// Thousands of rows are made and moved at a time, and up to half of that time would go into
/// looking their properties up by name, which is what QML properties and even meta-properties do.
/// All rows are of one file: the numbers of its properties are looked up once, in the first row.
class TreeViewRow
{
public:
    /// \a item is a row item, not null.
    explicit TreeViewRow(QQuickItem *item);

    void setChildCount(int count);
    void setTreeParent(QQuickItem *parentRow);
    void setPredecessor(QQuickItem *row);
    /// Emits the row's layoutRequired().
    void requireLayout();

    /// Clears the top anchor.
    void releaseTop();
    /// Anchors the top to the bottom of \a above.
    void setTop(QQuickItem *above);

    /// Fills the row with \a item, below everything else.
    void takeBackground(QQuickItem *item);
    /// Gives \a item the place right of the marker.
    void takeDelegate(QQuickItem *item);
    void setBranchHandle(QQuickItem *item);
    /// Where the branch handle goes.
    QQuickItem *collapseMarker() const;
    /// Makes the handle of a view that has none of its own. As what delegates make, it belongs to
    /// the QML engine, and it goes with the marker.
    QQuickItem *makeDefaultBranchHandle();
    /// Puts the press area above everything made so far: it sees each press first.
    void raisePressArea();

private:
    struct Numbers;

    QQuickItem *const m_item;
    const Numbers &m_numbers;
};

} // namespace om::controls
