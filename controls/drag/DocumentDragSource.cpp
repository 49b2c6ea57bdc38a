// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drag/DocumentDragSource.h"

#include "controls/drag/DocumentsPayload.h"
#include "controls/drag/DragLoop.h"
#include "controls/drag/DragVisualState.h"
#include "controls/support/OverlayZ.h"
#include "controls/support/QmlPlace.h"

#include <QCoreApplication>
#include <QCursor>
#include <QDrag>
#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPixmap>
#include <QQmlEngine>
#include <QQuickWindow>

#include <algorithm>
#include <vector>

namespace om::controls {

using om::data::Document;

/// The Manhattan length at which a drag starts, in logical pixels: the same on every platform,
/// whose own start distance is not asked.
static constexpr qreal startDistance = 4.0;

DocumentDragSource::DocumentDragSource(QQuickItem *sourceItem, const Differences &differences)
    : source(sourceItem)
    , m_differences(differences)
    , m_documents([this](Document *) { announceDocuments(); })
{
}

DocumentDragSource::~DocumentDragSource() = default;

void DocumentDragSource::abandon()
{
    // Before QDrag::cancel() below, which sends the window a last drag-leave event.
    watchWindow(nullptr);
    endIncubation();
    if (m_visual) {
        m_visual->deleteLater();
    }
    // QDragManager keeps a bare pointer to its QDrag, which the source as its QObject parent would
    // delete: the QDrag is taken from the source, and its loop is ended.
    if (m_loopRunning && m_drag) {
        m_drag->setParent(nullptr);
        QDrag::cancel();
    }
}

// The gesture. Every signal runs the application's code, which may destroy the source or send it
// further events: code after a signal checks that the source lives and reads the state again.

void DocumentDragSource::filterChildEvent(QQuickItem *child, const QEvent *event)
{
    const QPointer<QQuickItem> alive(source);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        press(child, static_cast<const QMouseEvent *>(event));
        break;
    case QEvent::MouseMove:
        move(child, static_cast<const QMouseEvent *>(event));
        break;
    case QEvent::MouseButtonRelease:
        release();
        break;
    case QEvent::UngrabMouse:
        ungrab(child);
        return;
    default:
        return;
    }
    if (alive && m_state == Dragging && m_differences.endsWithLoop && !isAboutToRun()) {
        finish();
    }
}

void DocumentDragSource::press(QQuickItem *child, const QMouseEvent *event)
{
    if (event->buttons() != Qt::LeftButton) {
        return;
    }
    const bool leavesADrag = m_state == Dragging && !m_loopRunning;
    m_pressPosition = event->localPos();
    setGestureChild(child);
    m_state = Pressed;
    m_finishing = false;
    if (leavesADrag) {
        // The last drag got no release, so finish() has not run. What it left is removed here; no
        // dragActiveChanged() is emitted for it.
        cleanUp();
    }
}

void DocumentDragSource::move(QQuickItem *child, const QMouseEvent *event)
{
    // Not between start() and the loop: the drag has been announced, and nothing would announce its
    // end.
    if (m_differences.yieldsToKeptGrab && !isAboutToRun()) {
        const QQuickWindow *const window = source->window();
        const QQuickItem *const grabber = window ? window->mouseGrabberItem() : nullptr;
        if (grabber && grabber->keepMouseGrab()) {
            m_state = Idle;
            return;
        }
    }
    if (m_state == Idle) {
        return;
    }
    setGestureChild(child);
    if (m_state != Pressed) {
        return;
    }
    if (m_documents.count() == 0) {
        m_state = Idle;
        return;
    }
    // A second drag cannot run inside the loop of the first.
    if ((m_pressPosition - event->localPos()).manhattanLength() < startDistance || m_drag) {
        return;
    }
    start();
}

void DocumentDragSource::start()
{
    const QPointer<QQuickItem> alive(source);
    m_state = Dragging;
    m_loopIsOver = false;
    announceActive(true);
    // A handler of the signal may run an event loop in which the next gesture has made its own
    // drag, or has ended: then this one makes none.
    if (!alive || m_state != Dragging || m_drag || m_loopIsOver) {
        return;
    }
    watchWindow(source->window());
    const QPointer<QDrag> drag(new QDrag(source));
    m_drag = drag;
    auto mimeData = std::make_unique<QMimeData>();
    mimeData->setData(documentspayload::format(), documentspayload::write(m_documents.snapshot()));
    // documentId() is the application's code: it may have destroyed the source or ended the
    // gesture, and the drag with them.
    if (!drag) {
        return;
    }
    drag->setMimeData(mimeData.release());
    if (m_differences.setsCursors) {
        // The platform's arrow is no pixmap cursor, so this pixmap is null, and a null pixmap
        // leaves an action the cursor that it has.
        const QPixmap arrow = QCursor(Qt::ArrowCursor).pixmap();
        for (Qt::DropAction action : {Qt::LinkAction, Qt::MoveAction, Qt::CopyAction}) {
            drag->setDragCursor(arrow, action);
        }
    }
    scheduleRun();
    createVisual();
}

