// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/FolderTree.h"
#include "gallery/GalleryEngine.h"
#include "tests/gallery/GalleryWindow.h"
#include "tests/support/DragEvents.h"
#include "tests/support/Items.h"
#include "tests/support/Leftovers.h"
#include "tests/support/SignalRecorder.h"

#include <QCursor>
#include <QElapsedTimer>
#include <QPointer>
#include <QQmlApplicationEngine>
#include <QQmlComponent>
#include <QQmlContext>
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
    void movesRestsAndMovesAgain();
    void playsWithTheRealThing();
    void zoneTakesFilesWhileItRests();
    void delegateIsTheSources();
    void typeLeadsToItsDemo();

private:
    QList<QQuickItem *> cards() const
    {
        return support::itemsOf(m_window->contentItem(), "StartCard");
    }
    static QQuickItem *pieceOf(QQuickItem *card);
    /// The piece in the card with this text.
    QQuickItem *piece(const char *text) const;
    static QObject *motionOf(QQuickItem *piece)
    {
        return qvariant_cast<QObject *>(piece->property("motion"));
    }
    static bool isMoving(QQuickItem *piece)
    {
        return motionOf(piece)->property("running").toBool();
    }
    bool isAnyMoving() const;
    /// Presses the card of a piece.
    void play(QQuickItem *piece) const
    {
        QTest::mouseClick(m_window, Qt::LeftButton, {}, piece->mapToScene({60, 60}).toPoint());
    }

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

QQuickItem *TestStartPage::pieceOf(QQuickItem *card)
{
    QQuickItem *loader = support::itemsOf(card, "QQuickLoader").value(0);
    return qvariant_cast<QQuickItem *>(loader->property("item"));
}

QQuickItem *TestStartPage::piece(const char *text) const
{
    const auto all = cards();
    for (QQuickItem *card : all) {
        if (card->property("text").toString() == QLatin1String(text)) {
            return pieceOf(card);
        }
    }
    return nullptr;
}

bool TestStartPage::isAnyMoving() const
{
    const auto all = cards();
    return std::any_of(all.begin(), all.end(),
                       [](QQuickItem *card) { return isMoving(pieceOf(card)); });
}

void TestStartPage::movesRestsAndMovesAgain()
{
    QElapsedTimer time;
    time.start();
    QSignalSpy frames(m_window, &QQuickWindow::frameSwapped);
    const auto all = cards();
    for (QQuickItem *card : all) {
        QTRY_VERIFY2(isMoving(pieceOf(card)), qPrintable(card->property("type").toString()));
    }
    QVERIFY(frames.wait());
    QTRY_VERIFY_WITH_TIMEOUT(!isAnyMoving(), 30000);
    QVERIFY2(time.elapsed() > 4000, qPrintable(QString::number(time.elapsed())));
    // What has faded out is gone with the next frames; then none comes.
    QTRY_VERIFY_WITH_TIMEOUT(!frames.wait(1000), 20000);
    frames.clear();
    QVERIFY(!frames.wait(2000));

    play(pieceOf(all.at(1)));
    QVERIFY(isMoving(pieceOf(all.at(1))));
    QVERIFY(!isMoving(pieceOf(all.at(2))));
}

