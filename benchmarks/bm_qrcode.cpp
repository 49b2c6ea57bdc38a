// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

// A hundred QRCode items beside a hundred of Prison's Barcode items that show QR codes.

#include "benchmarks/support/SideBySide.h"

#include <QGuiApplication>
#include <QImage>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <malloc.h>
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
    Repeater {
        model: 100
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
    Repeater {
        model: 100
        Barcode {
            width: 64; height: 64; barcodeType: Barcode.QRCode
            content: parent.text + "/" + index; foregroundColor: parent.tone
        }
    }
}
)";

using Clock = std::chrono::steady_clock;

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
        while (!m_window.isExposed())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        grab();
    }

    bool exists() const { return m_component.isReady(); }

    void create()
    {
        m_root.reset(qobject_cast<QQuickItem *>(m_component.create()));
        if (!m_root)
            qFatal("%s", qPrintable(m_component.errorString()));
        m_root->setParentItem(m_window.contentItem());
    }

    void destroy()
    {
        m_root.reset();
        grab();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    /// Renders a frame.
    void grab()
    {
        if (m_window.grabWindow().isNull())
            qFatal("The window is not rendered");
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

double heap()
{
    const struct mallinfo2 info = mallinfo2();
    return double(info.uordblks + info.hblkhd);
}

/// What the items of a side hold, in bytes an item.
struct Memory
{
    double made = 0; ///< Before the first frame.
    double rendered =
        0; ///< With the scene graph and, of a software driver, what it keeps for both.
};

Memory memory(Side &side)
{
    side.create();
    side.grab();
    side.setText();
    side.destroy();
    Memory used;
    const double before = heap();
    side.create();
    used.made = (heap() - before) / 100;
    side.grab();
    used.rendered = (heap() - before) / 100;
    side.destroy();
    return used;
}

double creation(Side &side)
{
    const Clock::time_point start = Clock::now();
    side.create();
    side.grab();
    const double time = std::chrono::duration<double, std::micro>(Clock::now() - start).count();
    side.destroy();
    return time;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

} // namespace

int main(int argc, char **argv)
{
    // One thread, so that a frame is over when it has been grabbed.
    qputenv("QSG_RENDER_LOOP", "basic");
    QGuiApplication application(argc, argv);
    QQmlEngine engine;
    Side ours(engine, ourQml);
    Side theirs(engine, theirQml);
    if (!theirs.exists()) {
        std::printf("qml-module-org-kde-prison is not installed: nothing to compare with\n");
        return 0;
    }

    const Memory ourMemory = memory(ours);
    const Memory theirMemory = memory(theirs);
    std::vector<double> ourFrames;
    std::vector<double> theirFrames;
    for (int round = 0; round < 15; ++round) {
        ourFrames.push_back(creation(ours));
        theirFrames.push_back(creation(theirs));
    }

    ours.create();
    ours.grab();
    theirs.create();
    theirs.grab();
    benchmark::Options options;
    options.rounds = 15;
    options.calls = 5;
    benchmark::sideBySide(
        "100 new urls to frame", 0.5, [&] { ours.setText(); }, [&] { theirs.setText(); }, options);
    benchmark::sideBySide(
        "100 new colours to frame", 0.6, [&] { ours.setTone(); }, [&] { theirs.setTone(); },
        options);
    benchmark::printRow("memory an item", 0.3, ourMemory.made, theirMemory.made, "bytes");
    benchmark::printRow("memory an item, rendered", 0.3, ourMemory.rendered, theirMemory.rendered,
                        "bytes");
    benchmark::printRow("100 items to first frame", 0.7, median(ourFrames), median(theirFrames),
                        "us");
    return 0;
}
