// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/FolderTree.h"
#include "gallery/GalleryEngine.h"
#include "tests/gallery/GalleryWindow.h"
#include "tests/support/Items.h"
#include "tests/support/Leftovers.h"
#include "tests/support/Pixels.h"

#include <QCursor>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QRegularExpression>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>
#include <memory>

/// The page "kit" shows every part of the gallery's kit in every state; and what the QML of the
/// gallery names as distances and sizes of type is on the kit's grid and scale.
class TestKitPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void everyFileOfTheKitIsOnThePage_data();
    void everyFileOfTheKitIsOnThePage();
    void statesLookAsTheyAreSaidTo_data();
    void statesLookAsTheyAreSaidTo();
    void hoverLooksAsUnderThePointer_data();
    void hoverLooksAsUnderThePointer();
    void distancesAreOnTheGrid_data();
    void distancesAreOnTheGrid();
    void textsHaveSizesOfTheScale_data();
    void textsHaveSizesOfTheScale();

private:
    QList<QQuickItem *> specimensOf(const QString &name) const;
    QImage pictureOf(QQuickItem *item) const;

    QTemporaryDir m_folder;
    std::unique_ptr<om::gallery::FolderTree> m_tree;
    std::unique_ptr<QQmlApplicationEngine> m_engine;
    QQuickWindow *m_window = nullptr;
};

static QString qmlFolder()
{
    return qEnvironmentVariable("OMBREL_SOURCE_DIR") + QStringLiteral("/gallery/qml");
}

static QString contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// A row for each QML file of the gallery, named by its path.
static void addFiles()
{
    QTest::addColumn<QString>("file");
    QDirIterator it(qmlFolder(), {QStringLiteral("*.qml")}, QDir::Files,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        QTest::newRow(qPrintable(QDir(qmlFolder()).relativeFilePath(path))) << path;
    }
}

/// The place of each state's part in a specimen, by the state's name.
static QHash<QString, QQuickItem *> partsOf(QQuickItem *specimen)
{
    const QStringList states = specimen->property("states").toStringList();
    const QList<QQuickItem *> loaders = support::itemsOf(specimen, "QQuickLoader");
    QHash<QString, QQuickItem *> parts;
    int at = 0;
    for (QQuickItem *loader : loaders) {
        // The parts have loaders of their own.
        if (loader->parentItem()->parentItem()->parentItem() == specimen) {
            parts.insert(states.value(at++), loader);
        }
    }
    return parts;
}

QList<QQuickItem *> TestKitPage::specimensOf(const QString &name) const
{
    QList<QQuickItem *> found;
    const QList<QQuickItem *> all = support::itemsOf(m_window->contentItem(), "Specimen");
    for (QQuickItem *specimen : all) {
        if (specimen->property("of").toString().section(QLatin1Char(','), 0, 0) == name) {
            found.append(specimen);
        }
    }
    return found;
}

QImage TestKitPage::pictureOf(QQuickItem *item) const
{
    // With what is drawn around it.
    const QRectF place = item->mapRectToScene(item->boundingRect()).adjusted(-4, -4, 4, 4);
    return support::grab(m_window).copy(place.toAlignedRect());
}

void TestKitPage::initTestCase()
{
    m_tree = std::make_unique<om::gallery::FolderTree>(m_folder.path());
    m_engine = std::make_unique<QQmlApplicationEngine>();
    om::gallery::prepareEngine(m_engine.get(), m_tree.get());
    QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight());
    m_window = openGalleryWindow(m_engine.get(), "kit");
    QVERIFY(m_window);
    QTRY_VERIFY(m_window->property("pageHeight").toReal() > 2000);
    // All of the page at once.
    m_window->resize(1240, m_window->property("pageHeight").toInt());
    QTRY_COMPARE(int(m_window->contentItem()->height()), m_window->property("pageHeight").toInt());
}

void TestKitPage::cleanupTestCase()
{
    m_engine.reset();
    m_tree.reset();
    QCOMPARE(support::leftovers(), QString());
}

void TestKitPage::everyFileOfTheKitIsOnThePage_data()
{
    QTest::addColumn<QString>("type");
    const QStringList files =
        QDir(qmlFolder() + QStringLiteral("/kit")).entryList({QStringLiteral("*.qml")});
    QVERIFY(files.size() > 25);
    for (const QString &file : files) {
        QTest::newRow(qPrintable(file)) << QFileInfo(file).completeBaseName();
    }
}

