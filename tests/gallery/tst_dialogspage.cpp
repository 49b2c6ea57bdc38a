// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Gesture.h"
#include "tests/support/Items.h"
#include "tests/support/Leftovers.h"
#include "tests/support/QmlView.h"

#include <QQmlContext>
#include <QTest>

using support::itemsOf;
using support::itemWith;
using support::positionIn;

namespace {

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

} // namespace

/// The page of dialogs, used by hand.
class TestDialogsPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void eachKindHasItsWordsAndButtons_data();
    void eachKindHasItsWordsAndButtons();
    void escapeClosesOneAfterTheOther();
    void focusGoesBackToWhatHadIt();
    void tabReachesAllOfTheDialogAndNothingElse();
    void returnTakesTheMainButton_data();
    void returnTakesTheMainButton();
    void manyDialogsStayInTheWindow();

private:
    QQuickItem *content() const { return m_view->window()->contentItem(); }
    QList<QQuickItem *> openDialogs() const;
    QQuickItem *button(QQuickItem *in, const char *name) const;
    /// Clicks the button \a name of the newest dialog, or of the page when none is open.
    void click(const char *name, int dialogsAfterwards);
    void press(Qt::Key key, const support::Gesture::Condition &outcome, const char *what);

    std::unique_ptr<support::QmlView> m_view;
};

void TestDialogsPage::init()
{
    m_view = std::make_unique<support::QmlView>();
    m_view->window()->setResizeMode(QQuickView::SizeRootObjectToView);
    m_view->window()->setGeometry(0, 0, 900, 600);
    m_view->loadFile(qEnvironmentVariable("OMBREL_SOURCE_DIR")
                     + text("/gallery/qml/pages/DialogsPage.qml"));
    m_view->show();
    // Beside everything: a click where the last test clicked would count as a double click.
    support::Gesture gesture;
    gesture.move(m_view->window()->mapToGlobal({898, 598})).press().release();
    QVERIFY2(gesture.run(), gesture.error());
}

void TestDialogsPage::cleanup()
{
    m_view.reset();
    QCOMPARE(support::leftovers(), QString());
}

QList<QQuickItem *> TestDialogsPage::openDialogs() const
{
    QList<QQuickItem *> open;
    const auto dialogs = itemsOf(content(), "DialogCard");
    for (QQuickItem *const dialog : dialogs) {
        if (dialog->property("open").toBool()) {
            open.append(dialog);
        }
    }
    return open;
}

QQuickItem *TestDialogsPage::button(QQuickItem *in, const char *name) const
{
    return in ? itemWith(in, "text", text(name)) : nullptr;
}

void TestDialogsPage::click(const char *name, int dialogsAfterwards)
{
    const auto open = openDialogs();
    QQuickItem *const where = open.isEmpty() ? m_view->root() : open.last();
    QTRY_VERIFY2(button(where, name), name);
    QQuickItem *const target = button(where, name);
    // Grids and columns lay out with the next frame, those around them with the one after that: a
    // new page's buttons move until some frames have changed nothing.
    QPoint place;
    for (int still = 0, frame = 0; still < 6 && frame < 100; ++frame) {
        QVERIFY(!m_view->window()->grabWindow().isNull());
        QCoreApplication::processEvents();
        still = positionIn(target) == place ? still + 1 : 0;
        place = positionIn(target);
    }
    support::Gesture gesture;
    gesture.move(place).press().release().until(
        [&] { return openDialogs().size() == dialogsAfterwards; }, name);
    QVERIFY2(gesture.run(), gesture.error());
    // Until it has faded out, and gone.
    QTRY_COMPARE(itemsOf(content(), "DialogCard").size(), dialogsAfterwards);
}

void TestDialogsPage::press(Qt::Key key, const support::Gesture::Condition &outcome,
                            const char *what)
{
    support::Gesture gesture;
    gesture.setPatience(2000);
    gesture.key(key).until(outcome, what);
    QVERIFY2(gesture.run(), gesture.error());
}

void TestDialogsPage::eachKindHasItsWordsAndButtons_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<bool>("hasField");
    QTest::newRow("a question") << "TypeNormal" << QStringList{"Question", "Cancel", "Save"}
                                << true;
    QTest::newRow("a warning") << "TypeWarning" << QStringList{"Warning", "Cancel", "Overwrite"}
                               << false;
    QTest::newRow("an error") << "TypeError" << QStringList{"Error", "Cancel", "Try again"}
                              << false;
    QTest::newRow("good news") << "TypeOk" << QStringList{"Done", "OK"} << false;
}

