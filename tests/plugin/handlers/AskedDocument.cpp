// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/plugin/handlers/AskedDocument.h"

#include "tests/plugin/handlers/Moment.h"

#include <QPointer>

using om::data::Context;
using om::data::Document;

// Each answer is found before the moment, which may destroy the document.

static void tellOf(const QObject *document, const char *moment)
{
    tell({const_cast<QObject *>(document), QString::fromLatin1(moment), false});
}

AskedDocument::AskedDocument(QObject *parent)
    : Document(parent)
{
}

QString AskedDocument::documentId() const
{
    const QString answer = Document::documentId();
    tellOf(this, "documentId");
    return answer;
}

bool AskedDocument::hasType(const QString &type) const
{
    const bool answer = Document::hasType(type);
    tellOf(this, "hasType");
    return answer;
}

Context *AskedDocument::context() const
{
    // The parent document is asked for its own first, and may destroy this one.
    const QPointer<const AskedDocument> alive(this);
    const QPointer<Context> answer = Document::context();
    if (alive) {
        tellOf(this, "context");
    }
    return answer;
}

QList<Document *> AskedDocument::loadChildren()
{
    tellOf(this, "loadChildren");
    return {};
}

QQmlListProperty<Document> AskedDocument::listed()
{
    return {this, nullptr, &append, &count, &at, &clear};
}

void AskedDocument::append(QQmlListProperty<Document> *list, Document *document)
{
    auto *const self = static_cast<AskedDocument *>(list->object);
    self->m_listed.append(document);
    connect(document, &QObject::destroyed, self,
            [self, document] { self->m_listed.removeAll(document); });
    const QPointer<AskedDocument> alive(self);
    tellOf(self, "list append");
    if (alive) {
        Q_EMIT self->listedChanged();
    }
}

int AskedDocument::count(QQmlListProperty<Document> *list)
{
    const auto *const self = static_cast<AskedDocument *>(list->object);
    const int answer = self->m_listed.size();
    tellOf(self, "list count");
    return answer;
}

Document *AskedDocument::at(QQmlListProperty<Document> *list, int index)
{
    const auto *const self = static_cast<AskedDocument *>(list->object);
    const QPointer<Document> answer = self->m_listed.value(index);
    tellOf(self, "list at");
    return answer;
}

void AskedDocument::clear(QQmlListProperty<Document> *list)
{
    auto *const self = static_cast<AskedDocument *>(list->object);
    self->m_listed.clear();
    const QPointer<AskedDocument> alive(self);
    tellOf(self, "list clear");
    if (alive) {
        Q_EMIT self->listedChanged();
    }
}
