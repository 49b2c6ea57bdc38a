// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include <OmbrelDataCore/Document.h>

#include <QHash>
#include <QPair>
#include <QPointer>
#include <QSet>
#include <QVector>

#include <limits>
#include <vector>

namespace om::data {

class Document::Private
{
public:
    explicit Private(Document *document)
        : q(document)
    {
    }

    QList<Document *> loadedChildren();
    bool isAncestorOrSelf(const Document *document) const;
    void take(Document *child);
    void adopt(Document *child, int index);
    void own(Document *child);
    void clearChildren();
    void emitChildrenChanged();

    using Documents = std::vector<QPointer<Document>>;
    using Contexts = QHash<Document *, Context *>;
    static void addContexts(const Documents &documents, Contexts *contexts);

    /// What a new list of children changes beside the list.
    struct Relinked
    {
        /// The documents that have come or gone, and the context that each had before.
        QVector<QPair<QPointer<Document>, Context *>> moved;
        /// The documents that children were taken from.
        QVector<QPointer<Document>> robbed;
    };
    QList<Document *> usable(const Documents &documents) const;
    Relinked relink(const QList<Document *> &newChildren, const Contexts &contexts);

    static void emitContextChanged(Document *top);
    static void emitContextChangedIfNot(Context *before, Document *top);

    QQmlListProperty<Document> listProperty();
    static Document *ownerOf(const QQmlListProperty<Document> *list);
    static void append(QQmlListProperty<Document> *list, Document *child);
    static int count(QQmlListProperty<Document> *list);
    static Document *at(QQmlListProperty<Document> *list, int index);
    static void clear(QQmlListProperty<Document> *list);

