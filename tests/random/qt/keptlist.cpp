// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

// A script keeps a list of an item, the item goes, and the script reads the list's length. Only
// Qt's own Item takes part: the engine asks the list's functions, which go to the item.

#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQmlExpression>
#include <QQuickItem>

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData("import QtQuick 2.12\n"
                      "Item {\n"
                      "    property var kept\n"
                      "    Item { Item {} }\n"
                      "    Component.onCompleted: kept = children[0].data\n"
                      "}",
                      QUrl());
    auto *const root = qobject_cast<QQuickItem *>(component.create());
    const auto evaluate = [&](const QString &expression) {
        return QQmlExpression(qmlContext(root), root, expression).evaluate();
    };
    qInfo("before: %s elements", qPrintable(evaluate(QStringLiteral("kept.length")).toString()));
    delete root->childItems().constFirst();
    evaluate(QStringLiteral("kept.length"));
    qInfo("Qt survives this");
    return 0;
}
