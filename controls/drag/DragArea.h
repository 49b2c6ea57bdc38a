// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <OmbrelDataCore/Document.h>

#include <QQmlComponent>
#include <QQmlListProperty>
#include <QQuickItem>

#include <memory>

namespace om::controls {

/// An invisible item around others that turns a left press and move on any of its children into a
/// system drag of documents. It never consumes an event.
///
/// The drag ends with the release. Where the platform's drag loop keeps the release to itself,
/// dragActive stays true until the next release, or until none can arrive: the child with the
/// gesture has lost the mouse or was destroyed, or dragEnabled has become false.
class DragArea : public QQuickItem
{
    Q_OBJECT
    /// Whether presses on children can start a drag; true by default. This is the item's own
    /// filtersChildMouseEvents flag.
    Q_PROPERTY(bool dragEnabled READ isDragEnabled WRITE setDragEnabled NOTIFY dragEnabledChanged)
    /// True while a drag runs.
    Q_PROPERTY(bool dragActive READ isDragActive NOTIFY dragActiveChanged)
    /// What a drag carries, in order; not owned. Null is not taken, and a document that is
    /// destroyed leaves the list. With an empty list no drag starts.
    Q_PROPERTY(QQmlListProperty<om::data::Document> dragDocuments READ dragDocuments NOTIFY
                   dragDocumentsChanged)
    /// Makes the item that follows the cursor inside the window; its root has to be an item. None
    /// by default.
    Q_PROPERTY(QQmlComponent *dragDelegate READ dragDelegate WRITE setDragDelegate NOTIFY
                   dragDelegateChanged)

public:
    explicit DragArea(QQuickItem *parent = nullptr);
    ~DragArea() override;

    /// The DragAreaAttachedObject of \a object, in practice of the delegate's root. Declared to
    /// return QObject, so QML reads and writes it in expressions, not in declarations.
    static QObject *qmlAttachedProperties(QObject *object);

    bool isDragEnabled() const;
    void setDragEnabled(bool enabled);
    bool isDragActive() const;
    QQmlListProperty<om::data::Document> dragDocuments();
    /// Replaces the whole list; announced only when it differs.
    void setDragDocuments(const QList<om::data::Document *> &documents);
    QQmlComponent *dragDelegate() const;
    void setDragDelegate(QQmlComponent *delegate);

Q_SIGNALS:
    void dragEnabledChanged(bool enabled);
    void dragActiveChanged(bool active);
    void dragDocumentsChanged(QQmlListProperty<om::data::Document> documents);
    void dragDelegateChanged(QQmlComponent *delegate);

protected:
    bool childMouseEventFilter(QQuickItem *item, QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace om::controls

QML_DECLARE_TYPEINFO(om::controls::DragArea, QML_HAS_ATTACHED_PROPERTIES)
