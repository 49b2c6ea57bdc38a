// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Leftovers.h"
#include "tests/support/Pixels.h"

#include <QDir>
#include <QPointer>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

#include <algorithm>
#include <functional>
#include <limits>
#include <memory>

/// Every example of the reference under each mishap: windows and engines destroyed first, changes
/// of windows, lost scene graphs, sizes such as NaN. The process must not end or log anything, and
/// an example that still exists must draw the same picture as without the mishap; the sanitizers
/// find the rest.
class TestLifetimes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void survives_data();
    void survives();
    void cleanup();

private:
    void comparePictures(QQuickWindow *window, QQuickItem *item, const QString &file);

    /// What the examples draw when nothing happens to them, by file.
    QHash<QString, QImage> m_untouched;
};

namespace {

/// An example in a window of its own; each part can be destroyed at any time.
struct Stage
{
    std::unique_ptr<QQmlEngine> engine = std::make_unique<QQmlEngine>();
    std::unique_ptr<QQuickWindow> window = std::make_unique<QQuickWindow>();
    QPointer<QQuickItem> item;

    void load(const QString &file)
    {
        QQmlComponent component(engine.get(), QUrl::fromLocalFile(file));
        QObject *object = component.isReady() ? component.create() : nullptr;
        item = qobject_cast<QQuickItem *>(object);
        QVERIFY2(item, qPrintable(component.errorString()));
        place();
    }

    void place()
    {
        item->setParentItem(window->contentItem());
        window->resize(int(qMax(1.0, item->width())), int(qMax(1.0, item->height())));
    }

    void show()
    {
        window->show();
        window->requestActivate();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
        // A window that was exposed again may have no scene graph yet.
        QTRY_VERIFY(!window->grabWindow().isNull());
    }

    ~Stage()
    {
        delete item.data();
        window.reset();
    }
};

void renderAgain(QQuickWindow *window)
{
    QCoreApplication::sendPostedEvents();
    QTRY_VERIFY(!window->grabWindow().isNull());
}

using Mishap = std::function<void(Stage &)>;

/// The mishaps, each with a name that says what happens.
const std::vector<std::pair<const char *, Mishap>> &mishaps()
{
    static const std::vector<std::pair<const char *, Mishap>> list = {
        {"destroyed before it was ever shown", [](Stage &stage) { delete stage.item.data(); }},
        {"destroyed with queued calls pending",
         [](Stage &stage) {
             stage.show();
             stage.item->setX(5);
             delete stage.item.data();
             QCoreApplication::processEvents();
         }},
        {"engine destroyed first",
         [](Stage &stage) {
             stage.show();
             stage.engine.reset();
             QCoreApplication::processEvents();
             if (stage.item) {
                 renderAgain(stage.window.get());
             }
         }},
        {"window destroyed first",
         [](Stage &stage) {
             stage.show();
             stage.item->setParentItem(nullptr);
             stage.item->setParentItem(stage.window->contentItem());
             stage.window.reset();
             QCoreApplication::processEvents();
         }},
        {"window closed and shown again",
         [](Stage &stage) {
             stage.show();
             stage.window->close();
             QCoreApplication::processEvents();
             stage.show();
         }},
        {"moved to another window and back",
         [](Stage &stage) {
             stage.show();
             QQuickWindow other;
             other.resize(stage.window->size());
             other.show();
             QVERIFY(QTest::qWaitForWindowExposed(&other));
             stage.item->setParentItem(other.contentItem());
             renderAgain(&other);
             renderAgain(stage.window.get());
             stage.item->setParentItem(stage.window->contentItem());
             renderAgain(&other);
             renderAgain(stage.window.get());
         }},
        {"scene graph released and made again",
         [](Stage &stage) {
             stage.window->setPersistentOpenGLContext(false);
             stage.window->setPersistentSceneGraph(false);
             stage.show();
             stage.window->hide();
             stage.window->releaseResources();
             QCoreApplication::processEvents();
             stage.show();
         }},
        {"rendered through a layer, then not",
         [](Stage &stage) {
             stage.show();
             QObject *layer = stage.item->property("layer").value<QObject *>();
             QVERIFY(layer);
             QVERIFY(layer->setProperty("enabled", true));
             renderAgain(stage.window.get());
             QVERIFY(layer->setProperty("enabled", false));
             renderAgain(stage.window.get());
         }},
        {"sizes that make no sense",
         [](Stage &stage) {
             stage.show();
             const QSizeF size(stage.item->width(), stage.item->height());
             const qreal senseless[] = {0, -1, 1e9, std::numeric_limits<qreal>::quiet_NaN()};
             for (qreal length : senseless) {
                 stage.item->setSize({length, length});
                 renderAgain(stage.window.get());
             }
             stage.item->setSize(size);
             stage.item->setScale(0);
             renderAgain(stage.window.get());
             stage.item->setScale(1);
             renderAgain(stage.window.get());
         }},
        {"hidden, disabled, transparent",
         [](Stage &stage) {
             stage.show();
             stage.item->setVisible(false);
             renderAgain(stage.window.get());
             stage.item->setEnabled(false);
             stage.item->setVisible(true);
             stage.item->setOpacity(0);
             renderAgain(stage.window.get());
             stage.item->setOpacity(1);
             stage.item->setEnabled(true);
             renderAgain(stage.window.get());
         }},
        {"destroyed between press and release",
         [](Stage &stage) {
             stage.show();
             const QPoint centre(stage.window->width() / 2, stage.window->height() / 2);
             QTest::mouseMove(stage.window.get(), centre);
             QTest::mousePress(stage.window.get(), Qt::LeftButton, {}, centre);
             QTest::keyPress(stage.window.get(), Qt::Key_Tab);
             delete stage.item.data();
             QTest::mouseMove(stage.window.get(), centre + QPoint(1, 1));
             QTest::mouseRelease(stage.window.get(), Qt::LeftButton, {}, centre + QPoint(1, 1));
             QTest::keyRelease(stage.window.get(), Qt::Key_Tab);
             renderAgain(stage.window.get());
         }},
    };
    return list;
}

} // namespace

