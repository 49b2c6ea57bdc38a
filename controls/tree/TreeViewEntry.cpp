// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/tree/TreeViewEntry.h"

#include "controls/tree/RowItemAccess.h"
#include "controls/tree/TreeViewEntryHost.h"

#include <QMetaMethod>
#include <QMetaProperty>
#include <QPointer>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlIncubator>
#include <QQmlListReference>
#include <QQuickItem>
#include <QVector>

#include <algorithm>
#include <utility>

using om::data::Document;

namespace om::controls {

namespace {

// The values of TreeView.ComponentType.
enum Component {
    EntryComponent = 1,
    DelegateComponent = 2,
    BackgroundComponent = 3,
    BranchHandleComponent = 4
};

/// Makes an item, and gives it its parents before its bindings are evaluated.
///
/// Used instead of QQmlComponent::create(), which does not survive that a completing object
/// destroys the component: an incubator holds its own reference to the compiled component. Besides,
/// a component keeps the state of its last creation, about 1,000 bytes, until it is destroyed.
class ItemIncubator : public QQmlIncubator
{
public:
    explicit ItemIncubator(std::function<void(QQuickItem *)> place)
        : QQmlIncubator(Synchronous)
        , m_place(std::move(place))
    {
    }

protected:
    void setInitialState(QObject *object) override
    {
        if (auto *item = qobject_cast<QQuickItem *>(object)) {
            m_place(item);
        }
    }

private:
    const std::function<void(QQuickItem *)> m_place;
};

} // namespace

class TreeViewEntry::Private
{
public:
    explicit Private(TreeViewEntry *entry)
        : q(entry)
    {
    }

    void followChildList();
    int readChildCount() const;
    template<typename Value, typename Read>
    void writeRows(void (RowItemAccess::*write)(Value), const Read &read);
    QQuickItem *createItem(int component, QQuickItem *place);
    static QQuickItem *createDefaultHandle(QQmlComponent *component, QQuickItem *marker);
    QQuickItem *rowOfMarker(const QQuickItem *marker) const;
    void populate(QQuickItem *rowItem);
    void followMarker(QQuickItem *rowItem, QQuickItem *handle);
    void moveItem(QQuickItem *content);
    void destroyPart(QObject *part);

