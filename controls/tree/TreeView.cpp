// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/tree/TreeView.h"

#include "controls/support/ElementList.h"
#include "controls/support/ListProperty.h"
#include "controls/support/QmlPlace.h"
#include "controls/support/Teardown.h"
#include "controls/tree/ContentHeight.h"
#include "controls/tree/TreeRows.h"
#include "controls/tree/TreeViewAttachedObject.h"
#include "controls/tree/TreeViewEntry.h"
#include "controls/tree/TreeViewEntryHost.h"

#include <OmbrelDataCore/Context.h>

#include <QHash>
#include <QImageReader>
#include <QKeyEvent>
#include <QPointer>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlInfo>
#include <QQmlProperty>

using om::data::Context;
using om::data::Document;

namespace om::controls {

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

/// With the format given, QImageReader loads the plugin of that format only, not all of them.
static bool svgIsReadable()
{
    static const bool readable = [] {
        QImageReader reader(QStringLiteral(":/controls/images/collapse-indicator.svg"), "svg");
        reader.setAutoDetectImageFormat(false);
        return reader.canRead();
    }();
    return readable;
}

/// The state of the view, and the host of its entries.
class TreeView::Private final : public TreeViewEntryHost
{
public:
    explicit Private(TreeView *view);

    TreeView *view() const override { return q; }
    QQmlComponent *component(int type) const override;
    QByteArray childProperty() const override { return childPropertyName; }
    bool rootCanCollapse() const override { return rootsCollapse; }
    Document *activeDocument() const override { return activeAlive; }
    void rememberCollapsed(const QString &documentId, bool collapsed) override;
    void hideOrShow(TreeViewEntry *entry, const std::function<void()> &change) override;
    void requestUpdate() override { q->scheduleUpdate(); }
    void entryEnds(TreeViewEntry *entry) override;

    void createContent();
    void rebuild();
    void rebindContext();
    bool canMakeRows();
    void activate(int index);
    void setCollapsed(int index, bool collapsed);

    const ElementList<Document> &elements() const { return roots; }
    void append(Document *document);
    void clear();

    TreeView *const q;
    bool componentComplete = false;
    bool updateScheduled = false;
    /// An update came due before the view was complete.
    bool updateDeferred = false;
    bool rebuilding = false;
    bool destroying = false;
    bool rootsCollapse = false;
    int indent = 20;
    int activeIndex = -1;
    /// Compared, never dereferenced: the document may be destroyed, and activeAlive is null then.
    Document *activeIdentity = nullptr;
    QPointer<Document> activeAlive;
    QString childPropertyText;
    /// childProperty in Latin-1, as meta-objects store names.
    QByteArray childPropertyName;
    QPointer<Context> context;
    QPointer<QQmlComponent> contentComponent;
    QPointer<QQmlComponent> entryComponent;
    QPointer<QQmlComponent> delegate;
    QPointer<QQmlComponent> backgroundDelegate;
    QPointer<QQmlComponent> branchHandleDelegate;
    QPointer<QQmlComponent> plainBranchHandle;
    QPointer<QQuickItem> contentItem;
    /// The documents at level 0; null ones have no row.
    ElementList<Document> roots;
    const ListKey<Private> listKey{this};
    QHash<QString, bool> collapsedById;
    TreeRows rows;
    std::unique_ptr<ContentHeight> contentHeight;
};

TreeView::Private::Private(TreeView *owner)
    : q(owner)
    , roots([this](Document *) { Q_EMIT q->rootDocumentsChanged(); })
    , rows(owner, this)
{
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
        // Without Qt's SVG plugin each default handle would fail to load its image, with a warning.
        return branchHandleDelegate ? branchHandleDelegate : plainBranchHandle;
    }
    return nullptr;
}

void TreeView::Private::rememberCollapsed(const QString &documentId, bool collapsed)
{
    collapsedById.insert(documentId, collapsed);
}

void TreeView::Private::hideOrShow(TreeViewEntry *entry, const std::function<void()> &change)
{
    // Paused, so that the height changes once and not with each row that hides.
    if (contentHeight) {
        contentHeight->pause();
    }
    if (rows.hideOrShow(entry, change) && contentHeight) {
        contentHeight->resume();
    }
}

void TreeView::Private::entryEnds(TreeViewEntry *entry)
{
    const QPointer<TreeView> alive(q);
    const bool rowsHaveLeft = rows.entryEnds(entry);
    if (rowsHaveLeft && alive && contentHeight) {
        contentHeight->update();
    }
}

void TreeView::Private::append(Document *document)
{
    roots.append(document);
    Q_EMIT q->rootDocumentsChanged();
}

