// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Leftovers.h"

#include <QDir>
#include <QMetaProperty>
#include <QPointer>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQmlProperty>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

/// A slot of the application may delete a drawn item from each of its signals. The sanitizers see
/// what is touched afterwards.
class TestDeletedByHandlers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(support::leftovers(), QString()); }
    void fromItsOwnSignal_data();
    void fromItsOwnSignal();
    void fromAGeometrySignal_data();
    void fromAGeometrySignal();
    void codeFromItsImplicitSize_data();
    void codeFromItsImplicitSize();
    void boxFromAPress_data();
    void boxFromAPress();
    void boxFromItsMarker_data();
    void boxFromItsMarker();
    void boxFromItsMarkersFirstPlace_data();
    void boxFromItsMarkersFirstPlace();

public Q_SLOTS:
    void deleteVictim();

private:
    QQuickItem *make(const QString &type);
    void deleteFrom(QObject *sender, const char *signature);

    QQmlEngine m_engine;
    QPointer<QQuickItem> m_victim;
};

namespace {

/// The drawn types: those with a case in data/onscreen, where tst_onscreen sees to it that none is
/// missing.
QStringList types()
{
    QStringList names;
    const auto files = QDir(QFINDTESTDATA("data/onscreen")).entryInfoList(QDir::Files);
    for (const QFileInfo &file : files) {
        names.append(file.completeBaseName());
    }
    names.removeAll(QStringLiteral("Stage"));
    return names;
}

/// Hands events to an item's own handlers.
class DirectEvents : public QQuickItem
{
public:
    static void press(QQuickItem *item, QMouseEvent *event)
    {
        (item->*&DirectEvents::mousePressEvent)(event);
    }
};

/// A value of the same type that \a property takes and that is not the present one; invalid for
/// a type that no property has had so far.
QVariant otherValue(const QMetaProperty &property, const QObject *object, QQmlComponent *component)
{
    const QVariant present = property.read(object);
    switch (property.userType()) {
    case QMetaType::Int:
        return present.toInt() == 20 ? 21 : 20;
    case QMetaType::QColor:
        return QColor(present.value<QColor>() == QColor(Qt::red) ? Qt::blue : Qt::red);
    case QMetaType::QUrl:
        return QUrl(QStringLiteral("https://example.org/longer/than/before"));
    default:
        return property.userType() == qMetaTypeId<QQmlComponent *>()
            ? QVariant::fromValue(component)
            : QVariant();
    }
}

} // namespace

/// Makes the item that is to be deleted: in no window, with its marker where it has one.
QQuickItem *TestDeletedByHandlers::make(const QString &type)
{
    QQmlComponent component(&m_engine);
    component.setData(
        "import QtQuick 2.12\nimport ombrel.Controls 1.0\nimport ombrel.Controls.Private 1.0\n"
            + type.toUtf8() + " { property Component marker: Component { Item {} } }",
        QUrl());
    m_victim = qobject_cast<QQuickItem *>(component.create());
    if (!m_victim) {
        qFatal("%s", qPrintable(component.errorString()));
    }
    m_victim->setSize({100, 80});
    return m_victim;
}

/// Once: what goes may emit again on its way.
void TestDeletedByHandlers::deleteVictim()
{
    disconnect(sender(), nullptr, this, nullptr);
    delete m_victim;
}

void TestDeletedByHandlers::deleteFrom(QObject *sender, const char *signature)
{
    const int signal = sender->metaObject()->indexOfSignal(signature);
    QVERIFY(signal >= 0);
    QVERIFY(connect(sender, sender->metaObject()->method(signal), this,
                    metaObject()->method(metaObject()->indexOfSlot("deleteVictim()"))));
}

void TestDeletedByHandlers::fromItsOwnSignal_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QByteArray>("signature");
    const QStringList names = types();
    QVERIFY(names.size() >= 6);
    for (const QString &type : names) {
        const QScopedPointer<QQuickItem> item(make(type));
        const QMetaObject *meta = item->metaObject();
        // The outermost class is the document's own.
        for (int i = QQuickItem::staticMetaObject.methodCount();
             i < meta->superClass()->methodCount(); ++i) {
            if (meta->method(i).methodType() == QMetaMethod::Signal) {
                const QByteArray signature = meta->method(i).methodSignature();
                QTest::newRow(qPrintable(type + QLatin1Char('.') + QString::fromLatin1(signature)))
                    << type << signature;
            }
        }
    }
}

