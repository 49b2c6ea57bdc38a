// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drag/Draggable.h"

#include "controls/drag/DragLoop.h"
#include "controls/drag/DraggablePayload.h"
#include "controls/support/QmlPlace.h"

#include <QDebug>
#include <QDrag>
#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPointer>
#include <QQuickWindow>

#include <limits>

namespace om::controls {

/// The Manhattan length, in logical pixels, that a move has to exceed to start a drag.
static constexpr qreal startDistance = 5.0;

/// The z of a lifted item: the largest float, above all overlays.
static constexpr qreal liftedZ = std::numeric_limits<float>::max();

class Draggable::Private
{
public:
    enum State {
        Idle = 0,
        Pressed = 1,
        Dragging = 2
    };

    explicit Private(Draggable *draggable)
        : q(draggable)
    {
    }

    void setState(State newState);
    void press(QQuickItem *receiver, const QMouseEvent *event);
    bool move(const QMouseEvent *event);
    void end();
    void lift();
    void lower();
    void follow(const QPointF &windowPosition);
    void keepOnScreen(QQuickItem *parent);
    QPointF originInParent() const;
    static qreal cumulativeScale(const QQuickItem *item);

    Draggable *const q;
    State state = Idle;
    QPointF pressGlobalPosition;
    QPointF pressItemPosition;
    /// The origin in the parent's coordinates when the drag was about to start.
    QPointF liftOrigin;
    /// The origin in scene coordinates at the last change of state.
    QPointF sceneAnchor;
    /// From the origin of the item that got the press to the press, in the scene.
    QPointF grabOffset;
    qreal savedZ = 0;
    qreal ancestorsScale = 1;
    qreal ownScale = 1;
    QString dragData;
    bool lifted = false;
    bool startScheduled = false;
    /// The drag whose loop is running.
    QPointer<QDrag> runningDrag;
    /// The window that the filter is installed on; the item may have left it since.
    QPointer<QQuickWindow> watchedWindow;
};

// All changes of the state are made here.
void Draggable::Private::setState(State newState)
{
    if (state == newState) {
        return;
    }
    sceneAnchor = q->mapToScene({});
    const State oldState = state;
    state = newState;
    const QPointer<Draggable> alive(q);
    if (oldState == Dragging) {
        Q_EMIT q->isDraggedChanged();
        if (alive) {
            Q_EMIT q->dragEnded();
        }
    } else if (newState == Dragging) {
        Q_EMIT q->isDraggedChanged();
        if (alive) {
            Q_EMIT q->dragStarted();
        }
    }
}

void Draggable::Private::press(QQuickItem *receiver, const QMouseEvent *event)
{
    if (event->buttons() != Qt::LeftButton) {
        return;
    }
    pressGlobalPosition = event->globalPos();
    pressItemPosition = q->position();
    if (!lifted) {
        savedZ = q->z();
    }
    grabOffset = receiver->mapToScene(event->localPos()) - receiver->mapToScene({});
    setState(Pressed);
}

/// Returns whether the move is consumed: from press to drag, children get no moves.
bool Draggable::Private::move(const QMouseEvent *event)
{
    if (state == Idle) {
        return false;
    }
    const QQuickWindow *const window = q->window();
    const QQuickItem *const grabber = window ? window->mouseGrabberItem() : nullptr;
    if (grabber && grabber->keepMouseGrab()) {
        setState(Idle);
        return false;
    }
    if (state != Pressed) {
        return true;
    }
    if ((QPointF(event->globalPos()) - pressGlobalPosition).manhattanLength() > startDistance
        && !startScheduled && !runningDrag) {
        const QPointer<Draggable> alive(q);
        startScheduled = true;
        lift();
        if (alive) {
            // A release before the queued call is delivered does not cancel it.
            QMetaObject::invokeMethod(q, "drag", Qt::QueuedConnection);
        }
    }
    return true;
}

void Draggable::Private::end()
{
    const QPointer<Draggable> alive(q);
    if (state == Dragging) {
        lower();
    }
    if (alive) {
        setState(Idle);
    }
}

void Draggable::Private::lift()
{
    liftOrigin = originInParent();
    lifted = true;
    q->setZ(liftedZ);
}

void Draggable::Private::lower()
{
    if (watchedWindow) {
        watchedWindow->removeEventFilter(q);
        watchedWindow.clear();
    }
    if (lifted) {
        lifted = false;
        q->setZ(savedZ);
    }
}

QPointF Draggable::Private::originInParent() const
{
    const QPointF origin = q->mapToScene({});
    return q->parentItem() ? q->parentItem()->mapFromScene(origin) : origin;
}

void Draggable::Private::follow(const QPointF &windowPosition)
{
    const QPointF origin = q->window()->contentItem()->mapToScene(windowPosition) - grabOffset;
    const QPointF inParent = q->parentItem() ? q->parentItem()->mapFromScene(origin) : origin;
    q->setPosition(inParent - liftOrigin + pressItemPosition);
}

/// Below a new \a parent, restores the scene position of the last change of state and the scale.
void Draggable::Private::keepOnScreen(QQuickItem *parent)
{
    q->setPosition(parent->mapFromScene(sceneAnchor));
    // A parent with the scale 0 has no inverse scale.
    if (const qreal parentScale = cumulativeScale(parent); !qFuzzyIsNull(parentScale)) {
        q->setScale(ancestorsScale / parentScale * ownScale);
    }
}

/// The product of the scales of \a item and its ancestors; 1 for none.
qreal Draggable::Private::cumulativeScale(const QQuickItem *item)
{
    qreal scale = 1;
    for (; item; item = item->parentItem()) {
        scale *= item->scale();
    }
    return scale;
}

Draggable::Draggable(QQuickItem *parent)
    : QQuickItem(parent)
    , d(std::make_unique<Private>(this))
{
    setFiltersChildMouseEvents(true);
    setAcceptedMouseButtons(Qt::LeftButton);
    setTransformOrigin(TopLeft);
}

Draggable::~Draggable()
{
    if (d->state != Private::Idle) {
        const QmlPlace place(this);
        place.log().warning() << "Destroyed Draggable during drag!" << parent();
    }
    if (d->watchedWindow) {
        d->watchedWindow->removeEventFilter(this);
    }
    // QDragManager keeps a bare pointer to its QDrag, which the item as its QObject parent would
    // delete: the QDrag is taken from the item, and its loop is ended.
    if (d->runningDrag) {
        d->runningDrag->setParent(nullptr);
        QDrag::cancel();
    }
}

bool Draggable::isDragged() const
{
    return d->state == Private::Dragging;
}

QString Draggable::dragData() const
{
    return d->dragData;
}

void Draggable::setDragData(const QString &dragData)
{
    if (d->dragData == dragData) {
        return;
    }
    d->dragData = dragData;
    Q_EMIT dragDataChanged();
}

void Draggable::mousePressEvent(QMouseEvent *event)
{
    event->accept();
    d->press(this, event);
}

void Draggable::mouseMoveEvent(QMouseEvent *event)
{
    event->accept();
    d->move(event);
}

void Draggable::mouseReleaseEvent(QMouseEvent *event)
{
    event->accept();
    d->end();
}

bool Draggable::childMouseEventFilter(QQuickItem *item, QEvent *event)
{
    const QPointer<Draggable> alive(this);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        d->press(item, static_cast<const QMouseEvent *>(event));
        break;
    case QEvent::MouseMove:
        return d->move(static_cast<const QMouseEvent *>(event));
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
        d->end();
        break;
    default:
        break;
    }
    return alive && d->state == Private::Dragging;
}

