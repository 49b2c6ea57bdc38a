// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/DocumentFiles.h"
#include "tests/support/TypeDescriptions.h"

#include <QAccessible>
#include <QDirIterator>
#include <QFile>
#include <QLibraryInfo>
#include <QMetaEnum>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <map>

using namespace support;

/// The examples, the gallery and the samples of the documents are clean under "qmllint -U", with
/// the type descriptions of this build. That tool of Qt 5.15 does not know all that is right; what
/// it takes for a mistake is one unless the descriptions, or QML itself, say that it is none.
class TestQmlLint : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void isClean_data();
    void isClean();
    void mistakesAreFound_data();
    void mistakesAreFound();

private:
    /// What the tool says of a place, and what it adds; the line up to the place, the name there;
    /// the names of the scripts that the document imports.
    struct Complaint
    {
        QString text;
        QString notes;
        QString before;
        QString name;
        QStringList scripts;
    };

    void readProgram(const QString &path);
    QString findings(const QString &file) const;
    bool isRight(const Complaint &complaint) const;
    bool has(const QString &type, const QString &member) const;
    bool attaches(const QString &type) const;
    bool oursHas(const QString &member) const;
    bool oursHasSignal(const QString &signal) const;
    bool oursHasParameter(const QString &parameter) const;

    QTemporaryDir m_folder;
    std::vector<TypeBlock> m_ours;
    std::vector<TypeBlock> m_ofQt;
    std::multimap<QString, const TypeBlock *> m_byName;
    /// The objects that the programs of the gallery and of the README provide.
    QStringList m_fromCpp;
};

static QString qmlFolder()
{
    return qEnvironmentVariable("OMBREL_BUILD_DIR") + QStringLiteral("/qml");
}

/// The name of the type, and those that it has in QML, with and without module and version.
static QStringList namesOf(const TypeBlock &type)
{
    QStringList names(type.text("name"));
    const QStringList exports =
        type.text("exports").remove(QLatin1Char('"')).split(QLatin1Char(','));
    for (const QString &name : exports) {
        names << name << name.section(QLatin1Char('/'), 1).section(QLatin1Char(' '), 0, 0);
    }
    return names;
}

static std::vector<TypeBlock> typesBelow(const QString &folder)
{
    std::vector<TypeBlock> types;
    QDirIterator it(folder, {QStringLiteral("*.qmltypes")}, QDir::Files,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        QFile file(it.next());
        if (file.open(QIODevice::ReadOnly)) {
            const TypeBlock text = readTypes(QString::fromUtf8(file.readAll()));
            for (const TypeBlock &module : text.blocks) {
                types.insert(types.end(), module.blocks.begin(), module.blocks.end());
            }
        }
    }
    return types;
}

void TestQmlLint::initTestCase()
{
    m_ours = typesBelow(qmlFolder());
    QVERIFY(!m_ours.empty());
    const QDir qt(QLibraryInfo::location(QLibraryInfo::Qml2ImportsPath));
    for (const char *module : {"QtQml", "QtQuick.2", "QtQuick/Window.2", "QtQuick/Layouts",
                               "QtQuick/Controls.2", "QtQuick/Templates.2"}) {
        const auto types = typesBelow(qt.filePath(QString::fromLatin1(module)));
        m_ofQt.insert(m_ofQt.end(), types.begin(), types.end());
    }
    for (const auto *types : {&m_ours, &m_ofQt}) {
        for (const TypeBlock &type : *types) {
            for (const QString &name : namesOf(type)) {
                m_byName.emplace(name, &type);
            }
        }
    }
    const QString root = qEnvironmentVariable("OMBREL_SOURCE_DIR");
    readProgram(root + QStringLiteral("/README.md"));
    QDirIterator programs(root + QStringLiteral("/gallery"), {QStringLiteral("*.cpp")}, QDir::Files,
                          QDirIterator::Subdirectories);
    while (programs.hasNext()) {
        readProgram(programs.next());
    }
    QVERIFY(m_fromCpp.contains(QStringLiteral("gallery")));
    for (const char *document : {"README.md", "gallery/README.md"}) {
        const QString folder = m_folder.filePath(QFileInfo(QString::fromLatin1(document)).path());
        for (const auto &file : qmlFilesIn(root + QLatin1Char('/') + QLatin1String(document))) {
            const QString path = folder + QLatin1Char('/') + file.first;
            QVERIFY(QDir().mkpath(QFileInfo(path).path()));
            QFile sample(path);
            QVERIFY2(sample.open(QIODevice::WriteOnly), qPrintable(path));
            sample.write(file.second);
        }
    }
}

