// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Leftovers.h"
#include "tests/support/SignalRecorder.h"

#include <QColor>
#include <QMetaMethod>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QTest>

/// ColorMapper: what each update brings, and in which order it says so.
class TestColorMapper : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void startsWhite();
    void clamps_data();
    void clamps();
    void sequences_data();
    void sequences();
    void currentValueChangesNothing();
    void eachSignalComesWithItsNewValueAndOldOnesAfterIt();
    void hueOfGreySurvivesInHsv();
    void hueOfGreyIsLostInRgb();
    void hexKeepsAlphaEvenWithEightDigits();
    void hexThatIsNoColorIsStoredInvalid();
    void sameColorInAnotherModelIsAChange();
    void updateFromInsideEachSignal_data();
    void updateFromInsideEachSignal();
    void deletedInsideEachSignal_data();
    void deletedInsideEachSignal();

public Q_SLOTS:
    void deleteMapper() { m_mapper.reset(); }

private:
    void call(const char *method, const QVariant &argument);
    int view(const char *name) const { return m_mapper->property(name).toInt(); }
    QString views() const;

    QQmlEngine m_engine;
    QScopedPointer<QObject> m_mapper;
    QScopedPointer<support::SignalRecorder> m_recorder;
};

void TestColorMapper::init()
{
    QQmlComponent component(&m_engine);
    component.setData(
        "import ombrel.Controls 1.0\nimport ombrel.Controls.Private 1.0\nColorMapper {}", QUrl());
    m_mapper.reset(component.create());
    QVERIFY2(m_mapper, qPrintable(component.errorString()));
    m_recorder.reset(new support::SignalRecorder);
    m_recorder->watch(m_mapper.data(), QStringLiteral("m"));
}

void TestColorMapper::cleanup()
{
    m_recorder.reset();
    m_mapper.reset();
    QCOMPARE(support::leftovers(), QString());
}

void TestColorMapper::call(const char *method, const QVariant &argument)
{
    QVariant value = argument;
    if (qstrcmp(method, "updateHex") == 0) {
        QVERIFY(
            QMetaObject::invokeMethod(m_mapper.data(), method, Q_ARG(QString, value.toString())));
    } else if (qstrcmp(method, "updateColor") == 0) {
        QVERIFY(QMetaObject::invokeMethod(m_mapper.data(), method,
                                          Q_ARG(QColor, value.value<QColor>())));
    } else {
        QVERIFY(QMetaObject::invokeMethod(m_mapper.data(), method, Q_ARG(int, value.toInt())));
    }
}

QString TestColorMapper::views() const
{
    return QStringLiteral("%1 %2 %3 | %4 %5 %6 %7 | %8")
        .arg(view("hue"))
        .arg(view("saturation"))
        .arg(view("value"))
        .arg(view("red"))
        .arg(view("green"))
        .arg(view("blue"))
        .arg(view("alpha"))
        .arg(m_mapper->property("hex").toString());
}

void TestColorMapper::startsWhite()
{
    QCOMPARE(views(), QStringLiteral("0 0 255 | 255 255 255 255 | FFFFFF"));
    QCOMPARE(m_mapper->property("color").value<QColor>(), QColor(Qt::white));
    QVERIFY(!m_mapper->signalsBlocked());
}

void TestColorMapper::clamps_data()
{
    QTest::addColumn<QByteArray>("method");
    QTest::addColumn<int>("argument");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("expected");
    QTest::newRow("hue above") << QByteArray("updateHue") << 400 << QByteArray("hue") << 359;
    QTest::newRow("hue below") << QByteArray("updateHue") << -1 << QByteArray("hue") << 0;
    for (const char *name : {"Saturation", "Value", "Red", "Green", "Blue", "Alpha"}) {
        const QByteArray view = QByteArray(name).toLower();
        QTest::newRow(view + " above") << QByteArray("update") + name << 256 << view << 255;
        QTest::newRow(view + " below") << QByteArray("update") + name << -5 << view << 0;
        QTest::newRow(view + " far above") << QByteArray("update") + name << INT_MAX << view << 255;
        QTest::newRow(view + " far below") << QByteArray("update") + name << INT_MIN << view << 0;
    }
}

void TestColorMapper::clamps()
{
    QFETCH(QByteArray, method);
    QFETCH(int, argument);
    QFETCH(QByteArray, name);
    // From a colour in the middle, so that both ends are a change.
    call("updateColor", QColor::fromHsv(120, 100, 100, 100));
    call(method, argument);
    QTEST(view(name), "expected");
}

