// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/random/Scene.h"

#include <QQmlContext>
#include <QQmlExpression>
#include <QQuickItem>
#include <QTest>

Scene::Scene()
    : m_engine(std::make_unique<QQmlEngine>())
    , m_all(std::make_unique<QQmlPropertyMap>())
{
    m_engine->rootContext()->setContextProperty(QStringLiteral("scene"), this);
    m_engine->rootContext()->setContextProperty(QStringLiteral("all"), m_all.get());
    for (int index = 0; index < 2; ++index) {
        m_windows[index] = std::make_unique<QQuickWindow>();
        QQuickWindow *const window = m_windows[index].get();
        window->setFlag(Qt::FramelessWindowHint);
        window->setGeometry(20 + 520 * index, 20, 480, 360);
        window->show();
        if (!QTest::qWaitForWindowExposed(window)) {
            qFatal("The window is not shown");
        }
    }
    m_windows[0]->requestActivate();
}

Scene::~Scene() = default;

QQuickItem *Scene::item(const QString &name) const
{
    return qobject_cast<QQuickItem *>(object(name));
}

QVector<QObject *> Scene::objects() const
{
    QVector<QObject *> living;
    for (const QPointer<QObject> &object : m_named) {
        if (object) {
            living.append(object);
        }
    }
    return living;
}

bool Scene::make(const QByteArray &document, QObject *parent)
{
    m_components.push_back(std::make_unique<QQmlComponent>(m_engine.get()));
    QQmlComponent *const component = m_components.back().get();
    component->setData(document, QUrl());
    QPointer<QObject> root = component->beginCreate(m_engine->rootContext());
    if (!root) {
        qCritical("%s", qPrintable(component->errorString()));
        return false;
    }
    m_roots.emplace_back(root);
    if (auto *const item = qobject_cast<QQuickItem *>(root)) {
        auto *const place = qobject_cast<QQuickItem *>(parent);
        item->setParentItem(place ? place : m_windows[0]->contentItem());
    }
    component->completeCreate();
    return true;
}

void Scene::evaluate(const QString &expression)
{
    QQmlExpression(m_engine->rootContext(), this, expression).evaluate();
}

void Scene::destroyRoots()
{
    const auto roots = std::move(m_roots);
    m_roots.clear();
    for (const QPointer<QObject> &root : roots) {
        delete root;
    }
}

void Scene::reload(const QByteArray &again)
{
    destroyRoots();
    m_engine->clearComponentCache();
    m_engine->trimComponentCache();
    if (!again.isEmpty()) {
        make(again, nullptr);
    }
}

void Scene::note(const QString &name, QObject *object)
{
    m_named.insert(name, object);
    m_all->insert(name, QVariant::fromValue(object));
    connect(object, &QObject::destroyed, m_all.get(), [this, name, object] {
        if (m_all->value(name).value<QObject *>() == object) {
            m_all->insert(name, QVariant::fromValue<QObject *>(nullptr));
        }
    });
}

bool Scene::enter()
{
    const bool allowed = m_handlers < 5;
    m_handlers += allowed;
    return allowed;
}

void Scene::tearDown(int order)
{
    // The engine goes last: bindings between objects that JavaScript owns do not survive its end,
    // whosever the objects are.
    if (order & 1) {
        for (auto &window : m_windows) {
            window.reset();
        }
    }
    destroyRoots();
    m_components.clear();
    for (auto &window : m_windows) {
        window.reset();
    }
    m_engine.reset();
    m_all.reset();
}
