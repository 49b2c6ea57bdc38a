// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Leftovers.h"
#include "tests/support/QmlView.h"
#include "tests/support/SignalRecorder.h"
#include "tests/support/SignalTrap.h"
#include "tests/support/Text.h"

#include <QColor>
#include <QPointer>
#include <QQmlComponent>
#include <QTest>

using support::text;

/// The order in which the parts of a colour picker do what they do, with what holds in between.
class TestPickerOrder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void mapperDerivesOneViewAfterTheOther();
    void hueIsToldBeforeTheSliderMoves();
    void sliderDelegateChanges();
    void markersMoveBeforeTheSizeIsTold();
    void newCrossHairStandsWhereASliderWouldFirst();
    void movesSetTheValueBeforeTheSaturation();
};

void TestPickerOrder::cleanup()
{
    QCOMPARE(support::leftovers(), QString());
}

static QStringList lines(const char *latin1)
{
    return text(latin1).split(QStringLiteral(", "));
}

/// The colour is new before the first view is; each view is told before the next is written.
void TestPickerOrder::mapperDerivesOneViewAfterTheOther()
{
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData("import ombrel.Controls 1.0\nimport ombrel.Controls.Private 1.0\n"
                      "ColorMapper {}",
                      QUrl());
    const std::unique_ptr<QObject> mapper(component.create());
    QVERIFY2(mapper, qPrintable(component.errorString()));
    support::SignalRecorder recorder;
    recorder.watch(mapper.get(), QStringLiteral("m"));
    recorder.follow(mapper.get(), QStringLiteral("m"), {QStringLiteral("color")});
    recorder.follow(mapper.get(), QStringLiteral("m"),
                    lines("hue, saturation, value, red, green, blue, alpha, hex"));
    QMetaObject::invokeMethod(mapper.get(), "updateHex", Q_ARG(QString, text("804020")));
    QCOMPARE(recorder.take(),
             lines("m.color = #804020, m.hue = 20, m.hueChanged, "
                   "m.saturation = 191, m.saturationChanged, m.value = 128, m.valueChanged, "
                   "m.red = 128, m.redChanged, m.green = 64, m.greenChanged, "
                   "m.blue = 32, m.blueChanged, m.hex = 804020, m.hexChanged, m.colorChanged"));
    QMetaObject::invokeMethod(mapper.get(), "updateAlpha", Q_ARG(int, 128));
    QCOMPARE(recorder.take(),
             lines("m.color = #80804020, m.alpha = 128, m.alphaChanged, m.colorChanged"));
}

static const char *const stripScene =
    "import ombrel.Controls.Private 1.0\n"
    "HueBox { width: 359; height: 80; sliderDelegate: Item { objectName: 'slider' } }";

void TestPickerOrder::hueIsToldBeforeTheSliderMoves()
{
    support::QmlView view;
    view.load(stripScene);
    auto *const slider = view.item<>("slider");
    QVERIFY(slider);
    support::SignalRecorder recorder;
    recorder.watch(view.root(), QStringLiteral("box"), lines("hueChanged"));
    recorder.follow(view.root(), QStringLiteral("box"), lines("hue"));
    recorder.watch(slider, QStringLiteral("slider"), lines("xChanged, yChanged"));
    recorder.follow(slider, QStringLiteral("slider"), lines("x, y"));
    view.root()->setProperty("hue", 20);
    QCOMPARE(recorder.take(),
             lines("box.hue = 20, box.hueChanged, slider.x = 20, slider.xChanged"));
}

