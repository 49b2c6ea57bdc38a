// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Leftovers.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QLoggingCategory>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QRegularExpression>
#include <QTest>
#include <QVector>

#include <algorithm>
#include <memory>

/// The page of messages has every message of the sources and no other, each is provoked by a test,
/// and its rules silence.
class TestMessages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void everyMessageHasItsEntry_data();
    void everyMessageHasItsEntry();
    void everyEntryIsOfAMessage_data() { entries(); }
    void everyEntryIsOfAMessage();
    void everyMessageIsProvoked_data() { entries(); }
    void everyMessageIsProvoked();
    void textsAreFound_data();
    void textsAreFound();
    void rulesSilence_data();
    void rulesSilence();

private:
    void entries();
    QString read(const QString &file) const;
    QStringList files(const QString &folder, const QString &pattern) const;

    QDir m_root;
    QStringList m_entries;
    QVector<QPair<QString, QString>> m_messages; // text as a pattern, file
};

/// The texts that \a source can write, as patterns: a value that is put in is anything.
static QStringList textsIn(const QString &source)
{
    // A call that writes, up to the end of its statement, and what hands over a text to be written.
    static const QRegularExpression writes(QStringLiteral(
        "(?:\\bq(?:C?Debug|C?Info|C?Warning|C?Critical|Fatal|mlWarning|mlInfo|mlDebug)\\("
        "|\\.(?:debug|info|warning|critical|fatal)\\(|\\bthrow "
        "|\\.create\\(\\w+, |qmlRegisterUncreatableType<)"
        "(?:\"(?:[^\"\\\\]|\\\\.)*\"|[^;\"])*;"));
    static const QRegularExpression literal(QStringLiteral("\"((?:[^\"\\\\]|\\\\.)*)\""));
    QStringList found;
    auto statements = writes.globalMatch(QString(source).remove(
        QRegularExpression(QStringLiteral("^\\s*//.*$"), QRegularExpression::MultilineOption)));
    while (statements.hasNext()) {
        const QString statement = statements.next().captured();
        QStringList pieces;
        auto literals = literal.globalMatch(statement);
        while (literals.hasNext()) {
            pieces.append(
                literals.next().captured(1).replace(QLatin1String("\\\""), QLatin1String("\"")));
        }
        // Text is the whole of a stream, the last argument of a registration, else the first.
        if (statement.startsWith(QLatin1String("qmlRegister"))) {
            pieces = pieces.mid(pieces.size() - 1);
        } else if (!statement.contains(QLatin1String("<<"))) {
            pieces = pieces.mid(0, 1);
        }
        QString pattern;
        for (const QString &piece : qAsConst(pieces)) {
            QString escaped = QRegularExpression::escape(piece);
            escaped.replace(QRegularExpression(QStringLiteral("\\\\%[sdiu]")),
                            QStringLiteral(".*"));
            pattern += escaped + QStringLiteral(".*");
        }
        // What is only put together from values has its words elsewhere.
        if (!QString(pattern).remove(QLatin1String(".*")).isEmpty()) {
            found.append(QLatin1Char('^') + pattern + QLatin1Char('$'));
        }
    }
    return found;
}

QString TestMessages::read(const QString &file) const
{
    QFile source(m_root.filePath(file));
    return source.open(QFile::ReadOnly) ? QString::fromUtf8(source.readAll()) : QString();
}

QStringList TestMessages::files(const QString &folder, const QString &pattern) const
{
    QStringList found;
    QDirIterator it(m_root.filePath(folder), {pattern}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        found.append(m_root.relativeFilePath(it.next()));
    }
    found.sort();
    return found;
}

