// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/FolderTree.h"
#include "gallery/GalleryEngine.h"
#include "tests/support/Gesture.h"
#include "tests/support/Items.h"
#include "tests/support/Leftovers.h"
#include "tests/support/PlainUser.h"
#include "tests/support/QmlView.h"
#include "tests/support/Text.h"

#include <OmbrelDataCore/Document.h>

#include <QDataStream>
#include <QDir>
#include <QDropEvent>
#include <QMimeData>
#include <QTemporaryDir>
#include <QTest>

using support::itemsOf;
using support::itemWith;
using support::positionIn;

namespace {

using support::text;

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

    void wheelReachesTheLastRow();
    void barIsSeenAndCanBeHeld();
    void keysMoveTheActiveRow();
    void keysCollapseAndExpand();
    void pageKeysGoFar();
    void typingFindsANameEvenInsideACollapsedRow();
    void tabLeavesTheTree();
    void whatIsCutIsSaid();
    void emptyTreeSaysSo();
    void unreadableFolderSaysSo();
    void sliderEndsWithTheLastRow();

private:
    void write(const QString &name) const;
    /// Clicks the row of \a name, which gives the tree the keys.
    void activate(const char *name) const;
    /// Presses \a key, which is to make the document \a name the active one.
    void pressFor(Qt::Key key, const char *name) const;
    QQuickItem *button(const char *name) const;
    QQuickItem *view() const { return itemsOf(m_demo, "QQuickFlickable").value(0); }
    QString activeName() const { return activeDocument() ? activeDocument()->name() : QString(); }

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
        write(text(name));
    }
    m_tree = std::make_unique<om::gallery::FolderTree>(m_folder->path());
    m_view = std::make_unique<support::QmlView>();
    om::gallery::prepareEngine(m_view->engine(), m_tree.get());
    m_view->window()->setResizeMode(QQuickView::SizeRootObjectToView);
    m_view->window()->setGeometry(0, 0, 1000, 980);
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
    QCOMPARE(support::leftovers(), QString());
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

void TestTreePage::write(const QString &name) const
{
    QFile file(m_folder->filePath(name));
    QVERIFY(file.open(QFile::WriteOnly));
}

void TestTreePage::activate(const char *name) const
{
    support::Gesture gesture;
    gesture.move(positionIn(label(name)))
        .press()
        .release()
        .until([&] { return activeName() == text(name); }, "the row to become active");
    QVERIFY2(gesture.run(), gesture.error());
}

void TestTreePage::pressFor(Qt::Key key, const char *name) const
{
    support::Gesture gesture;
    gesture.key(key).until([&] { return activeName() == text(name); }, name);
    gesture.setPatience(2000);
    QVERIFY2(gesture.run(), gesture.error());
    // The row is wholly visible.
    QQuickItem *found = nullptr;
    QMetaObject::invokeMethod(tree(), "currentEntry", Q_RETURN_ARG(QQuickItem *, found));
    QVERIFY(found);
    const QRectF place = found->mapRectToItem(view(), found->boundingRect());
    QVERIFY(place.top() >= 0 && place.bottom() <= view()->height());
}

QQuickItem *TestTreePage::button(const char *name) const
{
    const auto buttons = itemsOf(m_demo, "Button");
    for (QQuickItem *const candidate : buttons) {
        if (candidate->property("text").toString() == text(name)) {
            return candidate;
        }
    }
    return nullptr;
}

void TestTreePage::wheelReachesTheLastRow()
{
    for (int i = 0; i < 60; ++i) {
        write(QStringLiteral("file %1.txt").arg(i));
    }
    QTRY_COMPARE(m_tree->folder()->childDocuments().size(), 62);
    support::Gesture gesture;
    gesture.then([&] { QMetaObject::invokeMethod(m_demo, "showFolder"); })
        .until([&] { return m_demo->property("rowCount").toInt() == 65; }, "the rows")
        .move(positionIn(view()));
    gesture.turnWheel(40).until(
        [&] {
            QQuickItem *const last = row("tail.txt");
            return last && last->mapToItem(view(), {0, last->height()}).y() <= view()->height();
        },
        "the last row to come up");
    // Only when the tree is at its end does the wheel scroll the page.
    gesture.then([&] { QCOMPARE(m_view->root()->property("contentY").toReal(), 0.0); });
    gesture.turnWheel(-40).until([&] { return view()->property("contentY").toReal() <= 0; },
                                 "the way back");
    QVERIFY2(gesture.run(), gesture.error());
}

