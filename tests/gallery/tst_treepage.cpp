// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/FolderTree.h"
#include "tests/support/Gesture.h"
#include "tests/support/Items.h"
#include "tests/support/QmlView.h"

#include <OmbrelDataCore/Document.h>

#include <QDataStream>
#include <QDir>
#include <QDropEvent>
#include <QMimeData>
#include <QQmlContext>
#include <QTemporaryDir>
#include <QTest>

using support::itemsOf;
using support::itemWith;
using support::positionIn;

namespace {

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

/// Remembers what the last drag that entered a window carries.
class DragWatch : public QObject
{
public:
    QStringList documentIds;

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::DragEnter) {
            documentIds.clear();
            const QMimeData *const data = static_cast<QDragEnterEvent *>(event)->mimeData();
            QDataStream payload(data->data(text("application/x-lumetra-documents")));
            while (!payload.atEnd() && payload.status() == QDataStream::Ok) {
                QString id;
                payload >> id;
                documentIds.append(id);
            }
        }
        return false;
    }
};

} // namespace

/// The page of the tree, used by hand on this folder:
///
///     shelf/
///       notes.txt
///       plan.txt
///     tail.txt
class TestTreePage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void triangleCollapsesAndExpands();
    void keyRenamesTheActiveDocument();
    void escapeLeavesTheName();
    void rowIsDraggedOut();

private:
    QQuickItem *tree() const { return itemsOf(m_demo, "om::controls::TreeView").value(0); }
    /// Where the name of a document is shown in its row; null while the row is hidden.
    QQuickItem *label(const char *name) const { return itemWith(tree(), "text", text(name)); }
    /// The row that shows \a name.
    QQuickItem *row(const char *name) const;
    om::data::Document *activeDocument() const
    {
        return tree()->property("activeDocument").value<om::data::Document *>();
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<om::gallery::FolderTree> m_tree;
    std::unique_ptr<support::QmlView> m_view;
    QQuickItem *m_demo = nullptr;
};

void TestTreePage::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    QVERIFY(QDir(m_folder->path()).mkdir(text("shelf")));
    for (const char *name : {"shelf/notes.txt", "shelf/plan.txt", "tail.txt"}) {
        QFile file(m_folder->filePath(text(name)));
        QVERIFY(file.open(QFile::WriteOnly));
    }
    m_tree = std::make_unique<om::gallery::FolderTree>(m_folder->path());
    m_view = std::make_unique<support::QmlView>();
    m_view->engine()->rootContext()->setContextProperty(text("gallery"), m_tree.get());
    m_view->window()->setResizeMode(QQuickView::SizeRootObjectToView);
    m_view->window()->setGeometry(0, 0, 1000, 900);
    m_view->loadFile(qEnvironmentVariable("OMBREL_SOURCE_DIR")
                     + text("/gallery/qml/pages/TreePage.qml"));
    m_view->show();
    m_demo = itemsOf(m_view->root(), "TreeViewDemo").value(0);
    QVERIFY(m_demo);
    QTRY_VERIFY(label("notes.txt"));
}

void TestTreePage::cleanup()
{
    m_demo = nullptr;
    m_view.reset();
    m_tree.reset();
    m_folder.reset();
}

QQuickItem *TestTreePage::row(const char *name) const
{
    QQuickItem *item = label(name);
    while (item && !item->property("displayHeight").isValid()) {
        item = item->parentItem();
    }
    return item;
}

void TestTreePage::triangleCollapsesAndExpands()
{
    QQuickItem *const shelf = row("shelf");
    QVERIFY(shelf);
    QQuickItem *const triangle = shelf->property("branchHandleItem").value<QQuickItem *>();
    QVERIFY(triangle && triangle->isVisible());
    QQuickItem *const notes = row("notes.txt");
    QQuickItem *const tail = row("tail.txt");
    QVERIFY(notes && tail);
    const qreal before = tail->y();

    support::Gesture gesture;
    gesture.move(positionIn(triangle))
        .press()
        .release()
        .until([&] { return notes->height() == 0; }, "the rows to hide");
    gesture.then([&] {
        QVERIFY(shelf->property("collapsed").toBool());
        QCOMPARE(notes->opacity(), 0.0);
        QCOMPARE(tail->y(), before - 2 * shelf->height());
    });
    gesture.press().release().until([&] { return notes->height() > 0; }, "the rows to show");
    QVERIFY2(gesture.run(), gesture.error());
    QVERIFY(!shelf->property("collapsed").toBool());
    QCOMPARE(tail->y(), before);
}

void TestTreePage::keyRenamesTheActiveDocument()
{
    support::Gesture gesture;
    gesture.move(positionIn(label("notes.txt")))
        .press()
        .release()
        .until([&] { return activeDocument() && activeDocument()->name() == text("notes.txt"); },
               "the row to become active");
    gesture.key(Qt::Key_F2)
        .until([&] { return !itemsOf(tree(), "Field").isEmpty(); }, "the field in the row");
    // The old name is selected: typing replaces it.
    gesture.key(Qt::Key_N).key(Qt::Key_E).key(Qt::Key_W).key(Qt::Key_Return);
    gesture.until([&] { return itemsOf(tree(), "Field").isEmpty(); }, "the field to go");
    QVERIFY2(gesture.run(), gesture.error());
    QVERIFY(activeDocument());
    QCOMPARE(activeDocument()->name(), text("new"));
    QTRY_VERIFY(label("new"));
    QVERIFY(!label("notes.txt"));
    // The key works again: the tree has the focus back.
    QTRY_VERIFY(tree()->hasActiveFocus());
}

void TestTreePage::escapeLeavesTheName()
{
    support::Gesture gesture;
    gesture.move(positionIn(label("plan.txt"))).press().release();
    gesture.key(Qt::Key_F2)
        .until([&] { return !itemsOf(tree(), "Field").isEmpty(); }, "the field in the row");
    gesture.key(Qt::Key_X).key(Qt::Key_Escape);
    gesture.until([&] { return itemsOf(tree(), "Field").isEmpty(); }, "the field to go");
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(activeDocument()->name(), text("plan.txt"));
    QVERIFY(label("plan.txt"));
}

void TestTreePage::rowIsDraggedOut()
{
    QQuickItem *const target = itemsOf(m_demo, "om::controls::DropZone").value(0);
    QVERIFY(target);
    const QPoint from = positionIn(label("tail.txt"));
    const QPoint over = positionIn(target);
    DragWatch watch;
    m_view->window()->installEventFilter(&watch);

    support::Gesture gesture;
    gesture
        .drag(
            from, over, [&] { return target->property("containsDrag").toBool(); },
            "the field to take the row")
        .release()
        .until([&] { return itemWith(m_demo, "text", text("text dropped")); }, "the drop");
    QVERIFY2(gesture.run(), gesture.error());
    QVERIFY(activeDocument());
    QCOMPARE(activeDocument()->name(), text("tail.txt"));
    QCOMPARE(watch.documentIds, QStringList(activeDocument()->documentId()));
    QVERIFY(!watch.documentIds.constFirst().isEmpty());
}

QTEST_MAIN(TestTreePage)
#include "tst_treepage.moc"
