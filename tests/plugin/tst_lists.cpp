// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Leftovers.h"
#include "tests/support/QmlView.h"
#include "tests/support/RegisteredTypes.h"
#include "tests/support/SignalRecorder.h"
#include "tests/support/SignalTrap.h"

#include <QMetaProperty>
#include <QPointer>
#include <QQmlListReference>
#include <QQmlProperty>
#include <QTest>

using namespace support;

/// Lists that outlive what they are lists of, or share what is in them. Types and properties come
/// from the registration and the meta-objects.
class TestLists : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(leftovers(), QString()); }

    void everyListIsKnown();
    void keptWhileTheirOwnerGoes_data() { lists(); }
    void keptWhileTheirOwnerGoes();
    void keptBeyondTheirOwner_data();
    void keptBeyondTheirOwner();
    void whoseOwnerGoesAsTheyAreWritten_data() { keptBeyondTheirOwner_data(); }
    void whoseOwnerGoesAsTheyAreWritten();
    void withAnElementOfAnother_data() { lists(); }
    void withAnElementOfAnother();

private:
    void lists();
};

namespace {

struct KnownList
{
    QString owner;
    QByteArray property;
    /// The type of what the test puts into it.
    QString element;
};

/// The list properties of the library; everyListIsKnown() holds that none is missing.
QVector<KnownList> knownLists()
{
    return {
        {QStringLiteral("DragArea"), "dragDocuments", QStringLiteral("Document")},
        {QStringLiteral("DragZone"), "dragDocuments", QStringLiteral("Document")},
        {QStringLiteral("DropZone"), "dropHandlers", QStringLiteral("FileDropHandler")},
        {QStringLiteral("TreeView"), "rootDocuments", QStringLiteral("Document")},
    };
}

/// A page with two owners, an element, and a function that reads lists that it keeps.
QByteArray documentOf(const QString &owner, const QString &element)
{
    const QByteArray type = owner.toUtf8();
    // A tree without a delegate says so.
    const QByteArray body = type == "TreeView" ? " { delegate: Item {} }" : " {}";
    return "import QtQuick 2.12\nimport ombrel.Controls 1.0\nimport ombrel.data.Core 1.0\n"
           "Item {\n"
           "    id: page\n"
           "    property var kept: []\n"
           "    property QtObject owner\n"
           "    property var element: "
        + element.toUtf8() + " {}\n    property Component elementMaker: Component { "
        + element.toUtf8() + " {} }\n    property Component maker: Component { " + type + body
        + " }\n"
          "    function read() {\n"
          "        return kept.map(function(list) { return list.length + ' ' + list[0] }).join()\n"
          "    }\n"
          "    "
        + type + body + "\n    " + type + body + "\n}";
}

/// What the page's component \a maker makes.
QObject *made(const QmlView &view, const char *maker)
{
    const auto call = QStringLiteral("%1.createObject(page)").arg(QString::fromLatin1(maker));
    return evaluate(view.root(), call).value<QObject *>();
}

bool isList(const QMetaProperty &property)
{
    return QByteArray(property.typeName()).startsWith("QQmlListProperty<om::");
}

} // namespace

void TestLists::everyListIsKnown()
{
    QStringList found;
    const QStringList types = registeredTypes();
    for (const QString &type : types) {
        QmlView view;
        view.load("import QtQml 2.12\nimport ombrel.Controls.Private 1.0\nItem {\n"
                  "    property QtObject subject: "
                  + type.toUtf8()
                  + (type == QLatin1String("TreeView") ? " { delegate: Item {} }" : " {}") + "\n}");
        const auto *const subject = view.root()->property("subject").value<QObject *>();
        const QMetaObject *const meta = subject->metaObject();
        for (int i = 0; i < meta->propertyCount(); ++i) {
            if (isList(meta->property(i))) {
                found.append(type + QLatin1Char('.') + QLatin1String(meta->property(i).name()));
            }
        }
    }
    QStringList known;
    const auto lists = knownLists();
    for (const KnownList &list : lists) {
        known.append(list.owner + QLatin1Char('.') + QLatin1String(list.property));
    }
    found.sort();
    QCOMPARE(found, known);
}

void TestLists::lists()
{
    QTest::addColumn<QString>("owner");
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QString>("element");
    const auto lists = knownLists();
    for (const KnownList &list : lists) {
        QTest::addRow("%s.%s", qPrintable(list.owner), list.property.constData())
            << list.owner << list.property << list.element;
    }
}

