// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

// Checkerboards, dashed borders and the boxes of a colour picker beside what Qt Quick itself offers
// for each. All sides of a comparison take turns; the row names the better of the peers.

#include "benchmarks/support/Measures.h"
#include "benchmarks/support/SideBySide.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QImage>
#include <QMouseEvent>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickImageProvider>
#include <QQuickItem>
#include <QQuickWindow>

#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

namespace {

const QByteArray head = R"(
import QtQuick 2.12
import QtQuick.Shapes 1.12
import ombrel.Controls 1.0
import ombrel.Controls.Private 1.0
)";

QByteArray hundred(const QByteArray &item)
{
    return head + R"(
Grid {
    id: root
    columns: 10
    property color tone: "#cc0000"
    Repeater {
        model: 100
        )"
        + item + R"(
    }
}
)";
}

const QByteArray checkerBox = "CheckerBox { width: 60; height: 60; darkColor: root.tone }";
const QByteArray tiledImage = R"(Image {
    width: 60; height: 60; fillMode: Image.Tile
    source: "image://checker/" + String(root.tone).substr(1)
})";
const QByteArray shaderEffect = R"(ShaderEffect {
    width: 60; height: 60; blending: false
    property real size: 8
    property size extent: Qt.size(width, height)
    property color light: "lightgray"
    property color dark: root.tone
    fragmentShader: "
        uniform lowp float qt_Opacity; uniform highp float size; uniform highp vec2 extent;
        uniform lowp vec4 light; uniform lowp vec4 dark; varying highp vec2 qt_TexCoord0;
        void main() {
            highp vec2 square = step(vec2(size), mod(qt_TexCoord0 * extent, vec2(2.0 * size)));
            gl_FragColor = mix(dark, light, mod(square.x + square.y, 2.0)) * qt_Opacity;
        }"
})";
// Seven of ten pixels along an edge are drawn, as the peers are told below.
const QByteArray dashedBorder = "DashedBorder { width: 60; height: 60; borderColor: root.tone }";
const QByteArray shape = R"(Shape {
    width: 60; height: 60
    ShapePath {
        strokeColor: root.tone; strokeWidth: 1; fillColor: "transparent"
        strokeStyle: ShapePath.DashLine; dashPattern: [7, 3]
        PathLine { x: 60; y: 0 } PathLine { x: 60; y: 60 } PathLine { x: 0; y: 60 } PathLine { x: 0; y: 0 }
    }
})";
const QByteArray canvas = R"(Canvas {
    width: 60; height: 60
    property color tone: root.tone
    onToneChanged: requestPaint()
    onPaint: {
        var context = getContext("2d");
        context.reset();
        context.strokeStyle = tone;
        context.setLineDash([7, 3]);
        context.strokeRect(0.5, 0.5, 59, 59);
    }
})";

const QByteArray ourBoxes = head + R"(
Item {
    SaturationValueBox {
        width: 256; height: 256; hue: strip.hue
        crossHairDelegate: Rectangle { width: 6; height: 6 }
    }
    HueBox { id: strip; y: 270; width: 256; height: 20; sliderDelegate: Rectangle { width: 4; height: 20 } }
}
)";
const QByteArray gradientBoxes = head + R"(
Item {
    Rectangle {
        id: square
        property int hue: strip.hue
        property int saturation: 255
        property int value: 255
        width: 256; height: 256
        gradient: Gradient {
            orientation: Gradient.Horizontal
            GradientStop { position: 0; color: "white" }
            GradientStop { position: 1; color: Qt.hsva(square.hue / 359, 1, 1, 1) }
        }
        Rectangle {
            anchors.fill: parent
            gradient: Gradient {
                GradientStop { position: 0; color: "transparent" }
                GradientStop { position: 1; color: "black" }
            }
        }
        Rectangle { width: 6; height: 6; x: square.saturation; y: 255 - square.value }
        MouseArea {
            anchors.fill: parent
            function take(mouse) {
                square.saturation = Math.round(Math.max(0, Math.min(1, mouse.x / width)) * 255);
                square.value = Math.round(Math.max(0, Math.min(1, 1 - mouse.y / height)) * 255);
            }
            onPressed: take(mouse)
            onPositionChanged: take(mouse)
        }
    }
    Rectangle {
        id: strip
        property int hue: 0
        y: 270; width: 256; height: 20
        gradient: Gradient {
            orientation: Gradient.Horizontal
            GradientStop { position: 0; color: "#ff0000" }
            GradientStop { position: 1 / 6; color: "#ffff00" }
            GradientStop { position: 2 / 6; color: "#00ff00" }
            GradientStop { position: 3 / 6; color: "#00ffff" }
            GradientStop { position: 4 / 6; color: "#0000ff" }
            GradientStop { position: 5 / 6; color: "#ff00ff" }
            GradientStop { position: 1; color: "#ff0000" }
        }
        Rectangle { width: 4; height: 20; x: strip.hue * strip.width / 359 }
        MouseArea {
            anchors.fill: parent
            function take(mouse) { strip.hue = Math.round(Math.max(0, Math.min(1, mouse.x / width)) * 359); }
            onPressed: take(mouse)
            onPositionChanged: take(mouse)
        }
    }
}
)";

