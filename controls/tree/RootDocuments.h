// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <OmbrelDataCore/Document.h>

#include <QHash>
#include <QMetaObject>
#include <QPointer>
#include <QSet>

#include <functional>
#include <vector>

namespace om::controls {

/// The documents at level 0 of a view, in order; null and repeated ones are kept. They are not
/// owned: a destroyed one leaves the list.
class RootDocuments
{
    Q_DISABLE_COPY(RootDocuments)
public:
    /// \a left is called after a destroyed document has left the list.
    explicit RootDocuments(std::function<void()> left);
    ~RootDocuments();

    void append(om::data::Document *document);
    /// Whether there was something to clear.
    bool clear();
    int count() const;
    /// Null outside the list.
    om::data::Document *at(int index) const;
    /// All of them as they are now.
    std::vector<QPointer<om::data::Document>> snapshot() const;

private:
    void forget(om::data::Document *document);
    void removeDestroyed() const;

    const std::function<void()> m_left;
    mutable std::vector<om::data::Document *> m_documents;
    /// The addresses in m_documents whose documents are destroyed.
    mutable QSet<om::data::Document *> m_destroyed;
    QHash<om::data::Document *, QMetaObject::Connection> m_watches;
};

} // namespace om::controls
