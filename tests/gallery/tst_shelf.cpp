// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/gallery/ShelfFixture.h"
#include "tests/support/PlainUser.h"

#include <QSignalSpy>

using om::gallery::Shelf;
using om::gallery::ShelfDocument;
using om::gallery::ShelfHistory;
using support::text;

/// What can be done on a shelf, all of it in memory.
class TestShelf : public ShelfFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { makeFolder(); }
    void cleanup()
    {
        clear();
        QCOMPARE(support::leftovers(), QString());
    }

    void historyTakesBackAndDoesAgain();
    void historyForgetsWhatAnotherStepReplaces();
    void historyKeepsStepsApart();
    void opensAllThatIsThere();
    void saysWhatCannotBeRead();
    void opensAnotherFolder();
    void readsThousandsInParts();
    void renamesInMemoryOnly();
    void refusesNames_data();
    void refusesNames();
    void movesIntoAFolderAndBack();
    void reordersAndTakesItBack();
    void refusesMoves_data();
    void refusesMoves();
    void deletesAndBringsBack();
    void openFolderThatGoesClosesItself();
    void labelsSeveralAtOnce();
    void copiesFilesIntoMemory();
    void namesOfOneDropDiffer();
    void refusesWhatCannotBeCopied();
    void selectsAsFileManagersDo();
    void selectionFollowsItsDocuments();
    void rowsTellOfTheirChanges();
    void blockMovesInOneStep_data();
    void blockMovesInOneStep();
    void findsInAllFolders();
};

void TestShelf::historyTakesBackAndDoesAgain()
{
    ShelfHistory history;
    QSignalSpy spy(&history, &ShelfHistory::changed);
    QVERIFY(!history.canUndo() && !history.canRedo());
    history.undo();
    history.redo();
    QCOMPARE(spy.count(), 0);
    int value = 0;
    history.run(
        text("one"), [&] { value = 1; }, [&] { value = 0; });
    QCOMPARE(value, 1);
    history.run(
        text("two"), [&] { value = 2; }, [&] { value = 1; });
    QCOMPARE(value, 2);
    QCOMPARE(history.undoText(), text("two"));
    QCOMPARE(history.redoText(), QString());
    history.undo();
    QCOMPARE(value, 1);
    QCOMPARE(history.undoText(), text("one"));
    QCOMPARE(history.redoText(), text("two"));
    history.undo();
    QCOMPARE(value, 0);
    QVERIFY(!history.canUndo());
    history.redo();
    history.redo();
    QCOMPARE(value, 2);
    QVERIFY(!history.canRedo());
    QCOMPARE(spy.count(), 6);
    history.clear();
    QVERIFY(!history.canUndo());
    QCOMPARE(value, 2);
}

void TestShelf::historyForgetsWhatAnotherStepReplaces()
{
    ShelfHistory history;
    int value = 0;
    history.run(
        text("one"), [&] { value = 1; }, [&] { value = 0; });
    history.undo();
    history.run(
        text("other"), [&] { value = 5; }, [&] { value = 0; });
    QVERIFY(!history.canRedo());
    history.redo();
    QCOMPARE(value, 5);
    history.undo();
    QCOMPARE(value, 0);
    QCOMPARE(history.redoText(), text("other"));
}

void TestShelf::historyKeepsStepsApart()
{
    ShelfHistory history;
    QStringList done;
    history.run(
        text("outer"),
        [&] {
            history.run(
                text("inner"), [&] { done.append(text("inner")); },
                [&] { done.append(text("inner undone")); });
            history.undo();
            done.append(text("outer"));
        },
        [&] { done.append(text("outer undone")); });
    QCOMPARE(done, QStringList({text("outer"), text("inner")}));
    QCOMPARE(history.undoText(), text("inner"));
    history.undo();
    history.undo();
    QCOMPARE(done.mid(2), QStringList({text("inner undone"), text("outer undone")}));

    history.run(
        text("clearing"), [&] { history.clear(); }, [] {});
    QVERIFY(!history.canUndo() && !history.canRedo());
}

