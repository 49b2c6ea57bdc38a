// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/plugin/handlers/Provocation.h"

#include "tests/plugin/handlers/EventItem.h"
#include "tests/plugin/handlers/Stage.h"
#include "tests/support/DragEvents.h"
#include "tests/support/RegisteredTypes.h"

#include <QColor>
#include <QElapsedTimer>
#include <QKeySequence>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QQmlListReference>
#include <QQuickTextDocument>
#include <QTest>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QUrl>

namespace {

using Run = std::function<void(Stage &)>;

/// Values to write into a property, or to pass, of the type \a id, the last of them as at first.
QVariantList valuesOf(int id, const Stage &stage)
{
    const QByteArray name = QMetaType::typeName(id);
    const auto pointers = [&](const char *property) {
        QVariantList values;
        const QObjectList stocked = stage.stock(property);
        for (QObject *object : stocked) {
            values.append(QVariant(id, &object));
        }
        QObject *none = nullptr;
        values.append(QVariant(id, &none));
        return values;
    };
    switch (id) {
    case QMetaType::Bool:
        return {true, false};
    case QMetaType::Int:
        return {0, 3, -7};
    case QMetaType::Double:
        return {1.5, 0.0};
    case QMetaType::QString:
        return {QStringLiteral("aabbcc"), QStringLiteral("children")};
    case QMetaType::QStringList:
        return {QStringList{QStringLiteral("png")}, QStringList()};
    case QMetaType::QUrl:
        return {QUrl(QStringLiteral("https://a.example/")), QUrl(QStringLiteral("about:black"))};
    case QMetaType::QColor:
        return {QColor(Qt::red), QColor(Qt::blue)};
    case QMetaType::QPointF:
        return {QPointF(3, 4), QPointF(0, 0)};
    case QMetaType::QVariant:
        return {QVariant(1)};
    default:
        break;
    }
    if (name == "QQmlComponent*") {
        return pointers("components");
    }
    if (name == "QQuickItem*") {
        return pointers("items");
    }
    if (name == "om::data::Document*") {
        return pointers("documents");
    }
    if (name == "QQuickTextDocument*") {
        return pointers("textDocuments");
    }
    return {};
}

/// A press and a release, which a window that the press destroys does not get any more.
void clickKey(const QPointer<QQuickWindow> &window, Qt::Key key)
{
    QTest::keyPress(window, key);
    if (window) {
        QTest::keyRelease(window, key);
    }
}

/// Whether \a value points to an object, which may be gone.
bool isObject(const QVariant &value)
{
    return QMetaType::typeFlags(value.userType()).testFlag(QMetaType::PointerToQObject)
        && *static_cast<QObject *const *>(value.constData());
}

QVariantList valuesOf(const QMetaProperty &property, const Stage &stage)
{
    QVariantList values;
    if (property.isEnumType()) {
        const QMetaEnum enumerator = property.enumerator();
        for (int i = enumerator.keyCount() - 1; i >= 0; --i) {
            values.append(enumerator.value(i));
        }
        return values;
    }
    values = valuesOf(property.userType(), stage);
    if (values.isEmpty()) {
        qFatal("No value is known for a property of type %s", property.typeName());
    }
    return values;
}

/// Calls \a method of \a object with the first value of each of its parameters' types.
void invoke(QObject *object, const QMetaMethod &method, const Stage &stage)
{
    QVariantList values;
    const auto types = method.parameterTypes();
    for (int i = 0; i < method.parameterCount(); ++i) {
        const QVariantList possible = types.at(i) == "Qt::Key"
            ? QVariantList{int(Qt::Key_A)}
            : valuesOf(method.parameterType(i), stage);
        if (possible.isEmpty()) {
            qFatal("No value is known for %s", method.methodSignature().constData());
        }
        values.append(possible.constFirst());
    }
    QGenericArgument arguments[10];
    for (int i = 0; i < values.size(); ++i) {
        const bool isVariant = method.parameterType(i) == QMetaType::QVariant;
        arguments[i] = QGenericArgument(types.at(i).constData(),
                                        isVariant ? &values[i] : values.at(i).constData());
    }
    method.invoke(object, Qt::DirectConnection, arguments[0], arguments[1], arguments[2],
                  arguments[3]);
}

class Collector
{
public:
    explicit Collector(Stage &stage)
        : m_stage(stage)
    {
    }

