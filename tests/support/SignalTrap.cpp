// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/SignalTrap.h"

#include <QMetaMethod>

#include <utility>

namespace support {

SignalTrap::SignalTrap(QObject *sender, const QByteArray &signalName, std::function<void()> action)
    : m_action(std::move(action))
{
    const QMetaObject *meta = sender->metaObject();
    bool found = false;
    // A signal with a default argument is listed twice, and emitted once.
    for (int i = 0; i < meta->methodCount() && !found; ++i) {
        const QMetaMethod method = meta->method(i);
        if (method.methodType() == QMetaMethod::Signal && method.name() == signalName) {
            QMetaObject::connect(sender, i, this, QObject::staticMetaObject.methodCount(),
                                 Qt::DirectConnection);
            found = true;
        }
    }
    if (!found) {
        qFatal("SignalTrap: %s has no signal %s", meta->className(), signalName.constData());
    }
}

SignalTrap::~SignalTrap() = default;

int SignalTrap::qt_metacall(QMetaObject::Call call, int id, void **arguments)
{
    id = QObject::qt_metacall(call, id, arguments);
    if (id != 0 || call != QMetaObject::InvokeMetaMethod) {
        return id;
    }
    const std::function<void()> action = std::exchange(m_action, nullptr);
    if (action) {
        action();
    }
    return -1;
}

} // namespace support
