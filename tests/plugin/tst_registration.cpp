// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include <QDir>
#include <QFile>
#include <QPluginLoader>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQmlExtensionInterface>
#include <QQuickItem>
#include <QRegularExpression>
#include <QTest>

/// What a QML document gets from importing the module.
class TestRegistration : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void registeredInTheAgreedOrder();
    void pluginMetadata();
    void debugLineForEachRegistration();
    void privateModuleNeedsTheEngineInitialised();
    void publicNamesResolve_data();
    void publicNamesResolve();
    void privateNamesResolve_data();
    void privateNamesResolve();
    void uncreatableTypesSayWhy_data();
    void uncreatableTypesSayWhy();
    void singletonsAreSharedWithinAnEngine();
    void singletonsDieWithTheirEngine();
    void privateModuleOffersNothingElse();
    void itemsHaveWhatItemGotLater();

private:
    QObject *create(QQmlEngine &engine, const QByteArray &qml, QString *error = nullptr);
    QStringList registered(const QByteArray &function) const;
};

/// The public names in the order in which they are registered.
static const QStringList publicNames = {QStringLiteral("Popup"),
                                        QStringLiteral("DialogItem"),
                                        QStringLiteral("PopupAnchorItem"),
                                        QStringLiteral("HoverArea"),
                                        QStringLiteral("DragArea"),
                                        QStringLiteral("TreeView"),
                                        QStringLiteral("QRCode"),
                                        QStringLiteral("PropertyEditor"),
                                        QStringLiteral("DropZone"),
                                        QStringLiteral("FileDropHandler"),
                                        QStringLiteral("ImageDropHandler"),
                                        QStringLiteral("VideoDropHandler"),
                                        QStringLiteral("DragZone"),
                                        QStringLiteral("Draggable"),
                                        QStringLiteral("DraggableDropHandler"),
                                        QStringLiteral("DocumentDropHandler"),
                                        QStringLiteral("FpsCounter"),
                                        QStringLiteral("Frame"),
                                        QStringLiteral("DashedBorder"),
                                        QStringLiteral("KeyEventSource"),
                                        QStringLiteral("DropHandler"),
                                        QStringLiteral("DropData"),
                                        QStringLiteral("Control"),
                                        QStringLiteral("UI")};

static const QStringList privateNames = {QStringLiteral("SaturationValueBox"),
                                         QStringLiteral("HueBox"), QStringLiteral("CheckerBox"),
                                         QStringLiteral("ColorMapper")};

static const QStringList uncreatable = {QStringLiteral("DropHandler"), QStringLiteral("DropData")};
static const QStringList singletons = {QStringLiteral("Control"), QStringLiteral("UI")};
static const QStringList plainObjects = {
    QStringLiteral("FileDropHandler"),     QStringLiteral("ImageDropHandler"),
    QStringLiteral("VideoDropHandler"),    QStringLiteral("DraggableDropHandler"),
    QStringLiteral("DocumentDropHandler"), QStringLiteral("FpsCounter"),
    QStringLiteral("ColorMapper")};

static QString pluginFile()
{
    return qEnvironmentVariable("OMBREL_BUILD_DIR")
        + QStringLiteral("/qml/ombrel/Controls/libombrelcontrolsplugin.so");
}

QObject *TestRegistration::create(QQmlEngine &engine, const QByteArray &qml, QString *error)
{
    QQmlComponent component(&engine);
    component.setData(qml, QUrl());
    // A component that is not ready would warn at create().
    QObject *object = component.isReady() ? component.create() : nullptr;
    if (error) {
        *error = component.errorString();
    } else if (!object) {
        qWarning("%s", qPrintable(component.errorString()));
    }
    return object;
}

/// The names that Registration.cpp registers in \a function, in order.
QStringList TestRegistration::registered(const QByteArray &function) const
{
    QFile file(qEnvironmentVariable("OMBREL_SOURCE_DIR")
               + QStringLiteral("/plugin/Registration.cpp"));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    const QByteArray text = file.readAll();
    const int start = text.indexOf("void " + function);
    const int end = text.indexOf("\n}\n", start);
    QRegularExpression row(QStringLiteral("qmlRegister\\w+<\\w+>\\(\\s*uri, 1, 0,\\s*\"(\\w+)\""));
    QStringList names;
    auto rows = row.globalMatch(QString::fromUtf8(text.mid(start, end - start)));
    while (rows.hasNext()) {
        names.append(rows.next().captured(1));
    }
    return names;
}