void TestColorMapper::sequences_data()
{
    QTest::addColumn<QColor>("start");
    QTest::addColumn<QByteArray>("method");
    QTest::addColumn<QVariant>("argument");
    QTest::addColumn<QString>("order");
    QTest::addColumn<QString>("views");
    const auto row = [](const char *name, const QColor &start, const char *method,
                        const QVariant &argument, const char *order, const char *views) {
        QTest::newRow(name) << start << QByteArray(method) << argument << QString::fromLatin1(order)
                            << QString::fromLatin1(views);
    };
    row("red turns orange by hex", Qt::red, "updateHex", QStringLiteral("ff8000"),
        "hue green hex color", "30 255 255 | 255 128 0 255 | FF8000");
    row("everything at once", QColor(10, 20, 30, 40), "updateColor", QColor(200, 100, 50, 60),
        "hue saturation value red green blue alpha hex color",
        "20 191 200 | 200 100 50 60 | C86432");
    row("alpha of an RGB colour", QColor(10, 20, 30), "updateAlpha", 128, "alpha color",
        "210 170 30 | 10 20 30 128 | 0A141E");
    row("hue", QColor::fromHsv(0, 255, 255), "updateHue", 120, "hue red green hex color",
        "120 255 255 | 0 255 0 255 | 00FF00");
    row("hue above the range", QColor::fromHsv(0, 255, 255), "updateHue", 400, "hue blue hex color",
        "359 255 255 | 255 0 4 255 | FF0004");
    row("saturation", QColor::fromHsv(0, 255, 255), "updateSaturation", 0,
        "saturation green blue hex color", "0 0 255 | 255 255 255 255 | FFFFFF");
    row("value", QColor::fromHsv(0, 255, 255), "updateValue", 0, "value red hex color",
        "0 255 0 | 0 0 0 255 | 000000");
    row("red below the range", QColor(255, 0, 0), "updateRed", -5, "saturation value red hex color",
        "0 0 0 | 0 0 0 255 | 000000");
    row("green", QColor(255, 0, 0), "updateGreen", 255, "hue green hex color",
        "60 255 255 | 255 255 0 255 | FFFF00");
    row("blue", QColor(0, 0, 0), "updateBlue", 255, "hue saturation value blue hex color",
        "240 255 255 | 0 0 255 255 | 0000FF");
    row("hue of a grey", QColor::fromHsv(0, 0, 128), "updateHue", 77, "hue color",
        "77 0 128 | 128 128 128 255 | 808080");
}

void TestColorMapper::sequences()
{
    QFETCH(QColor, start);
    QFETCH(QByteArray, method);
    QFETCH(QVariant, argument);
    QFETCH(QString, order);
    call("updateColor", start);
    m_recorder->take();
    call(method, argument);
    QStringList expected;
    const QStringList names = order.split(QLatin1Char(' '));
    for (const QString &name : names) {
        expected.append(QStringLiteral("m.%1Changed").arg(name));
    }
    QCOMPARE(m_recorder->take(), expected);
    QTEST(views(), "views");
}

void TestColorMapper::currentValueChangesNothing()
{
    const QColor color = QColor(200, 100, 50, 60);
    call("updateColor", color);
    m_recorder->take();
    for (const char *name : {"Hue", "Saturation", "Value", "Red", "Green", "Blue", "Alpha"}) {
        call(QByteArray("update") + name, view(QByteArray(name).toLower()));
    }
    call("updateHex", QStringLiteral("C86432"));
    call("updateColor", color);
    QCOMPARE(m_recorder->take(), QStringList());
}

void TestColorMapper::eachSignalComesWithItsNewValueAndOldOnesAfterIt()
{
    call("updateColor", QColor(10, 20, 30, 40)); // 210 170 30
    support::SignalRecorder recorder;
    recorder.watch(m_mapper.data(), QStringLiteral("m"), {}, [this] { return views(); });
    call("updateColor", QColor(200, 100, 50, 60)); // 20 191 200
    QCOMPARE(recorder.take(),
             (QStringList{QStringLiteral("m.hueChanged [20 170 30 | 10 20 30 40 | 0A141E]"),
                          QStringLiteral("m.saturationChanged [20 191 30 | 10 20 30 40 | 0A141E]"),
                          QStringLiteral("m.valueChanged [20 191 200 | 10 20 30 40 | 0A141E]"),
                          QStringLiteral("m.redChanged [20 191 200 | 200 20 30 40 | 0A141E]"),
                          QStringLiteral("m.greenChanged [20 191 200 | 200 100 30 40 | 0A141E]"),
                          QStringLiteral("m.blueChanged [20 191 200 | 200 100 50 40 | 0A141E]"),
                          QStringLiteral("m.alphaChanged [20 191 200 | 200 100 50 60 | 0A141E]"),
                          QStringLiteral("m.hexChanged [20 191 200 | 200 100 50 60 | C86432]"),
                          QStringLiteral("m.colorChanged [20 191 200 | 200 100 50 60 | C86432]")}));
}

void TestColorMapper::hueOfGreySurvivesInHsv()
{
    call("updateColor", QColor::fromHsv(0, 0, 128));
    call("updateHue", 200);
    call("updateValue", 90);
    QCOMPARE(view("hue"), 200);
    call("updateSaturation", 50);
    QCOMPARE(view("hue"), 200);
}

void TestColorMapper::hueOfGreyIsLostInRgb()
{
    call("updateColor", QColor::fromHsv(200, 0, 128));
    QCOMPARE(view("hue"), 200);
    call("updateAlpha", 100);
    QCOMPARE(view("hue"), 0);
}

