// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/tree/TreeViewRow.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQmlProperty>
#include <QQuickItem>

namespace om::controls {

struct TreeViewRow::Numbers
{
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
        branchHandleItem = property("branchHandleItem");
        collapseMarker = property("marker");
        defaultHandle = property("defaultHandle");
        pressArea = property("press");
        takeBackground = function("takeBackground(QVariant)");
        takeDelegate = function("takeDelegate(QVariant)");
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
    int branchHandleItem;
    int collapseMarker;
    int defaultHandle;
    int pressArea;
    int takeBackground;
    int takeDelegate;
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

void call(QObject *object, int function, QObject *argument)
{
    QVariant value = QVariant::fromValue(argument);
    void *arguments[] = {nullptr, &value};
    QMetaObject::metacall(object, QMetaObject::InvokeMetaMethod, function, arguments);
}

} // namespace

TreeViewRow::TreeViewRow(QQuickItem *item)
    : m_item(item)
    , m_numbers([item]() -> const Numbers & {
        static const Numbers numbers(item);
        return numbers;
    }())
{
}

void TreeViewRow::setChildCount(int count)
{
    write(m_item, m_numbers.childCount, &count);
}

void TreeViewRow::setTreeParent(QQuickItem *parentRow)
{
    writeObject(m_item, m_numbers.treeParent, parentRow);
}

void TreeViewRow::setPredecessor(QQuickItem *row)
{
    writeObject(m_item, m_numbers.predecessor, row);
}

void TreeViewRow::requireLayout()
{
    void *arguments[] = {nullptr};
    QMetaObject::metacall(m_item, QMetaObject::InvokeMetaMethod, m_numbers.layoutRequired,
                          arguments);
}

void TreeViewRow::releaseTop()
{
    void *nothing[] = {nullptr};
    QMetaObject::metacall(readObject(m_item, m_numbers.anchors), QMetaObject::ResetProperty,
                          m_numbers.top, nothing);
}

void TreeViewRow::setTop(QQuickItem *above)
{
    QVariant line(m_numbers.lineType, nullptr);
    read(above, m_numbers.bottom, line.data());
    write(readObject(m_item, m_numbers.anchors), m_numbers.top, line.data());
}

void TreeViewRow::takeBackground(QQuickItem *item)
{
    call(m_item, m_numbers.takeBackground, item);
}

void TreeViewRow::takeDelegate(QQuickItem *item)
{
    call(m_item, m_numbers.takeDelegate, item);
}

void TreeViewRow::setBranchHandle(QQuickItem *item)
{
    writeObject(m_item, m_numbers.branchHandleItem, item);
}

QQuickItem *TreeViewRow::collapseMarker() const
{
    return qobject_cast<QQuickItem *>(readObject(m_item, m_numbers.collapseMarker));
}

QQuickItem *TreeViewRow::makeDefaultBranchHandle()
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

void TreeViewRow::raisePressArea()
{
    auto *area = qobject_cast<QQuickItem *>(readObject(m_item, m_numbers.pressArea));
    QQuickItem *last = m_item->childItems().constLast();
    if (area != last) {
        area->stackAfter(last);
    }
}

} // namespace om::controls
