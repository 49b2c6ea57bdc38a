// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/TypeDescriptions.h"

#include <QFile>
#include <QMetaMethod>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQmlProperty>
#include <QRegularExpression>
#include <QTest>

#include <map>
#include <memory>
#include <vector>

/// Holds the type descriptions that tools read against the meta-objects that engines use, in both
/// directions: what one has and the other lacks is a failure.
class TestQmlTypes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void describedAsRegistered_data();
    void describedAsRegistered();
    void attachedTypesAreDescribed_data();
    void attachedTypesAreDescribed();
    void everyAttachedTypeIsKnown();
    void nothingElseIsExported();
    void noPathOfTheBuild();
    void shippedAsBuilt_data();
    void shippedAsBuilt();

private:
    static void compare(const support::TypeBlock &type, const QMetaObject *meta);
};

using namespace support;

namespace {

/// The described types of all modules, and the text they were read from.
std::vector<TypeBlock> descriptions;
QString descriptionText;

/// A type as the tool writes it: "QQmlListProperty<T>" is a list of T, "T*" a pointer to T.
QString plainType(QString type)
{
    static const std::map<QString, QString> spelled = {
        {QStringLiteral("QString"), QStringLiteral("string")},
        {QStringLiteral("qreal"), QStringLiteral("double")},
        {QStringLiteral("QUrl"), QStringLiteral("QUrl")}};
    type.remove(QStringLiteral("QQmlListProperty<"));
    type.remove(QLatin1Char('>'));
    type.remove(QLatin1Char('*'));
    const auto found = spelled.find(type);
    return found == spelled.end() ? type : found->second;
}

/// An enum or flags type is written without its class.
QString unqualified(const QString &type)
{
    return type.mid(type.lastIndexOf(QStringLiteral("::")) + 2);
}

bool sameType(const QString &described, const QByteArray &live)
{
    const QString plain = plainType(QString::fromLatin1(live));
    return described == plain || described == unqualified(QStringLiteral("::") + plain)
        || unqualified(QStringLiteral("::") + described)
        == unqualified(QStringLiteral("::") + plain);
}

QString signatureOf(const TypeBlock &block)
{
    QStringList parameters;
    for (const TypeBlock *parameter : block.children("Parameter")) {
        parameters.append(unqualified(QStringLiteral("::") + parameter->text("type"))
                          + QLatin1Char(' ') + parameter->text("name"));
    }
    return QStringLiteral("%1(%2)").arg(block.text("name"), parameters.join(QStringLiteral(", ")));
}

QString signatureOf(const QMetaMethod &method)
{
    QStringList parameters;
    const auto types = method.parameterTypes();
    const auto names = method.parameterNames();
    for (int i = 0; i < types.size(); ++i) {
        parameters.append(
            unqualified(QStringLiteral("::") + plainType(QString::fromLatin1(types.at(i))))
            + QLatin1Char(' ') + QString::fromLatin1(names.at(i)));
    }
    return QStringLiteral("%1(%2)").arg(QString::fromLatin1(method.name()),
                                        parameters.join(QStringLiteral(", ")));
}

/// The tool leaves out a property's plain change signal: QML derives it from the property.
bool isImplied(const QMetaObject *meta, const QMetaMethod &method)
{
    if (method.methodType() != QMetaMethod::Signal || method.parameterCount() > 0) {
        return false;
    }
    for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i) {
        if (meta->property(i).name() + QByteArray("Changed") == method.name()) {
            return true;
        }
    }
    return false;
}

QString contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// There in builds with the bundled data core only.
QString dataCoreDescriptions()
{
    return qEnvironmentVariable("OMBREL_BUILD_DIR")
        + QStringLiteral("/qml/ombrel/data/Core/plugins.qmltypes");
}

