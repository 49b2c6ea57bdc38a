// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/input/KeyEventSource.h"

#include "controls/support/Teardown.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QQuickWindow>

namespace om::controls {

class KeyEventSource::Private
{
public:
    explicit Private(KeyEventSource *source)
        : q(source)
    {
    }

    KeyEventSource *const q;
    QPointer<QQuickItem> target;
};

KeyEventSource::KeyEventSource(QQuickItem *parent)
    : QQuickItem(parent)
    , d(std::make_unique<Private>(this))
{
}

KeyEventSource::~KeyEventSource()
{
    leaveItemTree(this);
}

QQuickItem *KeyEventSource::target() const
{
    return d->target;
}

void KeyEventSource::setTarget(QQuickItem *target)
{
    if (d->target == target) {
        return;
    }
    d->target = target;
    Q_EMIT targetChanged();
}

void KeyEventSource::triggerKeyEvent(Qt::Key key, const QString &text)
{
    // Strokes go to the focus item only, never to the target: with a target none is sent.
    if (d->target || !window()) {
        return;
    }
    const QPointer<QQuickItem> item(qobject_cast<QQuickItem *>(window()->focusObject()));
    if (!item) {
        return;
    }

    // Handlers of the focus and of the keys may destroy the item or the source from here on.
    if (!item->hasActiveFocus()) {
        item->forceActiveFocus();
    }
    if (!item) {
        return;
    }
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(item, &press);
    if (!item || !press.isAccepted()) {
        return;
    }
    QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier);
    QCoreApplication::sendEvent(item, &release);
}

} // namespace om::controls
