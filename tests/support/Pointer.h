// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPoint>
#include <Qt>

#include <memory>

namespace support {

/// The real pointer and keyboard of the X server that the test runs on: what it does reaches every
/// program on that server the way a hand's input does, so it drives drags that Qt runs in a loop of
/// its own and drags that cross processes.
///
/// It has a connection of its own: calls may come from any thread (one at a time) and return when
/// the server has carried them out. That the application has seen them is a condition to wait for.
/// Positions are global, in device pixels.
class Pointer
{
public:
    Pointer();
    /// Releases what is still held and parks the pointer in the screen's last corner.
    ~Pointer();

    /// False when there is no X server or it does not take synthetic input.
    bool isValid() const;

    void move(const QPoint &position);
    void press(Qt::MouseButton button = Qt::LeftButton);
    void release(Qt::MouseButton button = Qt::LeftButton);
    /// Turns the wheel by a number of notches, down when positive.
    void turnWheel(int notches);
    /// Presses or releases a key: letters, digits and the editing, arrow and modifier keys.
    void pressKey(Qt::Key key);
    void releaseKey(Qt::Key key);
    /// Releases all buttons and keys that this object pressed.
    void releaseAll();

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace support
