// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <OmbrelDataCore/Document.h>

/// A document of an application's own, with a child list of its own besides: it tells each time
/// that it is asked for something.
class AskedDocument : public om::data::Document
{
    Q_OBJECT
    Q_PROPERTY(QQmlListProperty<om::data::Document> listed READ listed NOTIFY listedChanged)

public:
    explicit AskedDocument(QObject *parent = nullptr);

    QString documentId() const override;
    bool hasType(const QString &type) const override;
    om::data::Context *context() const override;
    QQmlListProperty<om::data::Document> listed();

Q_SIGNALS:
    void listedChanged();

protected:
    QList<Document *> loadChildren() override;

private:
    static void append(QQmlListProperty<Document> *list, Document *document);
    static int count(QQmlListProperty<Document> *list);
    static Document *at(QQmlListProperty<Document> *list, int index);
    static void clear(QQmlListProperty<Document> *list);

    QList<Document *> m_listed;
};
