// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/plugin/handlers/SignalHook.h"

void SignalHook::connectTo(QObject *sender, int signalIndex, Function function)
{
    m_functions.push_back(std::move(function));
    const int id = QObject::staticMetaObject.methodCount() + int(m_functions.size()) - 1;
    QMetaObject::connect(sender, signalIndex, this, id, Qt::DirectConnection);
}

int SignalHook::qt_metacall(QMetaObject::Call call, int id, void **arguments)
{
    id = QObject::qt_metacall(call, id, arguments);
    if (id >= 0 && call == QMetaObject::InvokeMetaMethod) {
        m_functions.at(size_t(id))();
        return -1;
    }
    return id;
}
