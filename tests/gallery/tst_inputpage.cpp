// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/FolderTree.h"
#include "gallery/GalleryEngine.h"
#include "gallery/Session.h"
#include "tests/gallery/GalleryWindow.h"
#include "tests/support/Leftovers.h"

#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

/// The page of input helpers, and those that other pages use.
class TestInputPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(support::leftovers(), QString()); }

    void framesAreCountedOnce_data();
    void framesAreCountedOnce();
};

void TestInputPage::framesAreCountedOnce_data()
{
    QTest::addColumn<QByteArray>("page");
    QTest::newRow("the demo") << QByteArray("input");
    QTest::newRow("Shelf") << QByteArray("shelf");
}

/// A frame counts once for each item around a counter: deep inside a page it would read many times
/// the rate.
void TestInputPage::framesAreCountedOnce()
{
    QFETCH(const QByteArray, page);
    const QTemporaryDir folder;
    om::gallery::FolderTree tree(folder.path());
    om::gallery::Session session(nullptr);
    QQmlApplicationEngine engine;
    om::gallery::prepareEngine(&engine, &tree, &session);
    QQuickWindow *const window = openGalleryWindow(&engine, page);
    QVERIFY(window);

    QList<QObject *> counters;
    const auto find = [&counters](QObject *root) {
        const auto objects = root->findChildren<QObject *>();
        for (QObject *object : objects) {
            if (object->inherits("om::controls::FpsCounter") && !counters.contains(object)) {
                counters.append(object);
            }
        }
    };
    find(window);
    find(window->contentItem());
    QCOMPARE(counters.size(), 1);
    int items = 0;
    for (const QObject *parent = counters.first()->parent(); parent; parent = parent->parent()) {
        items += qobject_cast<const QQuickItem *>(parent) ? 1 : 0;
    }
    QCOMPARE(items, 1);
    connect(window, &QQuickWindow::frameSwapped, window, &QQuickWindow::update);
    window->update();
    QTRY_VERIFY(counters.first()->property("currentFps").toInt() > 0);

    // It goes with its page.
    window->setProperty("currentPage", "tree");
    const auto isGone = [&] {
        counters.clear();
        find(window);
        find(window->contentItem());
        return counters.isEmpty();
    };
    QTRY_VERIFY(isGone());
}

QTEST_MAIN(TestInputPage)
#include "tst_inputpage.moc"
