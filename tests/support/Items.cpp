// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Items.h"

#include <QQuickItem>

namespace support {

static void collect(QQuickItem *item, const QByteArray &type, QList<QQuickItem *> *found)
{
    const QByteArray name = item->metaObject()->className();
    if (name == type || name.startsWith(type + "_QML")) {
        found->append(item);
    }
    const auto children = item->childItems();
    for (QQuickItem *child : children) {
        collect(child, type, found);
    }
}

QList<QQuickItem *> itemsOf(QQuickItem *item, const char *type)
{
    QList<QQuickItem *> found;
    collect(item, type, &found);
    return found;
}

QQuickItem *itemWith(QQuickItem *item, const char *property, const QVariant &value)
{
    if (!item->isVisible()) {
        return nullptr;
    }
    if (item->width() > 0 && item->property(property) == value) {
        return item;
    }
    const auto children = item->childItems();
    for (QQuickItem *child : children) {
        if (QQuickItem *found = itemWith(child, property, value)) {
            return found;
        }
    }
    return nullptr;
}

QStringList textsOn(QQuickItem *item)
{
    QStringList texts;
    if (item->isVisible()) {
        const auto children = item->childItems();
        for (QQuickItem *child : children) {
            texts += textsOn(child);
        }
        const QString shown = item->property("text").toString();
        if (!shown.isEmpty()) {
            texts.append(shown);
        }
    }
    return texts;
}

} // namespace support