    std::vector<Provocation> collect()
    {
        const auto senders = m_stage.senders();
        const QStringList types = support::registeredTypes();
        for (auto it = senders.cbegin(); it != senders.cend(); ++it) {
            // Types that QML can make have a stage of their own.
            if (it.value() == m_stage.subject()
                || (::isOfLibrary(it.value()) && !types.contains(plainClassName(it.value())))) {
                addWrites(it.key(), it.value());
                addCalls(it.key(), it.value());
            }
        }
        const bool hasEvents =
            m_stage.subject()->inherits("EventItem") || m_stage.subject()->inherits("FilterItem");
        if (m_stage.subject()->inherits("MakerItem")) {
            addCallsOfTheMaker();
        } else if (!::isOfLibrary(m_stage.subject()) && !hasEvents) {
            addCallsOfQt();
        } else if (m_stage.subjectItem()) {
            addPointer();
            addFocusAndKeys();
            addPlace();
        }
        if (hasEvents || m_stage.subject()->inherits("om::controls::DropZone")
            || m_stage.subject()->inherits("om::controls::DropHandler")) {
            addDrags();
        }
        addDocuments();
        if (qobject_cast<EventItem *>(m_stage.subject())) {
            addEndBeside();
        }
        add(QStringLiteral("declare it anew"), [](Stage &stage) { stage.remake(); });
        m_found.back().makesTheScene = true;
        if (m_stage.subject()->inherits("om::controls::FpsCounter")) {
            addFrames();
        }
        return std::move(m_found);
    }

private:
    void add(const QString &name, const Run &run) { m_found.push_back({name, {}, run}); }
    void addOfQt(const QString &name, const Run &run) { m_found.push_back({name, {}, run, true}); }

    static bool isOfLibrary(const QMetaObject *meta)
    {
        return qstrncmp(meta->className(), "om::controls::", 14) == 0;
    }

    void addWrites(const QString &key, QObject *object)
    {
        for (const QMetaObject *meta = object->metaObject(); meta; meta = meta->superClass()) {
            for (int i = meta->propertyOffset(); isOfLibrary(meta) && i < meta->propertyCount();
                 ++i) {
                const QMetaProperty property = meta->property(i);
                const QString name = QString::fromLatin1(property.name());
                if (QByteArray(property.typeName()).startsWith("QQmlListProperty")) {
                    addListWrites(key, name);
                } else if (property.isWritable()) {
                    const int index = i;
                    add(QStringLiteral("write %1.%2").arg(key, name), [key, index](Stage &stage) {
                        QPointer<QObject> target = stage.senders().value(key);
                        const QVariantList values = target
                            ? valuesOf(target->metaObject()->property(index), stage)
                            : QVariantList();
                        // A handler of the first may destroy the others.
                        std::vector<std::pair<QVariant, QPointer<QObject>>> living;
                        for (const QVariant &value : values) {
                            living.emplace_back(value, value.value<QObject *>());
                        }
                        for (const auto &[value, element] : living) {
                            const bool isGone = isObject(value) && !element;
                            if (target && !isGone) {
                                target->metaObject()->property(index).write(target, value);
                            }
                            stage.settle();
                        }
                    });
                }
            }
        }
    }

