// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPointer>
#include <QSet>

#include <vector>

QT_BEGIN_NAMESPACE
class QQuickItem;
QT_END_NAMESPACE

namespace om::controls {

class TreeRows;

/// Keeps a view's content item as high as the rectangle that encloses its children.
///
/// That is childrenRect.height, from few children: the rows stand below one another, so that only
/// the first and the last of them can be at the rectangle's edge. The other children, which the
/// application has put there, are all looked at. Asked for childrenRect once, the content item
/// would look at all of its children at every change of any of them, for good: ten thousand rows
/// would take seconds to follow a new width.
class ContentHeight : public QObject
{
public:
    /// \a rows outlive the object.
    ContentHeight(QQuickItem *content, const TreeRows *rows);

    /// What changes from here on counts when the last resume() has been called.
    void pause();
    /// Follows the rows that there are now. The content item announces its new height: the view may
    /// be gone afterwards.
    void resume();
    /// Looks at all children again, unless there is a pause. The view may be gone afterwards.
    void update();

private:
    void childrenChanged();
    void watchOther(QQuickItem *child);
    void dropOther(QQuickItem *child);

    const QPointer<QQuickItem> m_content;
    const TreeRows *const m_rows;
    int m_pauses = 0;
    /// The content item's children that are no rows.
    QSet<QQuickItem *> m_others;
    std::vector<QMetaObject::Connection> m_endWatches;
};

} // namespace om::controls