void TestShelf::opensAllThatIsThere()
{
    QCOMPARE(names(),
             QStringList({text("album"), text("notes.txt"), text("plan.txt"), text("tail.txt")}));
    QCOMPARE(names("album"), QStringList({text("inner"), text("one.png"), text("two.png")}));
    QCOMPARE(m_shelf->count(), 8);
    QCOMPARE(m_shelf->model()->count(), 4);
    QCOMPARE(document("album/one.png")->types(), QStringList({text("image"), text("shelf")}));
    QCOMPARE(document("")->treeFolders(), QList<om::data::Document *>{document("album")});
    QVERIFY(!m_shelf->isChanged() && !m_shelf->isCut());
    QVERIFY(m_shelf->plan().isEmpty());
    QVERIFY(m_said.isEmpty());
}

void TestShelf::saysWhatCannotBeRead()
{
    write(text("closed.txt"));
    QVERIFY(QFile::setPermissions(m_folder->filePath(text("closed.txt")), QFile::WriteOwner));
    QVERIFY(QDir().mkdir(m_folder->filePath(text("locked"))));
    QVERIFY(QFile::setPermissions(m_folder->filePath(text("locked")), QFile::WriteOwner));
    QVERIFY(QFile::setPermissions(m_folder->path(), QFile::Permissions(0x7755)));
    {
        const support::PlainUser user;
        open();
    }
    QCOMPARE(m_shelf->unreadable(), 2);
    QVERIFY(!document("closed.txt")->isReadable());
    QVERIFY(!document("locked")->isReadable());
    QVERIFY(document("notes.txt")->isReadable());
    QVERIFY(m_shelf->moveProblem(list({document("notes.txt")}), document("locked"))
                .contains(text("cannot be read")));
}

void TestShelf::opensAnotherFolder()
{
    QTemporaryDir other;
    QFile file(other.filePath(text("only.txt")));
    QVERIFY(file.open(QFile::WriteOnly));
    QVERIFY(m_shelf->rename(document("notes.txt"), text("renamed.txt")));
    m_shelf->open(QUrl::fromLocalFile(other.path()));
    QTRY_VERIFY(!m_shelf->isReading());
    QCOMPARE(names(), QStringList(text("only.txt")));
    QVERIFY(!m_shelf->isChanged());
    QCOMPARE(m_shelf->model()->count(), 1);
    // While it is still being read.
    m_shelf->open(QUrl::fromLocalFile(m_folder->path()));
    m_shelf->open(QUrl::fromLocalFile(other.path()));
    QTRY_VERIFY(!m_shelf->isReading());
    QCOMPARE(names(), QStringList(text("only.txt")));
}

void TestShelf::readsThousandsInParts()
{
    for (int i = 0; i < 450; ++i) {
        write(QStringLiteral("album/page %1.txt").arg(i));
    }
    m_shelf = std::make_unique<Shelf>();
    QSignalSpy spy(m_shelf->model(), &QAbstractItemModel::rowsInserted);
    QSignalSpy resets(m_shelf->model(), &QAbstractItemModel::modelReset);
    m_shelf->open(QUrl::fromLocalFile(m_folder->filePath(text("album"))));
    QVERIFY(!m_shelf->move({}, m_shelf->root(), 0));
    QTRY_VERIFY(!m_shelf->isReading());
    QCOMPARE(m_shelf->model()->count(), 453);
    QVERIFY(spy.count() >= 3);
    QCOMPARE(resets.count(), 0);
    // Numbers in their order.
    QCOMPARE(names().at(2), text("page 0.txt"));
    QCOMPARE(names().last(), text("two.png"));
    QCOMPARE(names().at(101), text("page 99.txt"));
}

void TestShelf::renamesInMemoryOnly()
{
    const auto before = disk();
    QVERIFY(m_shelf->rename(document("notes.txt"), text("words.txt")));
    QVERIFY(document("words.txt"));
    QVERIFY(m_shelf->isChanged());
    m_shelf->history()->undo();
    QVERIFY(document("notes.txt"));
    QVERIFY(!m_shelf->isChanged());
    m_shelf->history()->redo();
    QVERIFY(document("words.txt"));
    QCOMPARE(disk(), before);
    // The same name is no step.
    QVERIFY(m_shelf->rename(document("plan.txt"), text("plan.txt")));
    m_shelf->history()->undo();
    QVERIFY(document("notes.txt"));
    QVERIFY(!m_shelf->rename(m_shelf->root(), text("root")));
}

