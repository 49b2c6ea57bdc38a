// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/tree/TreeViewAttachedObject.h"

#include "controls/tree/TreeViewEntry.h"

namespace om::controls {

class TreeViewAttachedObject::Private
{
public:
    TreeViewEntry *entry = nullptr;
};

TreeViewAttachedObject::TreeViewAttachedObject(TreeViewEntry *entry)
    : QObject(entry)
    , d(std::make_unique<Private>())
{
    d->entry = entry;
    // Connected by signal index, looked up once: a connection by name takes a search for each row.
    const QMetaObject &from = TreeViewEntry::staticMetaObject;
    static const int collapsed = from.indexOfSignal("collapsedChanged(bool)");
    static const int collapsedItem = staticMetaObject.indexOfSignal("collapsedItemChanged(bool)");
    static const int active = from.indexOfSignal("activeChanged(bool)");
    static const int activeItem = staticMetaObject.indexOfSignal("activeItemChanged(bool)");
    QMetaObject::connect(entry, collapsed, this, collapsedItem);
    QMetaObject::connect(entry, active, this, activeItem);
}

TreeViewAttachedObject::~TreeViewAttachedObject() = default;

TreeViewAttachedObject *TreeViewAttachedObject::of(TreeViewEntry *entry)
{
    if (!entry->attachedObject()) {
        entry->setAttachedObject(new TreeViewAttachedObject(entry));
    }
    return entry->attachedObject();
}

TreeView *TreeViewAttachedObject::view() const
{
    return d->entry->view();
}

bool TreeViewAttachedObject::isCollapsedItem() const
{
    return d->entry->isCollapsed();
}

void TreeViewAttachedObject::setCollapsedItem(bool collapsed)
{
    d->entry->setCollapsed(collapsed);
}

bool TreeViewAttachedObject::isActiveItem() const
{
    return d->entry->isActive();
}

} // namespace om::controls
