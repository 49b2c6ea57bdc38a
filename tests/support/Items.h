// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QStringList>
#include <QVariant>

class QQuickItem;

namespace support {

// Finders for pages that are used by hand, whose items have no names of their own. Each looks at an
// item and at everything below it.

/// The items that are declared in the file "TYPE.qml" or are of the class \a type, shown or not: a
/// parent before its children, these in the order of their declaration.
QList<QQuickItem *> itemsOf(QQuickItem *item, const char *type);

/// The first item, in the same order, that is shown, has a width, and whose \a property is \a
/// value; null when there is none.
QQuickItem *itemWith(QQuickItem *item, const char *property, const QVariant &value);

/// The texts that are to be read, children before their parent.
QStringList textsOn(QQuickItem *item);

} // namespace support