void DocumentDragSource::scheduleRun()
{
    // One queued call for all gestures that begin before it is delivered: it runs the last drag.
    if (!m_runScheduled) {
        m_runScheduled = true;
        QMetaObject::invokeMethod(
            &m_callContext, [this] { runDrag(); }, Qt::QueuedConnection);
    }
}

/// Runs the platform's drag loop, which delivers events to the whole application: the source may be
/// destroyed when it returns.
void DocumentDragSource::runDrag()
{
    if (!m_runScheduled) {
        return; // beginLoopAt() was earlier
    }
    m_runScheduled = false;
    const QPointer<QQuickItem> alive(source);
    if (m_drag && m_state == Dragging) {
        m_loopRunning = true;
        runDragLoop(m_drag, Qt::MoveAction);
        if (!alive) {
            return;
        }
        m_loopRunning = false;
        m_drag.clear();
        m_loopIsOver = true;
        endIncubation();
        if (!alive) {
            return;
        }
    }
    if (m_state != Dragging) {
        // The loop's events have ended this gesture or begun the next one.
        cleanUp();
    } else if (m_differences.endsWithLoop || !canBeReleased()) {
        finish();
    }
}

/// Events that the window system has queued are delivered before queued calls: while the
/// application was busy, a quick hand may have moved on and let go, which would end the drag before
/// its loop. The loop begins at the first of these events then, and gets a copy of it. False for
/// other events, and for those that code sends, which have not waited.
bool DocumentDragSource::beginLoopAt(const QEvent *event)
{
    const bool isOfTheHand =
        event->type() == QEvent::MouseMove || event->type() == QEvent::MouseButtonRelease;
    if (!isOfTheHand || !event->spontaneous() || !m_runScheduled || !m_drag || !isAboutToRun()) {
        return false;
    }
    QCoreApplication::postEvent(m_watchedWindow,
                                new QMouseEvent(*static_cast<const QMouseEvent *>(event)));
    runDrag();
    return true;
}

void DocumentDragSource::release()
{
    if (m_state != Dragging) {
        m_state = Idle;
        return;
    }
    if (m_differences.tellsReleases) {
        QmlPlace(source).log().debug("discard");
    }
    finish();
}

/// Remembers the \a child whose events make the gesture. If it is destroyed before its release, no
/// release can arrive: a queued call then ends the drag, as a destructor must emit no signal.
void DocumentDragSource::setGestureChild(QQuickItem *child)
{
    if (m_gestureChild == child) {
        return;
    }
    QObject::disconnect(m_childWatch);
    m_gestureChild = child;
    m_childWatch = QObject::connect(
        child, &QObject::destroyed, &m_callContext,
        [this] {
            if (isWaitingForRelease() && !canBeReleased()) {
                finish();
            }
        },
        Qt::QueuedConnection);
}

/// The \a child has lost the mouse: the release will be another item's.
void DocumentDragSource::ungrab(const QQuickItem *child)
{
    if (m_gestureChild != child) {
        return;
    }
    m_gestureChild.clear();
    if (isWaitingForRelease()) {
        finish();
    }
}

/// Whether there is a drag whose loop has not begun.
bool DocumentDragSource::isAboutToRun() const
{
    return m_state == Dragging && !m_loopRunning && !m_loopIsOver;
}

/// Whether the loop is over and the drag is not.
bool DocumentDragSource::isWaitingForRelease() const
{
    return m_state == Dragging && m_loopIsOver;
}

/// Whether a release can still arrive by way of the child that has the gesture. A drop that removes
/// the dragged row takes that child away.
bool DocumentDragSource::canBeReleased() const
{
    return m_gestureChild && source->filtersChildMouseEvents();
}

/// Ends a drag: announces the end, then removes the visual, the QDrag and the filter.
void DocumentDragSource::finish()
{
    if (m_finishing) {
        return;
    }
    watchWindow(nullptr);
    const QPointer<QQuickItem> alive(source);
    m_finishing = true;
    announceActive(false);
    // A press inside the signal resets m_finishing: the gesture that it begins is not ended.
    if (!alive || !m_finishing) {
        return;
    }
    cleanUp();
    if (alive && m_finishing) {
        m_finishing = false;
        m_state = Idle;
    }
}

/// Removes the visual, the QDrag and the filter of a drag whose loop is over.
void DocumentDragSource::cleanUp()
{
    watchWindow(nullptr);
    if (m_drag && !m_loopRunning) {
        delete m_drag.data();
    }
    const QPointer<QQuickItem> alive(source);
    endIncubation();
    if (alive) {
        removeVisual();
    }
}

// The visual

void DocumentDragSource::watchWindow(QQuickWindow *window)
{
    if (m_watchedWindow) {
        m_watchedWindow->removeEventFilter(source);
    }
    m_watchedWindow = window;
    if (window) {
        window->installEventFilter(source);
    }
}

