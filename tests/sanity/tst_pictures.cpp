// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/DragEvents.h"
#include "tests/support/Gesture.h"
#include "tests/support/Items.h"
#include "tests/support/Leftovers.h"
#include "tests/support/Pixels.h"
#include "tests/support/QmlView.h"
#include "tests/support/Text.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QHash>
#include <QSet>
#include <QStyleHints>
#include <QTest>

#include <functional>

using namespace support;

/// The pictures of the documentation are what its examples look like, at twice the density. Called
/// with OMBREL_PICTURES=write (see "tools/docs --pictures") this paints them anew.
class TestPictures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void showsItsExample_data();
    void showsItsExample();
    void everyPictureHasItsExample();

private:
    QDir m_docs;
};

static QString pictureOf(const QString &example)
{
    return QStringLiteral("images/")
        + QFileInfo(example).completeBaseName().remove(QLatin1String("Example"))
        + QStringLiteral(".png");
}

static void click(const QmlView &view, const QPoint &place, Qt::MouseButton button = Qt::LeftButton)
{
    QTest::mouseClick(view.window(), button, {}, place);
}

static void dragFiles(const QmlView &view, const QList<QUrl> &files, const QPointF &place,
                      bool drop)
{
    DragEvents drag(view.window());
    drag.setUrls(files);
    drag.enter(place);
    drag.move(place + QPointF(1, 1));
    if (drop) {
        drag.drop(place + QPointF(1, 1));
    }
}

/// Makes a row of the tutorial's tree the active one.
static void clickRow(const QmlView &view, int row)
{
    QTRY_VERIFY(itemWith(view.root(), "text", text("Work")));
    click(view, {60, 12 + 28 * row + 14});
}

/// What is done with an example before its picture is taken, where it shows little by itself.
static const QHash<QString, std::function<void(const QmlView &)>> &poses()
{
    static const QList<QUrl> pictures = {QUrl(text("file:///home/ann/beach.png")),
                                         QUrl(text("file:///home/ann/hills.png"))};
    static const QList<QUrl> report = {QUrl(text("file:///home/ann/report.pdf"))};
    static const QHash<QString, std::function<void(const QmlView &)>> all = {
        {text("DialogItem"),
         [](const QmlView &view) {
             click(view, {160, 120});
         }},
        {text("DropData"),
         [](const QmlView &view) {
             dragFiles(view, report, {40, 50}, true);
             dragFiles(view, pictures, {120, 130}, true);
         }},
        {text("DropHandler"),
         [](const QmlView &view) {
             dragFiles(view, report, {60, 40}, true);
         }},
        {text("DropZone"),
         [](const QmlView &view) {
             dragFiles(view, pictures, {60, 40}, true);
         }},
        {text("FileDropHandler"),
         [](const QmlView &view) {
             dragFiles(view, report, {60, 40}, true);
         }},
        {text("FpsCounter"),
         [](const QmlView &view) {
             QObject *const shown = itemsOf(view.root(), "QQuickText").value(0);
             // It takes 60 frames, which a busy machine is long about.
             QTRY_VERIFY_WITH_TIMEOUT(
                 !shown->property("text").toString().startsWith(QLatin1Char('0')), 60000);
         }},
        {text("HoverArea"),
         [](const QmlView &view) {
             QTest::mouseMove(view.window(), {100, 40});
         }},
        {text("ImageDropHandler"),
         [](const QmlView &view) {
             dragFiles(view,
                       {QUrl::fromLocalFile(qEnvironmentVariable("OMBREL_SOURCE_DIR")
                                            + text("/gallery/qml/samples/sunset.svg"))},
                       {60, 40}, true);
             QTRY_COMPARE(itemsOf(view.root(), "QQuickImage").value(0)->property("status").toInt(),
                          1);
         }},
        {text("KeyEventSource"),
         [](const QmlView &view) {
             click(view, {20, 60});
         }},
        {text("Popup"),
         [](const QmlView &view) {
             click(view, {120, 45});
             QTRY_COMPARE(
                 itemsOf(view.window()->contentItem(), "om::controls::Popup").value(0)->opacity(),
                 1.0);
         }},
        {text("PopupAnchorItem"),
         [](const QmlView &view) {
             click(view, {160, 120});
         }},
        {text("PopupEdges"),
         [](const QmlView &view) {
             click(view, {270, 190}, Qt::RightButton);
             QTRY_COMPARE(
                 itemsOf(view.window()->contentItem(), "om::controls::Popup").value(0)->opacity(),
                 1.0);
         }},
        {text("PropertyEditor"),
         [](const QmlView &view) {
             click(view, {40, 32});
         }},
        {text("TreeView"),
         [](const QmlView &view) {
             QTRY_VERIFY(itemWith(view.root(), "text", text("Beach")));
             click(view, {60, 36});
         }},
        {text("TreeViewKeys"),
         [](const QmlView &view) {
             QTRY_VERIFY(itemWith(view.root(), "text", text("Beach")));
             QTest::keyClick(view.window(), Qt::Key_Tab);
             QTest::keyClick(view.window(), Qt::Key_H);
         }},
        {text("step2"), [](const QmlView &view) { clickRow(view, 2); }},
        {text("step3"),
         [](const QmlView &view) {
             dragFiles(view, report, {60, 200}, false);
         }},
        {text("step4"),
         [](const QmlView &view) {
             clickRow(view, 2);
             QTest::keyClick(view.window(), Qt::Key_F2);
         }},
        {text("step5"),
         [](const QmlView &view) {
             evaluate(view.root(),
                      text("move(library.children[0].children[0], library.children[1])"));
             QTRY_COMPARE(evaluate(itemsOf(view.root(), "om::controls::TreeView").value(0),
                                   text("documentAt(4).name"))
                              .toString(),
                          text("Beach"));
             clickRow(view, 4);
         }},
        {text("step6"),
         [](const QmlView &view) {
             clickRow(view, 3);
             QTest::keyClick(view.window(), Qt::Key_Delete);
         }},
        {text("VideoDropHandler"),
         [](const QmlView &view) {
             dragFiles(view, {QUrl(text("file:///home/ann/waves.mp4"))}, {60, 40}, true);
         }},
    };
    return all;
}

