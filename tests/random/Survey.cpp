// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/random/Survey.h"

#include "tests/random/Scene.h"

#include <QCoreApplication>
#include <QJSValue>
#include <QMetaProperty>
#include <QQmlListReference>
#include <QQuickItem>
#include <QSet>

namespace {

class Surveyor
{
public:
    /// Counts what is in the \a scene.
    explicit Surveyor(const Scene &scene);

    QJsonObject found() const;

private:
    void lookAtTree(QObject *tree);
    void lookAtLists(QObject *owner);
    void lookAtKept(QQuickItem *keeper);

    int m_trees = 0;
    int m_nested = 0;
    QHash<QString, int> m_lists;
    int m_shared = 0;
    int m_kept = 0;
    /// Of each object in a list.
    QHash<QObject *, QSet<QObject *>> m_owners;
};

Surveyor::Surveyor(const Scene &scene)
{
    const auto objects = scene.objects();
    for (QObject *object : objects) {
        if (object->inherits("om::controls::TreeView")) {
            lookAtTree(object);
        }
        lookAtLists(object);
        if (auto *const item = qobject_cast<QQuickItem *>(object)) {
            lookAtKept(item);
        }
    }
    for (const QSet<QObject *> &owners : qAsConst(m_owners)) {
        m_shared += owners.size() > 1;
    }
}

void Surveyor::lookAtTree(QObject *tree)
{
    ++m_trees;
    int parent = -1;
    // The second row is the first that can be below another one; a root has no parent.
    for (int index = 1; parent < 0 && index < 20; ++index) {
        QMetaObject::invokeMethod(tree, "indexOfParent", Q_RETURN_ARG(int, parent),
                                  Q_ARG(int, index));
    }
    m_nested += parent >= 0;
}

void Surveyor::lookAtLists(QObject *owner)
{
    const QMetaObject *const meta = owner->metaObject();
    for (int i = 0; i < meta->propertyCount(); ++i) {
        const QMetaProperty property = meta->property(i);
        if (!QByteArray(property.typeName()).startsWith("QQmlListProperty<om::")) {
            continue;
        }
        const QQmlListReference list(owner, property.name());
        for (int index = 0; index < list.count(); ++index) {
            if (list.at(index)) {
                m_owners[list.at(index)].insert(owner);
            }
        }
        if (list.count() > 0) {
            const QString type =
                QString::fromLatin1(meta->className()).section(QLatin1Char(':'), -1);
            ++m_lists[type.section(QLatin1String("_QML"), 0, 0) + QLatin1Char('.')
                      + QLatin1String(property.name())];
        }
    }
}

void Surveyor::lookAtKept(QQuickItem *keeper)
{
    const auto kept = keeper->property("kept").value<QJSValue>();
    const quint32 count = kept.property(QStringLiteral("length")).toUInt();
    for (quint32 index = 0; index < count; ++index) {
        const auto list = kept.property(index).toVariant().value<QQmlListReference>();
        const auto *const owner = qobject_cast<QQuickItem *>(list.object());
        m_kept += owner && owner->parentItem() == keeper;
    }
}

QJsonObject Surveyor::found() const
{
    QJsonObject lists;
    for (auto list = m_lists.cbegin(); list != m_lists.cend(); ++list) {
        lists.insert(list.key(), list.value());
    }
    return {{QStringLiteral("trees"), m_trees},
            {QStringLiteral("nested"), m_nested},
            {QStringLiteral("lists"), lists},
            {QStringLiteral("shared"), m_shared},
            {QStringLiteral("kept"), m_kept}};
}

} // namespace

QJsonObject survey(const QJsonArray &steps)
{
    Scene scene;
    int documents = 0;
    int loaded = 0;
    for (const QJsonValue &value : steps) {
        const QJsonArray step = value.toArray();
        if (step.at(0) == QLatin1String("make")) {
            ++documents;
            loaded +=
                scene.make(step.at(2).toString().toUtf8(), scene.object(step.at(1).toString()));
            // Trees make their rows in the next turn of the event loop.
            QCoreApplication::processEvents();
        } else if (step.at(0) == QLatin1String("evaluate")) {
            scene.evaluate(step.at(1).toString());
        }
    }
    QJsonObject found = Surveyor(scene).found();
    found.insert(QStringLiteral("documents"), documents);
    found.insert(QStringLiteral("loaded"), loaded);
    scene.tearDown(0);
    return found;
}
