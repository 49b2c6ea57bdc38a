// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "controls/drag/DragArea.h"
#include "controls/drag/DragZone.h"
#include "tests/support/SignalRecorder.h"

#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QPointer>
#include <QTest>

/// A source whose child-event filter can be called with any event. On the offscreen platform the
/// drag loop returns at once, so that each step of the gesture can be looked at.
class FilteredSource
{
public:
    virtual ~FilteredSource() = default;

    void press(Qt::MouseButtons buttons = Qt::LeftButton, const QPointF &at = {20, 20})
    {
        send(QEvent::MouseButtonPress, at, Qt::LeftButton, buttons);
    }
    /// A move of which the event loop has not heard yet: the drag itself runs from there.
    void moveOnly(qreal dx, qreal dy, Qt::MouseButtons buttons = Qt::LeftButton)
    {
        send(QEvent::MouseMove, QPointF(20 + dx, 20 + dy), Qt::NoButton, buttons);
    }
    void move(qreal dx, qreal dy, Qt::MouseButtons buttons = Qt::LeftButton)
    {
        moveOnly(dx, dy, buttons);
        QCoreApplication::processEvents();
    }
    void release() { send(QEvent::MouseButtonRelease, {20, 20}, Qt::LeftButton, Qt::NoButton); }
    /// The child loses the mouse.
    void ungrab()
    {
        QEvent event(QEvent::UngrabMouse);
        QVERIFY2(!filter(m_child, &event), "an event is never consumed");
    }

    virtual QQuickItem *item() const = 0;
    virtual bool filter(QQuickItem *child, QEvent *event) = 0;
    virtual void setDocuments(const QList<om::data::Document *> &documents) = 0;
    virtual QQmlListProperty<om::data::Document> list() = 0;
    virtual void setDelegate(QQmlComponent *delegate) = 0;
    bool isActive() const { return item()->property("dragActive").toBool(); }
    QQuickItem *child() const { return m_child; }
    QList<QDrag *> drags() const { return item()->findChildren<QDrag *>(); }
    /// What the drag carries that is about to run.
    QByteArray payload() const
    {
        const QList<QDrag *> running = drags();
        return running.size() == 1
            ? running.first()->mimeData()->data(QStringLiteral("application/x-lumetra-documents"))
            : QByteArray("not one drag");
    }

protected:
    void setChild(QQuickItem *child) { m_child = child; }

private:
    void send(QEvent::Type type, const QPointF &at, Qt::MouseButton button,
              Qt::MouseButtons buttons)
    {
        QMouseEvent event(type, at, at, at, button, buttons, Qt::NoModifier);
        QVERIFY2(!filter(m_child, &event), "an event is never consumed");
    }
    QPointer<QQuickItem> m_child;
};

template<typename T>
class FilteredSourceOf : public FilteredSource
{
public:
    class Open : public T
    {
    public:
        using T::childMouseEventFilter;
        using T::eventFilter;
    };

    explicit FilteredSourceOf(QQuickItem *parent)
        : m_item(new Open)
    {
        m_item->setParentItem(parent);
        m_item->setSize({100, 100});
        auto *const child = new QQuickItem(m_item.data());
        child->setSize({100, 100});
        child->setAcceptedMouseButtons(Qt::LeftButton);
        setChild(child);
    }
    ~FilteredSourceOf() override { delete m_item.data(); }

    QQuickItem *item() const override { return m_item; }
    bool filter(QQuickItem *child, QEvent *event) override
    {
        return m_item->childMouseEventFilter(child, event);
    }
    void setDocuments(const QList<om::data::Document *> &documents) override
    {
        m_item->setDragDocuments(documents);
    }
    QQmlListProperty<om::data::Document> list() override { return m_item->dragDocuments(); }
    void setDelegate(QQmlComponent *delegate) override { m_item->setDragDelegate(delegate); }

private:
    QPointer<Open> m_item;
};
