// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

// A hundred QRCode items beside a hundred of Prison's Barcode items that show QR codes. Times are
// measured alternately in one process; memory is measured in processes of their own, one after the
// other, so that neither side finds what the other has left in the heap.

#include "benchmarks/support/Measures.h"
#include "benchmarks/support/SideBySide.h"

#include <QGuiApplication>
#include <QImage>
#include <QProcess>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

namespace {

const char *const ourQml = R"(
import QtQuick 2.12
import ombrel.Controls 1.0
Grid {
    columns: 10
    property string text: "https://example.org/0"
    property color tone: "black"
    property int count: 100
    Repeater {
        model: parent.count
        QRCode { width: 64; height: 64; url: parent.text + "/" + index; darkColor: parent.tone }
    }
}
)";

const char *const theirQml = R"(
import QtQuick 2.12
import org.kde.prison 1.0
Grid {
    columns: 10
    property string text: "https://example.org/0"
    property color tone: "black"
    property int count: 100
    Repeater {
        model: parent.count
        Barcode {
            width: 64; height: 64; barcodeType: Barcode.QRCode
            content: parent.text + "/" + index; foregroundColor: parent.tone
        }
    }
}
)";

/// A window with a hundred items.
class Side
{
public:
    Side(QQmlEngine &engine, const char *qml)
        : m_component(&engine)
    {
        m_component.setData(qml, QUrl());
        m_window.resize(640, 640);
        m_window.show();
        while (!m_window.isExposed()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        grab();
    }

    bool exists() const { return m_component.isReady(); }

    void create()
    {
        m_root.reset(qobject_cast<QQuickItem *>(m_component.create()));
        if (!m_root) {
            qFatal("%s", qPrintable(m_component.errorString()));
        }
        m_root->setParentItem(m_window.contentItem());
    }

    void destroy()
    {
        m_root.reset();
        grab();
        settle();
    }

    void createAndGrab()
    {
        create();
        grab();
    }

    /// Deletes what is to be deleted later.
    static void settle() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    void setCount(int count) { m_root->setProperty("count", count); }
    void setVisible(bool visible) { m_root->setVisible(visible); }

    /// Renders a frame.
    void grab()
    {
        if (m_window.grabWindow().isNull()) {
            qFatal("The window is not rendered");
        }
    }

    void setText()
    {
        m_root->setProperty("text", QStringLiteral("https://example.org/%1").arg(++m_turn));
        grab();
    }

    void setTone()
    {
        m_root->setProperty("tone", QColor::fromHsv(++m_turn % 360, 255, 100));
        grab();
    }

private:
    QQmlComponent m_component;
    QQuickWindow m_window;
    std::unique_ptr<QQuickItem> m_root;
    int m_turn = 0;
};

/// Measures what \a action does to both sides, alternately.
void compare(const char *name, double goal, Side &ours, Side &theirs, void (Side::*action)(),
             void (Side::*undo)() = nullptr)
{
    benchmark::Times times[2];
    for (int round = 0; round < 41; ++round) {
        for (int peer = 0; peer < 2; ++peer) {
            Side &side = peer ? theirs : ours;
            // The windows take turns, and one that comes anew gets new frame buffers from the X
            // server: milliseconds that are the same for both and that no application waits for.
            side.grab();
            times[peer].add([&] { (side.*action)(); });
            if (undo) {
                (side.*undo)();
            }
            Side::settle();
        }
    }
    benchmark::printRow(name, goal, benchmark::median(times[0].passed),
                        benchmark::median(times[1].passed), "us");
    benchmark::printRow("    the same, this thread", goal, benchmark::median(times[0].own),
                        benchmark::median(times[1].own), "us");
}

/// What the items of a side hold, in bytes an item.
struct Memory
{
    double made; ///< Before the first frame.
    double shown; ///< After frames, with the scene graph and what the driver keeps for a frame.
    double settled; ///< The same once a frame without them took the place of the driver's last one.
};

/// In a process that has rendered one item of that side before, so that what is made once for all
/// does not count.
Memory measureMemory(Side &side)
{
    constexpr int count = 100;
    side.create();
    side.setCount(1);
    side.setText();
    side.destroy();
    Memory used;
    const double before = benchmark::heap();
    side.create();
    used.made = (benchmark::heap() - before) / count;
    side.grab();
    side.setText();
    Side::settle();
    side.grab();
    used.shown = (benchmark::heap() - before) / count;
    side.setVisible(false);
    for (int frame = 0; frame < 4; ++frame) {
        side.grab();
    }
    used.settled = (benchmark::heap() - before) / count;
    return used;
}

/// The same in a process of its own.
bool askForMemory(const QString &program, const char *side, Memory &used)
{
    QProcess process;
    process.start(program, {QStringLiteral("--memory"), QLatin1String(side)});
    if (!process.waitForFinished(-1) || process.exitCode() != 0) {
        return false;
    }
    const QByteArray output = process.readAllStandardOutput();
    const int line = output.lastIndexOf("memory ");
    return line >= 0
        && std::sscanf(output.constData() + line, "memory %lf %lf %lf", &used.made, &used.shown,
                       &used.settled)
        == 3;
}

void compareMemory(const QString &program)
{
    std::vector<double> made[2];
    std::vector<double> shown[2];
    std::vector<double> settled[2];
    for (int round = 0; round < 5; ++round) {
        for (int peer = 0; peer < 2; ++peer) {
            Memory used;
            if (!askForMemory(program, peer ? "theirs" : "ours", used)) {
                std::printf("memory could not be measured\n");
                return;
            }
            made[peer].push_back(used.made);
            shown[peer].push_back(used.shown);
            settled[peer].push_back(used.settled);
        }
    }
    const auto row = [](const char *name, const std::vector<double>(&values)[2]) {
        benchmark::printRow(name, 0.3, benchmark::median(values[0]), benchmark::median(values[1]),
                            "bytes");
    };
    row("memory an item, after its frame", settled);
    row("    the same, before its first frame", made);
    row("    the same, with what the driver keeps for a frame", shown);
}

} // namespace

int main(int argc, char **argv)
{
    // One thread, so that a frame is over when it has been grabbed.
    qputenv("QSG_RENDER_LOOP", "basic");
    QGuiApplication application(argc, argv);
    QQmlEngine engine;
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 3 && arguments.at(1) == QLatin1String("--memory")) {
        Side side(engine, arguments.at(2) == QLatin1String("ours") ? ourQml : theirQml);
        const Memory used = measureMemory(side);
        std::printf("memory %f %f %f\n", used.made, used.shown, used.settled);
        return 0;
    }

    Side ours(engine, ourQml);
    Side theirs(engine, theirQml);
    if (!theirs.exists()) {
        std::printf("qml-module-org-kde-prison is not installed: nothing to compare with\n");
        return 0;
    }
    compare("100 items to first frame", 0.7, ours, theirs, &Side::createAndGrab, &Side::destroy);
    ours.createAndGrab();
    theirs.createAndGrab();
    compare("100 new urls to frame", 0.5, ours, theirs, &Side::setText);
    compare("100 new colours to frame", 0.6, ours, theirs, &Side::setTone);
    compareMemory(QCoreApplication::applicationFilePath());
    return 0;
}