void TestShelf::refusesNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("none") << QString();
    QTest::newRow("this folder") << text(".");
    QTest::newRow("the folder above") << text("..");
    QTest::newRow("with a slash") << text("a/b");
    QTest::newRow("another's") << text("plan.txt");
    QTest::newRow("too long") << QString(300, QLatin1Char('x'));
}

void TestShelf::refusesNames()
{
    QFETCH(QString, name);
    QVERIFY(!m_shelf->nameProblem(document("notes.txt"), name).isEmpty());
    QVERIFY(!m_shelf->rename(document("notes.txt"), name));
    QVERIFY(document("notes.txt"));
    QVERIFY(!m_shelf->isChanged());
    QCOMPARE(m_said.size(), 1);
}

void TestShelf::movesIntoAFolderAndBack()
{
    const auto moved = list({document("notes.txt"), document("plan.txt")});
    QCOMPARE(m_shelf->moveProblem(moved, document("album")), QString());
    QVERIFY(m_shelf->move(moved, document("album"), 1));
    QCOMPARE(names(), QStringList({text("album"), text("tail.txt")}));
    QCOMPARE(names("album"),
             QStringList({text("inner"), text("notes.txt"), text("plan.txt"), text("one.png"),
                          text("two.png")}));
    QCOMPARE(m_shelf->history()->undoText(), text("move 2 items"));
    m_shelf->history()->undo();
    QCOMPARE(names(),
             QStringList({text("album"), text("notes.txt"), text("plan.txt"), text("tail.txt")}));
    QCOMPARE(names("album"), QStringList({text("inner"), text("one.png"), text("two.png")}));
    m_shelf->history()->redo();
    QCOMPARE(names("album").at(2), text("plan.txt"));
    // A folder, which the tree follows.
    QVERIFY(m_shelf->move(list({document("album/inner")}), m_shelf->root(), -1));
    QCOMPARE(names().last(), text("inner"));
    QCOMPARE(document("")->treeFolders().size(), 2);
    QVERIFY(document("album")->treeFolders().isEmpty());
}

void TestShelf::reordersAndTakesItBack()
{
    // To the front of its neighbours, counted with itself in its old place.
    QVERIFY(m_shelf->move(list({document("tail.txt")}), m_shelf->root(), 1));
    QCOMPARE(names(),
             QStringList({text("album"), text("tail.txt"), text("notes.txt"), text("plan.txt")}));
    QVERIFY(m_shelf->move(list({document("album")}), m_shelf->root(), 4));
    QCOMPARE(names(),
             QStringList({text("tail.txt"), text("notes.txt"), text("plan.txt"), text("album")}));
    m_shelf->history()->undo();
    m_shelf->history()->undo();
    QCOMPARE(names(),
             QStringList({text("album"), text("notes.txt"), text("plan.txt"), text("tail.txt")}));
    // Where it is already: no step.
    QVERIFY(m_shelf->move(list({document("plan.txt")}), m_shelf->root(), 3));
    QVERIFY(!m_shelf->isChanged());
}

void TestShelf::refusesMoves_data()
{
    QTest::addColumn<QString>("what");
    QTest::addColumn<QString>("where");
    QTest::newRow("a folder into itself") << text("album") << text("album");
    QTest::newRow("a folder into what is in it") << text("album") << text("album/inner");
    QTest::newRow("into a file") << text("notes.txt") << text("plan.txt");
    QTest::newRow("beside one of the same name") << text("notes.txt") << text("same");
    QTest::newRow("into a link") << text("notes.txt") << text("link");
}

