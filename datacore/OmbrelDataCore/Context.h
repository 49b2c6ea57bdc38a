// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <OmbrelDataCore/Export.h>

#include <QObject>

namespace om::data {

class Document;

/// What a set of documents belongs to, and the one place to hear of changes in any of them.
///
/// A document is in the context that its `Document::context()` returns: the one it was given, or
/// else that of the document whose child it is. A context owns no document; when it is destroyed,
/// its documents are without it.
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
