// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QObject;
class QQmlComponent;
class QQuickItem;
class QVariant;
QT_END_NAMESPACE

namespace om::controls {

/// Reads and writes the QML properties of a row item, an object made from TreeViewItem.qml, and
/// calls its functions, all by their index in the meta-object.
///
/// Looking properties up by name, with QQmlProperty or QMetaObject, would take up to half of the
/// time that thousands of rows take to be made and moved. All rows are made from one file, so the
/// indices are looked up once, in the first row.
class RowItemAccess
{
public:
    /// \a item is a row item, not null.
    explicit RowItemAccess(QQuickItem *item);

    /// Whether \a item is of the rows' file.
    static bool fits(QQuickItem *item);

    /// Whether the entry populates the row, and the row's own populate() does nothing.
    void setAwaitsEntry(bool awaits);
    void setChildCount(int count);
    void setCollapsed(bool collapsed);
    void setTreeParent(QQuickItem *parentRow);
    void setPredecessor(QQuickItem *row);
    /// Emits the row's layoutRequired().
    void requireLayout();

    /// Whether the top is anchored to the bottom of the row's predecessor and follows it: the
    /// anchor stays set but has no effect while one of the two has been taken to another parent.
    bool isBelowPredecessor() const;
    /// Clears the top anchor.
    void releaseTop();
    /// Anchors the top to the bottom of the row's predecessor, unless it is anchored already or one
    /// of the two has been taken to another parent.
    void anchorTop();

    void setBackgroundItem(QQuickItem *item);
    void setDelegateItem(QQuickItem *item);
    void setBranchHandleItem(QQuickItem *item);
    /// Where the branch handle goes.
    QQuickItem *collapseMarker() const;
    /// The component of the default branch handle; null when the application has destroyed it.
    QQmlComponent *defaultBranchHandle() const;
    /// Gives the marker the size of its child, while it has one only.
    void fitMarker();
    /// Binds the marker's size to the rectangle of its children.
    void measureMarker();
    /// The press area of a row that has no parts yet; null when the application has moved it away.
    QQuickItem *pressArea() const;
    /// Stacks the press \a area above the row's other children: it gets each press first. Does
    /// nothing when \a area is no child of the row any more; it may be destroyed then.
    void raisePressArea(QQuickItem *area);
    /// Has the background \a item fill the row, below everything else. This and placeDelegate()
    /// anchor no part that has left the row, and emit signals whose handlers may destroy the row.
    void placeBackground(QQuickItem *item);
    /// Gives the delegate \a item the place right of the marker.
    void placeDelegate(QQuickItem *item);

private:
    struct Numbers;

    QQuickItem *predecessor() const;
    QVariant top() const;
    QVariant line(QObject *object, int property) const;
    void anchor(QObject *object, int own, QObject *target, int targetLine);

    QQuickItem *const m_item;
    const Numbers &m_numbers;
};

} // namespace om::controls
