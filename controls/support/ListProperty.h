// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QQmlListProperty>

namespace om::controls {

/// The record of \a list, whose owner is an Owner; null while the owner is destroyed.
///
/// QML reads a list that it keeps for as long as the owner is a QObject. ~QQuickItem(), which runs
/// after the record is destroyed, still emits signals: the owner is a QQuickItem then and no Owner
/// any more. qobject_cast would not see that, for the meta-object that QML gives an object stays.
template<typename Owner, typename Record, typename T>
Record *recordOf(const QQmlListProperty<T> *list)
{
    return dynamic_cast<Owner *>(list->object) ? static_cast<Record *>(list->data) : nullptr;
}

/// A list property of \a owner that reads and writes \a record: the ElementList that its
/// elements() returns, its append() and its clear().
///
/// The engine does not check what a script pushes into a list property: what is no T is ignored
/// here, while null is handed on.
template<typename T, typename Owner, typename Record>
QQmlListProperty<T> listProperty(Owner *owner, Record *record)
{
    using List = QQmlListProperty<T>;
    return List(
        owner, record,
        [](List *list, T *element) {
            auto *const present = recordOf<Owner, Record>(list);
            if (present && (!element || qobject_cast<T *>(static_cast<QObject *>(element)))) {
                present->append(element);
            }
        },
        [](List *list) {
            auto *const present = recordOf<Owner, Record>(list);
            return present ? present->elements().count() : 0;
        },
        [](List *list, int index) {
            auto *const present = recordOf<Owner, Record>(list);
            return present ? present->elements().at(index) : nullptr;
        },
        [](List *list) {
            if (auto *const present = recordOf<Owner, Record>(list)) {
                present->clear();
            }
        });
}

} // namespace om::controls