void TestShelf::refusesMoves()
{
    QFETCH(QString, what);
    QFETCH(QString, where);
    QVERIFY(QDir(m_folder->path()).mkpath(text("same")));
    write(text("same/notes.txt"));
    QVERIFY(QFile::link(m_folder->filePath(text("album")), m_folder->filePath(text("link"))));
    open();
    const QStringList before = names();
    const auto moved = list({document(qPrintable(what))});
    QVERIFY(!m_shelf->moveProblem(moved, document(qPrintable(where))).isEmpty());
    QVERIFY(!m_shelf->move(moved, document(qPrintable(where)), 0));
    QCOMPARE(names(), before);
    QVERIFY(!m_shelf->isChanged());
    QCOMPARE(m_said.size(), 1);
}

void TestShelf::deletesAndBringsBack()
{
    const auto before = disk();
    m_shelf->remove(list({document("album"), document("plan.txt")}));
    QCOMPARE(names(), QStringList({text("notes.txt"), text("tail.txt")}));
    QCOMPARE(m_shelf->count(), 2);
    m_shelf->history()->undo();
    QCOMPARE(names(),
             QStringList({text("album"), text("notes.txt"), text("plan.txt"), text("tail.txt")}));
    QCOMPARE(m_shelf->count(), 8);
    QCOMPARE(m_shelf->model()->selectedCount(), 2);
    QCOMPARE(disk(), before);
    // The root cannot go.
    m_shelf->remove(list({document("")}));
    QVERIFY(!m_shelf->history()->canUndo());
}

void TestShelf::openFolderThatGoesClosesItself()
{
    m_shelf->setFolder(document("album/inner"));
    QCOMPARE(m_shelf->model()->count(), 1);
    m_shelf->remove(list({document("album")}));
    QCOMPARE(m_shelf->folder(), m_shelf->root());
    QCOMPARE(m_shelf->model()->count(), 3);
}

void TestShelf::labelsSeveralAtOnce()
{
    m_shelf->setLabel(list({document("notes.txt")}), Qt::blue);
    m_shelf->setLabel(list({document("notes.txt"), document("plan.txt")}), Qt::red);
    QCOMPARE(document("plan.txt")->label(), QColor(Qt::red));
    m_shelf->history()->undo();
    QCOMPARE(document("notes.txt")->label(), QColor(Qt::blue));
    QVERIFY(!document("plan.txt")->label().isValid());
    m_shelf->setLabel(list({document("notes.txt")}), Qt::transparent);
    QVERIFY(!document("notes.txt")->label().isValid());
}

void TestShelf::copiesFilesIntoMemory()
{
    QTemporaryDir elsewhere;
    QVERIFY(QDir(elsewhere.path()).mkpath(text("pack/below")));
    for (const char *name : {"notes.txt", "pack/a.txt", "pack/below/b.txt"}) {
        QFile file(elsewhere.filePath(text(name)));
        QVERIFY(file.open(QFile::WriteOnly));
        file.write("from elsewhere");
    }
    const auto before = disk();
    m_shelf->add({QUrl::fromLocalFile(elsewhere.filePath(text("notes.txt"))),
                  QUrl::fromLocalFile(elsewhere.filePath(text("pack")))},
                 m_shelf->root(), 1);
    QTRY_COMPARE(names(),
                 QStringList({text("album"), text("notes 2.txt"), text("pack"), text("notes.txt"),
                              text("plan.txt"), text("tail.txt")}));
    QCOMPARE(document("pack/below/b.txt")->content(), QByteArray("from elsewhere"));
    QVERIFY(document("notes 2.txt")->isAdded());
    QCOMPARE(m_shelf->count(), 13);
    QCOMPARE(disk(), before);
    QVERIFY(m_said.isEmpty());
    m_shelf->history()->undo();
    QCOMPARE(m_shelf->count(), 8);
}

void TestShelf::namesOfOneDropDiffer()
{
    QList<QUrl> urls;
    QTemporaryDir elsewhere;
    for (const char *name : {"one/notes.txt", "two/notes.txt", "one/new", "two/new"}) {
        QVERIFY(QDir(elsewhere.path()).mkpath(QFileInfo(text(name)).path()));
        QFile file(elsewhere.filePath(text(name)));
        QVERIFY(file.open(QFile::WriteOnly));
        urls.append(QUrl::fromLocalFile(file.fileName()));
    }
    m_shelf->add(urls, m_shelf->root(), -1);
    QTRY_COMPARE(m_shelf->count(), 12);
    QCOMPARE(names().mid(4),
             QStringList({text("notes 2.txt"), text("notes 3.txt"), text("new"), text("new 2")}));
}

