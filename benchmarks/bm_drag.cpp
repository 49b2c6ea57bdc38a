// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "benchmarks/support/Measures.h"
#include "benchmarks/support/SideBySide.h"

#include <QCoreApplication>
#include <QDrag>
#include <QDragEnterEvent>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QMimeData>
#include <QMouseEvent>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTimer>
#include <QUrl>

#include <memory>
#include <vector>

namespace {

// The target fills the window and lies below the source, so that the first event of a drag reaches
// the target.
const char *const zoneQml = R"(
import QtQuick 2.12
import ombrel.Controls 1.0
Item {
    width: 200; height: 200
    function fill(documents) { zone.dragDocuments = documents; }
    DropZone {
        anchors.fill: parent
        DocumentDropHandler { type: "image"; onEntered: probe.hit() }
    }
    DragZone {
        id: zone
        anchors.fill: parent
        MouseArea { anchors.fill: parent }
    }
}
)";

const char *const automaticQml = R"(
import QtQuick 2.12
Item {
    id: root
    width: 200; height: 200
    property var documents: []
    function fill(list) { documents = list; }
    // The bytes a QDataStream would write. Each is below 128, so they are their own UTF-8.
    function payload() {
        let bytes = "";
        for (const document of documents) {
            const id = document.documentId;
            bytes += "\0\0\0" + String.fromCharCode(2 * id.length);
            for (let i = 0; i < id.length; ++i)
                bytes += "\0" + id[i];
        }
        return bytes;
    }
    DropArea {
        anchors.fill: parent
        onEntered: {
            drag.accepted = drag.formats.includes("application/x-lumetra-documents")
                && root.documents.some(document => document.hasType("image"));
            probe.hit();
        }
    }
    MouseArea {
        anchors.fill: parent
        drag.target: handle
        drag.threshold: 4
        onPressed: handle.Drag.mimeData = { "application/x-lumetra-documents": root.payload() }
        Item {
            id: handle
            width: 10; height: 10
            Drag.active: parent.drag.active
            Drag.dragType: Drag.Automatic
            Drag.supportedActions: Qt.MoveAction
        }
    }
}
)";

const char *const documentsQml = R"(
import QtQuick 2.12
import ombrel.data.Core 1.0
QtObject {
    id: root
    property Component one: Component { Document { types: ["image"] } }
    function make(count) {
        const made = [];
        for (let i = 0; i < count; ++i)
            made.push(one.createObject(root, { documentId: "document-" + i }));
        return made;
    }
}
)";

/// Notes the first drag event at the target, and ends the drag then.
class Probe : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE void hit()
    {
        if (!m_hit) {
            m_hit = true;
            m_nanoseconds = m_timer.nsecsElapsed();
        }
    }
    void start()
    {
        m_hit = false;
        m_timer.start();
    }
    bool isHit() const { return m_hit; }
    double microseconds() const { return double(m_nanoseconds) / 1000; }
    /// What the last drag over a watched window carried.
    QByteArray payload() const { return m_payload; }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::DragEnter) {
            m_payload = static_cast<QDragEnterEvent *>(event)->mimeData()->data(
                QStringLiteral("application/x-lumetra-documents"));
        }
        return false;
    }

private:
    QByteArray m_payload;
    QElapsedTimer m_timer;
    qint64 m_nanoseconds = 0;
    bool m_hit = false;
};

std::unique_ptr<QObject> create(QQmlEngine &engine, const char *qml)
{
    QQmlComponent component(&engine);
    component.setData(qml, QUrl());
    std::unique_ptr<QObject> object(component.create());
    if (!object) {
        qFatal("%s", qPrintable(component.errorString()));
    }
    return object;
}

/// A source and a target in a window, and the pointer that drags from one to the other.
class Side
{
public:
    Side(QQmlEngine &engine, Probe &probe, const char *qml, int x, const QVariant &documents)
        : m_probe(probe)
        , m_item(create(engine, qml))
    {
        m_window.setFlag(Qt::FramelessWindowHint);
        m_window.setGeometry(x, 0, 200, 200);
        qobject_cast<QQuickItem *>(m_item.get())->setParentItem(m_window.contentItem());
        QMetaObject::invokeMethod(m_item.get(), "fill", Q_ARG(QVariant, documents));
        m_window.installEventFilter(&m_probe);
        m_window.show();
        while (!m_window.isExposed()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
        }
    }

    /// The microseconds from the press to the first drag event at the target.
    double drag()
    {
        settle();
        m_probe.start();
        send(QEvent::MouseButtonPress, 20, Qt::LeftButton);
        m_moves = 0;
        m_moving = true;
        moveOn();
        while (m_moving) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
        }
        send(QEvent::MouseButtonRelease, 20, Qt::NoButton);
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return m_probe.microseconds();
    }

private:
    /// Waits until the frames are drawn that the last drag has requested, of the other side above
    /// all: its items move, and drawing them would count in this side's time.
    static void settle()
    {
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < 60) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        }
    }

    /// Queues the next move, which the drag's loop needs to go on. Not from a repeating timer: that
    /// would not fire while the move that starts the drag, called from it, is on the stack.
    void moveOn()
    {
        QTimer::singleShot(0, &m_window, [this] {
            if (m_probe.isHit()) {
                m_moving = false;
                QDrag::cancel();
                return;
            }
            if (++m_moves > 10000) {
                qFatal("No drag has come");
            }
            moveOn();
            send(QEvent::MouseMove, 30 + 10 * (m_moves % 10), Qt::LeftButton);
        });
    }

    void send(QEvent::Type type, int x, Qt::MouseButtons buttons)
    {
        const QPointF position(x, 50);
        QMouseEvent event(type, position, position, m_window.mapToGlobal(position.toPoint()),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, buttons,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(&m_window, &event);
    }

    Probe &m_probe;
    QQuickWindow m_window;
    std::unique_ptr<QObject> m_item;
    int m_moves = 0;
    bool m_moving = false;
};

} // namespace

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    Probe probe;
    QQmlEngine engine;
    engine.addImportPath(QStringLiteral(OMBREL_QML_IMPORT));
    engine.rootContext()->setContextProperty(QStringLiteral("probe"), &probe);
    const auto maker = create(engine, documentsQml);
    QVariant documents;
    QMetaObject::invokeMethod(maker.get(), "make", Q_RETURN_ARG(QVariant, documents),
                              Q_ARG(QVariant, 1000));
    Side ours(engine, probe, zoneQml, 0, documents);
    Side theirs(engine, probe, automaticQml, 300, documents);

    std::vector<double> oursTimes;
    std::vector<double> theirsTimes;
    for (int round = 0; round < 41; ++round) {
        oursTimes.push_back(ours.drag());
        const QByteArray payload = probe.payload();
        theirsTimes.push_back(theirs.drag());
        if (payload.isEmpty() || payload != probe.payload()) {
            qFatal("The two sides do not carry the same");
        }
    }
    benchmark::printRow("press to first drag event, 1000 documents, beside Drag.Automatic", 0.7,
                        benchmark::median(oursTimes), benchmark::median(theirsTimes), "us");
    return 0;
}

#include "bm_drag.moc"
