// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Items.h"
#include "tests/support/Leftovers.h"
#include "tests/support/QmlView.h"

#include <QTest>

using support::itemsOf;
using support::itemWith;

/// The page of QR codes: what it says of texts and colours that make no readable code.
class TestQRCodesPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void textThatIsNoUrlIsSaid_data();
    void textThatIsNoUrlIsSaid();
    void coloursThatScannersCannotReadAreSaid_data();
    void coloursThatScannersCannotReadAreSaid();

private:
    QQuickItem *code() const { return itemsOf(m_view->root(), "om::controls::QRCode").value(0); }
    QQuickItem *field() const
    {
        return itemsOf(itemsOf(m_view->root(), "TextEditor").value(0), "Field").value(0);
    }
    QQuickItem *saying(const char *text) const
    {
        return itemWith(m_view->root(), "text", QString::fromLatin1(text));
    }

    std::unique_ptr<support::QmlView> m_view;
};

void TestQRCodesPage::init()
{
    m_view = std::make_unique<support::QmlView>();
    m_view->window()->setResizeMode(QQuickView::SizeRootObjectToView);
    m_view->window()->setGeometry(0, 0, 1000, 800);
    m_view->loadFile(qEnvironmentVariable("OMBREL_SOURCE_DIR")
                     + QStringLiteral("/gallery/qml/pages/QRCodesPage.qml"));
    m_view->show();
}

void TestQRCodesPage::cleanup()
{
    m_view.reset();
    QCOMPARE(support::leftovers(), QString());
}

void TestQRCodesPage::textThatIsNoUrlIsSaid_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("good");
    QTest::newRow("a url") << "https://example.org/a" << true;
    QTest::newRow("a url without its scheme") << "example.org" << true;
    QTest::newRow("another scheme") << "mailto:a@example.org" << true;
    QTest::newRow("an open bracket") << "http://[" << false;
    QTest::newRow("a host with a blank") << "https://exa mple.org" << false;
    QTest::newRow("a port beyond the last") << "http://a:99999999" << false;
    QTest::newRow("a scheme alone") << "https://" << false;
    QTest::newRow("a scheme that is none") << "1:x" << false;
    QTest::newRow("nothing") << "" << false;
}

void TestQRCodesPage::textThatIsNoUrlIsSaid()
{
    QFETCH(QString, text);
    QFETCH(bool, good);
    const char *said = "This is no url";
    QVERIFY(code()->isVisible() && !saying(said));
    field()->forceActiveFocus();
    QMetaObject::invokeMethod(field(), "selectAll");
    QTest::keyClick(m_view->window(), Qt::Key_Delete);
    for (const QChar &character : qAsConst(text)) {
        QTest::keyClick(m_view->window(), character.toLatin1());
    }
    QCOMPARE(field()->property("text").toString(), text);
    QCOMPARE(saying(said) != nullptr, !good);
    QCOMPARE(field()->property("valid").toBool(), good);
    // An old code is not left standing for a text that it does not say.
    QCOMPARE(code()->isVisible(), good);
    // Nor does leaving the field hide what is wrong with it.
    m_view->root()->forceActiveFocus();
    QCOMPARE(saying(said) != nullptr, !good);
    QCOMPARE(field()->property("text").toString(),
             good ? code()->property("url").toUrl().toString() : text);
    field()->forceActiveFocus();
    QTest::keyClick(m_view->window(), Qt::Key_A, Qt::ControlModifier);
    for (const char character : {'o', 'k'}) {
        QTest::keyClick(m_view->window(), character);
    }
    QVERIFY(code()->isVisible() && !saying(said));
    QCOMPARE(code()->property("url").toUrl(), QUrl(QStringLiteral("https://ok")));
}

void TestQRCodesPage::coloursThatScannersCannotReadAreSaid_data()
{
    QTest::addColumn<QColor>("dark");
    QTest::addColumn<QColor>("light");
    QTest::addColumn<QByteArray>("said");
    QTest::newRow("black on white") << QColor(Qt::black) << QColor(Qt::white) << QByteArray();
    QTest::newRow("dark blue on pale yellow")
        << QColor(0x10, 0x30, 0x70) << QColor(0xfa, 0xf3, 0xda) << QByteArray();
    QTest::newRow("exchanged") << QColor(Qt::white) << QColor(Qt::black)
                               << QByteArray("Scanners read nothing here: the modules are lighter "
                                             "than their ground");
    QTest::newRow("too close") << QColor(0xec, 0xd2, 0x84) << QColor(Qt::white)
                               << QByteArray("Scanners may read nothing here: the two colours are "
                                             "too close");
    QTest::newRow("equal") << QColor(Qt::black) << QColor(Qt::black)
                           << QByteArray("Scanners may read nothing here: the two colours are too "
                                         "close");
}

void TestQRCodesPage::coloursThatScannersCannotReadAreSaid()
{
    QFETCH(QColor, dark);
    QFETCH(QColor, light);
    QFETCH(QByteArray, said);
    code()->setProperty("darkColor", dark);
    code()->setProperty("lightColor", light);
    const QStringList texts = support::textsOn(m_view->root());
    const QStringList warnings = texts.filter(QStringLiteral("Scanners"));
    QCOMPARE(warnings.isEmpty(), said.isEmpty());
    if (!said.isEmpty()) {
        QCOMPARE(warnings.constFirst(), QString::fromLatin1(said));
    }
}

QTEST_MAIN(TestQRCodesPage)
#include "tst_qrcodespage.moc"
