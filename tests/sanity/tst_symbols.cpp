// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include <QDir>
#include <QFile>
#include <QHash>
#include <QProcess>
#include <QTest>
#include <QVersionNumber>

/// What the libraries import and export. They import no function of Qt that came after 5.12: Debian
/// notes for each symbol of a package the version that brought it.
class TestSymbols : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void nothingNewerIsImported_data();
    void nothingNewerIsImported();
    void privateClassesAreHidden();

private:
    /// What nm says of the dynamic symbols of a file of the build, a line each.
    QByteArrayList symbols(const QString &file, const QStringList &options);

    /// By "symbol@version node".
    QHash<QByteArray, QVersionNumber> m_since;
};

void TestSymbols::initTestCase()
{
    const QDir packages(QStringLiteral("/var/lib/dpkg/info"));
    const QStringList files = packages.entryList({QStringLiteral("libqt5*.symbols")});
    if (files.isEmpty())
        QSKIP("no Debian package says which symbols Qt had when");
    for (const QString &name : files) {
        QFile file(packages.filePath(name));
        QVERIFY(file.open(QFile::ReadOnly));
        while (!file.atEnd()) {
            // " symbol@node version", where the version may be followed by a revision or a number
            // that says which of several dependencies holds.
            const QByteArray line = file.readLine();
            if (!line.startsWith(' '))
                continue;
            const QList<QByteArray> words = line.simplified().split(' ');
            m_since.insert(words.at(0),
                           QVersionNumber::fromString(QString::fromLatin1(words.value(1))));
        }
    }
    // The oracle knows what is new.
    QVERIFY(m_since.value("qt_resourceFeatureZlib@Qt_5") > QVersionNumber(5, 13));
}

void TestSymbols::nothingNewerIsImported_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("plugin") << QStringLiteral("qml/ombrel/Controls/libombrelcontrolsplugin.so");
    // A build that takes the data core from the system has no such folder.
    if (!QFile::exists(qEnvironmentVariable("OMBREL_BUILD_DIR") + QStringLiteral("/datacore")))
        return;
    QTest::newRow("data core's plugin")
        << QStringLiteral("qml/ombrel/data/Core/libombreldatacoreplugin.so");
    QTest::newRow("data core") << QStringLiteral("lib/libOmbrelDataCore.so");
}

void TestSymbols::nothingNewerIsImported()
{
    QFETCH(QString, file);
    QByteArrayList newer;
    int known = 0;
    const QByteArrayList lines = symbols(file, {QStringLiteral("--undefined-only")});
    for (const QByteArray &line : lines) {
        const QByteArray symbol = line.simplified().split(' ').last();
        // The tag is not a function: it says which Qt the library was built with.
        if (!symbol.contains("@Qt_5") || symbol.startsWith("qt_version_tag@"))
            continue;
        const QVersionNumber since = m_since.value(symbol);
        ++known;
        if (since.isNull() || since >= QVersionNumber(5, 13))
            newer.append(symbol + ' ' + since.toString().toLatin1());
    }
    QVERIFY(known > 10);
    QVERIFY2(newer.isEmpty(), newer.join('\n').constData());
}

// Once exported, a function is there for others to link, and has to stay.
void TestSymbols::privateClassesAreHidden()
{
    const QString library = QStringLiteral("lib/libOmbrelDataCore.so");
    if (!QFile::exists(qEnvironmentVariable("OMBREL_BUILD_DIR") + QLatin1Char('/') + library))
        QSKIP("the data core is the system's");
    const QByteArrayList lines =
        symbols(library, {QStringLiteral("--defined-only"), QStringLiteral("--demangle")});
    QByteArrayList hidden;
    int classes = 0;
    for (const QByteArray &line : lines) {
        classes += line.contains("om::data::Document::");
        if (line.contains("Private"))
            hidden.append(line);
    }
    QVERIFY(classes > 10);
    QVERIFY2(hidden.isEmpty(), hidden.join('\n').constData());
}

QByteArrayList TestSymbols::symbols(const QString &file, const QStringList &options)
{
    const QString path = qEnvironmentVariable("OMBREL_BUILD_DIR") + QLatin1Char('/') + file;
    QProcess nm;
    nm.start(QStringLiteral("nm"),
             QStringList{QStringLiteral("--dynamic")} + options + QStringList{path});
    if (!nm.waitForFinished() || nm.exitCode() != 0)
        qWarning("nm: %s %s", qPrintable(nm.errorString()), nm.readAllStandardError().constData());
    return nm.readAllStandardOutput().split('\n');
}

QTEST_GUILESS_MAIN(TestSymbols)
#include "tst_symbols.moc"
