// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQmlPropertyMap>
#include <QQuickWindow>

#include <memory>
#include <vector>

/// Two windows, an engine, and objects with names: the steps speak of them by name, and so do the
/// bindings of documents ("all.o3", null once it has gone).
class Scene : public QObject
{
    Q_OBJECT

public:
    Scene();
    ~Scene() override;

    /// Makes the objects of \a document; an item goes into \a parent, or else into a window. What
    /// is wrong with the document is said, and then there is nothing; returns whether there is
    /// something.
    bool make(const QByteArray &document, QObject *parent);
    /// Evaluates an expression with the names; what goes wrong in it is silent, for values of wrong
    /// types are among what is tried.
    void evaluate(const QString &expression);
    /// Destroys all documents and makes the last one that was made \a again.
    void reload(const QByteArray &again);

    /// Called from documents: \a object has this name.
    Q_INVOKABLE void note(const QString &name, QObject *object);
    /// Called from documents: whether a handler may run, which is not so from within five others.
    /// One that may calls leave() at its end.
    Q_INVOKABLE bool enter();
    Q_INVOKABLE void leave() { --m_handlers; }

    QObject *object(const QString &name) const { return m_named.value(name); }
    QQuickItem *item(const QString &name) const;
    /// All that live and have a name.
    QVector<QObject *> objects() const;
    QQuickWindow *window(int index) const { return m_windows[index & 1].get(); }
    QQmlEngine *engine() { return m_engine.get(); }

    /// Ends everything; an odd \a order destroys the windows before the objects.
    void tearDown(int order);

private:
    void destroyRoots();

    std::unique_ptr<QQmlEngine> m_engine;
    std::unique_ptr<QQmlPropertyMap> m_all;
    std::unique_ptr<QQuickWindow> m_windows[2];
    std::vector<QPointer<QObject>> m_roots;
    std::vector<std::unique_ptr<QQmlComponent>> m_components;
    QHash<QString, QPointer<QObject>> m_named;
    int m_handlers = 0;
};
