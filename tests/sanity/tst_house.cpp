// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

#include <algorithm>

/// The house rules that a reader of the code relies on, as tests.
class TestHouse : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void includesFollowTheArrows_data();
    void includesFollowTheArrows();
    void noPartIncludesItsUser();
    void everyRoomHasItsRow();
    void everyNameHasItsFiles_data();
    void everyNameHasItsFiles();
    void onlyRealUseCounts_data();
    void onlyRealUseCounts();
    void everySourceIsLicensed();
    void testFilesAreFound();
    void testFilesAreShort();
    void testCaseFunctionsRun();
    void cleanupsLookForLeftovers();
    void examplesAreInTheReference_data();
    void examplesAreInTheReference();
    void changelogNamesEveryType();
    void readmeNamesThePackages();

private:
    QStringList files(const QString &folder, const QStringList &patterns) const;
    QString read(const QString &file) const;

    QDir m_root;
};

void TestHouse::initTestCase()
{
    m_root.setPath(qEnvironmentVariable("OMBREL_SOURCE_DIR"));
    QVERIFY(m_root.exists(QStringLiteral("plugin/Registration.cpp")));
}

QStringList TestHouse::files(const QString &folder, const QStringList &patterns) const
{
    QStringList found;
    QDirIterator it(m_root.filePath(folder), patterns, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        found.append(m_root.relativeFilePath(it.next()));
    }
    found.sort();
    return found;
}

QString TestHouse::read(const QString &file) const
{
    QFile source(m_root.filePath(file));
    return source.open(QIODevice::ReadOnly) ? QString::fromUtf8(source.readAll()) : QString();
}

void TestHouse::includesFollowTheArrows_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QStringList>("allowed");
    const auto row = [](const char *folder, const QStringList &allowed) {
        QTest::newRow(folder) << QString::fromLatin1(folder) << allowed;
    };
    const QString shaders = QStringLiteral("shaders/");
    const QString scenegraph = QStringLiteral("controls/scenegraph/");
    const QString support = QStringLiteral("controls/support/");
    row("qr", {QStringLiteral("qr/")});
    row("controls/support", {support});
    row("controls/scenegraph", {scenegraph, shaders});
    row("controls/private", {QStringLiteral("controls/private/"), scenegraph, support});
    row("controls/theme", {QStringLiteral("controls/theme/")});
    row("controls/drop", {QStringLiteral("controls/drop/"), support});
    row("controls/drag",
        {QStringLiteral("controls/drag/"), QStringLiteral("controls/drop/"), support});
    row("controls/popups", {QStringLiteral("controls/popups/"), support});
    row("controls/tree", {QStringLiteral("controls/tree/"), support});
    row("controls/visuals",
        {QStringLiteral("controls/visuals/"), scenegraph, support,
         QStringLiteral("qr/QrEncoder.h")});
    row("controls/input", {QStringLiteral("controls/input/"), support});
    row("plugin", {QStringLiteral("plugin/"), QStringLiteral("controls/")});
    row("datacore", {QStringLiteral("datacore/")});
    row("gallery", {QStringLiteral("gallery/")});
}

/// A quoted include names a file of the project from its root (or, for a moc file, of the build);
/// which rooms a room may enter is part of the design.
void TestHouse::includesFollowTheArrows()
{
    QFETCH(QString, folder);
    QFETCH(QStringList, allowed);
    const QStringList sources = files(folder, {QStringLiteral("*.cpp"), QStringLiteral("*.h")});
    QVERIFY2(!sources.isEmpty(), "the room is empty: has it moved?");
    const QRegularExpression quoted(QStringLiteral("^#include \"([^\"]+)\""),
                                    QRegularExpression::MultilineOption);
    const QRegularExpression qt(QStringLiteral("^#include <(Q|Ombrel)"),
                                QRegularExpression::MultilineOption);
    for (const QString &source : sources) {
        const QString text = read(source);
        auto includes = quoted.globalMatch(text);
        while (includes.hasNext()) {
            const QString include = includes.next().captured(1);
            const bool fine = include.endsWith(QLatin1String(".moc"))
                || std::any_of(allowed.cbegin(), allowed.cend(), [&include](const QString &room) {
                                  return include.startsWith(room);
                              });
            QVERIFY2(fine, qPrintable(source + QStringLiteral(" includes ") + include));
        }
        // What lies in qr/ can be built without its vectors.
        if (source.startsWith(QLatin1String("qr/Qr"))
            && source != QLatin1String("qr/QrEncoder.cpp")) {
            QVERIFY2(!text.contains(QStringLiteral("\"qr/accelerated/")),
                     qPrintable(source + QStringLiteral(" includes the accelerated way")));
        }
        if (folder == QLatin1String("qr")) {
            QVERIFY2(!text.contains(qt), qPrintable(source + QStringLiteral(" includes Qt")));
        }
        if (folder == QLatin1String("controls/scenegraph")
            || folder == QLatin1String("controls/private")) {
            QVERIFY2(!text.contains(QStringLiteral("#include <OmbrelDataCore/")),
                     qPrintable(source + QStringLiteral(" includes the data core")));
        }
    }
}

