// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

#include <deque>
#include <functional>

/// Calls functions when signals are emitted; the signals are named by their index in the sender's
/// meta-object, as a loop over a meta-object has them.
class SignalHook : public QObject
{
    // No Q_OBJECT: the slots are made at run time, one for each connection.
public:
    using Function = std::function<void()>;

    /// \a function is called from within each emission, on the sender's thread.
    void connectTo(QObject *sender, int signalIndex, Function function);

    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override;

private:
    std::deque<Function> m_functions;
};
