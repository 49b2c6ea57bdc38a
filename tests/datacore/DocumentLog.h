// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <OmbrelDataCore/Context.h>
#include <OmbrelDataCore/Document.h>

#include <QObject>
#include <QStringList>

/// Notes the change signals of documents as "name.signal" and documentChanged() of contexts as
/// "context(name)", in their order.
class DocumentLog : public QObject
{
public:
    void watch(om::data::Document *document)
    {
        const auto note = [this, document](const char *signal) {
            return [this, document, signal] {
                entries.append(document->objectName() + '.' + QLatin1String(signal));
            };
        };
        connect(document, &om::data::Document::documentIdChanged, this, note("documentId"));
        connect(document, &om::data::Document::nameChanged, this, note("name"));
        connect(document, &om::data::Document::typesChanged, this, note("types"));
        connect(document, &om::data::Document::urlChanged, this, note("url"));
        connect(document, &om::data::Document::contextChanged, this, note("context"));
        connect(document, &om::data::Document::childrenChanged, this, note("children"));
    }

    void watch(om::data::Context *context)
    {
        connect(context, &om::data::Context::documentChanged, this,
                [this, context](om::data::Document *document) {
                    entries.append(context->objectName() + '(' + document->objectName() + ')');
                });
    }

    QStringList take()
    {
        QStringList taken;
        taken.swap(entries);
        return taken;
    }

private:
    QStringList entries;
};

/// A document whose object name is its name in a DocumentLog.
class NamedDocument : public om::data::Document
{
public:
    explicit NamedDocument(const char *name, DocumentLog *log = nullptr, QObject *parent = nullptr)
        : om::data::Document(parent)
    {
        setObjectName(QLatin1String(name));
        if (log) {
            log->watch(this);
        }
    }
};
