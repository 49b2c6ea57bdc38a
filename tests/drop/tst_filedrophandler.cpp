// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drop/DropData.h"
#include "controls/drop/FileDropHandler.h"
#include "controls/drop/ImageDropHandler.h"
#include "controls/drop/VideoDropHandler.h"
#include "tests/support/Leftovers.h"

#include <QElapsedTimer>
#include <QImageReader>
#include <QMetaProperty>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <QUrl>

using namespace om::controls;

namespace {

QStringList list(const char *words)
{
    return QString::fromLatin1(words).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

QList<QUrl> urls(const char *words)
{
    QList<QUrl> result;
    const QStringList texts = list(words);
    for (const QString &text : texts) {
        result.append(QUrl(text));
    }
    return result;
}

} // namespace

/// Which files the three handlers take, and what they hand on.
class TestFileDropHandler : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(support::leftovers(), QString()); }
    void freshHandler();
    void withoutSuffixesEveryUrlIsTaken();
    void filter_data();
    void filter();
    void canHandleNeedsUrls();
    void emptyUrlListIsTakenWithoutSuffixes();
    void dataIsAListOfUrls();
    void sameSuffixesTwiceEmitOnce();
    void suffixesKeepTheirCase();
    void suffixOrderIsAChange();
    void dropEmitsDropped();
    void hundredThousandUrls();

    void imageSuffixesAreWhatCanBeRead();
    void imageDrags();
    void videoSuffixes();
    void videoDrags();
    void fixedSuffixesAreReadOnly_data();
    void fixedSuffixesAreReadOnly();
};

void TestFileDropHandler::freshHandler()
{
    FileDropHandler handler;
    QCOMPARE(handler.suffixes(), QStringList());
    QCOMPARE(handler.dragSource(), nullptr);
    const QMetaObject *meta = handler.metaObject();
    const QMetaProperty suffixes = meta->property(meta->indexOfProperty("suffixes"));
    QVERIFY(suffixes.isWritable());
    QCOMPARE(suffixes.notifySignal().methodSignature(), QByteArray("suffixesChanged(QStringList)"));
    QCOMPARE(suffixes.notifySignal().parameterNames(), QList<QByteArray>{"suffixes"});
}

void TestFileDropHandler::withoutSuffixesEveryUrlIsTaken()
{
    FileDropHandler handler;
    QMimeData mimeData;
    const QList<QUrl> all = urls("file:///a.PDF file:///b http://host/c.d mailto:x file:///");
    mimeData.setUrls(all);
    QVERIFY(handler.canHandle(&mimeData));
    QCOMPARE(handler.dropData(&mimeData).value<QList<QUrl>>(), all);
}

void TestFileDropHandler::filter_data()
{
    QTest::addColumn<QStringList>("suffixes");
    QTest::addColumn<QList<QUrl>>("dragged");
    QTest::addColumn<QList<QUrl>>("taken");
    QTest::newRow("capitals in the name")
        << list("pdf") << urls("file:///a.PDF file:///b.txt") << urls("file:///a.PDF");
    QTest::newRow("capitals in the suffix never match")
        << list("PDF") << urls("file:///x.PDF file:///x.pdf") << urls("");
    QTest::newRow("a suffix with a dot never matches")
        << list(".pdf") << urls("file:///x.pdf") << urls("");
    QTest::newRow("no dot: the whole name counts")
        << list("mp4") << urls("file:///mp4 file:///MP4 file:///xmp4")
        << urls("file:///mp4 file:///MP4");
    QTest::newRow("the last dot counts")
        << list("gz") << urls("file:///a.tar.gz file:///a.gz.tar") << urls("file:///a.tar.gz");
    QTest::newRow("a hidden file's name is its suffix")
        << list("profile") << urls("file:///.profile") << urls("file:///.profile");
    QTest::newRow("a name that ends with a dot")
        << list("pdf") << urls("file:///pdf. file:///a.pdf.") << urls("");
    QTest::newRow("a name that ends with a dot has an empty suffix")
        << QStringList{QString()} << urls("file:///a. file:///a.b") << urls("file:///a.");
    QTest::newRow("a folder has no file name: the empty suffix")
        << QStringList{QString()} << urls("file:///folder.pdf/ file:///a.pdf")
        << urls("file:///folder.pdf/");
    QTest::newRow("a folder's suffix is not its file's")
        << list("pdf") << urls("file:///folder.pdf/ file:///folder.pdf/x") << urls("");
    QTest::newRow("URLs without a path")
        << list("com") << urls("http://host.com mailto:a@b.com") << urls("mailto:a@b.com");
    QTest::newRow("query and fragment are no part of the name")
        << list("png") << urls("http://h/a.png?x=b.gif#c.txt http://h/a?b.png")
        << urls("http://h/a.png?x=b.gif#c.txt");
    QTest::newRow("percent-encoded suffix")
        << list("pdf") << urls("file:///a%2E%50df file:///a.%70df")
        << urls("file:///a%2E%50df file:///a.%70df");
    QTest::newRow("percent-encoded signs that URLs reserve")
        << QStringList{QStringLiteral("a#b c%")} << urls("file:///x.a%23b%20c%25")
        << urls("file:///x.a%23b%20c%25");
    QTest::newRow("broken percent-encoding")
        << list("pdf") << urls("file:///%.pdf file:///%zz.pdf file:///a.pd% file:///%C3.pdf")
        << urls("file:///%.pdf file:///%zz.pdf file:///%C3.pdf");
    QTest::newRow("order is kept, doubles too")
        << list("b a") << urls("file:///1.a file:///2.b file:///3.c file:///1.a file:///4.a")
        << urls("file:///1.a file:///2.b file:///1.a file:///4.a");
    QTest::newRow("beyond Latin letters")
        << QStringList{QStringLiteral("\u00e4\u00f6")} << urls("file:///x.%C3%84%C3%96")
        << urls("file:///x.%C3%84%C3%96");
    QTest::newRow("none of many") << list("pdf png") << urls("file:///a file:///b.txt") << urls("");
    QTest::newRow("an invalid URL")
        << list("pdf") << QList<QUrl>{QUrl(), QUrl(QStringLiteral("http://[x.pdf"))} << urls("");
}

