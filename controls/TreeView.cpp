// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/TreeView.h"

#include "controls/TreeViewAttachedObject.h"
#include "controls/TreeViewEntry.h"

#include <OmbrelDataCore/Context.h>

#include <QHash>
#include <QKeyEvent>
#include <QPointer>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlInfo>
#include <QQmlListReference>
#include <QSet>
#include <QUrl>

namespace om::controls {

using om::data::Context;
using om::data::Document;

/// A chain of parents this long is a cycle in the data. Bindings from row to row recurse on the
/// stack, so that a forest that really is this deep could not be collapsed either.
static constexpr int maximumDepth = 1024;

class TreeView::Private
{
public:
    explicit Private(TreeView *view)
        : q(view)
    {
    }

    using DocumentList = QQmlListProperty<Document>;
    static Private *of(DocumentList *list) { return static_cast<Private *>(list->data); }

    void appendRoot(Document *document);
    void clearRoots();
    void watch(Document *document, QObject *watcher);
    void forget(Document *document);

    void createContent();
    void rebuild();
    void rebindContext();
    void addDocument(Document *document, int level, TreeViewEntry *parent);
    void addChildren(TreeViewEntry *entry);
    void setComponent(QQmlComponent *Private::*component, QQmlComponent *value,
                      void (TreeView::*changed)());

