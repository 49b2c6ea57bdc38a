// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/tree/TreeView.h"

#include "controls/tree/TreeViewEntry.h"
#include "controls/tree/TreeViewPrivate.h"
#include "controls/tree/TreeViewRow.h"

#include <OmbrelDataCore/Context.h>

#include <QCoreApplication>
#include <QDebug>
#include <QImageReader>
#include <QKeyEvent>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlInfo>
#include <QQmlListReference>
#include <QQmlProperty>

#include <algorithm>
#include <limits>
#include <utility>

using om::data::Context;
using om::data::Document;

namespace om::controls {

/// Levels that get rows. The rows of a chain depend on one another through bindings, which takes
/// stack; and documents that contain themselves have to end somewhere.
static const int maximumLevels = 1024;

/// The branch handle where Qt's SVG image plugin is missing.
static const char *const plainBranchHandleQml = R"(
import QtQuick 2.2
import ombrel.Controls 1.0

Text {
    width: 16
    height: 16
    horizontalAlignment: Text.AlignHCenter
    verticalAlignment: Text.AlignVCenter
    text: TreeView.isCollapsedItem ? "+" : "\u2212"
}
)";

static bool svgIsReadable()
{
    static const bool readable = QImageReader::supportedImageFormats().contains("svg");
    return readable;
}

TreeView::Private::Private(TreeView *owner)
    : view(owner)
{
}

TreeViewEntry *TreeView::Private::entryAt(int index) const
{
    return entries.value(index, nullptr);
}

QQmlComponent *TreeView::Private::component(int type) const
{
    switch (type) {
    case EntryComponent:
        return entryComponent;
    case DelegateComponent:
        return delegate;
    case BackgroundComponent:
        return backgroundDelegate;
    case BranchHandleComponent:
        // Without Qt's SVG plugin the default handle cannot be drawn, and every row would warn.
        return branchHandleDelegate ? branchHandleDelegate : plainBranchHandle;
    }
    return nullptr;
}

void TreeView::Private::appendRoot(Document *document)
{
    // What JavaScript pushes arrives unchecked, whatever its type is.
    if (document && !qobject_cast<Document *>(static_cast<QObject *>(document))) {
        return;
    }
    rootDocuments.append(document);
    if (document && !rootWatches.contains(document)) {
        rootWatches.insert(document,
                           QObject::connect(document, &QObject::destroyed, view,
                                            [this, document] { forgetRoot(document); }));
    }
    Q_EMIT view->rootDocumentsChanged();
}

void TreeView::Private::clearRoots()
{
    if (rootDocuments.isEmpty()) {
        return;
    }
    rootDocuments.clear();
    for (const QMetaObject::Connection &watch : qAsConst(rootWatches)) {
        QObject::disconnect(watch);
    }
    rootWatches.clear();
    Q_EMIT view->rootDocumentsChanged();
}

void TreeView::Private::forgetRoot(Document *document)
{
    rootWatches.remove(document);
    if (rootDocuments.removeAll(document) > 0 && !destroying) {
        Q_EMIT view->rootDocumentsChanged();
    }
}

void TreeView::Private::createContent()
{
    if (!delegate) {
        qCritical("No delegate present - TreeView cannot render tree");
        return;
    }
    if (!contentComponent) {
        return;
    }
    QObject *made = contentComponent->beginCreate(qmlContext(view));
    auto *item = qobject_cast<QQuickItem *>(made);
    if (!item) {
        if (made) {
            contentComponent->completeCreate();
            delete made;
        }
        qmlWarning(view, contentComponent->errors());
        return;
    }
    item->setParent(view);
    item->setParentItem(view);
    // The file binds the height to childrenRect.height. Evaluated once, that makes the item look at
    // all of its children at every change of any of them, for good: ten thousand rows take seconds
    // to follow a new width. The binding is replaced before that; updateContentHeight() keeps the
    // same value, from the few children that decide it.
    QQmlProperty::write(item, QStringLiteral("height"), 0);
    contentComponent->completeCreate();
    contentItem = item;
    QObject::connect(item, &QQuickItem::heightChanged, view, &TreeView::updateHeight);
    QObject::connect(item, &QQuickItem::childrenChanged, view,
                     [this] { contentChildrenChanged(); });
}

