// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <functional>

class QObject;

/// Code of an application that runs in the midst of something without being the handler of a
/// signal: a virtual function that the library calls, an object that is made from a component.
struct Moment
{
    QObject *object;
    QString name;
    /// Whether the object is in its destructor.
    bool isEnd;
};

using MomentHandler = std::function<void(const Moment &)>;

/// Has \a handler called in each moment from now on; an empty one ends that.
void handleMoments(MomentHandler handler);
/// The handler may destroy the object of \a moment: nothing of it is to be touched afterwards.
void tell(const Moment &moment);
