// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QVariant>

#include <memory>

class QMimeData;

namespace om::controls {

class DropData;

/// What a DropZone asks whether it takes a drag, and tells what becomes of the drag it took.
///
/// Abstract: a handler decides by a drag's MIME data (canHandle()) and extracts the payload that
/// QML reads as DropData.data (dropData()). Its signals all carry the zone's one DropData.
class DropHandler : public QObject
{
    Q_OBJECT

public:
    explicit DropHandler(QObject *parent = nullptr);
    ~DropHandler() override;

    /// The payload of \a mimeData as QML gets it. Called once for each drag that enters, after
    /// canHandle() has taken it.
    virtual QVariant dropData(const QMimeData *mimeData) = 0;
    /// True when this handler takes a drag with \a mimeData.
    virtual bool canHandle(const QMimeData *mimeData) = 0;
    /// Called when the drag is dropped; emits dropped().
    virtual void drop(DropData *data);

    /// The source of the drag in progress; null when there is none, when it comes from another
    /// process and when it has been destroyed.
    QObject *dragSource() const;
    /// Called by the zone for each drag, before any handler is asked.
    void setDragSource(QObject *source);

Q_SIGNALS:
    /// The drag was dropped on the zone.
    void dropped(om::controls::DropData *drag);
    /// The drag came in and this handler takes it.
    void entered(om::controls::DropData *drag);
    /// The drag moved inside the zone.
    void positionChanged(om::controls::DropData *drag);
    /// The drag left the zone without a drop.
    void exited(om::controls::DropData *drag);

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace om::controls
