// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/tree/TreeViewEntry.h"

#include "controls/tree/TreeView.h"
#include "controls/tree/TreeViewPrivate.h"
#include "controls/tree/TreeViewRow.h"

#include <QPointer>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlListReference>
#include <QQmlProperty>
#include <QQuickItem>

#include <utility>

namespace om::controls {

class TreeViewEntry::Private
{
public:
    bool collapsed = false;
    int level = 0;
    int index = 0;
    int childCount = 0;
    QPointer<TreeView> view;
    QPointer<om::data::Document> document;
    QQmlContext *context = nullptr;
    QPointer<QQuickItem> item;
    TreeViewAttachedObject *attached = nullptr;
    /// The part that is being destroyed: what its end calls may destroy the entry with the view.
    QObject *ending = nullptr;
};

TreeViewEntry::TreeViewEntry(TreeView *view, om::data::Document *document, int index, int level)
    : QObject(view)
    , d(std::make_unique<Private>())
{
    d->level = level;
    d->index = index;
    d->view = view;
    d->document = document;
    d->collapsed = view->d->collapsedById.value(document->documentId(), false);

    QQmlProperty children(document, view->childProperty());
    children.connectNotifySignal(this, SLOT(updateChildCount()));
    updateChildCount();

    d->context = new QQmlContext(qmlContext(view), this);
    d->context->setContextObject(this);

    QQmlComponent *component = view->d->component(TreeView::EntryComponent);
    QObject *made = component->beginCreate(d->context);
    if (!made) {
        return;
    }
    made->setParent(this);
    d->item = qobject_cast<QQuickItem *>(made);
    if (d->item) {
        // Before the row's bindings are evaluated, so that once is enough.
        TreeViewRow(d->item).setChildCount(d->childCount);
        d->item->setParentItem(view->contentItem());
    }
    component->completeCreate();
    if (d->item) {
        populate();
    }
}

TreeViewEntry::~TreeViewEntry()
{
    if (d->view) {
        d->view->d->entryDestroyed(this);
    }
    if (d->ending) {
        // Its destruction goes on when this is over, and is not to begin a second time.
        d->ending->setParent(nullptr);
    }
    destroyContext();
    destroyItem();
}

void TreeViewEntry::destroyContext()
{
    destroyPart(std::exchange(d->context, nullptr));
}

void TreeViewEntry::destroyItem()
{
    QQuickItem *item = d->item;
    d->item = nullptr;
    destroyPart(item);
}

void TreeViewEntry::destroyPart(QObject *part)
{
    const QPointer<TreeViewEntry> alive(this);
    d->ending = part;
    delete part;
    if (alive) {
        d->ending = nullptr;
    }
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

TreeView *TreeViewEntry::view() const
{
    return d->view;
}

QQuickItem *TreeViewEntry::item() const
{
    return d->item;
}

bool TreeViewEntry::isCollapsed() const
{
    return d->collapsed;
}

bool TreeViewEntry::isActive() const
{
    return d->view && d->document && d->document == d->view->activeDocument();
}

void TreeViewEntry::setCollapsed(bool collapsed)
{
    if (!d->view || d->childCount <= 0 || (d->level < 1 && !d->view->rootCanCollapse())
        || collapsed == d->collapsed) {
        return;
    }
    d->collapsed = collapsed;
    if (d->document) {
        d->view->d->collapsedById.insert(d->document->documentId(), collapsed);
    }
    d->view->d->hideOrShow(this, [this, collapsed] { Q_EMIT collapsedChanged(collapsed); });
}

void TreeViewEntry::announceActive()
{
    Q_EMIT activeChanged(isActive());
}

TreeViewAttachedObject *TreeViewEntry::attachedObject()
{
    if (!d->attached) {
        d->attached = new TreeViewAttachedObject(this);
    }
    return d->attached;
}

QObject *TreeViewEntry::createDelegateItem(int component, QQuickItem *parent)
{
    QQmlComponent *source = d->view ? d->view->d->component(component) : nullptr;
    if (!source || !source->isReady()) {
        return nullptr;
    }
    // What completes may destroy the row, and this entry with it.
    const QPointer<QQuickItem> place(parent);
    QObject *made = source->create(d->context);
    if (!made) {
        return nullptr;
    }
    if (auto *item = qobject_cast<QQuickItem *>(made)) {
        item->setParentItem(place);
    }
    QQmlEngine::setObjectOwnership(made, QQmlEngine::JavaScriptOwnership);
    return made;
}

/// As createDelegateItem(), for what has to be an item. Anything else is left to the collector.
QQuickItem *TreeViewEntry::createItem(int component, QQuickItem *parent)
{
    QQmlEngine *engine = d->context->engine();
    QObject *made = createDelegateItem(component, parent);
    auto *item = qobject_cast<QQuickItem *>(made);
    if (made && !item) {
        engine->newQObject(made);
    }
    return item;
}

/// Makes what the row shows. The row's file could do it by itself, but thousands of calls back and
/// forth would take a tenth of a rebuild. What a delegate does as it completes may end the row.
void TreeViewEntry::populate()
{
    const QPointer<QQuickItem> item = d->item;
    TreeViewRow row(item);
    QQuickItem *background = createItem(TreeView::BackgroundComponent, item);
    if (background && item) {
        row.takeBackground(background);
    }
    QQuickItem *delegate = item ? createItem(TreeView::DelegateComponent, item) : nullptr;
    if (delegate && item) {
        row.takeDelegate(delegate);
    }
    QQuickItem *marker = item ? row.collapseMarker() : nullptr;
    QQuickItem *handle = marker ? createItem(TreeView::BranchHandleComponent, marker) : nullptr;
    if (!item) {
        return;
    }
    row.setBranchHandle(handle ? handle : row.makeDefaultBranchHandle());
    if (item) {
        row.raisePressArea();
    }
}

void TreeViewEntry::updateChildCount()
{
    if (!d->view) {
        return;
    }
    int count = 0;
    if (d->document) {
        const QByteArray property = d->view->childProperty().toLatin1();
        count = qMax(0, QQmlListReference(d->document, property.constData()).count());
    }
    const QPointer<TreeViewEntry> alive(this);
    if (count != d->childCount) {
        d->childCount = count;
        if (d->item) {
            TreeViewRow(d->item).setChildCount(count);
        }
        Q_EMIT childCountChanged(count);
    }
    if (alive && d->view) {
        d->view->scheduleUpdate();
    }
}

} // namespace om::controls
