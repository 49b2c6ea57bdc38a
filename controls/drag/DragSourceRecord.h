// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "controls/drag/DocumentDragSource.h"

#include <QQmlEngine>

namespace om::controls {

/// The private record of a document source: the shared body, with the signals of the type
/// \a Source, its attached type \a Attached and its \a Incubator.
template<typename Source, typename Attached, typename Incubator>
class DragSourceRecord : public DocumentDragSource
{
public:
    DragSourceRecord(Source *owner, const Differences &differences)
        : DocumentDragSource(owner, differences)
        , q(owner)
    {
    }

protected:
    void announceEnabled(bool enabled) final { Q_EMIT q->dragEnabledChanged(enabled); }
    void announceActive(bool active) final { Q_EMIT q->dragActiveChanged(active); }
    void announceDocuments() final { Q_EMIT q->dragDocumentsChanged(q->dragDocuments()); }
    void announceDelegate(QQmlComponent *delegate) final
    {
        Q_EMIT q->dragDelegateChanged(delegate);
    }

    std::unique_ptr<QQmlIncubator> createIncubator() final
    {
        return std::make_unique<Incubator>(this);
    }
    DragVisualState *visualState(QObject *visual) const final { return attachedTo(visual); }
    void introduceTo(QObject *visual) final
    {
        if (Attached *const attached = attachedTo(visual)) {
            attached->setSource(q);
            QObject::connect(q, &QObject::destroyed, attached,
                             [attached] { attached->setSource(nullptr); });
        }
    }
    void deleteWhenReleased(QQuickItem *visual) final
    {
        QObject::connect(attachedTo(visual), &Attached::delayRemoveChanged, visual,
                         &QObject::deleteLater);
    }

private:
    static Attached *attachedTo(QObject *visual)
    {
        return qobject_cast<Attached *>(qmlAttachedPropertiesObject<Source>(visual));
    }

    Source *const q;
};

} // namespace om::controls