void TestKitPage::everyFileOfTheKitIsOnThePage()
{
    QFETCH(QString, type);
    const QList<QQuickItem *> specimens = specimensOf(type);
    QVERIFY2(!specimens.isEmpty(), "the page has no Specimen of it");
    // These are seen in what others draw with them.
    if (type == QLatin1String("Palette") || type == QLatin1String("Theme")
        || type == QLatin1String("Step")) {
        return;
    }
    for (QQuickItem *specimen : specimens) {
        const QHash<QString, QQuickItem *> parts = partsOf(specimen);
        QCOMPARE(parts.size(), specimen->property("states").toStringList().size());
        for (QQuickItem *part : parts) {
            QVERIFY2(!support::itemsOf(part, qPrintable(type)).isEmpty(), qPrintable(type));
            QVERIFY(part->width() > 0 && part->height() > 0);
        }
    }
}

void TestKitPage::statesLookAsTheyAreSaidTo_data()
{
    QTest::addColumn<QString>("name");
    const QList<QQuickItem *> all = support::itemsOf(m_window->contentItem(), "Specimen");
    for (QQuickItem *specimen : all) {
        if (specimen->property("states").toStringList().size() > 1) {
            const QString name = specimen->property("of").toString();
            QTest::newRow(qPrintable(name)) << name;
        }
    }
}

/// No two states look alike: whatever a person does shows.
void TestKitPage::statesLookAsTheyAreSaidTo()
{
    QFETCH(QString, name);
    const QList<QQuickItem *> all = support::itemsOf(m_window->contentItem(), "Specimen");
    QQuickItem *specimen = nullptr;
    for (QQuickItem *other : all) {
        specimen = other->property("of").toString() == name ? other : specimen;
    }
    QVERIFY(specimen);
    QHash<QString, QImage> seen;
    const QHash<QString, QQuickItem *> parts = partsOf(specimen);
    for (auto part = parts.begin(); part != parts.end(); ++part) {
        const QImage picture = pictureOf(part.value());
        for (auto other = seen.begin(); other != seen.end(); ++other) {
            QVERIFY2(!support::imageError(picture, other.value(), 8).isEmpty(),
                     qPrintable(part.key() + QStringLiteral(" looks like ") + other.key()));
        }
        seen.insert(part.key(), picture);
    }
}

void TestKitPage::hoverLooksAsUnderThePointer_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QPoint>("place");
    QTest::newRow("Button") << "Button" << QPoint(20, 16);
    QTest::newRow("BoolEditor") << "BoolEditor" << QPoint(56, 18);
    QTest::newRow("ChoiceEditor") << "ChoiceEditor" << QPoint(100, 18);
    QTest::newRow("TextEditor") << "TextEditor" << QPoint(100, 18);
    QTest::newRow("Field") << "Field" << QPoint(40, 12);
}

/// What the page says is hover is what the pointer brings about.
void TestKitPage::hoverLooksAsUnderThePointer()
{
    QFETCH(QString, name);
    QFETCH(QPoint, place);
    const QHash<QString, QQuickItem *> parts = partsOf(specimensOf(name).value(0));
    const QImage said = pictureOf(parts.value(QStringLiteral("hover")));
    QQuickItem *const normal = parts.value(QStringLiteral("normal"));
    QVERIFY(!support::imageError(pictureOf(normal), said, 8).isEmpty());
    QTest::mouseMove(m_window, normal->mapToScene(place).toPoint());
    QTRY_COMPARE(support::imageError(pictureOf(normal), said, 8), QString());
    QTest::mouseMove(m_window, {1, 1});
}

void TestKitPage::distancesAreOnTheGrid_data()
{
    addFiles();
}

void TestKitPage::distancesAreOnTheGrid()
{
    QFETCH(QString, file);
    QString names = QStringLiteral("spacing|\\w*[mM]argins?|\\w*[pP]adding");
    // The kit sets the measure for what stands inside, too.
    if (file.contains(QLatin1String("/kit/"))) {
        names += QLatin1String("|x|y|width|height|implicitWidth|implicitHeight");
    }
    const QRegularExpression literal(
        QStringLiteral("\\b(%1): *(-?[0-9.]+)(?= *($|[;},]))").arg(names),
        QRegularExpression::MultilineOption);
    auto found = literal.globalMatch(contentOf(file));
    while (found.hasNext()) {
        const QRegularExpressionMatch match = found.next();
        const double value = match.captured(2).toDouble();
        // What is at most 2 is a line's width.
        QVERIFY2(std::abs(value) <= 2 || std::fmod(value, 4) == 0, qPrintable(match.captured()));
    }
}

void TestKitPage::textsHaveSizesOfTheScale_data()
{
    addFiles();
}

void TestKitPage::textsHaveSizesOfTheScale()
{
    QFETCH(QString, file);
    static const QRegularExpression literal(
        QStringLiteral("\\b(pixelSize|pointSize): *[^;}\\n]*\\b\\d[^;}\\n]*"));
    const QRegularExpressionMatch match = literal.match(contentOf(file));
    QVERIFY2(!match.hasMatch(), qPrintable(match.captured()));
}

QTEST_MAIN(TestKitPage)

#include "tst_kitpage.moc"
