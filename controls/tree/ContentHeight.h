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
/// The result is childrenRect.height, computed from few children: rows lie below one another, so
/// only the first and the last of them can touch the rectangle's edge, unless the application puts
/// one in between elsewhere. Children that the application has added are all read. childrenRect
/// itself is not used: once it has been read, QQuickItem scans all children whenever one of them
/// changes, and ten thousand rows would take seconds to follow a new width.
class ContentHeight : public QObject
{
public:
    /// \a rows outlive the object.
    ContentHeight(QQuickItem *content, const TreeRows *rows);

    /// Defers updates until resume() has been called once for each pause().
    void pause();
    /// Ends a pause and follows the present rows. The height's change signal runs the application's
    /// code: the view may be destroyed when the call returns.
    void resume();
    /// Computes the height, unless paused. The view may be destroyed when the call returns.
    void update();

private:
    void followEnds();
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
