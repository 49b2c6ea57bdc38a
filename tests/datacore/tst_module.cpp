// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include <OmbrelDataCore/Context.h>
#include <OmbrelDataCore/Document.h>

#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlListReference>
#include <QTest>

#include <memory>

using om::data::Context;
using om::data::Document;

// What of the documents an engine knows with and without the module imported. Each row is a fresh
// engine; the ones without the import come first, as the process cannot forget an import.
class TestModule : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void documentsFromCppWithoutTheImport();
    void typesOfTheModule_data();
    void typesOfTheModule();
};

void TestModule::documentsFromCppWithoutTheImport()
{
    Context context;
    Document parent;
    parent.setContext(&context);
    parent.setName("parent");
    auto *child = new Document;
    child->setName("child");
    child->setTypes({"image"});
    parent.appendChild(child);

    QQmlEngine engine;
    engine.rootContext()->setContextProperty("folder", &parent);
    QQmlComponent component(&engine);
    component.loadUrl(QUrl::fromLocalFile(QFINDTESTDATA("data/documentwithoutimport.qml")));
    std::unique_ptr<QObject> object(component.create());
    QVERIFY2(object, qPrintable(component.errorString()));
    QCOMPARE(object->property("name").toString(), QString("parent"));
    QCOMPARE(object->property("count").toInt(), 1);
    QCOMPARE(object->property("first").toString(), QString("child"));
    QCOMPARE(object->property("isImage").toBool(), true);
    QCOMPARE(object->property("context").value<QObject *>(), &context);

    child->setName("renamed");
    QCOMPARE(object->property("first").toString(), QString("renamed"));
    QCOMPARE(object->property("reported").toString(), QString("renamed"));
    parent.appendChild(new Document);
    QCOMPARE(object->property("count").toInt(), 2);
}

void TestModule::typesOfTheModule_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QByteArray>("className");
    QTest::newRow("Document") << QByteArray("Document")
                              << QByteArray(Document::staticMetaObject.className());
    QTest::newRow("Context") << QByteArray("Context")
                             << QByteArray(Context::staticMetaObject.className());
}

void TestModule::typesOfTheModule()
{
    QFETCH(QByteArray, type);
    QFETCH(QByteArray, className);
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData("import ombrel.data.Core 1.0\n" + type + " {}", QUrl());
    std::unique_ptr<QObject> object(component.create());
    QVERIFY2(object, qPrintable(component.errorString()));
    QCOMPARE(QByteArray(object->metaObject()->className()), className);
}

QTEST_MAIN(TestModule)

#include "tst_module.moc"
