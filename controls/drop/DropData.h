// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPointF>
#include <QVariant>

#include <memory>

namespace om::controls {

/// The drag that a DropZone's active handler sees: where it is, what it carries, where it comes
/// from. A zone has one for its whole life and fills it in for each drag.
///
/// The properties are declared constant although they change with each drag: no signal tells of it,
/// and a binding would not follow. Read them in handlers of the signals that carry the object.
class DropData : public QObject
{
    Q_OBJECT
    /// The item that the drag was started by; null for a drag from another process.
    Q_PROPERTY(QObject *source READ source CONSTANT)
    /// Where the drag is, in the zone's coordinates (logical pixels); (0, 0) after it has left.
    Q_PROPERTY(QPointF position READ position CONSTANT)
    /// What the handler made of the drag's MIME data.
    Q_PROPERTY(QVariant data READ data CONSTANT)

public:
    explicit DropData(QObject *parent = nullptr);
    ~DropData() override;

    QObject *source() const;
    void setSource(QObject *source);
    QPointF position() const;
    void setPosition(const QPointF &position);
    QVariant data() const;
    void setData(const QVariant &data);

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace om::controls