void TestTreePage::barIsSeenAndCanBeHeld()
{
    m_demo->setProperty("perShelf", 60);
    QMetaObject::invokeMethod(m_demo, "showThousands");
    QTRY_COMPARE(m_demo->property("rowCount").toInt(), 305);
    const auto bars = itemsOf(m_demo, "ScrollBar");
    QCOMPARE(bars.size(), 1);
    auto *const thumb = bars.constFirst()->property("contentItem").value<QQuickItem *>();
    QVERIFY(thumb && thumb->isVisible());
    QCOMPARE(thumb->opacity(), 1.0);
    QVERIFY(thumb->width() >= 6);
    QVERIFY2(thumb->height() >= 30, qPrintable(QString::number(thumb->height())));
    // The pointer presses the thumb of the scroll bar.
    const QPoint from = positionIn(thumb);
    support::Gesture gesture;
    gesture.move(from)
        .press()
        .glide(from, from + QPoint(0, 100))
        .release()
        .until([&] { return view()->property("contentY").toReal() > 1000; }, "the rows to move");
    QVERIFY2(gesture.run(), gesture.error());
}

void TestTreePage::keysMoveTheActiveRow()
{
    activate("shelf");
    pressFor(Qt::Key_Down, "notes.txt");
    pressFor(Qt::Key_Down, "plan.txt");
    pressFor(Qt::Key_Down, "tail.txt");
    pressFor(Qt::Key_Up, "plan.txt");
    pressFor(Qt::Key_End, "tail.txt");
    const QString root = m_tree->folder()->name();
    pressFor(Qt::Key_Home, root.toUtf8().constData());
    // F2 is still the tree's own key.
    support::Gesture gesture;
    gesture.key(Qt::Key_Down)
        .key(Qt::Key_F2)
        .until([&] { return !itemsOf(tree(), "Field").isEmpty(); }, "the field in the row");
    // In the field the arrow keys move in the text only.
    gesture.key(Qt::Key_Left).key(Qt::Key_Left).key(Qt::Key_Down).key(Qt::Key_Escape);
    gesture.until([&] { return itemsOf(tree(), "Field").isEmpty(); }, "the field to go");
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(activeName(), text("shelf"));
    QVERIFY(!row("shelf")->property("collapsed").toBool());
}

void TestTreePage::keysCollapseAndExpand()
{
    activate("plan.txt");
    pressFor(Qt::Key_Left, "shelf");
    support::Gesture gesture;
    gesture.key(Qt::Key_Left)
        .until([&] { return row("shelf")->property("collapsed").toBool(); }, "the row to collapse");
    QVERIFY2(gesture.run(), gesture.error());
    // Hidden rows are skipped.
    pressFor(Qt::Key_Down, "tail.txt");
    pressFor(Qt::Key_Up, "shelf");
    support::Gesture back;
    back.key(Qt::Key_Right)
        .until([&] { return !row("shelf")->property("collapsed").toBool(); }, "the row to expand");
    QVERIFY2(back.run(), back.error());
    pressFor(Qt::Key_Right, "notes.txt");
    const QString root = m_tree->folder()->name();
    pressFor(Qt::Key_Left, "shelf");
    pressFor(Qt::Key_Up, root.toUtf8().constData());
}

void TestTreePage::pageKeysGoFar()
{
    m_demo->setProperty("perShelf", 60);
    QMetaObject::invokeMethod(m_demo, "showThousands");
    QTRY_COMPARE(m_demo->property("rowCount").toInt(), 305);
    activate("Shelf 1");
    const int shown = int(view()->height() / 28);
    support::Gesture gesture;
    gesture.key(Qt::Key_PageDown)
        .until([&] { return tree()->property("activeIndex").toInt() > 5; }, "a page down");
    QVERIFY2(gesture.run(), gesture.error());
    const int first = tree()->property("activeIndex").toInt();
    QVERIFY2(first >= shown - 3 && first <= shown, qPrintable(QString::number(first)));
    pressFor(Qt::Key_PageDown, qPrintable(QStringLiteral("Document %1").arg(2 * first)));
    pressFor(Qt::Key_End, "Document 60");
    QCOMPARE(tree()->property("activeIndex").toInt(), 304);
    pressFor(Qt::Key_PageDown, "Document 60");
    pressFor(Qt::Key_Home, "Shelf 1");
    pressFor(Qt::Key_PageUp, "Shelf 1");
}