    void addListWrites(const QString &key, const QString &name)
    {
        add(QStringLiteral("append to and clear %1.%2").arg(key, name), [key, name](Stage &stage) {
            const QByteArray property = name.toLatin1();
            const QPointer<QObject> target = stage.senders().value(key);
            QList<QPointer<QObject>> stocked;
            const QObjectList stock = stage.stock("documents") + stage.stock("handlers");
            for (QObject *object : stock) {
                stocked.append(object);
            }
            for (const QPointer<QObject> &element : qAsConst(stocked)) {
                if (target) {
                    QQmlListReference list(target, property.constData(), stage.engine());
                    if (element && list.canAppend()
                        && element->metaObject()->inherits(list.listElementType())) {
                        list.append(element);
                    }
                }
                stage.settle();
            }
            if (target) {
                QQmlListReference(target, property.constData(), stage.engine()).clear();
            }
        });
        add(QStringLiteral("destroy an element of %1.%2").arg(key, name),
            [key, name](Stage &stage) {
                const QByteArray property = name.toLatin1();
                if (QObject *const target = stage.senders().value(key)) {
                    const QQmlListReference list(target, property.constData(), stage.engine());
                    stage.destroy(list.at(list.count() - 1));
                }
            });
    }

    void addCalls(const QString &key, QObject *object)
    {
        const QMetaObject *const meta = object->metaObject();
        std::vector<int> indexes;
        for (int i = QObject::staticMetaObject.methodCount(); i < meta->methodCount(); ++i) {
            const QMetaMethod method = meta->method(i);
            const QMetaObject *owner = meta;
            while (owner->methodOffset() > i) {
                owner = owner->superClass();
            }
            if (isOfLibrary(owner) && method.methodType() != QMetaMethod::Signal
                && method.access() == QMetaMethod::Public) {
                indexes.push_back(i);
            }
        }
        for (int index : indexes) {
            const QString name = QString::fromLatin1(meta->method(index).methodSignature());
            const Run call = [key, index](Stage &stage) {
                if (QObject *const target = stage.senders().value(key)) {
                    invoke(target, target->metaObject()->method(index), stage);
                }
            };
            if (meta->method(index).methodSignature() == "show()") {
                m_show = call;
            }
            add(QStringLiteral("call %1.%2").arg(key, name), call);
        }
    }

    /// What the library calls on items, done to an item of Qt: what does not survive that cannot
    /// survive the library either.
    void addCallsOfQt()
    {
        const auto call = [this](const char *name, void (*function)(Stage &, QQuickItem *)) {
            add(QString::fromLatin1(name), [function](Stage &stage) {
                if (QQuickItem *const item = stage.subjectItem()) {
                    function(stage, item);
                }
            });
        };
        call("setVisible", [](Stage &, QQuickItem *item) { item->setVisible(!item->isVisible()); });
        call("setEnabled", [](Stage &, QQuickItem *item) { item->setEnabled(!item->isEnabled()); });
        call("setOpacity", [](Stage &, QQuickItem *item) { item->setOpacity(0.5); });
        call("setZ", [](Stage &, QQuickItem *item) { item->setZ(5); });
        call("setX", [](Stage &, QQuickItem *item) { item->setX(5); });
        call("setPosition", [](Stage &, QQuickItem *item) { item->setPosition({5, 6}); });
        call("setSize", [](Stage &, QQuickItem *item) { item->setSize({5, 6}); });
        call("setImplicitWidth", [](Stage &, QQuickItem *item) { item->setImplicitWidth(5); });
        call("setImplicitHeight", [](Stage &, QQuickItem *item) { item->setImplicitHeight(5); });
        call("setImplicitWidth, no width",
             [](Stage &, QQuickItem *item) { item->setImplicitWidth(5); });
        m_found.back().before = [](Stage &stage) {
            if (stage.subjectItem()) {
                stage.subjectItem()->resetWidth();
            }
        };
        call("setImplicitHeight, no height",
             [](Stage &, QQuickItem *item) { item->setImplicitHeight(7); });
        m_found.back().before = [](Stage &stage) {
            if (stage.subjectItem()) {
                stage.subjectItem()->resetHeight();
            }
        };
        call("setScale", [](Stage &, QQuickItem *item) { item->setScale(2); });
        call("setRotation", [](Stage &, QQuickItem *item) { item->setRotation(20); });
        call("forceActiveFocus", [](Stage &, QQuickItem *item) { item->forceActiveFocus(); });
        call("setParentItem, another", [](Stage &stage, QQuickItem *item) {
            item->setParentItem(stage.window()->contentItem());
        });
        call("setParentItem, another window", [](Stage &stage, QQuickItem *item) {
            item->setParentItem(stage.second()->contentItem());
        });
        call("setParentItem, none",
             [](Stage &, QQuickItem *item) { item->setParentItem(nullptr); });
        add(QStringLiteral("format the blocks of a text"), [](Stage &stage) {
            auto *const document =
                qobject_cast<QQuickTextDocument *>(stage.stock("textDocuments").value(0));
            QTextBlockFormat format;
            format.setLineHeight(150, QTextBlockFormat::ProportionalHeight);
            QTextCursor(document->textDocument()->firstBlock()).setBlockFormat(format);
        });
        call("setPosition before synchronising", [](Stage &stage, QQuickItem *item) {
            QObject::connect(stage.window(), &QQuickWindow::beforeSynchronizing, item, [item] {
                item->setPosition({7, 8});
            });
            stage.settle();
        });
        m_found.back().isApart = true;
    }

