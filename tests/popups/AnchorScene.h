// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/QmlWindow.h"

#include <QPointer>
#include <QTest>

/// data/anchor.qml in its window.
struct AnchorScene : support::QmlWindow
{
    AnchorScene()
        : QmlWindow(QStringLiteral("data/anchor.qml"))
    {
        anchorItem = window->findChild<QQuickItem *>(QStringLiteral("anchor"));
    }

    QQuickItem *popup() const { return anchorItem->property("popupItem").value<QQuickItem *>(); }
    /// The item at the top of the window that the popup lies in.
    QQuickItem *anchor() const { return popup() ? popup()->parentItem() : nullptr; }
    bool isShown() const { return anchorItem->property("popupVisible").toBool(); }
    void press(const QPoint &point)
    {
        QTest::mouseClick(window.data(), Qt::LeftButton, Qt::NoModifier, point);
    }
    QList<int> distances() const
    {
        return {anchorItem->property("distanceTop").toInt(),
                anchorItem->property("distanceBottom").toInt(),
                anchorItem->property("distanceRight").toInt()};
    }

    QPointer<QQuickItem> anchorItem;
};

/// A point of the window of data/anchor.qml that is far from the popup.
const QPoint outside(500, 400);
