// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

// A slot of dropped cancels the drag, which sends the window a drag-leave event. Only Qt's own
// DropArea takes part: Qt Quick goes on with its list of what the drag has entered, whose entries
// that event has freed. Needs an X server.

#include <QDrag>
#include <QGuiApplication>
#include <QMimeData>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>
#include <QTimer>

#include <initializer_list>

namespace {

class Application : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void cancel() { QDrag::cancel(); }
};

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    QQmlEngine engine;
    QQuickWindow window;
    window.setGeometry(100, 100, 100, 100);
    window.show();
    if (!QTest::qWaitForWindowExposed(&window)) {
        qFatal("The window is not shown");
    }
    QQmlComponent component(&engine);
    component.setData("import QtQuick 2.12\nDropArea { width: 100; height: 100 }", QUrl());
    auto *const area = qobject_cast<QQuickItem *>(component.create());
    area->setParentItem(window.contentItem());
    Application receiver;
    QObject::connect(area, SIGNAL(dropped(QQuickDropEvent *)), &receiver, SLOT(cancel()));
    auto *const drag = new QDrag(&window);
    auto *const data = new QMimeData;
    data->setText(QStringLiteral("text"));
    drag->setMimeData(data);
    QTimer::singleShot(0, &window, [&window] {
        for (int x : {40, 50, 60}) {
            QTest::mouseMove(&window, {x, 50});
            QTest::qWait(50);
        }
        QTest::mouseRelease(&window, Qt::LeftButton, Qt::NoModifier, {60, 50});
    });
    drag->exec();
    qInfo("Qt survives this");
    return 0;
}

#include "canceledinadrop.moc"