/// The names that the plugins register, with the module each belongs to.
std::map<QString, QString> registeredNames()
{
    const QString sources = qEnvironmentVariable("OMBREL_SOURCE_DIR");
    const QString text = contentOf(sources + QStringLiteral("/plugin/Registration.cpp"));
    const int privateStart = text.indexOf(QStringLiteral("void registerPrivateTypes"));
    const QRegularExpression row(
        QStringLiteral("qmlRegister\\w+<\\w+>\\(\\s*uri, 1, 0,\\s*\"(\\w+)\""));
    std::map<QString, QString> names;
    auto rows = row.globalMatch(text);
    while (rows.hasNext()) {
        const auto match = rows.next();
        names[match.captured(1)] = match.capturedStart() > privateStart
            ? QStringLiteral("ombrel.Controls.Private")
            : QStringLiteral("ombrel.Controls");
    }
    if (QFile::exists(dataCoreDescriptions())) {
        rows = row.globalMatch(
            contentOf(sources + QStringLiteral("/datacore/qml/OmbrelDataCorePlugin.cpp")));
        while (rows.hasNext()) {
            names[rows.next().captured(1)] = QStringLiteral("ombrel.data.Core");
        }
    }
    return names;
}

} // namespace

void TestQmlTypes::initTestCase()
{
    const QString controls = qEnvironmentVariable("OMBREL_BUILD_DIR")
        + QStringLiteral("/qml/ombrel/Controls/plugins.qmltypes");
    // The data core's types are described with the controls, too, but exported by their own module.
    for (const QString &path : {dataCoreDescriptions(), controls}) {
        const QString text = contentOf(path);
        if (text.isEmpty() && path != controls) {
            continue;
        }
        const TypeBlock module = readTypes(text);
        QVERIFY2(module.blocks.size() == 1, qPrintable(path));
        for (const TypeBlock *block : module.blocks.front().children("Component")) {
            descriptions.push_back(*block);
        }
        descriptionText += text;
    }

    // Registers the types, and the pointer types in their signals.
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData("import QtQml 2.12\nimport ombrel.Controls 1.0\nQtObject {}", QUrl());
    std::unique_ptr<QObject> object(component.create());
    QVERIFY2(object, qPrintable(component.errorString()));
}

void TestQmlTypes::describedAsRegistered_data()
{
    QTest::addColumn<QString>("module");
    const auto names = registeredNames();
    QVERIFY(!names.empty());
    for (const auto &name : names) {
        QTest::newRow(qPrintable(name.first)) << name.second;
    }
}

void TestQmlTypes::describedAsRegistered()
{
    QFETCH(QString, module);
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    const bool dataCore = module == QLatin1String("ombrel.data.Core");
    const QString className =
        (dataCore ? QStringLiteral("om::data::") : QStringLiteral("om::controls::")) + name;
    const TypeBlock *const type = typeNamed(descriptions, className);
    QVERIFY2(type, "not described");
    QCOMPARE(type->text("exports"), QStringLiteral("%1/%2 1.0").arg(module, name));

    QQmlEngine engine;
    const QByteArray imports = dataCore
        ? QByteArray("import ombrel.data.Core 1.0\nimport QtQml 2.12\n")
        : QByteArray("import ombrel.Controls 1.0\nimport ombrel.Controls.Private 1.0\n"
                     "import QtQml 2.12\n");
    const QMetaObject *meta = nullptr;
    std::unique_ptr<QObject> object;
    if (type->flag("isSingleton")) {
        QQmlComponent component(&engine);
        component.setData(imports + "QtObject { property QtObject it: " + name.toLatin1() + " }",
                          QUrl());
        object.reset(component.create());
        QVERIFY2(object, qPrintable(component.errorString()));
        meta = object->property("it").value<QObject *>()->metaObject();
    } else if (type->text("isCreatable") == QLatin1String("false")) {
        meta =
            QMetaType::metaObjectForType(QMetaType::type(qPrintable(className + QLatin1Char('*'))));
    } else {
        if (name == QLatin1String("TreeView")) {
            QTest::ignoreMessage(QtCriticalMsg,
                                 "No delegate present - TreeView cannot render tree");
        }
        QQmlComponent component(&engine);
        component.setData(imports + name.toLatin1() + " {}", QUrl());
        object.reset(component.create());
        QVERIFY2(object, qPrintable(component.errorString()));
        meta = object->metaObject();
    }
    QVERIFY(meta);
    compare(*type, meta);
}

