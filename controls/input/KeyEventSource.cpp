// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/input/KeyEventSource.h"

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
    // Leaving the tree runs handlers, which may ask for what is in the record: it must not be left
    // to the base class, which goes when the record is gone.
    setParentItem(nullptr);
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
    // Strokes only ever go to the focus item; a target switches the source off.
    if (d->target || !window()) {
        return;
    }
    const QPointer<QQuickItem> item(qobject_cast<QQuickItem *>(window()->focusObject()));
    if (!item) {
        return;
    }

    // From here on whoever handles the focus or the keys may destroy the item, or the source.
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
