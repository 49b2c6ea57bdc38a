// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QHash>
#include <QObject>
#include <QQmlListProperty>

namespace om::controls {

/// The number of a record, by which a list property finds it; no other record of the same type ever
/// gets it.
///
/// QML reads and writes a list that it keeps without asking whether the owner is still there: after
/// its end, and in ~QQuickItem(), which emits signals when the record is destroyed. A pointer in
/// the list would lead to freed memory then; the number leads nowhere.
template<typename Record>
class ListKey
{
    Q_DISABLE_COPY(ListKey)
public:
    explicit ListKey(Record *record)
        : m_number(++lastNumber())
    {
        records().insert(m_number, record);
    }
    ~ListKey() { records().remove(m_number); }

    /// What the list property holds.
    void *data() const { return reinterpret_cast<void *>(m_number); }
    /// Null once the record is destroyed.
    static Record *recordOf(const void *data)
    {
        return records().value(reinterpret_cast<quintptr>(data));
    }

private:
    // Never destroyed: the last owner may go with the static objects of the application.
    static QHash<quintptr, Record *> &records()
    {
        static auto *const all = new QHash<quintptr, Record *>;
        return *all;
    }
    static quintptr &lastNumber()
    {
        static quintptr number = 0;
        return number;
    }

    const quintptr m_number;
};

/// A list property of \a owner that reads and writes the record of \a key: the ElementList that its
/// elements() returns, its append() and its clear(). It is empty, and takes nothing, once the
/// record is destroyed.
///
/// The engine does not check what a script pushes into a list property: what is no T is ignored
/// here, while null is handed on.
template<typename T, typename Record>
QQmlListProperty<T> listProperty(QObject *owner, const ListKey<Record> &key)
{
    using List = QQmlListProperty<T>;
    return List(
        owner, key.data(),
        [](List *list, T *element) {
            Record *const record = ListKey<Record>::recordOf(list->data);
            if (record && (!element || qobject_cast<T *>(static_cast<QObject *>(element)))) {
                record->append(element);
            }
        },
        [](List *list) {
            const Record *const record = ListKey<Record>::recordOf(list->data);
            return record ? record->elements().count() : 0;
        },
        [](List *list, int index) {
            const Record *const record = ListKey<Record>::recordOf(list->data);
            return record ? record->elements().at(index) : nullptr;
        },
        [](List *list) {
            if (Record *const record = ListKey<Record>::recordOf(list->data)) {
                record->clear();
            }
        });
}

} // namespace om::controls
