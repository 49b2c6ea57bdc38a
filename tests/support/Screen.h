// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>
#include <QMetaObject>
#include <QQuickWindow>

#include <atomic>
#include <memory>

class QWindow;

namespace support {

/// Sets \a window, not shown yet, at a fixed place of the screen where no window manager moves,
/// decorates or covers it, and takes the pointer out of its way.
void pinToScreen(QWindow *window);

/// What the X server shows at the place of \a window. QQuickWindow::grabWindow() renders a frame by
/// itself, so it shows a change that never asked for a frame; this does not.
QImage screenPixels(const QWindow *window);

/// Counts the frames that a window swaps, or how often it emits another \a signal, on whatever
/// thread it renders. A QSignalSpy writes its list on the thread that emits.
class FrameCounter
{
public:
    explicit FrameCounter(QQuickWindow *window,
                          void (QQuickWindow::*signal)() = &QQuickWindow::frameSwapped);
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
