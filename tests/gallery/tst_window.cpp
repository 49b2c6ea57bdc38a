// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/FolderTree.h"
#include "tests/support/Items.h"
#include "tests/support/Leftovers.h"

#include <OmbrelDataCore/Document.h>

#include <QDir>
#include <QFile>
#include <QQmlApplicationEngine>
#include <QQmlContext>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using om::data::Document;
using om::gallery::FolderTree;

// The gallery's own window, used as a person does: clicks, keys, the wheel, files that come and go.
class tst_Window : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void sidebarHasEveryPage();
    void sidebarOpensPages();
    void sidebarTakesArrowKeys();
    void pageScrollsByWheel();
    void pageScrollsByKeys();

    void foldersOpenByDoubleClick();
    void crumbsLeadBack();
    void namesAreEditedInPlace();
    void selectionSurvivesDeletedFiles();
    void shownFolderIsDeleted();
    void emptyFolderSaysSo();

private:
    void write(const QString &name);
    QQuickItem *withText(const QString &text) const;
    void click(QQuickItem *item);
    void doubleClick(QQuickItem *item);
    QStringList pageTitles() const;

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<FolderTree> m_tree;
    std::unique_ptr<QQmlApplicationEngine> m_engine;
    QQuickWindow *m_window = nullptr;
};

void tst_Window::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    write("album/inner/deep.txt");
    write("album/second.txt");
    write("zebra.txt");
    QVERIFY(QDir(m_dir->path()).mkpath("nothing"));
    m_tree = std::make_unique<FolderTree>(m_dir->path());
    m_engine = std::make_unique<QQmlApplicationEngine>();
    m_engine->rootContext()->setContextProperty("gallery", m_tree.get());
    m_engine->load(QUrl::fromLocalFile(qEnvironmentVariable("OMBREL_SOURCE_DIR")
                                       + "/gallery/qml/Gallery.qml"));
    m_window = qobject_cast<QQuickWindow *>(m_engine->rootObjects().value(0));
    QVERIFY(m_window);
    m_window->setProperty("currentPage", "documents");
    m_window->setPosition(0, 0);
    m_window->show();
    m_window->requestActivate();
    QVERIFY(QTest::qWaitForWindowActive(m_window));
    QTRY_VERIFY(withText("zebra.txt"));
}

void tst_Window::cleanup()
{
    m_engine.reset();
    m_tree.reset();
    m_dir.reset();
    QCOMPARE(support::leftovers(), QString());
}

void tst_Window::write(const QString &name)
{
    const QString path = m_dir->filePath(name);
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QFile file(path);
    QVERIFY(file.open(QFile::WriteOnly));
    file.write("text\n");
}

QQuickItem *tst_Window::withText(const QString &text) const
{
    return support::itemWith(m_window->contentItem(), "text", text);
}

void tst_Window::click(QQuickItem *item)
{
    QVERIFY(item);
    const QPointF center = item->mapToScene({qMin(item->width(), 30.0) / 2, item->height() / 2});
    QTest::mouseClick(m_window, Qt::LeftButton, {}, center.toPoint());
}

void tst_Window::doubleClick(QQuickItem *item)
{
    QVERIFY(item);
    const QPointF center = item->mapToScene({qMin(item->width(), 30.0) / 2, item->height() / 2});
    QTest::mouseDClick(m_window, Qt::LeftButton, {}, center.toPoint());
}

QStringList tst_Window::pageTitles() const
{
    QStringList titles;
    const QVariantList pages = m_window->property("pages").toList();
    for (const QVariant &page : pages)
        titles.append(page.toMap().value("title").toString());
    return titles;
}

void tst_Window::sidebarHasEveryPage()
{
    const QStringList titles = pageTitles();
    QVERIFY(!titles.isEmpty());
    for (const QString &title : titles)
        QVERIFY2(withText(title), qPrintable(title));
}

void tst_Window::sidebarOpensPages()
{
    const QVariantList pages = m_window->property("pages").toList();
    for (const QVariant &page : pages) {
        const QVariantMap entry = page.toMap();
        click(withText(entry.value("title").toString()));
        QTRY_COMPARE(m_window->property("currentPage"), entry.value("name"));
        QCOMPARE(m_window->property("pageBroken").toBool(), false);
        QVERIFY(m_window->title().startsWith(entry.value("title").toString()));
        QVERIFY(m_window->property("pageHeight").toReal() > 100);
    }
}

void tst_Window::sidebarTakesArrowKeys()
{
    const QVariantList pages = m_window->property("pages").toList();
    const auto name = [&pages](int index) {
        return pages.at(index).toMap().value("name").toString();
    };
    click(withText(pageTitles().first()));
    QCOMPARE(m_window->property("currentPage").toString(), name(0));
    QTest::keyClick(m_window, Qt::Key_Up);
    QCOMPARE(m_window->property("currentPage").toString(), name(0));
    for (int i = 1; i < pages.size(); ++i) {
        QTest::keyClick(m_window, Qt::Key_Down);
        QCOMPARE(m_window->property("currentPage").toString(), name(i));
    }
    QTest::keyClick(m_window, Qt::Key_Down);
    QCOMPARE(m_window->property("currentPage").toString(), name(pages.size() - 1));
}

