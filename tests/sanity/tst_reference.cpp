// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Text.h"
#include "tests/support/TypeDescriptions.h"

#include <QColor>
#include <QDir>
#include <QFile>
#include <QHash>
#include <QImageReader>
#include <QMetaEnum>
#include <QMetaProperty>
#include <QPointF>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlExpression>
#include <QQmlListReference>
#include <QRegularExpression>
#include <QSet>
#include <QTest>
#include <QUrl>
#include <QVector>

#include <memory>

using support::text;
using support::TypeBlock;

/// The pages of the reference say what the types have: each table is compared, in both directions,
/// with the type descriptions and with an object.
class TestReference : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void headings_data() { pages(); }
    void headings();
    void members_data() { pages(); }
    void members();
    void attached_data();
    void attached();
    void everyTypeHasAPage();
    void defaultsAreCompared_data();
    void defaultsAreCompared();

private:
    void pages();
    void read(const QString &descriptions);
    QString page(const QString &type) const;
    QStringList described(const TypeBlock &type, const QMetaObject *face) const;
    QStringList documented(const QString &page, const QString &attached = QString()) const;
    std::unique_ptr<QObject> object(const QString &type);

    QDir m_root;
    QQmlEngine m_engine;
    QHash<QString, TypeBlock> m_types; // by their name in C++
    QHash<QString, QString> m_classes; // by their name in QML
};

/// The rows of the tables below the heading \a title of \a page, each split into its cells.
static QList<QStringList> rows(const QString &page, const QString &title)
{
    const QString section = QStringLiteral("\n## %1\n").arg(title);
    const int from = page.indexOf(section);
    QList<QStringList> found;
    if (from < 0) {
        return found;
    }
    const int start = from + section.size();
    const QString body = page.mid(start, page.indexOf(QLatin1String("\n## "), start) - start);
    bool inTable = false;
    for (const QString &line : body.split(QLatin1Char('\n'))) {
        if (!line.startsWith(QLatin1Char('|'))) {
            inTable = false;
        } else if (line.startsWith(QLatin1String("|---"))) {
            inTable = true;
        } else if (inTable) {
            QStringList cells;
            for (const QString &cell : line.mid(1, line.size() - 2).split(QLatin1Char('|'))) {
                cells.append(cell.trimmed());
            }
            found.append(cells);
        }
    }
    return found;
}

/// What stands in the code marks of \a cell.
static QString code(const QString &cell)
{
    return QString(cell).remove(QLatin1Char('`'));
}

/// The name that the pages have for the type \a name of C++.
static QString typeName(QString name)
{
    static const QRegularExpression list(QStringLiteral("^QQmlListProperty<(.*)>$"));
    const auto match = list.match(name);
    if (match.hasMatch()) {
        return QStringLiteral("list<%1>").arg(typeName(match.captured(1)));
    }
    static const QHash<QString, QString> known = {
        {text("QString"), text("string")},
        {text("QColor"), text("color")},
        {text("double"), text("real")},
        {text("QPointF"), text("point")},
        {text("QUrl"), text("url")},
        {text("QVariant"), text("var")},
        {text("QObject"), text("QtObject")},
        {text("QStringList"), text("list<string>")},
        {text("QQmlComponent"), text("Component")},
        {text("QQuickItem"), text("Item")},
        {text("QQuickTextDocument"), text("TextDocument")},
        {text("Qt::Key"), text("Qt.Key")},
    };
    name.remove(QLatin1Char('*'));
    return known.value(name, name.section(QStringLiteral("::"), -1));
}

/// The same for a type cell of a page: "list of [Document](Document.md)".
static QString typeName(QStringView cell, QString *access)
{
    static const QRegularExpression link(QStringLiteral("\\[(\\w+)\\]\\([^)]*\\)"));
    static const QRegularExpression list(QStringLiteral("^list of (\\w+?)s?$"));
    QString type = code(cell.toString()).replace(link, QStringLiteral("\\1"));
    *access = type.section(QStringLiteral(", "), 1);
    return type.section(QStringLiteral(", "), 0, 0).replace(list, QStringLiteral("list<\\1>"));
}

