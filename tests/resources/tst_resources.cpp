// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include <QDir>
#include <QDirIterator>
#include <QImage>
#include <QImageReader>
#include <QLibrary>
#include <QProcess>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QRegularExpression>
#include <QResource>
#include <QStandardPaths>
#include <QTest>

/// What the library carries under ":/controls".
class TestResources : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void files_data();
    void files();
    void treesHoldNoOtherFiles();
    void formatVersionIsTwo();
    void nineSlicesStretch_data();
    void nineSlicesStretch();
    void spriteHasTwelveFrames();
    void cursorShowsOnLightAndDark();
    void scriptAndFilesAgree();
    void pageTellsOfEachPicture();
};

namespace {

struct File
{
    const char *path;
    int width;
    int height;
    bool compressed;
};

const File carried[] = {
    {"images/collapse-indicator.svg", 16, 16, false},
    {"images/dialog-shadow.png", 75, 75, false},
    {"images/dropdown-indicator.png", 10, 5, false},
    {"images/flyout-peak.png", 26, 26, false},
    {"images/loading-sprite.png", 768, 64, false},
    {"icons/add-group.png", 24, 24, false},
    {"icons/add.png", 24, 24, false},
    {"icons/cal.png", 19, 16, false},
    {"icons/calendar-left.png", 4, 8, false},
    {"icons/calendar-right.png", 4, 8, false},
    {"icons/calendar.png", 25, 26, false},
    {"icons/check.png", 18, 18, false},
    {"icons/delete.png", 24, 24, true},
    {"icons/dropdown-indicator-w.png", 10, 5, false},
    {"icons/dropdown-indicator.png", 10, 5, false},
    {"icons/edit-16.png", 16, 16, false},
    {"icons/edit-24.png", 24, 24, false},
    {"icons/error.png", 36, 36, false},
    {"icons/fb-settings.png", 24, 24, false},
    {"icons/icon-add.png", 24, 24, false},
    {"icons/icon-back.png", 24, 24, false},
    {"icons/icon-redo.png", 24, 24, false},
    {"icons/icon-save.png", 24, 24, false},
    {"icons/icon-undo.png", 24, 24, false},
    {"icons/infotip-ohne-pfeilchen-9-slice.png", 34, 33, false},
    {"icons/key-arrow.png", 24, 24, false},
    {"icons/key-backspace.png", 26, 19, false},
    {"icons/key-enter.png", 24, 24, false},
    {"icons/key-shift.png", 24, 24, false},
    {"icons/list-sort-indicator.png", 9, 5, false},
    {"icons/logout.png", 24, 24, false},
    {"icons/move-up-24.png", 24, 24, false},
    {"icons/orientation-landscape-32.png", 32, 32, false},
    {"icons/orientation-landscape.svg", 32, 32, false},
    {"icons/orientation-portrait-32.png", 32, 32, false},
    {"icons/orientation-portrait.svg", 32, 32, false},
    {"icons/radiobutton-circle.png", 18, 18, false},
    {"icons/remove-tag.png", 11, 8, false},
    {"icons/remove.png", 24, 24, true},
    {"icons/search-delete.png", 29, 24, false},
    {"icons/search-loupe.png", 29, 24, false},
    {"icons/settings.png", 24, 24, false},
    {"icons/status-ok.png", 36, 36, false},
    {"icons/stepper-arrows.png", 7, 4, false},
    {"icons/unavailable-cursor.png", 16, 16, true},
    {"icons/visibility.png", 24, 24, false},
    {"icons/warning.png", 36, 36, false},
    {"private/TreeViewContent.qml", 0, 0, false},
    {"private/TreeViewItem.qml", 0, 0, true},
};

QString pluginFile()
{
    return qEnvironmentVariable("OMBREL_BUILD_DIR")
        + QStringLiteral("/qml/ombrel/Controls/libombrelcontrolsplugin.so");
}

QImage image(const char *path)
{
    return QImage(QStringLiteral(":/controls/") + QString::fromLatin1(path))
        .convertToFormat(QImage::Format_ARGB32);
}

} // namespace

