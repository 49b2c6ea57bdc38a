// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

// The pointer comes to an item, whose slot closes the window and gives another item the pointer.
// What comes next lets Qt's basic render loop (QSG_RENDER_LOOP=basic) render without a current
// OpenGL context. Only Qt's own MouseArea takes part.

#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    QQmlEngine engine;
    QQuickWindow windows[2];
    for (int i = 0; i < 2; ++i) {
        windows[i].setFlag(Qt::FramelessWindowHint);
        windows[i].setGeometry(20 + 520 * i, 20, 480, 360);
        windows[i].show();
        if (!QTest::qWaitForWindowExposed(&windows[i])) {
            qFatal("The window is not shown");
        }
    }
    QQmlComponent component(&engine);
    component.setData("import QtQuick 2.12\n"
                      "MouseArea { x: 10; y: 10; width: 10; height: 80; hoverEnabled: true }",
                      QUrl());
    auto *const other = new QQuickItem(windows[0].contentItem());
    auto *const area = qobject_cast<QQuickItem *>(component.create());
    area->setParentItem(windows[0].contentItem());
    QObject::connect(area, SIGNAL(hoveredChanged()), &windows[0], SLOT(close()));
    QTest::mouseMove(&windows[0], {15, 50});
    other->grabMouse();
    QTest::mouseRelease(&windows[0], Qt::LeftButton, {}, {33, 94});
    windows[0].show();
    QTest::qWait(500);
    qInfo("Qt survives this");
    return 0;
}
