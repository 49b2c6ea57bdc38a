// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <OmbrelDataCore/Context.h>
#include <OmbrelDataCore/Export.h>

#include <QList>
#include <QObject>
#include <QQmlListProperty>
#include <QStringList>
#include <QUrl>

#include <memory>

namespace om::data {

/// A piece of the user's content: an identifier, a name, types, a place it is stored at, and an
/// ordered list of child documents.
///
/// A document is the child of at most one document, and never of itself or of one of its own
/// descendants. Inserting it elsewhere takes it from its old place first. A destroyed document
/// leaves its parent document's list.
///
/// Ownership is QObject ownership. A document that is put into another's list gets it as its
/// QObject parent when it had none, or when its QObject parent was a document too; a document that
/// belongs to anything else stays with that owner.
class OMBREL_DATACORE_EXPORT Document : public QObject
{
    Q_OBJECT
    /// Identifies the document to the application. A null string until it is set.
    Q_PROPERTY(QString documentId READ documentId WRITE setDocumentId NOTIFY documentIdChanged)
    /// The name to show. Empty until it is set.
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)
    /// The document's types, the texts that `hasType` looks for. Empty until they are set.
    Q_PROPERTY(QStringList types READ types WRITE setTypes NOTIFY typesChanged)
    /// Where the content is. Empty until it is set.
    Q_PROPERTY(QUrl url READ url WRITE setUrl NOTIFY urlChanged)
    /// The context that the document is in; see `context()`.
    Q_PROPERTY(om::data::Context *context READ context WRITE setContext RESET resetContext NOTIFY
                   contextChanged)
    /// The child documents in their order; the default property. Null elements are ignored, refused
    /// ones (see `insertChild`) too. Clearing the list leaves the documents alive and with the
    /// QObject parent they have.
    Q_PROPERTY(
        QQmlListProperty<om::data::Document> children READ childrenProperty NOTIFY childrenChanged)
    Q_CLASSINFO("DefaultProperty", "children")

public:
    explicit Document(QObject *parent = nullptr);
    ~Document() override;

    virtual QString documentId() const;
    /// Null and empty are two values: setting "" on a document without an identifier is a change.
    void setDocumentId(const QString &documentId);

    QString name() const;
    void setName(const QString &name);

    QStringList types() const;
    void setTypes(const QStringList &types);

    QUrl url() const;
    void setUrl(const QUrl &url);

    /// The context set on this document, or else the context of its parent document; null when
    /// there is neither. A context that is destroyed counts as never set.
    virtual om::data::Context *context() const;
    /// Gives the document a context of its own, not owned. With null it is back to its parent
    /// document's.
    void setContext(om::data::Context *context);
    void resetContext();

    QQmlListProperty<om::data::Document> childrenProperty();

    /// The child documents in their order.
    QList<Document *> childDocuments() const;
    /// Makes `children` the child documents, with one `childrenChanged()` for all that comes, goes
    /// and moves. Null, what `insertChild` refuses, and second mentions are left out. Documents
    /// that are taken out are handed over as `removeChild` does.
    void setChildDocuments(const QList<om::data::Document *> &children);
    /// The document in whose child list this one is, or null. Not a property.
    Document *parentDocument() const;

    /// Puts `child` at `index` of the child list, counted without `child` itself and clamped to 0 …
    /// number of children. Returns whether `child` is then in the list: null, this document and its
    /// ancestors are refused, and nothing happens.
    bool insertChild(int index, om::data::Document *child);
    /// Puts `child` at the end of the child list, as `insertChild` does.
    bool appendChild(om::data::Document *child);
    /// Takes `child` out of the child list. If this document owned it, it is then without a QObject
    /// parent, and the caller owns it. Does nothing and returns false when it is not in the list.
    bool removeChild(om::data::Document *child);

    /// Whether `types` contains `type`: the whole text, capitals and small letters told apart.
    Q_INVOKABLE virtual bool hasType(const QString &type) const;

Q_SIGNALS:
    void documentIdChanged();
    void nameChanged();
    void typesChanged();
    void urlChanged();
    /// The answer of `context()` has changed, through this document or through an ancestor.
    void contextChanged();
    void childrenChanged();

protected:
    /// Makes the first children, for documents whose children are costly to find. Called once, when
    /// the child list is read or changed for the first time; no signal is emitted, as nothing has
    /// read the list before. The default makes none.
    virtual QList<Document *> loadChildren();

    /// Has the context emit documentChanged() for this document. For subclasses, after the change
    /// signal of a property of their own.
    void notifyContext();

private:
    // Of an exported class, but nobody's to call.
    class Q_DECL_HIDDEN Private;
    const std::unique_ptr<Private> d;
};

} // namespace om::data