/// A header and its source are one part, named without their suffix. Two parts that include each
/// other, directly or by way of others, can only be read together.
void TestHouse::noPartIncludesItsUser()
{
    const QRegularExpression include(QStringLiteral("^#include \"(controls/[^\"]+)\\.h\""),
                                     QRegularExpression::MultilineOption);
    QHash<QString, QSet<QString>> included;
    const QStringList sources =
        files(QStringLiteral("controls"), {QStringLiteral("*.cpp"), QStringLiteral("*.h")});
    for (const QString &source : sources) {
        const QString part = source.left(source.lastIndexOf(QLatin1Char('.')));
        auto includes = include.globalMatch(read(source));
        while (includes.hasNext()) {
            const QString other = includes.next().captured(1);
            if (other != part) {
                included[part].insert(other);
            }
        }
    }
    QVERIFY2(included.size() > 30, "are there no includes any more?");
    for (auto it = included.cbegin(); it != included.cend(); ++it) {
        QSet<QString> reached = it.value();
        QStringList next(reached.cbegin(), reached.cend());
        while (!next.isEmpty()) {
            const QString part = next.takeLast();
            QVERIFY2(
                part != it.key() && !included.value(part).contains(it.key()),
                qPrintable(QStringLiteral("%1 and %2 include each other").arg(it.key(), part)));
            for (const QString &further : included.value(part)) {
                if (!reached.contains(further)) {
                    reached.insert(further);
                    next.append(further);
                }
            }
        }
    }
}

/// A room that is not in the table above would be held against nothing. Its README tells a
/// newcomer what it is for, who may include it and where to start.
void TestHouse::everyRoomHasItsRow()
{
    const QString table = read(QStringLiteral("tests/sanity/tst_house.cpp"));
    const QDir controls(m_root.filePath(QStringLiteral("controls")));
    const QStringList rooms = controls.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    QCOMPARE(rooms.size(), 10);
    for (const QString &room : rooms) {
        QVERIFY2(table.contains(QStringLiteral("row(\"controls/%1\"").arg(room)), qPrintable(room));
        QVERIFY2(controls.exists(room + QStringLiteral("/README.md")), qPrintable(room));
        QVERIFY2(room == QLatin1String("scenegraph")
                     || m_root.exists(QStringLiteral("tests/%1/CMakeLists.txt").arg(room)),
                 qPrintable(QStringLiteral("there is no folder of tests for ") + room));
    }
    QVERIFY2(controls.entryList({QStringLiteral("*.h"), QStringLiteral("*.cpp")}).isEmpty(),
             "a file of controls/ is in no room");
}

/// Whether \a text, a C++ test or a QML document, uses the type \a name: declares an object of it,
/// asks it by name (a singleton, something attached, an enumeration) or includes its header. What
/// stands in comments is no use.
static bool uses(const QString &text, const QString &name)
{
    static const QRegularExpression stringOrComment(
        QStringLiteral("(\"(?:[^\"\\\\\\n]|\\\\.)*\")|//[^\\n]*|/\\*.*?\\*/"),
        QRegularExpression::DotMatchesEverythingOption);
    const QString code = QString(text)
                             .replace(stringOrComment, QStringLiteral("\\1"))
                             .replace(QStringLiteral("\\n"), QStringLiteral("\n"));
    const QRegularExpression use(
        QStringLiteral("\\b%1 *\\{|\\b%1\\.\\w|/%1\\.h\"|[(,]\"%1\"[),]").arg(name));
    return code.contains(use);
}

/// The names registered, as rows with the class (the same word) and the kind of registration.
void TestHouse::everyNameHasItsFiles_data()
{
    QTest::addColumn<QString>("kind");
    const QString text = read(QStringLiteral("plugin/Registration.cpp"));
    const QRegularExpression row(
        QStringLiteral("qmlRegister(\\w*)Type<(\\w+)>\\(\\s*uri, 1, 0,\\s*\"(\\w+)\""));
    auto rows = row.globalMatch(text);
    QVERIFY(rows.hasNext());
    while (rows.hasNext()) {
        const auto match = rows.next();
        QCOMPARE(match.captured(2), match.captured(3));
        QTest::newRow(qPrintable(match.captured(3))) << match.captured(1);
    }
}

