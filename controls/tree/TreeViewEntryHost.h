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

/// The view as its entries see it: what they read from it and report to it. It outlives them.
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
    /// Calls \a change, in which the rows below \a entry hide or show, and has them all in their
    /// places afterwards. Handlers that this runs may destroy both.
    virtual void hideOrShow(TreeViewEntry *entry, const std::function<void()> &change) = 0;
    /// Requests a rebuild, as the document's children have changed.
    virtual void requestUpdate() = 0;
    /// \a entry is being destroyed.
    virtual void entryEnds(TreeViewEntry *entry) = 0;

protected:
    ~TreeViewEntryHost() = default;
};

} // namespace om::controls