void TestQmlLint::readProgram(const QString &path)
{
    static const QRegularExpression property(
        QStringLiteral("setContextProperty\\(\\s*QStringLiteral\\(\"(\\w+)\""));
    QFile file(path);
    QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(path));
    auto found = property.globalMatch(QString::fromUtf8(file.readAll()));
    while (found.hasNext()) {
        m_fromCpp.append(found.next().captured(1));
    }
}

/// Whether one that is described under this name, or that has this name in QML, has \a member: as a
/// property, a function, a signal, a value of an enumeration, or attached.
bool TestQmlLint::has(const QString &type, const QString &member) const
{
    // Keys is what it attaches, so there are rings.
    QStringList names(type);
    for (int i = 0; i < names.size(); ++i) {
        const auto described = m_byName.equal_range(names.at(i));
        for (auto it = described.first; it != described.second; ++it) {
            const TypeBlock &block = *it->second;
            for (const TypeBlock &child : block.blocks) {
                if (child.text("name") == member
                    || child.text("values").contains(QLatin1Char('"') + member
                                                     + QLatin1Char('"'))) {
                    return true;
                }
            }
            for (const char *next : {"prototype", "attachedType"}) {
                if (!names.contains(block.text(next))) {
                    names.append(block.text(next));
                }
            }
        }
    }
    return false;
}

bool TestQmlLint::attaches(const QString &type) const
{
    const auto described = m_byName.equal_range(type);
    return std::any_of(described.first, described.second, [](const auto &entry) {
        return !entry.second->text("attachedType").isEmpty();
    });
}

bool TestQmlLint::oursHas(const QString &member) const
{
    return std::any_of(m_ours.cbegin(), m_ours.cend(),
                       [&](const TypeBlock &type) { return has(type.text("name"), member); });
}

/// Whether a document may declare a handler for \a signal of one of our types, or name \a parameter
/// in one.
bool TestQmlLint::oursHasSignal(const QString &signal) const
{
    const QString property = signal.endsWith(QLatin1String("Changed"))
        ? signal.chopped(int(qstrlen("Changed")))
        : signal;
    return oursHas(signal) || oursHas(property);
}

bool TestQmlLint::oursHasParameter(const QString &parameter) const
{
    for (const TypeBlock &type : m_ours) {
        for (const TypeBlock *signal : type.children("Signal")) {
            for (const TypeBlock *block : signal->children("Parameter")) {
                if (block->text("name") == parameter) {
                    return true;
                }
            }
        }
    }
    return false;
}

/// Whether \a name is a role, as `Accessible.Button`: the type that has them is described nowhere.
static bool isRole(const QString &name)
{
    const QMetaObject &type = QAccessible::staticMetaObject;
    const QMetaEnum roles = type.enumerator(type.indexOfEnumerator("Role"));
    return roles.keyToValue(name.toLatin1().constData()) >= 0;
}

