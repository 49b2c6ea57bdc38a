// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

// An item whose shape is that of another, whose shape is that of the first: Qt Quick asks the one,
// then the other, until the stack ends. So it does with an item that is its own mask.

#include <QGuiApplication>
#include <QQuickItem>

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    QQuickItem one;
    QQuickItem other;
    one.setContainmentMask(&other);
    other.setContainmentMask(&one);
    qInfo(one.contains({0, 0}) ? "Qt survives this" : "Qt survives this, too");
    return 0;
}
