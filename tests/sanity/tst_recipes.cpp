// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/DragEvents.h"
#include "tests/support/Items.h"
#include "tests/support/Leftovers.h"
#include "tests/support/Pixels.h"
#include "tests/support/QmlView.h"

#include <OmbrelDataCore/Document.h>

#include <QList>
#include <QQmlContext>
#include <QQmlEngine>
#include <QTest>

using namespace support;

//! [document]
/// A book: its chapters are documents, in a list of its own beside `children`.
class Book : public om::data::Document
{
    Q_OBJECT
    Q_PROPERTY(QQmlListProperty<om::data::Document> chapters READ chapters NOTIFY chaptersChanged)

public:
    QQmlListProperty<om::data::Document> chapters()
    {
        return {this, nullptr, &Book::count, &Book::at};
    }
    void append(om::data::Document *chapter)
    {
        chapter->setParent(this);
        m_chapters.append(chapter);
        // One that is destroyed leaves the list.
        connect(chapter, &QObject::destroyed, this, [this, chapter] {
            m_chapters.removeOne(chapter);
            Q_EMIT chaptersChanged();
        });
        Q_EMIT chaptersChanged();
    }

Q_SIGNALS:
    void chaptersChanged();

private:
    static int count(QQmlListProperty<om::data::Document> *list)
    {
        return static_cast<Book *>(list->object)->m_chapters.size();
    }
    static om::data::Document *at(QQmlListProperty<om::data::Document> *list, int index)
    {
        return static_cast<Book *>(list->object)->m_chapters.at(index);
    }

    QList<om::data::Document *> m_chapters;
};
//! [document]

/// Each recipe does what its page says.
class TestRecipes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void documentsAreMovedAbout();
    void aDocumentClassOfOnesOwn();
    void dialogsAreStacked();
    void zonesHaveItems();

private:
    void load(const char *example);
    QQuickItem *saying(const char *shown) const
    {
        return itemWith(m_view->window()->contentItem(), "text", QString::fromUtf8(shown));
    }
    void click(const QQuickItem *item);
    QVariant ask(const char *expression)
    {
        return evaluate(m_view->root(), QString::fromLatin1(expression));
    }

    std::unique_ptr<QmlView> m_view;
};

void TestRecipes::load(const char *example)
{
    m_view = std::make_unique<QmlView>();
    m_view->loadFile(qEnvironmentVariable("OMBREL_SOURCE_DIR")
                     + QStringLiteral("/docs/snippets/%1Example.qml").arg(QLatin1String(example)));
    m_view->show();
}

void TestRecipes::cleanup()
{
    m_view.reset();
    QCOMPARE(leftovers(), QString());
}

void TestRecipes::click(const QQuickItem *item)
{
    QVERIFY(item);
    QTest::mouseClick(m_view->window(), Qt::LeftButton, {},
                      item->mapToScene(item->boundingRect().center()).toPoint());
}

void TestRecipes::documentsAreMovedAbout()
{
    load("DocumentList");
    const auto names = [this] {
        return ask("Array.from(shelf.children).map(document => document.name).join(', ')")
            .toString();
    };
    QCOMPARE(names(), QStringLiteral("Letter, Portrait, Sunset"));
    const auto command = [this](const char *name, const char *what) {
        grab(m_view->window()); // rows that have just been made are in their places
        click(itemWith(saying(name)->parentItem(), "text", QString::fromLatin1(what)));
    };
    command("Portrait", "up");
    QCOMPARE(names(), QStringLiteral("Portrait, Letter, Sunset"));
    command("Portrait", "up");
    QCOMPARE(names(), QStringLiteral("Portrait, Letter, Sunset"));
    command("Letter", "down");
    QCOMPARE(names(), QStringLiteral("Portrait, Sunset, Letter"));
    command("Sunset", "remove");
    QTRY_COMPARE(names(), QStringLiteral("Portrait, Letter"));

    ask("move(shelf.children[0], shelf.children[1])");
    QCOMPARE(names(), QStringLiteral("Letter"));
    QCOMPARE(ask("shelf.children[0].children[0].name").toString(), QStringLiteral("Portrait"));
    ask("takeOut(shelf.children[0])");
    QCOMPARE(names(), QString());
}

void TestRecipes::aDocumentClassOfOnesOwn()
{
    Book book;
    book.setName(QStringLiteral("Travels"));
    m_view = std::make_unique<QmlView>();
    m_view->engine()->rootContext()->setContextProperty(QStringLiteral("book"), &book);
    m_view->load(
        "TreeView { width: 200; height: 200; rootDocuments: [book]; childProperty: 'chapters'\n"
        "  delegate: Text { text: document ? document.name : '' } }");
    m_view->show();
    QTRY_VERIFY(saying("Travels"));
    auto *const chapter = new om::data::Document;
    chapter->setName(QStringLiteral("Departure"));
    book.append(chapter);
    QTRY_VERIFY(saying("Departure"));
    delete chapter;
    QTRY_VERIFY(!saying("Departure"));
    m_view.reset();
}

void TestRecipes::dialogsAreStacked()
{
    load("DialogItemConfirm");
    QTRY_VERIFY(ask("field.activeFocus").toBool());
    const auto open = [this](const char *dialog) { return ask(dialog).toBool(); };
    QTest::keyClick(m_view->window(), Qt::Key_Escape);
    QVERIFY(open("editor.open") && open("question.open"));
    // Escape answers the upper one, and the lower one has the keys again.
    QTest::keyClick(m_view->window(), Qt::Key_Escape);
    QVERIFY(open("editor.open") && !open("question.open"));
    QTRY_VERIFY(ask("field.activeFocus").toBool());
    QTest::keyClick(m_view->window(), Qt::Key_Escape);
    QTest::keyClick(m_view->window(), Qt::Key_Return);
    QVERIFY(!open("editor.open") && !open("question.open"));
    // Nothing to lose: it closes at once.
    ask("field.text = ''");
    ask("editor.show()");
    QTest::keyClick(m_view->window(), Qt::Key_Escape);
    QVERIFY(!open("editor.open") && !open("question.open"));
}

void TestRecipes::zonesHaveItems()
{
    load("DropZoneChildren");
    DragEvents drag(m_view->window());
    drag.setUrls({QUrl(QStringLiteral("file:///a")), QUrl(QStringLiteral("file:///b"))});
    QVERIFY(saying("Drop files here"));
    drag.enter({40, 40});
    QVERIFY(ask("containsDrag").toBool());
    drag.drop({40, 40});
    QVERIFY(saying("2 files"));
}

QTEST_MAIN(TestRecipes)
#include "tst_recipes.moc"