    TreeViewEntry *const q;
    TreeViewEntryHost *host = nullptr;
    bool collapsed = false;
    int level = 0;
    int index = 0;
    int childCount = 0;
    /// How often collapsed and childCount have changed. Writing a change to the rows runs handlers,
    /// which may make the next one and have it told: the outer change is not told any more then.
    int collapses = 0;
    int countChanges = 0;
    QPointer<Document> document;
    QQmlContext *context = nullptr;
    QPointer<QQuickItem> item;
    /// Further items that delegates have made from the rows' file.
    QVector<QPointer<QQuickItem>> extraItems;
    /// How many calls of moveItem() are on the stack.
    int itemMoves = 0;
    TreeViewAttachedObject *attached = nullptr;
    /// The part that is being destroyed: handlers of its end may destroy the entry with the view.
    QObject *ending = nullptr;
};

TreeViewEntry::TreeViewEntry(QObject *view, TreeViewEntryHost *host, const Row &row)
    : QObject(view)
    , d(std::make_unique<Private>(this))
{
    d->host = host;
    d->collapsed = row.collapsed;
    d->level = row.level;
    d->index = row.index;
    d->childCount = row.childCount;
    d->document = row.document;
    d->followChildList();
}

TreeViewEntry::~TreeViewEntry()
{
    d->host->entryEnds(this);
    // Handlers of the row's end may destroy the view, which would delete the entry a second time.
    setParent(nullptr);
    if (d->ending) {
        // Its destructor is on the stack: without a parent it is not deleted a second time.
        d->ending->setParent(nullptr);
    }
    destroyContext();
    if (d->itemMoves > 0 && d->item) {
        d->item->setParent(nullptr); // see moveItem()
    } else {
        d->destroyPart(d->item);
    }
}

TreeViewEntry *TreeViewEntry::ofRowItem(const QQuickItem *item)
{
    auto *entry = item ? qobject_cast<TreeViewEntry *>(item->parent()) : nullptr;
    return entry && entry->item() == item ? entry : nullptr;
}

int TreeViewEntry::level() const
{
    return d->level;
}

int TreeViewEntry::index() const
{
    return d->index;
}

Document *TreeViewEntry::document() const
{
    return d->document;
}

TreeView *TreeViewEntry::view() const
{
    return d->host->view();
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
    return d->document && d->document == d->host->activeDocument();
}

/// A list without a notify signal is not followed.
void TreeViewEntry::Private::followChildList()
{
    const QMetaObject *type = document->metaObject();
    const int property = type->indexOfProperty(host->childProperty().constData());
    const int signal = property < 0 ? -1 : type->property(property).notifySignalIndex();
    if (signal >= 0) {
        static const int slot = staticMetaObject.indexOfSlot("updateChildCount()");
        QMetaObject::connect(document, signal, q, slot);
    }
}

/// Writes what \a read returns to the row item and the further ones. The application's code that
/// this runs may destroy them and the entry, and change the value: it is read anew for each.
template<typename Value, typename Read>
void TreeViewEntry::Private::writeRows(void (RowItemAccess::*write)(Value), const Read &read)
{
    const QPointer<TreeViewEntry> alive(q);
    QVector<QPointer<QQuickItem>> items = extraItems;
    items.prepend(item);
    for (const QPointer<QQuickItem> &row : qAsConst(items)) {
        const Value value = alive ? read() : Value();
        if (alive && row) {
            (RowItemAccess(row).*write)(value);
        }
    }
}

void TreeViewEntry::createRow(QQuickItem *content, QQuickItem *treeParent)
{
    QQmlContext *const viewContext = qmlContext(parent());
    if (!viewContext || !viewContext->isValid()) {
        return; // nothing can be made once the view's engine or document is gone
    }
    QQmlComponent *component = d->host->component(EntryComponent);
    d->context = new QQmlContext(viewContext, this);
    d->context->setContextObject(this);

    const QPointer<TreeViewEntry> alive(this);
    ItemIncubator incubator([this, content, treeParent](QQuickItem *item) {
        item->setParent(this);
        d->item = item;
        RowItemAccess row(item);
        row.setAwaitsEntry(true);
        row.setChildCount(d->childCount);
        row.setCollapsed(d->collapsed);
        row.setTreeParent(treeParent);
        d->moveItem(content);
    });
    component->create(incubator, d->context);
    if (alive && d->item) {
        RowItemAccess(d->item).setAwaitsEntry(false);
        d->populate(d->item);
    }
}

/// setParentItem() emits signals whose handlers may destroy the view and the entry. The item is
/// deleted after setParentItem() has returned then, which still uses it.
void TreeViewEntry::Private::moveItem(QQuickItem *content)
{
    const QPointer<TreeViewEntry> alive(q);
    const QPointer<QQuickItem> moved = item;
    ++itemMoves;
    moved->setParentItem(content);
    if (!alive) {
        delete moved.data();
        return;
    }
    --itemMoves;
}

void TreeViewEntry::leaveContent()
{
    if (d->item) {
        d->moveItem(nullptr);
    }
}

void TreeViewEntry::destroyContext()
{
    d->destroyPart(std::exchange(d->context, nullptr));
}

void TreeViewEntry::Private::destroyPart(QObject *part)
{
    const QPointer<TreeViewEntry> alive(q);
    ending = part;
    delete part;
    if (alive) {
        ending = nullptr;
    }
}

void TreeViewEntry::setCollapsed(bool collapsed)
{
    if (d->childCount <= 0 || (d->level < 1 && !d->host->rootCanCollapse())
        || collapsed == d->collapsed) {
        return;
    }
    const QPointer<TreeViewEntry> alive(this);
    const QString id = d->document ? d->document->documentId() : QString();
    if (!alive) {
        return; // documentId() is the application's code and has destroyed the entry
    }
    d->collapsed = collapsed;
    const int change = ++d->collapses;
    if (d->document) {
        d->host->rememberCollapsed(id, collapsed);
    }
    d->host->hideOrShow(this, [this] {
        d->writeRows(&RowItemAccess::setCollapsed, [this] { return d->collapsed; });
    });
    if (alive && change == d->collapses) {
        Q_EMIT collapsedChanged(collapsed);
    }
}

void TreeViewEntry::announceActive()
{
    Q_EMIT activeChanged(isActive());
}

TreeViewAttachedObject *TreeViewEntry::attachedObject() const
{
    return d->attached;
}

void TreeViewEntry::setAttachedObject(TreeViewAttachedObject *attached)
{
    d->attached = attached;
}

QObject *TreeViewEntry::createDelegateItem(int component, QQuickItem *parent)
{
    QQmlComponent *source = d->host->component(component);
    if (!d->context || !source || !source->isReady()) {
        return nullptr;
    }
    // An object that completes may destroy the row, this entry and the component.
    const QPointer<QQuickItem> place(parent);
    QQmlIncubator incubator(QQmlIncubator::Synchronous);
    source->create(incubator, d->context);
    QObject *made = incubator.object();
    if (!made) {
        return nullptr;
    }
    QQmlEngine::setObjectOwnership(made, QQmlEngine::JavaScriptOwnership);
    const QPointer<QObject> alive(made);
    if (auto *item = qobject_cast<QQuickItem *>(made)) {
        item->setParentItem(place);
    }
    return alive;
}

/// As createDelegateItem(), for items only: another object is left to the garbage collector.
QQuickItem *TreeViewEntry::Private::createItem(int component, QQuickItem *place)
{
    const QPointer<QQmlEngine> engine = context->engine();
    QObject *made = q->createDelegateItem(component, place);
    auto *madeItem = qobject_cast<QQuickItem *>(made);
    if (engine && made && !madeItem) {
        engine->newQObject(made);
    }
    return madeItem;
}

/// Makes the handle of a view that has none of its own. It belongs to the QML engine, as objects
/// made from delegates do, and is destroyed with the marker at the latest.
QQuickItem *TreeViewEntry::Private::createDefaultHandle(QQmlComponent *component,
                                                        QQuickItem *marker)
{
    if (!component) {
        return nullptr;
    }
    QPointer<QQuickItem> handle;
    ItemIncubator incubator([&handle, marker](QQuickItem *made) {
        handle = made;
        made->setParent(marker);
        made->setParentItem(marker);
    });
    component->create(incubator, component->creationContext());
    if (handle) {
        QQmlEngine::setObjectOwnership(handle, QQmlEngine::JavaScriptOwnership);
    }
    return handle;
}

void TreeViewEntry::populateRow(QQuickItem *row)
{
    if (!RowItemAccess::fits(row)) {
        return;
    }
    if (row != d->item) {
        const QPointer<TreeViewEntry> alive(this);
        const QPointer<QQuickItem> made(row);
        d->extraItems.removeAll(nullptr);
        if (!d->extraItems.contains(made)) {
            d->extraItems.append(made);
        }
        // As showChildCount() has it: the name of the list may be another than the entry's.
        const int count = d->readChildCount();
        if (alive && made) {
            RowItemAccess(row).setChildCount(count);
        }
        if (alive && made) {
            RowItemAccess(row).setCollapsed(d->collapsed);
        }
        if (!alive || !made) {
            return;
        }
    }
    d->populate(row);
}

/// In C++, as the calls from the row's file into C++ and back would take a tenth of a rebuild. A
/// delegate that completes may destroy the row and the entry, the parts that were made before it,
/// and with the engine all of them.
void TreeViewEntry::Private::populate(QQuickItem *rowItem)
{
    const QPointer<TreeViewEntry> alive(q);
    const QPointer<QQuickItem> guard(rowItem);
    RowItemAccess row(rowItem);
    QQuickItem *const pressArea = row.pressArea();
    const auto create = [&](int component, QQuickItem *place) {
        QQuickItem *made = context && place ? createItem(component, place) : nullptr;
        return alive && guard ? made : nullptr;
    };
    const QPointer<QQuickItem> background = create(BackgroundComponent, rowItem);
    if (background) {
        row.placeBackground(background);
    }
    if (background && alive && guard) {
        row.setBackgroundItem(background);
    }
    const QPointer<QQuickItem> delegate =
        alive && guard ? create(DelegateComponent, rowItem) : nullptr;
    if (delegate) {
        row.setDelegateItem(delegate);
    }
    const QPointer<QQuickItem> marker = alive && guard ? row.collapseMarker() : nullptr;
    QPointer<QQuickItem> handle = marker ? create(BranchHandleComponent, marker) : nullptr;
    if (!handle && alive && guard && marker) {
        handle = createDefaultHandle(row.defaultBranchHandle(), marker);
    }
    if (!alive || !guard) {
        return;
    }
    row.setBranchHandleItem(handle);
    if (alive && guard) {
        followMarker(rowItem, handle);
    }
    if (alive && guard) {
        row.raisePressArea(pressArea);
    }
    if (delegate && alive && guard) {
        row.placeDelegate(delegate);
    }
}

/// Keeps the marker as large as the rectangle of its children: with the \a handle as its only child
/// by following the handle's size, from the second child on by a binding to childrenRect, which has
/// the marker scan its children at each change of one for as long as it lives.
///
/// The entry is the receiver, and the connections are made by index: a function object would take
/// 48 bytes a connection, and each further receiver 96 bytes.
void TreeViewEntry::Private::followMarker(QQuickItem *rowItem, QQuickItem *handle)
{
    static const int childrenChanged =
        QMetaMethod::fromSignal(&QQuickItem::childrenChanged).methodIndex();
    static const int widthChanged =
        QMetaMethod::fromSignal(&QQuickItem::widthChanged).methodIndex();
    static const int heightChanged =
        QMetaMethod::fromSignal(&QQuickItem::heightChanged).methodIndex();
    static const int measure = staticMetaObject.indexOfSlot("measureSendersRow()");
    static const int fit = staticMetaObject.indexOfSlot("fitSendersMarker()");

    RowItemAccess row(rowItem);
    QQuickItem *marker = row.collapseMarker();
    if (!marker) {
        return; // the application has destroyed it
    }
    const QList<QQuickItem *> children = marker->childItems();
    if (children.size() != (handle ? 1 : 0) || children.value(0) != handle) {
        row.measureMarker();
        return;
    }
    QMetaObject::connect(marker, childrenChanged, q, measure);
    if (handle) {
        QMetaObject::connect(handle, widthChanged, q, fit);
        QMetaObject::connect(handle, heightChanged, q, fit);
        // At the end: the marker's signals run the application's code.
        row.fitMarker();
    }
}

/// The row that has \a marker, which the application may have moved elsewhere, to another row for
/// instance. Null for a marker without a parent, which may be in its destructor.
QQuickItem *TreeViewEntry::Private::rowOfMarker(const QQuickItem *marker) const
{
    if (!marker || !marker->parentItem()) {
        return nullptr;
    }
    const auto hasIt = [marker](const QPointer<QQuickItem> &row) {
        return row && RowItemAccess(row).collapseMarker() == marker;
    };
    if (hasIt(item)) {
        return item;
    }
    const auto extra = std::find_if(extraItems.cbegin(), extraItems.cend(), hasIt);
    return extra == extraItems.cend() ? nullptr : extra->data();
}

void TreeViewEntry::measureSendersRow()
{
    auto *marker = qobject_cast<QQuickItem *>(sender());
    if (QQuickItem *row = d->rowOfMarker(marker)) {
        disconnect(marker, &QQuickItem::childrenChanged, this, nullptr);
        RowItemAccess(row).measureMarker();
    }
}

/// The sender is the branch handle of a row; the application may have moved it elsewhere.
void TreeViewEntry::fitSendersMarker()
{
    const auto *handle = qobject_cast<QQuickItem *>(sender());
    if (QQuickItem *row = d->rowOfMarker(handle ? handle->parentItem() : nullptr)) {
        RowItemAccess(row).fitMarker();
    }
}

/// The count is the application's code, which may destroy the entry.
int TreeViewEntry::Private::readChildCount() const
{
    if (!document) {
        return 0;
    }
    const QByteArray property = host->childProperty();
    return qMax(0, QQmlListReference(document, property.constData()).count());
}

void TreeViewEntry::showChildCount()
{
    d->writeRows(&RowItemAccess::setChildCount, [this] { return d->readChildCount(); });
}

void TreeViewEntry::updateChildCount()
{
    const QPointer<TreeViewEntry> alive(this);
    const int count = d->readChildCount();
    if (!alive) {
        return;
    }
    const bool changed = count != d->childCount;
    d->childCount = count;
    d->countChanges += changed ? 1 : 0;
    const int change = d->countChanges;
    d->writeRows(&RowItemAccess::setChildCount, [this] { return d->childCount; });
    if (alive && changed && change == d->countChanges) {
        Q_EMIT childCountChanged(count);
    }
    if (alive) {
        d->host->requestUpdate();
    }
}

} // namespace om::controls
