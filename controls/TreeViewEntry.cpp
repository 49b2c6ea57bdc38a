// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/TreeViewEntry.h"

#include "controls/TreeView.h"
#include "controls/TreeViewAttachedObject.h"

#include <QPointer>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlListReference>
#include <QQmlProperty>
#include <QQuickItem>

namespace om::controls {

class TreeViewEntry::Private
{
public:
    explicit Private(TreeViewEntry *entry)
        : q(entry)
    {
    }

    void createItem();

    TreeViewEntry *const q;
    bool collapsed = false;
    int level = 0;
    int index = 0;
    int childCount = 0;
    TreeView *view = nullptr;
    QPointer<om::data::Document> document;
    QQmlContext *context = nullptr;
    QPointer<QQuickItem> item;
    TreeViewAttachedObject *attached = nullptr;
};

TreeViewEntry::TreeViewEntry(TreeView *view, om::data::Document *document, int index, int level)
    : QObject(view)
    , d(std::make_unique<Private>(this))
{
    d->level = level;
    d->index = index;
    d->view = view;
    d->document = document;
    d->collapsed = view->rememberedCollapse(document);

    // A list that never notifies simply makes no connection.
    QQmlProperty(document, view->childProperty())
        .connectNotifySignal(this, SLOT(updateChildCount()));
    updateChildCount();
    d->createItem();
}

TreeViewEntry::~TreeViewEntry() = default;

void TreeViewEntry::Private::createItem()
{
    QQmlComponent *const component = view->component(TreeView::EntryComponent);
    if (!component) {
        return;
    }
    context = new QQmlContext(qmlContext(view), q);
    context->setContextObject(q);
    QObject *const object = component->beginCreate(context);
    if (!object) {
        return;
    }
    object->setParent(q);
    item = qobject_cast<QQuickItem *>(object);
    if (item) {
        // Known before the row's bindings run, so that they run once.
        item->setProperty("childCount", childCount);
        item->setParentItem(view->contentItem());
    }
    component->completeCreate();
}

int TreeViewEntry::level() const
{
    return d->level;
}

int TreeViewEntry::index() const
{
    return d->index;
}

om::data::Document *TreeViewEntry::document() const
{
    return d->document;
}

int TreeViewEntry::childCount() const
{
    return d->childCount;
}

TreeView *TreeViewEntry::view() const
{
    return d->view;
}

QQuickItem *TreeViewEntry::item() const
{
    return d->item;
}

TreeViewAttachedObject *TreeViewEntry::attached()
{
    if (!d->attached) {
        d->attached = new TreeViewAttachedObject(this);
    }
    return d->attached;
}

bool TreeViewEntry::isCollapsed() const
{
    return d->collapsed;
}

void TreeViewEntry::setCollapsed(bool collapsed)
{
    if (d->childCount <= 0) {
        return;
    }
    if (d->level < 1 && !d->view->rootCanCollapse()) {
        return;
    }
    if (collapsed == d->collapsed) {
        return;
    }
    d->collapsed = collapsed;
    if (d->document) {
        d->view->rememberCollapse(d->document, collapsed);
    }
    Q_EMIT collapsedChanged(collapsed);
}

bool TreeViewEntry::isActive() const
{
    return d->document && d->document == d->view->activeDocument();
}

void TreeViewEntry::announceActive()
{
    Q_EMIT activeChanged(isActive());
}

QObject *TreeViewEntry::createDelegateItem(int component, QQuickItem *parent)
{
    QQmlComponent *const delegate = d->view->component(component);
    if (!delegate) {
        return nullptr;
    }
    QObject *const object = delegate->create(d->context);
    if (!object) {
        return nullptr;
    }
    if (auto *item = qobject_cast<QQuickItem *>(object)) {
        item->setParentItem(parent);
    }
    QQmlEngine::setObjectOwnership(object, QQmlEngine::JavaScriptOwnership);
    return object;
}

void TreeViewEntry::updateChildCount()
{
    const QByteArray property = d->view->childProperty().toLatin1();
    const int count = QQmlListReference(d->document, property.constData()).count();
    if (count != d->childCount) {
        d->childCount = count;
        if (d->item) {
            d->item->setProperty("childCount", count);
        }
        Q_EMIT childCountChanged(count);
    }
    // Swallowed while the view rebuilds; afterwards it asks for the next rebuild.
    d->view->scheduleUpdate();
}

} // namespace om::controls
