// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/FolderTree.h"
#include "gallery/GalleryEngine.h"
#include "gallery/shelf/Shelf.h"
#include "tests/gallery/GalleryWindow.h"
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
class TestWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void sidebarHasEveryPage();
    void sidebarOpensPages();
    void sidebarTakesArrowKeys();
    void pageScrollsByWheel();
    void wheelScrollsWhereverThePointerIs();
    void pageScrollsByKeys();
    void everythingIsInItsCard_data();
    void everythingIsInItsCard();
    void pageIsInTheMiddleOfALargeWindow();
    void sidebarShowsTheCurrentPage_data();
    void sidebarShowsTheCurrentPage();
    void sectionsAreTheLibrarysRooms();

    void foldersOpenByDoubleClick();
    void crumbsLeadBack();
    void namesAreEditedInPlace();
    void selectionSurvivesDeletedFiles();
    void shownFolderIsDeleted();
    void emptyFolderSaysSo();
    void closingAsksForUnsavedChanges();

private:
    void write(const QString &name);
    void resize(const QSize &size);
    QQuickItem *withText(const QString &text) const;
    void click(QQuickItem *item);
    /// The entry of a page in the sidebar, scrolled into sight.
    QQuickItem *entry(const QString &title) const;
    void doubleClick(QQuickItem *item);
    QStringList pageTitles() const;
    QStringList pagesOfCards() const;

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<FolderTree> m_tree;
    std::unique_ptr<QQmlApplicationEngine> m_engine;
    QQuickWindow *m_window = nullptr;
};

void TestWindow::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    write("album/inner/deep.txt");
    write("album/second.txt");
    write("zebra.txt");
    QVERIFY(QDir(m_dir->path()).mkpath("nothing"));
    m_tree = std::make_unique<FolderTree>(m_dir->path());
    m_engine = std::make_unique<QQmlApplicationEngine>();
    om::gallery::prepareEngine(m_engine.get(), m_tree.get());
    m_window = openGalleryWindow(m_engine.get(), "documents");
    QVERIFY(m_window);
    QTRY_VERIFY(withText("zebra.txt"));
}

void TestWindow::cleanup()
{
    m_engine.reset();
    m_tree.reset();
    m_dir.reset();
    QCOMPARE(support::leftovers(), QString());
}

void TestWindow::write(const QString &name)
{
    const QString path = m_dir->filePath(name);
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QFile file(path);
    QVERIFY(file.open(QFile::WriteOnly));
    file.write("text\n");
}

void TestWindow::resize(const QSize &size)
{
    m_window->resize(size);
    QTRY_COMPARE(m_window->contentItem()->size().toSize(), size);
    // Columns are laid out with the next frame.
    QVERIFY(!m_window->grabWindow().isNull());
}

QQuickItem *TestWindow::withText(const QString &text) const
{
    return support::itemWith(m_window->contentItem(), "text", text);
}

void TestWindow::click(QQuickItem *item)
{
    QVERIFY(item);
    const QPointF center = item->mapToScene({qMin(item->width(), 30.0) / 2, item->height() / 2});
    QTest::mouseClick(m_window, Qt::LeftButton, {}, center.toPoint());
}

QQuickItem *TestWindow::entry(const QString &title) const
{
    QQuickItem *list = support::itemsOf(m_window->contentItem(), "Sidebar").value(0);
    list = support::itemsOf(list, "QQuickFlickable").value(0);
    QQuickItem *label = support::itemWith(list, "text", title);
    const qreal y = label->mapToItem(list, {}).y() + list->property("contentY").toReal();
    const qreal last = list->property("contentHeight").toReal() - list->height();
    list->setProperty("contentY", qBound(0.0, y - 40, qMax(0.0, last)));
    return label;
}

void TestWindow::doubleClick(QQuickItem *item)
{
    QVERIFY(item);
    const QPointF center = item->mapToScene({qMin(item->width(), 30.0) / 2, item->height() / 2});
    QTest::mouseDClick(m_window, Qt::LeftButton, {}, center.toPoint());
}

