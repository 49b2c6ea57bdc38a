// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

#include <functional>

namespace support {

/// Does something in the midst of a signal of which only the name is known, as a C++ slot does it:
/// at once, before the emission returns. Only the first emission counts.
///
///     const SignalTrap trap(popup, "openChanged", [popup] { delete popup; });
class SignalTrap : public QObject
{
    // No Q_OBJECT: the slot has an id only.
public:
    /// \a signalName is fatal unless it is a signal of \a sender, inherited ones included.
    SignalTrap(QObject *sender, const QByteArray &signalName, std::function<void()> action);
    ~SignalTrap() override;

    /// Whether the signal has been emitted.
    bool hasSprung() const { return !m_action; }

    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override;

private:
    std::function<void()> m_action;
};

} // namespace support