void tst_Window::pageScrollsByWheel()
{
    QQuickItem *heading = withText("Context");
    QVERIFY(heading);
    const qreal before = heading->mapToScene({}).y();
    const auto wheel = [this](int delta) {
        const QPointF position(300, 20);
        QWheelEvent event(position, m_window->mapToGlobal(position.toPoint()), {}, {0, delta},
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(m_window, &event);
    };
    wheel(-120);
    QTRY_VERIFY(heading->mapToScene({}).y() < before);
    for (int i = 0; i < 50; ++i)
        wheel(-120);
    // Not beyond the end.
    QTRY_VERIFY(heading->mapToScene({}).y() > 0);
    for (int i = 0; i < 50; ++i)
        wheel(120);
    QTRY_COMPARE(heading->mapToScene({}).y(), before);
}

void tst_Window::pageScrollsByKeys()
{
    // A field keeps its keys; a click beside it gives them to the page.
    QQuickItem *heading = withText("Context");
    QVERIFY(heading);
    const qreal before = heading->mapToScene({}).y();
    click(heading);
    QTest::keyClick(m_window, Qt::Key_Down);
    QTRY_VERIFY(heading->mapToScene({}).y() < before);
    const qreal step = before - heading->mapToScene({}).y();
    QTest::keyClick(m_window, Qt::Key_End);
    QTRY_VERIFY(before - heading->mapToScene({}).y() > step);
    QTest::keyClick(m_window, Qt::Key_Home);
    QTRY_COMPARE(heading->mapToScene({}).y(), before);
}

void tst_Window::foldersOpenByDoubleClick()
{
    QVERIFY(!withText("second.txt"));
    doubleClick(withText("album"));
    QTRY_VERIFY(withText("second.txt"));
    QVERIFY(!withText("zebra.txt"));
    // A file has nothing inside.
    doubleClick(withText("second.txt"));
    QVERIFY(withText("second.txt"));
    QVERIFY(withText("2 documents"));
}

void tst_Window::crumbsLeadBack()
{
    doubleClick(withText("album"));
    QTRY_VERIFY(withText("inner"));
    doubleClick(withText("inner"));
    QTRY_VERIFY(withText("deep.txt"));
    QVERIFY(withText("1 document"));
    click(withText("album"));
    QTRY_VERIFY(withText("second.txt"));
    QVERIFY(!withText("zebra.txt"));
    // The sidebar's foot has that name too: the crumb stands before "album".
    QQuickItem *album = withText("album");
    QVERIFY(album);
    QTest::mouseClick(m_window, Qt::LeftButton, {},
                      album->mapToScene({-30, album->height() / 2}).toPoint());
    QTRY_VERIFY(withText("zebra.txt"));
}

void tst_Window::namesAreEditedInPlace()
{
    click(withText("zebra.txt"));
    const auto focusedField = [this]() -> QQuickItem * {
        QQuickItem *focus = m_window->activeFocusItem();
        return focus && focus->property("selectByMouse").isValid() ? focus : nullptr;
    };
    // The field beside the label "name" shows the selected document's name.
    QQuickItem *label = withText("name");
    QVERIFY(label);
    QTest::mouseClick(m_window, Qt::LeftButton, {},
                      label->mapToScene({label->width() + 40, label->height() / 2}).toPoint());
    QQuickItem *field = focusedField();
    QVERIFY(field);
    QTRY_COMPARE(field->property("text").toString(), QString("zebra.txt"));
    QTest::keyClick(m_window, Qt::Key_A, Qt::ControlModifier);
    for (const char key : {'h', 'o', 'r', 's', 'e'})
        QTest::keyClick(m_window, key);
    const QList<Document *> children = m_tree->folder()->childDocuments();
    QCOMPARE(children.last()->name(), QString("horse"));
    QTRY_VERIFY(withText("horse"));
}

void tst_Window::selectionSurvivesDeletedFiles()
{
    click(withText("zebra.txt"));
    QTRY_VERIFY(withText("text"));
    QVERIFY(QFile::remove(m_dir->filePath("zebra.txt")));
    QTRY_VERIFY(!withText("zebra.txt"));
    // The first document is shown instead.
    QTRY_VERIFY(withText("2 documents"));
    QTRY_VERIFY(withText(m_tree->folder()->childDocuments().first()->documentId()));
}

void tst_Window::shownFolderIsDeleted()
{
    doubleClick(withText("album"));
    QTRY_VERIFY(withText("inner"));
    doubleClick(withText("inner"));
    QTRY_VERIFY(withText("deep.txt"));
    QVERIFY(QDir(m_dir->filePath("album")).removeRecursively());
    QTRY_VERIFY(withText("zebra.txt"));
    QVERIFY(!withText("album"));
}

void tst_Window::emptyFolderSaysSo()
{
    doubleClick(withText("nothing"));
    QTRY_VERIFY(withText("This folder is empty"));
    QVERIFY(withText("0 documents"));
    write("nothing/now something");
    QTRY_VERIFY(withText("now something"));
    QVERIFY(!withText("This folder is empty"));
}

QTEST_MAIN(tst_Window)

#include "tst_window.moc"
