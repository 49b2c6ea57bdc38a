// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/shelf/ShelfModel.h"

#include "gallery/shelf/ShelfDocument.h"

namespace om::gallery {

namespace {

// A view lays out anew for each signal, and moves a block row by row (2 s for half of 5,000); with
// more changes it is cheaper to begin anew.
constexpr int mostChanges = 40;

QSet<ShelfDocument *> setOf(const QList<ShelfDocument *> &documents)
{
    QSet<ShelfDocument *> set;
    set.reserve(documents.size());
    for (ShelfDocument *document : documents) {
        set.insert(document);
    }
    return set;
}

} // namespace

ShelfModel::ShelfModel(QObject *parent)
    : QAbstractListModel(parent)
{
}

ShelfModel::~ShelfModel() = default;

int ShelfModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_documents.size();
}

QVariant ShelfModel::data(const QModelIndex &index, int role) const
{
    ShelfDocument *const document = m_documents.value(index.row());
    if (!document) {
        return {};
    }
    switch (role) {
    case DocumentRole:
        return QVariant::fromValue<om::data::Document *>(document);
    case SelectedRole:
        return m_selected.contains(document);
    case FoundRole:
        return m_found.contains(document);
    default:
        return {};
    }
}

QHash<int, QByteArray> ShelfModel::roleNames() const
{
    return {{DocumentRole, "document"}, {SelectedRole, "selected"}, {FoundRole, "found"}};
}

void ShelfModel::setDocuments(const QList<ShelfDocument *> &documents)
{
    if (m_documents == documents) {
        return;
    }
    const int countBefore = m_documents.size();
    const int rowBefore = currentRow();
    changeRows(documents);

    const QSet<ShelfDocument *> present = setOf(m_documents);
    const QSet<ShelfDocument *> selectedBefore = m_selected;
    m_selected.intersect(present);
    if (!present.contains(m_anchor)) {
        m_anchor = nullptr;
    }
    const bool currentGone = !present.contains(m_current);
    if (currentGone) {
        // The neighbour takes over: whoever deletes one by one stays at the place.
        m_current =
            rowBefore < 0 ? nullptr : m_documents.value(qMin(rowBefore, m_documents.size() - 1));
        m_currentRow = -1;
    }
    const bool currentMoved = currentGone || currentRow() != rowBefore;

    if (countBefore != m_documents.size()) {
        Q_EMIT countChanged();
    }
    if (currentMoved) {
        Q_EMIT currentRowChanged();
    }
    if (selectedBefore != m_selected) {
        Q_EMIT selectionChanged();
    }
}

void ShelfModel::changeRows(const QList<ShelfDocument *> &documents)
{
    const QSet<ShelfDocument *> after = setOf(documents);
    const QSet<ShelfDocument *> before = setOf(m_documents);
    int changes = 0;

    // What goes, from the end, so that the rows before keep their numbers.
    for (int last = m_documents.size() - 1; last >= 0 && changes < mostChanges; --last) {
        if (after.contains(m_documents.at(last))) {
            continue;
        }
        int first = last;
        while (first > 0 && !after.contains(m_documents.at(first - 1))) {
            --first;
        }
        beginRemoveRows({}, first, last);
        m_documents.erase(m_documents.begin() + first, m_documents.begin() + last + 1);
        endRemoveRows();
        last = first;
        ++changes;
    }

    moveBlock(documents);

    // What comes and what else moves.
    for (int row = 0; row < documents.size() && changes < mostChanges; ++row) {
        if (m_documents.value(row) == documents.at(row)) {
            continue;
        }
        ++changes;
        if (!before.contains(documents.at(row))) {
            int last = row;
            while (last + 1 < documents.size() && !before.contains(documents.at(last + 1))) {
                ++last;
            }
            beginInsertRows({}, row, last);
            m_documents =
                m_documents.mid(0, row) + documents.mid(row, last - row + 1) + m_documents.mid(row);
            endInsertRows();
            row = last;
            continue;
        }
        const int from = m_documents.indexOf(documents.at(row), row);
        if (from < 0) {
            break;
        }
        beginMoveRows({}, from, from, {}, row);
        m_documents.move(from, row);
        endMoveRows();
    }

    if (m_documents != documents) {
        beginResetModel();
        m_documents = documents;
        endResetModel();
    }
}

// One block that goes elsewhere, the usual move, is told as one: the part of the list that differs
// is turned around a point then.
void ShelfModel::moveBlock(const QList<ShelfDocument *> &documents)
{
    const int size = documents.size();
    if (m_documents.size() != size) {
        return;
    }
    int first = 0;
    while (first < size && m_documents.at(first) == documents.at(first)) {
        ++first;
    }
    int end = size;
    while (end > first && m_documents.at(end - 1) == documents.at(end - 1)) {
        --end;
    }
    const int start = first < end ? m_documents.indexOf(documents.at(first), first) : -1;
    if (start < 0) {
        return;
    }
    const QList<ShelfDocument *> turned = m_documents.mid(0, first)
        + m_documents.mid(start, end - start) + m_documents.mid(first, start - first)
        + m_documents.mid(end);
    if (turned != documents) {
        return;
    }
    // The shorter part goes: the view shows that one as moved, row by row.
    if (qMin(end - start, start - first) > mostChanges) {
        beginResetModel();
        m_documents = turned;
        endResetModel();
        return;
    }
    if (end - start <= start - first) {
        beginMoveRows({}, start, end - 1, {}, first);
    } else {
        beginMoveRows({}, first, start - 1, {}, end);
    }
    m_documents = turned;
    endMoveRows();
}

