// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>
#include <QQuickItem>

#include <memory>

/// A way in which an application shows a document.
class Host
{
public:
    virtual ~Host();

    /// Shows the document \a file, whose root is an item. What is wrong with it is fatal.
    virtual void show(const QString &file) = 0;
    virtual QQuickItem *root() const = 0;
    /// What is seen by now.
    virtual QImage picture() = 0;
};

/// The host of this name; null if there is none. What belongs to the process, as the renderer and
/// the platform do, is the environment's.
///
/// view     a window
/// es       a window with OpenGL ES
/// core     a window with a core profile
/// item     a window whose root item is grabbed into an image
/// layer    a window whose root item is a layer
/// effect   a window that shows its root item through a ShaderEffectSource
/// moved    a window that was shown on the first screen and moved to the second
/// widget   QQuickWidget
/// control  QQuickRenderControl, which renders into a framebuffer
std::unique_ptr<Host> makeHost(const QString &name);
