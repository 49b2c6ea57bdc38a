// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractListModel>
#include <QSet>
#include <QVariant>

namespace om::data {
class Document;
}

namespace om::gallery {

class ShelfDocument;

/// The documents of the open folder as rows, and which of them are selected.
///
/// One row is the current one: the keys start from there. Selecting follows what file managers do:
/// plain selects one, Ctrl adds and takes away, Shift reaches from the row that was selected last.
class ShelfModel : public QAbstractListModel
{
    Q_OBJECT
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    /// -1 without one. A row that does not exist is ignored.
    Q_PROPERTY(int currentRow READ currentRow NOTIFY currentRowChanged)
    Q_PROPERTY(om::data::Document *currentDocument READ currentDocument NOTIFY currentRowChanged)
    Q_PROPERTY(int selectedCount READ selectedCount NOTIFY selectionChanged)

public:
    enum Role {
        DocumentRole = Qt::UserRole,
        SelectedRole,
        FoundRole
    };

    explicit ShelfModel(QObject *parent = nullptr);
    ~ShelfModel() override;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Shows `documents`, and keeps the selection of those that were shown already. Tells of rows
    /// that come, go and move, so that a view keeps its place.
    void setDocuments(const QList<ShelfDocument *> &documents);
    /// The documents that are marked as found.
    void setFound(const QSet<const ShelfDocument *> &found);
    /// Selects these and makes the first of them current.
    void select(const QList<ShelfDocument *> &documents);
    QList<ShelfDocument *> selected() const;

    int count() const { return m_documents.size(); }
    int currentRow() const;
    om::data::Document *currentDocument() const;
    int selectedCount() const { return m_selected.size(); }

    Q_INVOKABLE om::data::Document *documentAt(int row) const;
    Q_INVOKABLE int rowOf(om::data::Document *document) const;
    Q_INVOKABLE bool isSelected(int row) const;
    /// The selected documents in their order.
    Q_INVOKABLE QVariantList selection() const;

    /// A press on a row: what is selected already stays, for it may be the beginning of a drag.
    Q_INVOKABLE void press(int row, int modifiers);
    /// The press has become a click and no drag.
    Q_INVOKABLE void click(int row, int modifiers);
    /// A key leads to `row`: Shift selects on the way, Ctrl goes there without selecting.
    Q_INVOKABLE void step(int row, int modifiers);
    Q_INVOKABLE void toggleCurrent();
    Q_INVOKABLE void selectAll();
    Q_INVOKABLE void clearSelection();

Q_SIGNALS:
    void countChanged();
    void currentRowChanged();
    void selectionChanged();

private:
    void setCurrent(ShelfDocument *document);
    void setSelected(const QSet<ShelfDocument *> &selected);
    void reach(int row, bool add);
    void changeRows(const QList<ShelfDocument *> &documents);
    void moveBlock(const QList<ShelfDocument *> &documents);

    QList<ShelfDocument *> m_documents;
    QSet<ShelfDocument *> m_selected;
    QSet<const ShelfDocument *> m_found;
    ShelfDocument *m_current = nullptr;
    ShelfDocument *m_anchor = nullptr;
    // Where m_current was seen last; a search through thousands at every key would be waste.
    mutable int m_currentRow = -1;
};

} // namespace om::gallery
