// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/FolderDocument.h"
#include "gallery/FolderTree.h"
#include "tests/support/Leftovers.h"
#include "tests/support/PlainUser.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QPointer>
#include <QQmlListReference>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using om::data::Context;
using om::data::Document;
using om::gallery::FolderDocument;
using om::gallery::FolderTree;

class TestFolderDocument : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void documentsDescribeTheirFiles();
    void typeByMimeType_data();
    void typeByMimeType();
    void order();
    void hiddenFilesAreLeftOut();
    void readWhenNeeded();
    void linkToAFolderHasNoChildren();
    void unreadableFolderIsKnown();
    void folderThatBecomesReadableIsFollowed();

    void followsNewFiles();
    void followsDeletedFiles();
    void followsRenamedFiles();
    void followsManyAtOnce();
    void followsSubfoldersThatWereRead();
    void leavesUnreadFoldersAlone();
    void fileThatBecomesAFolder();
    void typeFollowsTheContent();
    void folderMadeAnewIsFollowed();
    void openedFolderDisappears();
    void reportsToTheContext();
    void treeGoesBeforeItsDocuments();

private:
    QString path(const QString &name) const { return m_dir->filePath(name); }
    void write(const QString &name, const QByteArray &content = "content\n");
    static QStringList names(const Document *document);
    Document *child(Document *document, const QString &name);

    std::unique_ptr<QTemporaryDir> m_dir;
};

void TestFolderDocument::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
}

void TestFolderDocument::cleanup()
{
    // Only root can remove the contents of a folder that may not be read; for most tests there is
    // none.
    QFile::setPermissions(path("closed"), QFile::Permissions(0x7755));
    m_dir.reset();
    QCOMPARE(support::leftovers(), QString());
}

void TestFolderDocument::write(const QString &name, const QByteArray &content)
{
    QVERIFY(QDir(m_dir->path()).mkpath(QFileInfo(path(name)).path()));
    QFile file(path(name));
    QVERIFY(file.open(QFile::WriteOnly));
    QCOMPARE(file.write(content), content.size());
}

QStringList TestFolderDocument::names(const Document *document)
{
    QStringList names;
    const QList<Document *> children = document->childDocuments();
    for (const Document *child : children)
        names.append(child->name());
    return names;
}

Document *TestFolderDocument::child(Document *document, const QString &name)
{
    const QList<Document *> children = document->childDocuments();
    for (Document *child : children) {
        if (child->name() == name)
            return child;
    }
    return nullptr;
}

void TestFolderDocument::documentsDescribeTheirFiles()
{
    write("notes.txt");
    FolderTree tree(m_dir->path());
    const QString canonical = QDir(m_dir->path()).canonicalPath();
    QCOMPARE(tree.folder()->documentId(), canonical);
    QCOMPARE(tree.folder()->name(), QFileInfo(canonical).fileName());
    QCOMPARE(tree.folder()->url(), QUrl::fromLocalFile(canonical));
    QCOMPARE(tree.folder()->types(), QStringList{"folder"});
    QCOMPARE(tree.folder()->context(), tree.context());

    Document *notes = child(tree.folder(), "notes.txt");
    QVERIFY(notes);
    QCOMPARE(notes->documentId(), canonical + "/notes.txt");
    QCOMPARE(notes->url(), QUrl::fromLocalFile(canonical + "/notes.txt"));
    QCOMPARE(notes->types(), QStringList{"text"});
    QCOMPARE(notes->context(), tree.context());
    QVERIFY(notes->childDocuments().isEmpty());
}

void TestFolderDocument::typeByMimeType_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("type");

    const QByteArray png("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16);
    QTest::newRow("png") << "a.png" << png << "image";
    QTest::newRow("png without a suffix") << "picture" << png << "image";
    QTest::newRow("capital suffix") << "A.JPG" << QByteArray("x") << "image";
    QTest::newRow("svg, which is text too") << "a.svg" << QByteArray("<svg/>") << "image";
    QTest::newRow("mp4") << "a.mp4" << QByteArray("x") << "video";
    QTest::newRow("webm") << "a.webm" << QByteArray("x") << "video";
    QTest::newRow("plain text") << "a.txt" << QByteArray("x") << "text";
    QTest::newRow("source code") << "a.cpp" << QByteArray("int a;") << "text";
    QTest::newRow("text without a suffix") << "README" << QByteArray("Read me\n") << "text";
    QTest::newRow("archive") << "a.zip" << QByteArray("PK\3\4") << "file";
    QTest::newRow("bytes") << "a.bin" << QByteArray(64, '\0') << "file";
    QTest::newRow("sound") << "a.mp3" << QByteArray("x") << "file";
    QTest::newRow("empty, without a suffix") << "nothing" << QByteArray() << "file";
}

void TestFolderDocument::typeByMimeType()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QFETCH(QString, type);
    write(name, content);
    FolderTree tree(m_dir->path());
    QCOMPARE(tree.folder()->childDocuments().size(), 1);
    QCOMPARE(tree.folder()->childDocuments().first()->types(), QStringList{type});
}