void TestFileDropHandler::filter()
{
    QFETCH(QStringList, suffixes);
    QFETCH(QList<QUrl>, dragged);
    QFETCH(QList<QUrl>, taken);
    FileDropHandler handler;
    handler.setSuffixes(suffixes);
    QMimeData mimeData;
    mimeData.setUrls(dragged);
    QCOMPARE(handler.dropData(&mimeData).value<QList<QUrl>>(), taken);
    QCOMPARE(handler.canHandle(&mimeData), !taken.isEmpty());
}

void TestFileDropHandler::canHandleNeedsUrls()
{
    FileDropHandler any;
    FileDropHandler pdf;
    pdf.setSuffixes(list("pdf"));
    QMimeData nothing;
    QVERIFY(!any.canHandle(&nothing));
    QVERIFY(!pdf.canHandle(&nothing));
    QMimeData text;
    text.setText(QStringLiteral("file:///a.pdf"));
    QVERIFY(!any.canHandle(&text));
    QVERIFY(!pdf.canHandle(&text));
    QCOMPARE(any.dropData(&text).value<QList<QUrl>>(), QList<QUrl>());
}

void TestFileDropHandler::emptyUrlListIsTakenWithoutSuffixes()
{
    QMimeData mimeData;
    mimeData.setData(QStringLiteral("text/uri-list"), QByteArray());
    QVERIFY(mimeData.hasUrls());
    FileDropHandler handler;
    QVERIFY(handler.canHandle(&mimeData));
    QCOMPARE(handler.dropData(&mimeData).value<QList<QUrl>>(), QList<QUrl>());
    handler.setSuffixes(list("pdf"));
    QVERIFY(!handler.canHandle(&mimeData));
}

void TestFileDropHandler::dataIsAListOfUrls()
{
    FileDropHandler handler;
    QMimeData mimeData;
    mimeData.setUrls(urls("file:///a"));
    const QVariant data = handler.dropData(&mimeData);
    QCOMPARE(data.userType(), qMetaTypeId<QList<QUrl>>());
    QVERIFY(data.canConvert<QVariantList>());
    QCOMPARE(data.value<QVariantList>(), QVariantList{QUrl(QStringLiteral("file:///a"))});
}

void TestFileDropHandler::sameSuffixesTwiceEmitOnce()
{
    FileDropHandler handler;
    QSignalSpy changed(&handler, &FileDropHandler::suffixesChanged);
    handler.setSuffixes({});
    QCOMPARE(changed.count(), 0);
    handler.setSuffixes(list("a b"));
    handler.setSuffixes(list("a b"));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().first().toStringList(), list("a b"));
    handler.setSuffixes({});
    QCOMPARE(changed.count(), 2);
    QCOMPARE(handler.suffixes(), QStringList());
}

