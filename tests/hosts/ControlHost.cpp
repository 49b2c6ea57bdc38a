// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/hosts/ControlHost.h"

#include <QFocusEvent>
#include <QGuiApplication>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>
#include <QQmlComponent>

ControlHost::ControlHost()
    : m_window(&m_control)
{
    const QSurfaceFormat format = m_window.requestedFormat();
    m_context = std::make_unique<QOpenGLContext>();
    m_context->setFormat(format);
    m_surface = std::make_unique<QOffscreenSurface>();
    m_surface->setFormat(format);
    if (!m_context->create()) {
        qFatal("There is no OpenGL context");
    }
    m_surface->create();
}

ControlHost::~ControlHost()
{
    m_context->makeCurrent(m_surface.get());
    m_root.reset();
    m_control.invalidate();
    m_framebuffer.reset();
    m_context->doneCurrent();
}

void ControlHost::show(const QString &file)
{
    QQmlComponent component(&m_engine, QUrl::fromLocalFile(file));
    m_root.reset(qobject_cast<QQuickItem *>(component.beginCreate(m_engine.rootContext())));
    if (!m_root) {
        qFatal("%s", qPrintable(component.errorString()));
    }
    m_root->setParentItem(m_window.contentItem());
    component.completeCreate();
    m_window.resize(int(m_root->width()), int(m_root->height()));
    m_window.contentItem()->setSize(m_root->size());

    m_context->makeCurrent(m_surface.get());
    m_framebuffer = std::make_unique<QOpenGLFramebufferObject>(
        m_window.size(), QOpenGLFramebufferObject::CombinedDepthStencil);
    m_window.setRenderTarget(m_framebuffer.get());
    m_control.initialize(m_context.get());
    // Nobody else tells it that it has the focus.
    QFocusEvent focus(QEvent::FocusIn, Qt::ActiveWindowFocusReason);
    QCoreApplication::sendEvent(&m_window, &focus);
}

QImage ControlHost::picture()
{
    m_context->makeCurrent(m_surface.get());
    m_control.polishItems();
    m_control.sync();
    m_control.render();
    return m_framebuffer->toImage();
}