void TreeView::Private::clear()
{
    if (roots.clear()) {
        Q_EMIT q->rootDocumentsChanged();
    }
}

void TreeView::Private::createContent()
{
    if (!delegate) {
        QmlPlace(q).log().critical("No delegate present - TreeView cannot render tree");
        return;
    }
    if (!contentComponent) {
        return;
    }
    QObject *made = contentComponent->beginCreate(qmlContext(q));
    auto *item = qobject_cast<QQuickItem *>(made);
    if (!item) {
        if (made) {
            contentComponent->completeCreate();
            delete made;
        }
        qmlWarning(q, contentComponent->errors());
        return;
    }
    item->setParent(q);
    item->setParentItem(q);
    // Removes the file's binding to childrenRect.height before it is evaluated, see ContentHeight.
    QQmlProperty::write(item, QStringLiteral("height"), 0);
    contentComponent->completeCreate();
    contentItem = item;
    QObject::connect(item, &QQuickItem::heightChanged, q, &TreeView::updateHeight);
    contentHeight = std::make_unique<ContentHeight>(item, &rows);
}

void TreeView::Private::rebindContext()
{
    const QPointer<TreeView> alive(q);
    Document *first = roots.at(0);
    Context *current = first ? first->context() : nullptr;
    // A document's context is the application's code.
    if (!alive || current == context) {
        return;
    }
    if (context) {
        QObject::disconnect(context, nullptr, q, nullptr);
    }
    context = current;
    if (context) {
        static const int type = qRegisterMetaType<om::data::Document *>("om::data::Document*");
        Q_UNUSED(type)
        QObject::connect(context, &Context::documentChanged, q, &TreeView::handleDocumentChanged,
                         Qt::QueuedConnection);
    }
}

bool TreeView::Private::canMakeRows()
{
    if (!contentItem || !entryComponent) {
        return false;
    }
    if (entryComponent->isError()) {
        qmlWarning(q, entryComponent->errors());
        return false;
    }
    if (!branchHandleDelegate && !plainBranchHandle && !svgIsReadable()) {
        qmlWarning(q) << "The SVG image plugin of Qt is missing; branch handles are plain";
        plainBranchHandle = new QQmlComponent(qmlEngine(q), q);
        plainBranchHandle->setData(plainBranchHandleQml, QUrl());
    }
    return true;
}

void TreeView::Private::rebuild()
{
    const QPointer<TreeView> alive(q);
    rebindContext();
    if (!alive) {
        return;
    }
    if (contentHeight) {
        contentHeight->pause();
    }
    rows.retire();
    if (canMakeRows()) {
        const auto collapsed = [this](const QString &id) { return collapsedById.value(id, false); };
        // A copy: delegates may change the list while rows are made.
        const std::vector<QPointer<Document>> documents = roots.snapshot();
        for (const QPointer<Document> &document : documents) {
            if (document && !rows.add(document, contentItem, collapsed)) {
                return;
            }
        }
    }
    if (!rows.setPredecessors()) {
        return;
    }
    activate(q->indexOfDocument(activeAlive));
    if (!alive) {
        return;
    }
    q->layoutItems();
    if (!alive) {
        return;
    }
    rebuilding = false;
    if (contentHeight) {
        contentHeight->resume();
    }
    if (alive) {
        Q_EMIT q->indexRebuilt();
    }
}

void TreeView::Private::activate(int index)
{
    if (index < -1 || index >= rows.count() || index == activeIndex) {
        return;
    }
    const QPointer<TreeView> alive(q);
    const QPointer<TreeViewEntry> oldEntry = rows.at(activeIndex);
    const QPointer<TreeViewEntry> newEntry = rows.at(index);
    activeIndex = index;
    Q_EMIT q->activeIndexChanged();
    if (!alive) {
        return;
    }
    // Not when a handler has made another row active, which has set that row's document.
    if (activeIndex == index) {
        Document *document = newEntry ? newEntry->document() : nullptr;
        if (document != activeIdentity) {
            activeIdentity = document;
            activeAlive = document;
            Q_EMIT q->activeDocumentChanged();
        }
    }
    // The new entry first: at each emission some row says that it is active.
    if (alive && newEntry) {
        newEntry->announceActive();
    }
    if (alive && oldEntry) {
        oldEntry->announceActive();
    }
}