/// Holds \a type, what is described, against \a meta, what is there.
void TestQmlTypes::compare(const TypeBlock &type, const QMetaObject *meta)
{
    QCOMPARE(QString::fromLatin1(meta->className()), type.text("name"));
    QCOMPARE(type.text("prototype"), QString::fromLatin1(meta->superClass()->className()));

    // Properties.
    QStringList live;
    QStringList described;
    for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i) {
        const QMetaProperty property = meta->property(i);
        live.append(QString::fromLatin1(property.name()));
        for (const TypeBlock *block : type.children("Property")) {
            if (block->text("name") != live.last()) {
                continue;
            }
            const QByteArray typeName = property.typeName();
            QVERIFY2(sameType(block->text("type"), typeName),
                     qPrintable(live.last() + QStringLiteral(": ") + block->text("type")
                                + QStringLiteral(", not ") + QString::fromLatin1(typeName)));
            QCOMPARE(block->flag("isReadonly"), !property.isWritable());
            QCOMPARE(block->flag("isList"), typeName.startsWith("QQmlListProperty"));
            QCOMPARE(block->flag("isPointer"), typeName.endsWith('*'));
        }
    }
    for (const TypeBlock *block : type.children("Property")) {
        described.append(block->text("name"));
    }
    live.sort();
    described.sort();
    QCOMPARE(described, live);

    // Signals and invokables, with the names of their parameters.
    QStringList liveSignals;
    QStringList liveMethods;
    for (int i = meta->methodOffset(); i < meta->methodCount(); ++i) {
        const QMetaMethod method = meta->method(i);
        if (method.methodType() == QMetaMethod::Signal) {
            const auto names = method.parameterNames();
            for (const QByteArray &parameter : names) {
                QVERIFY2(!parameter.isEmpty(), method.methodSignature().constData());
            }
            if (!isImplied(meta, method)) {
                liveSignals.append(signatureOf(method));
            }
        } else if (method.access() == QMetaMethod::Public) {
            liveMethods.append(signatureOf(method));
        }
    }
    QStringList describedSignals;
    for (const TypeBlock *block : type.children("Signal")) {
        describedSignals.append(signatureOf(*block));
    }
    QStringList describedMethods;
    for (const TypeBlock *block : type.children("Method")) {
        describedMethods.append(signatureOf(*block));
    }
    for (QStringList *list : {&liveSignals, &liveMethods, &describedSignals, &describedMethods}) {
        list->sort();
    }
    QCOMPARE(describedSignals, liveSignals);
    QCOMPARE(describedMethods, liveMethods);

    // Enumerations.
    QStringList liveEnums;
    for (int i = meta->enumeratorOffset(); i < meta->enumeratorCount(); ++i) {
        const QMetaEnum enumerator = meta->enumerator(i);
        for (int k = 0; k < enumerator.keyCount(); ++k) {
            liveEnums.append(QStringLiteral("%1.%2=%3")
                                 .arg(QString::fromLatin1(enumerator.name()),
                                      QString::fromLatin1(enumerator.key(k)))
                                 .arg(enumerator.value(k)));
        }
    }
    QStringList describedEnums;
    const QRegularExpression key(QStringLiteral("\"(\\w+)\":(-?\\d+)"));
    for (const TypeBlock *block : type.children("Enum")) {
        auto keys = key.globalMatch(block->text("values"));
        while (keys.hasNext()) {
            const auto match = keys.next();
            describedEnums.append(
                QStringLiteral("%1.%2=%3")
                    .arg(block->text("name"), match.captured(1), match.captured(2)));
        }
    }
    liveEnums.sort();
    describedEnums.sort();
    QCOMPARE(describedEnums, liveEnums);

    // Class information.
    const int defaultProperty = meta->indexOfClassInfo("DefaultProperty");
    if (defaultProperty >= 0) { // inherited ones are written out too
        QCOMPARE(type.text("defaultProperty"),
                 QString::fromLatin1(meta->classInfo(defaultProperty).value()));
    } else {
        QCOMPARE(type.text("defaultProperty"), QString());
    }
}