void TestHouse::everyNameHasItsFiles()
{
    QFETCH(QString, kind);
    const QString name = QString::fromLatin1(QTest::currentDataTag());

    const QStringList headers = files(QStringLiteral("controls"), {name + QStringLiteral(".h")});
    QVERIFY2(headers.size() == 1, qPrintable(headers.join(QLatin1Char(' '))));
    QStringList expected = {QFileInfo(headers.constFirst()).path() + QLatin1Char('/') + name
                                + QStringLiteral(".cpp"),
                            QStringLiteral("docs/reference/%1.md").arg(name)};
    if (kind != QLatin1String("Uncreatable")) {
        expected.append(QStringLiteral("docs/snippets/%1Example.qml").arg(name));
        expected.append(QStringLiteral("gallery/qml/pages/%1Demo.qml").arg(name));
    }
    for (const QString &file : qAsConst(expected)) {
        QVERIFY2(m_root.exists(file), qPrintable(file));
    }

    const QStringList tests =
        files(QStringLiteral("tests"), {QStringLiteral("tst_*.cpp"), QStringLiteral("*.qml")});
    const bool used = std::any_of(tests.cbegin(), tests.cend(), [this, &name](const QString &test) {
        return !test.startsWith(QLatin1String("tests/sanity"))
            && !test.startsWith(QLatin1String("tests/plugin")) && uses(read(test), name);
    });
    QVERIFY2(used, "no test uses it");
    QVERIFY2(read(QStringLiteral("docs/README.md"))
                 .contains(QStringLiteral("(reference/%1.md)").arg(name)),
             "docs/README.md does not link its page");
}

void TestHouse::onlyRealUseCounts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("counts");
    const auto row = [](const char *name, const char *text, bool counts) {
        QTest::newRow(name) << QString::fromLatin1(text) << counts;
    };
    row("an object", "Item {\n    Popup { id: p }\n}", true);
    row("an object in a string", "load(\"Item { Popup { } }\");", true);
    row("an object in a line of a string", "load(\"import A 1.0\\nPopup {}\");", true);
    row("asked by name", "x: Popup.open", true);
    row("its header", "#include \"controls/popups/Popup.h\"", true);
    row("a class to look for", "the(\"Popup\")", true);
    row("a comment at the end of a line", "int a; // a Popup { } is made", false);
    row("a comment over lines", "/* Popup {\n} Popup.open */", false);
    row("a comment after a string with slashes", "f(\"qrc://a\"); // Popup {}", false);
    row("a word in a message", "QVERIFY2(a, \"the Popup stays\");", false);
    row("another type", "PopupAnchorItem { } MyPopup { }", false);
}

void TestHouse::onlyRealUseCounts()
{
    QFETCH(QString, text);
    QTEST(uses(text, QStringLiteral("Popup")), "counts");
}

void TestHouse::everySourceIsLicensed()
{
    const QStringList folders = {QStringLiteral("plugin"),     QStringLiteral("controls"),
                                 QStringLiteral("qr"),         QStringLiteral("datacore"),
                                 QStringLiteral("gallery"),    QStringLiteral("tests"),
                                 QStringLiteral("benchmarks"), QStringLiteral("cmake")};
    for (const QString &folder : folders) {
        const QStringList sources = files(
            folder,
            {QStringLiteral("*.cpp"), QStringLiteral("*.h"), QStringLiteral("*.cmake"),
             QStringLiteral("CMakeLists.txt"), QStringLiteral("*.vert"), QStringLiteral("*.frag")});
        for (const QString &source : sources) {
            QVERIFY2(read(source).left(200).contains(QStringLiteral("SPDX-License-"
                                                                    "Identifier: MIT")),
                     qPrintable(source));
        }
    }
}

/// A test file that ctest does not know is a test that cannot fail.
void TestHouse::testFilesAreFound()
{
    const QString listed = read(QDir(qEnvironmentVariable("OMBREL_BUILD_DIR"))
                                    .absoluteFilePath(QStringLiteral("tests/CTestTestfile.cmake")));
    QVERIFY(!listed.isEmpty());
    const QStringList tests =
        files(QStringLiteral("tests"), {QStringLiteral("tst_*.cpp"), QStringLiteral("tst_*.qml")});
    QVERIFY(tests.size() > 5);
    for (const QString &test : tests) {
        const QString folder = QFileInfo(test).path();
        QVERIFY2(folder.count(QLatin1Char('/')) == 1,
                 qPrintable(test + QStringLiteral(" lies too deep to be found")));
        QVERIFY2(read(folder + QStringLiteral("/CMakeLists.txt"))
                     .contains(QStringLiteral("ombrel_add_tests(")),
                 qPrintable(test));
        QVERIFY2(listed.contains(QFileInfo(folder).fileName()), qPrintable(test));
    }
}

