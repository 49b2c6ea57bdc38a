// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/gallery/ShelfPageFixture.h"
#include "tests/support/ForeignProgram.h"

#include <QAccessible>
#include <QRegularExpression>

using support::Gesture;
using support::itemsOf;
using support::itemWith;
using support::positionIn;
using support::text;

/// Shelf, used by hand.
class TestShelfPage : public ShelfPageFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QAccessible::setActive(true); }
    void init() { openPage(); }
    void cleanup()
    {
        closePage();
        QCOMPARE(support::leftovers(), QString());
    }

    void theWholeStory();
    void refusedDragFliesBack();
    void draggedOntoTheTree();
    void draggedFromTheTree();
    void menuOpensInsideTheWindow_data();
    void menuOpensInsideTheWindow();
    void escapeInTheNameLeavesIt();
    void rowsThatMoveKeepTheTypedName();
    void anotherNameFieldEndsTheFirst();
    void badNameIsSaidAndNotTaken();
    void onlyTheKeyboard();
    void deletingIsAskedFirst();
    void doubleClickOpensAndRenames();
    void framesEndWhereTheThumbnailsDo();
    void rowsOfTheTreeAreMadeInSight();
    void rateIsShownOnDemand();
    void everythingHasANameAndARole();
    void nothingIsLostOnAnotherPage();
    void cardWithoutDocuments();
};

