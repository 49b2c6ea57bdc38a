// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Leftovers.h"
#include "tests/support/QmlView.h"
#include "tests/support/SignalRecorder.h"

#include <QPointer>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QTest>

using namespace support;

namespace {

/// An item that destroys its component at the end of its making.
class LastItem : public QQuickItem
{
    Q_OBJECT

public:
    void componentComplete() override
    {
        QQuickItem::componentComplete();
        delete s_component;
    }

    static QPointer<QQmlComponent> s_component;
};

QPointer<QQmlComponent> LastItem::s_component;

} // namespace

/// The markers of the picker's boxes: the order in which they are placed, and how they go.
class TestMarkers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup()
    {
        m_view.reset();
        QCOMPARE(leftovers(), QString());
    }
    void everyStepOfThePlacement_data();
    void everyStepOfThePlacement();
    void sliderWhoseStepChangesTheHue();
    void crossHairWhoseStepChangesTheSaturation();
    void oneMarkerWhenTheDelegateComesBack_data();
    void oneMarkerWhenTheDelegateComesBack();
    void removedAfterItsComponent_data();
    void removedAfterItsComponent();
    void componentDestroyedAsItsItemCompletes_data();
    void componentDestroyedAsItsItemCompletes();
    void nullWithoutAMarkerIsNoChange_data();
    void nullWithoutAMarkerIsNoChange();

private:
    void boxRows();
    QScopedPointer<QmlView> m_view;
};

void TestMarkers::init()
{
    m_view.reset(new QmlView);
    m_view->loadFile(QStringLiteral("data/markers.qml"));
}

void TestMarkers::everyStepOfThePlacement_data()
{
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("property");
    QTest::addColumn<QString>("steps");
    // Half the height, then the hue as such times the width, for both.
    QTest::newRow("strip") << "strip"
                           << "sliderDelegate"
                           << "y 10 x 5400";
    // The cross-hair goes on from there.
    QTest::newRow("square") << "square"
                            << "crossHairDelegate"
                            << "y 40 x 2000 x 40 y 16";
}

void TestMarkers::everyStepOfThePlacement()
{
    QFETCH(QString, box);
    QFETCH(QString, property);
    QFETCH(QString, steps);
    evaluate(m_view->item(box.toLatin1()), property + QStringLiteral(" = noted"));
    QCOMPARE(evaluate(m_view->root(), QStringLiteral("notes.join(' ')")).toString(), steps);
}

/// Each step reads the numbers again, as the step before may have changed them.
void TestMarkers::sliderWhoseStepChangesTheHue()
{
    QQuickItem *strip = m_view->item("strip");
    evaluate(strip, QStringLiteral("sliderDelegate = hueSetter"));
    QCOMPARE(strip->property("hue").toInt(), 2);
    QCOMPARE(strip->childItems().value(0)->x(), 2 * 180.0);
}

void TestMarkers::crossHairWhoseStepChangesTheSaturation()
{
    QQuickItem *square = m_view->item("square");
    evaluate(square, QStringLiteral("crossHairDelegate = saturationSetter"));
    QQuickItem *cross = square->childItems().value(0);
    QVERIFY(cross);
    QCOMPARE(cross->y(), 64.0);
    square->setProperty("saturation", 204);
    QCOMPARE(cross->y(), 16.0);
    square->setProperty("value", 51);
    QCOMPARE(square->property("saturation").toInt(), 51);
    QCOMPARE(cross->position(), QPointF(20, 64));
}

void TestMarkers::boxRows()
{
    QTest::addColumn<QString>("box");
    QTest::addColumn<QByteArray>("property");
    QTest::newRow("strip") << "strip" << QByteArray("sliderDelegate");
    QTest::newRow("square") << "square" << QByteArray("crossHairDelegate");
}

void TestMarkers::oneMarkerWhenTheDelegateComesBack_data()
{
    boxRows();
}

/// A handler that sets another delegate and then this one again has made its marker already: no
/// second one is made.
void TestMarkers::oneMarkerWhenTheDelegateComesBack()
{
    QFETCH(QString, box);
    QFETCH(QByteArray, property);
    QQuickItem *item = m_view->item(box.toLatin1());
    const QString assignment = QString::fromLatin1(property) + QStringLiteral(" = ");
    bool done = false;
    SignalRecorder recorder;
    recorder.watch(item, QString(), {QString::fromLatin1(property) + QStringLiteral("Changed")},
                   [&] {
                       if (!done) {
                           done = true;
                           evaluate(item, assignment + QStringLiteral("plain"));
                           evaluate(item, assignment + QStringLiteral("noted"));
                       }
                       return QString();
                   });
    evaluate(item, assignment + QStringLiteral("noted"));
    QCOMPARE(recorder.take().size(), 3);
    // What was discarded goes with the event loop.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(item->childItems().size(), 1);
    evaluate(item, assignment + QStringLiteral("null"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(item->childItems().size(), 0);
}

void TestMarkers::removedAfterItsComponent_data()
{
    boxRows();
}

/// The property reads null after its component was destroyed, while the marker lives: setting null
/// removes it.
void TestMarkers::removedAfterItsComponent()
{
    QFETCH(QString, box);
    QFETCH(QByteArray, property);
    QQuickItem *item = m_view->item(box.toLatin1());
    auto component = std::make_unique<QQmlComponent>(m_view->engine());
    component->setData("import QtQuick 2.12\nItem {}", QUrl());
    item->setProperty(property, QVariant::fromValue(component.get()));
    const QPointer<QQuickItem> marker = item->childItems().value(0);
    QVERIFY(marker);
    SignalRecorder recorder;
    recorder.watch(item, QString(), {QString::fromLatin1(property) + QStringLiteral("Changed")});
    component.reset();
    QVERIFY(marker);
    evaluate(item, QString::fromLatin1(property) + QStringLiteral(" = null"));
    QVERIFY(marker); // Later, as ever.
    QTRY_VERIFY(!marker);
    QCOMPARE(recorder.take().size(), 1);
    evaluate(item, QString::fromLatin1(property) + QStringLiteral(" = null"));
    QCOMPARE(recorder.take().size(), 0);
}

void TestMarkers::componentDestroyedAsItsItemCompletes_data()
{
    boxRows();
}

void TestMarkers::componentDestroyedAsItsItemCompletes()
{
    QFETCH(QString, box);
    QFETCH(QByteArray, property);
    qmlRegisterType<LastItem>("tests", 1, 0, "LastItem");
    QQuickItem *const item = m_view->item(box.toLatin1());
    const int children = item->childItems().size();
    LastItem::s_component = new QQmlComponent(m_view->engine());
    LastItem::s_component->setData("import tests 1.0\nLastItem { }", QUrl());
    item->setProperty(property, QVariant::fromValue(LastItem::s_component.data()));
    QVERIFY(!LastItem::s_component);
    // Without a component there is no marker.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(item->childItems().size(), children);
}

void TestMarkers::nullWithoutAMarkerIsNoChange_data()
{
    boxRows();
}

void TestMarkers::nullWithoutAMarkerIsNoChange()
{
    QFETCH(QString, box);
    QFETCH(QByteArray, property);
    QQuickItem *item = m_view->item(box.toLatin1());
    SignalRecorder recorder;
    recorder.watch(item, QString(), {QString::fromLatin1(property) + QStringLiteral("Changed")});
    evaluate(item, QString::fromLatin1(property) + QStringLiteral(" = null"));
    QCOMPARE(recorder.take().size(), 0);
}

QTEST_MAIN(TestMarkers)
#include "tst_markers.moc"
