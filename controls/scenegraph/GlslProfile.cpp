// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/scenegraph/GlslProfile.h"

#include <QOpenGLContext>

namespace om::controls {

const char *glslForCurrentContext(const GlslTwins &twins)
{
    const QOpenGLContext *const context = QOpenGLContext::currentContext();
    const bool isCore = context && context->format().profile() == QSurfaceFormat::CoreProfile;
    return isCore ? twins.core : twins.compatibility;
}

} // namespace om::controls
