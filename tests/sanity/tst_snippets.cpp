// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Leftovers.h"

#include <QDir>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

/// Each example of the reference runs as it stands. A warning fails the test by way of run-test.
class TestSnippets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void loads_data();
    void loads();
    void cleanup();
};

void TestSnippets::loads_data()
{
    QTest::addColumn<QString>("file");
    const QDir folder(qEnvironmentVariable("OMBREL_SOURCE_DIR") + QStringLiteral("/docs/snippets"));
    const auto files = folder.entryInfoList({QStringLiteral("*.qml")}, QDir::Files);
    QVERIFY(!files.isEmpty());
    for (const QFileInfo &file : files) {
        QTest::newRow(qPrintable(file.completeBaseName())) << file.absoluteFilePath();
    }
}

void TestSnippets::loads()
{
    QFETCH(QString, file);
    QQmlEngine engine;
    QQmlComponent component(&engine, QUrl::fromLocalFile(file));
    QVERIFY2(component.isReady(), qPrintable(component.errorString()));
    QScopedPointer<QObject> object(component.create());
    QVERIFY2(object, qPrintable(component.errorString()));

    auto *window = qobject_cast<QQuickWindow *>(object.data());
    QScopedPointer<QQuickWindow> shell;
    if (auto *item = qobject_cast<QQuickItem *>(object.data())) {
        QVERIFY2(item->width() > 0 && item->height() > 0, "an example has a size to be seen at");
        shell.reset(new QQuickWindow);
        shell->resize(int(item->width()), int(item->height()));
        item->setParentItem(shell->contentItem());
        window = shell.data();
    }
    QVERIFY(window);
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window));
    QVERIFY(!window->grabWindow().isNull());
    if (shell) {
        object.reset();
    }
}

void TestSnippets::cleanup()
{
    QCOMPARE(support::leftovers(), QString());
}

QTEST_MAIN(TestSnippets)
#include "tst_snippets.moc"
