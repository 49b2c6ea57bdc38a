// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/TypeDescriptions.h"

#include <QDir>
#include <QFile>
#include <QTest>

using namespace support;

/// QML that runs with a release runs with every later one: what types/<release> describes is there
/// today, as it was. Additions are free.
class TestReleasedTypes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everythingIsStillThere_data();
    void everythingIsStillThere();
    void whatIsTakenBackIsFound_data();
    void whatIsTakenBackIsFound();
};

namespace {

/// A member as a user of the type sees it: its kind, what it is, and for methods and signals what
/// they take. A property that becomes writable is an addition, so that is no part of it.
QString faceOf(const TypeBlock &member)
{
    QStringList parameters;
    for (const TypeBlock *parameter : member.children("Parameter")) {
        parameters.append(
            parameter->text("type")
            + (parameter->flag("isPointer") ? QStringLiteral(" *") : QStringLiteral(" "))
            + parameter->text("name"));
    }
    return QStringLiteral("%1 %2%3%4 %5(%6)")
        .arg(member.kind, member.text("type"),
             member.flag("isList") ? QStringLiteral("[]") : QString(),
             member.flag("isPointer") ? QStringLiteral("*") : QString(), member.text("name"),
             parameters.join(QStringLiteral(", ")));
}

/// The keys of an enumeration with their values: "Idle:0".
QStringList keysOf(const TypeBlock &enumeration)
{
    const QString values = enumeration.text("values").remove(QLatin1Char('"'));
    return values.isEmpty() ? QStringList() : values.split(QLatin1Char(','));
}

/// What \a released has and \a today has not, or has otherwise; empty when nothing is lacking.
QStringList takenBack(const TypeBlock &released, const TypeBlock &today)
{
    QStringList found;
    for (const char *field : {"prototype", "defaultProperty", "attachedType", "isCreatable",
                              "isSingleton", "isComposite"}) {
        if (released.text(field) != today.text(field)) {
            found.append(QString::fromLatin1(field));
        }
    }
    const QStringList exports = today.text("exports").split(QLatin1Char(','));
    for (const QString &name : released.text("exports").split(QLatin1Char(','))) {
        if (!exports.contains(name)) {
            found.append(QStringLiteral("export ") + name);
        }
    }
    for (const TypeBlock &member : released.blocks) {
        const auto same = [&member](const TypeBlock &other) {
            if (faceOf(other) != faceOf(member)) {
                return false;
            }
            const QStringList keys = keysOf(other);
            const QStringList wanted = keysOf(member);
            return (member.flag("isReadonly") || !other.flag("isReadonly"))
                && std::all_of(wanted.cbegin(), wanted.cend(),
                               [&keys](const QString &key) { return keys.contains(key); });
        };
        if (std::none_of(today.blocks.cbegin(), today.blocks.cend(), same)) {
            found.append(faceOf(member));
        }
    }
    return found;
}

/// The same for all types of a file.
QStringList takenBack(const QString &released, const QString &today)
{
    const TypeBlock before = readTypes(released);
    const TypeBlock after = readTypes(today);
    if (before.blocks.size() != 1 || after.blocks.size() != 1) {
        return {QStringLiteral("not one module")};
    }
    QStringList found;
    for (const TypeBlock &type : before.blocks.front().blocks) {
        const TypeBlock *const same = typeNamed(after.blocks.front().blocks, type.text("name"));
        if (!same) {
            found.append(type.text("name"));
            continue;
        }
        for (const QString &lost : takenBack(type, *same)) {
            found.append(type.text("name") + QStringLiteral(": ") + lost);
        }
    }
    return found;
}

QString contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// A module of one type.
QString description(const QByteArray &members)
{
    return QString::fromUtf8("import QtQuick.tooling 1.2\nModule { Component {\n"
                             "name: \"om::Box\"; prototype: \"QQuickItem\"\n"
                             "exports: [\"A/Box 1.0\"]\n"
                             + members + "} }");
}

} // namespace

void TestReleasedTypes::everythingIsStillThere_data()
{
    QTest::addColumn<QString>("released");
    QTest::addColumn<QString>("today");
    const QDir types(qEnvironmentVariable("OMBREL_SOURCE_DIR") + QStringLiteral("/types"));
    const auto releases = types.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    QVERIFY(!releases.isEmpty());
    for (const QString &release : releases) {
        const QDir folder(types.filePath(release));
        const auto modules = folder.entryList({QStringLiteral("*.qmltypes")}, QDir::Files);
        QVERIFY2(!modules.isEmpty(), qPrintable(release));
        for (const QString &module : modules) {
            QTest::addRow("%s, %s", qPrintable(release), qPrintable(module))
                << folder.filePath(module) << types.filePath(module);
        }
    }
}