/// The window with a document of \a view on its way, and the drag over.
static QImage duringADrag(const QmlView &view)
{
    const QQuickItem *const content = view.window()->contentItem();
    // The pointer's pixels are the screen's.
    const QPoint from = 2 * positionIn(itemWith(view.root(), "text", text("Portrait")));
    QImage image;
    Gesture gesture;
    gesture
        .drag(
            from, from + QPoint(280, 120),
            [content] {
                const QQuickItem *const last = content->childItems().constLast();
                return content->childItems().size() > 1 && last->x() > 100;
            },
            "the visual under the pointer")
        .then([&image, &view] { image = grab(view.window()); })
        .release()
        .until([content] { return content->childItems().size() == 1; }, "the end of the visual");
    if (!gesture.run()) {
        qWarning("%s", gesture.error());
    }
    return image;
}

/// Examples that move by themselves: no two pictures of them are alike.
static bool moves(const QString &name)
{
    static const QSet<QString> all = {text("FpsCounter"), text("Images"), text("PopupAnchorItem")};
    return all.contains(name);
}

static QString fingerprint(const QString &path)
{
    QFile file(path);
    if (!file.open(QFile::ReadOnly)) {
        return QString();
    }
    return QString::fromLatin1(
        QCryptographicHash::hash(file.readAll(), QCryptographicHash::Sha256).toHex());
}

void TestPictures::initTestCase()
{
    m_docs.setPath(qEnvironmentVariable("OMBREL_SOURCE_DIR") + QStringLiteral("/docs"));
    // A text cursor that blinks is there in one picture and not in the next.
    QGuiApplication::styleHints()->setCursorFlashTime(0);
}

void TestPictures::cleanup()
{
    QCOMPARE(leftovers(), QString());
}

void TestPictures::showsItsExample_data()
{
    QTest::addColumn<QString>("example");
    for (const char *folder : {"snippets", "tutorial"}) {
        const QString name = QString::fromLatin1(folder);
        const QStringList files =
            QDir(m_docs.filePath(name)).entryList({QStringLiteral("*.qml")}, QDir::Files);
        for (const QString &file : files) {
            QTest::newRow(qPrintable(QFileInfo(pictureOf(file)).completeBaseName()))
                << name + QLatin1Char('/') + file;
        }
    }
}

void TestPictures::showsItsExample()
{
    QFETCH(QString, example);
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    const QString picture = m_docs.filePath(pictureOf(example));
    const QString source = fingerprint(m_docs.filePath(example));

    QmlView view;
    view.loadFile(m_docs.filePath(example));
    view.show();
    QVERIFY(view.window()->devicePixelRatio() == 2);
    poses().value(name, [](const QmlView &) {})(view);
    QTest::mouseMove(view.window(),
                     name == QLatin1String("HoverArea") ? QPoint(101, 41) : QPoint(1, 1));
    const bool drags = name == QLatin1String("DragArea") || name == QLatin1String("DragZone");
    QImage image =
        (drags ? duringADrag(view) : grab(view.window())).convertToFormat(QImage::Format_RGB32);
    view.close();

    if (qEnvironmentVariable("OMBREL_PICTURES") == QLatin1String("write")) {
        const QImage old(picture);
        if (old.text(QStringLiteral("Source")) != source
            || (!moves(name) && coarseDifference(image, old) > 12)) {
            image.setText(QStringLiteral("Source"), source);
            QVERIFY2(image.save(picture, "PNG", 0), qPrintable(picture));
        }
        return;
    }
    const QImage stored(picture);
    QVERIFY2(!stored.isNull(), qPrintable(picture + QStringLiteral(": tools/docs --pictures")));
    QVERIFY2(stored.text(QStringLiteral("Source")) == source,
             "the example has changed since its picture was taken: tools/docs --pictures");
    QCOMPARE(stored.size(), image.size());
    if (!moves(name)) {
        const int apart = coarseDifference(image, stored.convertToFormat(QImage::Format_RGB32));
        QVERIFY2(apart <= 16, qPrintable(QStringLiteral("it looks different by %1").arg(apart)));
    }
}

void TestPictures::everyPictureHasItsExample()
{
    const QStringList pictures =
        QDir(m_docs.filePath(QStringLiteral("images"))).entryList({QStringLiteral("*.png")});
    for (const QString &picture : pictures) {
        const QString name = QFileInfo(picture).completeBaseName();
        QVERIFY2(m_docs.exists(QStringLiteral("snippets/%1Example.qml").arg(name))
                     || m_docs.exists(QStringLiteral("tutorial/%1.qml").arg(name)),
                 qPrintable(picture));
    }
}

int main(int argc, char **argv)
{
    qputenv("QT_SCALE_FACTOR", "2");
    QGuiApplication application(argc, argv);
    // One font for all, whichever others the machine has.
    QGuiApplication::setFont(QFont(QStringLiteral("Lato"), 10));
    QFont::insertSubstitution(QStringLiteral("Om_Lato"), QStringLiteral("Lato"));
    TestPictures test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_pictures.moc"
