// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "controls/drop/DropHandler.h"

namespace om::controls {

/// Takes drags of a Draggable whose dragData is equal to its key.
///
/// DropData.data is the payload, UTF-8 in a byte array (an ArrayBuffer for QML), not a string.
class DraggableDropHandler : public DropHandler
{
    Q_OBJECT
    /// The text to be equal to, capitals and small letters told apart; empty by default, which
    /// matches an empty dragData.
    Q_PROPERTY(QString key READ key WRITE setKey NOTIFY keyChanged)

public:
    explicit DraggableDropHandler(QObject *parent = nullptr);
    ~DraggableDropHandler() override;

    QString key() const;
    void setKey(const QString &key);

    QVariant dropData(const QMimeData *mimeData) override;
    bool canHandle(const QMimeData *mimeData) override;

Q_SIGNALS:
    void keyChanged(const QString &key);

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace om::controls
