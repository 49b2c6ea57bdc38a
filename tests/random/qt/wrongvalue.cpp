// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

// A handler that has run often enough to be compiled assigns a value of the wrong type. Only Qt's
// own Item takes part: when garbage is collected while the engine words the error, it meets what
// the compiled code has left on its stack, which is no value. QV4_FORCE_INTERPRETER=1 avoids it.

#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>

#include <memory>

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    QQmlEngine engine;
    engine.setOutputWarningsToStandardError(false);
    QQmlComponent component(&engine);
    component.setData("import QtQuick 2.12\n"
                      "Item { id: item; Component.onCompleted: item.enabled = function() {} }",
                      QUrl());
    for (int round = 0; round < 20000; ++round) {
        const std::unique_ptr<QObject> made(component.create());
    }
    qInfo("Qt survives this");
    return 0;
}