void TestMessages::initTestCase()
{
    m_root.setPath(qEnvironmentVariable("OMBREL_SOURCE_DIR"));
    for (const char *folder : {"controls", "datacore", "plugin", "qr"}) {
        const QStringList sources = files(QString::fromLatin1(folder), QStringLiteral("*.cpp"));
        QVERIFY(!sources.isEmpty());
        for (const QString &source : sources) {
            const QStringList texts = textsIn(read(source));
            for (const QString &text : texts) {
                m_messages.append({text, source});
            }
        }
    }
    QVERIFY(m_messages.size() >= 12);
    const QString page = read(QStringLiteral("docs/messages.md"))
                             .section(QStringLiteral("\n## Messages of the library\n"), 1)
                             .section(QStringLiteral("\n## "), 0, 0);
    auto headings = QRegularExpression(QStringLiteral("\n### ([^\n]+)")).globalMatch(page);
    while (headings.hasNext()) {
        m_entries.append(headings.next().captured(1));
    }
    QVERIFY(m_entries.size() >= 12);
}

void TestMessages::cleanup()
{
    QLoggingCategory::setFilterRules(QString());
    QCOMPARE(support::leftovers(), QString());
}

void TestMessages::everyMessageHasItsEntry_data()
{
    QTest::addColumn<QString>("pattern");
    for (const auto &message : qAsConst(m_messages)) {
        QTest::newRow(qPrintable(message.second + QLatin1Char(' ') + message.first))
            << message.first;
    }
}

void TestMessages::everyMessageHasItsEntry()
{
    QFETCH(QString, pattern);
    const QRegularExpression text(pattern);
    QVERIFY2(std::any_of(m_entries.cbegin(), m_entries.cend(),
                         [&text](const QString &entry) { return text.match(entry).hasMatch(); }),
             "docs/messages.md has no entry for it");
}

void TestMessages::entries()
{
    QTest::addColumn<QString>("entry");
    for (const QString &entry : qAsConst(m_entries)) {
        QTest::newRow(qPrintable(entry)) << entry;
    }
}

void TestMessages::everyEntryIsOfAMessage()
{
    QFETCH(QString, entry);
    QVERIFY2(std::any_of(m_messages.cbegin(), m_messages.cend(),
                         [&entry](const QPair<QString, QString> &message) {
                             return QRegularExpression(message.first).match(entry).hasMatch();
                         }),
             "nothing writes it any more");
    const QString body = read(QStringLiteral("docs/messages.md"))
                             .section(QStringLiteral("\n### %1\n").arg(entry), 1)
                             .section(QStringLiteral("\n#"), 0, 0);
    for (const char *part : {"\n- Cause: ", "\n- Remedy: "}) {
        QVERIFY2(body.contains(QLatin1String(part)), part);
    }
    QVERIFY(body.contains(QLatin1String("category `"))
            || body.contains(QLatin1String("An error of the QML engine")));
}

/// Which test announces the message, and so fails when it does not come.
void TestMessages::everyMessageIsProvoked()
{
    QFETCH(QString, entry);
    static const QVector<QPair<const char *, const char *>> provokers = {
        {"Crosshair delegate", "tests/private/tst_pickerboxes.cpp"},
        {"Destroyed Draggable during drag!", "tests/drag/tst_draggable.cpp"},
        {"discard", "tests/drag/tst_documentgesture.cpp"},
        {"Drop handlers changed", "tests/drop/tst_dropdispatch.cpp"},
        {"Module size must be", "tests/visuals/tst_qrcode.qml"},
        {"No delegate present", "tests/tree/tst_treedelegates.cpp"},
        {"Registering types", "tests/plugin/tst_registration.cpp"},
        {"Slider delegate", "tests/private/tst_pickerboxes.cpp"},
        {"The SVG image plugin", "tests/tree/tst_treewithoutsvg.cpp"},
        {"contain themselves", "tests/tree/tst_treeabuse.cpp"},
        {"CheckerBox, DashedBorder and QRCode", "tests/visuals/tst_rhi.cpp"},
        {"DropHandler is abstract", "tests/plugin/tst_registration.cpp"},
        {"DropData cannot be created", "tests/plugin/tst_registration.cpp"},
    };
    const auto provoker = std::find_if(provokers.cbegin(), provokers.cend(),
                                       [&entry](const QPair<const char *, const char *> &row) {
                                           return entry.contains(QLatin1String(row.first));
                                       });
    QVERIFY2(provoker != provokers.cend(), "no test provokes it");
    const QString test = read(QString::fromLatin1(provoker->second));
    QVERIFY2(test.contains(QLatin1String(provoker->first)), provoker->second);
    QVERIFY2(test.contains(QLatin1String("ignoreMessage"))
                 || test.contains(QLatin1String("ignoreWarning"))
                 || test.contains(QLatin1String("errorString")),
             "it provokes nothing");
}