void TestShelfPage::theWholeStory()
{
    const QStringList before = disk();

    // Select: a click, Ctrl, Shift, arrow keys, all.
    choose("notes.txt");
    Gesture more;
    more.pressKey(Qt::Key_Control).move(pictureOf("tail.txt")).press().release();
    more.releaseKey(Qt::Key_Control).until([&] { return selected().size() == 2; }, "two selected");
    more.pressKey(Qt::Key_Shift).move(pictureOf("empty")).press().release();
    more.releaseKey(Qt::Key_Shift).until([&] { return selected().size() == 5; }, "five selected");
    run(more);
    key(
        Qt::Key_A, [&] { return selected().size() == 6; }, "all selected", Qt::Key_Control);
    key(
        Qt::Key_Home, [&] { return selected() == QStringList(text("album")); }, "the first");
    key(
        Qt::Key_Right, [&] { return selected() == QStringList(text("empty")); }, "the second");
    key(
        Qt::Key_Right, [&] { return selected().size() == 2; }, "two", Qt::Key_Shift);

    // Rename with F2.
    choose("plan.txt");
    key(
        Qt::Key_F2, [&] { return !itemsOf(root(), "ShelfNameField").isEmpty(); }, "the field");
    type("draft");
    key(
        Qt::Key_Return, [&] { return document("draft.txt"); }, "the new name");
    QTRY_VERIFY(name("draft.txt"));

    // Drag one into a folder, and another to a new place. A press where the last one was would be
    // the second half of a double click.
    choose("red.png");
    const QPoint over = pictureOf("empty");
    QQuickItem *const zone = itemsOf(root(), "om::controls::DropZone").value(1);
    QVERIFY(zone);
    Gesture drag;
    drag.drag(
            pictureOf("draft.txt"), over,
            [&] { return tile("empty")->property("entered").toBool(); },
            "the folder to open to the drag")
        .release()
        .until([&] { return !names().contains(text("draft.txt")); }, "the move");
    run(drag);
    QCOMPARE(document("empty")->childDocuments().size(), 1);
    QTRY_COMPARE(itemsOf(content(), "ShelfDragCard").size(), 0);
    const QPoint left = positionIn(tile("notes.txt"), 6, 50);
    Gesture reorder;
    reorder
        .drag(
            pictureOf("tail.txt"), left, [&] { return zone->property("containsDrag").toBool(); },
            "the drag")
        .release()
        .until([&] { return names().value(2) == text("tail.txt"); }, "the new order");
    run(reorder);
    QCOMPARE(names(),
             QStringList({text("album"), text("empty"), text("tail.txt"), text("notes.txt"),
                          text("red.png")}));
    QTRY_COMPARE(itemsOf(content(), "ShelfDragCard").size(), 0);

    // Undo and redo.
    key(
        Qt::Key_Z, [&] { return names().last() == text("tail.txt"); }, "undo", Qt::Key_Control);
    key(
        Qt::Key_Z, [&] { return names().contains(text("draft.txt")); }, "undo", Qt::Key_Control);
    key(
        Qt::Key_Z, [&] { return !names().contains(text("draft.txt")); }, "redo", Qt::Key_Control,
        Qt::Key_Shift);

    // A colour label by the picker.
    choose("red.png");
    key(
        Qt::Key_L, [&] { return isOpen("Label"); }, "the picker", Qt::Key_Control);
    QQuickItem *const strip = itemsOf(content(), "om::controls::HueBox").value(0);
    QVERIFY(strip);
    Gesture hue;
    hue.move(positionIn(strip, strip->width() * 0.33, 8)).press().release();
    run(hue);
    QTRY_COMPARE(strip->property("hue").toInt() / 10, 11);
    click(button("Set label"));
    QTRY_VERIFY(!isOpen("Label"));
    QCOMPARE(document("red.png")->property("label").value<QColor>().hsvHue() / 10, 11);

    // Find: frames around what is found, and on to the next one in another folder.
    key(
        Qt::Key_F3,
        [&] {
            QQuickItem *const focus = m_view->window()->activeFocusItem();
            return focus && focus->property("placeholderText").toString().startsWith(text("Find"));
        },
        "the field to find with");
    type("notes");
    QTRY_COMPARE(m_shelf->foundCount(), 2);
    QTRY_COMPARE(itemsOf(content(), "om::controls::Frame").size(), 1);
    QVERIFY(tile("notes.txt")->property("found").toBool());
    QTRY_VERIFY(itemWith(tile("album"), "text", text("1")));
    key(
        Qt::Key_Return, [&] { return selected() == QStringList(text("notes.txt")); }, "one found");
    key(
        Qt::Key_Return, [&] { return m_shelf->folder() == document("album"); }, "the other one");
    key(
        Qt::Key_Escape, [&] { return m_shelf->foundCount() == 0; }, "the end of the search");
    key(
        Qt::Key_Backspace, [&] { return m_shelf->folder() == m_shelf->root(); }, "the way up");

    // Delete with confirmation.
    choose("notes.txt");
    key(
        Qt::Key_Delete, [&] { return isOpen("Delete"); }, "the question");
    key(
        Qt::Key_Return, [&] { return !names().contains(text("notes.txt")); }, "the deletion");

    // A file from another program.
    QTemporaryDir elsewhere;
    QFile file(elsewhere.filePath(text("from desktop.txt")));
    QVERIFY(file.open(QFile::WriteOnly));
    file.write("desktop");
    file.close();
    support::ForeignProgram desktop(text("xdnd_source"));
    QVERIFY2(desktop.start({text("--at"), text("20,760"), text("--size"), text("200x160"),
                            text("--url"), QUrl::fromLocalFile(file.fileName()).toString()}),
             qPrintable(desktop.error()));
    QQuickItem *const grid = itemsOf(root(), "ShelfGrid").value(0);
    Gesture drop;
    drop.drag(
            desktop.geometry().center(), positionIn(grid, 250, 450),
            [&] { return zone->property("containsDrag").toBool(); }, "the thumbnails see the file")
        .release()
        .until([&] { return names().contains(text("from desktop.txt")); }, "the file to come");
    run(drop);

    // Nothing of all this is on disk, until it is asked for and agreed to.
    QCOMPARE(disk(), before);
    m_view->window()->requestActivate();
    QTRY_VERIFY(m_view->window()->isActive());
    key(
        Qt::Key_S, [&] { return isOpen("Save"); }, "the list", Qt::Key_Control);
    QStringList steps = dialog("Save")->property("steps").toStringList();
    steps.sort();
    QCOMPARE(steps,
             QStringList({QStringLiteral("Delete “notes.txt”"),
                          QStringLiteral("Move “plan.txt” to “empty/draft.txt”"),
                          QStringLiteral("Write labels and order to “.shelf.json”"),
                          QStringLiteral("Write “from desktop.txt”, 7 bytes")}));
    // A list makes its rows with the next frame.
    for (const QString &step : qAsConst(steps)) {
        QTRY_VERIFY2(itemWith(dialog("Save"), "text", step), qPrintable(step));
    }
    QQuickItem *const stepList = itemsOf(dialog("Save"), "QQuickListView").value(0);
    QTRY_VERIFY2(stepList->property("contentHeight").toReal() <= stepList->height(),
                 "a few steps do not need a scroll bar");
    QCOMPARE(disk(), before);
    key(
        Qt::Key_Return, [&] { return m_shelf->message() == text("Saved"); }, "the end of it");
    QCOMPARE(disk(),
             QStringList({text(".shelf.json"), text("album"), text("album/notes.txt"),
                          text("album/one.png"), text("empty"), text("empty/draft.txt"),
                          text("from desktop.txt"), text("red.png"), text("tail.txt")}));
    QVERIFY(!m_shelf->isChanged());
}

