// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/scenegraph/Renderer.h"

#include <QQuickWindow>
#include <QSGRendererInterface>
#include <QtDebug>

#include <atomic>

namespace om::controls {

namespace {

/// Once: each item asks at each of its updates, and windows may do so on threads of their own.
void warnOnce(bool drawsGeometry)
{
    static std::atomic_flag warned = ATOMIC_FLAG_INIT;
    if (warned.test_and_set()) {
        return;
    }
    const char *types = drawsGeometry
        ? "CheckerBox, DashedBorder and QRCode"
        : "CheckerBox, DashedBorder, Frame, HueBox, QRCode and SaturationValueBox";
    // A backend that is a plugin has a name. Qt's own two ways to draw geometry have none; here it
    // is the one that is not OpenGL.
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
    // Whatever else there is draws Qt's materials with shaders that were compiled beforehand.
    const bool drawsShaders = api == QSGRendererInterface::OpenGL;
    const bool drawn = kind == NodeKind::Shader ? drawsShaders : drawsGeometry;
    if (!drawn) {
        warnOnce(drawsGeometry);
    }
    return drawn;
}

} // namespace om::controls
