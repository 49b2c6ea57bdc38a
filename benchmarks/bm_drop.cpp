// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "benchmarks/support/Instructions.h"
#include "benchmarks/support/Measures.h"
#include "benchmarks/support/SideBySide.h"

#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDragMoveEvent>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QMimeData>
#include <QProcess>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QUrl>

#include <cstdio>
#include <memory>
#include <vector>

namespace {

// Three handlers; the second takes the drag. Both sides keep what they got.
const char *const zoneQml = R"(
import QtQuick 2.12
import ombrel.Controls 1.0
Item {
    id: root
    width: 200; height: 200
    property int count
    property real x0
    DropZone {
        anchors.fill: parent
        FileDropHandler {
            suffixes: ["pdf", "doc", "odt"]
            onEntered: root.count = drag.data.length
            onPositionChanged: root.x0 = drag.position.x
        }
        ImageDropHandler {
            onEntered: root.count = drag.data.length
            onPositionChanged: root.x0 = drag.position.x
        }
        VideoDropHandler {
            onEntered: root.count = drag.data.length
            onPositionChanged: root.x0 = drag.position.x
        }
    }
}
)";

const char *const areaQml = R"(
import QtQuick 2.12
import ombrel.Controls 1.0
Item {
    id: root
    width: 200; height: 200
    property int count
    property real x0
    ImageDropHandler { id: images }
    VideoDropHandler { id: videos }
    DropArea {
        id: area
        anchors.fill: parent
        property var filters: [["pdf", "doc", "odt"], images.suffixes.slice(), videos.suffixes.slice()]
        function suffix(url) {
            const path = url.toString();
            const name = decodeURIComponent(path.substring(path.lastIndexOf("/") + 1));
            return name.substring(name.lastIndexOf(".") + 1).toLowerCase();
        }
        onEntered: {
            if (!drag.hasUrls) {
                drag.accepted = false;
                return;
            }
            const urls = drag.urls;
            for (const filter of filters) {
                const taken = urls.filter(url => filter.includes(suffix(url)));
                if (taken.length > 0) {
                    root.count = taken.length;
                    return;
                }
            }
            drag.accepted = false;
        }
        onPositionChanged: root.x0 = drag.x
    }
}
)";

const char *const bareZoneQml = R"(
import QtQuick 2.12
import ombrel.Controls 1.0
DropZone { width: 200; height: 200; FileDropHandler {} ImageDropHandler {} VideoDropHandler {} }
)";

const char *const bareAreaQml = R"(
import QtQuick 2.12
DropArea { width: 200; height: 200 }
)";

/// A document in a window that gets the events of a drag.
class Side
{
public:
    Side(QQmlEngine &engine, const char *qml)
    {
        QQmlComponent component(&engine);
        component.setData(qml, QUrl());
        m_item.reset(qobject_cast<QQuickItem *>(component.create()));
        if (!m_item) {
            qFatal("%s", qPrintable(component.errorString()));
        }
        m_window.resize(200, 200);
        m_item->setParentItem(m_window.contentItem());
        QList<QUrl> urls;
        for (int i = 0; i < 20; ++i) {
            urls.append(QUrl(QStringLiteral("file:///home/user/Pictures/holiday %1.%2")
                                 .arg(i)
                                 .arg(i % 2 ? QStringLiteral("png") : QStringLiteral("txt"))));
        }
        m_mimeData.setUrls(urls);
    }

    void enter()
    {
        QDragEnterEvent event({50, 50}, Qt::CopyAction, &m_mimeData, Qt::LeftButton,
                              Qt::NoModifier);
        QCoreApplication::sendEvent(&m_window, &event);
        if (!event.isAccepted()) {
            qFatal("The drag is not taken");
        }
    }
    void move()
    {
        m_x = 50 + (m_x + 1) % 100;
        QDragMoveEvent event({m_x, 60}, Qt::CopyAction, &m_mimeData, Qt::LeftButton,
                             Qt::NoModifier);
        QCoreApplication::sendEvent(&m_window, &event);
    }
    void leave()
    {
        QDragLeaveEvent event;
        QCoreApplication::sendEvent(&m_window, &event);
    }
    int count() const { return m_item->property("count").toInt(); }

private:
    QQuickWindow m_window;
    std::unique_ptr<QQuickItem> m_item;
    QMimeData m_mimeData;
    int m_x = 0;
};

/// In a process of its own, where nothing is loaded yet but Qt Quick: the microseconds until the
/// first item of a document that imports \a module is there.
int measureImport(const QByteArray &module)
{
    QQmlEngine engine;
    engine.addImportPath(QStringLiteral(OMBREL_QML_IMPORT));
    const auto create = [&engine](const QByteArray &imports) {
        QQmlComponent component(&engine);
        component.setData("import QtQuick 2.12\n" + imports + "\nItem {}", QUrl());
        if (!std::unique_ptr<QObject>(component.create())) {
            qFatal("%s", qPrintable(component.errorString()));
        }
    };
    create("");
    QElapsedTimer timer;
    timer.start();
    benchmark::countInstructions("import", [&] { create("import " + module); });
    std::printf("%lld\n", static_cast<long long>(timer.nsecsElapsed() / 1000));
    return 0;
}

double importTime(const QString &module)
{
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--import"), module});
    process.waitForFinished();
    return process.readAllStandardOutput().toDouble();
}

double importInstructions(const QString &module)
{
    return benchmark::instructionsOf({QStringLiteral("--import"), module})["import"];
}

void importRows()
{
    const QString our = QStringLiteral("ombrel.Controls 1.0");
    const QString their = QStringLiteral("QtQuick.Controls 2.15");
    std::vector<double> ours;
    std::vector<double> theirs;
    for (int round = 0; round < 21; ++round) {
        ours.push_back(importTime(our));
        theirs.push_back(importTime(their));
    }
    benchmark::printRow("import, beside QtQuick.Controls 2.15", 0.25, benchmark::median(ours),
                        benchmark::median(theirs), "us");
    if (const double counted = importInstructions(our)) {
        benchmark::printRow("the same, instructions", 0.25, counted, importInstructions(their), "");
    }
}

} // namespace

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.value(1) == QLatin1String("--import")) {
        return measureImport(arguments.value(2).toUtf8());
    }

    QQmlEngine engine;
    engine.addImportPath(QStringLiteral(OMBREL_QML_IMPORT));
    Side zone(engine, zoneQml);
    Side area(engine, areaQml);
    benchmark::sideBySide(
        "enter + leave, 3 handlers, 20 URLs", 0.7,
        [&] {
            zone.enter();
            zone.leave();
        },
        [&] {
            area.enter();
            area.leave();
        });
    if (zone.count() != 10 || area.count() != 10) {
        qFatal("The two sides do not do the same");
    }
    benchmark::sideBySide(
        "enter + move + leave, 3 handlers, 20 URLs", 0.7,
        [&] {
            zone.enter();
            zone.move();
            zone.leave();
        },
        [&] {
            area.enter();
            area.move();
            area.leave();
        });
    zone.enter();
    area.enter();
    // The same one line of JavaScript listens on both sides and takes most of the time.
    benchmark::sideBySide(
        "move, JavaScript listens", 1.1, [&] { zone.move(); }, [&] { area.move(); });

    Side bareZone(engine, bareZoneQml);
    Side bareArea(engine, bareAreaQml);
    bareZone.enter();
    bareArea.enter();
    benchmark::sideBySide(
        "move, nothing listens, beside a bare DropArea", 1.1, [&] { bareZone.move(); },
        [&] { bareArea.move(); });
    importRows();
    return 0;
}
