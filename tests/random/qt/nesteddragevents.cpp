// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

// A drag enters a window while an item of it is told that the one before has left. Only Qt's own
// DropArea takes part: Qt Quick goes on with its list of what the drag has entered, whose entries
// the second drag has freed.

#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDragMoveEvent>
#include <QGuiApplication>
#include <QMimeData>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

namespace {

/// Enters a window from within its slot.
class Reentry : public QObject
{
    Q_OBJECT

public:
    explicit Reentry(QQuickWindow *window)
        : m_window(window)
    {
    }

    template<typename Event>
    void send(const QPoint &place)
    {
        Event event(place, Qt::CopyAction, &m_data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_window, &event);
    }

public Q_SLOTS:
    void enterAgain()
    {
        if (!m_done) {
            m_done = true;
            send<QDragEnterEvent>({60, 60});
        }
    }

private:
    QQuickWindow *const m_window;
    QMimeData m_data;
    bool m_done = false;
};

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    QQmlEngine engine;
    QQuickWindow window;
    window.resize(100, 100);
    QQmlComponent component(&engine);
    component.setData("import QtQuick 2.12\n"
                      "DropArea { width: 100; height: 100 }",
                      QUrl());
    auto *const area = qobject_cast<QQuickItem *>(component.create());
    area->setParentItem(window.contentItem());
    Reentry reentry(&window);
    QObject::connect(area, SIGNAL(exited()), &reentry, SLOT(enterAgain()));
    reentry.send<QDragEnterEvent>({50, 50});
    reentry.send<QDragMoveEvent>({51, 51});
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(&window, &leave);
    qInfo("Qt survives this");
    return 0;
}

#include "nesteddragevents.moc"
