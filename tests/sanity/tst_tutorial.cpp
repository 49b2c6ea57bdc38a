// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/DragEvents.h"
#include "tests/support/Gesture.h"
#include "tests/support/Items.h"
#include "tests/support/Leftovers.h"
#include "tests/support/QmlView.h"

#include <QTest>

#include <algorithm>

using namespace support;

/// Each step of the tutorial does what its page promises.
class TestTutorial : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void step1ShowsAWindow();
    void step2ShowsDocuments();
    void step3TakesFiles();
    void step4Renames();
    void step5MovesByDragging();
    void step6AsksAndDeletes();

private:
    void load(int step);
    QQuickItem *the(const char *type) const
    {
        return itemsOf(m_view->window()->contentItem(), type).value(0);
    }
    /// What can be read of the tree, from the first row to the last.
    QString rows() const;
    /// The text that is \a shown, wherever it is.
    QQuickItem *saying(const char *shown) const
    {
        return itemWith(m_view->window()->contentItem(), "text", QString::fromUtf8(shown));
    }
    void click(const QQuickItem *item, Qt::MouseButton button = Qt::LeftButton);
    void press(Qt::Key key) { QTest::keyClick(m_view->window(), key); }
    QVariant ask(const char *expression)
    {
        return evaluate(m_view->root(), QString::fromLatin1(expression));
    }

    std::unique_ptr<QmlView> m_view;
};

void TestTutorial::load(int step)
{
    m_view = std::make_unique<QmlView>();
    m_view->loadFile(qEnvironmentVariable("OMBREL_SOURCE_DIR")
                     + QStringLiteral("/docs/tutorial/step%1.qml").arg(step));
    m_view->show();
    QTRY_VERIFY(step == 1 || saying("Work"));
}

void TestTutorial::cleanup()
{
    m_view.reset();
    QCOMPARE(leftovers(), QString());
}

QString TestTutorial::rows() const
{
    QQuickItem *const tree = the("om::controls::TreeView");
    QStringList found;
    for (int i = 0;; ++i) {
        const QString name =
            evaluate(tree, QStringLiteral("documentAt(%1) ? documentAt(%1).name : ''").arg(i))
                .toString();
        if (name.isEmpty()) {
            return found.join(QStringLiteral(", "));
        }
        found.append(name);
    }
}

void TestTutorial::click(const QQuickItem *item, Qt::MouseButton button)
{
    QVERIFY(item);
    QTest::mouseClick(m_view->window(), button, {},
                      item->mapToScene(item->boundingRect().center()).toPoint());
}

void TestTutorial::step1ShowsAWindow()
{
    load(1);
    QVERIFY(saying("My documents"));
}

void TestTutorial::step2ShowsDocuments()
{
    load(2);
    QCOMPARE(rows(), QStringLiteral("My documents, Holiday, Beach, Hills, Work"));
    click(saying("Beach"));
    QQuickItem *const tree = the("om::controls::TreeView");
    QCOMPARE(evaluate(tree, QStringLiteral("activeDocument.name")).toString(),
             QStringLiteral("Beach"));
    // The triangle before a folder hides what is in it.
    const QQuickItem *const holiday = saying("Holiday");
    const QPointF left = holiday->mapToScene({-10, holiday->height() / 2});
    const qreal height = tree->implicitHeight();
    QTest::mouseClick(m_view->window(), Qt::LeftButton, {}, left.toPoint());
    QTRY_COMPARE(tree->implicitHeight(), height - 2 * 28);
}

void TestTutorial::step3TakesFiles()
{
    load(3);
    DragEvents drag(m_view->window());
    drag.setUrls({QUrl(QStringLiteral("file:///home/ann/My%20report.pdf")),
                  QUrl(QStringLiteral("file:///home/ann/notes.txt"))});
    QVERIFY(!the("om::controls::DashedBorder")->isVisible());
    drag.enter({100, 200});
    QVERIFY(the("om::controls::DashedBorder")->isVisible());
    drag.drop({100, 200});
    QVERIFY(!the("om::controls::DashedBorder")->isVisible());
    QTRY_COMPARE(
        rows(),
        QStringLiteral("My documents, Holiday, Beach, Hills, Work, My report.pdf, notes.txt"));
    QCOMPARE(ask("library.children[3].url").toUrl().fileName(), QStringLiteral("notes.txt"));
}

