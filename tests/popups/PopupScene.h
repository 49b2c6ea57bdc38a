// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPropertyAnimation>
#include <QQuickItem>
#include <QTest>
#include <QWindow>

/// What the tests of Popup share: points of data/popup.qml, and the popup's fade.

const QPoint outside(300, 250);
const QPoint inTarget(140, 65);
const QPoint inPopup(120, 120);

inline QPropertyAnimation *fadeOf(QQuickItem *popup)
{
    return popup->findChild<QPropertyAnimation *>(QString(), Qt::FindDirectChildrenOnly);
}

inline void press(QWindow *window, const QPoint &point)
{
    QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, point);
}
