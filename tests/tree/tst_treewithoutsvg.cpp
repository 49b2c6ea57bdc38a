// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/tree/TreeFixture.h"

#include <QDir>
#include <QGuiApplication>
#include <QImageReader>
#include <QLibraryInfo>
#include <QTemporaryDir>
#include <QTest>

/// The tree where Qt's SVG image plugin is not installed.
class TestTreeWithoutSvg : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void oneWarningForAllRows();
    void plainHandleCollapses();
    void ownHandleNeedsNoPlugin();
};

static const char *const warning = ".*The SVG image plugin of Qt is missing; branch handles are "
                                   "plain";

/// Other image formats have to be readable, or the tests would pass without any image plugin.
void TestTreeWithoutSvg::initTestCase()
{
    const QList<QByteArray> formats = QImageReader::supportedImageFormats();
    QVERIFY(!formats.contains("svg"));
    QVERIFY(formats.contains("jpeg"));
}

/// Two rebuilds of many rows. The runner fails the test for every message beyond this one.
void TestTreeWithoutSvg::oneWarningForAllRows()
{
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QString::fromLatin1(warning)));
    TreeFixture f;
    f.fill();
    for (int i = 0; i < 50; ++i) {
        f.make("more", f.a);
    }
    TreeFixture::settle();
    QCOMPARE(f.rows().size(), 55);
    for (QQuickItem *row : f.rows()) {
        QVERIFY(row->property("branchHandleItem").value<QQuickItem *>());
    }
}

void TestTreeWithoutSvg::plainHandleCollapses()
{
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QString::fromLatin1(warning)));
    TreeFixture f(TreeFixture::plain("rootCanCollapse: true"));
    f.fill();
    f.view.show();
    auto *const handle = f.row(0)->property("branchHandleItem").value<QQuickItem *>();
    QVERIFY(handle);
    QCOMPARE(QSizeF(handle->width(), handle->height()), QSizeF(16, 16));
    QCOMPARE(handle->property("text").toString(), QString(QChar(0x2212)));
    QCOMPARE(f.row(0)->property("markerIndent").toInt(), 16);

    QTest::mouseClick(f.view.window(), Qt::LeftButton, {}, handle->mapToScene({8, 8}).toPoint());
    QCOMPARE(handle->property("text").toString(), QStringLiteral("+"));
    QCOMPARE(f.places(), QStringLiteral("0+30 30+0 30+0 30+0 30+30"));
}

/// A view with a branch handle of its own needs no SVG image, and logs no message.
void TestTreeWithoutSvg::ownHandleNeedsNoPlugin()
{
    TreeFixture f(TreeFixture::plain("branchHandleDelegate: Rectangle { width: 10; height: 10 }"));
    f.fill();
    QCOMPARE(f.row(0)->property("branchHandleItem").value<QQuickItem *>()->width(), 10.0);
}

/// Links to all plugins of Qt except the one, in \a folder.
static bool linkPluginsWithoutSvg(const QDir &folder)
{
    const QDir all(QLibraryInfo::location(QLibraryInfo::PluginsPath));
    const QFileInfoList kinds = all.entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QFileInfo &kind : kinds) {
        if (!folder.mkdir(kind.fileName())) {
            return false;
        }
        const QFileInfoList plugins = QDir(kind.filePath()).entryInfoList(QDir::Files);
        for (const QFileInfo &plugin : plugins) {
            if (!plugin.fileName().contains(QLatin1String("qsvg"))
                && !QFile::link(
                    plugin.filePath(),
                    folder.filePath(kind.fileName() + QLatin1Char('/') + plugin.fileName()))) {
                return false;
            }
        }
    }
    return !kinds.isEmpty();
}

int main(int argc, char **argv)
{
    const QTemporaryDir plugins;
    if (!plugins.isValid() || !linkPluginsWithoutSvg(QDir(plugins.path()))) {
        return 1;
    }
    QCoreApplication::setLibraryPaths({plugins.path()});
    QGuiApplication application(argc, argv);
    TestTreeWithoutSvg test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_treewithoutsvg.moc"
