// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "controls/drop/DropHandler.h"

namespace om::controls {

/// Takes drags of documents of one type that come from a DragZone.
///
/// DropData.data is undefined: the documents are reached through DropData.source, the zone. A drag
/// that a DragArea started is refused although it carries the same format: an area's documents are
/// for other programs and for handlers of the application's own.
class DocumentDropHandler : public DropHandler
{
    Q_OBJECT
    /// The type that at least one of the dragged documents has to have; empty by default.
    Q_PROPERTY(QString type READ type WRITE setType NOTIFY typeChanged)

public:
    explicit DocumentDropHandler(QObject *parent = nullptr);
    ~DocumentDropHandler() override;

    QString type() const;
    void setType(const QString &type);

    QVariant dropData(const QMimeData *mimeData) override;
    bool canHandle(const QMimeData *mimeData) override;

Q_SIGNALS:
    void typeChanged(const QString &type);

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace om::controls