void TestShelfPage::refusedDragFliesBack()
{
    const QPoint from = pictureOf("notes.txt");
    Gesture drag;
    drag.drag(
            from, pictureOf("album"),
            [&] {
                return !root()->property("refusal").toString().isEmpty()
                    && itemsOf(content(), "ShelfDragCard").size() == 1;
            },
            "the refusal")
        .release()
        .until(
            [&] {
                QQuickItem *const card = itemsOf(content(), "ShelfDragCard").value(0);
                return card && (card->position() + QPointF(24, 24) - from).manhattanLength() < 40;
            },
            "the card at home")
        .until([&] { return itemsOf(content(), "ShelfDragCard").isEmpty(); }, "the card to go");
    run(drag);
    QVERIFY(names().contains(text("notes.txt")));
    QVERIFY(!m_shelf->isChanged());
    QVERIFY2(m_shelf->message().contains(text("already")), qPrintable(m_shelf->message()));
}

void TestShelfPage::draggedOntoTheTree()
{
    Gesture drag;
    drag.drag(
            pictureOf("tail.txt"), positionIn(row("empty")),
            [&] {
                QQuickItem *const tree = itemsOf(root(), "ShelfTree").value(0);
                return tree->property("target").value<om::data::Document *>() == document("empty");
            },
            "the row to take it")
        .release()
        .until([&] { return document("empty")->childDocuments().size() == 1; }, "the move");
    run(drag);
    QTRY_VERIFY(itemsOf(content(), "ShelfDragCard").isEmpty());
}

void TestShelfPage::draggedFromTheTree()
{
    Gesture drag;
    drag.drag(
            positionIn(row("empty")), positionIn(row("album")),
            [&] {
                QQuickItem *const tree = itemsOf(root(), "ShelfTree").value(0);
                return tree->property("target").value<om::data::Document *>() == document("album");
            },
            "the row to take it")
        .release()
        .until([&] { return !document("empty"); }, "the move");
    run(drag);
    QCOMPARE(document("album")->childDocuments().size(), 3);
    QTRY_VERIFY(itemsOf(content(), "ShelfDragCard").isEmpty());
    QTRY_VERIFY(row("empty"));
}

void TestShelfPage::menuOpensInsideTheWindow_data()
{
    QTest::addColumn<QPoint>("place");
    QTest::newRow("in the middle") << QPoint(500, 200);
    QTest::newRow("at the right") << QPoint(994, 200);
    QTest::newRow("at the lower edge") << QPoint(500, 660);
    QTest::newRow("in the lower right corner") << QPoint(994, 660);
}

