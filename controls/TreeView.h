// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <OmbrelDataCore/Document.h>

#include <QQmlComponent>
#include <QQmlListProperty>
#include <QQuickItem>

#include <memory>

namespace om::controls {

class TreeViewEntry;

/// Shows a forest of documents as one list of rows, indented and collapsible.
///
/// Every document gets a row, whatever is collapsed: collapsing hides rows, it does not remove
/// them. When the structure may have changed, all rows are thrown away and made again; any number
/// of changes within one turn of the event loop costs one such rebuild. What is collapsed is
/// remembered by document id for the life of the view.
///
/// A focus scope. Its implicit height is that of all rows shown.
class TreeView : public QQuickItem
{
    Q_OBJECT
    /// The documents at the top, in order. Not owned; one that is destroyed leaves the list.
    Q_PROPERTY(QQmlListProperty<om::data::Document> rootDocuments READ rootDocuments NOTIFY
                   rootDocumentsChanged)
    /// The name of the list property that holds a document's children. Unknown or empty: only the
    /// roots have rows.
    Q_PROPERTY(
        QString childProperty READ childProperty WRITE setChildProperty NOTIFY childPropertyChanged)
    /// The item that holds the rows; null until the view is complete, and for good when it was
    /// completed without a delegate.
    Q_PROPERTY(QQuickItem *contentItem READ contentItem CONSTANT)
    /// The indentation of one level in logical pixels; 20 by default.
    Q_PROPERTY(int indent READ indent WRITE setIndent NOTIFY indentChanged)
    /// Whether the rows of root documents can be collapsed; false by default. While it is false
    /// they are not indented and have no marker.
    Q_PROPERTY(bool rootCanCollapse READ rootCanCollapse WRITE setRootCanCollapse NOTIFY
                   rootCanCollapseChanged)
    /// The number of the active row, -1 for none. Writing a number that no row has, or the current
    /// one, does nothing.
    Q_PROPERTY(int activeIndex READ activeIndex WRITE setActiveIndex NOTIFY activeIndexChanged)
    /// The document of the active row, which stays active when a rebuild moves its row.
    Q_PROPERTY(om::data::Document *activeDocument READ activeDocument NOTIFY activeDocumentChanged)
    /// What a row shows. Has to be set when the view is completed; rows made later follow a change.
    Q_PROPERTY(QQmlComponent *delegate READ delegate WRITE setDelegate NOTIFY delegateChanged)
    /// What lies behind each row.
    Q_PROPERTY(QQmlComponent *backgroundDelegate READ backgroundDelegate WRITE setBackgroundDelegate
                   NOTIFY backgroundDelegateChanged)
    /// The marker that collapses and expands a row; an arrow of 16 by 16 pixels by default.
    Q_PROPERTY(QQmlComponent *branchHandleDelegate READ branchHandleDelegate WRITE
                   setBranchHandleDelegate NOTIFY branchHandleDelegateChanged)

public:
    /// The components of which a row is made.
    enum ComponentType {
        EntryComponent = 1,
        DelegateComponent = 2,
        BackgroundComponent = 3,
        BranchHandleComponent = 4
    };
    Q_ENUM(ComponentType)

    explicit TreeView(QQuickItem *parent = nullptr);
    ~TreeView() override;

    /// The attached object of the row in whose context \a object was made; null outside any row.
    /// Declared to return QObject, so QML reads and writes it in expressions, not in declarations.
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
    void setActiveIndex(int index);
    om::data::Document *activeDocument() const;
    QQmlComponent *delegate() const;
    void setDelegate(QQmlComponent *delegate);
    QQmlComponent *backgroundDelegate() const;
    void setBackgroundDelegate(QQmlComponent *delegate);
    QQmlComponent *branchHandleDelegate() const;
    void setBranchHandleDelegate(QQmlComponent *delegate);

    /// The row whose item lies at (\a x, \a y) of the content item, or -1.
    Q_INVOKABLE int indexAt(double x, double y);
    /// The document of row \a index; null when there is no such row.
    Q_INVOKABLE om::data::Document *documentAt(int index);
    /// The first row, looked for from \a index - 1 towards higher numbers, that is on a lower level
    /// than row \a index: the parent of a first child, and for a later sibling the first row after
    /// its subtree that is less deep. -1 when there is none.
    Q_INVOKABLE int indexOfParent(int index);
    /// The first row that shows \a document, or -1.
    Q_INVOKABLE int indexOfDocument(om::data::Document *document);
    /// Collapses, expands or inverts row \a index, as far as it can be collapsed.
    Q_INVOKABLE void collapseIndex(int index);
    Q_INVOKABLE void expandIndex(int index);
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
    /// F2 was pressed in the view.
    void editRequested();
    /// All rows have been made again.
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
    friend class TreeViewEntry;
    QQmlComponent *component(int type) const;
    bool rememberedCollapse(const om::data::Document *document) const;
    void rememberCollapse(const om::data::Document *document, bool collapsed);

    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace om::controls

QML_DECLARE_TYPEINFO(om::controls::TreeView, QML_HAS_ATTACHED_PROPERTIES)