void TestRegistration::initTestCase()
{
    QVERIFY2(QFile::exists(pluginFile()), qPrintable(pluginFile()));
}

void TestRegistration::registeredInTheAgreedOrder()
{
    QCOMPARE(registered("registerPublicTypes"), publicNames);
    QCOMPARE(registered("registerPrivateTypes"), privateNames);
}

void TestRegistration::pluginMetadata()
{
    QPluginLoader loader(pluginFile());
    const QJsonObject metadata = loader.metaData();
    QCOMPARE(metadata.value(QStringLiteral("IID")).toString(),
             QStringLiteral("org.qt-project.Qt.QQmlExtensionInterface/1.0"));
    QCOMPARE(metadata.value(QStringLiteral("className")).toString(),
             QStringLiteral("OmbrelControlsPlugin"));
    QCOMPARE(metadata.value(QStringLiteral("MetaData")).toObject(), QJsonObject());
    QVERIFY(qobject_cast<QQmlExtensionInterface *>(loader.instance()));
    QCOMPARE(QByteArray(loader.instance()->metaObject()->className()),
             QByteArray("om::controls::OmbrelControlsPlugin"));
}

void TestRegistration::debugLineForEachRegistration()
{
    QPluginLoader loader(pluginFile());
    auto *plugin = qobject_cast<QQmlTypesExtensionInterface *>(loader.instance());
    QVERIFY(plugin);
    QTest::ignoreMessage(QtDebugMsg, "Registering types of Controls plugin");
    plugin->registerTypes("registration.first");
    QTest::ignoreMessage(QtDebugMsg, "Registering types of Controls plugin");
    plugin->registerTypes("registration.second");

    // The URI is whatever the caller says.
    QQmlEngine engine;
    QScopedPointer<QObject> zone(create(engine, "import registration.second 1.0\nDropZone {}"));
    QVERIFY(zone);
}

void TestRegistration::privateModuleNeedsTheEngineInitialised()
{
    // This runs before any engine of the process has imported the module.
    QQmlEngine engine;
    QString error;
    QScopedPointer<QObject> box(
        create(engine, "import ombrel.Controls.Private 1.0\nCheckerBox {}", &error));
    QVERIFY(!box);
    QVERIFY2(error.contains(QStringLiteral("\"ombrel.Controls.Private\" is not installed")),
             qPrintable(error));
}

void TestRegistration::publicNamesResolve_data()
{
    QTest::addColumn<QString>("name");
    for (const QString &name : publicNames) {
        if (!uncreatable.contains(name) && !singletons.contains(name)) {
            QTest::newRow(qPrintable(name)) << name;
        }
    }
}

void TestRegistration::publicNamesResolve()
{
    QFETCH(QString, name);
    if (name == QLatin1String("TreeView")) {
        QTest::ignoreMessage(QtCriticalMsg, "No delegate present - TreeView cannot render tree");
    }
    QQmlEngine engine;
    QScopedPointer<QObject> object(
        create(engine, "import ombrel.Controls 1.0\n" + name.toLatin1() + " {}"));
    QVERIFY(object);
    QCOMPARE(QString::fromLatin1(object->metaObject()->className()),
             QStringLiteral("om::controls::") + name);
    QCOMPARE(qobject_cast<QQuickItem *>(object.data()) == nullptr, plainObjects.contains(name));
}

void TestRegistration::privateNamesResolve_data()
{
    QTest::addColumn<QString>("name");
    for (const QString &name : privateNames) {
        QTest::newRow(qPrintable(name)) << name;
    }
}

