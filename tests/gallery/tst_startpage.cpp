// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/FolderTree.h"
#include "gallery/GalleryEngine.h"
#include "tests/gallery/GalleryWindow.h"
#include "tests/support/Items.h"
#include "tests/support/Leftovers.h"

#include <QCursor>
#include <QElapsedTimer>
#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QScreen>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <memory>

/// The page that the gallery starts with: six pieces that move once, and rest.
class TestStartPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void movesAndThenRests();
    void staysOnItsStage();
    void pressMovesAPieceAgain();
    void typeLeadsToItsDemo();

private:
    QList<QQuickItem *> cards() const
    {
        return support::itemsOf(m_window->contentItem(), "StartCard");
    }
    static QObject *motionOf(QQuickItem *card);
    bool isMoving() const;

    QTemporaryDir m_folder;
    std::unique_ptr<om::gallery::FolderTree> m_tree;
    std::unique_ptr<QQmlApplicationEngine> m_engine;
    QQuickWindow *m_window = nullptr;
};

void TestStartPage::init()
{
    m_tree = std::make_unique<om::gallery::FolderTree>(m_folder.path());
    m_engine = std::make_unique<QQmlApplicationEngine>();
    om::gallery::prepareEngine(m_engine.get(), m_tree.get());
    QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight());
    m_window = openGalleryWindow(m_engine.get());
    QVERIFY(m_window);
    QCOMPARE(m_window->property("currentPage").toString(), QString("start"));
    QCOMPARE(cards().size(), 6);
}

void TestStartPage::cleanup()
{
    m_engine.reset();
    m_tree.reset();
    QCOMPARE(support::leftovers(), QString());
}

QObject *TestStartPage::motionOf(QQuickItem *card)
{
    QQuickItem *loader = support::itemsOf(card, "QQuickLoader").value(0);
    auto *piece = qvariant_cast<QObject *>(loader->property("item"));
    return qvariant_cast<QObject *>(piece->property("motion"));
}

bool TestStartPage::isMoving() const
{
    const auto all = cards();
    return std::any_of(all.begin(), all.end(), [](QQuickItem *card) {
        return motionOf(card)->property("running").toBool();
    });
}

void TestStartPage::movesAndThenRests()
{
    QElapsedTimer time;
    time.start();
    QSignalSpy frames(m_window, &QQuickWindow::frameSwapped);
    const auto all = cards();
    for (QQuickItem *card : all) {
        QTRY_VERIFY2(motionOf(card)->property("running").toBool(),
                     qPrintable(card->property("type").toString()));
    }
    QVERIFY(frames.wait());
    QTRY_VERIFY_WITH_TIMEOUT(!isMoving(), 30000);
    QVERIFY2(time.elapsed() > 4000, qPrintable(QString::number(time.elapsed())));
    // What has faded out is gone with the next frames; then none comes.
    QTRY_VERIFY_WITH_TIMEOUT(!frames.wait(1000), 20000);
    frames.clear();
    QVERIFY(!frames.wait(2000));
}

// The page is made before the window has its size, on which the way of a piece depends.
void TestStartPage::staysOnItsStage()
{
    QTRY_VERIFY(isMoving());
    QTRY_VERIFY_WITH_TIMEOUT(!isMoving(), 30000);
    QQuickItem *label = support::itemWith(m_window->contentItem(), "text", "2 documents");
    QVERIFY(label);
    QQuickItem *piece = label->parentItem()->parentItem();
    const QRectF place = label->mapRectToItem(piece, label->boundingRect());
    QVERIFY2(piece->boundingRect().contains(place),
             qPrintable(QStringLiteral("from %1 to %2 on %3")
                            .arg(place.left())
                            .arg(place.right())
                            .arg(piece->width())));
}

void TestStartPage::pressMovesAPieceAgain()
{
    QTRY_VERIFY(isMoving());
    QTRY_VERIFY_WITH_TIMEOUT(!isMoving(), 30000);
    QQuickItem *card = cards().at(1);
    QTest::mouseClick(m_window, Qt::LeftButton, {}, card->mapToScene({60, 60}).toPoint());
    QVERIFY(motionOf(card)->property("running").toBool());
    QVERIFY(!motionOf(cards().at(2))->property("running").toBool());
}

void TestStartPage::typeLeadsToItsDemo()
{
    QQuickItem *card = cards().at(2);
    QQuickItem *button = support::itemWith(card, "text", "PopupAnchorItem");
    QVERIFY(button);
    QTest::mouseClick(m_window, Qt::LeftButton, {},
                      button->mapToScene({button->width() / 2, button->height() / 2}).toPoint());
    QTRY_COMPARE(m_window->property("currentPage").toString(), QString("popups"));
}

QTEST_MAIN(TestStartPage)
#include "tst_startpage.moc"
