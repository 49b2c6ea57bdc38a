// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/DragEvents.h"

#include <QCoreApplication>
#include <QDrag>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QTimer>

namespace support {

/// Not to a receiver that the events before have destroyed.
static void send(QObject *receiver, QEvent *event)
{
    if (receiver) {
        QCoreApplication::sendEvent(receiver, event);
    }
}

static constexpr Qt::DropActions allActions = Qt::CopyAction | Qt::MoveAction | Qt::LinkAction;

DragEvents::DragEvents(QObject *receiver)
    : m_receiver(receiver)
    , m_mimeData(std::make_unique<QMimeData>())
{
}

DragEvents::~DragEvents() = default;

void DragEvents::setUrls(const QList<QUrl> &urls)
{
    m_mimeData->setUrls(urls);
}

void DragEvents::setData(const QString &format, const QByteArray &data)
{
    m_mimeData->setData(format, data);
}

bool DragEvents::enter(const QPointF &position)
{
    QDragEnterEvent event(position.toPoint(), allActions, m_mimeData.get(), Qt::LeftButton,
                          Qt::NoModifier);
    send(m_receiver, &event);
    return event.isAccepted();
}

bool DragEvents::move(const QPointF &position, bool accepted)
{
    QDragMoveEvent event(position.toPoint(), allActions, m_mimeData.get(), Qt::LeftButton,
                         Qt::NoModifier);
    event.setAccepted(accepted);
    send(m_receiver, &event);
    return event.isAccepted();
}

bool DragEvents::drop(const QPointF &position, bool accepted)
{
    QDropEvent event(position, allActions, m_mimeData.get(), Qt::LeftButton, Qt::NoModifier);
    event.setAccepted(accepted);
    send(m_receiver, &event);
    return event.isAccepted();
}

void DragEvents::leave()
{
    QDragLeaveEvent event;
    send(m_receiver, &event);
}

void withDragFrom(QObject *source, const std::function<void(QDrag *drag)> &body)
{
    auto *drag = new QDrag(source);
    drag->setParent(nullptr);
    auto *mimeData = new QMimeData;
    mimeData->setData(QStringLiteral("application/x-test"), QByteArray());
    drag->setMimeData(mimeData);
    bool hasRun = false;
    // Qt refuses a drag while another one runs, and does not delete it: the body, which is the
    // caller's, must not be called from a timer that is left.
    QObject call;
    QTimer::singleShot(0, &call, [drag, &body, &hasRun] {
        hasRun = true;
        body(drag);
        QDrag::cancel();
    });
    const QPointer<QDrag> refused(drag);
    drag->exec(allActions);
    if (!hasRun) {
        delete refused;
    }
}

} // namespace support
