// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <OmbrelDataCore/Export.h>

#include <QObject>

namespace om::data {

class Document;

/// Groups documents: one signal tells of changes in any of them.
///
/// A document is in the context that its `Document::context()` returns: the one set on it, or else
/// that of its parent document. A context owns no document. When it is destroyed, its documents
/// have no context, or inherit one.
class OMBREL_DATACORE_EXPORT Context : public QObject
{
    Q_OBJECT

public:
    explicit Context(QObject *parent = nullptr);
    ~Context() override;

Q_SIGNALS:
    /// A property or the child list of `document`, one of this context's documents, has changed.
    /// Comes after the document's own change signal. Entering and leaving a context is not a change
    /// of the document.
    void documentChanged(om::data::Document *document);
};

} // namespace om::data