void TreeView::Private::rebindContext()
{
    Document *first = rootDocuments.isEmpty() ? nullptr : rootDocuments.constFirst();
    Context *current = first ? first->context() : nullptr;
    if (current == context) {
        return;
    }
    if (context) {
        QObject::disconnect(context, nullptr, view, nullptr);
    }
    context = current;
    if (context) {
        static const int type = qRegisterMetaType<om::data::Document *>("om::data::Document*");
        Q_UNUSED(type)
        QObject::connect(context, &Context::documentChanged, view, &TreeView::handleDocumentChanged,
                         Qt::QueuedConnection);
    }
}

void TreeView::Private::removeEntries()
{
    for (const QMetaObject::Connection &watch : endWatches) {
        QObject::disconnect(watch);
    }
    std::vector<TreeViewEntry *> rows = takeEntries();
    for (auto row = rows.crbegin(); row != rows.crend(); ++row) {
        (*row)->deleteLater();
    }
    if (!rows.empty()) {
        oldRows.push_back({std::move(rows), true});
    }
}

/// Leaves them without a parent, among whose children each that goes would be searched for.
std::vector<TreeViewEntry *> TreeView::Private::takeEntries()
{
    std::vector<TreeViewEntry *> rows(entries.cbegin(), entries.cend());
    entries.clear();
    for (TreeViewEntry *entry : rows) {
        entry->setParent(nullptr);
    }
    return rows;
}

/// Depth first, with a list of its own instead of the stack.
void TreeView::Private::addTree(Document *root, int *counter)
{
    struct Level
    {
        QPointer<Document> document;
        QQmlListReference children;
        int next;
        TreeViewEntry *entry;
    };
    const QPointer<TreeView> alive(view);
    std::vector<Level> path;
    bool tooDeep = false;
    QPointer<Document> adding = root;
    while (adding || !path.empty()) {
        if (adding) {
            const int level = static_cast<int>(path.size());
            auto *entry = new TreeViewEntry(view, adding, *counter, level);
            if (!alive) {
                return; // a delegate has destroyed the view, and the view its entry
            }
            entries.append(entry);
            if (adding) {
                shownDocuments.insert(adding);
            }
            if (entry->item()) {
                TreeViewRow(entry->item())
                    .setTreeParent(path.empty() ? nullptr : path.back().entry->item());
            }
            ++*counter;
            const QByteArray property = childProperty.toLatin1();
            path.push_back(
                {adding,
                 adding ? QQmlListReference(adding, property.constData()) : QQmlListReference(), 0,
                 entry});
            adding = nullptr;
        }
        Level &top = path.back();
        // The count is asked for anew each time: making a row may have changed the list.
        if (!top.document || top.next >= top.children.count()) {
            path.pop_back();
            continue;
        }
        auto *child = qobject_cast<Document *>(top.children.at(top.next++));
        if (!child) {
            continue;
        }
        if (static_cast<int>(path.size()) >= maximumLevels) {
            if (!warnedOfDepth) {
                warnedOfDepth = true;
                qmlWarning(view) << "The documents are nested more than " << maximumLevels
                                 << " levels deep, or contain themselves; deeper ones get no row";
            }
            tooDeep = true;
            continue;
        }
        // Documents that contain themselves more than once would fill all levels again and again.
        if (tooDeep && std::any_of(path.cbegin(), path.cend(), [child](const Level &above) {
                return above.document == child;
            })) {
            continue;
        }
        adding = child;
    }
}

