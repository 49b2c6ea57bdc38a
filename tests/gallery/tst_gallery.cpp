// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

// The gallery as a person runs it: the program of the build, with its options.
class TestGallery : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void listsItsPages();
    void signsAreDrawn();
    void everyPageLoadsAndIsRendered();
    void onePageOnly();
    void staysSilentOnOddFiles();
    void picturesHaveTheSizeThatIsAskedFor();
    void picturesHaveTheScaleThatIsAskedFor();
    void picturesOfDemosOnly();
    void picturesDifferFromPageToPage();
    void runsFromAnotherFolder();
    void saysWithoutADisplay_data();
    void saysWithoutADisplay();
    void refuses_data();
    void refuses();

private:
    struct Result
    {
        int code = -1;
        QString output;
        QString errors;
    };
    static Result run(const QStringList &arguments, bool withDisplay = true);

    QStringList m_pages;
    QTemporaryDir m_dir;
};

TestGallery::Result TestGallery::run(const QStringList &arguments, bool withDisplay)
{
    QProcess process;
    // It finds the modules by itself.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove("QML2_IMPORT_PATH");
    environment.remove("XDG_RUNTIME_DIR");
    if (!withDisplay)
        environment.remove("DISPLAY");
    process.setProcessEnvironment(environment);
    process.start(qEnvironmentVariable("OMBREL_BUILD_DIR") + "/bin/ombrel-gallery", arguments);
    Result result;
    if (!process.waitForFinished(240000)) {
        process.kill();
        process.waitForFinished();
        result.errors = "it did not end: " + process.errorString();
        return result;
    }
    result.code = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    result.output = QString::fromUtf8(process.readAllStandardOutput());
    // All of it: the terminal belongs to the person who started the program.
    result.errors = QString::fromUtf8(process.readAllStandardError());
    return result;
}

void TestGallery::initTestCase()
{
    QVERIFY(m_dir.isValid());
    QVERIFY(QDir(m_dir.path()).mkpath("album"));
    QImage picture(60, 40, QImage::Format_RGB32);
    picture.fill(Qt::darkCyan);
    QVERIFY(picture.save(m_dir.filePath("album/beach.png")));
    QVERIFY(picture.save(m_dir.filePath("hills.png")));
}

void TestGallery::listsItsPages()
{
    const Result result = run({"--pages", m_dir.path()});
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.code, 0);
    m_pages = result.output.split('\n', Qt::SkipEmptyParts);
    QVERIFY(m_pages.contains("documents"));

    // Each page's file is in the list once, and no page file is left out.
    QFile list(qEnvironmentVariable("OMBREL_SOURCE_DIR") + "/gallery/qml/PageList.js");
    QVERIFY(list.open(QFile::ReadOnly));
    const QString text = QString::fromUtf8(list.readAll());
    const QStringList files = QDir(qEnvironmentVariable("OMBREL_SOURCE_DIR") + "/gallery/qml/pages")
                                  .entryList({"*Page.qml"});
    for (const QString &file : files)
        QVERIFY2(text.count('"' + file + '"') == 1, qPrintable(file));
    QCOMPARE(m_pages.size(), files.size());
    QCOMPARE(m_pages.toSet().size(), m_pages.size());
}

// Arrows, triangles and the like come from whatever font has them, and change with it.
void TestGallery::signsAreDrawn()
{
    QDirIterator it(qEnvironmentVariable("OMBREL_SOURCE_DIR") + "/gallery/qml", {"*.qml"},
                    QDir::Files, QDirIterator::Subdirectories);
    int files = 0;
    while (it.hasNext()) {
        QFile file(it.next());
        QVERIFY(file.open(QFile::ReadOnly));
        const QString source = QString::fromUtf8(file.readAll());
        for (const QChar &character : source) {
            const ushort code = character.unicode();
            QVERIFY2(code < 0x2190 || code > 0x2bff,
                     qPrintable(file.fileName() + ": " + character));
        }
        ++files;
    }
    QVERIFY(files > 50);
}

