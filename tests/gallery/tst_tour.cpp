// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Pixels.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace support;

/// The pictures of the tour, docs/images/gallery/, are what the gallery looks like, at twice the
/// density and with the pictures that come with it. Called with OMBREL_PICTURES=write (see
/// "tools/docs --pictures") this takes those anew that have changed.
class TestTour : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void showsTheGallery_data();
    void showsTheGallery();
    void everyPictureIsOfTheGallery();
    void everyPictureIsInTheTour();
    void picturesAreSmall();

private:
    QDir m_docs;
    QDir m_stored;
    QTemporaryDir m_taken;
};

static QStringList picturesIn(const QString &folder)
{
    return QDir(folder).entryList({QStringLiteral("*.png")}, QDir::Files);
}

/// The formats of images that Qt reads here: what ImageDropHandler takes, and its demo shows.
static QString formats()
{
    return QString::fromLatin1(QImageReader::supportedImageFormats().join(' '));
}

void TestTour::initTestCase()
{
    const QString source = qEnvironmentVariable("OMBREL_SOURCE_DIR");
    m_docs.setPath(source + QStringLiteral("/docs"));
    m_stored.setPath(m_docs.filePath(QStringLiteral("images/gallery")));

    QProcess gallery;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // One set of fonts for all, whichever others the machine has.
    environment.insert(QStringLiteral("FONTCONFIG_FILE"),
                       source + QStringLiteral("/tests/gallery/data/fonts.conf"));
    gallery.setProcessEnvironment(environment);
    gallery.setProcessChannelMode(QProcess::MergedChannels);
    gallery.start(qEnvironmentVariable("OMBREL_BUILD_DIR") + QStringLiteral("/bin/ombrel-gallery"),
                  {QStringLiteral("--screenshots"), m_taken.path(), QStringLiteral("--demos"),
                   QStringLiteral("--samples"), QStringLiteral("--scale"), QStringLiteral("2"),
                   QStringLiteral("--size"), QStringLiteral("1120")});
    QVERIFY2(gallery.waitForFinished(240000), "it did not end");
    QCOMPARE(gallery.readAll(), QByteArray());
    QCOMPARE(gallery.exitCode(), 0);
    QVERIFY(picturesIn(m_taken.path()).size() > 30);
}

void TestTour::showsTheGallery_data()
{
    QTest::addColumn<QString>("file");
    const QStringList files = picturesIn(m_taken.path());
    for (const QString &file : files) {
        QTest::newRow(qPrintable(QFileInfo(file).completeBaseName())) << file;
    }
}

void TestTour::showsTheGallery()
{
    QFETCH(QString, file);
    const QImage taken(m_taken.filePath(file));
    const QImage stored(m_stored.filePath(file));
    if (qEnvironmentVariable("OMBREL_PICTURES") == QLatin1String("write")) {
        if (coarseDifference(taken, stored) > 12) {
            QImage packed = withPalette(taken);
            packed.setText(QStringLiteral("Formats"), formats());
            QVERIFY2(packed.save(m_stored.filePath(file), "PNG", 0), qPrintable(file));
        }
        return;
    }
    QVERIFY2(!stored.isNull(), "it has no picture: tools/docs --pictures");
    if (file == QLatin1String("ImageDropHandlerDemo.png")
        && stored.text(QStringLiteral("Formats")) != formats()) {
        QSKIP("Qt reads other formats of images here than where the picture was taken");
    }
    QCOMPARE(stored.size(), taken.size());
    const int apart = coarseDifference(taken, stored);
    QVERIFY2(apart <= 16,
             qPrintable(QStringLiteral("it looks different by %1 of 255 from its picture: "
                                       "tools/docs --pictures")
                            .arg(apart)));
}

void TestTour::everyPictureIsOfTheGallery()
{
    const QStringList taken = picturesIn(m_taken.path());
    const QStringList stored = picturesIn(m_stored.path());
    for (const QString &file : stored) {
        QVERIFY2(taken.contains(file), qPrintable(file));
    }
}

void TestTour::everyPictureIsInTheTour()
{
    QFile tour(m_docs.filePath(QStringLiteral("tour.md")));
    QVERIFY(tour.open(QFile::ReadOnly));
    const QString text = QString::fromUtf8(tour.readAll());
    const QStringList taken = picturesIn(m_taken.path());
    for (const QString &file : taken) {
        QVERIFY2(text.count(QStringLiteral("\"images/gallery/%1\"").arg(file)) == 1,
                 qPrintable(file));
    }
}

void TestTour::picturesAreSmall()
{
    qint64 bytes = 0;
    const QFileInfoList files = m_stored.entryInfoList({QStringLiteral("*.png")});
    for (const QFileInfo &file : files) {
        bytes += file.size();
    }
    QVERIFY2(bytes > 0 && bytes < 3000000, qPrintable(QString::number(bytes)));
}

QTEST_MAIN(TestTour)

#include "tst_tour.moc"
