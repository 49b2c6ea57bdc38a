// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/gallery/ShelfFixture.h"

using support::text;

/// What saving a shelf does on disk.
class TestShelfSaving : public ShelfFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { makeFolder(); }
    void cleanup()
    {
        clear();
        QCOMPARE(support::leftovers(), QString());
    }

    void planSaysWhatWillBeDone();
    void savesAllOfIt();
    void namesAreExchangedOnDisk();
    void folderAndWhatIsInItAreSavedTogether();
    void whatAppearsMeanwhileIsNotOverwritten();
    void deletedFolderKeepsWhatTheShelfDoesNotKnow();
    void labelsAndOrderAreThereAgain();
    void damagedNotesAreSaidAndLeftAlone();
};

void TestShelfSaving::planSaysWhatWillBeDone()
{
    QVERIFY(m_shelf->rename(document("notes.txt"), text("words.txt")));
    QVERIFY(m_shelf->move(list({document("tail.txt")}), document("album/inner"), -1));
    m_shelf->remove(list({document("plan.txt"), document("album/one.png")}));
    QStringList plan = m_shelf->plan();
    plan.sort();
    QCOMPARE(
        plan,
        QStringList({QStringLiteral("Delete “album/one.png”"), QStringLiteral("Delete “plan.txt”"),
                     QStringLiteral("Move “tail.txt” to “album/inner/tail.txt”"),
                     QStringLiteral("Rename “notes.txt” to “words.txt”")}));
    while (m_shelf->history()->canUndo()) {
        m_shelf->history()->undo();
    }
    QVERIFY(m_shelf->plan().isEmpty());
    m_shelf->remove(list({document("album")}));
    QCOMPARE(m_shelf->plan().size(), 1);
}

void TestShelfSaving::savesAllOfIt()
{
    QTemporaryDir elsewhere;
    QFile file(elsewhere.filePath(text("new.txt")));
    QVERIFY(file.open(QFile::WriteOnly));
    file.write("new");
    file.close();
    QVERIFY(m_shelf->rename(document("notes.txt"), text("words.txt")));
    QVERIFY(m_shelf->move(list({document("tail.txt")}), document("album/inner"), -1));
    m_shelf->remove(list({document("plan.txt")}));
    m_shelf->add({QUrl::fromLocalFile(file.fileName())}, document("album"), -1);
    QTRY_VERIFY(document("album/new.txt"));
    const auto before = disk();
    save();
    QCOMPARE(m_said, QStringList(text("Saved")));
    auto expected = before;
    expected.insert(text("words.txt"), expected.take(text("notes.txt")));
    expected.insert(text("album/inner/tail.txt"), expected.take(text("tail.txt")));
    expected.remove(text("plan.txt"));
    expected.insert(text("album/new.txt"), "new");
    // The file that came at the end of the folder lies where its name does not put it.
    QVERIFY(disk().contains(text(".shelf.json")));
    expected.insert(text(".shelf.json"), disk().value(text(".shelf.json")));
    QCOMPARE(disk(), expected);
    QVERIFY(!m_shelf->isChanged());
    QVERIFY(m_shelf->plan().isEmpty());
    QVERIFY(!document("album/new.txt")->isAdded());
    QCOMPARE(document("words.txt")->url(),
             QUrl::fromLocalFile(m_folder->filePath(text("words.txt"))));
}

void TestShelfSaving::namesAreExchangedOnDisk()
{
    QVERIFY(m_shelf->rename(document("notes.txt"), text("other")));
    QVERIFY(m_shelf->rename(document("plan.txt"), text("notes.txt")));
    QVERIFY(m_shelf->rename(document("other"), text("plan.txt")));
    QVERIFY(m_shelf->move(list({document("notes.txt")}), m_shelf->root(), 1));
    save();
    QCOMPARE(disk().value(text("plan.txt")), QByteArray("notes.txt"));
    QCOMPARE(disk().value(text("notes.txt")), QByteArray("plan.txt"));
    QCOMPARE(disk().size(), 8);
}

