// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

// A slot of beforeSynchronizing closes the window. Qt's basic render loop (QSG_RENDER_LOOP=basic)
// goes on with the frame, without a current OpenGL context.

#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSGSimpleRectNode>
#include <QTest>

namespace {

class Item : public QQuickItem
{
public:
    explicit Item(QQuickItem *parent)
        : QQuickItem(parent)
    {
        setFlag(ItemHasContents);
        setSize({50, 50});
    }

protected:
    QSGNode *updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *) override
    {
        return oldNode ? oldNode : new QSGSimpleRectNode(boundingRect(), Qt::red);
    }
};

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    QQuickWindow windows[2];
    for (QQuickWindow &window : windows) {
        window.resize(100, 100);
        new Item(window.contentItem());
        window.show();
        if (!QTest::qWaitForWindowExposed(&window)) {
            qFatal("The window is not shown");
        }
    }
    QObject::connect(&windows[0], &QQuickWindow::beforeSynchronizing, &windows[0],
                     [&windows] { windows[0].close(); });
    windows[0].update();
    QTest::qWait(500);
    qInfo("Qt survives this");
    return 0;
}