void TestShelfPage::menuOpensInsideTheWindow()
{
    QFETCH(QPoint, place);
    // Without the details the thumbnails reach to the window's edge.
    m_view->window()->resize(850, 700);
    QTRY_COMPARE(root()->width(), 850.0);
    place.setX(qMin(place.x(), 844));
    QQuickItem *const menu = itemsOf(root(), "ShelfMenu").value(0);
    QVERIFY(menu);
    const auto popup = [&] { return menu->property("popupItem").value<QQuickItem *>(); };
    const auto place0 = [&] {
        return popup() ? popup()->mapRectToScene(popup()->boundingRect()) : QRectF();
    };
    Gesture gesture;
    gesture.move(place).press(Qt::RightButton).release(Qt::RightButton);
    gesture.until(
        [&] {
            return popup() && popup()->isVisible() && content()->boundingRect().contains(place0());
        },
        "the menu inside the window");
    run(gesture);
    QVERIFY(place0().adjusted(-6, -6, 6, 6).contains(place));
    // Arrow keys and Return take an entry; Escape would close it.
    key(
        Qt::Key_Up, [&] { return menu->property("current").toInt() == 8; }, "the last entry");
    key(
        Qt::Key_Return, [&] { return selected().size() == 6 && !popup()->isVisible(); }, "all");
    QTRY_VERIFY(itemsOf(root(), "QQuickGridView").value(0)->hasActiveFocus());
}

void TestShelfPage::escapeInTheNameLeavesIt()
{
    choose("plan.txt");
    key(
        Qt::Key_F2, [&] { return !itemsOf(root(), "ShelfNameField").isEmpty(); }, "the field");
    type("zzz");
    key(
        Qt::Key_Escape, [&] { return itemsOf(root(), "ShelfNameField").isEmpty(); }, "its end");
    QVERIFY(document("plan.txt"));
    QVERIFY(!m_shelf->isChanged());
    QTRY_VERIFY(itemsOf(root(), "QQuickGridView").value(0)->hasActiveFocus());
}

/// The view takes the focus away from the field, in the midst of the move.
void TestShelfPage::rowsThatMoveKeepTheTypedName()
{
    choose("plan.txt");
    key(
        Qt::Key_F2, [&] { return !itemsOf(root(), "ShelfNameField").isEmpty(); }, "the field");
    type("draft");
    QVERIFY(m_shelf->move({QVariant::fromValue(document("tail.txt"))}, m_shelf->root(), 0));
    QTRY_COMPARE(names().first(), text("tail.txt"));
    QVERIFY(document("draft.txt"));
    m_shelf->history()->undo();
    m_shelf->history()->undo();
    QCOMPARE(names().last(), text("tail.txt"));
    QVERIFY(document("plan.txt"));
}

void TestShelfPage::anotherNameFieldEndsTheFirst()
{
    choose("plan.txt");
    key(
        Qt::Key_F2, [&] { return !itemsOf(root(), "ShelfNameField").isEmpty(); }, "the field");
    type("draft");
    QObject *const model = m_shelf->property("model").value<QObject *>();
    QVERIFY(QMetaObject::invokeMethod(model, "press", Q_ARG(int, names().indexOf(text("red.png"))),
                                      Q_ARG(int, 0)));
    QVERIFY(QMetaObject::invokeMethod(itemsOf(root(), "ShelfGrid").value(0), "renameCurrent"));
    QVERIFY(document("draft.txt"));
    QTRY_COMPARE(itemsOf(root(), "ShelfNameField").size(), 1);
    type("blue");
    key(
        Qt::Key_Return, [&] { return document("blue.png"); }, "the second name");
}

void TestShelfPage::badNameIsSaidAndNotTaken()
{
    choose("plan.txt");
    key(
        Qt::Key_F2, [&] { return !itemsOf(root(), "ShelfNameField").isEmpty(); }, "the field");
    type("tail");
    const QString said = QStringLiteral("“tail.txt” is there already");
    QTRY_VERIFY(itemWith(root(), "text", said));
    // Return leaves the field open; a click elsewhere gives the name up.
    Gesture gesture;
    gesture.key(Qt::Key_Return);
    run(gesture);
    QVERIFY(itemWith(root(), "text", said));
    choose("red.png");
    QTRY_VERIFY(itemsOf(root(), "ShelfNameField").isEmpty());
    QVERIFY(document("plan.txt"));
}

