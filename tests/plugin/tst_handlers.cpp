// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

#include <memory>

/// What a handler may do: from within every signal of every type, the sender is destroyed, hidden,
/// moved, and more. The signals come from the meta-objects, and so do the ways to make them fire:
/// nothing here knows a type by name, unless it is listed with its reason. The same is done in each
/// virtual function that an application implements, and while what it has written as a component is
/// made and destroyed.
///
/// The program handler_rows runs the rows; when one ends it, it is started again for the others.
class TestHandlers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void attachedObjectsAreTheEngines();
    void survives_data();
    void survives();
    void everySignalFires();
    void everyVirtualIsAsked();
    void cleanupTestCase();

private:
    void runType(const QString &type, const QString &command);
    QByteArray withheld() const;
    QByteArray reportOf(const QString &type, const QString &step, const QString &row) const;
    void wrong(const QString &type, const QString &row, const QString &what, bool mayBeQts);

    int m_typeCount = 0;
    QSet<QString> m_types;
    QSet<QString> m_classes;
    QSet<QString> m_declared;
    QSet<QString> m_fired;
    /// What items of Qt do not survive: "signal: action" or, in an event handler, "provocation:
    /// action" or, during the synchronisation with the scene graph, in the middle of the evaluation
    /// of a binding and while a child of what goes is destroyed, "while …: action" or, in a moment
    /// of what is made while the scene is made itself, "while declaring, moment: action".
    QSet<QString> m_forbidden;
    QString m_while;
    int m_wrong = 0;
    int m_excused = 0;
    int m_rows = 0;
    int m_ends = 0;
};

namespace {

/// Signals that nothing can make fire.
bool isNeverEmitted(const QString &signal)
{
    static const QStringList never = {
        // Declared for the interface only.
        QStringLiteral("om::controls::HoverArea disabledChanged(bool)"),
        // A row keeps its place for its life; the signals are there for bindings.
        QStringLiteral("om::controls::TreeViewEntry levelChanged(int)"),
        QStringLiteral("om::controls::TreeViewEntry indexChanged(int)"),
    };
    return never.contains(signal);
}

/// The types that show what Qt forbids: what is done to an item, and what is done to one from
/// within its event handlers, its filter of its children's events, and what it makes.
QStringList qtTypes()
{
    return {QStringLiteral("Item"), QStringLiteral("EventItem"), QStringLiteral("FilterItem"),
            QStringLiteral("MakerItem")};
}

QString programPath()
{
    return qEnvironmentVariable("OMBREL_BUILD_DIR") + QStringLiteral("/tests/handler_rows");
}

/// The line of a sanitizer's report that says what went wrong, and the first places of the library
/// in it.
QString summaryOf(const QByteArray &report)
{
    static const QRegularExpression place(QStringLiteral("#\\d+ .* in (om::controls::\\S+).*"));
    QStringList lines;
    const auto all = QString::fromUtf8(report).split(QLatin1Char('\n'));
    for (const QString &line : all) {
        const auto match = place.match(line);
        if (line.contains(QLatin1String("ERROR: "))
            || line.contains(QLatin1String("runtime error"))) {
            lines.append(line.section(QStringLiteral("ERROR: "), -1).left(80));
        } else if (match.hasMatch() && lines.size() < 4) {
            lines.append(match.captured(1));
        }
    }
    // Without a report, the last words.
    return lines.isEmpty() ? QString::fromUtf8(report).trimmed().section(QLatin1Char('\n'), -1)
                           : lines.join(QStringLiteral("; "));
}

/// To look the places of a report up takes longer than hundreds of rows: they are named only for a
/// row that is told of.
QProcessEnvironment environment(bool namesPlaces = false)
{
    auto environment = QProcessEnvironment::systemEnvironment();
    const QString options = QStringLiteral("ASAN_OPTIONS");
    // A row frees little. The quarter of a gigabyte that freed memory is kept in otherwise is pages
    // that the kernel has to clear, a fifth of a row's time.
    QString value =
        environment.value(options) + QStringLiteral(":detect_leaks=0:quarantine_size_mb=24");
    if (!namesPlaces) {
        value += QStringLiteral(":symbolize=0");
    }
    environment.insert(options, value);
    // The driver draws small windows as fast without threads of its own, a handful for each window
    // that comes.
    environment.insert(QStringLiteral("LP_NUM_THREADS"), QStringLiteral("0"));
    return environment;
}

const QLatin1String plugin("libombrelcontrolsplugin.so");

/// Whether it is the library's own code or the data core's that stumbled, not Qt's below it: the
/// first of them in the report's stack.
bool isInLibrary(const QByteArray &report)
{
    static const QRegularExpression frame(QStringLiteral(
        "#\\d+ 0x\\w+ .*\\(\\S*/(libombrelcontrolsplugin|libOmbrelDataCore|libQt5)"));
    const QString first = frame.match(QString::fromUtf8(report)).captured(1);
    return !first.isEmpty() && first != QLatin1String("libQt5");
}

/// Whether the software driver of OpenGL died on a render thread of Qt, as it does once in
/// thousands of windows that close while they are drawn, and does in a program of nothing but Qt,
/// too: in the midst of swapping the buffers, with nothing but Qt's thread and the driver on the
/// stack. That is no verdict on the row, which then runs again.
bool isInDriver(const QByteArray &report)
{
    return report.contains("(QSGRenderThread)") && report.contains("swrast_dri.so")
        && !report.contains(plugin.data());
}

/// What the QML engine itself forbids, in its own words: to destroy an object inside one of its QML
/// handlers, and to change from within a handler what the binding in evaluation depends on.
bool isRuleOfTheEngine(const QString &what)
{
    return what.contains(QLatin1String("while one of its QML signal handlers is in progress"))
        || what.contains(QLatin1String("Binding loop detected"));
}

} // namespace

