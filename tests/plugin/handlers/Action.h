// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <functional>
#include <vector>

class QObject;
class Stage;
struct Provocation;

/// What a handler does: to the sender of the signal, to the subject of the scene, or to what is
/// around them.
struct Action
{
    enum Target {
        Surroundings,
        Object,
        Item
    };
    QString name;
    Target target;
    /// Whether it ends the object. What is attached to objects by the QML engine is not ended: the
    /// engine keeps a bare pointer to it (see TestHandlers::attachedObjectsAreTheEngines()).
    bool isEnd;
    /// Whether it is done to the subject too, when that is not the sender.
    bool isForSubject;
    /// Whether it is done in each signal of each sender once, and not each time that something else
    /// makes the signal fire.
    bool isOnce;
    std::function<void(Stage &, QObject *target, const Provocation &)> run;
};

const std::vector<Action> &actions();