    void addCallsOfTheMaker()
    {
        for (const char *function : {"make", "makeBitByBit"}) {
            add(QString::fromLatin1(function), [function](Stage &stage) {
                if (stage.subject()) {
                    QMetaObject::invokeMethod(stage.subject(), function);
                }
                stage.settle();
            });
        }
    }

    void addPointer()
    {
        add(QStringLiteral("hover over it and away"), [](Stage &stage) {
            for (const QPoint &place :
                 {QPoint(5, 5), QPoint(60, 60), QPoint(61, 60), QPoint(5, 5)}) {
                QTest::mouseMove(stage.window(), place);
                QCoreApplication::processEvents();
            }
        });
        add(QStringLiteral("click on it"), [](Stage &stage) {
            QTest::mouseClick(stage.window(), Qt::LeftButton, {}, {60, 60});
        });
        add(QStringLiteral("click beside it"), [](Stage &stage) {
            QTest::mouseClick(stage.window(), Qt::LeftButton, {}, {5, 5});
        });
        add(QStringLiteral("press on it, move, release"), [](Stage &stage) {
            QTest::mousePress(stage.window(), Qt::LeftButton, {}, {60, 60});
            QTest::mouseMove(stage.window(), {63, 63});
            QTest::mouseMove(stage.window(), {75, 75});
            stage.settle();
            QTest::mouseRelease(stage.window(), Qt::LeftButton, {}, {75, 75});
        });
    }

    void addFocusAndKeys()
    {
        add(QStringLiteral("give it the focus and take it"), [](Stage &stage) {
            if (stage.subjectItem()) {
                stage.subjectItem()->forceActiveFocus();
            }
            if (stage.subjectItem()) {
                stage.subjectItem()->setFocus(false);
            }
        });
        for (Qt::Key key : {Qt::Key_Escape, Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Return,
                            Qt::Key_Space, Qt::Key_F2}) {
            m_found.push_back({QStringLiteral("press %1 on it").arg(QKeySequence(key).toString()),
                               [](Stage &stage) {
                                   if (stage.subjectItem()) {
                                       stage.subjectItem()->forceActiveFocus();
                                   }
                               },
                               [key](Stage &stage) { clickKey(stage.window(), key); }});
        }
    }

    void addPlace()
    {
        addOfQt(QStringLiteral("move it and what it is in"), [](Stage &stage) {
            if (stage.subjectItem()) {
                stage.subjectItem()->setX(30);
            }
            if (auto *const parent = qobject_cast<QQuickItem *>(stage.root())) {
                parent->setPosition({4, 5});
            }
        });
        addOfQt(QStringLiteral("resize it"), [](Stage &stage) {
            if (stage.subjectItem()) {
                stage.subjectItem()->setWidth(50);
            }
        });
        addOfQt(QStringLiteral("resize its window"), [](Stage &stage) {
            stage.window()->contentItem()->setSize({150, 160});
            stage.settle();
            stage.window()->contentItem()->setSize({200, 200});
        });
        addOfQt(QStringLiteral("move it to another window"), [](Stage &stage) {
            if (stage.subjectItem()) {
                stage.subjectItem()->setParentItem(stage.second()->contentItem());
            }
        });
        addOfQt(QStringLiteral("close its window"), [](Stage &stage) { stage.window()->close(); });
    }

