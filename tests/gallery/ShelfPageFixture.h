// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "gallery/FolderTree.h"
#include "gallery/GalleryEngine.h"
#include "gallery/shelf/Shelf.h"
#include "tests/support/Gesture.h"
#include "tests/support/Items.h"
#include "tests/support/Leftovers.h"
#include "tests/support/QmlView.h"
#include "tests/support/Text.h"

#include <QDir>
#include <QDirIterator>
#include <QImage>
#include <QQmlContext>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <memory>

/// Shelf, to be used by hand on this folder:
///
///     album/ notes.txt one.png
///     empty/
///     notes.txt plan.txt red.png tail.txt
class ShelfPageFixture : public QObject
{
protected:
    void openPage();
    void closePage();
    QQuickItem *root() const { return m_view->root(); }
    QQuickItem *content() const { return m_view->window()->contentItem(); }
    /// Where the name of a document is shown among the thumbnails.
    QQuickItem *name(const char *text) const;
    QQuickItem *tile(const char *text) const;
    QQuickItem *row(const char *text) const;
    QQuickItem *button(const char *text) const;
    /// In the picture of a document, once all tiles are where they belong.
    QPoint pictureOf(const char *text) const
    {
        rest();
        return support::positionIn(tile(text), 60, 50);
    }
    void rest() const;
    void choose(const char *name);
    QStringList names() const;
    QStringList selected() const;
    QStringList disk() const;
    om::data::Document *document(const char *name) const;
    /// Runs the steps; what goes wrong fails the test.
    static void run(support::Gesture &gesture) { QVERIFY2(gesture.run(), gesture.error()); }
    void click(QQuickItem *item);
    void key(Qt::Key key, const support::Gesture::Condition &condition, const char *what,
             Qt::Key modifier = Qt::Key_unknown, Qt::Key second = Qt::Key_unknown);
    void type(const char *letters);
    QQuickItem *dialog(const char *title) const;
    bool isOpen(const char *title) const
    {
        return dialog(title) && dialog(title)->property("open").toBool();
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<om::gallery::FolderTree> m_tree;
    std::unique_ptr<support::QmlView> m_view;
    om::gallery::Shelf *m_shelf = nullptr;
};

inline void ShelfPageFixture::openPage()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    QVERIFY(QDir(m_folder->path()).mkpath(support::text("album")));
    QVERIFY(QDir(m_folder->path()).mkpath(support::text("empty")));
    for (const char *name : {"album/notes.txt", "notes.txt", "plan.txt", "tail.txt"}) {
        QFile file(m_folder->filePath(support::text(name)));
        QVERIFY(file.open(QFile::WriteOnly));
        file.write(name);
    }
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(Qt::red);
    QVERIFY(image.save(m_folder->filePath(support::text("album/one.png"))));
    QVERIFY(image.save(m_folder->filePath(support::text("red.png"))));
    m_tree = std::make_unique<om::gallery::FolderTree>(m_folder->path());
    m_view = std::make_unique<support::QmlView>();
    om::gallery::prepareEngine(m_view->engine(), m_tree.get());
    m_shelf = m_view->engine()
                  ->rootContext()
                  ->contextProperty(support::text("shelf"))
                  .value<om::gallery::Shelf *>();
    QVERIFY(m_shelf);
    m_view->window()->setResizeMode(QQuickView::SizeRootObjectToView);
    m_view->window()->setGeometry(0, 0, 1000, 700);
    m_view->loadFile(qEnvironmentVariable("OMBREL_SOURCE_DIR")
                     + support::text("/gallery/qml/pages/ShelfPage.qml"));
    m_view->show();
    QTRY_VERIFY(!m_shelf->isReading());
    QTRY_VERIFY(name("tail.txt") && row("empty"));
}

inline void ShelfPageFixture::closePage()
{
    m_shelf = nullptr;
    m_view.reset();
    m_tree.reset();
    m_folder.reset();
}

inline QQuickItem *ShelfPageFixture::name(const char *name) const
{
    QQuickItem *const grid = support::itemsOf(root(), "ShelfGrid").value(0);
    return grid ? support::itemWith(grid, "text", support::text(name)) : nullptr;
}