void TestLifetimes::survives_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("mishap");
    const QDir folder(qEnvironmentVariable("OMBREL_SOURCE_DIR") + QStringLiteral("/docs/snippets"));
    const auto files = folder.entryInfoList({QStringLiteral("*.qml")}, QDir::Files);
    QVERIFY(!files.isEmpty());
    for (const QFileInfo &file : files) {
        for (size_t i = 0; i < mishaps().size(); ++i) {
            QTest::addRow("%s, %s", qPrintable(file.completeBaseName()), mishaps().at(i).first)
                << file.absoluteFilePath() << int(i);
        }
    }
}

/// Whether pictures of the example may differ: a part of it is animated, or it is a Flickable,
/// whose contents stay lost after a size that is NaN.
static bool isMoving(const QQuickItem *item)
{
    if (item->inherits("QQuickFlickable")) {
        return true;
    }
    const auto children = item->findChildren<QObject *>();
    return std::any_of(children.cbegin(), children.cend(),
                       [](const QObject *child) { return child->property("running").toBool(); });
}

/// Whether a dialog or a popup of the example is in no window: those that moved into a window's
/// content item stay behind when that window is destroyed.
static bool hasLostParts(const QQuickItem *item)
{
    const auto parts = item->findChildren<QQuickItem *>();
    return std::any_of(parts.cbegin(), parts.cend(), [item](const QQuickItem *part) {
        return (part->inherits("om::controls::DialogItem") || part->inherits("om::controls::Popup"))
            && part->window() != item->window();
    });
}

/// Grabs \a window, which shows \a item, without text cursors: they blink, and are drawn only while
/// the window has the focus.
static QImage picture(QQuickWindow *window, const QQuickItem *item)
{
    window->requestActivate();
    if (!QTest::qWaitForWindowActive(window)) {
        return {};
    }
    const auto children = item->findChildren<QObject *>();
    for (QObject *child : children) {
        if (child->property("cursorVisible").isValid()) {
            child->setProperty("cursorVisible", false);
        }
    }
    return window->grabWindow();
}

/// Checks that \a item in \a window draws its usual picture, or anything at all if isMoving().
void TestLifetimes::comparePictures(QQuickWindow *window, QQuickItem *item, const QString &file)
{
    if (isMoving(item)) {
        const QImage shown = picture(window, item);
        item->setVisible(false);
        QVERIFY2(!support::imageError(shown, picture(window, item)).isEmpty(), "it draws nothing");
        return;
    }
    if (!m_untouched.contains(file)) {
        Stage untouched;
        untouched.load(file);
        untouched.show();
        // Items that follow others reach their place after one or two frames.
        QImage last;
        const auto isSettled = [&] {
            const QImage before = last;
            last = picture(untouched.window.get(), untouched.item);
            return !last.isNull() && last == before;
        };
        QTRY_VERIFY(isSettled());
        m_untouched.insert(file, last);
    }
    QTRY_COMPARE(support::imageError(picture(window, item), m_untouched.value(file)), QString());
}

void TestLifetimes::survives()
{
    QFETCH(QString, file);
    QFETCH(int, mishap);
    Stage stage;
    stage.load(file);
    if (!QTest::currentTestFailed()) {
        mishaps().at(size_t(mishap)).second(stage);
    }
    // The engine owns the objects made from delegates: without it a tree's rows are empty.
    const bool isBare = !stage.engine && file.contains(QLatin1String("/TreeView"));
    if (!QTest::currentTestFailed() && stage.item && !isBare) {
        if (!stage.window) {
            stage.window = std::make_unique<QQuickWindow>();
            stage.place();
        }
        stage.show();
        if (!hasLostParts(stage.item)) {
            comparePictures(stage.window.get(), stage.item, file);
        }
    }
}

void TestLifetimes::cleanup()
{
    QCOMPARE(support::leftovers(), QString());
}

QTEST_MAIN(TestLifetimes)
#include "tst_lifetimes.moc"
