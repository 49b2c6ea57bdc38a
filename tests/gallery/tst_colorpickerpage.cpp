// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Items.h"
#include "tests/support/Leftovers.h"
#include "tests/support/QmlView.h"
#include "tests/support/Text.h"

#include <QTest>

using support::text;

/// The colour picker of the gallery, used by hand: fields, strips, square, swatches and buttons.
class TestColorPickerPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void typingIntoAField_data();
    void typingIntoAField();
    void arrowKeysInAField();
    void aFieldClampsToItsLargestValue();
    void hexWaitsForSixDigitsOrReturn();
    void whatIsNoColorIsNotTaken();
    void pressingInTheSquare();
    void arrowKeysInTheSquare();
    void draggingInTheStrips();
    void greyKeepsTheHue();
    void swatchKeepsTheAlpha();
    void takenColorCanBeRestored();

private:
    QColor color() const { return m_picker->property("color").value<QColor>(); }
    /// The field under the label \a name.
    QQuickItem *field(const QString &name) const;
    QString shown(const char *name) const { return field(text(name))->property("text").toString(); }
    /// Nothing when every field shows its part of \a expected, else the first that does not.
    QString outOfStep(const QColor &expected) const;
    /// Clicks into the field \a name, replaces what it holds by \a typed.
    void type(const QString &name, const QString &typed);
    void click(const QQuickItem *item, qreal x, qreal y);
    void drag(const QQuickItem *item, const QPointF &from, const QPointF &to);
    QPoint inWindow(const QQuickItem *item, qreal x, qreal y) const
    {
        return item->mapToScene({x, y}).toPoint();
    }

    std::unique_ptr<support::QmlView> m_view;
    QQuickItem *m_picker = nullptr;
    QQuickItem *m_square = nullptr;
    QQuickItem *m_hueStrip = nullptr;
    QQuickItem *m_alphaStrip = nullptr;
};

void TestColorPickerPage::init()
{
    m_view = std::make_unique<support::QmlView>();
    m_view->window()->setResizeMode(QQuickView::SizeRootObjectToView);
    m_view->window()->setGeometry(0, 0, 900, 700);
    m_view->loadFile(qEnvironmentVariable("OMBREL_SOURCE_DIR")
                     + text("/gallery/qml/pages/ColorPickerPage.qml"));
    m_view->show();
    m_picker = support::itemWith(m_view->root(), "previous", QColor(text("#40A1BB")));
    QVERIFY(m_picker);
    m_square = m_hueStrip = m_alphaStrip = nullptr;
    // Some stand in a stop of Tab.
    QList<QQuickItem *> parts;
    const auto children = m_picker->childItems();
    for (QQuickItem *child : children) {
        parts += child;
        parts += child->childItems();
    }
    for (QQuickItem *part : qAsConst(parts)) {
        const QByteArray type = part->metaObject()->className();
        QQuickItem **place = type.contains("SaturationValueBox") ? &m_square
            : type.contains("HueBox")                            ? &m_hueStrip
            : type.contains("CheckerBox")                        ? &m_alphaStrip
                                                                 : nullptr;
        if (place && !*place) {
            *place = part;
        }
    }
    QVERIFY(m_square && m_hueStrip && m_alphaStrip);
    QCOMPARE(color(), QColor(text("#40A1BB")));
    QCOMPARE(outOfStep(color()), QString());
}

void TestColorPickerPage::cleanup()
{
    m_view.reset();
    QCOMPARE(support::leftovers(), QString());
}

QQuickItem *TestColorPickerPage::field(const QString &name) const
{
    const QQuickItem *label = support::itemWith(m_picker, "text", name);
    // The label and its field share a parent; a field takes the focus.
    const auto items = label->parentItem()->childItems();
    for (QQuickItem *item : items) {
        if (item->activeFocusOnTab()) {
            return item;
        }
    }
    return nullptr;
}

QString TestColorPickerPage::outOfStep(const QColor &expected) const
{
    const QColor rgb = expected.toRgb();
    const QColor hsv = expected.toHsv();
    const std::pair<const char *, QString> parts[] = {
        {"Hue", QString::number(qMax(0, hsv.hsvHue()))},
        {"Saturation", QString::number(hsv.hsvSaturation())},
        {"Value", QString::number(hsv.value())},
        {"Red", QString::number(rgb.red())},
        {"Green", QString::number(rgb.green())},
        {"Blue", QString::number(rgb.blue())},
        {"Alpha", QString::number(rgb.alpha())},
        {"Hex", rgb.name().mid(1).toUpper()}};
    for (const auto &part : parts) {
        if (shown(part.first) != part.second) {
            return text("%1 shows %2 for %3").arg(text(part.first), shown(part.first), part.second);
        }
    }
    return {};
}

