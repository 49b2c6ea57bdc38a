// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>

#include <functional>

QT_BEGIN_NAMESPACE
class QQmlComponent;
class QString;
QT_END_NAMESPACE

namespace om::data {
class Document;
}

namespace om::controls {

class TreeView;
class TreeViewEntry;

/// What a row's entry asks of, and tells, the view that it is in. It outlives its entries.
class TreeViewEntryHost
{
public:
    virtual TreeView *view() const = 0;
    /// The component for a TreeView.ComponentType; null for any other value.
    virtual QQmlComponent *component(int type) const = 0;
    /// The name of the documents' list of children.
    virtual QByteArray childProperty() const = 0;
    virtual bool rootCanCollapse() const = 0;
    virtual om::data::Document *activeDocument() const = 0;

    virtual void rememberCollapsed(const QString &documentId, bool collapsed) = 0;
    /// Calls \a change, in which the rows below \a entry hide or show. Both may be gone afterwards.
    virtual void hideOrShow(TreeViewEntry *entry, const std::function<void()> &change) = 0;
    /// A rebuild is due: the document's children have changed.
    virtual void requestUpdate() = 0;
    /// \a entry is being destroyed.
    virtual void entryEnds(TreeViewEntry *entry) = 0;

protected:
    ~TreeViewEntryHost() = default;
};

} // namespace om::controls
