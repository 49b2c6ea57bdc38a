// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/plugin/handlers/Action.h"

#include "tests/plugin/handlers/Provocation.h"
#include "tests/plugin/handlers/Stage.h"

#include <QCoreApplication>
#include <QMetaProperty>

namespace {

using Objects = std::vector<QPointer<QObject>>;

void deleteAll(const Objects &objects, bool later)
{
    for (const QPointer<QObject> &object : objects) {
        if (object && later) {
            object->deleteLater();
        } else {
            delete object;
        }
    }
}

/// Those that the scene's objects have been given, and those of the stock.
Objects componentsOf(const Stage &stage)
{
    Objects found;
    const auto add = [&found](QObject *component) { found.emplace_back(component); };
    const QObjectList stocked = stage.stock("components");
    std::for_each(stocked.cbegin(), stocked.cend(), add);
    const QObject *const subject = stage.subject();
    for (int i = 0; subject && i < subject->metaObject()->propertyCount(); ++i) {
        const QMetaProperty property = subject->metaObject()->property(i);
        if (qstrcmp(property.typeName(), "QQmlComponent*") == 0) {
            add(property.read(subject).value<QQmlComponent *>());
        }
    }
    return found;
}

Objects documentsOf(const Stage &stage)
{
    Objects found;
    const QObjectList objects = stage.documents();
    for (QObject *document : objects) {
        found.emplace_back(document);
    }
    return found;
}

QQuickItem *item(QObject *target)
{
    return static_cast<QQuickItem *>(target);
}

/// The two ways to destroy what \a find finds.
void addEnds(std::vector<Action> *list, const QString &what, Action::Target target,
             const std::function<Objects(Stage &, QObject *)> &find)
{
    for (const bool later : {false, true}) {
        const QString name =
            later ? QStringLiteral("delete later %1") : QStringLiteral("delete %1");
        list->push_back({name.arg(what), target, true, false, true,
                         [find, later](Stage &stage, QObject *object, const Provocation &) {
                             deleteAll(find(stage, object), later);
                         }});
    }
}

std::vector<Action> makeActions()
{
    std::vector<Action> list = {
        {QStringLiteral("delete"), Action::Object, true, true, false,
         [](Stage &, QObject *target, const Provocation &) { delete target; }},
        {QStringLiteral("delete later"), Action::Object, true, true, false,
         [](Stage &, QObject *target, const Provocation &) { target->deleteLater(); }},
        {QStringLiteral("carry out deferred deletions"), Action::Surroundings, false, false, false,
         [](Stage &, QObject *, const Provocation &) {
             QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
         }},
        {QStringLiteral("hide"), Action::Item, false, false, false,
         [](Stage &, QObject *target, const Provocation &) { item(target)->setVisible(false); }},
        {QStringLiteral("disable"), Action::Item, false, false, false,
         [](Stage &, QObject *target, const Provocation &) { item(target)->setEnabled(false); }},
        {QStringLiteral("take out of the window"), Action::Item, false, false, false,
         [](Stage &, QObject *target, const Provocation &) {
             item(target)->setParentItem(nullptr);
         }},
        {QStringLiteral("move to the second window"), Action::Item, false, false, false,
         [](Stage &stage, QObject *target, const Provocation &) {
             item(target)->setParentItem(stage.second()->contentItem());
         }},
        {QStringLiteral("close the window"), Action::Surroundings, false, false, false,
         [](Stage &stage, QObject *, const Provocation &) { stage.window()->close(); }},
        {QStringLiteral("do the same again"), Action::Surroundings, false, false, false,
         [](Stage &stage, QObject *, const Provocation &provocation) { provocation.run(stage); }},
        {QStringLiteral("collect garbage"), Action::Surroundings, false, false, false,
         [](Stage &stage, QObject *, const Provocation &) { stage.engine()->collectGarbage(); }},
    };
    addEnds(&list, QStringLiteral("the parent of"), Action::Object,
            [](Stage &stage, QObject *target) { return Objects{stage.parentOf(target)}; });
    addEnds(&list, QStringLiteral("the window"), Action::Surroundings,
            [](Stage &stage, QObject *) { return Objects{stage.window()}; });
    addEnds(&list, QStringLiteral("the engine"), Action::Surroundings,
            [](Stage &stage, QObject *) { return Objects{stage.engine()}; });
    addEnds(&list, QStringLiteral("the context"), Action::Surroundings,
            [](Stage &stage, QObject *) { return Objects{stage.context()}; });
    addEnds(&list, QStringLiteral("the components"), Action::Surroundings,
            [](Stage &stage, QObject *) { return componentsOf(stage); });
    addEnds(&list, QStringLiteral("the documents"), Action::Surroundings,
            [](Stage &stage, QObject *) { return documentsOf(stage); });
    return list;
}

} // namespace

const std::vector<Action> &actions()
{
    static const std::vector<Action> list = makeActions();
    return list;
}