void TestColorPickerPage::type(const QString &name, const QString &typed)
{
    click(field(name), 20, 14);
    QTest::keyClick(m_view->window(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(m_view->window(), Qt::Key_Backspace);
    for (const QChar character : typed) {
        QTest::keyClick(m_view->window(), character.toLatin1());
    }
}

void TestColorPickerPage::click(const QQuickItem *item, qreal x, qreal y)
{
    QTest::mouseClick(m_view->window(), Qt::LeftButton, {}, inWindow(item, x, y));
}

void TestColorPickerPage::drag(const QQuickItem *item, const QPointF &from, const QPointF &to)
{
    QTest::mousePress(m_view->window(), Qt::LeftButton, {}, inWindow(item, from.x(), from.y()));
    const QPointF between = (from + to) / 2;
    QTest::mouseMove(m_view->window(), inWindow(item, between.x(), between.y()));
    QTest::mouseMove(m_view->window(), inWindow(item, to.x(), to.y()));
    QTest::mouseRelease(m_view->window(), Qt::LeftButton, {}, inWindow(item, to.x(), to.y()));
}

void TestColorPickerPage::typingIntoAField_data()
{
    const QColor before(text("#40A1BB"));
    const int hue = before.hsvHue();
    const int saturation = before.hsvSaturation();
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QColor>("expected");
    const auto row = [](const char *name, const char *typed, const QColor &expected) {
        QTest::newRow(name) << text(name) << text(typed) << expected;
    };
    row("Hue", "300", QColor::fromHsv(300, saturation, before.value()));
    row("Saturation", "255", QColor::fromHsv(hue, 255, before.value()));
    row("Value", "80", QColor::fromHsv(hue, saturation, 80));
    row("Red", "250", QColor(250, 161, 187));
    row("Green", "7", QColor(64, 7, 187));
    row("Blue", "0", QColor(64, 161, 0));
    row("Alpha", "128", QColor(64, 161, 187, 128));
    row("Hex", "ff8000", QColor(255, 128, 0));
}

void TestColorPickerPage::typingIntoAField()
{
    QFETCH(QString, name);
    QFETCH(QString, typed);
    QFETCH(QColor, expected);
    type(name, typed);
    QCOMPARE(color().rgba(), expected.rgba());
    // The edited field shows what was typed until it is left, the others are in step at once.
    QCOMPARE(field(name)->property("text").toString(), typed);
    click(field(name == text("Red") ? text("Blue") : text("Red")), 20, 14);
    QCOMPARE(outOfStep(color()), QString());
    QCOMPARE(m_square->property("hue").toInt(), color().toHsv().hsvHue());
    QCOMPARE(m_hueStrip->property("hue").toInt(), color().toHsv().hsvHue());
    QCOMPARE(m_square->property("saturation").toInt(), color().toHsv().hsvSaturation());
    QCOMPARE(m_square->property("value").toInt(), color().toHsv().value());
}

void TestColorPickerPage::arrowKeysInAField()
{
    click(field(text("Green")), 20, 14);
    QTest::keyClick(m_view->window(), Qt::Key_Up);
    QCOMPARE(color(), QColor(64, 162, 187));
    QCOMPARE(outOfStep(color()), QString());
    QTest::keyClick(m_view->window(), Qt::Key_Down);
    QTest::keyClick(m_view->window(), Qt::Key_Down);
    QCOMPARE(color(), QColor(64, 160, 187));
    QCOMPARE(outOfStep(color()), QString());
}

void TestColorPickerPage::aFieldClampsToItsLargestValue()
{
    type(text("Red"), text("999"));
    QCOMPARE(color().red(), 99);
    QVERIFY(!field(text("Red"))->property("valid").toBool());
    // Left, it shows what was taken.
    click(field(text("Hue")), 20, 14);
    QCOMPARE(shown("Red"), text("99"));
    QVERIFY(field(text("Red"))->property("valid").toBool());
    type(text("Hue"), text("360"));
    QCOMPARE(color().toHsv().hsvHue(), 36);
    QTest::keyClick(m_view->window(), Qt::Key_Backspace);
    QVERIFY(field(text("Hue"))->property("valid").toBool());
    QCOMPARE(shown("Hue"), text("36"));
}

void TestColorPickerPage::hexWaitsForSixDigitsOrReturn()
{
    type(text("Hex"), text("abc"));
    QCOMPARE(color(), QColor(text("#40A1BB")));
    QTest::keyClick(m_view->window(), Qt::Key_Return);
    QCOMPARE(color(), QColor(text("#AABBCC")));
    QCOMPARE(outOfStep(color()), QString());
    type(text("Hex"), text("123456"));
    QCOMPARE(color(), QColor(text("#123456")));
}

void TestColorPickerPage::whatIsNoColorIsNotTaken()
{
    type(text("Hex"), text("xyz12"));
    QCOMPARE(shown("Hex"), text("12"));
    QTest::keyClick(m_view->window(), Qt::Key_Return);
    QCOMPARE(color(), QColor(text("#40A1BB")));
    // Left, the field shows the colour again.
    click(field(text("Red")), 20, 14);
    QCOMPARE(outOfStep(color()), QString());
}

void TestColorPickerPage::pressingInTheSquare()
{
    const int hue = color().hsvHue();
    drag(m_square, {10, 10}, {m_square->width() / 2, m_square->height() / 4});
    QCOMPARE(color(), QColor::fromHsv(hue, qRound(0.75 * 255), qRound(0.5 * 255)));
    QCOMPARE(outOfStep(color()), QString());
    // Outside, the values stay at the edge.
    drag(m_square, {10, 10}, {m_square->width() + 15, -15});
    QCOMPARE(color(), QColor::fromHsv(hue, 255, 255));
}

void TestColorPickerPage::arrowKeysInTheSquare()
{
    click(m_square, m_square->width() / 2, m_square->height() / 2);
    const QColor middle = color();
    QTest::keyClick(m_view->window(), Qt::Key_Right);
    QTest::keyClick(m_view->window(), Qt::Key_Up);
    QTest::keyClick(m_view->window(), Qt::Key_Up);
    QCOMPARE(color(),
             QColor::fromHsv(middle.hsvHue(), middle.hsvSaturation() + 2, middle.value() + 1));
    QCOMPARE(outOfStep(color()), QString());
}

void TestColorPickerPage::draggingInTheStrips()
{
    const QColor before = color();
    drag(m_hueStrip, {20, 8}, {m_hueStrip->width() / 4, 8});
    QCOMPARE(color(), QColor::fromHsv(qRound(0.25 * 359), before.hsvSaturation(), before.value()));
    QCOMPARE(outOfStep(color()), QString());
    drag(m_alphaStrip, {300, 8}, {m_alphaStrip->width() / 5, 8});
    QCOMPARE(color().alpha(), 51);
    QCOMPARE(outOfStep(color()), QString());
    drag(m_alphaStrip, {300, 8}, {-15, 8});
    QCOMPARE(color().alpha(), 0);
}

void TestColorPickerPage::greyKeepsTheHue()
{
    const int hue = color().hsvHue();
    type(text("Saturation"), text("0"));
    QCOMPARE(color().rgb(), qRgb(187, 187, 187));
    type(text("Saturation"), text("200"));
    QCOMPARE(color(), QColor::fromHsv(hue, 200, 187));
}

void TestColorPickerPage::swatchKeepsTheAlpha()
{
    type(text("Alpha"), text("90"));
    const QQuickItem *label = support::itemWith(m_picker, "text", text("From the palette"));
    const QQuickItem *swatch = label->parentItem()->childItems().at(1)->childItems().at(2);
    QColor expected = swatch->property("color").value<QColor>();
    click(swatch, 12, 12);
    QVERIFY(expected.rgb() != QColor(text("#40A1BB")).rgb());
    expected.setAlpha(90);
    QCOMPARE(color().rgba(), expected.rgba());
    click(field(text("Red")), 20, 14);
    QCOMPARE(outOfStep(color()), QString());
}

void TestColorPickerPage::takenColorCanBeRestored()
{
    type(text("Red"), text("9"));
    click(support::itemWith(m_picker, "text", text("Back")), 10, 10);
    QCOMPARE(color(), QColor(text("#40A1BB")));
    type(text("Red"), text("9"));
    click(support::itemWith(m_picker, "text", text("Take")), 10, 10);
    QCOMPARE(m_picker->property("previous").value<QColor>(), QColor(9, 161, 187));
    type(text("Red"), text("200"));
    click(support::itemWith(m_picker, "text", text("Back")), 10, 10);
    QCOMPARE(color(), QColor(9, 161, 187));
    QCOMPARE(shown("Red"), text("9"));
}

QTEST_MAIN(TestColorPickerPage)

#include "tst_colorpickerpage.moc"
