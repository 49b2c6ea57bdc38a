// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <functional>
#include <vector>

class Stage;

/// Something that is done to a scene so that signals are emitted.
struct Provocation
{
    QString name;
    /// What comes first and is over when the signals are waited for; may be empty.
    std::function<void(Stage &)> before;
    std::function<void(Stage &)> run;
    /// Whether it only calls functions of Qt's own types: what the subject and what it is in then
    /// say about themselves is Qt's affair.
    bool isOfQt = false;
    /// What is done in each signal once is done in this provocation's, too, whatever others have
    /// done: it makes them fire in a situation of its own.
    bool isApart = false;
    /// Whether it makes the scene: only what is made from components in it counts then, as all else
    /// is in the midst of being made by Qt.
    bool makesTheScene = false;
};

/// What can be done to the scene that \a stage shows: a write for each writable property, a call of
/// each invokable, and the events of pointer, keyboard, drag and window. Properties and invokables
/// come from the meta-objects of the subject and of the other objects of the library in the scene
/// whose types QML cannot make. Types of values that this cannot make are fatal.
///
/// A subject that has a function show() is provoked twice, hidden and shown.
std::vector<Provocation> provocationsFor(Stage &stage);