void TestShelf::refusesWhatCannotBeCopied()
{
    m_shelf->add({QUrl(text("http://example.org/a.png"))}, m_shelf->root(), 0);
    QCOMPARE(m_said.size(), 1);
    m_shelf->add({QUrl::fromLocalFile(text("/nowhere/at all.txt"))}, m_shelf->root(), 0);
    QTRY_COMPARE(m_said.size(), 2);
    QVERIFY2(m_said.last().contains(text("is gone")), qPrintable(m_said.last()));
    // One that is too large is not even read: its bytes are holes.
    QTemporaryDir elsewhere;
    QFile large(elsewhere.filePath(text("large.bin")));
    QVERIFY(large.open(QFile::WriteOnly));
    QVERIFY(large.resize(om::gallery::ShelfReader::largestCopy + 1));
    m_shelf->add({QUrl::fromLocalFile(large.fileName())}, m_shelf->root(), 0);
    QTRY_COMPARE(m_said.size(), 3);
    QVERIFY2(m_said.last().contains(text("64 MB")), qPrintable(m_said.last()));
    QVERIFY(!m_shelf->isChanged());
    m_shelf->add({QUrl::fromLocalFile(large.fileName())}, document("notes.txt"), 0);
    QCOMPARE(m_said.size(), 4);
}

void TestShelf::selectsAsFileManagersDo()
{
    om::gallery::ShelfModel *const model = m_shelf->model();
    const auto selected = [&] {
        QString rows;
        for (int i = 0; i < model->count(); ++i) {
            rows += QLatin1Char(model->isSelected(i) ? 'x' : '.');
        }
        return rows;
    };
    model->press(1, Qt::NoModifier);
    QCOMPARE(selected(), text(".x.."));
    model->press(3, Qt::ControlModifier);
    QCOMPARE(selected(), text(".x.x"));
    // A press on one of several may begin a drag of all; only a click is about it alone.
    model->press(1, Qt::NoModifier);
    QCOMPARE(selected(), text(".x.x"));
    model->click(1, Qt::NoModifier);
    QCOMPARE(selected(), text(".x.."));
    model->press(3, Qt::ShiftModifier);
    QCOMPARE(selected(), text(".xxx"));
    model->press(0, Qt::ShiftModifier);
    QCOMPARE(selected(), text("xx.."));
    model->press(3, Qt::ControlModifier);
    model->press(3, Qt::ControlModifier);
    QCOMPARE(selected(), text("xx.."));
    // Keys.
    model->step(2, Qt::NoModifier);
    QCOMPARE(selected(), text("..x."));
    model->step(1, Qt::ShiftModifier);
    model->step(0, Qt::ShiftModifier);
    QCOMPARE(selected(), text("xxx."));
    QCOMPARE(model->currentRow(), 0);
    model->step(3, Qt::ControlModifier);
    QCOMPARE(selected(), text("xxx."));
    model->toggleCurrent();
    QCOMPARE(selected(), text("xxxx"));
    model->clearSelection();
    QCOMPARE(selected(), text("...."));
    model->selectAll();
    QCOMPARE(model->selectedCount(), 4);
    model->press(-1, Qt::ControlModifier);
    QCOMPARE(model->selectedCount(), 4);
    model->press(-1, Qt::NoModifier);
    QCOMPARE(model->selectedCount(), 0);
}

void TestShelf::selectionFollowsItsDocuments()
{
    om::gallery::ShelfModel *const model = m_shelf->model();
    model->press(1, Qt::NoModifier);
    QVERIFY(m_shelf->move(list({document("tail.txt")}), m_shelf->root(), 0));
    model->press(model->rowOf(document("notes.txt")), Qt::NoModifier);
    QVERIFY(m_shelf->move(list({document("notes.txt")}), m_shelf->root(), 0));
    QCOMPARE(model->currentRow(), 0);
    QCOMPARE(model->currentDocument(), document("notes.txt"));
    // When it goes, the neighbour takes over.
    m_shelf->remove(list({document("notes.txt")}));
    QCOMPARE(model->selectedCount(), 0);
    QCOMPARE(model->currentRow(), 0);
}