/// The trees come and go with the library.
void TestResources::initTestCase()
{
    QVERIFY(!QDir(QStringLiteral(":/controls")).exists());
    {
        QLibrary library(pluginFile());
        QVERIFY2(library.load(), qPrintable(library.errorString()));
        QVERIFY(QDir(QStringLiteral(":/controls")).exists());
        QVERIFY(library.unload());
    }
    // Unloading is up to the platform, sanitizers keep libraries: then they are still there.
    QFile maps(QStringLiteral("/proc/self/maps"));
    if (maps.open(QIODevice::ReadOnly) && !maps.readAll().contains("ombrelcontrolsplugin")) {
        QVERIFY(!QDir(QStringLiteral(":/controls")).exists());
    }
    QLibrary library(pluginFile());
    QVERIFY(library.load());
}

void TestResources::files_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("compressed");
    for (const File &file : carried) {
        QTest::newRow(file.path) << QSize(file.width, file.height) << file.compressed;
    }
}

void TestResources::files()
{
    QFETCH(QSize, size);
    QFETCH(bool, compressed);
    const QString path =
        QStringLiteral(":/controls/") + QString::fromLatin1(QTest::currentDataTag());
    QResource resource(path);
    QVERIFY(resource.isValid());
    QCOMPARE(resource.compressionAlgorithm(),
             compressed ? QResource::ZlibCompression : QResource::NoCompression);
    if (path.endsWith(QLatin1String(".qml"))) {
        QVERIFY(resource.uncompressedSize() > 0);
        return;
    }
    QImageReader reader(path);
    QCOMPARE(reader.size(), size);
    const QImage picture = reader.read();
    QVERIFY2(!picture.isNull(), qPrintable(reader.errorString()));
    // There is something on it, and it has a see-through part.
    bool ink = false;
    bool hole = false;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const int alpha = picture.pixelColor(x, y).alpha();
            ink = ink || alpha > 90;
            hole = hole || alpha < 40;
        }
    }
    QVERIFY(ink);
    QVERIFY(hole);
}

void TestResources::treesHoldNoOtherFiles()
{
    QStringList found;
    const QString prefix = QStringLiteral(":/controls");
    QDirIterator it(prefix, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        found.append(it.next().mid(prefix.size() + 1));
    }
    QStringList expected;
    for (const File &file : carried) {
        expected.append(QString::fromLatin1(file.path));
    }
    found.sort();
    expected.sort();
    QCOMPARE(found, expected);
}

/// Version 2 is the first whose files have a time.
void TestResources::formatVersionIsTwo()
{
    for (const char *tree : {"images", "icons", "private"}) {
        QFile source(QStringLiteral("%1/resources/resources_%2.cpp")
                         .arg(qEnvironmentVariable("OMBREL_BUILD_DIR"), QString::fromLatin1(tree)));
        QVERIFY2(source.open(QIODevice::ReadOnly), tree);
        const QByteArray text = source.readAll();
        QVERIFY(text.contains("int version = 2;"));
        QVERIFY(!text.contains("int version = 3;"));
    }
}

void TestResources::nineSlicesStretch_data()
{
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("y");
    QTest::newRow("images/dialog-shadow.png") << 37 << 37;
    QTest::newRow("icons/infotip-ohne-pfeilchen-9-slice.png") << 17 << 16;
}

/// The middle column and row can be repeated: their neighbours look the same.
void TestResources::nineSlicesStretch()
{
    QFETCH(int, x);
    QFETCH(int, y);
    const QImage picture = image(QTest::currentDataTag());
    QVERIFY(!picture.isNull());
    const auto same = [&picture](int x1, int y1, int x2, int y2) {
        const QColor a = picture.pixelColor(x1, y1);
        const QColor b = picture.pixelColor(x2, y2);
        return qAbs(a.alpha() - b.alpha()) <= 2
            && (a.alpha() < 20
                || (qAbs(a.red() - b.red()) <= 2 && qAbs(a.green() - b.green()) <= 2));
    };
    for (int i = 0; i < picture.height(); ++i) {
        QVERIFY2(same(x, i, x - 1, i) && same(x, i, x + 1, i), qPrintable(QString::number(i)));
    }
    for (int i = 0; i < picture.width(); ++i) {
        QVERIFY2(same(i, y, i, y - 1) && same(i, y, i, y + 1), qPrintable(QString::number(i)));
    }
    QVERIFY(picture.pixelColor(0, 0).alpha() < 20);
}