    TreeView *const q;
    bool componentComplete = false;
    bool updateScheduled = false;
    bool rootCanCollapse = false;
    bool cycleFound = false;
    /// The active document has been destroyed and its signal is still owed.
    bool activeDocumentLost = false;
    int indent = 20;
    int activeIndex = -1;
    Document *activeDocument = nullptr;
    QString childProperty;
    QByteArray childPropertyName;
    QPointer<Context> context;
    QQmlComponent *contentComponent = nullptr;
    QQmlComponent *entryComponent = nullptr;
    QPointer<QQmlComponent> delegate;
    QPointer<QQmlComponent> backgroundDelegate;
    QPointer<QQmlComponent> branchHandleDelegate;
    QPointer<QQuickItem> contentItem;
    QList<TreeViewEntry *> entries;
    QSet<Document *> shownDocuments;
    QList<Document *> rootDocuments;
    QHash<QString, bool> collapsedById;
};

TreeView::TreeView(QQuickItem *parent)
    : QQuickItem(parent)
    , d(std::make_unique<Private>(this))
{
    setFlag(ItemIsFocusScope);
    connect(this, &TreeView::rootDocumentsChanged, this, &TreeView::scheduleUpdate);
}

TreeView::~TreeView()
{
    // The entries are children and would outlive the record that they look into.
    for (TreeViewEntry *entry : qAsConst(d->entries)) {
        delete entry;
    }
    d->entries.clear();
}

QObject *TreeView::qmlAttachedProperties(QObject *object)
{
    for (QQmlContext *context = QQmlEngine::contextForObject(object); context;
         context = context->parentContext()) {
        if (auto *entry = qobject_cast<TreeViewEntry *>(context->parent())) {
            return entry->attached();
        }
    }
    return nullptr;
}

// Roots

void TreeView::Private::appendRoot(Document *document)
{
    if (!document) {
        return;
    }
    if (!rootDocuments.contains(document)) {
        watch(document, q);
    }
    rootDocuments.append(document);
    Q_EMIT q->rootDocumentsChanged();
}

void TreeView::Private::clearRoots()
{
    if (rootDocuments.isEmpty()) {
        return;
    }
    rootDocuments.clear();
    Q_EMIT q->rootDocumentsChanged();
}

/// Lets go of \a document when it is destroyed, as long as \a watcher lives.
void TreeView::Private::watch(Document *document, QObject *watcher)
{
    QObject::connect(document, &QObject::destroyed, watcher,
                     [this, document] { forget(document); });
}

/// \a document is being destroyed: its row stays until the next rebuild, nothing looks at it.
void TreeView::Private::forget(Document *document)
{
    if (document == activeDocument) {
        activeDocument = nullptr;
        activeDocumentLost = true;
    }
    if (shownDocuments.remove(document)) {
        q->scheduleUpdate();
    }
    if (rootDocuments.removeAll(document) > 0) {
        Q_EMIT q->rootDocumentsChanged();
    }
}

QQmlListProperty<Document> TreeView::rootDocuments()
{
    return {this,
            d.get(),
            [](Private::DocumentList *list, Document *document) {
                Private::of(list)->appendRoot(document);
            },
            [](Private::DocumentList *list) { return Private::of(list)->rootDocuments.count(); },
            [](Private::DocumentList *list, int index) {
                return Private::of(list)->rootDocuments.value(index);
            },
            [](Private::DocumentList *list) { Private::of(list)->clearRoots(); }};
}

// Properties

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
    d->childPropertyName = childProperty.toLatin1();
    const QPointer<TreeView> self(this);
    Q_EMIT childPropertyChanged();
    if (self) {
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

void TreeView::setActiveIndex(int index)
{
    if (index < -1 || index >= d->entries.count() || index == d->activeIndex) {
        return;
    }
    // Looked up now: in a rebuild this is the new list, with the old number.
    const QPointer<TreeViewEntry> oldEntry = d->entries.value(d->activeIndex);
    const QPointer<TreeViewEntry> newEntry = d->entries.value(index);
    d->activeIndex = index;
    const QPointer<TreeView> self(this);
    Q_EMIT activeIndexChanged();
    if (!self) {
        return;
    }
    Document *const document = newEntry ? newEntry->document() : nullptr;
    // A slot may have chosen another row meanwhile: what it chose stands.
    if (d->activeIndex == index && (document != d->activeDocument || d->activeDocumentLost)) {
        d->activeDocument = document;
        d->activeDocumentLost = false;
        Q_EMIT activeDocumentChanged();
    }
    // The new one first, deliberately.
    if (newEntry) {
        newEntry->announceActive();
    }
    if (oldEntry) {
        oldEntry->announceActive();
    }
}

Document *TreeView::activeDocument() const
{
    return d->activeDocument;
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

void TreeView::setBackgroundDelegate(QQmlComponent *delegate)
{
    if (d->backgroundDelegate == delegate) {
        return;
    }
    d->backgroundDelegate = delegate;
    Q_EMIT backgroundDelegateChanged();
}

QQmlComponent *TreeView::branchHandleDelegate() const
{
    return d->branchHandleDelegate;
}

void TreeView::setBranchHandleDelegate(QQmlComponent *delegate)
{
    if (d->branchHandleDelegate == delegate) {
        return;
    }
    d->branchHandleDelegate = delegate;
    Q_EMIT branchHandleDelegateChanged();
}

QQmlComponent *TreeView::component(int type) const
{
    switch (type) {
    case EntryComponent:
        return d->entryComponent;
    case DelegateComponent:
        return d->delegate;
    case BackgroundComponent:
        return d->backgroundDelegate;
    case BranchHandleComponent:
        return d->branchHandleDelegate;
    default:
        return nullptr;
    }
}

bool TreeView::rememberedCollapse(const Document *document) const
{
    return d->collapsedById.value(document->documentId(), false);
}

void TreeView::rememberCollapse(const Document *document, bool collapsed)
{
    d->collapsedById.insert(document->documentId(), collapsed);
}

// Construction

void TreeView::classBegin()
{
    if (QQmlEngine *const engine = qmlEngine(this)) {
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
    if (d->updateScheduled) {
        // A rebuild came due before there was anything to put rows into.
        QMetaObject::invokeMethod(this, "performScheduledUpdate", Qt::QueuedConnection);
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
    QObject *const object = contentComponent->create(qmlContext(q));
    contentItem = qobject_cast<QQuickItem *>(object);
    if (!contentItem) {
        delete object;
        return;
    }
    contentItem->setParent(q);
    contentItem->setParentItem(q);
    QObject::connect(contentItem, &QQuickItem::heightChanged, q, &TreeView::updateHeight);
}

void TreeView::updateHeight()
{
    if (d->contentItem) {
        setImplicitHeight(d->contentItem->height());
    }
}

// Rebuilding

void TreeView::scheduleUpdate()
{
    if (d->updateScheduled) {
        return;
    }
    d->updateScheduled = true;
    QMetaObject::invokeMethod(this, "performScheduledUpdate", Qt::QueuedConnection);
}

void TreeView::performScheduledUpdate()
{
    if (!d->updateScheduled || !d->componentComplete) {
        return;
    }
    const QPointer<TreeView> self(this);
    d->rebuild();
    // Cleared only now: each new entry asks for an update, and would queue the next rebuild
    // forever.
    if (self) {
        d->updateScheduled = false;
    }
}

void TreeView::Private::rebuild()
{
    const QPointer<TreeView> self(q);
    rebindContext();
    while (!entries.isEmpty()) {
        entries.takeLast()->deleteLater();
    }
    shownDocuments.clear();
    cycleFound = false;
    for (int i = 0; i < rootDocuments.count(); ++i) {
        addDocument(rootDocuments.at(i), 0, nullptr);
    }
    QQuickItem *predecessor = nullptr;
    for (TreeViewEntry *entry : qAsConst(entries)) {
        if (QQuickItem *const item = entry->item()) {
            item->setProperty("predecessor", QVariant::fromValue(predecessor));
            predecessor = item;
        }
    }
    q->setActiveIndex(q->indexOfDocument(activeDocument));
    if (!self) {
        return;
    }
    q->layoutItems();
    Q_EMIT q->indexRebuilt();
}

void TreeView::Private::rebindContext()
{
    Context *const current = rootDocuments.isEmpty() ? nullptr : rootDocuments.first()->context();
    if (current == context) {
        return;
    }
    if (context) {
        QObject::disconnect(context, nullptr, q, nullptr);
    }
    context = current;
    if (context) {
        qRegisterMetaType<Document *>("om::data::Document*");
        QObject::connect(context, &Context::documentChanged, q, &TreeView::handleDocumentChanged,
                         Qt::QueuedConnection);
    }
}

void TreeView::Private::addDocument(Document *document, int level, TreeViewEntry *parent)
{
    if (cycleFound) {
        return;
    }
    if (level >= maximumDepth) {
        cycleFound = true;
        qmlWarning(q) << "The documents nest deeper than " << maximumDepth
                      << " levels: a document seems to be its own descendant";
        return;
    }
    auto *const entry = new TreeViewEntry(q, document, entries.count(), level);
    entries.append(entry);
    shownDocuments.insert(document);
    watch(document, entry);
    if (QQuickItem *const item = entry->item()) {
        item->setProperty("treeParent", QVariant::fromValue(parent ? parent->item() : nullptr));
    }
    // The count is read again after each child: a row's completion may change the list.
    QQmlListReference children(document, childPropertyName.constData());
    for (int i = 0; i < children.count(); ++i) {
        if (auto *const child = qobject_cast<Document *>(children.at(i))) {
            addDocument(child, level + 1, entry);
        }
    }
}

void TreeView::layoutItems()
{
    for (TreeViewEntry *entry : qAsConst(d->entries)) {
        if (QQuickItem *const item = entry->item()) {
            QMetaObject::invokeMethod(item, "layoutRequired");
        }
    }
}

void TreeView::handleDocumentChanged(Document *doc)
{
    // The document may be gone by now; its address is only looked up.
    if (d->shownDocuments.contains(doc)) {
        scheduleUpdate();
    }
}

// Rows

int TreeView::indexAt(double x, double y)
{
    const QQuickItem *const child = d->contentItem ? d->contentItem->childAt(x, y) : nullptr;
    if (!child) {
        return -1;
    }
    for (int i = 0; i < d->entries.count(); ++i) {
        if (d->entries.at(i)->item() == child) {
            return i;
        }
    }
    return -1;
}

// The guards of the row-addressed operations below never hold; they are deliberately kept, and a
// row that does not exist is left to the list, which answers null for it.

Document *TreeView::documentAt(int index)
{
    if (index < 0 && index >= d->entries.count()) {
        return nullptr;
    }
    const TreeViewEntry *const entry = d->entries.value(index);
    Document *const document = entry ? entry->document() : nullptr;
    if (document && QQmlEngine::objectOwnership(document) == QQmlEngine::CppOwnership) {
        // Returned from an invokable, an object without parent would go to the garbage collector.
        QQmlEngine::setObjectOwnership(document, QQmlEngine::CppOwnership);
    }
    return document;
}

int TreeView::indexOfParent(int index)
{
    if (index < 0) {
        return -1;
    }
    const TreeViewEntry *const entry = d->entries.value(index);
    if (!entry) {
        return -1;
    }
    // Upwards through the numbers, deliberately.
    for (int i = qMax(0, index - 1); i < d->entries.count(); ++i) {
        if (d->entries.at(i)->level() < entry->level()) {
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
    for (int i = 0; i < d->entries.count(); ++i) {
        if (d->entries.at(i)->document() == document) {
            return i;
        }
    }
    return -1;
}

void TreeView::collapseIndex(int index)
{
    if (index < 0 && index >= d->entries.count()) {
        return;
    }
    if (TreeViewEntry *const entry = d->entries.value(index)) {
        entry->setCollapsed(true);
    }
}

void TreeView::expandIndex(int index)
{
    if (index < 0 && index >= d->entries.count()) {
        return;
    }
    if (TreeViewEntry *const entry = d->entries.value(index)) {
        entry->setCollapsed(false);
    }
}

void TreeView::toggleIndex(int index)
{
    if (index < 0 && index >= d->entries.count()) {
        return;
    }
    if (TreeViewEntry *const entry = d->entries.value(index)) {
        entry->setCollapsed(!entry->isCollapsed());
    }
}

QQuickItem *TreeView::currentEntry()
{
    if (d->activeIndex < 0) {
        return nullptr;
    }
    const TreeViewEntry *const entry = d->entries.value(d->activeIndex);
    return entry ? entry->item() : nullptr;
}

void TreeView::keyPressEvent(QKeyEvent *event)
{
    // No key goes on to the base class or to the parent: each counts as handled.
    if (event->key() == Qt::Key_F2) {
        Q_EMIT editRequested();
    }
}

} // namespace om::controls
