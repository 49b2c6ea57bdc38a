// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/FolderTree.h"
#include "gallery/GalleryEngine.h"
#include "gallery/Session.h"
#include "tests/gallery/GalleryWindow.h"
#include "tests/support/Items.h"
#include "tests/support/Leftovers.h"

#include <OmbrelDataCore/Document.h>

#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QMimeData>
#include <QPalette>
#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using om::gallery::FolderTree;
using om::gallery::Session;

/// What the gallery keeps of a person's doings: appearance, page, place of the window, the way
/// back, and the folder that is open.
class TestSession : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void followsTheSystem();
    void isSwitched();
    void isKept();
    void forgetsWithoutAFile();
    void windowComesBack();
    void windowOfAScreenThatIsGone();
    void copies();

    void pageComesBack();
    void unknownPageDoesNot();
    void backAndForward();
    void mouseButtonsGoBackAndForward();
    void typesAreReached();
    void rightAndLeftWalkThroughTypes();
    void appearanceIsSwitchedInTheWindow();
    void folderIsDropped();
    void anotherFolderIsChosen();
    void whatIsNoFolderStaysShut();

private:
    std::unique_ptr<QSettings> settings() const;
    void show();
    void key(int key, Qt::KeyboardModifiers modifiers = {});
    QString page() const { return m_window->property("currentPage").toString(); }
    QQuickItem *withText(const QString &text) const;

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<FolderTree> m_tree;
    std::unique_ptr<Session> m_session;
    std::unique_ptr<QQmlApplicationEngine> m_engine;
    QQuickWindow *m_window = nullptr;
};

std::unique_ptr<QSettings> TestSession::settings() const
{
    return std::make_unique<QSettings>(m_folder->filePath("settings.ini"), QSettings::IniFormat);
}

void TestSession::initTestCase()
{
    // The platform makes what serves its clipboard with the first use, for good.
    QGuiApplication::clipboard()->clear();
}

void TestSession::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    for (const char *folder : {"album/beach", "other"}) {
        QVERIFY(QDir(m_folder->path()).mkpath(folder));
    }
    QFile file(m_folder->filePath("notes.txt"));
    QVERIFY(file.open(QFile::WriteOnly));
    m_tree = std::make_unique<FolderTree>(m_folder->path());
}

void TestSession::cleanup()
{
    m_engine.reset();
    m_session.reset();
    m_tree.reset();
    m_folder.reset();
    QGuiApplication::setPalette(QPalette(Qt::lightGray));
    QCOMPARE(support::leftovers(), QString());
}

void TestSession::show()
{
    m_session = std::make_unique<Session>(settings());
    m_engine = std::make_unique<QQmlApplicationEngine>();
    om::gallery::prepareEngine(m_engine.get(), m_tree.get(), m_session.get());
    m_window = openGalleryWindow(m_engine.get());
    QVERIFY(m_window);
    QVERIFY(!m_window->grabWindow().isNull());
}

void TestSession::key(int key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(m_window, Qt::Key(key), modifiers);
}

QQuickItem *TestSession::withText(const QString &text) const
{
    return support::itemWith(m_window->contentItem(), "text", text);
}

void TestSession::followsTheSystem()
{
    QGuiApplication::setPalette(QPalette(Qt::white));
    Session session(nullptr);
    QCOMPARE(session.appearance(), QString("system"));
    QVERIFY(!session.isDark());
    QSignalSpy changes(&session, &Session::darkChanged);
    QGuiApplication::setPalette(QPalette(QColor(40, 40, 40)));
    QTRY_VERIFY(session.isDark());
    QCOMPARE(changes.count(), 1);
    QVERIFY(Session(nullptr).isDark());
    QGuiApplication::setPalette(QPalette(Qt::white));
    QTRY_VERIFY(!session.isDark());
}