void TestResources::spriteHasTwelveFrames()
{
    const QImage strip = image("images/loading-sprite.png");
    QList<QImage> frames;
    for (int i = 0; i < 12; ++i) {
        const QImage frame = strip.copy(64 * i, 0, 64, 64);
        QVERIFY2(!frames.contains(frame), qPrintable(QString::number(i)));
        frames.append(frame);
    }
    // A quarter of a turn is three frames.
    const QImage turned = frames.at(0).transformed(QTransform().rotate(90));
    for (int y = 0; y < 64; ++y) {
        for (int x = 0; x < 64; ++x) {
            QVERIFY(qAbs(turned.pixelColor(x, y).alpha() - frames.at(3).pixelColor(x, y).alpha())
                    <= 8);
        }
    }
}

void TestResources::cursorShowsOnLightAndDark()
{
    const QImage cursor = image("icons/unavailable-cursor.png");
    int light = 0;
    int dark = 0;
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 16; ++x) {
            const QColor pixel = cursor.pixelColor(x, y);
            if (pixel.alpha() > 200) {
                light += pixel.lightness() > 200 ? 1 : 0;
                dark += pixel.lightness() < 100 ? 1 : 0;
            }
        }
    }
    QVERIFY(light > 20);
    QVERIFY(dark > 20);
}

void TestResources::scriptAndFilesAgree()
{
    if (QStandardPaths::findExecutable(QStringLiteral("rsvg-convert")).isEmpty()) {
        QSKIP("rsvg-convert (Debian: librsvg2-bin) is not installed");
    }
    QProcess render;
    render.setProcessChannelMode(QProcess::MergedChannels);
    render.start(qEnvironmentVariable("OMBREL_SOURCE_DIR") + QStringLiteral("/resources/render"),
                 {QStringLiteral("--check")});
    QVERIFY(render.waitForFinished(120000));
    QVERIFY2(render.exitCode() == 0, render.readAll().constData());
}

/// The reference page names each image and icon with its size, and no other.
void TestResources::pageTellsOfEachPicture()
{
    QFile page(qEnvironmentVariable("OMBREL_SOURCE_DIR")
               + QStringLiteral("/docs/reference/Images.md"));
    QVERIFY(page.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(page.readAll());
    QStringList told;
    const QRegularExpression section(QStringLiteral("## `qrc:/controls/(\\w+)/`\n([^#]*)"));
    const QRegularExpression entry(QStringLiteral("\\| `(\\S+)` \\| (\\d+) × (\\d+) \\|"));
    for (auto sections = section.globalMatch(text); sections.hasNext();) {
        const QRegularExpressionMatch tree = sections.next();
        // The end of one entry is the beginning of the next.
        QRegularExpressionMatch match = entry.match(tree.captured(2));
        while (match.hasMatch()) {
            told.append(QStringLiteral("%1/%2 %3 %4")
                            .arg(tree.captured(1), match.captured(1), match.captured(2),
                                 match.captured(3)));
            match = entry.match(tree.captured(2), match.capturedEnd() - 1);
        }
    }
    QStringList expected;
    for (const File &file : carried) {
        if (file.width > 0) {
            expected.append(QStringLiteral("%1 %2 %3")
                                .arg(QString::fromLatin1(file.path))
                                .arg(file.width)
                                .arg(file.height));
        }
    }
    told.sort();
    expected.sort();
    QCOMPARE(told, expected);
}

QTEST_GUILESS_MAIN(TestResources)
#include "tst_resources.moc"