/// Whether the tool is wrong. Its blind spots, each of which the descriptions or QML itself decide:
bool TestQmlLint::isRight(const Complaint &complaint) const
{
    const QString &text = complaint.text;
    // Basic types, aliases, the types of what is declared in a document, and what a string can do.
    static const QRegularExpression unknownType(
        QStringLiteral("^Type (\"\\w+\" )?of (member|property) \"\\w+\" not found|"
                       "^\"\\w+\" is a string\\. You cannot access"));
    if (unknownType.match(text).hasMatch()) {
        return true;
    }
    // Two modules with a name in common (Popup, Frame, Control): it takes either.
    static const QRegularExpression handler(
        QStringLiteral("^no matching signal found for handler \"on(\\w+)\""));
    const auto unmatched = handler.match(text);
    if (unmatched.hasMatch()) {
        QString signal = unmatched.captured(1);
        signal[0] = signal.at(0).toLower();
        return oursHasSignal(signal);
    }
    if (text == QLatin1String("unqualified access")) {
        // What a view puts into the context of its delegates, what a handler gets that is attached,
        // and a type of Qt Quick that is not described.
        static const QStringList provided = {
            QStringLiteral("modelData"), QStringLiteral("model"), QStringLiteral("index"),
            QStringLiteral("document"),  QStringLiteral("level"), QStringLiteral("event"),
            QStringLiteral("Easing")};
        static const QRegularExpression attachedHandler(
            QStringLiteral("^\\s*[A-Z]\\w*\\.on[A-Z]\\w*:"));
        return complaint.notes.contains(QLatin1String("because you are handling a signal"))
            || complaint.notes.contains(QLatin1String("of the root element"))
            // Nor does it see the object's own members in a handler that is attached.
            || attachedHandler.match(complaint.before).hasMatch()
            || provided.contains(complaint.name) || m_fromCpp.contains(complaint.name)
            || m_byName.count(complaint.name) > 0 || oursHasParameter(complaint.name)
            || oursHas(complaint.name);
    }
    static const QRegularExpression member(
        QStringLiteral("^Property \"(\\w+)\" not found on type \"([^\"]+)\""));
    const auto lacking = member.match(text);
    if (!lacking.hasMatch()) {
        return false;
    }
    // A parameter of a handler that is called as a property of the object, the gallery's own class
    // of documents, and the variables of a script.
    static const QStringList others = {QStringLiteral("accept of QQuickDropAreaDrag"),
                                       QStringLiteral("readable of om::data::Document")};
    static const QRegularExpression beforeDot(QStringLiteral("(\\w+)\\.$"));
    const QString owner = beforeDot.match(complaint.before).captured(1);
    return others.contains(lacking.captured(1) + QStringLiteral(" of ") + lacking.captured(2))
        || complaint.scripts.contains(owner)
        || (owner == QLatin1String("Accessible") && isRole(lacking.captured(1)))
        // Attached members and inherited enumerations; an attached object of another one.
        || has(lacking.captured(2), lacking.captured(1)) || has(owner, lacking.captured(1))
        || attaches(lacking.captured(1));
}

