// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drag/DocumentDragSource.h"

#include "controls/drag/DocumentsPayload.h"
#include "controls/drag/DragVisual.h"

#include <QCursor>
#include <QDrag>
#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPixmap>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickWindow>

namespace om::controls {

using om::data::Document;

/// The Manhattan length at which a drag starts, in logical pixels. Deliberately not the platform's.
static constexpr qreal startDistance = 4.0;

DocumentDragSource::DocumentDragSource(QQuickItem *sourceItem, const Differences &differences)
    : source(sourceItem)
    , m_differences(differences)
{
}

DocumentDragSource::~DocumentDragSource()
{
    // First of all: cancelling sends a last leave to the window.
    watchWindow(nullptr);
    m_incubator.reset();
    if (m_visual) {
        m_visual->deleteLater();
    }
    // The drag manager keeps a bare pointer to its drag, a child of the source: it must not go down
    // with it, and the loop must not go on without a source.
    if (m_loopRunning && m_drag) {
        m_drag->setParent(nullptr);
        QDrag::cancel();
    }
}

// The gesture

void DocumentDragSource::filterChildEvent(QQuickItem *child, const QEvent *event)
{
    const QPointer<QQuickItem> alive(source);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        press(child, static_cast<const QMouseEvent *>(event));
        break;
    case QEvent::MouseMove:
        move(static_cast<const QMouseEvent *>(event));
        break;
    case QEvent::MouseButtonRelease:
        release();
        break;
    case QEvent::UngrabMouse:
        // The child that would have got the release has lost the mouse.
        if (m_state == Dragging && !m_drag) {
            finish();
        }
        return;
    default:
        return;
    }
    const bool aboutToRun = alive && m_drag && !m_loopRunning;
    if (alive && m_state == Dragging && m_differences.endsWithLoop && !aboutToRun) {
        finish();
    }
}

void DocumentDragSource::press(QQuickItem *child, const QMouseEvent *event)
{
    if (event->buttons() != Qt::LeftButton) {
        return;
    }
    if (m_state == Dragging && !m_drag) {
        // The last drag ended without a release. The new press deliberately announces no end, but
        // nothing of the old drag may stay behind.
        cleanUp();
    }
    m_pressPosition = event->localPos();
    m_pressedChild = child;
    m_state = Pressed;
}

