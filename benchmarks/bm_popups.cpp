// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "benchmarks/support/SideBySide.h"

#include <QEventLoop>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSGSimpleRectNode>
#include <QTimer>
#include <QUrl>

#include <algorithm>
#include <functional>
#include <memory>

namespace {

/// Tells that the scene graph has asked it for its node.
class Probe : public QQuickItem
{
public:
    Probe() { setFlag(ItemHasContents); }
    bool painted = false;

protected:
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *) override
    {
        painted = true;
        return node ? node : new QSGSimpleRectNode(QRectF(0, 0, 10, 10), Qt::red);
    }
};

struct Maker
{
    Maker(QQmlEngine *engine, const char *qml)
        : component(engine)
    {
        component.setData(qml, QUrl());
        if (!component.isReady()) {
            qFatal("%s", qPrintable(component.errorString()));
        }
    }

    std::unique_ptr<QObject> make(QQuickItem *parent)
    {
        std::unique_ptr<QObject> object(component.beginCreate(qmlContext(parent)));
        if (auto *item = qobject_cast<QQuickItem *>(object.get())) {
            item->setParentItem(parent);
        } else {
            object->setProperty("parent", QVariant::fromValue(parent));
        }
        component.completeCreate();
        return object;
    }

    QQmlComponent component;
};

/// The number of the frame, counted from \a open on, that first has \a probe in it.
int framesUntilShown(QQuickWindow *window, Probe *probe, const std::function<void()> &open)
{
    probe->painted = false;
    int frames = 0;
    QEventLoop loop;
    const auto connection =
        QObject::connect(window, &QQuickWindow::frameSwapped, &loop, [&loop, &frames, probe] {
            ++frames;
            if (probe->painted) {
                loop.quit();
            }
        });
    open();
    probe->update();
    loop.exec();
    QObject::disconnect(connection);
    return frames;
}

/// Until no frame has come for 60 ms.
void settle(QQuickWindow *window)
{
    QEventLoop loop;
    QTimer quiet;
    quiet.setSingleShot(true);
    QObject::connect(&quiet, &QTimer::timeout, &loop, &QEventLoop::quit);
    QObject::connect(window, &QQuickWindow::frameSwapped, &quiet, [&quiet] { quiet.start(60); });
    quiet.start(60);
    loop.exec();
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QUICK_CONTROLS_STYLE", "Default");
    const QGuiApplication application(argc, argv);
    QQmlEngine engine;
    engine.addImportPath(QStringLiteral(OMBREL_QML_IMPORT));

    QQmlComponent document(&engine);
    document.setData("import QtQuick 2.12; import QtQuick.Window 2.12\n"
                     "Window { width: 400; height: 300; Item { anchors.fill: parent } }",
                     QUrl());
    const std::unique_ptr<QQuickWindow> window(qobject_cast<QQuickWindow *>(document.create()));
    window->show();
    settle(window.get());
    QQuickItem *const root = window->contentItem()->childItems().value(0);

    Maker popup(&engine,
                "import QtQuick 2.12; import ombrel.Controls 1.0\n"
                "Popup { width: 100; height: 60 }");
    Maker theirPopup(&engine,
                     "import QtQuick 2.12; import QtQuick.Controls 2.12\n"
                     "Popup { width: 100; height: 60 }");
    benchmark::sideBySide(
        "Popup, create and delete", 0.4, [&] { popup.make(root); }, [&] { theirPopup.make(root); });

    Maker dialog(&engine,
                 "import QtQuick 2.12; import ombrel.Controls 1.0\n"
                 "DialogItem { width: 100; height: 60 }");
    Maker theirDialog(&engine,
                      "import QtQuick 2.12; import QtQuick.Controls 2.12\n"
                      "Dialog { width: 100; height: 60 }");
    // Theirs brings a header and a footer with it.
    benchmark::sideBySide(
        "DialogItem, create and delete (theirs: header, footer)", 0.1, [&] { dialog.make(root); },
        [&] { theirDialog.make(root); });
    QCoreApplication::processEvents();

    const auto ours = popup.make(root);
    const auto theirs = theirPopup.make(root);
    Probe ourProbe;
    Probe theirProbe;
    ourProbe.setParentItem(qobject_cast<QQuickItem *>(ours.get()));
    theirProbe.setParentItem(theirs->property("contentItem").value<QQuickItem *>());
    int ourFrames = 0;
    int theirFrames = 0;
    for (int round = 0; round < 15; ++round) {
        settle(window.get());
        ourFrames = std::max(ourFrames, framesUntilShown(window.get(), &ourProbe, [&] {
                                 ours->setProperty("open", true);
                             }));
        ours->setProperty("open", false);
        settle(window.get());
        theirFrames = std::max(theirFrames, framesUntilShown(window.get(), &theirProbe, [&] {
                                   QMetaObject::invokeMethod(theirs.get(), "open");
                               }));
        QMetaObject::invokeMethod(theirs.get(), "close");
    }
    benchmark::printRow("Popup, open to first frame (worst of 15)", 1.0, ourFrames, theirFrames,
                        "frames");
    ourProbe.setParentItem(nullptr);
    theirProbe.setParentItem(nullptr);
    return 0;
}