/// Notes what is wrong with \a row, unless \a mayBeQts and an item of Qt does not survive it.
void TestHandlers::wrong(const QString &type, const QString &row, const QString &what,
                         bool mayBeQts)
{
    // Told from within Qt's own signal.
    static const QRegularExpression relayed(QStringLiteral("^(beginEdit|endEdit)\\(\\)"));
    QString deed = row.section(QStringLiteral(": in "), 1).section(QLatin1Char('.'), 1);
    deed.replace(relayed, QStringLiteral("activeFocusChanged(bool)"));
    const QString provocation = row.section(QStringLiteral(": in "), 0, 0);
    const bool isDeclaring = m_while == QLatin1String("while declaring");
    QString occasion = (m_while.isEmpty() ? provocation : m_while) + QLatin1String(": ")
        + row.section(QStringLiteral(": "), 2);
    if (isDeclaring) {
        occasion = m_while + QLatin1String(", ") + deed;
    }
    if (type == QLatin1String("Item")) {
        m_forbidden.insert(m_while.isEmpty() ? deed : occasion);
    } else if (qtTypes().contains(type)) {
        if (deed.startsWith(QLatin1String("happened"))) {
            m_forbidden.insert(occasion);
        } else if (row.contains(QLatin1String(": in what is made"))) {
            m_forbidden.insert(isDeclaring ? occasion : deed);
        }
    } else if (isRuleOfTheEngine(what)) {
        ++m_excused;
    } else if (mayBeQts && occasion == QLatin1String("while binding: do the same again")
               && m_forbidden.contains(QStringLiteral("while binding: delete the subject"))) {
        // Doing the same again ends rows, too.
        ++m_excused;
    } else if (mayBeQts && (m_forbidden.contains(deed) || m_forbidden.contains(occasion))) {
        ++m_excused;
    } else {
        ++m_wrong;
        qInfo("%s", qPrintable(QStringLiteral("%1, %2: %3").arg(type, row, what)));
    }
}

/// Under the threaded loop, what items of Qt do not survive is not done to the library's: it ends
/// the program, and where the library stumbles over it first, it does so under the basic loop, too.
QByteArray TestHandlers::withheld() const
{
    QByteArray lines;
    if (qgetenv("QSG_RENDER_LOOP") == "threaded") {
        for (const QString &deed : m_forbidden) {
            lines += "withhold " + deed.toUtf8() + '\n';
        }
    }
    return lines;
}

/// Runs \a row once more, with the places named.
QByteArray TestHandlers::reportOf(const QString &type, const QString &step,
                                  const QString &row) const
{
    QProcess program;
    program.setProcessEnvironment(environment(true));
    program.start(programPath(), QStringList());
    program.write(QStringLiteral("row %1\t%2\t%3\n").arg(type, step, row).toUtf8());
    program.closeWriteChannel();
    program.waitForFinished(60000);
    return program.readAllStandardError();
}

