// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/plugin/handlers/ToldItem.h"

#include "tests/plugin/handlers/Moment.h"

ToldItem::ToldItem(QQuickItem *parent)
    : QQuickItem(parent)
{
}

ToldItem::~ToldItem()
{
    tell({this, QStringLiteral("is destroyed"), true});
}

void ToldItem::tellOf(const QString &moment)
{
    tell({this, moment, moment == QLatin1String("onDestruction")});
}

void ToldItem::classBegin()
{
    QQuickItem::classBegin();
    tell({this, QStringLiteral("begins"), false});
}

void ToldItem::componentComplete()
{
    QQuickItem::componentComplete();
    tell({this, QStringLiteral("completes"), false});
}

void ToldItem::itemChange(ItemChange change, const ItemChangeData &value)
{
    QQuickItem::itemChange(change, value);
    if (change == ItemParentHasChanged && value.item) {
        tell({this, QStringLiteral("gets a parent"), false});
    }
}
