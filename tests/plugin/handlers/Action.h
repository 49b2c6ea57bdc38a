// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <functional>
#include <vector>

class QObject;
class Stage;
struct Provocation;

/// What a handler does to an object: the sender of the signal, or the subject of the scene.
struct Action
{
    QString name;
    /// Whether it is done to items only.
    bool needsItem;
    /// Whether it ends the object. What is attached to objects by the QML engine is not ended: the
    /// engine keeps a bare pointer to it (see TestHandlers::attachedObjectsAreTheEngines()).
    bool isEnd;
    /// Whether it is done to the subject too, when that is not the sender.
    bool isForSubject;
    std::function<void(Stage &, QObject *target, const Provocation &)> run;
};

const std::vector<Action> &actions();
