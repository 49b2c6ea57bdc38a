// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/scenegraph/Renderer.h"

#include <QQuickWindow>
#include <QSGRendererInterface>
#include <QtDebug>

#include <atomic>

namespace om::controls {

namespace {

/// Warns once a process: each item calls this at each update, from the render thread of its window.
void warnOnce(bool drawsGeometry)
{
    static std::atomic_flag warned = ATOMIC_FLAG_INIT;
    if (warned.test_and_set()) {
        return;
    }
    const char *types = drawsGeometry
        ? "CheckerBox, DashedBorder and QRCode"
        : "CheckerBox, DashedBorder, Frame, HueBox, QRCode and SaturationValueBox";
    // sceneGraphBackend() names backends that are plugins. It is empty for Qt's own OpenGL and RHI
    // renderers, of which only the RHI one gets here.
    const QString backend = QQuickWindow::sceneGraphBackend();
    qWarning("%s are not drawn by the renderer \"%s\": see docs/renderers.md", types,
             backend.isEmpty() ? "rhi" : qPrintable(backend));
}

} // namespace

bool isDrawn(const QQuickWindow *window, NodeKind kind)
{
    if (!window) {
        return true;
    }
    const auto api = window->rendererInterface()->graphicsApi();
    const bool drawsGeometry = api != QSGRendererInterface::Software;
    // The other renderers draw materials of Qt only, whose shaders were compiled in advance.
    const bool drawsShaders = api == QSGRendererInterface::OpenGL;
    const bool drawn = kind == NodeKind::Shader ? drawsShaders : drawsGeometry;
    if (!drawn) {
        warnOnce(drawsGeometry);
    }
    return drawn;
}

} // namespace om::controls
