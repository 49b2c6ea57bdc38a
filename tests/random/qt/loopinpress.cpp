// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

// A slot of pressed turns the event loop, in which the item below goes: it was to be deleted later,
// and that is now. Only Qt's own MouseArea takes part: Qt Quick goes on with its list of the items
// that the press may be for.

#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>
#include <QTimer>

namespace {

class Application : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void turn()
    {
        QTimer::singleShot(0, below, &QObject::deleteLater);
        for (int i = 0; i < 5; ++i) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        }
    }

public:
    QQuickItem *below = nullptr;
};

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    QQmlEngine engine;
    QQuickWindow window;
    window.resize(100, 100);
    window.show();
    if (!QTest::qWaitForWindowExposed(&window)) {
        qFatal("The window is not shown");
    }
    QQmlComponent component(&engine);
    component.setData("import QtQuick 2.12\nMouseArea {\n"
                      "width: 100; height: 100; onPressed: mouse.accepted = false }",
                      QUrl());
    Application receiver;
    QQuickItem *areas[2];
    for (QQuickItem *&area : areas) {
        area = qobject_cast<QQuickItem *>(component.create());
        area->setParentItem(window.contentItem());
    }
    receiver.below = areas[0];
    QObject::connect(areas[1], SIGNAL(pressed(QQuickMouseEvent *)), &receiver, SLOT(turn()));
    QTest::mousePress(&window, Qt::LeftButton, {}, {50, 50});
    qInfo("Qt survives this");
    return 0;
}

#include "loopinpress.moc"
