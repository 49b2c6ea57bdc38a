// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drag/DocumentsPayload.h"
#include "controls/drag/DraggablePayload.h"
#include "tests/support/Leftovers.h"

#include <QMimeData>
#include <QTest>

using om::data::Document;
namespace documents = om::controls::documentspayload;
namespace draggable = om::controls::draggablepayload;

/// The two private formats, to the byte.
class TestPayload : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(support::leftovers(), QString()); }
    void documentIdsFollowOneAnother();
    void noDocumentsNoBytes();
    void readsWhatWasWritten();
    void readStopsAtBrokenBytes_data();
    void readStopsAtBrokenBytes();
    void draggableIsBareUtf8_data();
    void draggableIsBareUtf8();
    void formatsAreTold();
};

void TestPayload::documentIdsFollowOneAnother()
{
    Document a;
    Document empty;
    Document null;
    a.setDocumentId(QStringLiteral("a"));
    empty.setDocumentId(QStringLiteral(""));
    QVERIFY(null.documentId().isNull());
    QCOMPARE(documents::write({&a, &empty, &null}).toHex(' '),
             QByteArray("00 00 00 02 00 61 00 00 00 00 ff ff ff ff"));
}

void TestPayload::noDocumentsNoBytes()
{
    QCOMPARE(documents::write({}), QByteArray());
    QCOMPARE(documents::read({}), QStringList());
}

void TestPayload::readsWhatWasWritten()
{
    Document astral;
    Document null;
    astral.setDocumentId(QString::fromUtf8("\xF0\x9F\x93\x84"));
    const QStringList ids = documents::read(documents::write({&astral, &null, &astral}));
    QCOMPARE(ids, (QStringList{astral.documentId(), QString(), astral.documentId()}));
    QVERIFY(ids.at(1).isNull());
}

void TestPayload::readStopsAtBrokenBytes_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("half a length") << QByteArray::fromHex("0000000200610000");
    QTest::newRow("half a text") << QByteArray::fromHex("00000002006100000004006200");
    QTest::newRow("a length beyond all bytes") << QByteArray::fromHex("0000000200617ffffff000");
}

void TestPayload::readStopsAtBrokenBytes()
{
    QFETCH(QByteArray, bytes);
    QCOMPARE(documents::read(bytes), QStringList{QStringLiteral("a")});
}

void TestPayload::draggableIsBareUtf8_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QString() << QByteArray();
    QTest::newRow("ASCII") << QStringLiteral("Card") << QByteArray("Card");
    QTest::newRow("e with acute") << QString(QChar(0xE9)) << QByteArray("\xC3\xA9");
    QTest::newRow("a null inside") << QString::fromLatin1("a\0b", 3) << QByteArray("a\0b", 3);
}

void TestPayload::draggableIsBareUtf8()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, bytes);
    QCOMPARE(draggable::write(text), bytes);
}

void TestPayload::formatsAreTold()
{
    QMimeData data;
    QVERIFY(!documents::isIn(&data));
    QVERIFY(!draggable::isIn(&data));
    data.setData(QStringLiteral("application/x-lumetra-documents"), {});
    QVERIFY(documents::isIn(&data));
    QVERIFY(!draggable::isIn(&data));
    data.setData(QStringLiteral("application/x-lumetra-draggable"), "x");
    QVERIFY(draggable::isIn(&data));
    QCOMPARE(draggable::bytes(&data), QByteArray("x"));
}

QTEST_GUILESS_MAIN(TestPayload)
#include "tst_payload.moc"