void TestMessages::textsAreFound_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QStringList>("texts");
    const auto row = [](const char *name, const char *source, const QStringList &texts) {
        QTest::newRow(name) << QString::fromLatin1(source) << texts;
    };
    row("a plain one", "qWarning(\"It is late\");", {QStringLiteral("^It\\ is\\ late.*$")});
    row("values", "qDebug(\"%d of %s\", 1, name);", {QStringLiteral("^.*\\ of\\ .*.*$")});
    row("a stream", "qmlWarning(this) << \"It is \" << 5\n    << \" o'clock\";",
        {QStringLiteral("^It\\ is\\ .*\\ o\\'clock.*$")});
    row("a semicolon in it", "qWarning(\"Stop; go\");", {QStringLiteral("^Stop\\;\\ go.*$")});
    row("a text that is put in", "qWarning(\"a %s\", late ? \"b\" : c);",
        {QStringLiteral("^a\\ .*.*$")});
    row("from a place", "place.log().critical(\"Stop\");", {QStringLiteral("^Stop.*$")});
    row("a category", "qCWarning(lcControls, \"Stop\");", {QStringLiteral("^Stop.*$")});
    row("thrown", "throw std::runtime_error(\"Stop\");", {QStringLiteral("^Stop.*$")});
    row("values only", "qWarning(\"%s\", text);", {});
    row("none", "const char *text = \"Stop\"; // qWarning(\"Stop\")", {});
}

void TestMessages::textsAreFound()
{
    QFETCH(QString, source);
    QTEST(textsIn(source), "texts");
}

void TestMessages::rulesSilence_data()
{
    QTest::addColumn<QByteArray>("qml");
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<bool>("critical");
    QTest::addColumn<QString>("rule");
    QTest::newRow("the library's category")
        << QByteArray("HueBox { sliderDelegate: QtObject {} }")
        << QByteArray("Slider delegate must be a quick item") << false
        << QStringLiteral("ombrel.controls.warning=false");
    QTest::newRow("no category") << QByteArray("QRCode { moduleSize: 1 }")
                                 << QByteArray("Module size must be between 2 and 24") << false
                                 << QStringLiteral("default.warning=false");
    QTest::newRow("critical") << QByteArray("TreeView {}")
                              << QByteArray("No delegate present - TreeView cannot render tree")
                              << true << QStringLiteral("default.critical=false");
}

/// Silenced, it would fail this test by way of run-test if it came all the same.
void TestMessages::rulesSilence()
{
    QFETCH(QByteArray, qml);
    QFETCH(QByteArray, message);
    QFETCH(bool, critical);
    QFETCH(QString, rule);
    QVERIFY(read(QStringLiteral("docs/messages.md")).contains(QLatin1Char('`') + rule));
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData("import QtQuick 2.12\nimport ombrel.Controls 1.0\n"
                      "import ombrel.Controls.Private 1.0\n"
                          + qml,
                      QUrl());
    QTest::ignoreMessage(critical ? QtCriticalMsg : QtWarningMsg, message.constData());
    std::unique_ptr<QObject> object(component.create());
    QVERIFY2(object, qPrintable(component.errorString()));

    QLoggingCategory::setFilterRules(rule);
    object.reset(component.create());
    QVERIFY(object);
}

QTEST_MAIN(TestMessages)
#include "tst_messages.moc"
