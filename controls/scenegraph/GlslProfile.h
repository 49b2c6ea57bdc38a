// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

namespace om::controls {

/// A shader as each kind of OpenGL context compiles it. Both are generated from one GLSL file.
struct GlslTwins
{
    const char *compatibility; ///< GLSL 1.x, for compatibility profiles and OpenGL ES.
    const char *core; ///< GLSL 1.50, for core profiles, which refuse GLSL 1.x.
};

/// The twin that the current OpenGL context compiles; without a context the compatible one.
const char *glslForCurrentContext(const GlslTwins &twins);

} // namespace om::controls
