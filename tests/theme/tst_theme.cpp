// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Leftovers.h"

#include <OmbrelDataCore/Country.h>

#include <QColor>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQmlExpression>
#include <QRawFont>
#include <QTest>

/// The singletons UI and Control, as QML sees them.
class TestTheme : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void palette_data();
    void palette();
    void paletteIsComplete();
    void menuEditorBackgroundIsTheWarningYellow();
    void alpha_data();
    void alpha();
    void outOfRangeColorIsInvalidWithItsAlpha_data();
    void outOfRangeColorIsInvalidWithItsAlpha();
    void fonts_data();
    void fonts();
    void currencySign_data();
    void currencySign();
    void currencyCodeWhenTheFontLacksTheSign();
    void currencyOfAnUnknownCountry();
    void edges();
    void familyForWeight_data();
    void familyForWeight();
    void familyFollowsTheApplicationsFont();

private:
    QVariant evaluate(const QString &expression);

    QQmlEngine m_engine;
    QScopedPointer<QObject> m_scope;
    QFont m_font;
};

static const struct
{
    const char *name;
    const char *color;
} colors[] = {
    {"PrimaryBase", "#FFFFFF"},
    {"SecondaryBase", "#70A9B8"},
    {"PrimaryHover", "#BCDDBF"},
    {"SecondaryHover", "#6AB7CC"},
    {"PrimaryPress", "#90C695"},
    {"SecondaryPress", "#40A1BB"},
    {"NoFocusSelection", "#A5B8A6"},
    {"PrimaryControlBorder", "#CCCCCC"},
    {"SecondaryControlBorder", "#90C695"},
    {"ControlBorderHover", "#BCDDBF"},
    {"ControlBorderPress", "#90C695"},
    {"DisabledBorder", "#DDDDDD"},
    {"PrimaryFocusBorder", "#8BC7D8"},
    {"SecondaryFocusBorder", "#6AA0AF"},
    {"PrimarySeparationLine", "#D8D7D1"},
    {"SecondarySeparationLine", "#EAE8E2"},
    {"TertiarySeparationLine", "#EBEBEB"},
    {"FocusSeparationLine", "#000000"},
    {"PrimaryTextColor", "#000000"},
    {"SecondaryTextColor", "#AAAAAE"},
    {"TertiaryTextColor", "#444444"},
    {"DisabledText", "#BBBBBB"},
    {"SelectedTextColor", "#FFFFFF"},
    {"TextSelection", "#90C695"},
    {"WarningBackground", "#ECD284"},
    {"DialogHeader", "#F6F6F6"},
    {"DialogHeaderText", "#555555"},
    {"DisabledButton", "#DDDDDD"},
    {"TabButtonBorder", "#8DD4C2"},
    {"TabActive", "#A3C5CC"},
    {"DisabledTabText", "#E3E4E5"},
    {"LinkBaseColor", "#40A1BB"},
    {"LinkPressColor", "#55C1DE"},
    {"LinkLineColor", "#40A1BB"},
    {"ScrollViewBorder", "#DDDDDD"},
    {"ScrollView", "#F8F7F5"},
    {"SearchBarDisabledText", "#D7D7D7"},
    {"NavigationBarBottom", "#90C695"},
    {"NavigationBarSeparators", "#CCCCCC"},
    {"PasswordAcceptable", "#E7C869"},
    {"PasswordInsecure", "#979790"},
    {"PasswordAlertArea", "#F6F6F6"},
    {"GroupHover", "#FBFBFA"},
    {"GroupActive", "#FBFAF9"},
    {"ThumbOverlayAndBorder", "#888888"},
    {"LanguagesOverlay", "#AAAAAA"},
    {"CheckBoxRadioButtonBorderPress", "#81B286"},
    {"CheckBoxRadioButtonBorderHover", "#9FC8A3"},
    {"CalendarIcon", "#ADADAD"},
    {"CalendarNavIcon", "#666666"},
    {"DropdownIndicatorIcon", "#666666"},
    {"MoreOptionsIcon", "#222222"},
    {"ProgressBarBackground", "#D8D7D1"},
    {"ImageBoxBackground", "#DDDDDD"},
    {"VideoBoxBackground", "#B5CDD2"},
    {"ThumbPreviewBackground", "#EDEDED"},
    {"AreaEditorBackground", "#F8F8F8"},
    {"MenuEditorBackground", "#ECD284"},
    {"NotificationBarBackground", "#ECD284"},
    {"NotificationText", "#333333"},
    {"LoadIndicator", "#40A1BB"},
    {"VideoProgressBarBackground", "#000000"},
    {"VideoProgressBarForeground", "#FFFFFF"},
    {"ToggleOff", "#D7D7D7"},
    {"ToggleOnDateRestricted", "#70A9B8"},
    {"ToggleOn", "#90C695"},
};