void TestShelf::rowsTellOfTheirChanges()
{
    om::gallery::ShelfModel *const model = m_shelf->model();
    QSignalSpy removed(model, &QAbstractItemModel::rowsRemoved);
    QSignalSpy inserted(model, &QAbstractItemModel::rowsInserted);
    QSignalSpy moved(model, &QAbstractItemModel::rowsMoved);
    QSignalSpy reset(model, &QAbstractItemModel::modelReset);
    m_shelf->remove(list({document("album"), document("plan.txt")}));
    QCOMPARE(removed.count(), 2);
    m_shelf->history()->undo();
    QCOMPARE(inserted.count(), 2);
    QVERIFY(m_shelf->move(list({document("tail.txt")}), m_shelf->root(), 0));
    QCOMPARE(moved.count(), 1);
    QCOMPARE(reset.count(), 0);
    QCOMPARE(model->documentAt(0), document("tail.txt"));
}

void TestShelf::blockMovesInOneStep_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("place");
    QTest::newRow("the first to the end") << 0 << 1 << 100;
    QTest::newRow("the last to the beginning") << 99 << 1 << 0;
    QTest::newRow("many down") << 10 << 40 << 90;
    QTest::newRow("many up") << 50 << 40 << 5;
}

void TestShelf::blockMovesInOneStep()
{
    QFETCH(int, first);
    QFETCH(int, count);
    QFETCH(int, place);
    for (int i = 0; i < 99; ++i) {
        write(QStringLiteral("album/inner/page %1.txt").arg(i));
    }
    open();
    m_shelf->setFolder(document("album/inner"));
    om::gallery::ShelfModel *const model = m_shelf->model();
    QCOMPARE(model->count(), 100);
    const auto shown = [&] {
        QStringList names;
        for (int i = 0; i < model->count(); ++i) {
            names.append(model->documentAt(i)->name());
        }
        return names;
    };
    const QStringList before = shown();
    QSignalSpy moved(model, &QAbstractItemModel::rowsMoved);
    QSignalSpy reset(model, &QAbstractItemModel::modelReset);
    QVERIFY(m_shelf->move(list(document("album/inner")->entries().mid(first, count)),
                          document("album/inner"), place));
    QCOMPARE(reset.count(), 0);
    QCOMPARE(moved.count(), 1);
    QCOMPARE(shown(), names("album/inner"));
    QVERIFY(shown() != before);
    m_shelf->history()->undo();
    QCOMPARE(moved.count(), 2);
    QCOMPARE(shown(), before);
    // Of a larger one the view hears at once, for it would move its rows one by one.
    QVERIFY(m_shelf->move(list(document("album/inner")->entries().mid(0, 45)),
                          document("album/inner"), 95));
    QCOMPARE(moved.count(), 2);
    QCOMPARE(reset.count(), 1);
    QCOMPARE(shown(), names("album/inner"));
}

void TestShelf::findsInAllFolders()
{
    m_shelf->find(text("T"));
    // notes.txt, plan.txt, tail.txt, two.png, deep.txt: whatever the case.
    QCOMPARE(m_shelf->foundCount(), 5);
    m_shelf->find(text("two"));
    QCOMPARE(m_shelf->foundCount(), 1);
    QCOMPARE(document("album")->foundInside(), 1);
    m_shelf->showNextFound();
    QCOMPARE(m_shelf->folder(), document("album"));
    QCOMPARE(m_shelf->model()->currentDocument(), document("album/two.png"));
    // Names that come later are found, too, and those that go are not.
    QVERIFY(m_shelf->rename(document("album/two.png"), text("three.png")));
    m_shelf->find(text("three"));
    QCOMPARE(m_shelf->foundCount(), 1);
    m_shelf->remove(list({document("album/three.png")}));
    QCOMPARE(m_shelf->foundCount(), 0);
    m_shelf->find(QString());
    QCOMPARE(document("album")->foundInside(), 0);
}

QTEST_GUILESS_MAIN(TestShelf)
#include "tst_shelf.moc"