void TestDeletedByHandlers::fromItsOwnSignal()
{
    QFETCH(QString, type);
    QFETCH(QByteArray, signature);
    QQuickItem *item = make(type);
    const QMetaObject *meta = item->metaObject();
    QQmlComponent component(&m_engine);
    component.setData("import QtQuick 2.12\nItem {}", QUrl());
    int wanted = -1;
    for (int i = QQuickItem::staticMetaObject.propertyCount();
         i < meta->superClass()->propertyCount(); ++i) {
        const QMetaProperty property = meta->property(i);
        if (property.notifySignal().methodSignature() == signature) {
            wanted = i;
        } else if (property.userType() == qMetaTypeId<QQmlComponent *>()) {
            property.write(item, QVariant::fromValue(&component));
        }
    }
    QVERIFY2(wanted >= 0, "no property has this signal: the test has to learn what emits it");
    const QVariant value = otherValue(meta->property(wanted), item, &component);
    QVERIFY2(value.isValid(), "the test has to learn a value of this type");
    deleteFrom(item, signature);
    meta->property(wanted).write(item, value);
    QVERIFY(!m_victim);
}

void TestDeletedByHandlers::fromAGeometrySignal_data()
{
    QTest::addColumn<QString>("type");
    const QStringList names = types();
    for (const QString &type : names) {
        QTest::newRow(qPrintable(type)) << type;
    }
}

void TestDeletedByHandlers::fromAGeometrySignal()
{
    QFETCH(QString, type);
    for (const char *signature : {"widthChanged()", "heightChanged()"}) {
        deleteFrom(make(type), signature);
        if (qstrcmp(signature, "widthChanged()") == 0) {
            m_victim->setWidth(55);
        } else {
            m_victim->setHeight(55);
        }
        QVERIFY(!m_victim);
    }
}

void TestDeletedByHandlers::codeFromItsImplicitSize_data()
{
    QTest::addColumn<QByteArray>("signature");
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("hasASize");
    const QUrl url(QStringLiteral("https://example.org/longer/than/before"));
    for (const char *signature : {"implicitWidthChanged()", "implicitHeightChanged()"}) {
        for (const bool hasASize : {false, true}) {
            const char *const size = hasASize ? "with a size of its own" : "as large as its code";
            QTest::addRow("%s by moduleSize, %s", signature, size)
                << QByteArray(signature) << QByteArray("moduleSize") << QVariant(9) << hasASize;
            QTest::addRow("%s by url, %s", signature, size)
                << QByteArray(signature) << QByteArray("url") << QVariant(url) << hasASize;
        }
    }
}

/// Qt's setters of an implicit size read an item that has a size of its own after their signal, so
/// that one can be deleted later only, and gets its other length before.
void TestDeletedByHandlers::codeFromItsImplicitSize()
{
    QFETCH(QByteArray, signature);
    QFETCH(QByteArray, property);
    QFETCH(QVariant, value);
    QFETCH(bool, hasASize);
    QQuickItem *const code = make(QStringLiteral("QRCode"));
    if (hasASize) {
        const QMetaObject *const meta = code->metaObject();
        connect(code, meta->method(meta->indexOfSignal(signature)), code,
                meta->method(meta->indexOfSlot("deleteLater()")));
    } else {
        code->resetWidth();
        code->resetHeight();
        deleteFrom(code, signature);
    }
    QQmlProperty::write(code, QString::fromLatin1(property), value);
    if (hasASize) {
        QVERIFY(m_victim->implicitWidth() != 168.0);
        QCOMPARE(m_victim->implicitHeight(), m_victim->implicitWidth());
        QCoreApplication::sendPostedEvents(m_victim, QEvent::DeferredDelete);
    }
    QVERIFY(!m_victim);
}

