// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/QmlView.h"

#include <OmbrelDataCore/Document.h>

#include <QCoreApplication>
#include <QEvent>
#include <QQmlContext>
#include <QQmlListReference>
#include <QSignalSpy>

#include <memory>

/// A tree in a window, with documents made by the test.
///
///     a
///       b
///         c
///       d
///     e
class TreeFixture
{
public:
    using Document = om::data::Document;

    /// A document of the tests, "data/case.qml", and what it knows as "destroyer", if anything.
    struct File
    {
        const char *path;
        QObject *destroyer = nullptr;
    };

    TreeFixture()
        : TreeFixture(plain())
    {
    }
    explicit TreeFixture(const QByteArray &qml)
    {
        view.load(qml);
        tree = view.item("tree");
        Q_ASSERT(tree);
        rebuilt = std::make_unique<QSignalSpy>(tree, SIGNAL(indexRebuilt()));
    }
    explicit TreeFixture(const File &file)
    {
        view.engine()->rootContext()->setContextProperty(QStringLiteral("destroyer"),
                                                         file.destroyer);
        view.loadFile(QString::fromLatin1(file.path));
        tree = view.item("tree");
        Q_ASSERT(tree);
        rebuilt = std::make_unique<QSignalSpy>(tree, SIGNAL(indexRebuilt()));
    }
    ~TreeFixture()
    {
        view.close();
        rebuilt.reset();
    }

    static QByteArray plain(const QByteArray &more = {})
    {
        return "TreeView { id: tree; objectName: 'tree'; width: 300; childProperty: 'children'\n"
               "delegate: Item { height: 30; property bool active: TreeView.isActiveItem } "
            + more + "}";
    }

    /// Runs the pending rebuild, and the deletion of the old rows.
    static void settle()
    {
        // Twice: an event that a context has queued asks for a rebuild.
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void fill()
    {
        a = make("a");
        b = make("b", a);
        c = make("c", b);
        d = make("d", a);
        e = make("e");
        append(a);
        append(e);
        settle();
        rebuilt->clear();
    }
    Document *make(const char *id, Document *parent = nullptr)
    {
        auto *document = new Document(parent ? nullptr : &owner);
        document->setDocumentId(QString::fromLatin1(id));
        document->setName(QString::fromLatin1(id));
        if (parent) {
            parent->appendChild(document);
        }
        return document;
    }
    void append(Document *document) { roots().append(document); }
    QQmlListReference roots() const { return QQmlListReference(tree, "rootDocuments"); }

    QQuickItem *content() const { return tree->property("contentItem").value<QQuickItem *>(); }
    QList<QQuickItem *> rows() const
    {
        QList<QQuickItem *> found;
        const auto children = content()->childItems();
        for (QQuickItem *child : children) {
            if (child->property("displayHeight").isValid()) {
                found.append(child);
            }
        }
        return found;
    }
    QQuickItem *row(int index) const { return rows().value(index); }
    QString shown() const
    {
        QStringList names;
        const auto all = rows();
        for (QQuickItem *item : all) {
            const QString name =
                support::evaluate(item, QStringLiteral("document.name")).toString();
            const int level = support::evaluate(item, QStringLiteral("level")).toInt();
            names.append(QString(level, QLatin1Char('.')) + name);
        }
        return names.join(QLatin1Char(' '));
    }
    /// The rows' tops and heights: "0+30 30+0".
    QString places() const
    {
        QStringList texts;
        const auto all = rows();
        for (const QQuickItem *item : all) {
            texts.append(QStringLiteral("%1+%2").arg(item->y()).arg(item->height()));
        }
        return texts.join(QLatin1Char(' '));
    }
    /// The row's context object, as its delegates see it.
    QObject *entry(int index) const
    {
        return qmlContext(row(index))->parentContext()->contextObject();
    }
    QVariant call(const QString &expression) const { return support::evaluate(tree, expression); }
    int activeIndex() const { return tree->property("activeIndex").toInt(); }
    Document *activeDocument() const
    {
        return tree->property("activeDocument").value<om::data::Document *>();
    }

    QObject owner;
    support::QmlView view;
    QQuickItem *tree = nullptr;
    std::unique_ptr<QSignalSpy> rebuilt;
    Document *a = nullptr;
    Document *b = nullptr;
    Document *c = nullptr;
    Document *d = nullptr;
    Document *e = nullptr;
};
