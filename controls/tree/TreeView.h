// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <OmbrelDataCore/Document.h>

#include <QQmlListProperty>
#include <QQuickItem>
#include <QtQml>

#include <memory>

QT_BEGIN_NAMESPACE
class QQmlComponent;
QT_END_NAMESPACE

namespace om::controls {

/// Shows a forest of documents as an indented list of rows that can be collapsed.
///
/// Every document gets a row, also below a collapsed one; collapsing hides rows. When the structure
/// may have changed, all rows are destroyed and built again, once per turn of the event loop for
/// all changes in it. The documents are not owned. Collapse states are remembered by document
/// identifier for the life of the view; documents without one share one state.
class TreeView : public QQuickItem
{
    Q_OBJECT
    /// The documents at level 0, in order. Null elements get no row; a destroyed document leaves
    /// the list.
    Q_PROPERTY(QQmlListProperty<om::data::Document> rootDocuments READ rootDocuments NOTIFY
                   rootDocumentsChanged)
    /// The name of the list property that holds a document's children. Empty, or not the name of a
    /// list property: the documents have no children.
    Q_PROPERTY(
        QString childProperty READ childProperty WRITE setChildProperty NOTIFY childPropertyChanged)
    /// The item that all rows are in; null until completion, and for good when there was no
    /// delegate then.
    Q_PROPERTY(QQuickItem *contentItem READ contentItem CONSTANT)
    /// Pixels by which each level is indented; 20.
    Q_PROPERTY(int indent READ indent WRITE setIndent NOTIFY indentChanged)
    /// Whether the root documents can be collapsed, and are indented like the other levels; false.
    Q_PROPERTY(bool rootCanCollapse READ rootCanCollapse WRITE setRootCanCollapse NOTIFY
                   rootCanCollapseChanged)
    /// The active row, -1 for none. A row that does not exist is ignored.
    Q_PROPERTY(int activeIndex READ activeIndex WRITE setActiveIndex NOTIFY activeIndexChanged)
    /// The document of the active row, or null. It stays active when its row moves.
    Q_PROPERTY(om::data::Document *activeDocument READ activeDocument NOTIFY activeDocumentChanged)
    /// What a row shows. Needed at completion; a change is used by the rows built from then on.
    Q_PROPERTY(QQmlComponent *delegate READ delegate WRITE setDelegate NOTIFY delegateChanged)
    /// What is behind a row, as large as the row; none by default.
    Q_PROPERTY(QQmlComponent *backgroundDelegate READ backgroundDelegate WRITE setBackgroundDelegate
                   NOTIFY backgroundDelegateChanged)
    /// What is clicked to collapse and expand a row; a small triangle by default.
    Q_PROPERTY(QQmlComponent *branchHandleDelegate READ branchHandleDelegate WRITE
                   setBranchHandleDelegate NOTIFY branchHandleDelegateChanged)

public:
    /// The parts of a row that are made from components.
    enum ComponentType {
        EntryComponent = 1,
        DelegateComponent = 2,
        BackgroundComponent = 3,
        BranchHandleComponent = 4
    };
    Q_ENUM(ComponentType)

    explicit TreeView(QQuickItem *parent = nullptr);
    ~TreeView() override;

    /// The row that \a object belongs to, by the chain of QML contexts; null outside of any row.
    /// Declared to return QObject: QML reads, writes and connects to it in expressions, not in
    /// declarations.
    static QObject *qmlAttachedProperties(QObject *object);

    QQmlListProperty<om::data::Document> rootDocuments();

    QString childProperty() const;
    void setChildProperty(const QString &childProperty);

    QQuickItem *contentItem() const;

    int indent() const;
    void setIndent(int indent);

    bool rootCanCollapse() const;
    void setRootCanCollapse(bool rootCanCollapse);

    int activeIndex() const;
    void setActiveIndex(int activeIndex);

    om::data::Document *activeDocument() const;

    QQmlComponent *delegate() const;
    void setDelegate(QQmlComponent *delegate);

    QQmlComponent *backgroundDelegate() const;
    void setBackgroundDelegate(QQmlComponent *backgroundDelegate);

    QQmlComponent *branchHandleDelegate() const;
    void setBranchHandleDelegate(QQmlComponent *branchHandleDelegate);

    /// The row at a point of the content item, -1 when there is none.
    Q_INVOKABLE int indexAt(double x, double y);
    /// The document of row \a index; null outside the rows.
    Q_INVOKABLE om::data::Document *documentAt(int index);
    /// The first row from \a index - 1 on, upward through the row numbers, that is on a lower level
    /// than row \a index; -1 when there is none. For the first child of a document, its parent.
    Q_INVOKABLE int indexOfParent(int index);
    /// The first row of \a document, -1 when it has none.
    Q_INVOKABLE int indexOfDocument(om::data::Document *document);
    /// Collapses row \a index, if it has children and is no root that must not collapse. Outside
    /// the rows nothing happens, here and in the two that follow.
    Q_INVOKABLE void collapseIndex(int index);
    /// Expands row \a index, under the same conditions.
    Q_INVOKABLE void expandIndex(int index);
    /// Collapses row \a index when it is expanded and expands it when it is collapsed.
    Q_INVOKABLE void toggleIndex(int index);
    /// The item of the active row, or null.
    Q_INVOKABLE QQuickItem *currentEntry();

Q_SIGNALS:
    void rootDocumentsChanged();
    void childPropertyChanged();
    void indentChanged();
    void rootCanCollapseChanged();
    void activeIndexChanged();
    void activeDocumentChanged();
    void delegateChanged();
    void backgroundDelegateChanged();
    void branchHandleDelegateChanged();
    /// F2 was pressed: the application may let the user edit the active document.
    void editRequested();
    /// All rows have been built anew.
    void indexRebuilt();

protected:
    void classBegin() override;
    void componentComplete() override;
    void keyPressEvent(QKeyEvent *event) override;

private Q_SLOTS:
    void scheduleUpdate();
    void performScheduledUpdate();
    void layoutItems();
    void handleDocumentChanged(om::data::Document *doc);
    void updateHeight();

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace om::controls

QML_DECLARE_TYPEINFO(om::controls::TreeView, QML_HAS_ATTACHED_PROPERTIES)