void TreeView::Private::rebuild()
{
    const QPointer<TreeView> alive(view);
    rebuilding = true;
    ++generation;
    rebindContext();
    removeEntries();
    shownDocuments.clear();
    if (contentItem && entryComponent && entryComponent->isError()) {
        qmlWarning(view, entryComponent->errors());
    } else if (contentItem && entryComponent) {
        if (!branchHandleDelegate && !plainBranchHandle && !svgIsReadable()) {
            qmlWarning(view) << "The SVG image plugin of Qt is missing; branch handles are plain";
            plainBranchHandle = new QQmlComponent(qmlEngine(view), view);
            plainBranchHandle->setData(plainBranchHandleQml, QUrl());
        }
        int counter = 0;
        for (int i = 0; i < rootDocuments.size(); ++i) {
            addTree(rootDocuments.at(i), &counter);
            if (!alive) {
                return;
            }
        }
    }
    QQuickItem *predecessor = nullptr;
    for (TreeViewEntry *entry : qAsConst(entries)) {
        if (QQuickItem *item = entry->item()) {
            TreeViewRow(item).setPredecessor(predecessor);
            predecessor = item;
        }
    }
    activate(view->indexOfDocument(activeAlive));
    if (!alive) {
        return;
    }
    view->layoutItems();
    if (!alive) {
        return;
    }
    rebuilding = false;
    watchEnds();
    updateContentHeight();
    if (alive) {
        Q_EMIT view->indexRebuilt();
    }
}

void TreeView::Private::activate(int index)
{
    if (index < -1 || index >= entries.size() || index == activeIndex) {
        return;
    }
    const QPointer<TreeView> alive(view);
    const QPointer<TreeViewEntry> oldEntry = entryAt(activeIndex);
    const QPointer<TreeViewEntry> newEntry = entryAt(index);
    activeIndex = index;
    Q_EMIT view->activeIndexChanged();
    if (!alive) {
        return;
    }
    // A handler may have made another row active: then its document is the active one already.
    if (activeIndex == index) {
        Document *document = newEntry ? newEntry->document() : nullptr;
        if (document != activeDocument) {
            activeDocument = document;
            activeAlive = document;
            Q_EMIT view->activeDocumentChanged();
        }
    }
    // The new one first, so that there is no moment without an active row.
    if (alive && newEntry) {
        newEntry->announceActive();
    }
    if (alive && oldEntry) {
        oldEntry->announceActive();
    }
}

void TreeView::Private::setCollapsed(int index, bool collapsed)
{
    if (TreeViewEntry *entry = entryAt(index)) {
        entry->setCollapsed(collapsed);
    }
}

void TreeView::Private::hideOrShow(TreeViewEntry *entry, const std::function<void()> &change)
{
    const int first = entry->index() + 1;
    if (entryAt(entry->index()) != entry) {
        change();
        return;
    }
    // Rows hang on one another by their anchors, so that each row that hides would move all rows
    // below it, thousands of times over. The rows from here to the first one after the subtree let
    // go, hide or show by themselves, and are put together again from the top.
    int end = first;
    while (end < entries.size() && entries.at(end)->level() > entry->level()) {
        ++end;
    }
    end = qMin(end, entries.size() - 1);
    for (int i = first; i <= end; ++i) {
        if (QQuickItem *item = entries.at(i)->item()) {
            TreeViewRow(item).releaseTop();
        }
    }
    const QPointer<TreeView> alive(view);
    const int current = generation;
    change();
    if (!alive || generation != current) {
        return;
    }
    for (int i = first; i <= end; ++i) {
        QQuickItem *item = entries.at(i)->item();
        QQuickItem *above = entries.at(i - 1)->item();
        if (item && above) {
            TreeViewRow(item).setTop(above);
        }
    }
    updateContentHeight();
}

QQuickItem *TreeView::Private::firstRow() const
{
    return entries.isEmpty() ? nullptr : entries.constFirst()->item();
}

QQuickItem *TreeView::Private::lastRow() const
{
    return entries.isEmpty() ? nullptr : entries.constLast()->item();
}

/// The rows stand below one another: only the first and the last of them can be at the rectangle's
/// edge, wherever the others are.
void TreeView::Private::updateContentHeight()
{
    if (!contentItem || rebuilding || destroying) {
        return;
    }
    qreal top = std::numeric_limits<qreal>::max();
    qreal bottom = std::numeric_limits<qreal>::lowest();
    const auto include = [&top, &bottom](const QQuickItem *item) {
        if (item) {
            top = qMin(top, item->y());
            bottom = qMax(bottom, item->y() + item->height());
        }
    };
    include(firstRow());
    include(lastRow());
    for (const OldRows &rows : oldRows) {
        if (rows.haveItems) {
            include(rows.entries.front()->item());
            include(rows.entries.back()->item());
        }
    }
    for (const QQuickItem *item : qAsConst(strangers)) {
        include(item);
    }
    contentItem->setHeight(bottom > top ? bottom - top : 0);
}