/// A longer file has more than one subject; its name then tells nobody where to look.
void TestHouse::testFilesAreShort()
{
    const int limit = 700;
    const QStringList sources =
        files(QStringLiteral("tests"),
              {QStringLiteral("*.cpp"), QStringLiteral("*.h"), QStringLiteral("*.qml")});
    QVERIFY(sources.size() > 100);
    for (const QString &source : sources) {
        const int lines = read(source).count(QLatin1Char('\n'));
        QVERIFY2(lines <= limit,
                 qPrintable(QStringLiteral("%1 has %2 lines").arg(source).arg(lines)));
    }
}

void TestHouse::testCaseFunctionsRun()
{
    const QRegularExpression misnamed(QStringLiteral("function (test(?!_)\\w+)\\("));
    const QStringList tests = files(QStringLiteral("tests"), {QStringLiteral("tst_*.qml")});
    for (const QString &test : tests) {
        const auto match = misnamed.match(read(test));
        QVERIFY2(!match.hasMatch(), qPrintable(test + QLatin1Char(' ') + match.captured(1)));
    }
}

/// What a test leaves behind is found at its own end, not by the test after it.
void TestHouse::cleanupsLookForLeftovers()
{
    const QStringList tests = files(QStringLiteral("tests"), {QStringLiteral("tst_*.cpp")});
    const QRegularExpression cleanup(
        QStringLiteral("^void \\w+::cleanup\\(\\)|void cleanup\\(\\) \\{"),
        QRegularExpression::MultilineOption);
    int found = 0;
    for (const QString &test : tests) {
        const QString text = read(test);
        if (text.contains(cleanup)) {
            QVERIFY2(text.contains(QStringLiteral("leftovers()")), qPrintable(test));
            ++found;
        }
    }
    QVERIFY(found > 10);
}

void TestHouse::examplesAreInTheReference_data()
{
    QTest::addColumn<QString>("snippet");
    const QStringList snippets = files(QStringLiteral("docs/snippets"), {QStringLiteral("*.qml")});
    QVERIFY(!snippets.isEmpty());
    for (const QString &snippet : snippets) {
        QTest::newRow(qPrintable(QFileInfo(snippet).completeBaseName())) << snippet;
    }
}

void TestHouse::examplesAreInTheReference()
{
    QFETCH(QString, snippet);
    const QString name = QFileInfo(snippet).completeBaseName();
    // A file that is named as a type takes that type's place for every file beside it.
    QVERIFY2(name.endsWith(QLatin1String("Example")), "an example is named as one");
    // "<Type>Example.qml" is the type's example, "<Type><What>Example.qml" a recipe on its page.
    QString type = name.chopped(int(qstrlen("Example")));
    const auto page = [&type] { return QStringLiteral("docs/reference/%1.md").arg(type); };
    while (!type.isEmpty() && !m_root.exists(page())) {
        type.chop(1);
    }
    QVERIFY2(read(page()).contains(QStringLiteral("snippets/%1.qml").arg(name)),
             "the reference page does not point to its example");
}

void TestHouse::changelogNamesEveryType()
{
    const QString changelog = read(QStringLiteral("CHANGELOG.md"));
    const QString registration = read(QStringLiteral("plugin/Registration.cpp"));
    const QRegularExpression row(QStringLiteral("uri, 1, 0,\\s*\"(\\w+)\""));
    auto rows = row.globalMatch(registration);
    while (rows.hasNext()) {
        const QString name = rows.next().captured(1);
        QVERIFY2(changelog.contains(QLatin1Char('`') + name + QLatin1Char('`')), qPrintable(name));
    }
}

/// Who only uses the library needs the packages of the first section, and a QML runtime.
void TestHouse::readmeNamesThePackages()
{
    QStringList expected;
    const QStringList lines = read(QStringLiteral("tools/packages.txt"))
                                  .section(QStringLiteral("[library]"), 1)
                                  .section(QStringLiteral("\n["), 0, 0)
                                  .split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        const QString package = line.section(QLatin1Char('#'), 0, 0).simplified();
        if (!package.isEmpty()) {
            expected.append(package);
        }
    }
    QVERIFY(!expected.isEmpty());
    expected.append(QStringLiteral("qmlscene"));
    const QRegularExpression command(QStringLiteral("apt-get install (.*)"));
    QStringList named =
        command.match(read(QStringLiteral("README.md"))).captured(1).split(QLatin1Char(' '));
    named.removeOne(QStringLiteral("--no-install-recommends"));
    QCOMPARE(named.join(QLatin1Char(' ')), expected.join(QLatin1Char(' ')));
}

QTEST_GUILESS_MAIN(TestHouse)
#include "tst_house.moc"