void TestShelfPage::onlyTheKeyboard()
{
    // Tab reaches the tools, the folders and the thumbnails, and something shows where it is.
    const auto hasFocus = [&](const char *type) {
        for (QQuickItem *item = m_view->window()->activeFocusItem(); item;
             item = item->parentItem()) {
            if (QByteArray(item->metaObject()->className()).startsWith(type)) {
                return true;
            }
        }
        return false;
    };
    key(
        Qt::Key_Tab, [&] { return m_view->window()->activeFocusItem() != root(); }, "a control");
    for (int i = 0; i < 8 && !hasFocus("ShelfTree"); ++i) {
        QQuickItem *const before = m_view->window()->activeFocusItem();
        key(
            Qt::Key_Tab, [&] { return m_view->window()->activeFocusItem() != before; }, "the next");
    }
    QVERIFY(hasFocus("ShelfTree"));
    key(
        Qt::Key_Down, [&] { return m_shelf->folder() == document("album"); }, "the first folder");
    key(
        Qt::Key_Up, [&] { return m_shelf->folder() == m_shelf->root(); }, "the root");
    key(
        Qt::Key_Tab, [&] { return hasFocus("ShelfGrid"); }, "the thumbnails");
    key(
        Qt::Key_End, [&] { return selected() == QStringList(text("tail.txt")); }, "the last");
    // Another place, another folder.
    key(
        Qt::Key_Up, [&] { return names().last() == text("red.png"); }, "the move", Qt::Key_Alt);
    key(
        Qt::Key_X, [&] { return root()->property("cut").toList().size() == 1; }, "cut",
        Qt::Key_Control);
    key(
        Qt::Key_Home, [&] { return selected() == QStringList(text("album")); }, "the first");
    key(
        Qt::Key_Return, [&] { return m_shelf->folder() == document("album"); }, "the folder");
    key(
        Qt::Key_V, [&] { return names().last() == text("tail.txt"); }, "paste", Qt::Key_Control);
    key(
        Qt::Key_Backspace, [&] { return m_shelf->folder() == m_shelf->root(); }, "the way up");
    // The picker, too.
    key(
        Qt::Key_L, [&] { return isOpen("Label"); }, "the picker", Qt::Key_Control);
    QQuickItem *const strip = itemsOf(content(), "om::controls::HueBox").value(0);
    for (int i = 0; i < 20 && !strip->hasActiveFocus(); ++i) {
        QQuickItem *const before = m_view->window()->activeFocusItem();
        key(
            Qt::Key_Tab, [&] { return m_view->window()->activeFocusItem() != before; }, "the next");
    }
    QVERIFY(strip->hasActiveFocus());
    const int hue = strip->property("hue").toInt();
    key(
        Qt::Key_Right, [&] { return strip->property("hue").toInt() == hue + 5; }, "the hue");
    key(
        Qt::Key_Return,
        [&] {
            return !isOpen("Label")
                && document("album")->property("label").value<QColor>().hsvHue() >= hue;
        },
        "the label");
    key(
        Qt::Key_N, [&] { return names().first() == text("New folder"); }, "a new folder",
        Qt::Key_Control, Qt::Key_Shift);
    key(
        Qt::Key_F10, [&] { return itemWith(content(), "text", text("Select all")); }, "the menu",
        Qt::Key_Shift);
    key(
        Qt::Key_Escape, [&] { return !itemWith(content(), "text", text("Select all")); },
        "the end of the menu");
    QTRY_VERIFY(hasFocus("ShelfGrid"));
}

void TestShelfPage::deletingIsAskedFirst()
{
    choose("plan.txt");
    key(
        Qt::Key_Delete, [&] { return isOpen("Delete"); }, "the question");
    key(
        Qt::Key_Escape, [&] { return !isOpen("Delete"); }, "its end");
    QVERIFY(document("plan.txt"));
    QTRY_VERIFY(itemsOf(root(), "QQuickGridView").value(0)->hasActiveFocus());
    // A folder that is open and has the keys in the tree.
    click(row("empty"));
    QTRY_COMPARE(m_shelf->folder(), document("empty"));
    key(
        Qt::Key_Delete, [&] { return isOpen("Delete"); }, "the question");
    key(
        Qt::Key_Return, [&] { return !document("empty"); }, "the deletion");
    QTRY_VERIFY(!row("empty"));
    QCOMPARE(m_shelf->folder(), m_shelf->root());
    key(
        Qt::Key_Z, [&] { return document("empty"); }, "undo", Qt::Key_Control);
    QTRY_VERIFY(row("empty"));
}