void TestReleasedTypes::everythingIsStillThere()
{
    QFETCH(QString, released);
    QFETCH(QString, today);
    QCOMPARE(takenBack(contentOf(released), contentOf(today)).join(QLatin1Char('\n')), QString());
}

void TestReleasedTypes::whatIsTakenBackIsFound_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<QString>("lost");
    const auto row = [](const char *name, const char *before, const char *after, const char *lost) {
        QTest::newRow(name) << QByteArray(before) << QByteArray(after) << QString::fromLatin1(lost);
    };
    const char *property = "Property { name: \"a\"; type: \"int\" }";
    const char *readOnly = "Property { name: \"a\"; type: \"int\"; isReadonly: true }";
    const char *method = "Method { name: \"f\"; type: \"bool\"\n"
                         "Parameter { name: \"x\"; type: \"int\" } }";
    const char *enumeration = "Enum { name: \"E\"; values: { \"A\": 1, \"B\": 2 } }";
    row("a property gone", property, "", "om::Box: Property int a()");
    row("a property of another type", property, "Property { name: \"a\"; type: \"double\" }",
        "om::Box: Property int a()");
    row("a property that is read-only now", property, readOnly, "om::Box: Property int a()");
    row("a property that is writable now", readOnly, property, "");
    row("a property renamed", property, "Property { name: \"b\"; type: \"int\" }",
        "om::Box: Property int a()");
    row("a list for an object", "Property { name: \"a\"; type: \"A\"; isPointer: true }",
        "Property { name: \"a\"; type: \"A\"; isList: true }", "om::Box: Property A* a()");
    row("a method gone", method, property, "om::Box: Method bool f(int x)");
    row("a method with one parameter more", method,
        "Method { name: \"f\"; type: \"bool\"\nParameter { name: \"x\"; type: \"int\" }\n"
        "Parameter { name: \"y\"; type: \"int\" } }",
        "om::Box: Method bool f(int x)");
    row("a method that returns something else", method,
        "Method { name: \"f\"\nParameter { name: \"x\"; type: \"int\" } }",
        "om::Box: Method bool f(int x)");
    row("a signal's parameter renamed",
        "Signal { name: \"s\"\nParameter { name: \"x\"; type: \"int\" } }",
        "Signal { name: \"s\"\nParameter { name: \"y\"; type: \"int\" } }",
        "om::Box: Signal  s(int x)");
    row("a key gone", enumeration, "Enum { name: \"E\"; values: { \"A\": 1 } }",
        "om::Box: Enum  E()");
    row("a key of another value", enumeration,
        "Enum { name: \"E\"; values: { \"A\": 1, \"B\": 3 } }", "om::Box: Enum  E()");
    row("a key more", enumeration, "Enum { name: \"E\"; values: { \"A\": 1, \"B\": 2, \"C\": 3 } }",
        "");
    row("attached properties gone", "attachedType: \"om::BoxAttachedObject\"\n", "",
        "om::Box: attachedType");
    row("no longer creatable", "", "isCreatable: false\n", "om::Box: isCreatable");
    row("a member more", property,
        "Property { name: \"a\"; type: \"int\" }\nSignal { name: \"s\" }", "");
}

void TestReleasedTypes::whatIsTakenBackIsFound()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QFETCH(QString, lost);
    QCOMPARE(takenBack(description(before), description(after)).join(QLatin1Char('\n')), lost);
    // The type itself, and its name in QML.
    const QString other =
        description(after).replace(QStringLiteral("om::Box\""), QStringLiteral("om::Other\""));
    QCOMPARE(takenBack(description(before), other), QStringList(QStringLiteral("om::Box")));
    const QString unnamed = description(before).remove(QStringLiteral("A/Box 1.0"));
    QCOMPARE(takenBack(description(before), unnamed),
             QStringList(QStringLiteral("om::Box: export A/Box 1.0")));
}

QTEST_GUILESS_MAIN(TestReleasedTypes)
#include "tst_releasedtypes.moc"
