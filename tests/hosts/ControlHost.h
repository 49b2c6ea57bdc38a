// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/hosts/Host.h"

#include <QQmlEngine>
#include <QQuickRenderControl>
#include <QQuickWindow>

class QOffscreenSurface;
class QOpenGLContext;
class QOpenGLFramebufferObject;

/// An application that renders a scene into a framebuffer by itself, as games do.
class ControlHost : public Host
{
public:
    ControlHost();
    ~ControlHost() override;

    void show(const QString &file) override;
    QQuickItem *root() const override { return m_root.get(); }
    QImage picture() override;

private:
    QQmlEngine m_engine;
    std::unique_ptr<QOpenGLContext> m_context;
    std::unique_ptr<QOffscreenSurface> m_surface;
    std::unique_ptr<QOpenGLFramebufferObject> m_framebuffer;
    QQuickRenderControl m_control;
    QQuickWindow m_window;
    std::unique_ptr<QQuickItem> m_root;
};
