// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/plugin/handlers/Action.h"

#include "tests/plugin/handlers/Provocation.h"
#include "tests/plugin/handlers/Stage.h"

#include <QCoreApplication>

const std::vector<Action> &actions()
{
    using Item = QQuickItem;
    static const auto item = [](QObject *target) { return static_cast<Item *>(target); };
    static const std::vector<Action> list = {
        {QStringLiteral("delete"), false, true, true,
         [](Stage &, QObject *target, const Provocation &) { delete target; }},
        {QStringLiteral("delete later"), false, true, true,
         [](Stage &, QObject *target, const Provocation &) { target->deleteLater(); }},
        {QStringLiteral("carry out deferred deletions"), false, false, false,
         [](Stage &, QObject *, const Provocation &) {
             QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
         }},
        {QStringLiteral("hide"), true, false, false,
         [](Stage &, QObject *target, const Provocation &) { item(target)->setVisible(false); }},
        {QStringLiteral("disable"), true, false, false,
         [](Stage &, QObject *target, const Provocation &) { item(target)->setEnabled(false); }},
        {QStringLiteral("take out of the window"), true, false, false,
         [](Stage &, QObject *target, const Provocation &) {
             item(target)->setParentItem(nullptr);
         }},
        {QStringLiteral("move to the second window"), true, false, false,
         [](Stage &stage, QObject *target, const Provocation &) {
             item(target)->setParentItem(stage.second()->contentItem());
         }},
        {QStringLiteral("close the window"), false, false, false,
         [](Stage &stage, QObject *, const Provocation &) { stage.window()->close(); }},
        {QStringLiteral("do the same again"), false, false, false,
         [](Stage &stage, QObject *, const Provocation &provocation) { provocation.run(stage); }},
        {QStringLiteral("collect garbage"), false, false, false,
         [](Stage &stage, QObject *, const Provocation &) { stage.engine()->collectGarbage(); }},
    };
    return list;
}