void ShelfModel::setFound(const QSet<const ShelfDocument *> &found)
{
    if (m_found == found) {
        return;
    }
    m_found = found;
    if (!m_documents.isEmpty()) {
        Q_EMIT dataChanged(index(0), index(m_documents.size() - 1), {FoundRole});
    }
}

void ShelfModel::select(const QList<ShelfDocument *> &documents)
{
    const QSet<ShelfDocument *> present = setOf(m_documents);
    QSet<ShelfDocument *> selected;
    ShelfDocument *first = nullptr;
    for (ShelfDocument *document : documents) {
        if (!present.contains(document)) {
            continue;
        }
        selected.insert(document);
        first = first ? first : document;
    }
    if (first) {
        m_anchor = first;
        setCurrent(first);
    }
    setSelected(selected);
}

QList<ShelfDocument *> ShelfModel::selected() const
{
    QList<ShelfDocument *> documents;
    documents.reserve(m_selected.size());
    for (ShelfDocument *document : m_documents) {
        if (m_selected.contains(document)) {
            documents.append(document);
        }
    }
    return documents;
}

int ShelfModel::currentRow() const
{
    if (!m_current) {
        return -1;
    }
    if (m_documents.value(m_currentRow) != m_current) {
        m_currentRow = m_documents.indexOf(m_current);
    }
    return m_currentRow;
}

om::data::Document *ShelfModel::currentDocument() const
{
    return m_current;
}

om::data::Document *ShelfModel::documentAt(int row) const
{
    return m_documents.value(row);
}

int ShelfModel::rowOf(om::data::Document *document) const
{
    return m_documents.indexOf(static_cast<ShelfDocument *>(document));
}

bool ShelfModel::isSelected(int row) const
{
    return m_selected.contains(m_documents.value(row));
}

QVariantList ShelfModel::selection() const
{
    QVariantList list;
    const QList<ShelfDocument *> documents = selected();
    for (ShelfDocument *document : documents) {
        list.append(QVariant::fromValue<QObject *>(document));
    }
    return list;
}

void ShelfModel::press(int row, int modifiers)
{
    ShelfDocument *const document = m_documents.value(row);
    if (!document) {
        if (!(modifiers & (Qt::ControlModifier | Qt::ShiftModifier))) {
            clearSelection();
        }
        return;
    }
    if (modifiers & Qt::ShiftModifier) {
        reach(row, modifiers & Qt::ControlModifier);
        return;
    }
    m_anchor = document;
    setCurrent(document);
    if (modifiers & Qt::ControlModifier) {
        toggleCurrent();
    } else if (!m_selected.contains(document)) {
        setSelected({document});
    }
}

void ShelfModel::click(int row, int modifiers)
{
    ShelfDocument *const document = m_documents.value(row);
    if (document && !(modifiers & (Qt::ControlModifier | Qt::ShiftModifier))) {
        setSelected({document});
    }
}

void ShelfModel::step(int row, int modifiers)
{
    ShelfDocument *const document = m_documents.value(row);
    if (!document) {
        return;
    }
    if (modifiers & Qt::ShiftModifier) {
        reach(row, modifiers & Qt::ControlModifier);
        return;
    }
    setCurrent(document);
    if (!(modifiers & Qt::ControlModifier)) {
        m_anchor = document;
        setSelected({document});
    }
}

void ShelfModel::toggleCurrent()
{
    if (!m_current) {
        return;
    }
    QSet<ShelfDocument *> selected = m_selected;
    if (!selected.remove(m_current)) {
        selected.insert(m_current);
    }
    m_anchor = m_current;
    setSelected(selected);
}

void ShelfModel::selectAll()
{
    setSelected(setOf(m_documents));
    if (!m_current && !m_documents.isEmpty()) {
        setCurrent(m_documents.first());
    }
}

void ShelfModel::clearSelection()
{
    setSelected({});
}

void ShelfModel::reach(int row, bool add)
{
    const int anchor = qMax(0, m_documents.indexOf(m_anchor));
    m_anchor = m_documents.at(anchor);
    QSet<ShelfDocument *> selected = add ? m_selected : QSet<ShelfDocument *>();
    for (int i = qMin(anchor, row); i <= qMax(anchor, row); ++i) {
        selected.insert(m_documents.at(i));
    }
    setCurrent(m_documents.at(row));
    setSelected(selected);
}

void ShelfModel::setCurrent(ShelfDocument *document)
{
    if (m_current == document) {
        return;
    }
    m_current = document;
    Q_EMIT currentRowChanged();
}

void ShelfModel::setSelected(const QSet<ShelfDocument *> &selected)
{
    if (m_selected == selected) {
        return;
    }
    m_selected = selected;
    Q_EMIT selectionChanged();
    if (!m_documents.isEmpty()) {
        Q_EMIT dataChanged(index(0), index(m_documents.size() - 1), {SelectedRole});
    }
}

} // namespace om::gallery