/// Runs all rows of \a type, or only looks at what fires.
void TestHandlers::runType(const QString &type, const QString &command)
{
    const QByteArray prelude = qtTypes().contains(type) ? QByteArray() : withheld();
    QString line = command + QLatin1Char(' ') + type;
    QMap<int, QByteArray> known;
    int repetitions = 0;
    for (;;) {
        QProcess program;
        program.setProcessEnvironment(environment());
        program.start(programPath(), QStringList());
        const int firstStep = line.section(QLatin1Char('\t'), 1, 1).toInt();
        program.write(prelude);
        for (auto it = known.cbegin(); it != known.cend() && it.key() < firstStep; ++it) {
            program.write(it.value());
        }
        program.write(line.toUtf8() + '\n');
        program.closeWriteChannel();

        QString step;
        QString row;
        QString previousRow;
        bool isDone = false;
        while (program.state() != QProcess::NotRunning || program.canReadLine()) {
            if (!program.canReadLine() && !program.waitForReadyRead(60000)) {
                program.kill();
                program.waitForFinished();
            }
            while (program.canReadLine()) {
                const QString text = QString::fromUtf8(program.readLine()).trimmed();
                const QString word = text.section(QLatin1Char('\t'), 0, 0);
                const QString what = text.section(QLatin1Char('\t'), 1);
                if (word == QLatin1String("row")) {
                    const QString newStep = what.section(QLatin1Char('\t'), 0, 0);
                    previousRow = newStep == step ? row : QString();
                    step = newStep;
                    row = what.section(QLatin1Char('\t'), 1);
                    m_while.clear();
                    ++m_rows;
                } else if (word == QLatin1String("while")) {
                    m_while = QStringLiteral("while ") + what;
                } else if (word == QLatin1String("class")) {
                    m_classes.insert(what);
                } else if (word == QLatin1String("declared")) {
                    m_declared.insert(what);
                } else if (word == QLatin1String("once")) {
                    const int at = what.section(QLatin1Char('\t'), 0, 0).toInt();
                    const QByteArray emission =
                        "known " + what.section(QLatin1Char('\t'), 1).toUtf8() + '\n';
                    if (!known.value(at).contains(emission)) {
                        known[at] += emission;
                    }
                } else if (word == QLatin1String("fired")) {
                    m_fired.insert(what);
                } else if (word == QLatin1String("done")) {
                    isDone = true;
                } else {
                    // Where a context or an engine goes while the engine makes something, Qt leaves
                    // what it has begun.
                    const bool endsTheEngine = row.endsWith(QLatin1String("the context"))
                        || row.endsWith(QLatin1String("the engine"));
                    wrong(type, row, word + QLatin1Char(' ') + what,
                          word == QLatin1String("said") || endsTheEngine);
                }
            }
        }
        if (isDone) {
            return;
        }
        ++m_ends;
        const QByteArray report = program.readAllStandardError();
        if (isInDriver(report) && ++repetitions <= 3) {
            qInfo("%s, %s: the driver died:\n%s", qPrintable(type), qPrintable(row),
                  report.constData());
            line = QStringLiteral("resume %1\t%2\t%3").arg(type, step, previousRow);
            continue;
        }
        const int wrongBefore = m_wrong;
        wrong(type, row, summaryOf(report) + QStringLiteral(" (code %1)").arg(program.exitCode()),
              !isInLibrary(report));
        if (m_wrong > wrongBefore) {
            qInfo("row %s\t%s\t%s\n%s", qPrintable(type), qPrintable(step), qPrintable(row),
                  reportOf(type, step, row).constData());
        }
        if (row.isEmpty()) {
            const QString end = QStringLiteral("%1: %2 (code %3): %4")
                                    .arg(type, program.errorString())
                                    .arg(program.exitCode())
                                    .arg(QString::fromUtf8(report));
            QVERIFY2(!qtTypes().contains(type), qPrintable(end));
            return;
        }
        // A provocation that is not survived even without a handler has no rows.
        const bool isLook = row.endsWith(QLatin1String(": only looked at"));
        line = isLook ? QStringLiteral("resume %1\t%2").arg(type).arg(step.toInt() + 1)
                      : QStringLiteral("resume %1\t%2\t%3").arg(type, step, row);
    }
}