bool Draggable::eventFilter(QObject *watched, QEvent *event)
{
    const QPointer<QObject> receiver(watched);
    if (event->type() == QEvent::DragMove && window()) {
        d->follow(static_cast<const QDropEvent *>(event)->pos());
    }
    // A window that a handler has destroyed cannot get the event any more.
    return receiver.isNull();
}

void Draggable::itemChange(ItemChange change, const ItemChangeData &value)
{
    if (change == ItemParentHasChanged && value.item) {
        setParent(value.item);
        if (d->state == Private::Dragging) {
            d->keepOnScreen(value.item);
        }
    }
    QQuickItem::itemChange(change, value);
}

/// Runs the drag, also when the button was released before this queued call was delivered.
void Draggable::drag()
{
    d->startScheduled = false;
    // The loop of one drag may still run after a release inside it.
    if (d->state == Private::Dragging || d->runningDrag) {
        return;
    }
    d->ownScale = scale();
    d->ancestorsScale = Private::cumulativeScale(parentItem());
    const QPointer<Draggable> alive(this);
    d->setState(Private::Dragging);
    if (!alive) {
        return;
    }
    if (window()) {
        d->watchedWindow = window();
        window()->installEventFilter(this);
    }
    const QPointer<QDrag> drag = new QDrag(this);
    d->runningDrag = drag;
    auto *const mimeData = new QMimeData;
    mimeData->setData(draggablepayload::format(), draggablepayload::write(d->dragData));
    drag->setMimeData(mimeData);
    runDragLoop(drag, Qt::CopyAction | Qt::MoveAction | Qt::LinkAction);
    if (!alive) {
        return;
    }
    d->runningDrag.clear();
    // Also when the gesture ended inside the loop. Before the end is announced: a handler of that
    // may begin the next gesture, which lifts the item again.
    d->lower();
    if (alive) {
        d->end();
    }
}

} // namespace om::controls
