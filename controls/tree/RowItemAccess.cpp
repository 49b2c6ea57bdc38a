// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/tree/RowItemAccess.h"

#include <QMetaMethod>
#include <QMetaProperty>
#include <QPointer>
#include <QQmlComponent>
#include <QQmlProperty>
#include <QQuickItem>

#include <cstring>

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
        awaitsEntry = property("awaitsEntry");
        childCount = property("childCount");
        entryCollapsed = property("entryCollapsed");
        treeParent = property("treeParent");
        predecessor = property("predecessor");
        backgroundItem = property("backgroundItem");
        delegateItem = property("delegateItem");
        branchHandleItem = property("branchHandleItem");
        collapseMarker = property("marker");
        bindDelegateWidth = function("bindDelegateWidth()");
        measureMarker = function("measureMarker()");
        layoutRequired =
            QQmlProperty(row, QStringLiteral("onLayoutRequired")).method().methodIndex();
        // Anchors and anchor lines are private types of Qt Quick, used as properties here.
        anchors = property("anchors");
        bottom = property("bottom");
        lineType = type->property(bottom).userType();
        right = property("right");
        const QMetaObject *anchorsType = row->property("anchors").value<QObject *>()->metaObject();
        anchorTop = anchorsType->indexOfProperty("top");
        anchorRight = anchorsType->indexOfProperty("right");
        anchorFill = anchorsType->indexOfProperty("fill");
    }

    int awaitsEntry;
    int childCount;
    int entryCollapsed;
    int treeParent;
    int predecessor;
    int backgroundItem;
    int delegateItem;
    int branchHandleItem;
    int collapseMarker;
    int bindDelegateWidth;
    int measureMarker;
    int layoutRequired;
    int anchors;
    int bottom;
    int lineType;
    int right;
    // Of the anchors.
    int anchorTop;
    int anchorRight;
    int anchorFill;
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

/// Anchor lines begin with a pointer to an item and the number of one of its lines; their type is
/// private and cannot be compared. What follows in memory is padding.
bool areSameLine(const QVariant &a, const QVariant &b)
{
    return std::memcmp(a.constData(), b.constData(), sizeof(void *) + sizeof(int)) == 0;
}

/// Whether \a item can be anchored to \a target: Qt Quick warns of an item that is neither its
/// child nor its sibling, and either may have been taken elsewhere by the application.
bool canAnchor(const QQuickItem *item, const QQuickItem *target)
{
    const QQuickItem *parent = item->parentItem();
    return parent && (parent == target || parent == target->parentItem());
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
    return type->method(numbers.bindDelegateWidth).name() == "bindDelegateWidth"
        && qstrcmp(type->property(numbers.collapseMarker).name(), "marker") == 0;
}

void RowItemAccess::setAwaitsEntry(bool awaits)
{
    write(m_item, m_numbers.awaitsEntry, &awaits);
}

void RowItemAccess::setChildCount(int count)
{
    write(m_item, m_numbers.childCount, &count);
}

void RowItemAccess::setCollapsed(bool collapsed)
{
    write(m_item, m_numbers.entryCollapsed, &collapsed);
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

bool RowItemAccess::isBelowPredecessor() const
{
    QQuickItem *above = predecessor();
    return above && canAnchor(m_item, above) && areSameLine(top(), line(above, m_numbers.bottom));
}

void RowItemAccess::releaseTop()
{
    void *nothing[] = {nullptr};
    QMetaObject::metacall(readObject(m_item, m_numbers.anchors), QMetaObject::ResetProperty,
                          m_numbers.anchorTop, nothing);
}

void RowItemAccess::anchorTop()
{
    QQuickItem *above = predecessor();
    const QVariant noLine(m_numbers.lineType, nullptr);
    if (above && canAnchor(m_item, above) && areSameLine(top(), noLine)) {
        anchor(m_item, m_numbers.anchorTop, above, m_numbers.bottom);
    }
}

QQuickItem *RowItemAccess::predecessor() const
{
    return qobject_cast<QQuickItem *>(readObject(m_item, m_numbers.predecessor));
}

QVariant RowItemAccess::top() const
{
    return line(readObject(m_item, m_numbers.anchors), m_numbers.anchorTop);
}

/// The anchor line that is the \a property of \a object, an item or its anchors.
QVariant RowItemAccess::line(QObject *object, int property) const
{
    QVariant value(m_numbers.lineType, nullptr);
    read(object, property, value.data());
    return value;
}

/// Sets the anchor line \a own of \a object to the line \a targetLine of \a target.
void RowItemAccess::anchor(QObject *object, int own, QObject *target, int targetLine)
{
    QVariant value = line(target, targetLine);
    write(readObject(object, m_numbers.anchors), own, value.data());
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

QQmlComponent *RowItemAccess::defaultBranchHandle() const
{
    return m_item->findChild<QQmlComponent *>(QString(), Qt::FindDirectChildrenOnly);
}

void RowItemAccess::fitMarker()
{
    QQuickItem *marker = collapseMarker();
    const QList<QQuickItem *> children = marker->childItems();
    if (children.size() == 1) {
        // As childrenRect, which has no negative size.
        marker->setSize(children.constFirst()->size().expandedTo(QSizeF(0, 0)));
    }
}

void RowItemAccess::measureMarker()
{
    // Read before it is bound: the first read computes the rectangle and emits its change.
    collapseMarker()->childrenRect();
    call(m_item, m_numbers.measureMarker);
}

QQuickItem *RowItemAccess::pressArea() const
{
    return m_item->childItems().value(0);
}

void RowItemAccess::raisePressArea(QQuickItem *area)
{
    const QList<QQuickItem *> children = m_item->childItems();
    if (children.contains(area) && area != children.constLast()) {
        area->stackAfter(children.constLast());
    }
}

void RowItemAccess::placeBackground(QQuickItem *item)
{
    const QPointer<QQuickItem> background(item);
    if (canAnchor(item, m_item)) {
        writeObject(readObject(item, m_numbers.anchors), m_numbers.anchorFill, m_item);
    }
    if (background) {
        item->setZ(-1);
    }
}

void RowItemAccess::placeDelegate(QQuickItem *item)
{
    const QPointer<QQuickItem> row(m_item);
    const QPointer<QQuickItem> delegate(item);
    if (canAnchor(item, m_item)) {
        anchor(item, m_numbers.anchorRight, m_item, m_numbers.right);
    }
    if (row && delegate) {
        call(m_item, m_numbers.bindDelegateWidth);
    }
}

} // namespace om::controls