void TestShelfPage::doubleClickOpensAndRenames()
{
    const auto doubleClick = [&](const QPoint &place) {
        Gesture gesture;
        gesture.move(place).press().release().press().release();
        run(gesture);
    };
    doubleClick(positionIn(name("album")));
    QTRY_COMPARE(itemsOf(root(), "ShelfNameField").size(), 1);
    key(
        Qt::Key_Escape, [&] { return itemsOf(root(), "ShelfNameField").isEmpty(); }, "its end");
    doubleClick(pictureOf("album"));
    QTRY_COMPARE(m_shelf->folder(), document("album"));
}

void TestShelfPage::framesEndWhereTheThumbnailsDo()
{
    for (int i = 0; i < 60; ++i) {
        QFile file(m_folder->filePath(QStringLiteral("album/page %1.txt").arg(i)));
        QVERIFY(file.open(QFile::WriteOnly));
    }
    m_shelf->open(QUrl::fromLocalFile(m_folder->filePath(text("album"))));
    QTRY_COMPARE(m_shelf->model()->count(), 62);
    m_shelf->find(text("page"));
    QQuickItem *const grid = itemsOf(root(), "QQuickGridView").value(0);
    const auto frames = [&] {
        int shown = 0;
        const auto all = itemsOf(grid, "om::controls::Frame");
        for (QQuickItem *const frame : all) {
            const QRectF place = frame->mapRectToItem(grid, frame->boundingRect());
            if (frame->isVisible()) {
                ++shown;
                if (place.top() < -6 || place.bottom() > grid->height() + 6) {
                    return -1;
                }
            }
        }
        return shown;
    };
    QTRY_VERIFY(frames() > 8);
    Gesture gesture;
    gesture.move(positionIn(grid)).turnWheel(1);
    gesture.until([&] { return grid->property("contentY").toReal() > 0; }, "the scrolling");
    run(gesture);
    QVERIFY(frames() > 8);
    // Where something covers the thumbnails there are none at all.
    m_view->window()->resize(850, 700);
    QTRY_VERIFY(button("Details"));
    click(button("Details"));
    QTRY_COMPARE(frames(), 0);
}

void TestShelfPage::rowsOfTheTreeAreMadeInSight()
{
    for (int i = 0; i < 100; ++i) {
        QVERIFY(QDir().mkpath(m_folder->filePath(QStringLiteral("album/folder %1").arg(i))));
    }
    m_shelf->open(QUrl::fromLocalFile(m_folder->filePath(text("album"))));
    QTRY_VERIFY(!m_shelf->isReading());
    QTRY_VERIFY(row("folder 0"));
    QQuickItem *const tree = itemsOf(root(), "ShelfTree").value(0);
    QTRY_COMPARE(itemsOf(tree, "om::controls::TreeView").value(0)->height(), 101 * 28.0);
    // A rebuild makes all rows anew in one turn: what they are made of stays with those in sight.
    const int inSight = int(tree->height() / 28) + 2;
    QTRY_VERIFY(itemsOf(tree, "ShelfTreeRow").size() > 5);
    QVERIFY2(itemsOf(tree, "ShelfTreeRow").size() <= inSight,
             qPrintable(QString::number(itemsOf(tree, "ShelfTreeRow").size())));
    QVERIFY(!row("folder 99"));
    click(row("folder 0"));
    key(
        Qt::Key_End, [&] { return row("folder 99"); }, "the last row");
    QCOMPARE(m_shelf->folder(), document("folder 99"));
    // Renaming there, and a rebuild that follows.
    key(
        Qt::Key_F2, [&] { return itemsOf(tree, "ShelfNameField").size() == 1; }, "the field");
    type("last");
    key(
        Qt::Key_Return, [&] { return row("last"); }, "the new name");
    m_shelf->remove({QVariant::fromValue<QObject *>(document("folder 5"))});
    QTRY_COMPARE(itemsOf(tree, "om::controls::TreeView").value(0)->height(), 100 * 28.0);
    QTRY_VERIFY(row("last"));
}