/// Items of Qt, with everything done to them that the library does to items, and with signals in
/// their event handlers as the library's have them.
void TestHandlers::initTestCase()
{
#ifndef __SANITIZE_ADDRESS__
    QSKIP("without the address sanitizer, what reads freed memory need not die of it");
#endif
    for (const QString &type : qtTypes()) {
        runType(type, QStringLiteral("run"));
    }
    QStringList forbidden(m_forbidden.cbegin(), m_forbidden.cend());
    forbidden.sort();
    qInfo("Qt forbids:\n    %s", qPrintable(forbidden.join(QStringLiteral("\n    "))));
}

/// Why no row destroys an attached object: the engine does not survive it, whoever made it.
void TestHandlers::attachedObjectsAreTheEngines()
{
    QProcess program;
    program.setProcessEnvironment(environment());
    program.start(programPath(), {QStringLiteral("--attached")});
    QVERIFY(program.waitForFinished());
    QVERIFY(program.exitStatus() == QProcess::CrashExit || program.exitCode() != 0);
}

void TestHandlers::survives_data()
{
    QTest::addColumn<QString>("type");
    QProcess program;
    program.start(programPath(), {QStringLiteral("--types")});
    QVERIFY(program.waitForFinished());
    const auto lines = QString::fromUtf8(program.readAllStandardOutput()).split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        const QString type = line.section(QLatin1Char('\t'), 1);
        if (!type.isEmpty()) {
            QTest::newRow(qPrintable(type)) << type;
            ++m_typeCount;
        }
    }
}

void TestHandlers::survives()
{
    QFETCH(QString, type);
    m_wrong = 0;
    runType(type, QStringLiteral("run"));
    m_types.insert(type);
    QVERIFY2(m_wrong == 0, "handlers that are not survived are listed above");
}

/// A signal that nothing above makes fire is one that nobody has tried a handler for. The classes
/// are looked for in the headers: one that no scene shows would not be missed otherwise.
void TestHandlers::everySignalFires()
{
    if (m_types.size() < m_typeCount) {
        QSKIP("only some of the types were asked for");
    }
    QDirIterator headers(qEnvironmentVariable("OMBREL_SOURCE_DIR") + QStringLiteral("/controls"),
                         {QStringLiteral("*.h")}, QDir::Files, QDirIterator::Subdirectories);
    QStringList missing;
    int count = 0;
    while (headers.hasNext()) {
        QFile header(headers.next());
        QVERIFY(header.open(QIODevice::ReadOnly));
        if (header.readAll().contains("Q_SIGNALS:")) {
            ++count;
            const QString name = QStringLiteral("om::controls::") + headers.fileInfo().baseName();
            if (!m_classes.contains(name)) {
                missing.append(name);
            }
        }
    }
    QVERIFY(count > 20);
    for (const QString &signal : qAsConst(m_declared)) {
        if (!m_fired.contains(signal) && !isNeverEmitted(signal)) {
            missing.append(signal);
        }
    }
    missing.sort();
    QVERIFY2(missing.isEmpty(), qPrintable(missing.join(QStringLiteral("\n    "))));
}

/// What an application implements: the virtual functions of the data core, and the functions of a
/// list of its own that the library calls.
void TestHandlers::everyVirtualIsAsked()
{
    if (m_types.size() < m_typeCount) {
        QSKIP("only some of the types were asked for");
    }
    QStringList names = {QStringLiteral("list count"), QStringLiteral("list at")};
    QDirIterator headers(qEnvironmentVariable("OMBREL_SOURCE_DIR")
                             + QStringLiteral("/datacore/OmbrelDataCore"),
                         {QStringLiteral("*.h")}, QDir::Files);
    static const QRegularExpression function(QStringLiteral("\\bvirtual [^;(]*?(\\w+)\\("));
    while (headers.hasNext()) {
        QFile header(headers.next());
        QVERIFY(header.open(QIODevice::ReadOnly));
        auto functions = function.globalMatch(QString::fromUtf8(header.readAll()));
        while (functions.hasNext()) {
            names.append(functions.next().captured(1));
        }
    }
    QVERIFY(names.size() >= 6);
    for (const QString &name : qAsConst(names)) {
        QVERIFY2(m_fired.contains(QStringLiteral("virtual ") + name), qPrintable(name));
    }
}

void TestHandlers::cleanupTestCase()
{
    qInfo("%d rows, %d of them forbidden by Qt; the program ended %d times", m_rows, m_excused,
          m_ends);
}

QTEST_GUILESS_MAIN(TestHandlers)
#include "tst_handlers.moc"
