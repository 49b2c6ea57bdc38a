// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include <OmbrelDataCore/Country.h>

#include <QLocale>
#include <QSet>
#include <QTest>

using om::data::Country;

class TestCountry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void code_data();
    void code();
    void everyTwoLetters();
    void agreesWithQtsLocales();
};

void TestCountry::code_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QLocale::Country>("country");

    QTest::newRow("capitals") << "DE" << QLocale::Germany;
    QTest::newRow("small letters") << "de" << QLocale::Germany;
    QTest::newRow("both, capital first") << "Us" << QLocale::UnitedStates;
    QTest::newRow("both, small first") << "jP" << QLocale::Japan;
    QTest::newRow("first of the table") << "AD" << QLocale::Andorra;
    QTest::newRow("last of the table") << "ZW" << QLocale::Zimbabwe;
    QTest::newRow("United Kingdom") << "GB" << QLocale::UnitedKingdom;
    QTest::newRow("without any locale: Antarctica") << "AQ" << QLocale::Antarctica;
    QTest::newRow("without any locale: Bouvet Island") << "BV" << QLocale::BouvetIsland;
    QTest::newRow("without any locale: Heard Island") << "hm" << QLocale::HeardAndMcDonaldIslands;
    QTest::newRow("without any locale: South Georgia")
        << "GS" << QLocale::SouthGeorgiaAndTheSouthSandwichIslands;

    QTest::newRow("null") << QString() << QLocale::AnyCountry;
    QTest::newRow("empty") << "" << QLocale::AnyCountry;
    QTest::newRow("one letter") << "D" << QLocale::AnyCountry;
    QTest::newRow("three letters") << "DEU" << QLocale::AnyCountry;
    QTest::newRow("with a blank") << "DE " << QLocale::AnyCountry;
    QTest::newRow("locale name") << "de_DE" << QLocale::AnyCountry;
    QTest::newRow("country name") << "Germany" << QLocale::AnyCountry;
    QTest::newRow("reserved, not assigned") << "UK" << QLocale::AnyCountry;
    QTest::newRow("Union") << "EU" << QLocale::AnyCountry;
    QTest::newRow("user-assigned") << "XK" << QLocale::AnyCountry;
    QTest::newRow("exceptionally reserved") << "IC" << QLocale::AnyCountry;
    QTest::newRow("digits") << "49" << QLocale::AnyCountry;
    QTest::newRow("below the table") << "AA" << QLocale::AnyCountry;
    QTest::newRow("above the table") << "ZZ" << QLocale::AnyCountry;
    QTest::newRow("sharp s, two letters when capitalised")
        << QString(QChar(0xdf)) << QLocale::AnyCountry;
    QTest::newRow("dotless i, an I when capitalised")
        << QString::fromUtf8("\u0131t") << QLocale::AnyCountry;
    QTest::newRow("full-width letters") << QString::fromUtf8("\uff24\uff25") << QLocale::AnyCountry;
    QTest::newRow("letters that end in the bytes of DE")
        << (QString(QChar(0x0144)) + QChar(0x0145)) << QLocale::AnyCountry;
}

void TestCountry::code()
{
    QFETCH(QString, code);
    QFETCH(QLocale::Country, country);
    QCOMPARE(Country::countryForCode(code), country);
}

// The standard assigns 249 codes, each to one country.
void TestCountry::everyTwoLetters()
{
    QSet<int> countries;
    int codes = 0;
    for (char first = 'A'; first <= 'Z'; ++first) {
        for (char second = 'A'; second <= 'Z'; ++second) {
            const QString code = QString(QLatin1Char(first)) + QLatin1Char(second);
            const QLocale::Country country = Country::countryForCode(code);
            QCOMPARE(Country::countryForCode(code.toLower()), country);
            if (country == QLocale::AnyCountry)
                continue;
            ++codes;
            countries.insert(country);
        }
    }
    QCOMPARE(codes, 249);
    QCOMPARE(countries.size(), 249);
}

// An independent reading of the same pairs: Qt names its locales "language_COUNTRY".
void TestCountry::agreesWithQtsLocales()
{
    // Codes that Qt uses beyond the standard's: regions, reserved and user-assigned ones.
    const QSet<QString> beyond{"AC", "CP", "DG", "EA", "EU", "IC", "TA", "XK"};
    const QList<QLocale> locales =
        QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyCountry);
    QSet<int> seen;
    for (const QLocale &locale : locales) {
        const QString code = locale.name().section(QLatin1Char('_'), 1, 1);
        if (code.size() != 2 || beyond.contains(code))
            continue;
        QVERIFY2(Country::countryForCode(code) == locale.country(),
                 qPrintable(code + " for " + QLocale::countryToString(locale.country())));
        seen.insert(locale.country());
    }
    QVERIFY2(seen.size() > 200, qPrintable(QString::number(seen.size())));
}

QTEST_APPLESS_MAIN(TestCountry)

#include "tst_country.moc"
