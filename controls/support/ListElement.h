// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

namespace om::controls {

/// Whether \a element, which an append function of a QQmlListProperty<T> was given, really is a T.
///
/// What a script pushes into a list property arrives unchecked: a null pointer, or any QObject
/// under T's name. Reading it as a T would be undefined.
template<typename T>
bool isListElement(T *element)
{
    return qobject_cast<T *>(static_cast<QObject *>(element)) != nullptr;
}

} // namespace om::controls