/// What stands on the \a page only, and what the \a type has only.
static QString differences(const QStringList &page, const QStringList &type)
{
    QStringList found;
    for (const QString &member : page) {
        if (page.count(member) > type.count(member)) {
            found.append(QStringLiteral("only on the page: ") + member);
        }
    }
    for (const QString &member : type) {
        if (type.count(member) > page.count(member)) {
            found.append(QStringLiteral("not on the page: ") + member);
        }
    }
    return found.join(QStringLiteral("; "));
}

/// The type of a property or a parameter that is described.
static QString typeOf(const support::TypeBlock &described)
{
    const QString type = described.text("type");
    return described.flag("isList") ? QStringLiteral("QQmlListProperty<%1>").arg(type) : type;
}

/// "name(type name, …)"
static QString signature(const QString &name, const QStringList &types, const QStringList &names)
{
    QStringList parts;
    for (int i = 0; i < types.size(); ++i) {
        parts.append(typeName(types.at(i)) + QLatin1Char(' ') + names.at(i));
    }
    return QStringLiteral("%1(%2)").arg(name, parts.join(QStringLiteral(", ")));
}

static QString signature(const QMetaMethod &method)
{
    QStringList types;
    QStringList names;
    for (int i = 0; i < method.parameterCount(); ++i) {
        types.append(QString::fromLatin1(method.parameterTypes().at(i)));
        names.append(QString::fromLatin1(method.parameterNames().at(i)));
    }
    return signature(QString::fromLatin1(method.name()), types, names);
}

/// Whether the cell \a said of a page is what \a value, read from an object, is. \a context is
/// whose property it is, for the names of enumerations.
static bool isDefault(const QString &said, const QVariant &value, const QMetaProperty &property)
{
    if (said == QLatin1String("Qt's formats")) {
        QStringList formats;
        for (const QByteArray &format : QImageReader::supportedImageFormats()) {
            formats.append(QString::fromLatin1(format).toLower());
        }
        return value.toStringList() == formats;
    }
    if (property.isValid() && property.isEnumType()) {
        return said.contains(QString::fromLatin1(property.enumerator().valueToKeys(value.toInt())));
    }
    const int type = value.userType();
    if (type == QMetaType::QString) {
        return said == QLatin1String("null")
            ? value.toString().isNull()
            : said == QStringLiteral("`\"%1\"`").arg(value.toString());
    }
    if (type == QMetaType::QUrl) {
        return said == QStringLiteral("`\"%1\"`").arg(value.toString());
    }
    if (type == QMetaType::QStringList) {
        const QStringList list = value.toStringList();
        return list.isEmpty() ? said == QLatin1String("empty")
                              : code(said) == list.join(QStringLiteral(", "));
    }
    if (type == QMetaType::QColor) {
        const auto color = value.value<QColor>();
        return color.isValid() ? QColor(code(said)) == color : said == QLatin1String("invalid");
    }
    if (type == QMetaType::QPointF) {
        const QPointF point = value.toPointF();
        return said == QStringLiteral("(%1, %2)").arg(point.x()).arg(point.y());
    }
    if (type == QMetaType::Nullptr) {
        return said == QLatin1String("null");
    }
    if (QByteArray(value.typeName()).endsWith('*')) {
        return value.value<QObject *>() ? said.startsWith(QLatin1String("the "))
                                        : said == QLatin1String("null");
    }
    return said == value.toString() && !value.toString().isEmpty();
}

void TestReference::read(const QString &descriptions)
{
    QFile file(descriptions);
    QVERIFY2(file.open(QFile::ReadOnly), qPrintable(descriptions));
    const TypeBlock all = support::readTypes(QString::fromUtf8(file.readAll()));
    for (const TypeBlock *type : all.blocks.at(0).children("Component")) {
        m_types.insert(type->text("name"), *type);
        static const QRegularExpression exported(QStringLiteral("/(\\w+) "));
        auto names = exported.globalMatch(type->text("exports"));
        while (names.hasNext()) {
            m_classes.insert(names.next().captured(1), type->text("name"));
        }
    }
}

void TestReference::initTestCase()
{
    m_root.setPath(qEnvironmentVariable("OMBREL_SOURCE_DIR"));
    const QDir types(m_root.filePath(QStringLiteral("types")));
    read(types.filePath(QStringLiteral("ombrel.Controls.qmltypes")));
    read(types.filePath(QStringLiteral("ombrel.data.Core.qmltypes")));
    QCOMPARE(m_classes.size(), 30);
}