void TestShelfPage::rateIsShownOnDemand()
{
    const auto rate = [&] {
        const QStringList texts = support::textsOn(root());
        return !texts.filter(QRegularExpression(text("^\\d+ fps$"))).isEmpty();
    };
    QVERIFY(!rate());
    key(Qt::Key_F12, rate, "the rate");
    key(
        Qt::Key_F12, [&] { return !rate(); }, "no rate");
}

static void collectNameless(QAccessibleInterface *object, QStringList *roles, QStringList *nameless)
{
    if (!object || object->state().invisible) {
        return;
    }
    roles->append(QVariant::fromValue(object->role()).toString());
    const bool named = !object->text(QAccessible::Name).isEmpty();
    const bool plain = object->role() == QAccessible::Client
        || object->role() == QAccessible::Window || object->role() == QAccessible::NoRole
        || object->role() == QAccessible::ScrollBar;
    if (!named && !plain) {
        nameless->append(QString::fromLatin1(object->object()->metaObject()->className())
                         + object->text(QAccessible::Value)
                         + object->object()->property("text").toString());
    }
    for (int i = 0; i < object->childCount(); ++i) {
        collectNameless(object->child(i), roles, nameless);
    }
}

void TestShelfPage::everythingHasANameAndARole()
{
    choose("red.png");
    key(
        Qt::Key_L, [&] { return isOpen("Label"); }, "the picker", Qt::Key_Control);
    QStringList roles;
    QStringList nameless;
    collectNameless(QAccessible::queryAccessibleInterface(m_view->window()), &roles, &nameless);
    QCOMPARE(nameless.join(QLatin1Char(' ')), QString());
    for (const char *role : {"Button", "Tree", "TreeItem", "List", "ListItem", "EditableText",
                             "ToolBar", "Dialog", "Slider", "Graphic", "StaticText"}) {
        QVERIFY2(roles.contains(text(role)), role);
    }
    // Whatever takes the keys has a role.
    QStringList roleless;
    std::function<void(QQuickItem *)> look = [&](QQuickItem *item) {
        if (!item->isVisible()) {
            return;
        }
        QAccessibleInterface *const object = QAccessible::queryAccessibleInterface(item);
        if (item->activeFocusOnTab() && (!object || object->role() == QAccessible::NoRole)) {
            roleless.append(QString::fromLatin1(item->metaObject()->className())
                            + item->property("text").toString() + (object ? "0" : "none"));
        }
        const auto children = item->childItems();
        for (QQuickItem *const child : children) {
            look(child);
        }
    };
    look(content());
    QCOMPARE(roleless.join(QLatin1Char(' ')), QString());
    key(
        Qt::Key_Escape, [&] { return !isOpen("Label"); }, "its end");
}

void TestShelfPage::nothingIsLostOnAnotherPage()
{
    QVERIFY(m_shelf->rename(document("plan.txt"), text("draft.txt")));
    m_view->loadFile(qEnvironmentVariable("OMBREL_SOURCE_DIR")
                     + text("/gallery/qml/pages/InputPage.qml"));
    QTRY_VERIFY(itemsOf(content(), "ShelfView").isEmpty());
    m_view->loadFile(qEnvironmentVariable("OMBREL_SOURCE_DIR")
                     + text("/gallery/qml/pages/ShelfPage.qml"));
    QTRY_VERIFY(name("draft.txt"));
    QVERIFY(m_shelf->isChanged());
}

/// What a drag carries can go while it is under way: the card that is left says nothing.
void TestShelfPage::cardWithoutDocuments()
{
    QQmlComponent component(m_view->engine(),
                            QUrl::fromLocalFile(qEnvironmentVariable("OMBREL_SOURCE_DIR")
                                                + text("/gallery/qml/shelf/ShelfDragCard.qml")));
    const std::unique_ptr<QObject> card(component.create());
    QVERIFY2(card, qPrintable(component.errorString()));
}

QTEST_MAIN(TestShelfPage)
#include "tst_shelfpage.moc"
