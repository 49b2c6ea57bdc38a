// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Leftovers.h"
#include "tests/support/QmlView.h"
#include "tests/support/RegisteredTypes.h"
#include "tests/support/SignalRecorder.h"

#include <QColor>
#include <QMetaProperty>
#include <QPointF>
#include <QQmlComponent>
#include <QTest>
#include <QUrl>

/// Every property of every type is written before its change is told, and told once. Types and
/// properties come from the registration and the meta-objects.
class TestOrder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void propertyIsWrittenBeforeItIsTold_data();
    void propertyIsWrittenBeforeItIsTold();
};

namespace {

bool isOfLibrary(const QMetaObject *meta)
{
    return qstrncmp(meta->className(), "om::controls::", 14) == 0;
}

/// The document of a type: it, and what its properties may be set to.
QByteArray documentOf(const QString &type)
{
    return "import QtQml 2.12\nimport ombrel.Controls.Private 1.0\nimport ombrel.data.Core 1.0\n"
           "Item {\n"
           "    property Component component: Component { Item {} }\n"
           "    property Document document: Document { objectName: 'document' }\n"
           "    property QtObject subject: "
        + type.toUtf8()
        // A tree without one says so.
        + (type == QLatin1String("TreeView") ? " { delegate: Item {} }" : " {}") + "\n}";
}

/// A value of \a property that is not the one it has; invalid for a type that no property has had
/// so far.
QVariant otherValue(const QMetaProperty &property, const QObject *subject, const QObject *page)
{
    const QVariant present = property.read(subject);
    const QByteArray type = property.typeName();
    if (property.isEnumType()) {
        return property.enumerator().value(property.enumerator().keyCount() - 1);
    }
    switch (property.userType()) {
    case QMetaType::Bool:
        return !present.toBool();
    case QMetaType::Int:
        return present.toInt() == 20 ? 21 : 20;
    case QMetaType::QString:
        return QStringLiteral("other");
    case QMetaType::QStringList:
        return QStringList{QStringLiteral("other")};
    case QMetaType::QColor:
        return QColor(Qt::red);
    case QMetaType::QUrl:
        return QUrl(QStringLiteral("https://example.org/"));
    case QMetaType::QPointF:
        return QPointF(3, 4);
    default:
        break;
    }
    if (type == "QQmlComponent*") {
        return page->property("component");
    }
    if (type == "QQuickItem*") {
        return QVariant::fromValue(const_cast<QObject *>(page));
    }
    if (type == "om::data::Document*") {
        return page->property("document");
    }
    return {};
}

} // namespace

void TestOrder::cleanup()
{
    QCOMPARE(support::leftovers(), QString());
}

void TestOrder::propertyIsWrittenBeforeItIsTold_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QByteArray>("property");
    const QStringList types = support::registeredTypes();
    for (const QString &type : types) {
        support::QmlView view;
        view.load(documentOf(type));
        const auto *const subject = view.root()->property("subject").value<QObject *>();
        for (const QMetaObject *meta = subject->metaObject(); meta; meta = meta->superClass()) {
            for (int i = meta->propertyOffset(); isOfLibrary(meta) && i < meta->propertyCount();
                 ++i) {
                const QMetaProperty property = meta->property(i);
                // A heir may have made a constant of it.
                const bool isOwn = subject->metaObject()->indexOfProperty(property.name()) == i;
                // Needs rows: the tree's own test of orders has it.
                const bool needsRows = qstrcmp(property.name(), "activeIndex") == 0;
                if (isOwn && property.isWritable() && property.hasNotifySignal() && !needsRows) {
                    QTest::addRow("%s.%s", qPrintable(type), property.name())
                        << type << QByteArray(property.name());
                }
            }
        }
    }
}

void TestOrder::propertyIsWrittenBeforeItIsTold()
{
    QFETCH(QString, type);
    QFETCH(QByteArray, property);
    support::QmlView view;
    view.load(documentOf(type));
    auto *const subject = view.root()->property("subject").value<QObject *>();
    const QMetaObject *const meta = subject->metaObject();
    const QMetaProperty described = meta->property(meta->indexOfProperty(property));
    const QString name = QString::fromLatin1(property);
    const QString notification = QString::fromLatin1(described.notifySignal().name());
    support::SignalRecorder recorder;
    recorder.watch(subject, QString(), {notification});
    const QVariant value = otherValue(described, subject, view.root());
    QVERIFY2(value.isValid(), "the test has to learn a value of this type");
    recorder.follow(QStringLiteral("written"), [&] {
        const QVariant current = described.read(subject);
        return described.isEnumType() ? current.toInt() == value.toInt() : current == value;
    });
    QVERIFY(described.write(subject, value));
    QCOMPARE(recorder.take(),
             (QStringList{QStringLiteral("written = true"), QLatin1Char('.') + notification}));
    described.write(subject, value);
    QCOMPARE(recorder.take(), QStringList());
}

QTEST_MAIN(TestOrder)
#include "tst_order.moc"
