// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <OmbrelDataCore/Document.h>

#include <functional>

/// A document of the application's own that does something when the library asks it.
class HookedDocument : public om::data::Document
{
public:
    explicit HookedDocument(const char *id) { setDocumentId(QString::fromLatin1(id)); }

    QString documentId() const override
    {
        // A copy: the hook may destroy the document.
        const QString id = Document::documentId();
        call(whenAskedForId);
        return id;
    }
    bool hasType(const QString &type) const override
    {
        const bool has = Document::hasType(type);
        call(whenAskedForType);
        return has;
    }

    std::function<void()> whenAskedForId;
    std::function<void()> whenAskedForType;

private:
    static void call(const std::function<void()> &hook)
    {
        if (const auto copy = hook) {
            copy();
        }
    }
};