inline QQuickItem *ShelfPageFixture::tile(const char *text) const
{
    QQuickItem *item = name(text);
    while (item && !QByteArray(item->metaObject()->className()).startsWith("ShelfTile")) {
        item = item->parentItem();
    }
    return item;
}

inline void ShelfPageFixture::rest() const
{
    QQuickItem *const grid = support::itemsOf(root(), "QQuickGridView").value(0);
    const auto isAtRest = [&] {
        const auto tiles = support::itemsOf(grid, "ShelfTile");
        return std::all_of(tiles.begin(), tiles.end(), [&](const QQuickItem *tile) {
            return std::fmod(tile->x(), tile->width()) == 0
                && std::fmod(tile->y(), tile->height()) == 0;
        });
    };
    QTRY_VERIFY(isAtRest());
}

inline void ShelfPageFixture::choose(const char *name)
{
    support::Gesture gesture;
    gesture.move(pictureOf(name)).press().release();
    gesture.until([&] { return selected() == QStringList(support::text(name)); }, name);
    run(gesture);
}

inline QQuickItem *ShelfPageFixture::row(const char *name) const
{
    QQuickItem *const tree = support::itemsOf(root(), "ShelfTree").value(0);
    return tree ? support::itemWith(tree, "text", support::text(name)) : nullptr;
}

inline QQuickItem *ShelfPageFixture::button(const char *name) const
{
    const auto buttons = support::itemsOf(content(), "Button");
    for (QQuickItem *const candidate : buttons) {
        if (candidate->isVisible()
            && candidate->property("text").toString() == support::text(name)) {
            return candidate;
        }
    }
    return nullptr;
}

inline QStringList ShelfPageFixture::names() const
{
    QStringList names;
    for (int i = 0; i < m_shelf->model()->count(); ++i) {
        names.append(m_shelf->model()->documentAt(i)->name());
    }
    return names;
}

inline QStringList ShelfPageFixture::selected() const
{
    QStringList names;
    const auto documents = m_shelf->model()->selected();
    for (const om::gallery::ShelfDocument *document : documents) {
        names.append(document->name());
    }
    return names;
}

inline QStringList ShelfPageFixture::disk() const
{
    QStringList paths;
    QDirIterator it(m_folder->path(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        paths.append(QDir(m_folder->path()).relativeFilePath(it.next()));
    }
    paths.sort();
    return paths;
}

inline om::data::Document *ShelfPageFixture::document(const char *name) const
{
    const auto children = m_shelf->root()->childDocuments();
    for (om::data::Document *child : children) {
        if (child->name() == support::text(name)) {
            return child;
        }
    }
    return nullptr;
}

inline void ShelfPageFixture::click(QQuickItem *item)
{
    QVERIFY(item);
    support::Gesture gesture;
    gesture.move(support::positionIn(item)).press().release();
    run(gesture);
}

inline void ShelfPageFixture::key(Qt::Key key, const support::Gesture::Condition &condition,
                                  const char *what, Qt::Key modifier, Qt::Key second)
{
    support::Gesture gesture;
    for (const Qt::Key held : {modifier, second}) {
        if (held != Qt::Key_unknown) {
            gesture.pressKey(held);
        }
    }
    gesture.key(key);
    for (const Qt::Key held : {second, modifier}) {
        if (held != Qt::Key_unknown) {
            gesture.releaseKey(held);
        }
    }
    gesture.until(condition, what);
    run(gesture);
}

inline void ShelfPageFixture::type(const char *letters)
{
    support::Gesture gesture;
    for (; *letters; ++letters) {
        gesture.key(*letters == '.' ? Qt::Key_Period : Qt::Key(Qt::Key_A + (*letters - 'a')));
    }
    run(gesture);
}

inline QQuickItem *ShelfPageFixture::dialog(const char *title) const
{
    const auto items = content()->childItems();
    for (QQuickItem *const item : items) {
        if (item->property("modal").isValid()
            && item->property("title").toString().startsWith(support::text(title))) {
            return item;
        }
    }
    return nullptr;
}