void TestTheme::initTestCase()
{
    m_font = QGuiApplication::font();
    QQmlComponent component(&m_engine);
    component.setData("import QtQml 2.12\nimport ombrel.Controls 1.0\n"
                      "QtObject { property QtObject ui: UI; property QtObject control: Control\n"
                      "function run(expression) { return eval(expression); } }",
                      QUrl());
    m_scope.reset(component.create());
    QVERIFY2(m_scope, qPrintable(component.errorString()));
}

void TestTheme::cleanup()
{
    QGuiApplication::setFont(m_font);
    QCOMPARE(support::leftovers(), QString());
}

QVariant TestTheme::evaluate(const QString &expression)
{
    QVariant result;
    if (!QMetaObject::invokeMethod(m_scope.data(), "run", Q_RETURN_ARG(QVariant, result),
                                   Q_ARG(QVariant, expression))) {
        qFatal("%s", qPrintable(expression));
    }
    return result;
}

void TestTheme::palette_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("expected");
    int number = 0;
    for (const auto &color : colors) {
        QTest::newRow(color.name) << number++ << QString::fromLatin1(color.color);
    }
}

void TestTheme::palette()
{
    QFETCH(int, number);
    QFETCH(QString, expected);
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    QCOMPARE(evaluate(QStringLiteral("UI.") + name).toInt(), number);
    const auto color = evaluate(QStringLiteral("UI.color(UI.%1)").arg(name)).value<QColor>();
    QVERIFY(color.isValid());
    QCOMPARE(color.name(QColor::HexArgb).toUpper(), QStringLiteral("#FF") + expected.mid(1));
}

void TestTheme::paletteIsComplete()
{
    const QMetaObject *meta = m_scope->property("ui").value<QObject *>()->metaObject();
    const QMetaEnum palette = meta->enumerator(meta->indexOfEnumerator("Color"));
    QCOMPARE(palette.keyCount(), 66);
    QCOMPARE(int(std::size(colors)), 66);
    const QMetaEnum fonts = meta->enumerator(meta->indexOfEnumerator("Font"));
    QCOMPARE(fonts.keyCount(), 2);
    QCOMPARE(fonts.keyToValue("PrimaryFont"), 0);
    QCOMPARE(fonts.keyToValue("SecondaryFont"), 1);
}

void TestTheme::menuEditorBackgroundIsTheWarningYellow()
{
    const auto color = [this](const char *name) {
        return evaluate(QStringLiteral("UI.color(UI.%1)").arg(QLatin1String(name))).value<QColor>();
    };
    QCOMPARE(color("MenuEditorBackground"), color("WarningBackground"));
    QVERIFY(color("MenuEditorBackground") != color("AreaEditorBackground"));
}

void TestTheme::alpha_data()
{
    QTest::addColumn<QString>("alpha");
    QTest::addColumn<int>("expected");
    QTest::newRow("half") << "0.5" << 128;
    QTest::newRow("none") << "0" << 0;
    QTest::newRow("full") << "1" << 255;
}

void TestTheme::alpha()
{
    QFETCH(QString, alpha);
    const auto color =
        evaluate(QStringLiteral("UI.color(UI.PrimaryBase, %1)").arg(alpha)).value<QColor>();
    QCOMPARE(color.rgb() & 0xffffff, 0xffffffu);
    QTEST(color.alpha(), "expected");
}

void TestTheme::outOfRangeColorIsInvalidWithItsAlpha_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<int>("alpha");
    QTest::newRow("one past the last") << "66" << 255;
    QTest::newRow("before the first") << "-1" << 255;
    QTest::newRow("past the last, half") << "66, 0.5" << 128;
    QTest::newRow("far out, none") << "-2147483648, 0" << 0;
}

void TestTheme::outOfRangeColorIsInvalidWithItsAlpha()
{
    QFETCH(QString, arguments);
    const auto color = evaluate(QStringLiteral("UI.color(%1)").arg(arguments)).value<QColor>();
    QVERIFY(!color.isValid());
    QTEST(color.alpha(), "alpha");
}

void TestTheme::fonts_data()
{
    QTest::addColumn<QString>("font");
    QTest::addColumn<QString>("family");
    QTest::addColumn<int>("weight");
    QTest::newRow("primary") << "UI.PrimaryFont"
                             << "Om_Lato" << 25;
    QTest::newRow("secondary") << "UI.SecondaryFont"
                               << "Om_Lato" << 50;
    QTest::newRow("no such font") << "7"
                                  << "" << 50;
    QTest::newRow("negative") << "-1"
                              << "" << 50;
}

void TestTheme::fonts()
{
    QFETCH(QString, font);
    QTEST(evaluate(QStringLiteral("UI.fontFamily(%1)").arg(font)).toString(), "family");
    QTEST(evaluate(QStringLiteral("UI.fontWeight(%1)").arg(font)).toInt(), "weight");
}

