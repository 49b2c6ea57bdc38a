// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QRegularExpression>
#include <QTest>

/// What Qt Creator's designer reads of the modules: each type that can be created is in its list,
/// with a name, a category and pictures that are there.
class TestDesigner : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void typeIsListed_data();
    void typeIsListed();
    void onlyTypesAreListed();

private:
    struct Entry
    {
        QString folder;
        QString text;
    };
    void read(const QString &file);

    /// By the type's name with its module's.
    QHash<QString, Entry> m_entries;
    QStringList m_types;
};

void TestDesigner::initTestCase()
{
    read(QStringLiteral("plugin/designer/ombrelcontrols.metainfo"));
    read(QStringLiteral("datacore/qml/designer/ombreldatacore.metainfo"));
    QVERIFY(m_entries.size() > 20);

    const QDir root(qEnvironmentVariable("OMBREL_SOURCE_DIR"));
    const QStringList descriptions = {QStringLiteral("types/ombrel.Controls.qmltypes"),
                                      QStringLiteral("types/ombrel.data.Core.qmltypes")};
    const QRegularExpression component(QStringLiteral("Component \\{(.*?)\\n    \\}"),
                                       QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpression exported(QStringLiteral("exports: \\[\"([\\w.]+)/(\\w+) 1\\.0\"\\]"));
    for (const QString &name : descriptions) {
        QFile file(root.filePath(name));
        QVERIFY2(file.open(QFile::ReadOnly), qPrintable(name));
        auto match = component.globalMatch(QString::fromUtf8(file.readAll()));
        while (match.hasNext()) {
            const QString text = match.next().captured(1);
            const auto type = exported.match(text);
            if (type.hasMatch() && !text.contains(QStringLiteral("isCreatable: false"))) {
                m_types.append(type.captured(1) + QLatin1Char('.') + type.captured(2));
            }
        }
    }
    QVERIFY(m_types.contains(QStringLiteral("ombrel.Controls.DropZone")));
    QVERIFY(m_types.contains(QStringLiteral("ombrel.Controls.Private.HueBox")));
    QVERIFY(m_types.contains(QStringLiteral("ombrel.data.Core.Document")));
}

void TestDesigner::read(const QString &name)
{
    QFile file(QDir(qEnvironmentVariable("OMBREL_SOURCE_DIR")).filePath(name));
    QVERIFY2(file.open(QFile::ReadOnly), qPrintable(name));
    const QRegularExpression type(
        QStringLiteral("\\n    Type \\{\\n        name: \"(.*?)\"(.*?)\\n    \\}"),
        QRegularExpression::DotMatchesEverythingOption);
    auto match = type.globalMatch(QString::fromUtf8(file.readAll()));
    while (match.hasNext()) {
        const auto entry = match.next();
        QVERIFY2(!m_entries.contains(entry.captured(1)), qPrintable(entry.captured(1)));
        m_entries.insert(entry.captured(1),
                         {QFileInfo(file).absolutePath() + QLatin1Char('/'), entry.captured(2)});
    }
}

void TestDesigner::typeIsListed_data()
{
    QTest::addColumn<QString>("type");
    for (const QString &type : qAsConst(m_types)) {
        QTest::newRow(qPrintable(type)) << type;
    }
}

void TestDesigner::typeIsListed()
{
    QFETCH(QString, type);
    QVERIFY(m_entries.contains(type));
    const Entry entry = m_entries.value(type);
    const auto value = [&entry](const char *property) {
        return QRegularExpression(
                   QStringLiteral("\\n +%1: \"(.+?)\"\\n").arg(QLatin1String(property)))
            .match(entry.text)
            .captured(1);
    };
    QVERIFY(!value("name").isEmpty());
    QVERIFY(value("category").startsWith(QStringLiteral("Ombrel - ")));
    QCOMPARE(value("version"), QStringLiteral("1.0"));
    QCOMPARE(value("requiredImport"), type.left(type.lastIndexOf(QLatin1Char('.'))));

    const QList<QPair<const char *, int>> pictures = {{"icon", 16}, {"libraryIcon", 24}};
    for (const auto &picture : pictures) {
        const QString file = entry.folder + value(picture.first);
        QCOMPARE(QImage(file).size(), QSize(picture.second, picture.second));
        const QString dense =
            QString(file).replace(QStringLiteral(".png"), QStringLiteral("@2x.png"));
        QCOMPARE(QImage(dense).size(), QSize(2 * picture.second, 2 * picture.second));
    }
}

void TestDesigner::onlyTypesAreListed()
{
    const QStringList listed = m_entries.keys();
    for (const QString &type : listed) {
        QVERIFY2(m_types.contains(type), qPrintable(type));
    }
}

QTEST_GUILESS_MAIN(TestDesigner)
#include "tst_designer.moc"