void TestSession::isSwitched()
{
    QGuiApplication::setPalette(QPalette(Qt::white));
    Session session(nullptr);
    session.setAppearance("dark");
    QVERIFY(session.isDark());
    session.setAppearance("light");
    QVERIFY(!session.isDark());
    // What the system says is not asked any more.
    QGuiApplication::setPalette(QPalette(Qt::black));
    QCoreApplication::processEvents();
    QVERIFY(!session.isDark());
    session.setAppearance("purple");
    QCOMPARE(session.appearance(), QString("system"));
    QVERIFY(session.isDark());
}

void TestSession::isKept()
{
    {
        Session session(settings());
        QCOMPARE(session.page(), QString());
        session.setAppearance("dark");
        session.setPage("tree");
    }
    const Session session(settings());
    QCOMPARE(session.appearance(), QString("dark"));
    QCOMPARE(session.page(), QString("tree"));
}

void TestSession::forgetsWithoutAFile()
{
    Session session(nullptr);
    session.setPage("tree");
    QWindow window;
    session.keep(&window);
    session.restore(&window);
    QCOMPARE(Session(nullptr).page(), QString());
}

void TestSession::windowComesBack()
{
    Session session(settings());
    QWindow window;
    window.setGeometry(40, 50, 700, 500);
    session.keep(&window);
    QWindow next;
    next.setMinimumSize({720, 100});
    session.restore(&next);
    QCOMPARE(next.geometry(), QRect(40, 50, 720, 500));
    QCOMPARE(next.windowStates(), Qt::WindowStates(Qt::WindowNoState));
    // Maximized, it keeps the place that it goes back to.
    window.setWindowState(Qt::WindowMaximized);
    window.setGeometry(0, 0, 1280, 1024);
    session.keep(&window);
    QWindow large;
    session.restore(&large);
    QCOMPARE(large.windowStates(), Qt::WindowStates(Qt::WindowMaximized));
    QCOMPARE(large.geometry().size(), QSize(700, 500));
}

void TestSession::windowOfAScreenThatIsGone()
{
    Session session(settings());
    QWindow window;
    window.setGeometry(9000, 9000, 700, 500);
    session.keep(&window);
    QWindow next;
    next.setGeometry(1, 2, 300, 200);
    session.restore(&next);
    QCOMPARE(next.geometry(), QRect(1, 2, 300, 200));
}

void TestSession::copies()
{
    Session(nullptr).copy("a text");
    QCOMPARE(QGuiApplication::clipboard()->text(), QString("a text"));
    QGuiApplication::clipboard()->clear();
}

void TestSession::pageComesBack()
{
    show();
    m_window->setProperty("currentPage", "popups");
    m_engine.reset();
    m_session.reset();
    show();
    QCOMPARE(page(), QString("popups"));
}

void TestSession::unknownPageDoesNot()
{
    Session(settings()).setPage("nowhere");
    show();
    QCOMPARE(page(), m_window->property("pages").toList().first().toMap().value("name").toString());
}