/// An item's destructor takes it from its parent, and its children from it, when the type that the
/// list belongs to has been destroyed already: QML and a QQmlListReference read it on.
void TestLists::keptWhileTheirOwnerGoes()
{
    QFETCH(const QString, owner);
    QFETCH(const QByteArray, property);
    QFETCH(const QString, element);
    QmlView view;
    view.load(documentOf(owner, element));
    view.show();
    QQuickItem *const item = view.root()->childItems().constFirst();
    QQmlListReference list(item, property);
    QVERIFY(list.append(view.root()->property("element").value<QObject *>()));
    evaluate(view.root(),
             QStringLiteral("kept = [children[0].%1]").arg(QString::fromLatin1(property)));
    QVERIFY(
        evaluate(view.root(), QStringLiteral("read()")).toString().startsWith(QLatin1String("1 ")));

    auto *const guest = new QQuickItem(item);
    guest->setParent(view.window());
    int reads = 0;
    const auto read = [&] {
        ++reads;
        // The owner is still an object.
        QVERIFY(list.isValid());
        QCOMPARE(list.count(), 0);
        QCOMPARE(list.at(0), nullptr);
        list.append(nullptr);
        list.clear();
        evaluate(view.root(), QStringLiteral("read()"));
    };
    connect(view.root(), &QQuickItem::childrenChanged, this, read);
    connect(guest, &QQuickItem::parentChanged, this, read);
    delete item;
    disconnect(view.root(), nullptr, this, nullptr);
    QCOMPARE(reads, 2);
    QVERIFY(!list.isValid());
    delete guest;
}

void TestLists::keptBeyondTheirOwner_data()
{
    lists();
    QTest::newRow("Document.children") << "Document" << QByteArray("children") << "Document";
}

/// The engine asks a list that QML keeps also when its owner is gone.
void TestLists::keptBeyondTheirOwner()
{
    QFETCH(const QString, owner);
    QFETCH(const QByteArray, property);
    QFETCH(const QString, element);
    QmlView view;
    view.load(documentOf(owner, element));
    const auto make = [&] {
        auto *const object = made(view, "maker");
        return QQmlListReference(object, property).append(made(view, "elementMaker")) ? object
                                                                                      : nullptr;
    };
    const QPointer<QObject> object = make();
    QVERIFY(object);
    view.root()->setProperty("owner", QVariant::fromValue(object.data()));
    evaluate(view.root(), QStringLiteral("kept = [owner.%1]").arg(QString::fromLatin1(property)));
    const auto read = [&view] {
        return evaluate(view.root(), QStringLiteral("read()")).toString();
    };
    QVERIFY2(read().startsWith(QLatin1String("1 ")), qPrintable(read()));
    delete object;
    QCOMPARE(read(), QStringLiteral("0 undefined"));
    // Nor does it become another object's.
    QVERIFY(make());
    QCOMPARE(read(), QStringLiteral("0 undefined"));
}

/// An assignment clears the list and appends each element, whatever comes of the first.
void TestLists::whoseOwnerGoesAsTheyAreWritten()
{
    QFETCH(const QString, owner);
    QFETCH(const QByteArray, property);
    QFETCH(const QString, element);
    QmlView view;
    view.load(documentOf(owner, element));
    const QPointer<QObject> object = made(view, "maker");
    QVERIFY(object);
    const QMetaObject *const meta = object->metaObject();
    const QMetaProperty described = meta->property(meta->indexOfProperty(property));
    const SignalTrap trap(object, described.notifySignal().name(), [object] { delete object; });
    const QObjectList elements{made(view, "elementMaker"), made(view, "elementMaker")};
    QQmlProperty::write(object, QString::fromLatin1(property), QVariant::fromValue(elements));
    QVERIFY(!object);
}

/// One list tells that an element has gone while the next has not learned of it.
void TestLists::withAnElementOfAnother()
{
    QFETCH(const QString, owner);
    QFETCH(const QByteArray, property);
    QFETCH(const QString, element);
    QmlView view;
    view.load(documentOf(owner, element));
    const QList<QQuickItem *> owners = view.root()->childItems();
    QQmlListReference first(owners.at(0), property);
    QQmlListReference second(owners.at(1), property);
    auto *const shared = view.root()->property("element").value<QObject *>();
    QVERIFY(first.append(shared) && second.append(shared));
    QCOMPARE(second.at(0), shared);

    SignalRecorder recorder;
    const QMetaObject *const meta = owners.at(0)->metaObject();
    const QMetaProperty described = meta->property(meta->indexOfProperty(property));
    const QString told = QString::fromLatin1(described.notifySignal().name());
    recorder.watch(owners.at(0), QStringLiteral("first"), {told}, [&] {
        return QString::number(first.count()) + (second.at(0) ? " and one" : " and none");
    });
    recorder.watch(owners.at(1), QStringLiteral("second"), {told},
                   [&] { return QString::number(second.count()); });
    delete shared;
    QCOMPARE(recorder.take(),
             (QStringList{QStringLiteral("first.%1 [0 and none]").arg(told),
                          QStringLiteral("second.%1 [0]").arg(told)}));
}

QTEST_MAIN(TestLists)
#include "tst_lists.moc"
