// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/QmlWindow.h"

#include <QPointer>
#include <QQmlComponent>
#include <QTest>

/// data/dialogs.qml in its window.
struct Dialogs : support::QmlWindow
{
    Dialogs()
        : QmlWindow(QStringLiteral("data/dialogs.qml"))
    {
        dialog = window->findChild<QQuickItem *>(QStringLiteral("dialog"));
        second = window->findChild<QQuickItem *>(QStringLiteral("second"));
        if (!QTest::qWaitFor([this] { return dialog->parentItem() == window->contentItem(); })) {
            qFatal("The dialog stays where it was declared");
        }
    }

    QString takeLog()
    {
        return run(QStringLiteral("log.splice(0, log.length).join(', ')")).toString();
    }

    void press(const QPoint &point)
    {
        QTest::mouseClick(window.data(), Qt::LeftButton, Qt::NoModifier, point);
    }

    QPointer<QQuickItem> dialog;
    QPointer<QQuickItem> second;
};

/// How many dialogs of the process are open: the z of one opened now tells.
inline int openDialogs()
{
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData("import ombrel.Controls 1.0; DialogItem {}", QUrl());
    const QScopedPointer<QObject> probe(component.create());
    QMetaObject::invokeMethod(probe.data(), "show");
    const int count = int(probe->property("z").toReal()) - 65535;
    QMetaObject::invokeMethod(probe.data(), "reject");
    return count;
}
