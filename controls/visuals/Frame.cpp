// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/visuals/Frame.h"

#include "controls/support/Teardown.h"
#include "controls/visuals/FrameItem.h"

#include <QPointer>
#include <QQuickWindow>

namespace om::controls {

class Frame::Private
{
public:
    explicit Private(Frame *frame)
        : q(frame)
        , ring(new FrameItem(frame))
    {
    }

    void attach(QQuickWindow *window);
    void follow();

    Frame *const q;
    /// A QObject child of the Frame, and a child item of the window's content item, where the
    /// application may find and destroy it; the Frame draws nothing then.
    const QPointer<FrameItem> ring;
    QPointer<QQuickWindow> window; // the one whose content item has the ring
    bool attached = false; // ever since completion in a window
};

void Frame::Private::attach(QQuickWindow *newWindow)
{
    if (window) {
        QObject::disconnect(window, &QQuickWindow::beforeSynchronizing, q, &Frame::updateGeometry);
    }
    window = newWindow;
    attached = true;
    if (ring) {
        ring->setParentItem(window ? window->contentItem() : nullptr);
    }
    if (window) {
        // The signal is emitted on the thread that synchronises: under the basic loop the slot runs
        // at once, under the threaded loop it is queued and shows in the next frame.
        QObject::connect(window, &QQuickWindow::beforeSynchronizing, q, &Frame::updateGeometry);
    }
}

/// Moves the ring to the present window of the Frame.
void Frame::Private::follow()
{
    if (window != q->window()) {
        attach(q->window());
    }
}

Frame::Frame(QQuickItem *parent)
    : QQuickItem(parent)
    , d(std::make_unique<Private>(this))
{
}

Frame::~Frame()
{
    if (d->window) {
        disconnect(d->window, &QQuickWindow::beforeSynchronizing, this, &Frame::updateGeometry);
    }
    dropQueuedCalls(this);
}

int Frame::frameWidth() const
{
    return d->ring ? d->ring->frameWidth() : 0;
}

void Frame::setFrameWidth(int frameWidth)
{
    const int width = qMax(0, frameWidth);
    if (!d->ring || d->ring->frameWidth() == width) {
        return;
    }
    d->ring->setFrameWidth(width);
    Q_EMIT frameWidthChanged();
}

QColor Frame::color() const
{
    return d->ring ? d->ring->color() : QColor();
}

void Frame::setColor(const QColor &color)
{
    if (!d->ring || d->ring->color() == color) {
        return;
    }
    d->ring->setColor(color);
    Q_EMIT colorChanged();
}

void Frame::componentComplete()
{
    // Completed without a window, a Frame never shows a ring; the base class is not called either.
    if (!window()) {
        return;
    }
    d->attach(window());
    QQuickItem::componentComplete();
}

void Frame::itemChange(ItemChange change, const ItemChangeData &value)
{
    // The base class is not called: it would only emit windowChanged(), which a Frame never
    // emits.
    if (change == ItemVisibleHasChanged && d->ring) {
        d->ring->setVisible(value.boolValue);
    } else if (change == ItemOpacityHasChanged && d->ring) {
        d->ring->setOpacity(value.realValue);
    } else if (change == ItemSceneChange && d->attached) {
        // Queued: Qt Quick is iterating over the old window's items, the ring among them.
        QMetaObject::invokeMethod(
            this, [this] { d->follow(); }, Qt::QueuedConnection);
    }
}

void Frame::updateGeometry()
{
    if (!d->ring) {
        return;
    }
    const qreal w = d->ring->frameWidth();
    d->ring->setRect(mapRectToScene(boundingRect()).adjusted(-w, -w, w, w));
}

} // namespace om::controls
