// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/tree/RootDocuments.h"

#include <algorithm>
#include <utility>

using om::data::Document;

namespace om::controls {

RootDocuments::RootDocuments(std::function<void()> left)
    : m_left(std::move(left))
{
}

RootDocuments::~RootDocuments()
{
    clear();
}

void RootDocuments::append(Document *document)
{
    removeDestroyed();
    m_documents.push_back(document);
    if (document && !m_watches.contains(document)) {
        // The list is no QObject, so it ends the connection itself.
        const QMetaObject::Connection watch =
            QObject::connect(document, &QObject::destroyed, // clazy:exclude=connect-3arg-lambda
                             [this, document] { forget(document); });
        m_watches.insert(document, watch);
    }
}

bool RootDocuments::clear()
{
    removeDestroyed();
    for (const QMetaObject::Connection &watch : qAsConst(m_watches)) {
        QObject::disconnect(watch);
    }
    m_watches.clear();
    const bool any = !m_documents.empty();
    m_documents.clear();
    return any;
}

int RootDocuments::count() const
{
    removeDestroyed();
    return static_cast<int>(m_documents.size());
}

Document *RootDocuments::at(int index) const
{
    removeDestroyed();
    return index >= 0 && index < count() ? m_documents[static_cast<std::size_t>(index)] : nullptr;
}

std::vector<QPointer<Document>> RootDocuments::snapshot() const
{
    removeDestroyed();
    return {m_documents.cbegin(), m_documents.cend()};
}

void RootDocuments::forget(Document *document)
{
    m_watches.remove(document);
    m_destroyed.insert(document);
    m_left();
}

/// Called by each function that reads or changes the list, not by forget(): a search of the list
/// for each destroyed document would make destroying n roots quadratic.
void RootDocuments::removeDestroyed() const
{
    if (m_destroyed.isEmpty()) {
        return;
    }
    const auto destroyed = [this](Document *document) { return m_destroyed.contains(document); };
    m_documents.erase(std::remove_if(m_documents.begin(), m_documents.end(), destroyed),
                      m_documents.end());
    m_destroyed.clear();
}

} // namespace om::controls