void TestGallery::everyPageLoadsAndIsRendered()
{
    const QString shots = m_dir.filePath("pictures/of pages");
    const Result result = run({"--screenshots", shots, m_dir.path()});
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.code, 0);
    QStringList expected;
    for (const QString &page : qAsConst(m_pages))
        expected.append(page + ".png");
    expected.sort();
    QCOMPARE(QDir(shots).entryList(QDir::Files, QDir::Name), expected);
    for (const QString &file : qAsConst(expected)) {
        const QImage picture(shots + '/' + file);
        QVERIFY2(picture.width() >= 800 && picture.height() >= 480, qPrintable(file));
        // Something is on it: not all of the part beside the sidebar has one colour.
        const QImage content = picture.copy(240, 0, picture.width() - 240, picture.height());
        QImage plain(content.size(), content.format());
        plain.fill(content.pixelColor(2, 2));
        QVERIFY2(content != plain, qPrintable(file));
    }
}

void TestGallery::onePageOnly()
{
    const QString shots = m_dir.filePath("one");
    const Result result = run({"--page", "documents", "--screenshots", shots, m_dir.path()});
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.code, 0);
    QCOMPARE(QDir(shots).entryList(QDir::Files), QStringList{"documents.png"});
}

void TestGallery::staysSilentOnOddFiles()
{
    QTemporaryDir odd;
    QImage picture(300, 200, QImage::Format_RGB32);
    for (int x = 0; x < 300; ++x) {
        for (int y = 0; y < 200; ++y)
            picture.setPixel(x, y, qRgb(x, y, x * y));
    }
    QVERIFY(picture.save(odd.filePath("whole.jpg")));
    QFile whole(odd.filePath("whole.jpg"));
    QVERIFY(whole.open(QFile::ReadOnly));
    const QByteArray bytes = whole.readAll();
    const auto write = [&odd](const char *name, const QByteArray &content) {
        QFile file(odd.filePath(name));
        QVERIFY(file.open(QFile::WriteOnly));
        file.write(content);
    };
    write("cut.jpg", bytes.left(bytes.size() / 2));
    write("text.png", "no picture");
    write("empty.gif", "");
    write("broken.svg", "<svg xmlns='http://www.w3.org/2000/svg'><rect");
    QVERIFY(QDir(odd.path()).mkdir("closed"));
    QVERIFY(QFile::setPermissions(odd.filePath("closed"), QFile::WriteOwner));
    QVERIFY(QFile::link(odd.filePath("nowhere"), odd.filePath("link.png")));
    const QString shots = m_dir.filePath("odd");
    for (const char *page : {"documents", "tree", "dropzones"}) {
        const Result result = run({"--page", page, "--screenshots", shots, odd.path()});
        QCOMPARE(result.errors, QString());
        QCOMPARE(result.code, 0);
    }
}

void TestGallery::picturesHaveTheSizeThatIsAskedFor()
{
    const QString shots = m_dir.filePath("sizes");
    Result result =
        run({"--page", "tree", "--size", "820x480", "--screenshots", shots, m_dir.path()});
    QCOMPARE(result.errors, QString());
    QCOMPARE(QImage(shots + "/tree.png").size(), QSize(820, 480));
    result = run({"--page", "tree", "--size", "900", "--screenshots", shots, m_dir.path()});
    QCOMPARE(result.errors, QString());
    QCOMPARE(QImage(shots + "/tree.png").width(), 900);
    QVERIFY(QImage(shots + "/tree.png").height() > 480);
}

void TestGallery::picturesHaveTheScaleThatIsAskedFor()
{
    const QString shots = m_dir.filePath("scales");
    const Result result = run({"--page", "tree", "--size", "900x500", "--scale", "1.25",
                               "--samples", "--screenshots", shots});
    QCOMPARE(result.errors, QString());
    QCOMPARE(QImage(shots + "/tree.png").size(), QSize(1125, 625));
}