void TestSession::backAndForward()
{
    show();
    const QString first = page();
    key(Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(page(), first);
    m_window->setProperty("currentPage", "popups");
    m_window->setProperty("currentPage", "tree");
    key(Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(page(), QString("popups"));
    key(Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(page(), first);
    key(Qt::Key_Right, Qt::AltModifier);
    QCOMPARE(page(), QString("popups"));
    // From here the way forward is another one.
    m_window->setProperty("currentPage", "input");
    key(Qt::Key_Right, Qt::AltModifier);
    QCOMPARE(page(), QString("input"));
    key(Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(page(), QString("popups"));
}

void TestSession::mouseButtonsGoBackAndForward()
{
    show();
    const QString first = page();
    m_window->setProperty("currentPage", "popups");
    QTest::mouseClick(m_window, Qt::BackButton, {}, {600, 300});
    QCOMPARE(page(), first);
    QTest::mouseClick(m_window, Qt::ForwardButton, {}, {600, 300});
    QCOMPARE(page(), QString("popups"));
}

// Wherever it was: the page, and the demo at its top.
void TestSession::typesAreReached()
{
    show();
    QMetaObject::invokeMethod(m_window, "showType", Q_ARG(QVariant, "FpsCounter"));
    QCOMPARE(page(), QString("input"));
    QVERIFY(!m_window->grabWindow().isNull());
    QQuickItem *demo = support::itemsOf(m_window->contentItem(), "FpsCounterDemo").value(0);
    QVERIFY(demo);
    const QRectF place = demo->mapRectToScene(demo->boundingRect());
    QVERIFY2(place.top() >= 0 && place.top() < m_window->height() - 100,
             qPrintable(QString::number(place.top())));
}

void TestSession::rightAndLeftWalkThroughTypes()
{
    show();
    m_window->setProperty("currentPage", "input");
    QVERIFY(!m_window->grabWindow().isNull());
    QQuickItem *sidebar = support::itemsOf(m_window->contentItem(), "Sidebar").value(0);
    support::itemsOf(sidebar, "QQuickFlickable").value(0)->forceActiveFocus();
    key(Qt::Key_Right);
    key(Qt::Key_Right);
    QCOMPARE(sidebar->property("typeAt").toInt(), 1);
    QCOMPARE(page(), QString("input"));
}

void TestSession::appearanceIsSwitchedInTheWindow()
{
    show();
    const auto lightness = [this] { return m_window->color().lightness(); };
    for (const char *name : {"Dark", "Light"}) {
        QQuickItem *button = withText(name);
        QVERIFY(button);
        QTest::mouseClick(
            m_window, Qt::LeftButton, {},
            button->mapToScene({button->width() / 2, button->height() / 2}).toPoint());
        QTRY_COMPARE(lightness() < 128, qstrcmp(name, "Dark") == 0);
        QCOMPARE(m_session->appearance(), QString(name).toLower());
    }
}

void TestSession::folderIsDropped()
{
    show();
    m_window->setProperty("currentPage", "documents");
    QVERIFY(!m_window->grabWindow().isNull());
    QTRY_VERIFY(withText("notes.txt"));
    const auto drop = [this](const QString &path) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(path)});
        const QPoint place(100, 700);
        QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_window, &enter);
        QDropEvent event(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_window, &event);
        return enter.isAccepted();
    };
    QVERIFY(!drop(m_folder->filePath("notes.txt")));
    QVERIFY(drop(m_folder->filePath("album")));
    QTRY_VERIFY(withText("beach"));
    QVERIFY(!withText("notes.txt"));
    QCOMPARE(m_tree->folder()->name(), QString("album"));
    QCOMPARE(page(), QString("documents"));
}

void TestSession::anotherFolderIsChosen()
{
    show();
    m_window->setProperty("currentPage", "documents");
    key(Qt::Key_O, Qt::ControlModifier);
    QTRY_VERIFY(withText("Open a folder"));
    key(Qt::Key_Down);
    // Above, "album", "other".
    key(Qt::Key_Down);
    key(Qt::Key_Return);
    QTRY_VERIFY(withText("beach"));
    key(Qt::Key_Escape);
    QVERIFY(!withText("Open a folder"));
    QVERIFY(m_tree->folder()->name() != "album");
    // Escape gave up; now for good.
    key(Qt::Key_O, Qt::ControlModifier);
    QTRY_VERIFY(withText("Open a folder"));
    key(Qt::Key_A, Qt::ControlModifier);
    const QString path = m_folder->filePath("other");
    for (const QChar &letter : path) {
        QTest::keyClick(m_window, letter.toLatin1());
    }
    key(Qt::Key_Return);
    QTRY_COMPARE(m_tree->folder()->name(), QString("other"));
    QTRY_VERIFY(withText("This folder is empty"));
}

void TestSession::whatIsNoFolderStaysShut()
{
    QSignalSpy changes(m_tree.get(), &FolderTree::folderChanged);
    for (const QString &path :
         {QString(), m_folder->filePath("notes.txt"), m_folder->filePath("nothing"),
          QString("album"), QString("http://example.org/album")}) {
        QVERIFY2(!m_tree->canOpen(path), qPrintable(path));
        m_tree->open(path);
    }
    QCOMPARE(changes.count(), 0);
    QCOMPARE(m_tree->foldersIn(m_folder->path()), (QStringList{"album", "other"}));
}

QTEST_MAIN(TestSession)
#include "tst_session.moc"
