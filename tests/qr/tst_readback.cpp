// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "qr/QrEncoder.h"
#include "qr/QrStages.h"

#include <QByteArray>
#include <QImage>
#include <QProcess>
#include <QRandomGenerator>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using namespace om::controls;

namespace {

constexpr int ModulePixels = 3;
constexpr int QuietZone = 4;

QImage picture(int size, const unsigned char *result)
{
    QImage modules(size + 2 * QuietZone, size + 2 * QuietZone, QImage::Format_Grayscale8);
    modules.fill(255);
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const int k = y * size + x;
            if (result[k / 8] & 0x80 >> k % 8)
                modules.scanLine(y + QuietZone)[x + QuietZone] = 0;
        }
    }
    return modules.scaled(modules.size() * ModulePixels);
}

} // namespace

/// Symbols are right when somebody else reads them: two decoders that know nothing of each other
/// read every version at every level, with bytes of all values.
class TestReadback : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void zbar();
    void zxing();

private:
    void compare(const QString &program, const QStringList &arguments);

    QTemporaryDir m_folder;
    QStringList m_files;
    QByteArray m_texts;
};

void TestReadback::initTestCase()
{
    QVERIFY(m_folder.isValid());
    QRandomGenerator random(20);
    for (int version = 1; version <= 40; ++version) {
        for (int level = 0; level < 4; ++level) {
            QByteArray text;
            const int length = qr::byteCapacity(level, version) - random.bounded(3);
            while (text.size() < length)
                text.append(static_cast<char>(random.bounded(256)));
            unsigned char result[QrResultBytes];
            const int size = qrEncode(level, version, text.constData(), length, result);
            QCOMPARE(size, qr::sizeOf(version));
            const QString file = m_folder.filePath(
                QStringLiteral("%1%2.pgm").arg(version).arg(QLatin1Char("LMQH"[level])));
            QVERIFY(picture(size, result).save(file));
            m_files += file;
            m_texts += text;
        }
    }
}

void TestReadback::compare(const QString &program, const QStringList &arguments)
{
    const QString path = QStandardPaths::findExecutable(program);
    QVERIFY2(!path.isEmpty(), qPrintable(program + QStringLiteral(" is not installed")));
    QProcess process;
    process.start(path, arguments + m_files);
    QVERIFY2(process.waitForFinished(120000), qPrintable(process.errorString()));
    const QByteArray output = process.readAllStandardOutput();
    // One symbol's bytes behind the other's, without anything between them.
    QCOMPARE(output.size(), m_texts.size());
    QVERIFY(output == m_texts);
}

void TestReadback::zbar()
{
    compare(QStringLiteral("zbarimg"),
            {QStringLiteral("--nodbus"), QStringLiteral("--quiet"), QStringLiteral("--raw"),
             QStringLiteral("-Sdisable"), QStringLiteral("-Sqrcode.enable"),
             QStringLiteral("-Sbinary")});
}

void TestReadback::zxing()
{
    compare(QStringLiteral("ZXingReader"),
            {QStringLiteral("-bytes"), QStringLiteral("-format"), QStringLiteral("QRCode")});
}

QTEST_GUILESS_MAIN(TestReadback)
#include "tst_readback.moc"