void TestTreePage::typingFindsANameEvenInsideACollapsedRow()
{
    activate("shelf");
    support::Gesture gesture;
    gesture.key(Qt::Key_Left)
        .until([&] { return row("shelf")->property("collapsed").toBool(); }, "the row to collapse");
    gesture.key(Qt::Key_P).key(Qt::Key_L).until([&] { return activeName() == text("plan.txt"); },
                                                "the name to be found");
    QVERIFY2(gesture.run(), gesture.error());
    QVERIFY(!row("shelf")->property("collapsed").toBool());
    QVERIFY(label("plan.txt"));
}

void TestTreePage::tabLeavesTheTree()
{
    activate("tail.txt");
    support::Gesture gesture;
    gesture.key(Qt::Key_Tab).until([&] { return !tree()->hasActiveFocus(); }, "the tree to let go");
    gesture.pressKey(Qt::Key_Shift).key(Qt::Key_Tab).releaseKey(Qt::Key_Shift);
    gesture.until([&] { return tree()->hasActiveFocus(); }, "the way back");
    QVERIFY2(gesture.run(), gesture.error());
}

void TestTreePage::whatIsCutIsSaid()
{
    const QString said = text("Cut at 4 rows: the folder holds more");
    QVERIFY(!itemWith(m_demo, "text", said));
    m_demo->setProperty("limit", 4);
    QMetaObject::invokeMethod(m_demo, "showFolder");
    QTRY_COMPARE(m_demo->property("rowCount").toInt(), 4);
    QVERIFY(itemWith(m_demo, "text", said));
    m_demo->setProperty("limit", 5);
    QMetaObject::invokeMethod(m_demo, "showFolder");
    QTRY_COMPARE(m_demo->property("rowCount").toInt(), 5);
    QVERIFY(!m_demo->property("cut").toBool());
    // A level that is left out altogether is said too.
    m_demo->setProperty("limit", 3);
    QMetaObject::invokeMethod(m_demo, "showFolder");
    QTRY_COMPARE(m_demo->property("rowCount").toInt(), 3);
    QVERIFY(m_demo->property("cut").toBool());
}

void TestTreePage::emptyTreeSaysSo()
{
    const auto said = [this] {
        return itemWith(m_demo, "text", text("The tree has no documents"));
    };
    QVERIFY(!said());
    support::Gesture gesture;
    gesture.move(positionIn(button("None")))
        .press()
        .release()
        .until([&] { return said(); }, "the word");
    gesture.move(positionIn(button("Folder")))
        .press()
        .release()
        .until([&] { return !said(); }, "the rows");
    QVERIFY2(gesture.run(), gesture.error());
}

void TestTreePage::unreadableFolderSaysSo()
{
    QVERIFY(QDir(m_folder->path()).mkdir(text("empty")));
    const QString locked = m_folder->filePath(text("locked"));
    QVERIFY(QDir().mkdir(locked));
    QTRY_COMPARE(m_tree->folder()->childDocuments().size(), 4);
    QVERIFY(QFile::setPermissions(locked, QFile::WriteOwner));
    // The temporary folder is its maker's alone.
    QVERIFY(QFile::setPermissions(m_folder->path(), QFile::Permissions(0x7755)));
    {
        const support::PlainUser user;
        const auto documents = m_tree->folder()->childDocuments();
        for (const om::data::Document *document : documents) {
            QVERIFY(document->childDocuments().isEmpty() == (document->name() != text("shelf")));
        }
    }
    QMetaObject::invokeMethod(m_demo, "showFolder");
    QTRY_VERIFY(label("empty"));
    QVERIFY(itemWith(tree(), "text", QStringLiteral("locked  \u2013  cannot be read")));
}

void TestTreePage::sliderEndsWithTheLastRow()
{
    const auto slider = [this]() -> QQuickItem * {
        const auto editors = itemsOf(m_demo, "NumberEditor");
        for (QQuickItem *const editor : editors) {
            if (editor->property("property").toString() == text("activeIndex")) {
                return editor;
            }
        }
        return nullptr;
    };
    QVERIFY(slider());
    QTRY_COMPARE(slider()->property("to").toReal(), 4.0);
    m_demo->setProperty("perShelf", 60);
    QMetaObject::invokeMethod(m_demo, "showThousands");
    QTRY_COMPARE(slider()->property("to").toReal(), 304.0);
}

QTEST_MAIN(TestTreePage)
#include "tst_treepage.moc"