void DocumentDragSource::move(const QMouseEvent *event)
{
    if (m_differences.yieldsToKeptGrab) {
        const QQuickWindow *const window = source->window();
        const QQuickItem *const grabber = window ? window->mouseGrabberItem() : nullptr;
        if (grabber && grabber->keepMouseGrab()) {
            m_state = Idle;
            return;
        }
    }
    if (m_state != Pressed) {
        return;
    }
    if (m_documents.isEmpty()) {
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
    announceActive(true);
    if (!alive || m_state != Dragging) {
        return;
    }
    watchWindow(source->window());
    prepareDrag();
    if (alive) {
        QMetaObject::invokeMethod(
            source, [this] { runDrag(); }, Qt::QueuedConnection);
    }
}

void DocumentDragSource::prepareDrag()
{
    m_drag = new QDrag(source);
    auto *const mimeData = new QMimeData;
    mimeData->setData(documentspayload::format(), documentspayload::write(m_documents));
    m_drag->setMimeData(mimeData);
    if (m_differences.setsCursors) {
        const QPixmap arrow = QCursor(Qt::ArrowCursor).pixmap();
        for (Qt::DropAction action : {Qt::LinkAction, Qt::MoveAction, Qt::CopyAction}) {
            m_drag->setDragCursor(arrow, action);
        }
    }
    createVisual();
}

/// Runs the platform's drag loop, in which everything may happen: afterwards the source may be
/// gone.
void DocumentDragSource::runDrag()
{
    const QPointer<QQuickItem> alive(source);
    if (m_drag && m_state == Dragging) {
        m_loopRunning = true;
        // Qt schedules the drag for deletion: at the end of its loop, or once another process has
        // fetched what was dropped on it.
        m_drag->exec(Qt::MoveAction);
        if (!alive) {
            return;
        }
        m_loopRunning = false;
        m_drag.clear();
    }
    endIncubation();
    if (!alive) {
        return;
    }
    if (m_state != Dragging) {
        // Ended or pressed anew meanwhile.
        cleanUp();
    } else if (m_differences.endsWithLoop || !canBeReleased()) {
        finish();
    }
}

/// Leaves nothing of a drag behind that is not running any more.
void DocumentDragSource::cleanUp()
{
    watchWindow(nullptr);
    if (m_drag && !m_loopRunning) {
        delete m_drag.data();
    }
    removeVisual();
}

void DocumentDragSource::release()
{
    if (m_state != Dragging) {
        m_state = Idle;
        return;
    }
    releasedWhileDragging();
    finish();
}

/// Ends a drag and leaves nothing of it behind.
void DocumentDragSource::finish()
{
    if (m_finishing) {
        return;
    }
    watchWindow(nullptr);
    const QPointer<QQuickItem> alive(source);
    m_finishing = true;
    announceActive(false);
    if (!alive) {
        return;
    }
    cleanUp();
    if (alive) {
        m_finishing = false;
        m_state = Idle;
    }
}

/// Whether a release can still arrive by way of the child that got the press. A drop that removes
/// the dragged row takes that child away.
bool DocumentDragSource::canBeReleased() const
{
    const QQuickWindow *const window = source->window();
    return window && m_pressedChild && source->filtersChildMouseEvents()
        && window->mouseGrabberItem() == m_pressedChild;
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
    m_incubated.clear();
    m_incubator = createIncubator();
    // The incubation goes on inside the drag loop; what is not complete by its end goes.
    m_delegate->create(*m_incubator, m_delegate->creationContext());
}

void DocumentDragSource::adoptVisual(QObject *object)
{
    m_incubated = object;
    auto *const item = qobject_cast<QQuickItem *>(object);
    if (!item || m_tooLate) {
        return;
    }
    QQmlEngine::setObjectOwnership(item, QQmlEngine::CppOwnership);
    m_visual = item;
    if (QQuickWindow *const window = source->window()) {
        // In window coordinates; as its child it also goes when the window does.
        item->setParent(window->contentItem());
        item->setParentItem(window->contentItem());
    }
}

/// Ends the incubation at the end of the drag loop: what is not a complete visual by now goes.
///
/// An engine counts what is merely abandoned as being made for ever, and as long as it makes
/// something it keeps back its warnings about broken bindings. So what has been begun is destroyed,
/// which the engine notices, and what has not is made and thrown away.
void DocumentDragSource::endIncubation()
{
    if (!m_incubator) {
        return;
    }
    const std::unique_ptr<QQmlIncubator> incubator = std::move(m_incubator);
    if (incubator->isLoading()) {
        const QPointer<QQuickItem> alive(source);
        m_tooLate = true;
        delete m_incubated.data();
        incubator->forceCompletion();
        if (QObject *const object = incubator->object()) {
            object->deleteLater();
        }
        if (alive) {
            m_tooLate = false;
        }
    } else if (m_incubated && !qobject_cast<QQuickItem *>(m_incubated)) {
        m_incubated->deleteLater();
    }
}

void DocumentDragSource::filterWindowEvent(const QEvent *event)
{
    if (!m_visual) {
        return;
    }
    DragVisual *const visual = visualState(m_visual);
    if (!visual) {
        return;
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
    DragVisual *const state = visualState(visual);
    if (state && state->delayRemove()) {
        const QPointer<QQuickItem> alive(source);
        state->setDropped(true);
        // Whoever lets go of it inside that signal has let go of it.
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
    if (m_documents == documents) {
        return;
    }
    for (const QMetaObject::Connection &watch : qAsConst(m_watches)) {
        QObject::disconnect(watch);
    }
    m_watches.clear();
    m_documents.clear();
    for (Document *document : documents) {
        watchDocument(document);
        m_documents.append(document);
    }
    announceDocuments();
}

QQmlListProperty<Document> DocumentDragSource::documentList()
{
    using List = QQmlListProperty<Document>;
    return {source,
            this,
            [](List *list, Document *document) {
                static_cast<DocumentDragSource *>(list->data)->append(document);
            },
            [](List *list) {
                return static_cast<DocumentDragSource *>(list->data)->m_documents.count();
            },
            [](List *list, int index) {
                return static_cast<DocumentDragSource *>(list->data)->m_documents.value(index);
            },
            [](List *list) { static_cast<DocumentDragSource *>(list->data)->clear(); }};
}

void DocumentDragSource::append(Document *document)
{
    // What JavaScript pushes arrives unchecked, whatever its type is.
    if (!qobject_cast<Document *>(static_cast<QObject *>(document))) {
        return;
    }
    watchDocument(document);
    m_documents.append(document);
    announceDocuments();
}

void DocumentDragSource::clear()
{
    if (!m_documents.isEmpty()) {
        setDocuments({});
    }
}

/// Lets a document that is destroyed leave the list.
void DocumentDragSource::watchDocument(Document *document)
{
    if (!m_watches.contains(document)) {
        m_watches.insert(document,
                         QObject::connect(document, &QObject::destroyed, source,
                                          [this, document] { forgetDocument(document); }));
    }
}

void DocumentDragSource::forgetDocument(Document *document)
{
    m_watches.remove(document);
    if (m_documents.removeAll(document) > 0) {
        announceDocuments();
    }
}

} // namespace om::controls
