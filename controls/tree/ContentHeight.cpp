// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/tree/ContentHeight.h"

#include "controls/tree/TreeRows.h"
#include "controls/tree/TreeViewEntry.h"

#include <QQuickItem>

#include <limits>

namespace om::controls {

ContentHeight::ContentHeight(QQuickItem *content, const TreeRows *rows)
    : m_content(content)
    , m_rows(rows)
{
    connect(content, &QQuickItem::childrenChanged, this, &ContentHeight::childrenChanged);
}

void ContentHeight::pause()
{
    ++m_pauses;
    for (const QMetaObject::Connection &watch : m_endWatches) {
        disconnect(watch);
    }
    m_endWatches.clear();
}

void ContentHeight::resume()
{
    if (--m_pauses > 0) {
        return;
    }
    if (QQuickItem *first = m_rows->firstItem()) {
        m_endWatches.push_back(connect(first, &QQuickItem::yChanged, this, &ContentHeight::update));
    }
    if (QQuickItem *last = m_rows->lastItem()) {
        m_endWatches.push_back(connect(last, &QQuickItem::yChanged, this, &ContentHeight::update));
        m_endWatches.push_back(
            connect(last, &QQuickItem::heightChanged, this, &ContentHeight::update));
    }
    update();
}

void ContentHeight::update()
{
    if (m_pauses > 0 || !m_content) {
        return;
    }
    qreal top = std::numeric_limits<qreal>::max();
    qreal bottom = std::numeric_limits<qreal>::lowest();
    const auto include = [&top, &bottom](const QQuickItem *item) {
        top = qMin(top, item->y());
        bottom = qMax(bottom, item->y() + item->height());
    };
    const std::vector<QQuickItem *> ends = m_rows->endItems();
    for (const QQuickItem *item : ends) {
        include(item);
    }
    for (const QQuickItem *item : qAsConst(m_others)) {
        include(item);
    }
    m_content->setHeight(bottom > top ? bottom - top : 0);
}

/// A new child is the last of childItems().
void ContentHeight::childrenChanged()
{
    const QList<QQuickItem *> children = m_content->childItems();
    QQuickItem *last = children.isEmpty() ? nullptr : children.constLast();
    if (last && !m_others.contains(last) && !TreeViewEntry::ofRowItem(last)) {
        watchOther(last);
    }
}

void ContentHeight::watchOther(QQuickItem *child)
{
    m_others.insert(child);
    connect(child, &QQuickItem::yChanged, this, &ContentHeight::update);
    connect(child, &QQuickItem::heightChanged, this, &ContentHeight::update);
    connect(child, &QQuickItem::parentChanged, this, [this, child] {
        if (child->parentItem() != m_content) {
            dropOther(child);
        }
    });
    connect(child, &QObject::destroyed, this, [this, child] { dropOther(child); });
    update();
}

void ContentHeight::dropOther(QQuickItem *child)
{
    m_others.remove(child);
    disconnect(child, nullptr, this, nullptr);
    update();
}

} // namespace om::controls