void TestQmlTypes::attachedTypesAreDescribed_data()
{
    QTest::addColumn<QByteArray>("qml");
    QTest::addColumn<QString>("property");
    QTest::newRow("DragArea") << QByteArray("Item { property Item it: Item {} }")
                              << QStringLiteral("DragArea.hotspot");
    QTest::newRow("DragZone") << QByteArray("Item { property Item it: Item {} }")
                              << QStringLiteral("DragZone.hotspot");
    // Only what is in a row has one.
    QTest::newRow("TreeView") << QByteArray("TreeView {\n"
                                            "    id: tree\n"
                                            "    property Item it\n"
                                            "    childProperty: 'children'\n"
                                            "    rootDocuments: Document {}\n"
                                            "    delegate: Item {\n"
                                            "        Component.onCompleted: tree.it = this\n"
                                            "    }\n"
                                            "}")
                              << QStringLiteral("TreeView.view");
}

void TestQmlTypes::attachedTypesAreDescribed()
{
    QFETCH(QByteArray, qml);
    QFETCH(QString, property);
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData("import QtQuick 2.12\nimport ombrel.Controls 1.0\n"
                      "import ombrel.data.Core 1.0\n"
                          + qml,
                      QUrl());
    std::unique_ptr<QObject> object(component.create());
    QVERIFY2(object, qPrintable(component.errorString()));
    QTRY_VERIFY(object->property("it").value<QObject *>());
    auto *const item = object->property("it").value<QObject *>();
    const QObject *const attachedObject = QQmlProperty(item, property, qmlContext(item)).object();
    QVERIFY(attachedObject && attachedObject != item);
    const QMetaObject *const meta = attachedObject->metaObject();

    const QString owner =
        QStringLiteral("om::controls::") + QString::fromLatin1(QTest::currentDataTag());
    const TypeBlock *const attaching = typeNamed(descriptions, owner);
    QVERIFY(attaching);
    const TypeBlock *const attached = typeNamed(descriptions, attaching->text("attachedType"));
    QVERIFY2(attached,
             qPrintable(attaching->text("attachedType")
                        + QStringLiteral(" is not "
                                         "described")));
    compare(*attached, meta);
}

/// A type that attaches something new needs a row above.
void TestQmlTypes::everyAttachedTypeIsKnown()
{
    QStringList attaching;
    for (const TypeBlock &block : descriptions) {
        if (!block.text("attachedType").isEmpty()) {
            attaching.append(unqualified(block.text("name")));
        }
    }
    attaching.sort();
    QCOMPARE(attaching,
             QStringList({QStringLiteral("DragArea"), QStringLiteral("DragZone"),
                          QStringLiteral("TreeView")}));
}

void TestQmlTypes::nothingElseIsExported()
{
    const auto names = registeredNames();
    for (const TypeBlock &block : descriptions) {
        if (block.text("exports").isEmpty()) {
            continue;
        }
        const QString name = unqualified(block.text("name"));
        QVERIFY2(names.count(name) == 1, qPrintable(block.text("name")));
    }
}

void TestQmlTypes::noPathOfTheBuild()
{
    QVERIFY(!descriptionText.contains(qEnvironmentVariable("OMBREL_BUILD_DIR")));
    QVERIFY(!descriptionText.contains(qEnvironmentVariable("OMBREL_SOURCE_DIR")));
}

void TestQmlTypes::shippedAsBuilt_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("ombrel.Controls") << QStringLiteral("ombrel/Controls");
    if (QFile::exists(dataCoreDescriptions())) {
        QTest::newRow("ombrel.data.Core") << QStringLiteral("ombrel/data/Core");
    }
}

/// What -DOMBREL_TYPES=shipped installs is what the types are.
void TestQmlTypes::shippedAsBuilt()
{
    QFETCH(QString, path);
    const QString shipped = contentOf(
        qEnvironmentVariable("OMBREL_SOURCE_DIR")
        + QStringLiteral("/types/%1.qmltypes").arg(QString::fromLatin1(QTest::currentDataTag())));
    const QString built = contentOf(qEnvironmentVariable("OMBREL_BUILD_DIR")
                                    + QStringLiteral("/qml/%1/plugins.qmltypes").arg(path));
    QVERIFY(!built.isEmpty());
    QVERIFY2(shipped == built, "types/ is out of date: build the target ship_types, commit");
}

QTEST_MAIN(TestQmlTypes)
#include "tst_qmltypes.moc"
