// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "controls/drag/DragVisualHost.h"
#include "controls/support/ElementList.h"
#include "controls/support/ListProperty.h"

#include <OmbrelDataCore/Document.h>

#include <QList>
#include <QMetaObject>
#include <QObject>
#include <QPointF>
#include <QPointer>
#include <QQmlComponent>
#include <QQmlIncubator>
#include <QQuickItem>

#include <memory>

class QDrag;
class QMouseEvent;
class QQuickWindow;

namespace om::controls {

class DragVisualState;

/// The body of both document sources: the gesture, the documents, the payload, the visual that
/// follows the cursor, the filter on the window. Each source has one and hands its events to it;
/// what it does differently is in its Differences.
///
/// The gesture has three states:
///
///     Idle      -> Pressed    a press with exactly the left button held (from any state)
///     Pressed   -> Idle       a release; a move without documents
///     any       -> Idle       a move while another item keeps the mouse grab, except between
///                             start() and the loop (only where the source yields to it)
///     Pressed   -> Dragging   a move of a Manhattan length of 4 or more, start()
///     Dragging  -> Idle       finish(): a release, or what ends the drag in its place
///
/// The platform's drag loop runs from the event loop, not from inside the move that starts it: the
/// drop may destroy the child that the move is for, and Qt Quick delivers the move to it
/// afterwards.
class DocumentDragSource : public DragVisualHost
{
public:
    enum State {
        Idle = 0,
        Pressed = 1,
        Dragging = 2
    };

    /// Where one source differs from the other.
    struct Differences
    {
        /// A move gives the gesture up while another item keeps the mouse grab.
        bool yieldsToKeptGrab = false;
        /// The arrow is set as the drag's cursor for each action.
        bool setsCursors = false;
        /// The visual lies above everything but popups and further dialogs, not where its
        /// declaration puts it.
        bool raisesVisual = false;
        /// The drag is over as soon as the platform's drag loop is, without waiting for a release.
        bool endsWithLoop = false;
        /// A release that comes while the drag runs is told to the debug channel.
        bool tellsReleases = false;
    };

    DocumentDragSource(QQuickItem *source, const Differences &differences);
    virtual ~DocumentDragSource();

    bool isEnabled() const;
    void setEnabled(bool enabled);
    /// False already while dragActiveChanged(false) is emitted: bindings evaluate in the signal.
    bool isDragging() const { return m_state == Dragging && !m_finishing; }
    const ElementList<om::data::Document> &elements() const { return m_documents; }
    QQmlListProperty<om::data::Document> documentList();
    /// Null is left out.
    void append(om::data::Document *document);
    void clear() { setDocuments({}); }
    /// Null documents are left out.
    void setDocuments(const QList<om::data::Document *> &documents);
    QQmlComponent *delegate() const { return m_delegate; }
    void setDelegate(QQmlComponent *delegate);

    /// An event for a child of the source; never consumed. The source may be gone afterwards.
    void filterChildEvent(QQuickItem *child, const QEvent *event);
    /// An event for \a window, from the start of a drag on. True when the drag's loop has taken it,
    /// and when a handler has destroyed the window, which cannot get the event any more.
    bool filterWindowEvent(const QObject *window, const QEvent *event);
    void adoptVisual(QObject *object) override;

    /// Ends a running drag. Called by the source's destructor before the record is destroyed: the
    /// application gets a last drag-leave event, and may read the source's properties then.
    void abandon();

protected:
    virtual void announceEnabled(bool enabled) = 0;
    virtual void announceActive(bool active) = 0;
    virtual void announceDocuments() = 0;
    virtual void announceDelegate(QQmlComponent *delegate) = 0;
    virtual std::unique_ptr<QQmlIncubator> createIncubator() = 0;
    /// The attached state of \a visual, made when it is first asked for; null when there is none.
    virtual DragVisualState *visualState(QObject *visual) const = 0;
    /// Sets the source in the attached object of \a visual.
    virtual void introduceTo(QObject *visual) = 0;
    /// Calls deleteLater() on \a visual when its delayRemove changes.
    virtual void deleteWhenReleased(QQuickItem *visual) = 0;

    QQuickItem *const source;

private:
    void press(QQuickItem *child, const QMouseEvent *event);
    void move(QQuickItem *child, const QMouseEvent *event);
    void start();
    void scheduleRun();
    void runDrag();
    bool beginLoopAt(const QEvent *event);
    void release();
    void setGestureChild(QQuickItem *child);
    void ungrab(const QQuickItem *child);
    bool isAboutToRun() const;
    bool isWaitingForRelease() const;
    bool canBeReleased() const;
    void finish();
    void cleanUp();

    void watchWindow(QQuickWindow *window);
    void createVisual();
    void endIncubation();
    void moveVisual(const QPointF &position);
    void removeVisual();

    const Differences m_differences;
    State m_state = Idle;
    bool m_finishing = false;
    QPointF m_pressPosition;
    /// The child that got the last mouse event of the gesture; it will get the release as well.
    QPointer<QQuickItem> m_gestureChild;
    QMetaObject::Connection m_childWatch;
    ElementList<om::data::Document> m_documents;
    const ListKey<DocumentDragSource> m_listKey{this};
    QPointer<QQmlComponent> m_delegate;
    /// The drag that is about to run or whose loop is running.
    QPointer<QDrag> m_drag;
    bool m_runScheduled = false;
    bool m_loopRunning = false;
    /// The loop of the last drag that was announced has run.
    bool m_loopIsOver = false;
    /// The window that the filter is installed on; the source may have left it since.
    QPointer<QQuickWindow> m_watchedWindow;
    std::unique_ptr<QQmlIncubator> m_incubator;
    /// The object that the incubator has made; it may be incomplete, and no item.
    QPointer<QObject> m_incubated;
    QPointer<QQuickItem> m_visual;
    /// The receiver of the child's signals and of the queued call: its end, with the record,
    /// disconnects them although the item's QObject part is destroyed later.
    QObject m_callContext;
};

} // namespace om::controls