void TestFolderDocument::order()
{
    for (const char *name : {"b.txt", "A.txt", "shot 10.png", "Shot 9.png", "shot 007.png",
                             "shot.png", "zoo/x", "Box/x"})
        write(name);
    FolderTree tree(m_dir->path());
    QCOMPARE(names(tree.folder()),
             (QStringList{"Box", "zoo", "A.txt", "b.txt", "shot 007.png", "Shot 9.png",
                          "shot 10.png", "shot.png"}));
}

void TestFolderDocument::hiddenFilesAreLeftOut()
{
    write(".hidden");
    write(".git/config");
    write("seen");
    FolderTree tree(m_dir->path());
    QCOMPARE(names(tree.folder()), QStringList{"seen"});
}

void TestFolderDocument::readWhenNeeded()
{
    write("a/b/c/file.txt");
    FolderTree tree(m_dir->path());
    auto *top = qobject_cast<FolderDocument *>(tree.folder());
    QVERIFY(top);
    QVERIFY(!top->isLoaded());
    QVERIFY(top->hasType("folder"));
    QVERIFY(!top->isLoaded());

    // The way QML and the controls read it.
    QQmlListReference list(top, "children");
    QCOMPARE(list.count(), 1);
    QVERIFY(top->isLoaded());
    auto *a = qobject_cast<FolderDocument *>(list.at(0));
    QVERIFY(a);
    QVERIFY(!a->isLoaded());
    auto *b = qobject_cast<FolderDocument *>(child(a, "b"));
    QVERIFY(a->isLoaded());
    QVERIFY(b);
    QVERIFY(!b->isLoaded());
}

void TestFolderDocument::linkToAFolderHasNoChildren()
{
    write("real/file.txt");
    QVERIFY(QFile::link(m_dir->path(), path("loop")));
    FolderTree tree(m_dir->path());
    Document *loop = child(tree.folder(), "loop");
    QVERIFY(loop);
    QVERIFY(loop->hasType("folder"));
    QVERIFY(loop->childDocuments().isEmpty());
    QCOMPARE(names(child(tree.folder(), "real")), QStringList{"file.txt"});
}

void TestFolderDocument::unreadableFolderIsKnown()
{
    write("closed/inside.txt");
    write("open/inside.txt");
    QVERIFY(QFile::setPermissions(path("closed"), QFile::WriteOwner));
    // The temporary folder is its maker's alone.
    QVERIFY(QFile::setPermissions(m_dir->path(), QFile::Permissions(0x7755)));
    const support::PlainUser user;
    FolderTree tree(m_dir->path());
    QCOMPARE(names(tree.folder()), (QStringList{"closed", "open"}));
    Document *closed = child(tree.folder(), "closed");
    QVERIFY(!closed->property("readable").toBool());
    QVERIFY(child(tree.folder(), "open")->property("readable").toBool());
    // Quiet, too: no watch is asked for that the system would refuse with a warning.
    QVERIFY(closed->childDocuments().isEmpty());
    QCOMPARE(names(child(tree.folder(), "open")), QStringList{"inside.txt"});
}

void TestFolderDocument::folderThatBecomesReadableIsFollowed()
{
    write("closed/inside.txt");
    QVERIFY(QFile::setPermissions(path("closed"), QFile::WriteOwner));
    QVERIFY(QFile::setPermissions(m_dir->path(), QFile::Permissions(0x7755)));
    FolderTree tree(m_dir->path());
    Document *closed = child(tree.folder(), "closed");
    {
        const support::PlainUser user;
        QVERIFY(closed->childDocuments().isEmpty());
    }
    QSignalSpy readable(closed, SIGNAL(readableChanged()));
    QVERIFY(QFile::setPermissions(path("closed"), QFile::Permissions(0x7755)));
    // A change of the rights is no change of the folder around it; the next one there is.
    write("new.txt");
    QTRY_COMPARE(readable.count(), 1);
    QTRY_COMPARE(names(closed), QStringList{"inside.txt"});
    write("closed/second.txt");
    QTRY_COMPARE(names(closed), (QStringList{"inside.txt", "second.txt"}));
}

void TestFolderDocument::followsNewFiles()
{
    write("b");
    FolderTree tree(m_dir->path());
    const QPointer<Document> b = child(tree.folder(), "b");
    QSignalSpy changed(tree.folder(), &Document::childrenChanged);
    write("c");
    write("a");
    QTRY_COMPARE(names(tree.folder()), (QStringList{"a", "b", "c"}));
    QVERIFY(changed.count() > 0);
    QCOMPARE(child(tree.folder(), "b"), b.data());
    QCOMPARE(child(tree.folder(), "a")->context(), tree.context());
}

void TestFolderDocument::followsDeletedFiles()
{
    for (const char *name : {"a", "b", "c"})
        write(name);
    FolderTree tree(m_dir->path());
    const QPointer<Document> a = child(tree.folder(), "a");
    const QPointer<Document> b = child(tree.folder(), "b");
    QVERIFY(QFile::remove(path("b")));
    QTRY_COMPARE(names(tree.folder()), (QStringList{"a", "c"}));
    QTRY_VERIFY(!b);
    QCOMPARE(child(tree.folder(), "a"), a.data());
}

