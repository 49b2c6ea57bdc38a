// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

namespace om::controls {

/// Whether \a element, the argument of an append function of a QQmlListProperty<T>, is a T.
///
/// The engine does not check what a script pushes into a list property: \a element may be null or
/// point to any QObject. Using that as a T would be undefined.
template<typename T>
bool isListElement(T *element)
{
    return qobject_cast<T *>(static_cast<QObject *>(element)) != nullptr;
}

} // namespace om::controls