void TestRegistration::privateNamesResolve()
{
    QFETCH(QString, name);
    QQmlEngine engine;
    QScopedPointer<QObject> object(
        create(engine,
               "import ombrel.Controls 1.0\nimport ombrel.Controls.Private 1.0\n" + name.toLatin1()
                   + " {}"));
    QVERIFY(object);
    QCOMPARE(QString::fromLatin1(object->metaObject()->className()),
             QStringLiteral("om::controls::") + name);
    QCOMPARE(qobject_cast<QQuickItem *>(object.data()) == nullptr, plainObjects.contains(name));
}

void TestRegistration::uncreatableTypesSayWhy_data()
{
    QTest::addColumn<QString>("reason");
    QTest::newRow("DropHandler") << QStringLiteral("DropHandler is abstract");
    QTest::newRow("DropData") << QStringLiteral("DropData cannot be created");
}

void TestRegistration::uncreatableTypesSayWhy()
{
    QFETCH(QString, reason);
    QQmlEngine engine;
    QString error;
    QScopedPointer<QObject> object(
        create(engine, QByteArray("import ombrel.Controls 1.0\n") + QTest::currentDataTag() + " {}",
               &error));
    QVERIFY(!object);
    QVERIFY2(error.contains(reason), qPrintable(error));
}

void TestRegistration::singletonsAreSharedWithinAnEngine()
{
    QQmlEngine engine;
    QScopedPointer<QObject> first(
        create(engine,
               "import QtQml 2.12\nimport ombrel.Controls 1.0\n"
               "QtObject { property QtObject ui: UI; property QtObject control: Control\n"
               "property int edge: Control.BottomEdge }"));
    QScopedPointer<QObject> second(
        create(engine,
               "import QtQml 2.12\nimport ombrel.Controls 1.0\n"
               "QtObject { property QtObject ui: UI; property QtObject control: Control }"));
    QVERIFY(first && second);
    QCOMPARE(first->property("edge").toInt(), 4);
    for (const char *name : {"ui", "control"}) {
        auto *singleton = first->property(name).value<QObject *>();
        QVERIFY(singleton);
        QCOMPARE(singleton, second->property(name).value<QObject *>());
        QVERIFY(!singleton->parent());
    }
    QVERIFY(first->property("ui") != first->property("control"));
}

void TestRegistration::singletonsDieWithTheirEngine()
{
    QPointer<QObject> singleton;
    {
        QQmlEngine engine;
        QScopedPointer<QObject> object(create(engine,
                                              "import QtQml 2.12\nimport ombrel.Controls 1.0\n"
                                              "QtObject { property QtObject ui: UI }"));
        singleton = object->property("ui").value<QObject *>();
        QVERIFY(singleton);
    }
    QVERIFY(!singleton);
}

void TestRegistration::privateModuleOffersNothingElse()
{
    QQmlEngine engine;
    QString error;
    QScopedPointer<QObject> object(
        create(engine,
               "import ombrel.Controls 1.0 as Public\nimport ombrel.Controls.Private 1.0\n"
               "DropZone {}",
               &error));
    QVERIFY(!object);
    QVERIFY2(error.contains(QStringLiteral("DropZone is not a type")), qPrintable(error));
}

/// What came to Item in a later revision can be named in our items, too.
void TestRegistration::itemsHaveWhatItemGotLater()
{
    QQmlEngine engine;
    int items = 0;
    const QStringList names = publicNames + privateNames;
    for (const QString &name : names) {
        if (uncreatable.contains(name) || singletons.contains(name)
            || plainObjects.contains(name)) {
            continue;
        }
        if (name == QLatin1String("TreeView")) {
            QTest::ignoreMessage(QtCriticalMsg,
                                 "No delegate present - TreeView cannot render tree");
        }
        const QByteArray type =
            "import QtQuick 2.12\nimport ombrel.Controls 1.0\nimport ombrel.Controls.Private 1.0\n"
            + name.toLatin1();
        ++items;
        QString error;
        const QScopedPointer<QObject> object(
            create(engine,
                   type + " { activeFocusOnTab: true; containmentMask: null; onWindowChanged: {} }",
                   &error));
        QVERIFY2(object, qPrintable(error));
        QVERIFY(object->property("activeFocusOnTab").toBool());
    }
    QCOMPARE(items, 17);
}

QTEST_MAIN(TestRegistration)
#include "tst_registration.moc"