void TestFolderDocument::followsRenamedFiles()
{
    write("a.txt");
    FolderTree tree(m_dir->path());
    QCOMPARE(names(tree.folder()), QStringList{"a.txt"});
    QVERIFY(QFile::rename(path("a.txt"), path("z.png")));
    QTRY_COMPARE(names(tree.folder()), QStringList{"z.png"});
    QCOMPARE(child(tree.folder(), "z.png")->types(), QStringList{"image"});
}

void TestFolderDocument::followsManyAtOnce()
{
    write("first");
    FolderTree tree(m_dir->path());
    QCOMPARE(tree.folder()->childDocuments().size(), 1);
    QSignalSpy changed(tree.folder(), &Document::childrenChanged);
    for (int i = 0; i < 200; ++i)
        write(QString("file %1").arg(i));
    QTRY_COMPARE(tree.folder()->childDocuments().size(), 201);
    // A signal for each look at the folder, not for each file.
    QVERIFY2(changed.count() < 20, qPrintable(QString::number(changed.count())));
    for (int i = 0; i < 200; i += 2)
        QVERIFY(QFile::remove(path(QString("file %1").arg(i))));
    QTRY_COMPARE(tree.folder()->childDocuments().size(), 101);
}

void TestFolderDocument::followsSubfoldersThatWereRead()
{
    write("sub/a");
    FolderTree tree(m_dir->path());
    Document *sub = child(tree.folder(), "sub");
    QCOMPARE(names(sub), QStringList{"a"});
    write("sub/b");
    QTRY_COMPARE(names(sub), (QStringList{"a", "b"}));
}

void TestFolderDocument::leavesUnreadFoldersAlone()
{
    write("sub/a");
    FolderTree tree(m_dir->path());
    auto *sub = qobject_cast<FolderDocument *>(child(tree.folder(), "sub"));
    write("sub/b");
    write("c");
    QTRY_COMPARE(names(tree.folder()), (QStringList{"sub", "c"}));
    QVERIFY(!sub->isLoaded());
    QCOMPARE(names(sub), (QStringList{"a", "b"}));
}

void TestFolderDocument::fileThatBecomesAFolder()
{
    write("thing");
    FolderTree tree(m_dir->path());
    const QPointer<Document> file = child(tree.folder(), "thing");
    QVERIFY(file->hasType("text"));
    QVERIFY(QFile::remove(path("thing")));
    write("thing/inside");
    QTRY_VERIFY(child(tree.folder(), "thing") && child(tree.folder(), "thing")->hasType("folder"));
    QTRY_VERIFY(!file);
    QCOMPARE(names(child(tree.folder(), "thing")), QStringList{"inside"});
}

void TestFolderDocument::typeFollowsTheContent()
{
    write("thing", QByteArray());
    FolderTree tree(m_dir->path());
    Document *thing = child(tree.folder(), "thing");
    QCOMPARE(thing->types(), QStringList{"file"});
    QVERIFY(QFile::remove(path("thing")));
    write("thing", "now text\n");
    QTRY_COMPARE(thing->types(), QStringList{"text"});
}

void TestFolderDocument::folderMadeAnewIsFollowed()
{
    write("sub/a");
    FolderTree tree(m_dir->path());
    QPointer<Document> sub = child(tree.folder(), "sub");
    QCOMPARE(names(sub), QStringList{"a"});
    // Between two looks: the document stays, the folder on disk is another one.
    QVERIFY(QDir(path("sub")).removeRecursively());
    write("sub/b");
    QTRY_VERIFY(sub && names(sub) == QStringList{"b"});
    write("sub/c");
    QTRY_COMPARE(names(sub), (QStringList{"b", "c"}));
}

void TestFolderDocument::openedFolderDisappears()
{
    write("opened/a");
    FolderTree tree(path("opened"));
    QCOMPARE(names(tree.folder()), QStringList{"a"});
    QVERIFY(QDir(path("opened")).removeRecursively());
    QTRY_VERIFY(tree.folder()->childDocuments().isEmpty());
}

void TestFolderDocument::reportsToTheContext()
{
    write("sub/a");
    FolderTree tree(m_dir->path());
    Document *sub = child(tree.folder(), "sub");
    QCOMPARE(sub->childDocuments().size(), 1);
    QSignalSpy reports(tree.context(), &Context::documentChanged);
    write("sub/b");
    QTRY_COMPARE(reports.count(), 1);
    QCOMPARE(reports.first().first().value<Document *>(), sub);
}

void TestFolderDocument::treeGoesBeforeItsDocuments()
{
    write("sub/a");
    auto tree = std::make_unique<FolderTree>(m_dir->path());
    Document *sub = child(tree->folder(), "sub");
    QCOMPARE(sub->childDocuments().size(), 1);
    QVERIFY(tree->folder()->removeChild(sub));
    tree.reset();
    qobject_cast<FolderDocument *>(sub)->refresh();
    QCOMPARE(names(sub), QStringList{"a"});
    delete sub;
}

QTEST_GUILESS_MAIN(TestFolderDocument)

#include "tst_folderdocument.moc"
