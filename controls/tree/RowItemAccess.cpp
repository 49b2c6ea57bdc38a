// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/tree/RowItemAccess.h"

#include <QMetaMethod>
#include <QMetaProperty>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQmlProperty>
#include <QQuickItem>

namespace om::controls {

struct RowItemAccess::Numbers
{
    static const Numbers &of(QQuickItem *row);

    explicit Numbers(QQuickItem *row)
    {
        const QMetaObject *type = row->metaObject();
        const auto property = [type](const char *name) {
            const int number = type->indexOfProperty(name);
            Q_ASSERT(number >= 0);
            return number;
        };
        const auto function = [type](const char *signature) {
            const int number = type->indexOfMethod(signature);
            Q_ASSERT(number >= 0);
            return number;
        };
        childCount = property("childCount");
        treeParent = property("treeParent");
        predecessor = property("predecessor");
        backgroundItem = property("backgroundItem");
        delegateItem = property("delegateItem");
        branchHandleItem = property("branchHandleItem");
        collapseMarker = property("marker");
        defaultHandle = property("defaultHandle");
        pressArea = property("press");
        placeBackground = function("placeBackground()");
        placeDelegate = function("placeDelegate()");
        layoutRequired =
            QQmlProperty(row, QStringLiteral("onLayoutRequired")).method().methodIndex();
        // Anchors and their lines are private types of Qt Quick.
        anchors = property("anchors");
        bottom = property("bottom");
        lineType = type->property(bottom).userType();
        top = row->property("anchors").value<QObject *>()->metaObject()->indexOfProperty("top");
    }

    int childCount;
    int treeParent;
    int predecessor;
    int backgroundItem;
    int delegateItem;
    int branchHandleItem;
    int collapseMarker;
    int defaultHandle;
    int pressArea;
    int placeBackground;
    int placeDelegate;
    int layoutRequired;
    int anchors;
    int bottom;
    int lineType;
    int top; ///< Of the anchors.
};

namespace {

void read(QObject *object, int property, void *value)
{
    int status = -1;
    void *arguments[] = {value, nullptr, &status};
    QMetaObject::metacall(object, QMetaObject::ReadProperty, property, arguments);
}

void write(QObject *object, int property, void *value)
{
    int status = -1;
    int flags = 0;
    void *arguments[] = {value, nullptr, &status, &flags};
    QMetaObject::metacall(object, QMetaObject::WriteProperty, property, arguments);
}

QObject *readObject(QObject *object, int property)
{
    QObject *value = nullptr;
    read(object, property, &value);
    return value;
}

void writeObject(QObject *object, int property, QObject *value)
{
    write(object, property, &value);
}

void call(QObject *object, int function)
{
    void *arguments[] = {nullptr};
    QMetaObject::metacall(object, QMetaObject::InvokeMetaMethod, function, arguments);
}

} // namespace

const RowItemAccess::Numbers &RowItemAccess::Numbers::of(QQuickItem *row)
{
    static const Numbers numbers(row);
    return numbers;
}

RowItemAccess::RowItemAccess(QQuickItem *item)
    : m_item(item)
    , m_numbers(Numbers::of(item))
{
}

bool RowItemAccess::fits(QQuickItem *item)
{
    if (!item) {
        return false;
    }
    const QMetaObject *type = item->metaObject();
    const Numbers &numbers = Numbers::of(item);
    return type->method(numbers.placeDelegate).name() == "placeDelegate"
        && qstrcmp(type->property(numbers.defaultHandle).name(), "defaultHandle") == 0;
}

void RowItemAccess::setChildCount(int count)
{
    write(m_item, m_numbers.childCount, &count);
}

void RowItemAccess::setTreeParent(QQuickItem *parentRow)
{
    writeObject(m_item, m_numbers.treeParent, parentRow);
}

void RowItemAccess::setPredecessor(QQuickItem *row)
{
    writeObject(m_item, m_numbers.predecessor, row);
}

void RowItemAccess::requireLayout()
{
    call(m_item, m_numbers.layoutRequired);
}

void RowItemAccess::releaseTop()
{
    void *nothing[] = {nullptr};
    QMetaObject::metacall(readObject(m_item, m_numbers.anchors), QMetaObject::ResetProperty,
                          m_numbers.top, nothing);
}

void RowItemAccess::anchorTop()
{
    QObject *above = readObject(m_item, m_numbers.predecessor);
    if (above) {
        QVariant line(m_numbers.lineType, nullptr);
        read(above, m_numbers.bottom, line.data());
        write(readObject(m_item, m_numbers.anchors), m_numbers.top, line.data());
    }
}

void RowItemAccess::setBackgroundItem(QQuickItem *item)
{
    writeObject(m_item, m_numbers.backgroundItem, item);
}

void RowItemAccess::setDelegateItem(QQuickItem *item)
{
    writeObject(m_item, m_numbers.delegateItem, item);
}

void RowItemAccess::setBranchHandleItem(QQuickItem *item)
{
    writeObject(m_item, m_numbers.branchHandleItem, item);
}

QQuickItem *RowItemAccess::collapseMarker() const
{
    return qobject_cast<QQuickItem *>(readObject(m_item, m_numbers.collapseMarker));
}

QQuickItem *RowItemAccess::makeDefaultBranchHandle()
{
    auto *component = qobject_cast<QQmlComponent *>(readObject(m_item, m_numbers.defaultHandle));
    auto *handle = qobject_cast<QQuickItem *>(component->beginCreate(component->creationContext()));
    if (handle) {
        QQuickItem *marker = collapseMarker();
        handle->setParent(marker);
        handle->setParentItem(marker);
        component->completeCreate();
        QQmlEngine::setObjectOwnership(handle, QQmlEngine::JavaScriptOwnership);
    }
    return handle;
}

void RowItemAccess::raisePressArea()
{
    auto *area = qobject_cast<QQuickItem *>(readObject(m_item, m_numbers.pressArea));
    QQuickItem *last = m_item->childItems().constLast();
    if (area != last) {
        area->stackAfter(last);
    }
}

void RowItemAccess::placeBackground()
{
    call(m_item, m_numbers.placeBackground);
}

void RowItemAccess::placeDelegate()
{
    call(m_item, m_numbers.placeDelegate);
}

} // namespace om::controls