void TestDialogsPage::eachKindHasItsWordsAndButtons()
{
    QFETCH(QString, kind);
    QFETCH(QStringList, words);
    QFETCH(bool, hasField);
    click(kind.toUtf8().constData(), 1);
    QQuickItem *const dialog = openDialogs().constFirst();
    QTRY_VERIFY(dialog->isVisible());
    const QStringList shown = support::textsOn(dialog);
    for (const QString &word : qAsConst(words)) {
        QVERIFY2(shown.contains(word), qPrintable(word + " in " + shown.join('|')));
    }
    QCOMPARE(shown.contains("Cancel"), words.contains("Cancel"));
    int fields = 0;
    const auto candidates = itemsOf(dialog, "Field");
    for (const QQuickItem *const field : candidates) {
        fields += field->isVisible();
    }
    QCOMPARE(fields, hasField ? 1 : 0);
}

void TestDialogsPage::escapeClosesOneAfterTheOther()
{
    click("TypeNormal", 1);
    click("Another…", 2);
    click("Another…", 3);
    click("Another…", 4);
    for (int left = 3; left >= 0; --left) {
        press(
            Qt::Key_Escape, [&] { return openDialogs().size() == left; }, "one dialog less");
        QCOMPARE(openDialogs().size(), left);
    }
}

void TestDialogsPage::focusGoesBackToWhatHadIt()
{
    click("TypeNormal", 1);
    QQuickItem *const field = m_view->window()->activeFocusItem();
    QVERIFY(field && field->inherits("QQuickTextInput"));
    // The text that is typed next goes where it went before.
    click("Another…", 2);
    press(
        Qt::Key_Escape, [&] { return openDialogs().size() == 1; }, "one dialog less");
    QQuickItem *const back = m_view->window()->activeFocusItem();
    QVERIFY(back && openDialogs().constFirst()->isAncestorOf(back));
    press(
        Qt::Key_Escape, [&] { return openDialogs().isEmpty(); }, "no dialog");
    QTRY_VERIFY(m_view->window()->activeFocusItem());
    QCOMPARE(m_view->window()->activeFocusItem()->property("text").toString(), text("TypeNormal"));
    // So a key opens it again.
    press(
        Qt::Key_Space, [&] { return openDialogs().size() == 1; }, "the dialog");
}

void TestDialogsPage::tabReachesAllOfTheDialogAndNothingElse()
{
    click("TypeNormal", 1);
    QQuickItem *const dialog = openDialogs().constFirst();
    // Tab on an invisible item, with all others disabled, would have Qt search for ever.
    QVERIFY(dialog->isVisible());
    QSet<QQuickItem *> reached;
    for (int i = 0; i < 8; ++i) {
        QQuickItem *const before = m_view->window()->activeFocusItem();
        press(
            Qt::Key_Tab, [&] { return m_view->window()->activeFocusItem() != before; }, "the next");
        QQuickItem *const now = m_view->window()->activeFocusItem();
        QVERIFY(now && dialog->isAncestorOf(now));
        reached.insert(now);
    }
    QCOMPARE(reached.size(), 4); // the field and three buttons
}

void TestDialogsPage::returnTakesTheMainButton_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("noted");
    QTest::newRow("a question") << "TypeNormal"
                                << "accepted(\"Draft 1\") at level 1";
    QTest::newRow("a warning") << "TypeWarning"
                               << "accepted(\"Overwrite\") at level 1";
    QTest::newRow("an error") << "TypeError"
                              << "accepted(\"Try again\") at level 1";
    QTest::newRow("good news") << "TypeOk"
                               << "accepted(\"OK\") at level 1";
}

void TestDialogsPage::returnTakesTheMainButton()
{
    QFETCH(QString, kind);
    QFETCH(QString, noted);
    click(kind.toUtf8().constData(), 1);
    press(
        Qt::Key_Return, [&] { return openDialogs().isEmpty(); }, "the dialog to close");
    QVERIFY2(itemWith(m_view->root(), "text", noted),
             qPrintable(support::textsOn(m_view->root()).join('|')));
}

void TestDialogsPage::manyDialogsStayInTheWindow()
{
    m_view->window()->resize(592, 600);
    QTRY_COMPARE(m_view->root()->width(), 592.0);
    // Columns are laid out again with the next frame.
    QVERIFY(!m_view->window()->grabWindow().isNull());
    click("TypeOk", 1);
    for (int count = 2; count <= 6; ++count) {
        click("Another…", count);
    }
    const auto open = openDialogs();
    for (QQuickItem *const dialog : open) {
        QVERIFY(QRectF(0, 0, 592, 600).contains(dialog->mapRectToScene(dialog->boundingRect())));
    }
    for (int left = 5; left >= 0; --left) {
        press(
            Qt::Key_Escape, [&] { return openDialogs().size() == left; }, "one dialog less");
    }
}

QTEST_MAIN(TestDialogsPage)
#include "tst_dialogspage.moc"
