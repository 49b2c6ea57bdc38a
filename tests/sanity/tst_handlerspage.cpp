// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/RegisteredTypes.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

/// The page on handlers promises what a test holds, and all of it: what is done in every signal,
/// the types, and the tests that end an object from within. What Qt forbids is found out by
/// plugin/tst_handlers, which writes the whole list; the page has it in words.
class TestHandlersPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyActionIsThere();
    void everyTypeIsThere();
    void everyNamedTestExists_data();
    void everyNamedTestExists();
    void everyTestIsNamed();

private:
    QString section(const QString &title) const;
    QString read(const QString &file) const;

    QDir m_root;
    QString m_page;
};

/// The texts in back quotes of the first cells of the rows in \a section.
static QStringList firstCells(const QString &section)
{
    static const QRegularExpression cell(QStringLiteral("^\\| `([^`]+)` \\|"),
                                         QRegularExpression::MultilineOption);
    QStringList found;
    auto cells = cell.globalMatch(section);
    while (cells.hasNext()) {
        found.append(cells.next().captured(1));
    }
    found.sort();
    return found;
}

QString TestHandlersPage::read(const QString &file) const
{
    QFile source(m_root.filePath(file));
    return source.open(QFile::ReadOnly) ? QString::fromUtf8(source.readAll()) : QString();
}

QString TestHandlersPage::section(const QString &title) const
{
    return m_page.section(QStringLiteral("\n## %1\n").arg(title), 1)
        .section(QStringLiteral("\n## "), 0, 0);
}

void TestHandlersPage::initTestCase()
{
    m_root.setPath(qEnvironmentVariable("OMBREL_SOURCE_DIR"));
    m_page = read(QStringLiteral("docs/handlers.md"));
    QVERIFY(!m_page.isEmpty());
}

/// As the program says that does them.
void TestHandlersPage::everyActionIsThere()
{
    QProcess program;
    program.start(qEnvironmentVariable("OMBREL_BUILD_DIR") + QStringLiteral("/tests/handler_rows"),
                  {QStringLiteral("--actions")});
    QVERIFY(program.waitForFinished());
    QStringList actions;
    const auto lines = QString::fromUtf8(program.readAllStandardOutput()).split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        if (!line.isEmpty()) {
            actions.append(line.section(QLatin1Char('\t'), 1));
        }
    }
    actions.sort();
    QVERIFY(actions.size() > 10);
    QCOMPARE(firstCells(section(QStringLiteral("In every handler of every type"))), actions);
}

void TestHandlersPage::everyTypeIsThere()
{
    const QString types = section(QStringLiteral("Type by type"));
    const QStringList names = support::registeredTypes()
        + QStringList{QStringLiteral("DropHandler"), QStringLiteral("DropData"),
                      QStringLiteral("Document"), QStringLiteral("Context")};
    for (const QString &name : names) {
        QVERIFY2(types.contains(QStringLiteral("[%1](reference/%1.md)").arg(name)),
                 qPrintable(name));
    }
}

void TestHandlersPage::everyNamedTestExists_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("function");
    static const QRegularExpression named(QStringLiteral("`(\\w+)\\.(tst_\\w+): (\\w+)`"));
    auto tests = named.globalMatch(m_page);
    while (tests.hasNext()) {
        const auto test = tests.next();
        QTest::newRow(qPrintable(test.captured()))
            << QStringLiteral("tests/%1/%2.cpp").arg(test.captured(1), test.captured(2))
            << test.captured(3);
    }
}

void TestHandlersPage::everyNamedTestExists()
{
    QFETCH(QString, file);
    QFETCH(QString, function);
    QVERIFY(read(file).contains(
        QRegularExpression(QStringLiteral("\nvoid Test\\w+::%1\\(\\)").arg(function))));
}

/// A test whose name says that something is destroyed or deleted inside of something is a promise
/// that the page has to make.
void TestHandlersPage::everyTestIsNamed()
{
    static const QRegularExpression promise(QStringLiteral(
        "\nvoid Test\\w+::((?!\\w+_data\\()\\w*(?:[Dd]eleted|[Dd]estroyed)"
        "(?:Later)?(?:In|By|From|While|When)(?:Its|Every|Each|[AT]|The|Drag|QmlInside|It|Asked"
        "|One|side)\\w*)\\(\\)"));
    QStringList missing;
    int count = 0;
    QDirIterator it(m_root.filePath(QStringLiteral("tests")), {QStringLiteral("tst_*.cpp")},
                    QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString file = m_root.relativeFilePath(it.next());
        auto functions = promise.globalMatch(read(file));
        while (functions.hasNext()) {
            const QString name =
                QStringLiteral("%1.%2: %3")
                    .arg(file.section(QLatin1Char('/'), 1, 1), it.fileInfo().completeBaseName(),
                         functions.next().captured(1));
            ++count;
            if (!m_page.contains(name)) {
                missing.append(name);
            }
        }
    }
    QVERIFY(count > 30);
    missing.sort();
    QVERIFY2(missing.isEmpty(), qPrintable(missing.join(QLatin1Char('\n'))));
}

QTEST_GUILESS_MAIN(TestHandlersPage)
#include "tst_handlerspage.moc"