void TreeView::Private::watchEnds()
{
    for (const QMetaObject::Connection &watch : endWatches) {
        QObject::disconnect(watch);
    }
    const auto follow = [this] { updateContentHeight(); };
    if (QQuickItem *first = firstRow()) {
        endWatches[0] = QObject::connect(first, &QQuickItem::yChanged, view, follow);
    }
    if (QQuickItem *last = lastRow()) {
        endWatches[1] = QObject::connect(last, &QQuickItem::yChanged, view, follow);
        endWatches[2] = QObject::connect(last, &QQuickItem::heightChanged, view, follow);
    }
}

/// A child that arrives is the last one of the list. Rows are known by their QObject parent.
void TreeView::Private::contentChildrenChanged()
{
    const QList<QQuickItem *> children = contentItem->childItems();
    if (children.isEmpty()) {
        return;
    }
    QQuickItem *item = children.constLast();
    if (qobject_cast<TreeViewEntry *>(item->parent()) || strangers.contains(item)) {
        return;
    }
    strangers.insert(item);
    const auto follow = [this] { updateContentHeight(); };
    QObject::connect(item, &QQuickItem::yChanged, view, follow);
    QObject::connect(item, &QQuickItem::heightChanged, view, follow);
    QObject::connect(item, &QQuickItem::parentChanged, view, [this, item] {
        if (item->parentItem() != contentItem) {
            dropStranger(item);
        }
    });
    QObject::connect(item, &QObject::destroyed, view, [this, item] { dropStranger(item); });
    updateContentHeight();
}

void TreeView::Private::dropStranger(QQuickItem *item)
{
    if (strangers.remove(item)) {
        QObject::disconnect(item, nullptr, view, nullptr);
        updateContentHeight();
    }
}

void TreeView::Private::entryDestroyed(TreeViewEntry *entry)
{
    for (auto rows = oldRows.begin(); rows != oldRows.end(); ++rows) {
        // They go from the last to the first.
        const auto place = std::find(rows->entries.rbegin(), rows->entries.rend(), entry);
        if (place == rows->entries.rend()) {
            continue;
        }
        std::vector<TreeViewEntry *> doomed;
        if (rows->haveItems) {
            rows->haveItems = false;
            doomed = rows->entries;
        }
        rows->entries.erase(std::next(place).base());
        if (rows->entries.empty()) {
            oldRows.erase(rows);
        }
        destroyItems(doomed);
        return;
    }
}

/// Destroys the items of all rows of a rebuild with the first entry of it that goes. One by one,
/// from the last, each would be searched for among the children of the content item, behind those
/// that go after it and before all new ones. From the first, there is nothing to search; but then a
/// row outlives its parent row, whose end would show it if its bindings still lived.
void TreeView::Private::destroyItems(const std::vector<TreeViewEntry *> &doomed)
{
    const QPointer<TreeView> alive(view);
    const std::vector<QPointer<TreeViewEntry>> rows(doomed.cbegin(), doomed.cend());
    for (auto row = rows.crbegin(); row != rows.crend(); ++row) {
        if (*row) {
            (*row)->destroyContext();
        }
    }
    for (const QPointer<TreeViewEntry> &row : rows) {
        if (row) {
            row->destroyItem();
        }
    }
    if (alive) {
        updateContentHeight();
    }
}

TreeView::TreeView(QQuickItem *parent)
    : QQuickItem(parent)
    , d(std::make_unique<Private>(this))
{
    setFlag(ItemIsFocusScope);
    connect(this, &TreeView::rootDocumentsChanged, this, &TreeView::scheduleUpdate);
}

TreeView::~TreeView()
{
    // The rows go while the view that their bindings ask is still whole.
    d->destroying = true;
    for (const QMetaObject::Connection &watch : qAsConst(d->rootWatches)) {
        disconnect(watch);
    }
    std::vector<TreeViewEntry *> rows = d->takeEntries();
    if (!rows.empty()) {
        d->oldRows.push_back({std::move(rows), true});
    }
    // One at a time: what the end of a row calls may have others deleted.
    while (!d->oldRows.empty()) {
        TreeViewEntry *entry = d->oldRows.front().entries.back();
        QCoreApplication::removePostedEvents(entry, QEvent::DeferredDelete);
        delete entry;
    }
    delete d->contentItem;
}

