// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/plugin/handlers/EventItem.h"

EventItem::EventItem(QQuickItem *parent)
    : QQuickItem(parent)
{
    setAcceptedMouseButtons(Qt::LeftButton);
    setAcceptHoverEvents(true);
    setFlag(ItemAcceptsDrops);
}

void EventItem::mousePressEvent(QMouseEvent *)
{
    forceActiveFocus();
    grabMouse();
    Q_EMIT happenedAtPress();
}

void EventItem::mouseMoveEvent(QMouseEvent *)
{
    Q_EMIT happenedAtMove();
}

void EventItem::mouseReleaseEvent(QMouseEvent *)
{
    Q_EMIT happenedAtRelease();
}

void EventItem::hoverEnterEvent(QHoverEvent *)
{
    Q_EMIT happenedAtHover();
}

void EventItem::hoverLeaveEvent(QHoverEvent *)
{
    Q_EMIT happenedAtHover();
}

void EventItem::keyPressEvent(QKeyEvent *)
{
    Q_EMIT happenedAtKey();
}

void EventItem::dragEnterEvent(QDragEnterEvent *event)
{
    event->accept();
    Q_EMIT happenedAtEnter();
}

void EventItem::dragMoveEvent(QDragMoveEvent *event)
{
    event->accept();
    Q_EMIT happenedAtDragMove();
}

void EventItem::dragLeaveEvent(QDragLeaveEvent *)
{
    Q_EMIT happenedAtLeave();
}

void EventItem::dropEvent(QDropEvent *)
{
    Q_EMIT happenedAtDrop();
}

FilterItem::FilterItem(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFiltersChildMouseEvents(true);
}

bool FilterItem::childMouseEventFilter(QQuickItem *, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        Q_EMIT happenedAtPress();
        break;
    case QEvent::MouseMove:
        Q_EMIT happenedAtMove();
        break;
    case QEvent::MouseButtonRelease:
        Q_EMIT happenedAtRelease();
        break;
    default:
        Q_EMIT happenedAtElse();
        break;
    }
    return false;
}