QStringList TestWindow::pageTitles() const
{
    QStringList titles;
    const QVariantList pages = m_window->property("pages").toList();
    for (const QVariant &page : pages)
        titles.append(page.toMap().value("title").toString());
    return titles;
}

// The names of the pages that scroll and are made of cards.
QStringList TestWindow::pagesOfCards() const
{
    QStringList names;
    const QVariantList pages = m_window->property("pages").toList();
    for (const QVariant &page : pages) {
        if (!page.toMap().value("whole").toBool())
            names.append(page.toMap().value("name").toString());
    }
    return names;
}

// Demos and sections: what has a title and a hint.
static void collectCards(QQuickItem *item, QList<QQuickItem *> *cards)
{
    if (item->property("hint").isValid() && item->property("title").isValid()) {
        cards->append(item);
        return;
    }
    const QList<QQuickItem *> children = item->childItems();
    for (QQuickItem *child : children)
        collectCards(child, cards);
}

void TestWindow::sidebarHasEveryPage()
{
    const QStringList titles = pageTitles();
    QVERIFY(!titles.isEmpty());
    for (const QString &title : titles)
        QVERIFY2(withText(title), qPrintable(title));
}

void TestWindow::sidebarOpensPages()
{
    const QVariantList pages = m_window->property("pages").toList();
    for (const QVariant &page : pages) {
        const QVariantMap entry = page.toMap();
        click(this->entry(entry.value("title").toString()));
        QTRY_COMPARE(m_window->property("currentPage"), entry.value("name"));
        QCOMPARE(m_window->property("pageBroken").toBool(), false);
        QVERIFY(m_window->title().startsWith(entry.value("title").toString()));
        QVERIFY(m_window->property("pageHeight").toReal() > 100);
    }
}

