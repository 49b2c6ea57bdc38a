// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QObject;
class QQuickItem;
QT_END_NAMESPACE

namespace om::controls {

/// Reaches into a row item, an object made from TreeViewItem.qml: its QML properties and functions
/// by number.
///
/// Looking properties up by name, as QQmlProperty and even QMetaObject do, would take up to half of
/// the time in which thousands of rows are made and moved. All rows are of one file, so that the
/// numbers of its properties are looked up once, in the first row, and hold for all.
class RowItemAccess
{
public:
    /// \a item is a row item, not null.
    explicit RowItemAccess(QQuickItem *item);

    /// Whether \a item is of the rows' file.
    static bool fits(QQuickItem *item);

    /// Whether the row leaves it to the entry to populate it.
    void setAwaitsEntry(bool awaits);
    void setChildCount(int count);
    void setTreeParent(QQuickItem *parentRow);
    void setPredecessor(QQuickItem *row);
    /// Emits the row's layoutRequired().
    void requireLayout();

    /// Clears the top anchor.
    void releaseTop();
    /// Anchors the top to the bottom of the row's predecessor.
    void anchorTop();

    void setBackgroundItem(QQuickItem *item);
    void setDelegateItem(QQuickItem *item);
    void setBranchHandleItem(QQuickItem *item);
    /// Where the branch handle goes.
    QQuickItem *collapseMarker() const;
    /// Makes the handle of a view that has none of its own. As what delegates make, it belongs to
    /// the QML engine, and it goes with the marker.
    QQuickItem *makeDefaultBranchHandle();
    /// Keeps the marker as large as the rectangle of its children, of which \a handle is the only
    /// one to begin with; null when there is none.
    void followMarkerChildren(QQuickItem *handle);
    /// Puts the press area above everything made so far: it sees each press first.
    void raisePressArea();
    /// Has the background \a item fill the row, below everything else. Here and in the next, the
    /// application may answer by destroying the row.
    void placeBackground(QQuickItem *item);
    /// Gives the delegate \a item the place right of the marker.
    void placeDelegate(QQuickItem *item);

private:
    struct Numbers;

    void anchor(QObject *object, int own, QObject *target, int line);

    QQuickItem *const m_item;
    const Numbers &m_numbers;
};

} // namespace om::controls