    void addDrags()
    {
        const auto drag = [](bool drops) {
            return [drops](Stage &stage) {
                support::DragEvents events(stage.window());
                events.setUrls(
                    {QUrl(QStringLiteral("file:///a.png")), QUrl(QStringLiteral("file:///a.mp4"))});
                events.setData(QStringLiteral("application/x-lumetra-draggable"), {});
                events.setData(QStringLiteral("application/x-lumetra-documents"), {});
                events.enter({60, 60});
                stage.settle();
                events.move({61, 61});
                stage.settle();
                drops ? void(events.drop({61, 61})) : events.leave();
            };
        };
        for (const bool drops : {false, true}) {
            const QString end = drops ? QStringLiteral("drop") : QStringLiteral("leave");
            add(QStringLiteral("drag over it, ") + end, drag(drops));
            add(QStringLiteral("drag documents of a zone over it, ") + end,
                [drag, drops](Stage &stage) {
                    QObject *const zone = stage.stock("zones").value(0);
                    support::withDragFrom(zone, [&](QDrag *) { drag(drops)(stage); });
                });
        }
    }

    void addDocuments()
    {
        add(QStringLiteral("give documents children and destroy one"), [](Stage &stage) {
            QList<QPointer<QObject>> documents;
            const QObjectList stock = stage.stock("documents");
            for (QObject *object : stock) {
                documents.append(object);
            }
            for (const QPointer<QObject> &document : qAsConst(documents)) {
                if (document) {
                    QQmlComponent component(stage.engine());
                    component.setData("import ombrel.data.Core 1.0\nDocument {}", QUrl());
                    QObject *const child = component.create();
                    child->setParent(document);
                    const QPointer<QObject> listed = child;
                    QQmlListReference(document, "children", stage.engine()).append(child);
                    if (document && listed) {
                        QQmlListReference(document, "listed", stage.engine()).append(listed);
                    }
                }
                stage.settle();
                if (document) {
                    document->setProperty("name", QStringLiteral("other"));
                }
                stage.settle();
            }
            stage.destroy(documents.value(0));
        });
    }

    /// Destroys what the item of Qt is told the end of, and what its parent owns, too.
    void addEndBeside()
    {
        add(QStringLiteral("destroy what is beside it"), [](Stage &stage) {
            if (auto *const item = qobject_cast<EventItem *>(stage.subject())) {
                auto *const beside = new QObject(stage.parentOf(item));
                QObject::connect(beside, &QObject::destroyed, item, &EventItem::happenedAtEnd);
                stage.destroy(beside);
            }
        });
    }

    void addFrames()
    {
        add(QStringLiteral("show frames for a second"), [](Stage &stage) {
            QElapsedTimer timer;
            timer.start();
            for (int frame = 0; frame < 70 || timer.elapsed() < 1100; ++frame) {
                Q_EMIT stage.window()->frameSwapped();
                QTest::qWait(10);
            }
        });
    }

    Stage &m_stage;
    std::vector<Provocation> m_found;

public:
    Run m_show;
};

} // namespace

std::vector<Provocation> provocationsFor(Stage &stage)
{
    Collector collector(stage);
    std::vector<Provocation> found = collector.collect();
    if (collector.m_show) {
        const size_t count = found.size();
        for (size_t i = 0; i < count; ++i) {
            const Run before = found.at(i).before;
            found.push_back({QStringLiteral("shown, ") + found.at(i).name,
                             [before, show = collector.m_show](Stage &s) {
                                 show(s);
                                 s.settle();
                                 if (before) {
                                     before(s);
                                 }
                             },
                             found.at(i).run, found.at(i).isOfQt, found.at(i).isApart,
                             found.at(i).makesTheScene});
        }
    }
    return found;
}