void TestWindow::sidebarTakesArrowKeys()
{
    const QVariantList pages = m_window->property("pages").toList();
    const auto name = [&pages](int index) {
        return pages.at(index).toMap().value("name").toString();
    };
    click(entry(pageTitles().first()));
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

void TestWindow::pageScrollsByWheel()
{
    QQuickItem *heading = support::itemWith(
        support::itemsOf(m_window->contentItem(), "ContextDemo").value(0), "text", "Context");
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

void TestWindow::wheelScrollsWhereverThePointerIs()
{
    resize({820, 480});
    const QStringList pages = pagesOfCards();
    for (const QString &name : pages) {
        m_window->setProperty("currentPage", name);
        QVERIFY(!m_window->grabWindow().isNull());
        QList<QQuickItem *> cards;
        collectCards(m_window->contentItem(), &cards);
        QQuickItem *page = cards.first();
        while (!page->property("summary").isValid())
            page = page->parentItem();
        const qreal last = page->property("contentHeight").toReal() - page->height();
        QVERIFY2(last > 0, qPrintable(name));
        // Down the whole page with the pointer over all that comes by. What scrolls by itself takes
        // its share first.
        for (const int x : {300, 500, 700}) {
            page->setProperty("contentY", 0);
            for (int i = 0; i < 200 && page->property("contentY").toReal() < last; ++i) {
                const QPointF position(x, 240);
                QWheelEvent event(position, m_window->mapToGlobal(position.toPoint()), {},
                                  {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                                  false);
                QCoreApplication::sendEvent(m_window, &event);
                QCoreApplication::processEvents();
            }
            QVERIFY2(page->property("contentY").toReal() >= last - 1,
                     qPrintable(QString("%1: stuck at %2 of %3, at x %4")
                                    .arg(name)
                                    .arg(page->property("contentY").toReal())
                                    .arg(last)
                                    .arg(x)));
        }
    }
}

void TestWindow::pageScrollsByKeys()
{
    // A field keeps its keys; a click beside it gives them to the page.
    QQuickItem *heading = support::itemWith(
        support::itemsOf(m_window->contentItem(), "ContextDemo").value(0), "text", "Context");
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

// Texts and fields below `item` that leave `card`, with how far they do.
static QStringList outside(QQuickItem *item, QQuickItem *card)
{
    QStringList found;
    if (!item->isVisible() || item->opacity() == 0 || (item->clip() && item != card))
        return found;
    const bool text = !item->property("text").toString().isEmpty() && item->width() > 0;
    const bool area = item->property("radius").isValid() && item->property("border").isValid();
    if (text || area) {
        const QRectF place = item->mapRectToItem(card, {0, 0, item->width(), item->height()});
        const QRectF room = card->boundingRect().adjusted(-1, -1, 1, 1);
        if (place.left() < room.left() || place.right() > room.right()
            || place.bottom() > room.bottom()) {
            found.append(
                QString("%1 \"%2\" at %3 … %4, down to %5, in %6 x %7")
                    .arg(item->metaObject()->className(), item->property("text").toString())
                    .arg(place.left())
                    .arg(place.right())
                    .arg(place.bottom())
                    .arg(card->width())
                    .arg(card->height()));
        }
    }
    const QList<QQuickItem *> children = item->childItems();
    for (QQuickItem *child : children)
        found += outside(child, card);
    return found;
}

void TestWindow::everythingIsInItsCard_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("the smallest window") << QSize(820, 480);
    QTest::newRow("the window as it opens") << QSize(1240, 820);
}

void TestWindow::everythingIsInItsCard()
{
    QFETCH(QSize, size);
    resize(size);
    const QStringList pages = pagesOfCards();
    for (const QString &name : pages) {
        m_window->setProperty("currentPage", name);
        QVERIFY(!m_window->grabWindow().isNull());
        QList<QQuickItem *> cards;
        collectCards(m_window->contentItem(), &cards);
        QVERIFY(!cards.isEmpty());
        QStringList found;
        for (QQuickItem *card : qAsConst(cards)) {
            found += outside(card, card);
            if (card->mapRectToScene(card->boundingRect()).right() > m_window->width())
                found.append("the card itself");
        }
        QVERIFY2(found.isEmpty(), qPrintable(name + ":\n" + found.join('\n')));
    }
}

void TestWindow::pageIsInTheMiddleOfALargeWindow()
{
    resize({1920, 1000});
    QVERIFY(!m_window->grabWindow().isNull());
    const auto cards = support::itemsOf(m_window->contentItem(), "DocumentDemo");
    QCOMPARE(cards.size(), 1);
    const QRectF place = cards.first()->mapRectToScene(cards.first()->boundingRect());
    const qreal left = place.left() - 228; // beside the sidebar
    const qreal right = m_window->width() - place.right();
    QVERIFY2(qAbs(left - right) <= 2, qPrintable(QString("%1 and %2").arg(left).arg(right)));
    QVERIFY(place.width() > 1300);
}

void TestWindow::sidebarShowsTheCurrentPage_data()
{
    QTest::addColumn<QString>("page");
    QTest::newRow("the first") << "theme";
    QTest::newRow("one below the fold") << "borders";
    QTest::newRow("the last") << "documents";
}

void TestWindow::sidebarShowsTheCurrentPage()
{
    QFETCH(QString, page);
    resize({820, 480});
    m_window->setProperty("currentPage", page);
    QVERIFY(!m_window->grabWindow().isNull());
    QQuickItem *list = support::itemsOf(m_window->contentItem(), "Sidebar").value(0);
    QVERIFY(list);
    list = support::itemsOf(list, "QQuickFlickable").value(0);
    QVERIFY(list);
    const QVariantList pages = m_window->property("pages").toList();
    QString title;
    for (const QVariant &entry : pages) {
        if (entry.toMap().value("name") == page)
            title = entry.toMap().value("title").toString();
    }
    QQuickItem *label = support::itemWith(list, "text", title);
    QVERIFY(label);
    const QRectF place = label->mapRectToItem(list, label->boundingRect());
    QVERIFY2(place.top() >= 0 && place.bottom() <= list->height(), qPrintable(title));
    // There is more than is seen, and it shows.
    QQuickItem *bar = support::itemsOf(list, "ScrollBar").value(0);
    QVERIFY(bar && bar->isVisible());
}

void TestWindow::sectionsAreTheLibrarysRooms()
{
    QStringList sections;
    const QVariantList pages = m_window->property("pages").toList();
    for (const QVariant &page : pages) {
        const QString section = page.toMap().value("section").toString().toLower();
        // The start stands above all sections.
        if (!section.isEmpty() && (sections.isEmpty() || sections.last() != section))
            sections.append(section);
    }
    QCOMPARE(sections,
             (QStringList{"application", "theme", "drop", "drag", "popups", "tree", "visuals",
                          "input", "data core"}));
    for (int i = 1; i < 8; ++i)
        QVERIFY(QDir(qEnvironmentVariable("OMBREL_SOURCE_DIR") + "/controls/" + sections.at(i))
                    .exists());
}

void TestWindow::foldersOpenByDoubleClick()
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

void TestWindow::crumbsLeadBack()
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

void TestWindow::namesAreEditedInPlace()
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

void TestWindow::selectionSurvivesDeletedFiles()
{
    click(withText("zebra.txt"));
    QTRY_VERIFY(withText("text"));
    QVERIFY(QFile::remove(m_dir->filePath("zebra.txt")));
    QTRY_VERIFY(!withText("zebra.txt"));
    // The first document is shown instead.
    QTRY_VERIFY(withText("2 documents"));
    QTRY_VERIFY(withText(m_tree->folder()->childDocuments().first()->documentId()));
}

void TestWindow::shownFolderIsDeleted()
{
    doubleClick(withText("album"));
    QTRY_VERIFY(withText("inner"));
    doubleClick(withText("inner"));
    QTRY_VERIFY(withText("deep.txt"));
    QVERIFY(QDir(m_dir->filePath("album")).removeRecursively());
    QTRY_VERIFY(withText("zebra.txt"));
    QVERIFY(!withText("album"));
}

void TestWindow::emptyFolderSaysSo()
{
    doubleClick(withText("nothing"));
    QTRY_VERIFY(withText("This folder is empty"));
    QVERIFY(withText("0 documents"));
    write("nothing/now something");
    QTRY_VERIFY(withText("now something"));
    QVERIFY(!withText("This folder is empty"));
}

void TestWindow::closingAsksForUnsavedChanges()
{
    auto *const shelf =
        m_engine->rootContext()->contextProperty("shelf").value<om::gallery::Shelf *>();
    m_window->setProperty("currentPage", "shelf");
    QTRY_VERIFY(shelf->root() && !shelf->isReading());
    m_window->setProperty("currentPage", "documents");
    const auto isAsked = [this] {
        // A closed dialog is invisible, and so not found, once it has faded.
        const QQuickItem *const dialog =
            support::itemWith(m_window->contentItem(), "title", "Close without saving?");
        return dialog && dialog->property("open").toBool();
    };

    shelf->makeFolder();
    QVERIFY(shelf->isChanged());
    QVERIFY(!m_window->close());
    QVERIFY(m_window->isVisible());
    QTRY_VERIFY(isAsked());
    QTest::keyClick(m_window, Qt::Key_Escape);
    QTRY_VERIFY(!isAsked());
    QVERIFY(m_window->isVisible());

    QVERIFY(!m_window->close());
    QTRY_VERIFY(isAsked());
    QTest::keyClick(m_window, Qt::Key_Return);
    QTRY_VERIFY(!m_window->isVisible());
    QVERIFY(!QFileInfo::exists(m_dir->filePath(".shelf.json")));
}

QTEST_MAIN(TestWindow)

#include "tst_window.moc"
