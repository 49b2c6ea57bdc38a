// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>
#include <QMetaObject>

#include <atomic>
#include <memory>

class QQuickWindow;
class QWindow;

namespace support {

/// Sets \a window, not shown yet, at a fixed place of the screen where no window manager moves,
/// decorates or covers it, and takes the pointer out of its way.
void pinToScreen(QWindow *window);

/// What the X server shows at the place of \a window. QQuickWindow::grabWindow() renders a frame by
/// itself, so it shows a change that never asked for a frame; this does not.
QImage screenPixels(const QWindow *window);

/// Counts the frames that a window swaps, on whatever thread it renders.
class FrameCounter
{
public:
    explicit FrameCounter(QQuickWindow *window);
    ~FrameCounter();
    Q_DISABLE_COPY(FrameCounter)

    int count() const;
    /// Waits until no frame has come for a while.
    void settle() const;
    /// Begins again at 0.
    void reset();

private:
    // Shared with the connection: the render thread may be counting while this is destroyed.
    const std::shared_ptr<std::atomic<int>> m_count;
    const QMetaObject::Connection m_connection;
};

} // namespace support