QString TestReference::page(const QString &type) const
{
    QFile file(m_root.filePath(QStringLiteral("docs/reference/%1.md").arg(type)));
    return file.open(QFile::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

void TestReference::pages()
{
    QTest::addColumn<QString>("type");
    const QStringList files = QDir(m_root.filePath(QStringLiteral("docs/reference")))
                                  .entryList({QStringLiteral("*.md")}, QDir::Files);
    for (const QString &file : files) {
        const QString type = QFileInfo(file).completeBaseName();
        if (type != QLatin1String("Images")) { // the one page that is no type's
            QTest::newRow(qPrintable(type)) << type;
        }
    }
}

void TestReference::everyTypeHasAPage()
{
    for (auto it = m_classes.cbegin(); it != m_classes.cend(); ++it) {
        QVERIFY2(!page(it.key()).isEmpty(), qPrintable(it.key()));
    }
}

/// All pages are built alike: a line with the import, what the type is for, its picture, and the
/// same headings in the same order.
void TestReference::headings()
{
    QFETCH(QString, type);
    const QString text = page(type);
    static const QRegularExpression beginning(
        QStringLiteral("^# %1\n\n(`import ombrel\\.Controls 1\\.0` and after it )?`import "
                       "ombrel\\.[\\w.]+ 1\\.0` · "
                       "inherits [^\n]+\n\n[^\n<#|]+\n"));
    QVERIFY(QRegularExpression(beginning.pattern().arg(type)).match(text).hasMatch());
    QVERIFY(text.contains(QStringLiteral("\n<img src=\"../images/%1.png\" width=").arg(type)));

    const QStringList order = {QStringLiteral("Example"),
                               QStringLiteral("Properties"),
                               QStringLiteral("Attached properties"),
                               QStringLiteral("Signals"),
                               QStringLiteral("Methods"),
                               QStringLiteral("Enumerations"),
                               QStringLiteral("Things to know")};
    QStringList expected = order;
    for (const QString &optional : {order.at(2), order.at(5)}) {
        if (!text.contains(QStringLiteral("\n## %1\n").arg(optional))) {
            expected.removeOne(optional);
        }
    }
    QStringList found;
    auto headings = QRegularExpression(QStringLiteral("\n## ([^\n]+)")).globalMatch(text);
    while (headings.hasNext()) {
        found.append(headings.next().captured(1));
    }
    QCOMPARE(found, expected);
    const bool isPrivate = text.contains(QLatin1String("`import ombrel.Controls.Private"));
    QCOMPARE(isPrivate, text.contains(QLatin1String("` and after it `import")));
}

/// An object of \a type; of a singleton the singleton, of a type that cannot be made none.
std::unique_ptr<QObject> TestReference::object(const QString &type)
{
    QQmlComponent component(&m_engine);
    component.setData("import QtQuick 2.12\nimport ombrel.Controls 1.0\n"
                      "import ombrel.Controls.Private 1.0\nimport ombrel.data.Core 1.0\n"
                          + type.toUtf8() + " {}",
                      QUrl());
    return std::unique_ptr<QObject>(component.create());
}

/// A line for each member that \a type is described with; \a face is the meta-object of one, which
/// knows the notify signals.
QStringList TestReference::described(const TypeBlock &type, const QMetaObject *face) const
{
    QStringList found;
    QSet<QString> notifying;
    for (const TypeBlock &member : type.blocks) {
        const QString name = member.text("name");
        QStringList types;
        QStringList names;
        for (const TypeBlock &parameter : member.blocks) {
            types.append(typeOf(parameter));
            names.append(parameter.text("name"));
        }
        if (member.kind == QLatin1String("Property")) {
            const QString of = typeName(typeOf(member));
            QString access;
            QString signal;
            if (!face) {
                access = member.flag("isReadonly") ? text(", fixed") : QString();
            } else {
                const QMetaProperty property =
                    face->property(face->indexOfProperty(name.toLatin1()));
                if (!member.flag("isList") && member.flag("isReadonly")) {
                    access = property.isConstant() ? text(", constant") : text(", read-only");
                }
                signal =
                    property.hasNotifySignal() ? signature(property.notifySignal()) : text("none");
                notifying.insert(signal);
            }
            found.append(QStringLiteral("property %1: %2%3, %4").arg(name, of, access, signal));
        } else if (member.kind == QLatin1String("Signal")) {
            found.append(QStringLiteral("signal ") + signature(name, types, names));
        } else if (member.kind == QLatin1String("Method")) {
            const QString of = member.text("type");
            found.append(QStringLiteral("method ")
                         + (of.isEmpty() ? QString() : typeName(of) + QLatin1Char(' '))
                         + signature(name, types, names));
        } else if (member.kind == QLatin1String("Enum")) {
            auto values = QRegularExpression(QStringLiteral("\"(\\w+)\":(\\d+)"))
                              .globalMatch(member.text("values"));
            while (values.hasNext()) {
                const auto value = values.next();
                found.append(
                    QStringLiteral("enum %1 %2").arg(value.captured(1), value.captured(2)));
            }
        }
    }
    for (const QString &signal : qAsConst(notifying)) {
        found.removeAll(QStringLiteral("signal ") + signal);
    }
    return found;
}

/// The same as \a page has it.
QStringList TestReference::documented(const QString &page, const QString &attached) const
{
    QStringList found;
    const QString properties =
        attached.isEmpty() ? text("Properties") : text("Attached properties");
    for (const QStringList &row : rows(page, properties)) {
        QString access;
        const QString type = typeName(QStringView(row.value(1)), &access);
        found.append(QStringLiteral("property %1: %2%3, %4")
                         .arg(code(row.value(0)), type,
                              access.isEmpty() ? QString() : QStringLiteral(", ") + access,
                              code(row.value(3))));
    }
    if (attached.isEmpty()) {
        for (const char *kind : {"signal", "method"}) {
            const QString title =
                *kind == 's' ? QStringLiteral("Signals") : QStringLiteral("Methods");
            for (const QStringList &row : rows(page, title)) {
                found.append(QString::fromLatin1(kind) + QLatin1Char(' ') + code(row.value(0)));
            }
        }
        const QString enumerations = page.section(QStringLiteral("\n## Enumerations\n"), 1)
                                         .section(QStringLiteral("\n## "), 0, 0);
        auto values =
            QRegularExpression(QStringLiteral("`(\\w+)` \\((\\d+)\\)|\\| (\\d+) \\| `(\\w+)` \\|"))
                .globalMatch(enumerations);
        while (values.hasNext()) {
            const auto value = values.next();
            found.append(QStringLiteral("enum %1 %2")
                             .arg(value.captured(1) + value.captured(4),
                                  value.captured(2) + value.captured(3)));
        }
    }
    return found;
}

void TestReference::members()
{
    QFETCH(QString, type);
    QVERIFY2(m_classes.contains(type), "there is no such type");
    const QString text = page(type);
    const TypeBlock description = m_types.value(m_classes.value(type));
    if (type == QLatin1String("TreeView")) {
        QTest::ignoreMessage(QtCriticalMsg, "No delegate present - TreeView cannot render tree");
    }
    // DropData and DropHandler cannot be made: their members are those of the description, and what
    // a DropData is before its first drag nobody can see.
    const std::unique_ptr<QObject> live = description.flag("isSingleton")
            || type == QLatin1String("DropData") || type == QLatin1String("DropHandler")
        ? nullptr
        : object(type);
    QStringList said = documented(text);
    const QStringList is = described(description, live ? live->metaObject() : nullptr);
    if (!live) {
        static const QRegularExpression access(QStringLiteral("^(property [^,]*)(, .*)?, .*$"));
        said.replaceInStrings(access, QStringLiteral("\\1, fixed, "));
    }
    QCOMPARE(differences(said, is), QString());
    if (!live) {
        return;
    }
    QStringList wrong;
    for (const QStringList &row : rows(text, QStringLiteral("Properties"))) {
        const QByteArray name = code(row.value(0)).toLatin1();
        const QMetaProperty property =
            live->metaObject()->property(live->metaObject()->indexOfProperty(name));
        const QVariant value = property.read(live.get());
        const bool right = row.value(1).startsWith(QLatin1String("list of ["))
            ? QQmlListReference(live.get(), name).count() == 0
                && row.value(2) == QLatin1String("empty")
            : isDefault(row.value(2), value, property);
        if (!right) {
            wrong.append(QStringLiteral("%1 is %2").arg(code(row.value(0)), value.toString()));
        }
    }
    QCOMPARE(wrong.join(QLatin1Char('\n')), QString());
}

void TestReference::attached_data()
{
    QTest::addColumn<QByteArray>("scene");
    QTest::newRow("DragArea") << QByteArray("QtObject {}");
    QTest::newRow("DragZone") << QByteArray("QtObject {}");
    // What is attached of a tree is so in a row only.
    QTest::newRow("TreeView") << QByteArray(
        "TreeView { id: tree; property var row; rootDocuments: Document {}\n"
        "  delegate: Item { Component.onCompleted: tree.row = this } }");
}

void TestReference::attached()
{
    QFETCH(QByteArray, scene);
    const QString type = QString::fromLatin1(QTest::currentDataTag());
    const QString name = m_types.value(m_classes.value(type)).text("attachedType");
    QVERIFY2(m_types.contains(name), qPrintable(name));
    QQmlComponent component(&m_engine);
    component.setData(
        "import QtQuick 2.12\nimport ombrel.Controls 1.0\nimport ombrel.data.Core 1.0\n" + scene,
        QUrl());
    const std::unique_ptr<QObject> top(component.create());
    QVERIFY2(top, qPrintable(component.errorString()));
    QObject *place = top.get();
    if (type == QLatin1String("TreeView")) {
        QTRY_VERIFY(top->property("row").value<QObject *>());
        place = top->property("row").value<QObject *>();
    }

    const QString text = page(type);
    const QStringList is = described(m_types.value(name), nullptr);
    QStringList wrong;
    QStringList said;
    for (const QStringList &row : rows(text, QStringLiteral("Attached properties"))) {
        QString access;
        const QString of = typeName(QStringView(row.value(1)), &access);
        said.append(QStringLiteral("property %1: %2%3, ")
                        .arg(code(row.value(0)), of,
                             access.isEmpty() ? QString() : QStringLiteral(", fixed")));
        if (row.value(3) != QLatin1String("none")) {
            said.append(QStringLiteral("signal ") + code(row.value(3)));
        }
        QQmlExpression read(qmlContext(place), place, type + QLatin1Char('.') + code(row.value(0)));
        const QVariant value = read.evaluate();
        if (read.hasError() || !isDefault(row.value(2), value, QMetaProperty())) {
            wrong.append(QStringLiteral("%1 is %2").arg(code(row.value(0)), value.toString()));
        }
    }
    QCOMPARE(differences(said, is), QString());
    QCOMPARE(wrong.join(QLatin1Char('\n')), QString());
}

void TestReference::defaultsAreCompared_data()
{
    QTest::addColumn<QString>("said");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("right");
    const auto row = [](const char *name, const char *said, const QVariant &value, bool right) {
        QTest::newRow(name) << QString::fromUtf8(said) << value << right;
    };
    row("a number", "20", 20, true);
    row("another number", "20", 21, false);
    row("nothing said", "", 20, false);
    row("false", "false", false, true);
    row("not true", "false", true, false);
    row("a text", "`\"a\"`", QStringLiteral("a"), true);
    row("another text", "`\"a\"`", QString(), false);
    row("a null text", "null", QString(), true);
    row("an empty text is not null", "null", QStringLiteral(""), false);
    row("a colour", "white", QColor(Qt::white), true);
    row("another colour", "white", QColor(Qt::black), false);
    row("no colour", "invalid", QColor(), true);
    row("a point", "(0, 0)", QPointF(), true);
    row("another point", "(0, 0)", QPointF(0, 1), false);
    row("no object", "null", QVariant::fromValue<QObject *>(nullptr), true);
    row("an object", "null", QVariant::fromValue<QObject *>(this), false);
}

void TestReference::defaultsAreCompared()
{
    QFETCH(QString, said);
    QFETCH(QVariant, value);
    QTEST(isDefault(said, value, QMetaProperty()), "right");
}

QTEST_MAIN(TestReference)
#include "tst_reference.moc"
