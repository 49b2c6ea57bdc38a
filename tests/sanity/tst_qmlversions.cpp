// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

/// The QML that is shipped runs with the oldest Qt that the library supports, 5.12: it imports no
/// newer version of Qt's modules and uses nothing of the language that came later.
class TestQmlVersions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void importsAreOldEnough_data();
    void importsAreOldEnough();
    void languageIsOldEnough_data();
    void languageIsOldEnough();

private:
    static void addFolders();
    static QString faults(const QString &folder, bool (*isNew)(const QString &line));
};

void TestQmlVersions::addFolders()
{
    QTest::addColumn<QString>("folder");
    for (const char *folder : {"gallery", "docs", "resources", "tests"}) {
        QTest::newRow(folder) << QString::fromLatin1(folder);
    }
}

/// The lines of QML in \a folder that are too new, each with its file and number.
QString TestQmlVersions::faults(const QString &folder, bool (*isNew)(const QString &))
{
    const QString root = qEnvironmentVariable("OMBREL_SOURCE_DIR") + QLatin1Char('/');
    const QStringList patterns{QStringLiteral("*.qml"), QStringLiteral("*.js"),
                               QStringLiteral("*.md"), QStringLiteral("*.cpp")};
    QStringList found;
    int files = 0;
    QDirIterator it(root + folder, patterns, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        QFile file(it.next());
        if (!file.open(QFile::ReadOnly)) {
            return file.fileName();
        }
        ++files;
        int number = 0;
        while (!file.atEnd()) {
            const QString line = QString::fromUtf8(file.readLine()).trimmed();
            ++number;
            if (isNew(line)) {
                found.append(
                    QStringLiteral("%1:%2: %3")
                        .arg(file.fileName().mid(root.size()), QString::number(number), line));
            }
        }
    }
    return files > 0 ? found.join(QLatin1Char('\n')) : QStringLiteral("no files");
}

void TestQmlVersions::importsAreOldEnough_data()
{
    addFolders();
}

void TestQmlVersions::importsAreOldEnough()
{
    QFETCH(QString, folder);
    const QString fault = faults(folder, [](const QString &line) {
        static const QRegularExpression import(
            QStringLiteral("\\bimport (Qt[A-Za-z.]* [0-9]+)\\.([0-9]+)"));
        // The newest versions that come with Qt 5.12; "tooling" heads the descriptions of types.
        static const QHash<QString, int> newest{
            {QStringLiteral("QtQml 2"), 12},           {QStringLiteral("QtQml.Models 2"), 12},
            {QStringLiteral("QtQuick 2"), 12},         {QStringLiteral("QtQuick.Controls 2"), 5},
            {QStringLiteral("QtQuick.Layouts 1"), 12}, {QStringLiteral("QtQuick.Window 2"), 12},
            {QStringLiteral("QtTest 1"), 12},          {QStringLiteral("QtQuick.tooling 1"), 2}};
        auto imports = import.globalMatch(line);
        while (imports.hasNext()) {
            const auto match = imports.next();
            if (match.capturedRef(2).toInt() > newest.value(match.captured(1), -1))
                return true;
        }
        return false;
    });
    QVERIFY2(fault.isEmpty(), qPrintable(fault));
}

void TestQmlVersions::languageIsOldEnough_data()
{
    addFolders();
}

void TestQmlVersions::languageIsOldEnough()
{
    QFETCH(QString, folder);
    const QString fault = faults(folder, [](const QString &line) {
        // Inline components, required properties and functions as handlers of Connections came with
        // 5.15, as did the operators ?. and ??.
        static const QRegularExpression newer(
            QStringLiteral("^component [A-Za-z]+ *:|^required property|^function "
                           "on[A-Z]|[A-Za-z0-9_)\\]]\\?\\.[A-Za-z]"
                           "| \\?\\? "));
        return newer.match(line).hasMatch();
    });
    QVERIFY2(fault.isEmpty(), qPrintable(fault));
}

QTEST_GUILESS_MAIN(TestQmlVersions)
#include "tst_qmlversions.moc"