void TreeView::Private::setCollapsed(int index, bool collapsed)
{
    if (TreeViewEntry *entry = rows.at(index)) {
        entry->setCollapsed(collapsed);
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
    // The rows are destroyed first, while the view that their bindings read is complete.
    d->destroying = true;
    d->contentHeight.reset();
    d->rows.destroy();
    if (d->rebuilding && d->contentItem) {
        // Not deleted here: the view may be destroyed while Qt Quick adds a child to the content.
        disconnect(d->contentItem, nullptr, this, nullptr);
        d->contentItem->setParentItem(nullptr);
        d->contentItem->setParent(nullptr);
        d->contentItem->deleteLater();
    } else {
        delete d->contentItem;
    }
    if (d->context) {
        disconnect(d->context, nullptr, this, nullptr);
    }
    dropQueuedCalls(this);
}

QObject *TreeView::qmlAttachedProperties(QObject *object)
{
    for (QQmlContext *context = QQmlEngine::contextForObject(object); context;
         context = context->parentContext()) {
        if (auto *entry = qobject_cast<TreeViewEntry *>(context->parent())) {
            return TreeViewAttachedObject::of(entry);
        }
    }
    return nullptr;
}

QQmlListProperty<Document> TreeView::rootDocuments()
{
    return listProperty<Document>(this, d->listKey);
}

QString TreeView::childProperty() const
{
    return d->childPropertyText;
}

void TreeView::setChildProperty(const QString &childProperty)
{
    if (d->childPropertyText == childProperty) {
        return;
    }
    d->childPropertyText = childProperty;
    d->childPropertyName = childProperty.toLatin1();
    if (!d->rows.showChildCounts()) {
        return;
    }
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
    return d->rootsCollapse;
}

void TreeView::setRootCanCollapse(bool rootCanCollapse)
{
    if (d->rootsCollapse == rootCanCollapse) {
        return;
    }
    d->rootsCollapse = rootCanCollapse;
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
    return d->contentItem ? d->rows.indexOf(d->contentItem->childAt(x, y)) : -1;
}

// The guards of the operations below are never true, as no index is both negative and beyond the
// rows. So every index reaches TreeRows::at(), which answers null outside the rows; applications
// rely on that.

Document *TreeView::documentAt(int index)
{
    if (index < 0 && index >= d->rows.count()) {
        return nullptr;
    }
    TreeViewEntry *entry = d->rows.at(index);
    Document *document = entry ? entry->document() : nullptr;
    // The engine takes ownership of an object without a parent that a method returns.
    if (document && QQmlEngine::objectOwnership(document) == QQmlEngine::CppOwnership) {
        QQmlEngine::setObjectOwnership(document, QQmlEngine::CppOwnership);
    }
    return document;
}

int TreeView::indexOfParent(int index)
{
    if (index < 0 && index >= d->rows.count()) {
        return -1;
    }
    TreeViewEntry *entry = d->rows.at(index);
    if (!entry) {
        return -1;
    }
    // Upward through the row numbers, as callers rely on it: for a first child this finds its
    // parent, the row before it; for a later sibling the first row after its subtree on a lower
    // level. The search ends with the rows.
    for (int i = index - 1; i < d->rows.count(); ++i) {
        TreeViewEntry *other = d->rows.at(i);
        if (other && other->level() < entry->level()) {
            return i;
        }
    }
    return -1;
}

int TreeView::indexOfDocument(Document *document)
{
    return d->rows.indexOf(document);
}

void TreeView::collapseIndex(int index)
{
    if (index < 0 && index >= d->rows.count()) {
        return;
    }
    d->setCollapsed(index, true);
}

void TreeView::expandIndex(int index)
{
    if (index < 0 && index >= d->rows.count()) {
        return;
    }
    d->setCollapsed(index, false);
}

void TreeView::toggleIndex(int index)
{
    if (index < 0 && index >= d->rows.count()) {
        return;
    }
    if (TreeViewEntry *entry = d->rows.at(index)) {
        entry->setCollapsed(!entry->isCollapsed());
    }
}

QQuickItem *TreeView::currentEntry()
{
    if (d->activeIndex < 0) {
        return nullptr;
    }
    TreeViewEntry *entry = d->rows.at(d->activeIndex);
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
    // No key event is ignored: every key that reaches the view counts as handled.
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
        // An asynchronous Loader completes the view later: there is no content item yet.
        d->updateDeferred = true;
        return;
    }
    if (d->rebuilding || d->destroying) {
        return;
    }
    const QPointer<TreeView> alive(this);
    d->updateScheduled = true;
    d->rebuilding = true;
    d->rebuild();
    // Cleared after the rebuild only: a delegate that requests an update as it completes would
    // queue a rebuild, which makes the delegate again, without end.
    if (alive) {
        d->updateScheduled = false;
    }
}

void TreeView::layoutItems()
{
    d->rows.layOut();
}

void TreeView::handleDocumentChanged(Document *doc)
{
    if (d->rows.contains(doc)) {
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
