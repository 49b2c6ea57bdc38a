// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/tree/TreeFixture.h"

#include <QFile>
#include <QTest>

/// Which of Qt's image plugins a tree loads. A process of its own: plugins stay loaded.
class TestTreeImagePlugins : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rebuildLoadsThatOfTheHandle();
};

static QStringList loadedImagePlugins()
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    if (!maps.open(QIODevice::ReadOnly)) {
        return {};
    }
    QStringList names;
    const QList<QByteArray> lines = maps.readAll().split('\n');
    for (const QByteArray &line : lines) {
        const int folder = line.indexOf("/imageformats/");
        const QString name = QString::fromLocal8Bit(line.mid(line.lastIndexOf('/') + 1));
        if (folder >= 0 && !names.contains(name)) {
            names.append(name);
        }
    }
    return names;
}

/// Without rows: to read the first image, Qt Quick itself loads all plugins.
void TestTreeImagePlugins::rebuildLoadsThatOfTheHandle()
{
    if (!QFile::exists(QStringLiteral("/proc/self/maps"))) {
        QSKIP("Only Linux tells what a process has loaded");
    }
    QCOMPARE(loadedImagePlugins(), QStringList());
    TreeFixture f;
    f.append(nullptr);
    f.settle();
    QCOMPARE(f.rebuilt->count(), 1);
    QCOMPARE(loadedImagePlugins(), QStringList("libqsvg.so"));
}

QTEST_MAIN(TestTreeImagePlugins)
#include "tst_treeimageplugins.moc"
