// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

// A slot of containsDragChanged turns the event loop, in which the item goes: it was to be deleted
// later, and that is now. Only Qt's own DropArea takes part: Qt Quick goes on with the event that
// it delivers.

#include <QDragEnterEvent>
#include <QGuiApplication>
#include <QMimeData>
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
        QTimer::singleShot(0, area, &QObject::deleteLater);
        for (int i = 0; i < 5; ++i) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        }
    }

public:
    QQuickItem *area = nullptr;
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
    component.setData("import QtQuick 2.12\nDropArea { width: 100; height: 100 }", QUrl());
    Application receiver;
    receiver.area = qobject_cast<QQuickItem *>(component.create());
    receiver.area->setParentItem(window.contentItem());
    QObject::connect(receiver.area, SIGNAL(containsDragChanged()), &receiver, SLOT(turn()));
    QMimeData data;
    QDragEnterEvent enter({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&window, &enter);
    qInfo("Qt survives this");
    return 0;
}

#include "loopindrag.moc"