class Checkers : public QQuickImageProvider
{
public:
    Checkers()
        : QQuickImageProvider(Image)
    {
    }

    QImage requestImage(const QString &id, QSize *size, const QSize &) override
    {
        const QColor dark(QLatin1Char('#') + id);
        QImage image(16, 16, QImage::Format_RGB32);
        for (int y = 0; y < 16; ++y) {
            for (int x = 0; x < 16; ++x) {
                image.setPixelColor(x, y, (x < 8) == (y < 8) ? dark : QColor(Qt::lightGray));
            }
        }
        *size = image.size();
        return image;
    }
};

/// A window of its own with one document.
class Side
{
public:
    Side(QQmlEngine &engine, const QByteArray &qml)
        : m_component(&engine)
    {
        m_component.setData(qml, QUrl());
        m_window.resize(620, 620);
        m_window.show();
        while (!m_window.isExposed()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        frame();
    }

    void create()
    {
        m_root.reset(qobject_cast<QQuickItem *>(m_component.create()));
        if (!m_root) {
            qFatal("%s", qPrintable(m_component.errorString()));
        }
        m_root->setParentItem(m_window.contentItem());
        frame();
        // A Canvas paints when it has been told that it may.
        while (!m_blank && !isDrawn()) {
            QCoreApplication::processEvents();
            frame();
        }
    }

    /// For the document that shows nothing.
    void expectNothing() { m_blank = true; }

    void destroy()
    {
        m_root.reset();
        frame();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void frame()
    {
        m_image = m_window.grabWindow();
        if (m_image.isNull()) {
            qFatal("The window is not rendered");
        }
    }

    void setVisible(bool visible) { m_root->setVisible(visible); }

    void recolor()
    {
        m_root->setProperty("tone", QColor::fromHsv(++m_turn % 360, 255, 180));
        frame();
    }

    void mouse(QEvent::Type type, const QPointF &place)
    {
        const bool held = type != QEvent::MouseButtonRelease;
        QMouseEvent event(type, place, place, place,
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                          held ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&m_window, &event);
    }

    void drag(const QPointF &from, const QPointF &step)
    {
        mouse(QEvent::MouseButtonPress, from);
        for (int i = 1; i <= 20; ++i) {
            mouse(QEvent::MouseMove, from + step * i);
            frame();
        }
        mouse(QEvent::MouseButtonRelease, from + step * 20);
    }

private:
    /// Whether the last item of the grid (or the first of the boxes) has come.
    bool isDrawn() const
    {
        for (const int from : {541, 1}) {
            for (int i = from; i < from + 58; ++i) {
                for (const int line : {from - 1, from, from + 5}) {
                    if (m_image.pixel(i, line) != 0xffffffffu) {
                        return true;
                    }
                }
            }
        }
        return false;
    }

    QQmlComponent m_component;
    QQuickWindow m_window;
    QImage m_image;
    bool m_blank = false;
    std::unique_ptr<QQuickItem> m_root;
    int m_turn = 0;
};

struct Figures
{
    benchmark::Times firstFrames;
    benchmark::Times recolored;
    double memory = 0;
};

void compare(const char *name, double timeGoal, double memoryGoal, QQmlEngine &engine,
             const std::vector<std::pair<const char *, QByteArray>> &items)
{
    std::vector<std::unique_ptr<Side>> sides;
    std::vector<Figures> figures(items.size());
    for (const auto &item : items) {
        sides.push_back(std::make_unique<Side>(engine, hundred(item.second)));
    }
    for (size_t i = 0; i < sides.size(); ++i) {
        sides[i]->create();
        sides[i]->recolor();
        sides[i]->destroy();
        const double before = benchmark::heap();
        sides[i]->create();
        // The driver keeps the commands of its last frame: those of an empty one, then.
        sides[i]->setVisible(false);
        for (int frame = 0; frame < 4; ++frame) {
            sides[i]->frame();
        }
        figures[i].memory = (benchmark::heap() - before) / 100;
        sides[i]->destroy();
    }
    // A window without anything, grabbed in the same way: what every side pays and none can save.
    Side nothing(engine, head + "Item { property color tone }");
    nothing.expectNothing();
    nothing.create();
    benchmark::Times empty;
    for (int round = 0; round < 21; ++round) {
        for (size_t i = 0; i < sides.size(); ++i) {
            // The windows take turns, and one that comes anew gets new frame buffers from the X
            // server: milliseconds that are the same for all and that no application waits for.
            sides[i]->frame();
            figures[i].firstFrames.add([&] { sides[i]->create(); });
            sides[i]->recolor();
            for (int k = 0; k < 3; ++k) {
                figures[i].recolored.add([&] { sides[i]->recolor(); });
            }
            sides[i]->destroy();
            nothing.recolor();
            for (int k = 0; k < 3; ++k) {
                empty.add([&] { nothing.recolor(); });
            }
        }
    }
    const auto row = [&](const char *what, double goal, const char *unit, const auto &value) {
        size_t best = 1;
        for (size_t i = 2; i < figures.size(); ++i) {
            best = value(figures[i]) < value(figures[best]) ? i : best;
        }
        const QByteArray title = QByteArray(name) + ", " + what + " (" + items[best].first + ")";
        benchmark::printRow(title.constData(), goal, value(figures[0]), value(figures[best]), unit);
    };
    const auto timeRow = [&](const char *what, benchmark::Times Figures::*times,
                             std::vector<double> benchmark::Times::*clock) {
        const double base = benchmark::median(empty.*clock);
        row(what, timeGoal, "us",
            [=](const Figures &f) { return benchmark::median(f.*times.*clock) - base; });
    };
    timeRow("first frame less an empty one", &Figures::firstFrames, &benchmark::Times::passed);
    timeRow("the same, this thread", &Figures::firstFrames, &benchmark::Times::own);
    timeRow("recolour less an empty frame", &Figures::recolored, &benchmark::Times::passed);
    timeRow("the same, this thread", &Figures::recolored, &benchmark::Times::own);
    row("memory an item", memoryGoal, "bytes", [](const Figures &f) { return f.memory; });
}

} // namespace

int main(int argc, char **argv)
{
    // One thread, so that a frame is over when it has been grabbed.
    qputenv("QSG_RENDER_LOOP", "basic");
    QGuiApplication application(argc, argv);
    QQmlEngine engine;
    engine.addImageProvider(QStringLiteral("checker"), new Checkers);

    compare(
        "100 checkerboards", 1.05, 0.8, engine,
        {{"CheckerBox", checkerBox}, {"tiled Image", tiledImage}, {"ShaderEffect", shaderEffect}});
    compare("100 dashed borders", 0.7, 0.7, engine,
            {{"DashedBorder", dashedBorder}, {"Shape", shape}, {"Canvas", canvas}});

    Side ours(engine, ourBoxes);
    Side theirs(engine, gradientBoxes);
    ours.create();
    theirs.create();
    benchmark::Options options;
    options.rounds = 15;
    options.calls = 1;
    benchmark::sideBySide(
        "20 steps in the square to frames (gradients)", 1.0,
        [&] {
            ours.drag({20, 20}, {10, 8});
        },
        [&] {
            theirs.drag({20, 20}, {10, 8});
        },
        options);
    benchmark::sideBySide(
        "20 steps in the strip to frames (gradients)", 1.0,
        [&] {
            ours.drag({10, 280}, {11, 0});
        },
        [&] {
            theirs.drag({10, 280}, {11, 0});
        },
        options);
    return 0;
}