void TestColorMapper::hexKeepsAlphaEvenWithEightDigits()
{
    call("updateAlpha", 77);
    call("updateHex", QStringLiteral("11FF8000"));
    QCOMPARE(views(), QStringLiteral("30 255 255 | 255 128 0 77 | FF8000"));
}

void TestColorMapper::hexThatIsNoColorIsStoredInvalid()
{
    call("updateColor", QColor(200, 100, 50, 60));
    m_recorder->take();
    call("updateHex", QStringLiteral("no colour"));
    QVERIFY(!m_mapper->property("color").value<QColor>().isValid());
    QCOMPARE(m_recorder->take().last(), QStringLiteral("m.colorChanged"));
    QCOMPARE(views(), QStringLiteral("0 0 0 | 0 0 0 60 | 000000"));
    // The same once more is the colour that it has.
    call("updateHex", QStringLiteral("nor this"));
    QCOMPARE(m_recorder->take(), QStringList());
    // From an invalid colour to a valid one.
    call("updateHex", QStringLiteral("0000FF"));
    QCOMPARE(views(), QStringLiteral("240 255 255 | 0 0 255 60 | 0000FF"));
}

void TestColorMapper::sameColorInAnotherModelIsAChange()
{
    call("updateColor", QColor(Qt::red));
    m_recorder->take();
    call("updateColor", QColor(Qt::red).toHsv());
    QCOMPARE(m_recorder->take(), QStringList{QStringLiteral("m.colorChanged")});
}

void TestColorMapper::updateFromInsideEachSignal_data()
{
    QTest::addColumn<QByteArray>("method");
    QTest::addColumn<QVariant>("argument");
    const std::pair<const char *, QVariant> updates[] = {{"updateHue", 120},
                                                         {"updateSaturation", 99},
                                                         {"updateValue", 88},
                                                         {"updateRed", 77},
                                                         {"updateGreen", 66},
                                                         {"updateBlue", 55},
                                                         {"updateAlpha", 44},
                                                         {"updateHex", QStringLiteral("123456")},
                                                         {"updateColor", QColor(9, 8, 7, 6)}};
    for (const auto &update : updates) {
        QTest::newRow(update.first) << QByteArray(update.first) << update.second;
    }
}

/// An update from inside any signal: afterwards all views are those of the last colour.
void TestColorMapper::updateFromInsideEachSignal()
{
    QFETCH(QByteArray, method);
    QFETCH(QVariant, argument);
    for (const char *signal :
         {"hue", "saturation", "value", "red", "green", "blue", "alpha", "hex", "color"}) {
        init();
        call("updateColor", QColor(10, 20, 30, 40));
        support::SignalRecorder reaction;
        bool reacted = false;
        reaction.watch(m_mapper.data(), QStringLiteral("m"),
                       {QString::fromLatin1(signal) + QStringLiteral("Changed")}, [&] {
                           if (!reacted) {
                               reacted = true;
                               call(method, argument);
                           }
                           return QString();
                       });
        m_recorder->take();
        call("updateColor", QColor(200, 100, 50, 60));
        QVERIFY2(reacted, signal);

        const auto color = m_mapper->property("color").value<QColor>();
        QString expected;
        {
            int h, s, v;
            color.getHsv(&h, &s, &v);
            expected = QStringLiteral("%1 %2 %3 | %4 %5 %6 %7 | %8")
                           .arg(qMax(0, h))
                           .arg(s)
                           .arg(v)
                           .arg(color.red())
                           .arg(color.green())
                           .arg(color.blue())
                           .arg(color.alpha())
                           .arg(color.name().mid(1).toUpper());
        }
        QCOMPARE(views(), expected);
        const QStringList order = m_recorder->take();
        QCOMPARE(order.last(), QStringLiteral("m.colorChanged"));
        cleanup();
    }
}

void TestColorMapper::deletedInsideEachSignal_data()
{
    updateFromInsideEachSignal_data();
}

/// A slot of the application may delete the mapper: nothing of it is touched afterwards.
void TestColorMapper::deletedInsideEachSignal()
{
    QFETCH(QByteArray, method);
    QFETCH(QVariant, argument);
    const QMetaObject *meta = m_mapper->metaObject();
    QStringList fatal;
    int signalCount = 0;
    for (int i = QObject::staticMetaObject.methodCount(); i < meta->methodCount(); ++i) {
        const QMetaMethod signal = meta->method(i);
        if (signal.methodType() != QMetaMethod::Signal) {
            continue;
        }
        ++signalCount;
        init();
        call("updateColor", QColor(10, 20, 30, 40));
        connect(m_mapper.data(), signal, this,
                metaObject()->method(metaObject()->indexOfSlot("deleteMapper()")));
        call(method, argument);
        if (!m_mapper) {
            fatal.append(QString::fromLatin1(signal.name()));
        }
    }
    QCOMPARE(signalCount, 9);
    QVERIFY2(fatal.contains(QStringLiteral("colorChanged")), "the update has changed nothing");
    if (method == "updateColor") {
        QCOMPARE(fatal.size(), signalCount);
    }
}

QTEST_MAIN(TestColorMapper)
#include "tst_colormapper.moc"
