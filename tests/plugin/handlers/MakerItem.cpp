// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/plugin/handlers/MakerItem.h"

#include <QQmlIncubator>

#include <utility>

namespace {

class Incubator : public QQmlIncubator
{
public:
    Incubator(QQuickItem *maker, IncubationMode mode)
        : QQmlIncubator(mode)
        , m_maker(maker)
    {
    }

protected:
    void setInitialState(QObject *object) override
    {
        if (auto *const item = qobject_cast<QQuickItem *>(object)) {
            item->setParent(m_maker);
            item->setParentItem(m_maker);
        }
    }

private:
    const QPointer<QQuickItem> m_maker;
};

} // namespace

MakerItem::MakerItem(QQuickItem *parent)
    : QQuickItem(parent)
{
}

MakerItem::~MakerItem() = default;

void MakerItem::setDelegate(QQmlComponent *delegate)
{
    m_delegate = delegate;
}

void MakerItem::make()
{
    makeBy(std::make_unique<Incubator>(this, QQmlIncubator::Synchronous));
}

void MakerItem::makeBitByBit()
{
    makeBy(std::make_unique<Incubator>(this, QQmlIncubator::Asynchronous));
}

void MakerItem::componentComplete()
{
    QQuickItem::componentComplete();
    make();
}

void MakerItem::makeBy(std::unique_ptr<QQmlIncubator> incubator)
{
    const auto children = childItems();
    for (QQuickItem *child : children) {
        child->deleteLater();
    }
    if (!m_delegate) {
        return;
    }
    QQmlIncubator &used = *incubator;
    if (used.incubationMode() == QQmlIncubator::Asynchronous) {
        m_incubator = std::move(incubator);
    }
    m_delegate->create(used, m_delegate->creationContext());
}

HastyMakerItem::HastyMakerItem(QQuickItem *parent)
    : MakerItem(parent)
{
}

void HastyMakerItem::setDelegate(QQmlComponent *delegate)
{
    MakerItem::setDelegate(delegate);
    make();
}

void HastyMakerItem::componentComplete()
{
    QQuickItem::componentComplete();
}
