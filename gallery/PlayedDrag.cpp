// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/PlayedDrag.h"

#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDragMoveEvent>
#include <QDropEvent>

namespace om::gallery {

PlayedDrag::PlayedDrag(QObject *parent)
    : QObject(parent)
{
}

PlayedDrag::~PlayedDrag() = default;

void PlayedDrag::setTarget(QQuickItem *target)
{
    if (m_target == target) {
        return;
    }
    leave();
    m_target = target;
    Q_EMIT targetChanged();
}

void PlayedDrag::enter(const QUrl &file, const QPointF &position)
{
    leave();
    if (!m_target) {
        return;
    }
    m_carried = std::make_unique<QMimeData>();
    m_carried->setUrls({file});
    QDragEnterEvent event(position.toPoint(), Qt::CopyAction, m_carried.get(), Qt::LeftButton,
                          Qt::NoModifier);
    QCoreApplication::sendEvent(m_target, &event);
}

void PlayedDrag::move(const QPointF &position)
{
    if (!m_target || !m_carried) {
        return;
    }
    QDragMoveEvent event(position.toPoint(), Qt::CopyAction, m_carried.get(), Qt::LeftButton,
                         Qt::NoModifier);
    QCoreApplication::sendEvent(m_target, &event);
}

void PlayedDrag::drop(const QPointF &position)
{
    if (!m_target || !m_carried) {
        return;
    }
    const std::unique_ptr<QMimeData> carried = std::move(m_carried);
    QDropEvent event(position, Qt::CopyAction, carried.get(), Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_target, &event);
}

void PlayedDrag::leave()
{
    if (!m_target || !m_carried) {
        return;
    }
    const std::unique_ptr<QMimeData> carried = std::move(m_carried);
    QDragLeaveEvent event;
    QCoreApplication::sendEvent(m_target, &event);
}

} // namespace om::gallery
