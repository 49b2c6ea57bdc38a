// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/hosts/ViewHost.h"

#include "tests/support/Pixels.h"

#include <QGuiApplication>
#include <QOpenGLContext>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItemGrabResult>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>

QVector<ViewHost::Kind> ViewHost::kinds()
{
    return {Plain, Embedded, Core, GrabbedItem, Layer, Effect, Moved};
}

QLatin1String ViewHost::nameOf(Kind kind)
{
    static const char *const names[] = {"view", "es", "core", "item", "layer", "effect", "moved"};
    return QLatin1String(names[kind]);
}

ViewHost::ViewHost(Kind kind)
    : m_kind(kind)
{
}

void ViewHost::askForFormat()
{
    QSurfaceFormat format = m_view.window()->requestedFormat();
    if (m_kind == Embedded) {
        format.setRenderableType(QSurfaceFormat::OpenGLES);
        format.setVersion(2, 0);
    } else if (m_kind == Core) {
        format.setVersion(3, 2);
        format.setProfile(QSurfaceFormat::CoreProfile);
    }
    m_view.window()->setFormat(format);
}

void ViewHost::showThroughAnEffect()
{
    QQmlComponent component(m_view.engine());
    component.setData("import QtQuick 2.12\n"
                      "ShaderEffectSource { hideSource: true; live: true; anchors.fill: parent }",
                      QUrl());
    auto *const source = qobject_cast<QQuickItem *>(component.create());
    source->setParent(m_view.window());
    source->setParentItem(m_view.window()->contentItem());
    source->setProperty("sourceItem", QVariant::fromValue(root()));
}

void ViewHost::putOnWhite()
{
    QQmlComponent component(m_view.engine());
    component.setData("import QtQuick 2.12\nRectangle {}", QUrl());
    auto *const ground = qobject_cast<QQuickItem *>(component.create());
    ground->setParent(m_view.window());
    ground->setParentItem(root()->parentItem());
    ground->setSize(root()->size());
    root()->setParentItem(ground);
}

void ViewHost::moveToTheSecondScreen()
{
    const QList<QScreen *> screens = QGuiApplication::screens();
    if (screens.size() < 2) {
        qFatal("There is no second screen");
    }
    // X screens have no common coordinates: the window is made anew, and so is what renders it.
    m_view.window()->hide();
    m_view.window()->setScreen(screens.at(1));
    m_view.window()->show();
    if (!QTest::qWaitForWindowExposed(m_view.window())
        || m_view.window()->screen() != screens.at(1)) {
        qFatal("The window does not get to the second screen");
    }
}

void ViewHost::show(const QString &file)
{
    m_view.loadFile(file);
    askForFormat();
    if (m_kind == GrabbedItem) {
        putOnWhite();
    } else if (m_kind == Layer) {
        qvariant_cast<QObject *>(root()->property("layer"))->setProperty("enabled", true);
    } else if (m_kind == Effect) {
        showThroughAnEffect();
    }
    m_view.window()->show();
    if (QGuiApplication::platformName() == QLatin1String("xcb")) {
        // Nobody else does on a bare X server; on Wayland nobody may.
        m_view.window()->requestActivate();
    }
    if (!QTest::qWaitForWindowExposed(m_view.window())) {
        qFatal("The window is not shown");
    }
    if (m_kind == Moved) {
        moveToTheSecondScreen();
    }
    if (m_kind == Embedded || m_kind == Core) {
        support::framesWhileIdle(m_view.window(), 0);
        const QOpenGLContext *const context = m_view.window()->openglContext();
        const bool isCore = context->format().profile() == QSurfaceFormat::CoreProfile;
        if (context->isOpenGLES() != (m_kind == Embedded) || isCore != (m_kind == Core)) {
            qFatal("The context is another one than was asked for");
        }
    }
}

QImage ViewHost::picture()
{
    if (m_kind != GrabbedItem) {
        return support::grab(m_view.window());
    }
    // With a ground: on nothing, the edges of Qt's own letters come out coloured.
    const auto result = root()->parentItem()->grabToImage();
    QSignalSpy ready(result.data(), &QQuickItemGrabResult::ready);
    if (!ready.wait()) {
        qFatal("The item is not grabbed");
    }
    return result->image();
}