void TestTheme::currencySign_data()
{
    QTest::addColumn<QString>("country");
    QTest::addColumn<QString>("expected");
    QTest::newRow("dollar, in every font") << "US"
                                           << "$";
    QTest::newRow("small letters") << "us"
                                   << "$";
    QTest::newRow("euro") << "DE" << QString(QChar(0x20ac));
}

void TestTheme::currencySign()
{
    QFETCH(QString, country);
    QFETCH(QString, expected);
    const QString family = QFontDatabase::systemFont(QFontDatabase::GeneralFont).family();
    if (!QRawFont::fromFont(QFont(family)).supportsCharacter(expected.at(0))) {
        QSKIP("The system's font lacks the sign: nothing to see here");
    }
    QCOMPARE(
        evaluate(QStringLiteral("UI.currencyString('%1', '%2')").arg(country, family)).toString(),
        expected);
}

/// No font has every sign; which lacks which depends on what is installed, so pairs are looked for.
void TestTheme::currencyCodeWhenTheFontLacksTheSign()
{
    const std::pair<const char *, const char *> countries[] = {
        {"GE", "GEL"}, {"KZ", "KZT"}, {"AZ", "AZN"}, {"IN", "INR"}, {"NG", "NGN"},
        {"TH", "THB"}, {"RU", "RUB"}, {"AM", "AMD"}, {"BD", "BDT"}, {"IR", "IRR"}};
    int lacking = 0;
    const QStringList families = QFontDatabase().families();
    for (const QString &family : families) {
        const QRawFont font = QRawFont::fromFont(QFont(family));
        for (const auto &country : countries) {
            const QLocale::Country number =
                om::data::Country::countryForCode(QLatin1String(country.first));
            const QString sign = QLocale(QLocale::AnyLanguage, number).currencySymbol();
            bool drawable = true;
            for (const QChar character : sign) {
                drawable = drawable && font.supportsCharacter(character);
            }
            lacking += drawable ? 0 : 1;
            QCOMPARE(evaluate(QStringLiteral("UI.currencyString('%1', '%2')")
                                  .arg(QLatin1String(country.first), family))
                         .toString(),
                     drawable ? sign : QString::fromLatin1(country.second));
        }
    }
    if (lacking == 0) {
        QSKIP("Every installed font has every sign");
    }
}

/// No country has no currency: neither a sign nor a code.
void TestTheme::currencyOfAnUnknownCountry()
{
    QCOMPARE(evaluate(QStringLiteral("UI.currencyString('nowhere', 'serif')")),
             QVariant(QString()));
}

void TestTheme::edges()
{
    QCOMPARE(evaluate(QStringLiteral("[Control.LeftEdge, Control.TopEdge, Control.RightEdge, "
                                     "Control.BottomEdge].join()"))
                 .toString(),
             QStringLiteral("1,2,3,4"));
    const QMetaObject *meta = m_scope->property("control").value<QObject *>()->metaObject();
    const QMetaEnum edge = meta->enumerator(meta->indexOfEnumerator("Edge"));
    QCOMPARE(edge.keyCount(), 4);
    QVERIFY(!edge.valueToKey(0));
}

void TestTheme::familyForWeight_data()
{
    QTest::addColumn<int>("weight");
    QTest::addColumn<QString>("suffix");
    QTest::newRow("light") << 25 << " Light";
    QTest::newRow("demi-bold") << 63 << " Semibold";
    QTest::newRow("black") << 87 << " Black";
    QTest::newRow("normal") << 50 << "";
    QTest::newRow("medium") << 57 << "";
    QTest::newRow("bold") << 75 << "";
    QTest::newRow("none") << 0 << "";
    QTest::newRow("negative") << -25 << "";
    QTest::newRow("next to light") << 26 << "";
}

void TestTheme::familyForWeight()
{
    QFETCH(int, weight);
    QFETCH(QString, suffix);
    QGuiApplication::setFont(QFont(QStringLiteral("Om_Lato")));
    QCOMPARE(evaluate(QStringLiteral("Control.fontFamilyForWeight(%1)").arg(weight)).toString(),
             QStringLiteral("Om_Lato") + suffix);
}

void TestTheme::familyFollowsTheApplicationsFont()
{
    QGuiApplication::setFont(QFont(QStringLiteral("First")));
    QCOMPARE(evaluate(QStringLiteral("Control.fontFamilyForWeight(25)")).toString(),
             QStringLiteral("First Light"));
    QGuiApplication::setFont(QFont(QStringLiteral("Second")));
    QCOMPARE(evaluate(QStringLiteral("Control.fontFamilyForWeight(25)")).toString(),
             QStringLiteral("Second Light"));
}

QTEST_MAIN(TestTheme)
#include "tst_theme.moc"