/// The old slider is on its way out, and the new one is not made yet, when the change is told.
void TestPickerOrder::sliderDelegateChanges()
{
    support::QmlView view;
    view.load(stripScene);
    QObject *const box = view.root();
    const QPointer<QQuickItem> old = view.item<>("slider");
    QQmlComponent component(view.engine());
    component.setData("import QtQuick 2.12\nItem { objectName: 'other' }", QUrl());
    support::SignalRecorder recorder;
    recorder.watch(box, QStringLiteral("box"), lines("sliderDelegateChanged"));
    recorder.follow(QStringLiteral("new"), [&] {
        return box->property("sliderDelegate").value<QQmlComponent *>() == &component;
    });
    recorder.follow(QStringLiteral("old lives"), [old] { return !old.isNull(); });
    recorder.follow(QStringLiteral("made"), [&view] { return view.item<>("other") != nullptr; });
    const support::SignalTrap trap(box, "sliderDelegateChanged", [] {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    });
    box->setProperty("sliderDelegate", QVariant::fromValue(&component));
    QCOMPARE(recorder.take(),
             lines("new = true, box.sliderDelegateChanged, old lives = false, made = true"));
}

/// Of a box that changes its size, the marker moves first.
void TestPickerOrder::markersMoveBeforeTheSizeIsTold()
{
    for (const char *scene : {stripScene,
                              "import ombrel.Controls.Private 1.0\n"
                              "SaturationValueBox { width: 100; height: 80; saturation: 0\n"
                              "    crossHairDelegate: Item { objectName: 'slider' } }"}) {
        support::QmlView view;
        view.load(scene);
        auto *const marker = view.item<>("slider");
        QVERIFY(marker);
        support::SignalRecorder recorder;
        recorder.watch(view.root(), QStringLiteral("box"), lines("heightChanged"));
        recorder.follow(view.root(), QStringLiteral("box"), lines("height"));
        recorder.watch(marker, QStringLiteral("marker"), lines("yChanged"));
        view.root()->setHeight(60);
        QCOMPARE(recorder.take(), lines("box.height = 60, marker.yChanged, box.heightChanged"));
    }
}

void TestPickerOrder::newCrossHairStandsWhereASliderWouldFirst()
{
    support::QmlView view;
    view.loadFile(QStringLiteral("data/crosshair.qml"));
    QQuickItem *const box = view.item<>("box");
    const auto marker = view.root()->property("marker");
    support::SignalRecorder recorder;
    recorder.watch(box, QStringLiteral("box"), lines("crossHairDelegateChanged"));
    recorder.follow(box, QStringLiteral("box"), lines("crossHairDelegate"));
    recorder.follow(QStringLiteral("children"), [box] { return box->childItems().size(); });
    QVERIFY(box->setProperty("crossHairDelegate", marker));
    QCOMPARE(recorder.take(),
             lines("box.crossHairDelegate = QQmlComponent, box.crossHairDelegateChanged, "
                   "children = 1"));
    QCOMPARE(support::evaluate(view.root(), text("log.join(', ')")).toString(),
             text("y 40, x 300, x 20, y 0"));
}

void TestPickerOrder::movesSetTheValueBeforeTheSaturation()
{
    support::QmlView view;
    view.load("import ombrel.Controls.Private 1.0\n"
              "SaturationValueBox { width: 100; height: 100\n"
              "    crossHairDelegate: Item { objectName: 'marker' } }");
    view.show();
    auto *const marker = view.item<>("marker");
    QVERIFY(marker);
    support::SignalRecorder recorder;
    recorder.watch(view.root(), QStringLiteral("box"), lines("valueChanged, saturationChanged"));
    recorder.follow(view.root(), QStringLiteral("box"), lines("value, saturation"));
    recorder.watch(marker, QStringLiteral("marker"), lines("xChanged, yChanged"));
    recorder.follow(marker, QStringLiteral("marker"), lines("x, y"));
    QTest::mousePress(view.window(), Qt::LeftButton, {}, {60, 40});
    QCOMPARE(recorder.take(),
             lines("box.value = 153, box.valueChanged, marker.x = 60, marker.xChanged, "
                   "box.saturation = 153, box.saturationChanged, marker.y = 40, marker.yChanged"));
    QTest::mouseRelease(view.window(), Qt::LeftButton, {}, {60, 40});
}

QTEST_MAIN(TestPickerOrder)
#include "tst_order.moc"
