// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QQuickItem>

/// An item of Qt that emits a signal at the end of each of its event handlers, as the library's
/// items do: a handler that it does not survive is one that Qt forbids in that place.
class EventItem : public QQuickItem
{
    Q_OBJECT

public:
    explicit EventItem(QQuickItem *parent = nullptr);

Q_SIGNALS:
    void happenedAtPress();
    void happenedAtMove();
    void happenedAtRelease();
    void happenedAtHover();
    void happenedAtKey();
    void happenedAtEnter();
    void happenedAtDragMove();
    void happenedAtLeave();
    void happenedAtDrop();
    /// Another object has ended: whoever connects that says so.
    void happenedAtEnd();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void hoverEnterEvent(QHoverEvent *event) override;
    void hoverLeaveEvent(QHoverEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
};

/// The same for the events of an item's children.
class FilterItem : public QQuickItem
{
    Q_OBJECT

public:
    explicit FilterItem(QQuickItem *parent = nullptr);

Q_SIGNALS:
    void happenedAtPress();
    void happenedAtMove();
    void happenedAtRelease();
    void happenedAtElse();

protected:
    bool childMouseEventFilter(QQuickItem *item, QEvent *event) override;
};
