// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/tree/ContentHeight.h"

#include "controls/tree/TreeRows.h"

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
    followEnds();
}

/// A row that is the first or the last no more stays watched until the next pause: it tells when it
/// comes back.
void ContentHeight::followEnds()
{
    const auto watch = [this](QQuickItem *end, auto signal, void (ContentHeight::*slot)()) {
        if (const auto made = connect(end, signal, this, slot, Qt::UniqueConnection)) {
            m_endWatches.push_back(made);
        }
    };
    QQuickItem *const last = m_rows->lastItem(m_content);
    for (QQuickItem *end : {m_rows->firstItem(m_content), last}) {
        if (end) {
            watch(end, &QQuickItem::yChanged, &ContentHeight::update);
            watch(end, &QQuickItem::parentChanged, &ContentHeight::followEnds);
            watch(end, &QObject::destroyed, &ContentHeight::followEnds);
        }
    }
    if (last) {
        watch(last, &QQuickItem::heightChanged, &ContentHeight::update);
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
    const std::vector<QQuickItem *> ends = m_rows->endItems(m_content);
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
    if (last && !m_others.contains(last) && !m_rows->haveMade(last)) {
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