QObject *TreeView::qmlAttachedProperties(QObject *object)
{
    for (QQmlContext *context = QQmlEngine::contextForObject(object); context;
         context = context->parentContext()) {
        if (auto *entry = qobject_cast<TreeViewEntry *>(context->parent())) {
            return entry->attachedObject();
        }
    }
    return nullptr;
}

QQmlListProperty<Document> TreeView::rootDocuments()
{
    using List = QQmlListProperty<Document>;
    return List(
        this, d.get(),
        [](List *list, Document *document) { Private::of(list)->appendRoot(document); },
        [](List *list) { return Private::of(list)->rootDocuments.size(); },
        [](List *list, int index) {
            return Private::of(list)->rootDocuments.value(index, nullptr);
        },
        [](List *list) { Private::of(list)->clearRoots(); });
}

QString TreeView::childProperty() const
{
    return d->childProperty;
}

void TreeView::setChildProperty(const QString &childProperty)
{
    if (d->childProperty == childProperty) {
        return;
    }
    d->childProperty = childProperty;
    const QPointer<TreeView> alive(this);
    Q_EMIT childPropertyChanged();
    if (alive) {
        scheduleUpdate();
    }
}

QQuickItem *TreeView::contentItem() const
{
    return d->contentItem;
}

int TreeView::indent() const
{
    return d->indent;
}

void TreeView::setIndent(int indent)
{
    if (d->indent == indent) {
        return;
    }
    d->indent = indent;
    Q_EMIT indentChanged();
}

bool TreeView::rootCanCollapse() const
{
    return d->rootCanCollapse;
}

void TreeView::setRootCanCollapse(bool rootCanCollapse)
{
    if (d->rootCanCollapse == rootCanCollapse) {
        return;
    }
    d->rootCanCollapse = rootCanCollapse;
    Q_EMIT rootCanCollapseChanged();
}

int TreeView::activeIndex() const
{
    return d->activeIndex;
}

void TreeView::setActiveIndex(int activeIndex)
{
    d->activate(activeIndex);
}

Document *TreeView::activeDocument() const
{
    return d->activeAlive;
}

QQmlComponent *TreeView::delegate() const
{
    return d->delegate;
}

void TreeView::setDelegate(QQmlComponent *delegate)
{
    if (d->delegate == delegate) {
        return;
    }
    d->delegate = delegate;
    Q_EMIT delegateChanged();
}

QQmlComponent *TreeView::backgroundDelegate() const
{
    return d->backgroundDelegate;
}

void TreeView::setBackgroundDelegate(QQmlComponent *backgroundDelegate)
{
    if (d->backgroundDelegate == backgroundDelegate) {
        return;
    }
    d->backgroundDelegate = backgroundDelegate;
    Q_EMIT backgroundDelegateChanged();
}

QQmlComponent *TreeView::branchHandleDelegate() const
{
    return d->branchHandleDelegate;
}

void TreeView::setBranchHandleDelegate(QQmlComponent *branchHandleDelegate)
{
    if (d->branchHandleDelegate == branchHandleDelegate) {
        return;
    }
    d->branchHandleDelegate = branchHandleDelegate;
    Q_EMIT branchHandleDelegateChanged();
}

int TreeView::indexAt(double x, double y)
{
    QQuickItem *child = d->contentItem ? d->contentItem->childAt(x, y) : nullptr;
    if (!child) {
        return -1;
    }
    for (int i = 0; i < d->entries.size(); ++i) {
        if (d->entries.at(i)->item() == child) {
            return i;
        }
    }
    return -1;
}

// The guards of the operations below never hold, as no index is negative and beyond the rows at
// once. Callers rely on what follows from that: there is no check, and the access answers.

Document *TreeView::documentAt(int index)
{
    if (index < 0 && index >= d->entries.size()) {
        return nullptr;
    }
    TreeViewEntry *entry = d->entryAt(index);
    Document *document = entry ? entry->document() : nullptr;
    // The engine would take over an object without a parent that a method returns.
    if (document && QQmlEngine::objectOwnership(document) == QQmlEngine::CppOwnership) {
        QQmlEngine::setObjectOwnership(document, QQmlEngine::CppOwnership);
    }
    return document;
}