void TestFileDropHandler::suffixesKeepTheirCase()
{
    FileDropHandler handler;
    QSignalSpy changed(&handler, &FileDropHandler::suffixesChanged);
    handler.setSuffixes(list("PDF Png"));
    QCOMPARE(handler.suffixes(), list("PDF Png"));
    handler.setSuffixes(list("pdf png"));
    QCOMPARE(handler.suffixes(), list("pdf png"));
    QCOMPARE(changed.count(), 2);
}

void TestFileDropHandler::suffixOrderIsAChange()
{
    FileDropHandler handler;
    handler.setSuffixes(list("a b"));
    QSignalSpy changed(&handler, &FileDropHandler::suffixesChanged);
    handler.setSuffixes(list("b a"));
    QCOMPARE(changed.count(), 1);
}

void TestFileDropHandler::dropEmitsDropped()
{
    FileDropHandler handler;
    DropData data;
    qRegisterMetaType<DropData *>();
    QSignalSpy dropped(&handler, &DropHandler::dropped);
    handler.drop(&data);
    QCOMPARE(dropped.count(), 1);
    QCOMPARE(dropped.first().first().value<DropData *>(), &data);
}

void TestFileDropHandler::hundredThousandUrls()
{
    QList<QUrl> many;
    for (int i = 0; i < 100000; ++i) {
        many.append(QUrl(QStringLiteral("file:///many/%1.%2")
                             .arg(i)
                             .arg(i % 2 ? QStringLiteral("pdf") : QStringLiteral("txt"))));
    }
    QMimeData mimeData;
    mimeData.setUrls(many);
    FileDropHandler handler;
    handler.setSuffixes(list("a b c d e f g h i pdf"));
    QElapsedTimer timer;
    timer.start();
    QVERIFY(handler.canHandle(&mimeData));
    const auto taken = handler.dropData(&mimeData).value<QList<QUrl>>();
    // A filter that is not linear takes minutes.
    QVERIFY2(timer.elapsed() < 20000, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(taken.size(), 50000);
    QCOMPARE(taken.last(), many.last());
}

void TestFileDropHandler::imageSuffixesAreWhatCanBeRead()
{
    QStringList expected;
    const auto formats = QImageReader::supportedImageFormats();
    for (const QByteArray &format : formats) {
        expected.append(QString::fromLatin1(format).toLower());
    }
    QVERIFY(expected.contains(QStringLiteral("png")));
    ImageDropHandler handler;
    QCOMPARE(handler.suffixes(), expected);
    QCOMPARE(handler.property("suffixes").toStringList(), expected);
}

void TestFileDropHandler::imageDrags()
{
    ImageDropHandler handler;
    QMimeData mimeData;
    mimeData.setUrls(urls("file:///a.txt file:///b.PNG file:///c.jpg"));
    QVERIFY(handler.canHandle(&mimeData));
    QCOMPARE(handler.dropData(&mimeData).value<QList<QUrl>>(), urls("file:///b.PNG file:///c.jpg"));
    mimeData.setUrls(urls("file:///a.txt"));
    QVERIFY(!handler.canHandle(&mimeData));
}

void TestFileDropHandler::videoSuffixes()
{
    VideoDropHandler handler;
    QCOMPARE(handler.suffixes(), list("avi flv mkv mp4 webm mov"));
    QCOMPARE(handler.property("suffixes").toStringList(), list("avi flv mkv mp4 webm mov"));
}

void TestFileDropHandler::videoDrags()
{
    VideoDropHandler handler;
    QMimeData mimeData;
    mimeData.setUrls(urls("file:///clip.MOV"));
    QVERIFY(handler.canHandle(&mimeData));
    mimeData.setUrls(urls("file:///clip.wmv"));
    QVERIFY(!handler.canHandle(&mimeData));
    mimeData.setUrls(urls("file:///mp4"));
    QVERIFY(handler.canHandle(&mimeData));
}

void TestFileDropHandler::fixedSuffixesAreReadOnly_data()
{
    QTest::addColumn<bool>("images");
    QTest::newRow("images") << true;
    QTest::newRow("videos") << false;
}

void TestFileDropHandler::fixedSuffixesAreReadOnly()
{
    QFETCH(bool, images);
    const QMetaObject *meta =
        images ? &ImageDropHandler::staticMetaObject : &VideoDropHandler::staticMetaObject;
    QCOMPARE(meta->superClass(), &FileDropHandler::staticMetaObject);
    const QMetaProperty suffixes = meta->property(meta->indexOfProperty("suffixes"));
    QVERIFY(suffixes.isConstant());
    QVERIFY(!suffixes.isWritable());
    QVERIFY(!suffixes.hasNotifySignal());
}

QTEST_MAIN(TestFileDropHandler)
#include "tst_filedrophandler.moc"