void TestTutorial::step4Renames()
{
    load(4);
    click(saying("Beach"));
    press(Qt::Key_F2);
    QTRY_VERIFY(the("om::controls::PropertyEditor"));
    for (const Qt::Key key : {Qt::Key_S, Qt::Key_E, Qt::Key_A}) {
        press(key);
    }
    press(Qt::Key_Return);
    QTRY_VERIFY(saying("sea"));
    QVERIFY(!ask("renaming").toBool());
    QTRY_VERIFY(!the("om::controls::PropertyEditor"));
    // The tree has the keys again; Escape, and a press elsewhere, leave the name as it was.
    for (const bool escape : {true, false}) {
        press(Qt::Key_F2);
        QTRY_VERIFY(the("om::controls::PropertyEditor"));
        press(Qt::Key_X);
        if (escape) {
            press(Qt::Key_Escape);
        } else {
            click(saying("Work"));
        }
        QTRY_VERIFY(!the("om::controls::PropertyEditor"));
        QVERIFY(saying("sea"));
    }
}

void TestTutorial::step5MovesByDragging()
{
    load(5);
    Gesture gesture;
    gesture
        .drag(
            positionIn(saying("Beach")), positionIn(saying("Work")),
            [this] {
                const auto zones = itemsOf(m_view->root(), "om::controls::DropZone");
                return std::any_of(zones.cbegin(), zones.cend(), [](const QQuickItem *zone) {
                    return zone->property("containsDrag").toBool();
                });
            },
            "the folder sees the document")
        .release()
        .until(
            [this] { return rows() == QLatin1String("My documents, Holiday, Hills, Work, Beach"); },
            "the document in its new folder");
    QVERIFY2(gesture.run(), gesture.error());
    // Files are taken as before.
    DragEvents drag(m_view->window());
    drag.setUrls({QUrl(QStringLiteral("file:///home/ann/notes.txt"))});
    drag.enter({100, 60});
    drag.drop({100, 60});
    QTRY_COMPARE(rows(), QStringLiteral("My documents, Holiday, Hills, Work, Beach, notes.txt"));
}

void TestTutorial::step6AsksAndDeletes()
{
    load(6);
    // The menu, and a change of mind.
    click(saying("Hills"), Qt::RightButton);
    QTRY_VERIFY(saying("Rename"));
    click(saying("Delete"));
    QTRY_VERIFY(saying("Delete “Hills”?"));
    press(Qt::Key_Escape);
    QVERIFY(!saying("Delete “Hills”?"));
    QTRY_VERIFY(!saying("Rename"));
    // The key, and an answer.
    press(Qt::Key_Delete);
    QTRY_VERIFY(saying("Delete “Hills”?"));
    press(Qt::Key_Return);
    QTRY_COMPARE(rows(), QStringLiteral("My documents, Holiday, Beach, Work"));
    // A folder goes with what is in it; what it is all in stays.
    click(saying("Holiday"));
    press(Qt::Key_Delete);
    click(saying("Delete"));
    QTRY_COMPARE(rows(), QStringLiteral("My documents, Work"));
    click(saying("My documents"));
    press(Qt::Key_Delete);
    QVERIFY(!the("om::controls::DialogItem")->property("open").toBool());
    // A press elsewhere closes the menu.
    click(saying("Work"), Qt::RightButton);
    QTRY_VERIFY(saying("Rename"));
    QTest::mouseClick(m_view->window(), Qt::LeftButton, {}, {400, 280});
    QTRY_VERIFY(!saying("Rename"));
    // Renaming is in the menu, too.
    click(saying("Work"), Qt::RightButton);
    QTRY_VERIFY(saying("Rename"));
    click(saying("Rename"));
    QTRY_VERIFY(the("om::controls::PropertyEditor"));
    press(Qt::Key_Escape);
}

QTEST_MAIN(TestTutorial)
#include "tst_tutorial.moc"