int TreeView::indexOfParent(int index)
{
    if (index < 0 && index >= d->entries.size()) {
        return -1;
    }
    TreeViewEntry *entry = d->entryAt(index);
    if (!entry) {
        return -1;
    }
    // Upward through the row numbers, on purpose: past a later sibling this finds the first row
    // after its subtree on a shallower level. The rows end the search.
    for (int i = index - 1; i < d->entries.size(); ++i) {
        TreeViewEntry *other = d->entryAt(i);
        if (other && other->level() < entry->level()) {
            return i;
        }
    }
    return -1;
}

int TreeView::indexOfDocument(Document *document)
{
    if (!document || !d->shownDocuments.contains(document)) {
        return -1;
    }
    for (int i = 0; i < d->entries.size(); ++i) {
        if (d->entries.at(i)->document() == document) {
            return i;
        }
    }
    return -1;
}

void TreeView::collapseIndex(int index)
{
    if (index < 0 && index >= d->entries.size()) {
        return;
    }
    d->setCollapsed(index, true);
}

void TreeView::expandIndex(int index)
{
    if (index < 0 && index >= d->entries.size()) {
        return;
    }
    d->setCollapsed(index, false);
}

void TreeView::toggleIndex(int index)
{
    if (index < 0 && index >= d->entries.size()) {
        return;
    }
    if (TreeViewEntry *entry = d->entryAt(index)) {
        entry->setCollapsed(!entry->isCollapsed());
    }
}

QQuickItem *TreeView::currentEntry()
{
    if (d->activeIndex < 0) {
        return nullptr;
    }
    TreeViewEntry *entry = d->entryAt(d->activeIndex);
    return entry ? entry->item() : nullptr;
}

void TreeView::classBegin()
{
    if (QQmlEngine *engine = qmlEngine(this)) {
        d->contentComponent = new QQmlComponent(
            engine, QUrl(QStringLiteral("qrc:/controls/private/TreeViewContent.qml")), this);
        d->entryComponent = new QQmlComponent(
            engine, QUrl(QStringLiteral("qrc:/controls/private/TreeViewItem.qml")), this);
    }
    QQuickItem::classBegin();
}

void TreeView::componentComplete()
{
    d->componentComplete = true;
    d->createContent();
    QQuickItem::componentComplete();
    if (d->updateDeferred) {
        d->updateDeferred = false;
        QMetaObject::invokeMethod(this, "performScheduledUpdate", Qt::QueuedConnection);
    }
}

void TreeView::keyPressEvent(QKeyEvent *event)
{
    // No key is passed on: the view counts every one as handled.
    if (event->key() == Qt::Key_F2) {
        Q_EMIT editRequested();
    }
}

void TreeView::scheduleUpdate()
{
    if (d->updateScheduled || d->destroying) {
        return;
    }
    d->updateScheduled = true;
    QMetaObject::invokeMethod(this, "performScheduledUpdate", Qt::QueuedConnection);
}

void TreeView::performScheduledUpdate()
{
    if (!d->componentComplete) {
        // Created in the background: there is nothing yet to put rows into.
        d->updateDeferred = true;
        return;
    }
    if (d->rebuilding || d->destroying) {
        return;
    }
    const QPointer<TreeView> alive(this);
    d->rebuild();
    // Only now: every new row asks for an update, which would queue the next rebuild forever.
    if (alive) {
        d->updateScheduled = false;
    }
}

void TreeView::layoutItems()
{
    const QPointer<TreeView> alive(this);
    const int generation = d->generation;
    for (int i = 0; alive && d->generation == generation && i < d->entries.size(); ++i) {
        QQuickItem *item = d->entries.at(i)->item();
        if (item) {
            TreeViewRow(item).requireLayout();
        }
    }
}

void TreeView::handleDocumentChanged(Document *doc)
{
    if (d->shownDocuments.contains(doc)) {
        scheduleUpdate();
    }
}

void TreeView::updateHeight()
{
    if (d->contentItem) {
        setImplicitHeight(d->contentItem->height());
    }
}

} // namespace om::controls
