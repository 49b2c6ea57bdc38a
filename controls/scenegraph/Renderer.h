// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

class QQuickWindow;

namespace om::controls {

/// What a node of the library's is made of.
enum class NodeKind {
    Geometry, ///< Its own geometry with a material of Qt's.
    Shader, ///< Its own geometry and its own shader, which is GLSL for OpenGL.
};

/// True when the renderer of \a window draws nodes of this \a kind. Without a window nothing
/// renders, and the node may be made.
///
/// The first time that the result is false, a warning names the renderer, the types that it does
/// not draw, and the page about renderers. Call it while the scene graph synchronises.
bool isDrawn(const QQuickWindow *window, NodeKind kind);

} // namespace om::controls
