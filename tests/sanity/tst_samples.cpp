// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/DocumentFiles.h"
#include "tests/support/Leftovers.h"

#include <QDir>
#include <QDirIterator>
#include <QMetaProperty>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlPropertyMap>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QTest>

/// The QML files whose text stands in a document load, and what they edit is there. A warning
/// fails the test by way of run-test.
class TestSamples : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void loads_data();
    void loads();

private:
    void writeFilesOf(const QString &document, const QString &folder);

    QTemporaryDir m_folder;
    QStringList m_written;
};

/// What the editors below \a item are for and their targets do not have.
static QStringList editedInVain(const QQuickItem *item)
{
    QStringList found;
    const auto *target = item->property("target").value<QObject *>();
    const QByteArray property = item->property("property").toByteArray();
    if (target && !property.isEmpty() && target->metaObject()->indexOfProperty(property) < 0) {
        found.append(QString::fromLatin1(target->metaObject()->className()) + QLatin1Char('.')
                     + QString::fromLatin1(property));
    }
    const auto children = item->childItems();
    for (const QQuickItem *child : children) {
        found += editedInVain(child);
    }
    return found;
}

/// Writes each block of \a document that names its file (```qml FILE) into \a folder.
void TestSamples::writeFilesOf(const QString &document, const QString &folder)
{
    const auto files = support::qmlFilesIn(document);
    QVERIFY2(!files.empty(), qPrintable(document + QStringLiteral(" has no QML file")));
    for (const auto &file : files) {
        QVERIFY2(!file.first.isEmpty(),
                 qPrintable(document + QStringLiteral(" has a block without a file's name")));
        const QString path = folder + QLatin1Char('/') + file.first;
        QVERIFY(QDir().mkpath(QFileInfo(path).path()));
        QFile sample(path);
        QVERIFY2(sample.open(QIODevice::WriteOnly), qPrintable(path));
        sample.write(file.second);
        m_written.append(path);
    }
}

void TestSamples::initTestCase()
{
    const QString root = qEnvironmentVariable("OMBREL_SOURCE_DIR");
    // The samples of the gallery lie among its files.
    const QDir gallery(root + QStringLiteral("/gallery"));
    QDirIterator files(gallery.filePath(QStringLiteral("qml")), QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString source = files.next();
        const QString copy =
            m_folder.filePath(QStringLiteral("gallery/") + gallery.relativeFilePath(source));
        QVERIFY(QDir().mkpath(QFileInfo(copy).path()));
        QVERIFY2(QFile::copy(source, copy), qPrintable(source));
    }
    writeFilesOf(gallery.filePath(QStringLiteral("README.md")),
                 m_folder.filePath(QStringLiteral("gallery")));
    writeFilesOf(root + QStringLiteral("/README.md"), m_folder.path());
}

void TestSamples::loads_data()
{
    QTest::addColumn<QString>("file");
    for (const QString &file : qAsConst(m_written)) {
        QTest::newRow(qPrintable(QDir(m_folder.path()).relativeFilePath(file))) << file;
    }
}

void TestSamples::loads()
{
    QFETCH(QString, file);
    QQmlPropertyMap document; // what the README's main.cpp makes
    document.insert(QStringLiteral("name"), QStringLiteral("Hello"));
    QQmlEngine engine;
    engine.rootContext()->setContextProperty(QStringLiteral("root"), &document);
    QQmlComponent component(&engine, QUrl::fromLocalFile(file));
    QVERIFY2(component.isReady(), qPrintable(component.errorString()));
    QScopedPointer<QObject> object(component.create());
    auto *item = qobject_cast<QQuickItem *>(object.data());
    QVERIFY2(item, qPrintable(component.errorString()));

    QQuickWindow window;
    window.resize(900, 600);
    item->setParentItem(window.contentItem());
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QVERIFY(!window.grabWindow().isNull());
    QCOMPARE(editedInVain(item).join(QStringLiteral(", ")), QString());
}

void TestSamples::cleanup()
{
    QCOMPARE(support::leftovers(), QString());
}

QTEST_MAIN(TestSamples)
#include "tst_samples.moc"
