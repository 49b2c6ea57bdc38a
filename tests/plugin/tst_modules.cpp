// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QProcess>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QTest>

#include <cstdio>
#include <memory>
#include <vector>

/// The modules as they lie in their folders: what their qmldir files say, and in which orders they
/// can be imported. Types are registered for the whole process, so each order has one of its own.
class TestModules : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void qmldirSays_data();
    void qmldirSays();
    void ordersOfImports_data();
    void ordersOfImports();
};

static QString moduleFile(const QString &path)
{
    return qEnvironmentVariable("OMBREL_BUILD_DIR") + QStringLiteral("/qml/ombrel/") + path;
}

void TestModules::qmldirSays_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QByteArray>("lines");
    QTest::newRow("ombrel.Controls")
        << QStringLiteral("Controls")
        << QByteArray("plugin ombrelcontrolsplugin\n"
                      "classname OmbrelControlsPlugin\n"
                      "typeinfo plugins.qmltypes\n"
                      "depends QtQuick 2.12\n" // the tree's own QML files import both
                      "depends ombrel.data.Core 1.0\n"
                      "designersupported\n");
    // The library of the module above registers its types, and describes them, too: a plugin line
    // here would register all the public ones under this module's name.
    QTest::newRow("ombrel.Controls.Private") << QStringLiteral("Controls/Private")
                                             << QByteArray("typeinfo ../plugins.qmltypes\n"
                                                           "depends ombrel.Controls 1.0\n");
    if (QDir(moduleFile(QStringLiteral("data"))).exists()) {
        QTest::newRow("ombrel.data.Core") << QStringLiteral("data/Core")
                                          << QByteArray("plugin ombreldatacoreplugin\n"
                                                        "classname OmbrelDataCorePlugin\n"
                                                        "typeinfo plugins.qmltypes\n"
                                                        "depends QtQml 2.12\n");
    }
}

void TestModules::qmldirSays()
{
    QFETCH(QString, folder);
    QFETCH(QByteArray, lines);
    QFile file(moduleFile(folder + QStringLiteral("/qmldir")));
    QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(file.fileName()));
    const QByteArray text = file.readAll();
    QCOMPARE(text, QByteArray("module ") + QTest::currentDataTag() + '\n' + lines);
    for (const QByteArray &line : text.split('\n')) {
        if (line.startsWith("typeinfo ")) {
            const QString types = QString::fromLatin1(line.mid(int(qstrlen("typeinfo "))));
            QVERIFY2(QFile::exists(moduleFile(folder + QLatin1Char('/') + types)),
                     qPrintable(types));
        }
    }
}

void TestModules::ordersOfImports_data()
{
    QTest::addColumn<QStringList>("documents");
    QTest::addColumn<QString>("expected");
    const QString publicOne = QStringLiteral("import ombrel.Controls 1.0; HoverArea {}");
    const QString privateOne = QStringLiteral("import ombrel.Controls.Private 1.0; CheckerBox {}");
    const QString publicFirst =
        QStringLiteral("import ombrel.Controls 1.0; import ombrel.Controls.Private 1.0; "
                       "CheckerBox { HoverArea {} }");
    const QString privateFirst =
        QStringLiteral("import ombrel.Controls.Private 1.0; import ombrel.Controls 1.0; "
                       "CheckerBox { HoverArea {} }");
    const QString newEngine = QStringLiteral("new engine");
    const QString fine = QStringLiteral("fine\n");
    const QString missing =
        QStringLiteral(":1 module \"ombrel.Controls.Private\" is not installed\n");

    QTest::newRow("public alone") << QStringList(publicOne) << fine;
    QTest::newRow("public, private") << QStringList(publicFirst) << fine;
    // The private types are there only after an engine has initialised the plugin, which importing
    // the public module makes it do. An engine takes a document's imports in their order.
    QTest::newRow("private alone") << QStringList(privateOne) << missing;
    QTest::newRow("private, public") << QStringList(privateFirst) << missing;
    // From then on they are there for the process.
    QTest::newRow("public, then private in another document")
        << QStringList({publicOne, privateOne, privateFirst}) << fine.repeated(3);
    QTest::newRow("public, then private in another engine")
        << QStringList({publicOne, newEngine, privateOne, newEngine, privateFirst})
        << fine.repeated(3);
    QTest::newRow("private in vain, then public, then private")
        << QStringList({privateOne, publicOne, privateOne, privateFirst})
        << missing + fine.repeated(3);
    QTest::newRow("the data core between them")
        << QStringList(QStringLiteral("import ombrel.data.Core 1.0; import ombrel.Controls 1.0; "
                                      "import ombrel.Controls.Private 1.0; ColorMapper {}"))
        << fine;
}

void TestModules::ordersOfImports()
{
    QFETCH(QStringList, documents);
    QFETCH(QString, expected);
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), documents);
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(QString::fromUtf8(process.readAllStandardOutput()), expected);
}

/// The other process: makes an object from each of \a documents, and says how that went.
static int load(const QStringList &documents)
{
    std::vector<std::unique_ptr<QQmlEngine>> engines;
    engines.push_back(std::make_unique<QQmlEngine>());
    for (const QString &document : documents) {
        if (document == QLatin1String("new engine")) {
            engines.push_back(std::make_unique<QQmlEngine>());
            continue;
        }
        QQmlComponent component(engines.back().get());
        component.setData(document.toUtf8(), QUrl());
        const std::unique_ptr<QObject> object(component.isReady() ? component.create() : nullptr);
        printf("%s\n", object ? "fine" : qPrintable(component.errorString().trimmed()));
    }
    return 0;
}

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    if (!arguments.isEmpty() && arguments.constFirst().startsWith(QLatin1String("import "))) {
        return load(arguments);
    }
    TestModules test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_modules.moc"