    Document *const q;
    QString documentId;
    QString name;
    QStringList types;
    QUrl url;
    QPointer<Context> ownContext;
    QMetaObject::Connection ownContextDestroyed;
    Document *parentDocument = nullptr;
    QList<Document *> children;
    bool childrenLoaded = false;
    /// The document's number among those that have been asked for their list; 0 before.
    quintptr listNumber = 0;
};

namespace {

/// The documents that have been asked for their list, by numbers that are never given again. Never
/// destroyed: the last document may go with the static objects of the application.
QHash<quintptr, Document *> &listOwners()
{
    static auto *const owners = new QHash<quintptr, Document *>;
    return *owners;
}

} // namespace

// loadChildren() and context() are the application's code, which may destroy documents, this one
// too, and change lists: after a call guards tell what still lives, and lists are read anew.

// Empty when the document has been destroyed.
QList<Document *> Document::Private::loadedChildren()
{
    if (!childrenLoaded) {
        childrenLoaded = true;
        const QPointer<Document> alive(q);
        const QList<Document *> loaded = q->loadChildren();
        if (!alive) {
            return {};
        }
        for (Document *child : loaded) {
            const bool usable = child && !child->d->parentDocument && !isAncestorOrSelf(child);
            if (usable) {
                adopt(child, children.size());
            }
        }
    }
    return children;
}

bool Document::Private::isAncestorOrSelf(const Document *document) const
{
    const Document *ancestor = q;
    while (ancestor && ancestor != document) {
        ancestor = ancestor->d->parentDocument;
    }
    return ancestor;
}

void Document::Private::take(Document *child)
{
    children.removeOne(child);
    child->d->parentDocument = nullptr;
}

void Document::Private::adopt(Document *child, int index)
{
    children.insert(index, child);
    own(child);
}

// Takes the ownership of `child`, which is in the list already.
void Document::Private::own(Document *child)
{
    child->d->parentDocument = q;

    if (child->parent() && !qobject_cast<Document *>(child->parent())) {
        return;
    }
    // The lists have no cycles, but the child may be a QObject ancestor of this document without
    // having it in its list: then this document cannot own the child.
    for (const QObject *owner = q; owner; owner = owner->parent()) {
        if (owner == child) {
            return;
        }
    }
    child->setParent(q);
}

// Those of `documents` that can be children of this one, each once.
QList<Document *> Document::Private::usable(const Documents &documents) const
{
    QList<Document *> usable;
    QSet<Document *> seen;
    for (Document *document : documents) {
        if (document && !seen.contains(document) && !isAncestorOrSelf(document)) {
            seen.insert(document);
            usable.append(document);
        }
    }
    return usable;
}

// Makes `newChildren` the children, with all links between the documents that this concerns. Emits
// nothing.
Document::Private::Relinked Document::Private::relink(const QList<Document *> &newChildren,
                                                      const Contexts &contexts)
{
    Relinked changed;
    QSet<Document *> kept;
    for (Document *child : newChildren) {
        kept.insert(child);
    }
    const QList<Document *> before = children;
    for (Document *child : before) {
        if (kept.contains(child)) {
            continue;
        }
        changed.moved.append({child, contexts.value(child)});
        child->d->parentDocument = nullptr;
        if (child->parent() == q) {
            child->setParent(nullptr);
        }
    }
    for (Document *child : newChildren) {
        Document *const oldParent = child->d->parentDocument;
        if (oldParent == q) {
            continue;
        }
        changed.moved.append({child, contexts.value(child)});
        if (oldParent) {
            oldParent->d->take(child);
            if (!changed.robbed.contains(oldParent)) {
                changed.robbed.append(oldParent);
            }
        }
        own(child);
    }
    children = newChildren;
    return changed;
}

void Document::Private::clearChildren()
{
    const QPointer<Document> self(q);
    const QList<Document *> loaded = loadedChildren();
    Contexts before;
    addContexts(Documents(loaded.cbegin(), loaded.cend()), &before);
    if (!self || children.isEmpty()) {
        return;
    }

    const Documents taken(children.cbegin(), children.cend());
    children.clear();
    for (const QPointer<Document> &child : taken) {
        child->d->parentDocument = nullptr;
    }

    emitChildrenChanged();
    for (const QPointer<Document> &child : taken) {
        if (child) {
            emitContextChangedIfNot(before.value(child), child);
        }
    }
}

// Asks each of the documents that still lives by then for its context.
void Document::Private::addContexts(const Documents &documents, Contexts *contexts)
{
    for (const QPointer<Document> &document : documents) {
        if (document) {
            Document *const key = document;
            Context *const context = document->context();
            contexts->insert(key, context);
        }
    }
}

void Document::Private::emitChildrenChanged()
{
    const QPointer<Document> self(q);
    Q_EMIT q->childrenChanged();
    if (self) {
        q->notifyContext();
    }
}

// Emits contextChanged() of `top` and of each descendant that inherits its context. The documents
// are collected before the first signal, as a slot may change the tree.
void Document::Private::emitContextChanged(Document *top)
{
    QVector<QPointer<Document>> changed{top};
    for (int i = 0; i < changed.size(); ++i) {
        const QList<Document *> children = changed.at(i)->d->children;
        for (Document *child : children) {
            if (!child->d->ownContext) {
                changed.append(child);
            }
        }
    }
    for (const QPointer<Document> &document : qAsConst(changed)) {
        if (document) {
            Q_EMIT document->contextChanged();
        }
    }
}

void Document::Private::emitContextChangedIfNot(Context *before, Document *top)
{
    const QPointer<Document> alive(top);
    const bool isAnother = top->context() != before;
    if (alive && isAnother) {
        emitContextChanged(top);
    }
}

QQmlListProperty<Document> Document::Private::listProperty()
{
    static quintptr lastNumber = 0;
    if (listNumber == 0) {
        listNumber = ++lastNumber;
        listOwners().insert(listNumber, q);
    }
    return {q, reinterpret_cast<void *>(listNumber), &append, &count, &at, &clear};
}

// The document whose list it is; null once that is destroyed. QML reads and writes a list that it
// keeps without asking whether the owner is still there, so the list holds no pointer but a number.
Document *Document::Private::ownerOf(const QQmlListProperty<Document> *list)
{
    return listOwners().value(reinterpret_cast<quintptr>(list->data));
}

void Document::Private::append(QQmlListProperty<Document> *list, Document *child)
{
    // The engine does not check the type of what a script pushes into a list property.
    auto *const document = qobject_cast<Document *>(static_cast<QObject *>(child));
    if (Document *const owner = ownerOf(list)) {
        owner->appendChild(document);
    }
}

int Document::Private::count(QQmlListProperty<Document> *list)
{
    Document *const owner = ownerOf(list);
    return owner ? owner->d->loadedChildren().size() : 0;
}

Document *Document::Private::at(QQmlListProperty<Document> *list, int index)
{
    Document *const owner = ownerOf(list);
    return owner ? owner->d->loadedChildren().value(index) : nullptr;
}

void Document::Private::clear(QQmlListProperty<Document> *list)
{
    if (Document *const owner = ownerOf(list)) {
        owner->d->clearChildren();
    }
}

Document::Document(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>(this))
{
}

Document::~Document()
{
    // All links are cut before the first signal. Children that this document owns are destroyed
    // with it and emit no contextChanged().
    Context *const inherited = Document::context();
    QVector<QPointer<Document>> survivors;
    for (Document *child : qAsConst(d->children)) {
        child->d->parentDocument = nullptr;
        if (child->parent() != this && !child->d->ownContext) {
            survivors.append(child);
        }
    }
    d->children.clear();
    d->childrenLoaded = true;

    const QPointer<Document> parentDocument = d->parentDocument;
    if (parentDocument) {
        parentDocument->d->take(this);
        parentDocument->d->emitChildrenChanged();
    }
    if (inherited) {
        for (const QPointer<Document> &survivor : qAsConst(survivors)) {
            if (survivor) {
                Private::emitContextChanged(survivor);
            }
        }
    }
    // A slot of destroyed() may destroy the context, when this is no document any more.
    disconnect(d->ownContextDestroyed);
    // Not for what no QML has seen: that may live on another thread.
    if (d->listNumber != 0) {
        listOwners().remove(d->listNumber);
    }
}

QString Document::documentId() const
{
    return d->documentId;
}

void Document::setDocumentId(const QString &documentId)
{
    // QString's operator== takes null and empty as equal; a null identifier means "none".
    if (d->documentId == documentId && d->documentId.isNull() == documentId.isNull()) {
        return;
    }
    d->documentId = documentId;
    const QPointer<Document> self(this);
    Q_EMIT documentIdChanged();
    if (self) {
        notifyContext();
    }
}

QString Document::name() const
{
    return d->name;
}

void Document::setName(const QString &name)
{
    if (d->name == name) {
        return;
    }
    d->name = name;
    const QPointer<Document> self(this);
    Q_EMIT nameChanged();
    if (self) {
        notifyContext();
    }
}

QStringList Document::types() const
{
    return d->types;
}

void Document::setTypes(const QStringList &types)
{
    if (d->types == types) {
        return;
    }
    d->types = types;
    const QPointer<Document> self(this);
    Q_EMIT typesChanged();
    if (self) {
        notifyContext();
    }
}

QUrl Document::url() const
{
    return d->url;
}

void Document::setUrl(const QUrl &url)
{
    if (d->url == url) {
        return;
    }
    d->url = url;
    const QPointer<Document> self(this);
    Q_EMIT urlChanged();
    if (self) {
        notifyContext();
    }
}

Context *Document::context() const
{
    if (d->ownContext) {
        return d->ownContext;
    }
    return d->parentDocument ? d->parentDocument->context() : nullptr;
}

void Document::setContext(Context *newContext)
{
    if (d->ownContext == newContext) {
        return;
    }
    const QPointer<Document> self(this);
    const QPointer<Context> next(newContext);
    Context *const before = context();
    if (!self || next != newContext) {
        return;
    }
    disconnect(d->ownContextDestroyed);
    d->ownContext = newContext;
    if (newContext) {
        // The QPointer has become null, so context() has changed without a call of setContext().
        d->ownContextDestroyed =
            connect(newContext, &QObject::destroyed, this, [this] { d->emitContextChanged(this); });
    }
    Private::emitContextChangedIfNot(before, this);
}

void Document::resetContext()
{
    setContext(nullptr);
}

QQmlListProperty<Document> Document::childrenProperty()
{
    return d->listProperty();
}

QList<Document *> Document::childDocuments() const
{
    return d->loadedChildren();
}

void Document::setChildDocuments(const QList<Document *> &children)
{
    const QPointer<Document> self(this);
    const Private::Documents wanted(children.cbegin(), children.cend());
    const QList<Document *> loaded = d->loadedChildren();
    Private::Contexts contexts;
    Private::addContexts(Private::Documents(loaded.cbegin(), loaded.cend()), &contexts);
    Private::addContexts(wanted, &contexts);
    if (!self) {
        return;
    }

    const QList<Document *> newChildren = d->usable(wanted);
    if (d->children == newChildren) {
        return;
    }
    // All links are set before the first signal.
    const Private::Relinked changed = d->relink(newChildren, contexts);
    for (const QPointer<Document> &oldParent : changed.robbed) {
        if (oldParent) {
            oldParent->d->emitChildrenChanged();
        }
    }
    if (self) {
        d->emitChildrenChanged();
    }
    for (const auto &moved : changed.moved) {
        if (moved.first) {
            Private::emitContextChangedIfNot(moved.second, moved.first);
        }
    }
}

Document *Document::parentDocument() const
{
    return d->parentDocument;
}

bool Document::insertChild(int index, Document *child)
{
    const QPointer<Document> self(this);
    const QPointer<Document> inserted(child);
    d->loadedChildren();
    Context *const before = self && inserted ? child->context() : nullptr;
    if (!self || !inserted || d->isAncestorOrSelf(child)) {
        return false;
    }

    const QList<Document *> &children = d->children;
    const QPointer<Document> oldParent = child->d->parentDocument;
    if (oldParent == this) {
        const int from = children.indexOf(child);
        const int to = qBound(0, index, children.size() - 1);
        if (from != to) {
            d->children.move(from, to);
            d->emitChildrenChanged();
        }
        return true;
    }

    if (oldParent) {
        oldParent->d->take(child);
    }
    d->adopt(child, qBound(0, index, children.size()));

    if (oldParent) {
        oldParent->d->emitChildrenChanged();
    }
    if (self) {
        d->emitChildrenChanged();
    }
    if (inserted) {
        Private::emitContextChangedIfNot(before, inserted);
    }
    return true;
}

bool Document::appendChild(Document *child)
{
    return insertChild(std::numeric_limits<int>::max(), child);
}

bool Document::removeChild(Document *child)
{
    const QPointer<Document> self(this);
    const QPointer<Document> removed(child);
    if (!child || !d->loadedChildren().contains(child)) {
        return false;
    }
    Context *const before = child->context();
    if (!self || !removed || !d->children.contains(child)) {
        return false;
    }

    d->take(child);
    if (child->parent() == this) {
        child->setParent(nullptr);
    }

    d->emitChildrenChanged();
    if (removed) {
        Private::emitContextChangedIfNot(before, removed);
    }
    return true;
}

bool Document::hasType(const QString &type) const
{
    return d->types.contains(type);
}

QList<Document *> Document::loadChildren()
{
    return {};
}

void Document::notifyContext()
{
    const QPointer<Document> alive(this);
    Context *const affected = context();
    if (alive && affected) {
        Q_EMIT affected->documentChanged(this);
    }
}

} // namespace om::data