// Of each type, and what else a page has put together; without the window around it.
void TestGallery::picturesOfDemosOnly()
{
    const QString shots = m_dir.filePath("demos");
    const Result result =
        run({"--page", "colorpicker", "--demos", "--screenshots", shots, m_dir.path()});
    QCOMPARE(result.errors, QString());
    QCOMPARE(QDir(shots).entryList(QDir::Files, QDir::Name),
             (QStringList{"CheckerBoxDemo.png", "ColorMapperDemo.png", "ColorPicker.png",
                          "HueBoxDemo.png", "SaturationValueBoxDemo.png"}));
    const QImage whole(m_dir.filePath("pictures/of pages/colorpicker.png"));
    const QImage demo(shots + "/HueBoxDemo.png");
    QVERIFY(demo.width() < whole.width() - 228 && demo.height() < whole.height() / 4);
    // The card's own border and ground, not what lies around it.
    QCOMPARE(demo.pixelColor(20, 4), QColor(Qt::white));
}

void TestGallery::picturesDifferFromPageToPage()
{
    const QDir shots(m_dir.filePath("pictures/of pages"));
    QVector<QImage> seen;
    const QStringList files = shots.entryList(QDir::Files);
    for (const QString &file : files) {
        const QImage picture(shots.filePath(file));
        QVERIFY2(!seen.contains(picture), qPrintable(file));
        seen.append(picture);
    }
}

void TestGallery::runsFromAnotherFolder()
{
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_dir.filePath("album")));
    const Result result = run({"--page", "documents", "--screenshots", "here"});
    QVERIFY(QDir::setCurrent(before));
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.code, 0);
    QVERIFY(QFileInfo::exists(m_dir.filePath("album/here/documents.png")));
}

void TestGallery::saysWithoutADisplay_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("beginning");
    QTest::newRow("version") << "--version"
                             << "ombrel-gallery " OMBREL_VERSION "\n";
    QTest::newRow("version, short") << "-v"
                                    << "ombrel-gallery " OMBREL_VERSION "\n";
    QTest::newRow("help") << "--help"
                          << "Usage: ";
    QTest::newRow("help, short") << "-h"
                                 << "Usage: ";
}

void TestGallery::saysWithoutADisplay()
{
    QFETCH(QString, option);
    const Result result = run({option}, false);
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.code, 0);
    QFETCH(QString, beginning);
    QCOMPARE(result.output.left(beginning.size()), beginning);
}

void TestGallery::refuses_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("reason");
    QTest::newRow("an unknown page") << QStringList{"--page", "nowhere"} << "no page nowhere";
    QTest::newRow("an unknown page, for a picture")
        << QStringList{"--page", "nowhere", "--screenshots", "x"} << "no page nowhere";
    QTest::newRow("a folder that is not there") << QStringList{"not there"} << "is not a folder";
    QTest::newRow("a file for a folder")
        << QStringList{QCoreApplication::applicationFilePath()} << "is not a folder";
    QTest::newRow("no size") << QStringList{"--size", "800by600"} << "is not a size";
    QTest::newRow("no scale") << QStringList{"--scale", "two"} << "is not a scale";
    QTest::newRow("too large a scale") << QStringList{"--scale=40"} << "is not a scale";
    QTest::newRow("a folder and the samples")
        << QStringList{"--samples", "."} << "exclude each other";
    QTest::newRow("a folder that cannot be made")
        << QStringList{"--screenshots", QCoreApplication::applicationFilePath() + "/x"}
        << "cannot be made";
}

void TestGallery::refuses()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, reason);
    const Result result = run(arguments);
    QCOMPARE(result.code, 1);
    QVERIFY2(result.errors.contains(reason), qPrintable(result.errors));
    QCOMPARE(result.errors.count('\n'), 1);
}

QTEST_GUILESS_MAIN(TestGallery)

#include "tst_gallery.moc"