// Drops are routed by a zone, the dialogs are dialogs, and nothing of it reaches the window.
void TestStartPage::playsWithTheRealThing()
{
    QTRY_VERIFY(isAnyMoving());
    support::SignalRecorder drops;
    QQuickItem *const routing = piece("Drops find their handler");
    QQuickItem *const zone = support::itemsOf(routing, "om::controls::DropZone").value(0);
    QVERIFY(zone);
    const auto children = zone->findChildren<QObject *>(QString(), Qt::FindDirectChildrenOnly);
    for (QObject *child : children) {
        const QString type = QString::fromLatin1(child->metaObject()->className());
        if (type.endsWith(QLatin1String("DropHandler"))) {
            drops.watch(child, type.mid(14), {"entered", "exited", "dropped"});
        }
    }
    QQuickItem *const stack = piece("Dialogs lie on one another");
    const auto list = stack->property("dialogs").toList();
    QCOMPARE(list.size(), 3);
    QList<QQuickItem *> dialogs;
    for (const QVariant &entry : list) {
        dialogs.append(entry.value<QQuickItem *>());
        QVERIFY(dialogs.last() && dialogs.last()->inherits("om::controls::DialogItem"));
    }
    QQuickItem *const field = support::itemsOf(m_window->contentItem(), "Field").value(0);
    QVERIFY(field);
    field->forceActiveFocus();
    QCOMPARE(m_window->activeFocusItem(), field);

    // From the beginning, in the middle of the first time.
    QTRY_VERIFY_WITH_TIMEOUT(zone->property("containsDrag").toBool(), 20000);
    const auto all = cards();
    for (QQuickItem *card : all) {
        QVERIFY(QMetaObject::invokeMethod(motionOf(pieceOf(card)), "restart"));
    }
    QTRY_VERIFY(!zone->property("containsDrag").toBool());
    support::SignalRecorder answers;
    for (int i = 0; i < dialogs.size(); ++i) {
        QTRY_VERIFY(dialogs.at(i)->property("open").toBool());
        QCOMPARE(dialogs.at(i)->isEnabled(), i == 2);
        QVERIFY(i == 0 || dialogs.at(i)->z() > dialogs.at(i - 1)->z());
        answers.watch(dialogs.at(i), QString::number(i + 1), {"opened", "accepted", "rejected"});
    }
    drops.take();
    QSignalSpy focus(m_window, &QQuickWindow::activeFocusItemChanged);
    // What is disabled in the window disables the cards or the field, which lie in different parts
    // of it.
    int disabled = 0;
    const QObject guard;
    for (QQuickItem *item : {field, all.first()}) {
        connect(item, &QQuickItem::enabledChanged, &guard, [&disabled] { ++disabled; });
    }

    QTest::keyClick(m_window, Qt::Key_Q);
    QTRY_VERIFY_WITH_TIMEOUT(!isAnyMoving(), 30000);
    QTest::keyClick(m_window, Qt::Key_R);
    QCOMPARE(drops.take().join(QLatin1Char(' ')),
             QString("ImageDropHandler.entered ImageDropHandler.dropped "
                     "VideoDropHandler.entered VideoDropHandler.dropped "
                     "FileDropHandler.entered FileDropHandler.dropped"));
    QVERIFY(!zone->property("containsDrag").toBool());
    QCOMPARE(answers.take().join(QLatin1Char(' ')),
             QString("3.accepted 2.rejected 1.accepted 1.opened 2.opened 3.opened"));
    QCOMPARE(focus.count(), 0);
    QCOMPARE(disabled, 0);
    QCOMPARE(field->property("text").toString(), QString("qr"));
}

void TestStartPage::zoneTakesFilesWhileItRests()
{
    QQuickItem *const routing = piece("Drops find their handler");
    QQuickItem *const zone = support::itemsOf(routing, "om::controls::DropZone").value(0);
    QVERIFY(zone);
    const QPointF place = zone->mapToScene({40, 40});
    support::DragEvents drag(m_window);
    // A real drag and a played one would take each other's place.
    QTRY_VERIFY(isMoving(routing));
    drag.setUrls({QUrl("file:///mine.mkv")});
    QVERIFY(!drag.enter(place));
    drag.leave();
    QTRY_VERIFY_WITH_TIMEOUT(!isMoving(routing), 30000);
    QCOMPARE(routing->property("taken").toStringList(),
             QStringList({"hills.png", "clip.mp4", "notes.txt"}));
    QVERIFY(drag.enter(place));
    drag.move(place + QPointF(1, 0));
    QVERIFY(zone->property("containsDrag").toBool());
    drag.drop(place);
    QCOMPARE(routing->property("taken").toStringList(),
             QStringList({"hills.png", "mine.mkv", "notes.txt"}));
    // A folder is for the window, which opens it.
    drag.setUrls({QUrl::fromLocalFile(m_folder.path())});
    drag.enter(place);
    QVERIFY(!zone->property("containsDrag").toBool());
    drag.leave();
}

void TestStartPage::delegateIsTheSources()
{
    QQuickItem *const carrying = piece("Drags carry a live item");
    QQuickItem *const source = support::itemsOf(carrying, "om::controls::DragZone").value(0);
    QVERIFY(source);
    auto *const delegate = source->property("dragDelegate").value<QQmlComponent *>();
    QVERIFY(delegate);
    QTRY_VERIFY(isMoving(carrying));
    const auto card = [&] { return carrying->property("card").value<QQuickItem *>(); };
    QTRY_VERIFY_WITH_TIMEOUT(card(), 20000);
    // The page is made before the window has its size, on which the way of a piece depends.
    const QPointer<QQuickItem> first = card();
    QVERIFY(
        carrying->boundingRect().contains(first->mapRectToItem(carrying, first->boundingRect())));
    // A press in the middle of it leaves no second one.
    play(carrying);
    QTRY_VERIFY(!first);
    QVERIFY(!card());

    QTRY_VERIFY_WITH_TIMEOUT(card(), 20000);
    const QPointer<QQuickItem> made = card();
    QCOMPARE(qmlContext(made)->baseUrl(), delegate->url());
    QVERIFY(made->isVisible() && made->window() == m_window);
    QTRY_VERIFY_WITH_TIMEOUT(!made || made->property("outside").toBool(), 20000);
    QVERIFY(made && carrying->boundingRect().contains(made->position()));
    QTRY_VERIFY_WITH_TIMEOUT(!made || made->property("dropped").toBool(), 20000);
    QVERIFY(made);
    QTRY_VERIFY_WITH_TIMEOUT(!made, 20000);
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
