// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QQuickItem>

#include <memory>

namespace om::controls {

/// Sends key strokes to the item that has the keyboard focus in the source's window, as the keys of
/// an on-screen keyboard do.
class KeyEventSource : public QQuickItem
{
    Q_OBJECT
    /// While this is set, the source is silent: no stroke is sent to anybody, the target included.
    /// Not owned; null once the item is destroyed, without a signal.
    Q_PROPERTY(QQuickItem *target READ target WRITE setTarget NOTIFY targetChanged)

public:
    explicit KeyEventSource(QQuickItem *parent = nullptr);
    ~KeyEventSource() override;

    QQuickItem *target() const;
    void setTarget(QQuickItem *target);

    /// Presses and releases \a key, without modifiers, on the item with the keyboard focus; \a text
    /// is what the press types. Both are delivered before the call returns. The release, which
    /// carries no text, is sent only when the press was accepted. Without a window, or when no item
    /// has the focus, nothing happens.
    Q_INVOKABLE void triggerKeyEvent(Qt::Key key, const QString &text);

Q_SIGNALS:
    void targetChanged();

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace om::controls
