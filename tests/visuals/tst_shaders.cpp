// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include <QDir>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

/// Every GLSL file compiles with a stock validator, as a desktop driver and as an ES driver see it,
/// and so does the twin that the build makes of it for core profiles.
class TestShaders : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void validatorRejectsWhatIsWrong();
    void everyFragmentHasItsVertex();
    void compiles_data();
    void compiles();

private:
    QString errors(const QString &name, const QByteArray &source) const;

    QString m_validator;
    QDir m_folder;
};

// Before each program: what Qt puts there at run time. A desktop driver has no precision words.
static const QByteArray desktop =
    "#version 120\n#define lowp\n#define mediump\n#define highp\n#line 1\n";
static const QByteArray embedded = "#version 100\n#line 1\n";

/// A twin for core profiles as Qt hands it over: the version stays the first line, and the
/// precision words are defined away below it.
static QByteArray asCore(const QByteArray &twin)
{
    const int end = twin.indexOf('\n') + 1;
    return twin.left(end) + "#define lowp\n#define mediump\n#define highp\n" + twin.mid(end);
}

void TestShaders::initTestCase()
{
    m_folder.setPath(qEnvironmentVariable("OMBREL_SOURCE_DIR")
                     + QStringLiteral("/controls/scenegraph/shaders"));
    m_validator = QStandardPaths::findExecutable(QStringLiteral("glslangValidator"));
    if (m_validator.isEmpty()) {
        QSKIP("glslangValidator (Debian: glslang-tools) is not installed: no GLSL is checked");
    }
}

/// What the validator has to say against \a source; empty when it is fine.
QString TestShaders::errors(const QString &name, const QByteArray &source) const
{
    QTemporaryDir folder;
    QFile file(folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(source) != source.size()) {
        return file.errorString();
    }
    file.close();
    QProcess validator;
    validator.start(m_validator, {file.fileName()});
    if (!validator.waitForFinished() || validator.exitStatus() != QProcess::NormalExit) {
        return validator.errorString();
    }
    return validator.exitCode() == 0 ? QString()
                                     : QString::fromLocal8Bit(validator.readAllStandardOutput());
}

void TestShaders::validatorRejectsWhatIsWrong()
{
    const QByteArray wrong = "void main() { gl_FragColor = vec3(0.0); }\n";
    QVERIFY(!errors(QStringLiteral("wrong.frag"), desktop + wrong).isEmpty());
    QVERIFY(!errors(QStringLiteral("wrong.frag"), embedded + wrong).isEmpty());
    // Without a precision, only ES objects.
    const QByteArray vague = "uniform vec4 c;\nvoid main() { gl_FragColor = c; }\n";
    QCOMPARE(errors(QStringLiteral("vague.frag"), desktop + vague), QString());
    QVERIFY(!errors(QStringLiteral("vague.frag"), embedded + vague).isEmpty());
}

void TestShaders::everyFragmentHasItsVertex()
{
    QStringList vertex;
    QStringList fragment;
    const auto files = m_folder.entryInfoList(QDir::Files);
    for (const QFileInfo &file : files) {
        if (file.suffix() == QLatin1String("vert")) {
            vertex.append(file.completeBaseName());
        } else if (file.suffix() == QLatin1String("frag")) {
            fragment.append(file.completeBaseName());
        } else {
            QFAIL(qPrintable(file.fileName() + QStringLiteral(" is neither .vert nor .frag")));
        }
    }
    QVERIFY(vertex.size() >= 2);
    QCOMPARE(vertex, fragment);
}

void TestShaders::compiles_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("program");
    const auto text = [](const QString &path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    const QDir twins(qEnvironmentVariable("OMBREL_BUILD_DIR")
                     + QStringLiteral("/controls/generated/shaders/core"));
    const QStringList names = m_folder.entryList(QDir::Files);
    QVERIFY(!names.isEmpty());
    for (const QString &name : names) {
        const QByteArray shader = text(m_folder.filePath(name));
        QTest::newRow(qPrintable(name + QStringLiteral(", desktop 1.20")))
            << name << desktop + shader;
        QTest::newRow(qPrintable(name + QStringLiteral(", ES 1.00"))) << name << embedded + shader;
        const QByteArray twin = text(twins.filePath(name));
        QVERIFY2(twin.startsWith("#version 150\n"), qPrintable(name));
        // The validator lets pass what core profiles have no more.
        for (const char *word : {"attribute", "varying", "texture2D", "gl_FragColor"}) {
            QVERIFY2(!twin.contains(word),
                     qPrintable(name + QLatin1Char(' ') + QLatin1String(word)));
        }
        QTest::newRow(qPrintable(name + QStringLiteral(", core 1.50"))) << name << asCore(twin);
    }
}

void TestShaders::compiles()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, program);
    QCOMPARE(errors(name, program), QString());
}

QTEST_GUILESS_MAIN(TestShaders)
#include "tst_shaders.moc"