void DocumentDragSource::createVisual()
{
    // A component that failed or is still loading makes nothing.
    if (!m_delegate || !m_delegate->isReady()) {
        return;
    }
    m_incubator = createIncubator();
    // The incubator works on inside the drag loop. endIncubation() discards an incomplete visual.
    m_delegate->create(*m_incubator, m_delegate->creationContext());
}

void DocumentDragSource::adoptVisual(QObject *object)
{
    m_incubated = object;
    introduceTo(object);
    auto *const item = qobject_cast<QQuickItem *>(object);
    if (!item) {
        return;
    }
    QQmlEngine::setObjectOwnership(item, QQmlEngine::CppOwnership);
    m_visual = item;
    const QPointer<QQuickItem> visual(item);
    const bool raises = m_differences.raisesVisual;
    if (QQuickWindow *const window = source->window()) {
        // In window coordinates; as its child it also goes when the window does.
        item->setParent(window->contentItem());
        item->setParentItem(window->contentItem());
    }
    // Its own handlers, which run already, may have destroyed it, and the source.
    if (visual && raises) {
        visual->setZ(overlayz::dragVisual);
    }
}

/// Ends the incubation and destroys a visual that is not complete.
void DocumentDragSource::endIncubation()
{
    // Destroying the visual runs the application's code, which may destroy the source.
    const std::unique_ptr<QQmlIncubator> incubator = std::move(m_incubator);
    const QPointer<QObject> incubated = m_incubated;
    m_incubated.clear();
    if (!incubator) {
        return;
    }
    if (incubator->isLoading()) {
        m_visual.clear();
        // Before the incubator's destructor: that would leave it in the engine's count of running
        // incubations, and an engine withholds its warnings while that count is not 0.
        incubator->clear();
    } else if (incubated && !qobject_cast<QQuickItem *>(incubated)) {
        incubated->deleteLater();
    }
}

bool DocumentDragSource::filterWindowEvent(const QObject *window, const QEvent *event)
{
    const QPointer<const QObject> receiver(window);
    if (beginLoopAt(event)) {
        return true;
    }
    DragVisualState *const visual = m_visual ? visualState(m_visual) : nullptr;
    if (!visual) {
        return false;
    }
    switch (event->type()) {
    case QEvent::DragEnter: {
        const QPointer<QQuickItem> alive(source);
        const QPointF position = static_cast<const QDropEvent *>(event)->posF();
        visual->setOutside(false);
        if (alive) {
            moveVisual(position);
        }
        break;
    }
    case QEvent::DragMove:
        moveVisual(static_cast<const QDropEvent *>(event)->posF());
        break;
    case QEvent::DragLeave:
        visual->setOutside(true);
        break;
    default:
        break;
    }
    return receiver.isNull();
}

void DocumentDragSource::moveVisual(const QPointF &position)
{
    if (m_visual) {
        m_visual->setPosition(position - visualState(m_visual)->hotspot());
    }
}

void DocumentDragSource::removeVisual()
{
    const QPointer<QQuickItem> visual = m_visual;
    m_visual.clear();
    if (!visual) {
        return;
    }
    DragVisualState *const state = visualState(visual);
    if (state && state->delayRemove()) {
        const QPointer<QQuickItem> alive(source);
        state->setDropped(true);
        // A handler of droppedChanged() may have cleared delayRemove, which schedules the deletion.
        if (alive && visual && visualState(visual)->delayRemove()) {
            deleteWhenReleased(visual);
            return;
        }
    }
    if (visual) {
        visual->deleteLater();
    }
}

// Properties

bool DocumentDragSource::isEnabled() const
{
    return source->filtersChildMouseEvents();
}

void DocumentDragSource::setEnabled(bool enabled)
{
    if (isEnabled() == enabled) {
        return;
    }
    source->setFiltersChildMouseEvents(enabled);
    const QPointer<QQuickItem> alive(source);
    if (!enabled && isWaitingForRelease()) {
        finish();
    }
    if (alive) {
        announceEnabled(enabled);
    }
}

void DocumentDragSource::setDelegate(QQmlComponent *delegate)
{
    if (m_delegate == delegate) {
        return;
    }
    m_delegate = delegate;
    announceDelegate(delegate);
}

void DocumentDragSource::setDocuments(const QList<Document *> &documents)
{
    QList<Document *> wanted = documents;
    wanted.removeAll(nullptr);
    const std::vector<QPointer<Document>> present = m_documents.snapshot();
    if (std::equal(present.cbegin(), present.cend(), wanted.cbegin(), wanted.cend())) {
        return;
    }
    m_documents.clear();
    for (Document *document : qAsConst(wanted)) {
        m_documents.append(document);
    }
    announceDocuments();
}

QQmlListProperty<Document> DocumentDragSource::documentList()
{
    return listProperty<Document>(source, m_listKey);
}

void DocumentDragSource::append(Document *document)
{
    if (!document) {
        return;
    }
    m_documents.append(document);
    announceDocuments();
}

} // namespace om::controls