void TestDeletedByHandlers::boxFromAPress_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QByteArray>("signature");
    for (const char *signature : {"hueChanged()", "activeFocusChanged(bool)"}) {
        QTest::addRow("HueBox, %s", signature) << "HueBox" << QByteArray(signature);
    }
    for (const char *signature :
         {"valueChanged()", "saturationChanged()", "activeFocusChanged(bool)"}) {
        QTest::addRow("SaturationValueBox, %s", signature)
            << "SaturationValueBox" << QByteArray(signature);
    }
}

void TestDeletedByHandlers::boxFromAPress()
{
    QFETCH(QString, type);
    QFETCH(QByteArray, signature);
    QQuickWindow window;
    window.resize(200, 150);
    window.show();
    window.requestActivate();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QQuickItem *box = make(type);
    box->setParentItem(window.contentItem());
    box->setProperty("sliderDelegate", box->property("marker"));
    box->setProperty("crossHairDelegate", box->property("marker"));
    QCOMPARE(box->childItems().size(), 1);
    deleteFrom(box, signature);
    // To the box itself: a window goes on with the item after its event.
    QMouseEvent press(QEvent::MouseButtonPress, {50, 40}, Qt::LeftButton, Qt::LeftButton, {});
    DirectEvents::press(box, &press);
    QVERIFY(!m_victim);
}

void TestDeletedByHandlers::boxFromItsMarker_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QByteArray>("delegate");
    QTest::addColumn<QByteArray>("signature");
    QTest::addColumn<QByteArray>("change");
    const auto rows = [](const char *type, const char *delegate, const QByteArrayList &changes) {
        for (const char *signature : {"xChanged()", "yChanged()"}) {
            for (const QByteArray &change : changes) {
                QTest::addRow("%s, %s by %s", type, signature, change.constData())
                    << type << QByteArray(delegate) << QByteArray(signature) << change;
            }
        }
    };
    rows("HueBox", "sliderDelegate", {"hue", "height"});
    rows("SaturationValueBox", "crossHairDelegate", {"value", "saturation", "width", "height"});
}

/// What is written to a marker is announced by it.
void TestDeletedByHandlers::boxFromItsMarker()
{
    QFETCH(QString, type);
    QFETCH(QByteArray, delegate);
    QFETCH(QByteArray, signature);
    QFETCH(QByteArray, change);
    QQuickItem *box = make(type);
    box->setProperty("value", 100);
    box->setProperty("saturation", 100);
    box->setProperty(delegate, box->property("marker"));
    QQuickItem *marker = box->childItems().value(0);
    QVERIFY(marker);
    const QPointF before = marker->position();
    deleteFrom(marker, signature);
    QQmlProperty::write(box, QString::fromLatin1(change), 50);
    if (m_victim) {
        // Only the other coordinate has changed.
        const bool isX = signature == "xChanged()";
        QCOMPARE(isX ? marker->x() : marker->y(), isX ? before.x() : before.y());
        QVERIFY(marker->position() != before);
        delete m_victim;
    }
}

void TestDeletedByHandlers::boxFromItsMarkersFirstPlace_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QByteArray>("delegate");
    QTest::addColumn<QByteArray>("signature");
    for (const char *signature : {"yChanged()", "xChanged()"}) {
        QTest::addRow("HueBox, %s", signature)
            << "HueBox" << QByteArray("sliderDelegate") << QByteArray(signature);
        QTest::addRow("SaturationValueBox, %s", signature)
            << "SaturationValueBox" << QByteArray("crossHairDelegate") << QByteArray(signature);
    }
}

/// While the delegate is being set: the box has got the marker and puts it to its place.
void TestDeletedByHandlers::boxFromItsMarkersFirstPlace()
{
    QFETCH(QString, type);
    QFETCH(QByteArray, delegate);
    QFETCH(QByteArray, signature);
    QQuickItem *box = make(type);
    box->setProperty("hue", 30);
    connect(box, &QQuickItem::childrenChanged, this, [&] {
        if (QQuickItem *marker = box->childItems().value(0)) {
            deleteFrom(marker, signature);
        }
    });
    box->setProperty(delegate, box->property("marker"));
    QVERIFY(!m_victim);
}

QTEST_MAIN(TestDeletedByHandlers)
#include "tst_deletedbyhandlers.moc"