void TestShelfSaving::folderAndWhatIsInItAreSavedTogether()
{
    // Everything at once: the folder gets another name and place, one in it another name, one
    // leaves it, one in it goes, and one comes into it.
    QVERIFY(m_shelf->rename(document("album/inner/deep.txt"), text("deeper.txt")));
    m_shelf->remove(list({document("album/one.png")}));
    QVERIFY(m_shelf->move(list({document("album/two.png")}), m_shelf->root(), -1));
    QVERIFY(m_shelf->move(list({document("plan.txt")}), document("album"), -1));
    QVERIFY(m_shelf->rename(document("album"), text("renamed")));
    QVERIFY(m_shelf->move(list({document("renamed/inner")}), m_shelf->root(), 0));
    QVERIFY(m_shelf->move(list({document("renamed")}), document("inner"), 0));
    save();
    QCOMPARE(m_said, QStringList(text("Saved")));
    QStringList paths = disk().keys();
    paths.removeOne(text(".shelf.json"));
    QCOMPARE(paths,
             QStringList({text("inner"), text("inner/deeper.txt"), text("inner/renamed"),
                          text("inner/renamed/plan.txt"), text("notes.txt"), text("tail.txt"),
                          text("two.png")}));
    // And again from there.
    QVERIFY(m_shelf->rename(document("inner/renamed/plan.txt"), text("again.txt")));
    save();
    QVERIFY(disk().contains(text("inner/renamed/again.txt")));
}

void TestShelfSaving::whatAppearsMeanwhileIsNotOverwritten()
{
    QVERIFY(m_shelf->rename(document("notes.txt"), text("words.txt")));
    m_shelf->makeFolder();
    write(text("words.txt"), "somebody else's");
    write(text("New folder"), "a file by now");
    save();
    QCOMPARE(disk().value(text("words.txt")), QByteArray("somebody else's"));
    QCOMPARE(disk().value(text("notes.txt")), QByteArray("notes.txt"));
    QCOMPARE(disk().value(text("New folder")), QByteArray("a file by now"));
    QCOMPARE(m_said.size(), 1);
    QVERIFY2(m_said.first().startsWith(text("Not all could be saved")), qPrintable(m_said.first()));
    // It is still to be done, and can be once there is room.
    QVERIFY(m_shelf->isChanged());
    QVERIFY(QFile::remove(m_folder->filePath(text("words.txt"))));
    QVERIFY(QFile::remove(m_folder->filePath(text("New folder"))));
    save();
    QCOMPARE(m_said.last(), text("Saved"));
    QCOMPARE(disk().value(text("words.txt")), QByteArray("notes.txt"));
    QCOMPARE(disk().value(text("New folder")), QByteArray("folder"));
}

void TestShelfSaving::deletedFolderKeepsWhatTheShelfDoesNotKnow()
{
    m_shelf->remove(list({document("album")}));
    write(text("album/late.txt"), "late");
    save();
    QVERIFY(!disk().contains(text("album/one.png")));
    QVERIFY(!disk().contains(text("album/inner")));
    QCOMPARE(disk().value(text("album/late.txt")), QByteArray("late"));
    QVERIFY2(m_said.last().contains(text("and stays")), qPrintable(m_said.last()));
}

void TestShelfSaving::labelsAndOrderAreThereAgain()
{
    m_shelf->setLabel(list({document("album/one.png")}), QColor(text("#c8643c")));
    QVERIFY(m_shelf->move(list({document("tail.txt")}), m_shelf->root(), 0));
    QCOMPARE(m_shelf->plan(),
             QStringList(QStringLiteral("Write labels and order to “.shelf.json”")));
    save();
    open();
    QCOMPARE(document("album/one.png")->label(), QColor(text("#c8643c")));
    QCOMPARE(names().first(), text("tail.txt"));
    QVERIFY(m_shelf->plan().isEmpty());
    // What came since stands behind.
    write(text("another.txt"));
    open();
    QCOMPARE(names(),
             QStringList({text("tail.txt"), text("album"), text("notes.txt"), text("plan.txt"),
                          text("another.txt")}));
}

void TestShelfSaving::damagedNotesAreSaidAndLeftAlone()
{
    write(text(".shelf.json"), "{ no");
    open();
    QCOMPARE(m_said.size(), 1);
    QVERIFY(m_said.first().contains(text("damaged")));
    QCOMPARE(m_shelf->count(), 8);
    QVERIFY(m_shelf->plan().isEmpty());
    QCOMPARE(disk().value(text(".shelf.json")), QByteArray("{ no"));
}

QTEST_GUILESS_MAIN(TestShelfSaving)
#include "tst_shelfsaving.moc"