/// What is wrong with \a file, a line each.
QString TestQmlLint::findings(const QString &file) const
{
    QFile source(file);
    if (!source.open(QIODevice::ReadOnly)) {
        return file + QStringLiteral(" cannot be read");
    }
    const QStringList lines = QString::fromUtf8(source.readAll()).split(QLatin1Char('\n'));
    QProcess lint;
    lint.setProcessChannelMode(QProcess::MergedChannels);
    lint.setWorkingDirectory(QFileInfo(file).path());
    lint.start(QLibraryInfo::location(QLibraryInfo::BinariesPath) + QStringLiteral("/qmllint"),
               {QStringLiteral("-U"), QStringLiteral("-I"),
                QLibraryInfo::location(QLibraryInfo::Qml2ImportsPath), QStringLiteral("-I"),
                qmlFolder(), file});
    if (!lint.waitForFinished() || lint.exitStatus() != QProcess::NormalExit) {
        return lint.errorString();
    }
    const QString output = QString::fromUtf8(lint.readAll());

    static const QRegularExpression script(QStringLiteral("\\.js\" as (\\w+)"));
    static const QRegularExpression warning(
        QStringLiteral("^Warning: (.*) at (\\d+):(\\d+)\\.?$|^(.*:\\d+ : .*)$"),
        QRegularExpression::MultilineOption);
    static const QRegularExpression word(QStringLiteral("^\\w+"));
    QStringList scripts;
    for (const QString &line : lines) {
        scripts.append(script.match(line).captured(1));
    }
    QStringList found;
    QRegularExpressionMatch match = warning.match(output);
    while (match.hasMatch()) {
        const QRegularExpressionMatch next = warning.match(output, match.capturedEnd());
        const int end = next.hasMatch() ? next.capturedStart() : output.size();
        const QString line = lines.value(match.captured(2).toInt() - 1);
        // The tool's columns run ahead after an escaped character.
        int column = match.captured(3).toInt() - 1;
        while (column > 0 && word.match(line.mid(column - 1, 1)).hasMatch()) {
            --column;
        }
        const Complaint complaint = {
            match.captured(1), output.mid(match.capturedEnd(), end - match.capturedEnd()),
            line.left(column), word.match(line.mid(column)).captured(), scripts};
        if (!isRight(complaint)) {
            found.append(match.captured().trimmed() + QStringLiteral(": ") + line.trimmed());
        }
        match = next;
    }
    return found.join(QLatin1Char('\n'));
}

void TestQmlLint::isClean_data()
{
    QTest::addColumn<QString>("file");
    const QString root = qEnvironmentVariable("OMBREL_SOURCE_DIR") + QLatin1Char('/');
    const QStringList folders = {root + QStringLiteral("docs"), root + QStringLiteral("gallery"),
                                 m_folder.path()};
    for (const QString &folder : folders) {
        int count = 0;
        QDirIterator it(folder, {QStringLiteral("*.qml")}, QDir::Files,
                        QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QString file = it.next();
            QTest::newRow(qPrintable(QString(file).remove(root))) << file;
            ++count;
        }
        QVERIFY2(count > 0, qPrintable(folder));
    }
}

void TestQmlLint::isClean()
{
    QFETCH(QString, file);
    QCOMPARE(findings(file), QString());
}

void TestQmlLint::mistakesAreFound_data()
{
    QTest::addColumn<QString>("finding");
    QTest::newRow("TreeView { delegate: Item { visible: TreeView.isActiveItm } }")
        << "Property \"isActiveItm\" not found on type \"om::controls::TreeView\"";
    QTest::newRow("DragZone { dragDelegate: Item { visible: DragZone.isDropped } }") << QString();
    QTest::newRow("Item { HoverArea { id: area } visible: area.containsMose }")
        << "Property \"containsMose\" not found on type \"HoverArea\"";
    QTest::newRow("Repeater { model: 3; Text { text: modelDate } }") << "unqualified access";
    QTest::newRow("Repeater { model: 3; Text { text: modelData } }") << QString();
    QTest::newRow("DropZone { property int edge: Control.RigthEdge }")
        << "Property \"RigthEdge\" not found on type";
    QTest::newRow("HoverArea { onEnterd: {} }")
        << "no matching signal found for handler \"onEnterd\"";
    QTest::newRow("CheckerBox { checkerSize: 1 + }") << "Sample.qml:4 : ";
}

void TestQmlLint::mistakesAreFound()
{
    QFETCH(QString, finding);
    QFile file(m_folder.filePath(QStringLiteral("mistaken/Sample.qml")));
    QVERIFY(QDir().mkpath(QFileInfo(file).path()));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("import QtQuick 2.12\nimport ombrel.Controls 1.0\n"
               "import ombrel.Controls.Private 1.0\n");
    file.write(QTest::currentDataTag());
    file.write("\n");
    file.close();
    const QString found = findings(file.fileName());
    QVERIFY2(finding.isEmpty() ? found.isEmpty() : found.contains(finding), qPrintable(found));
}

QTEST_GUILESS_MAIN(TestQmlLint)
#include "tst_qmllint.moc"
