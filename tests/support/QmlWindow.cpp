// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/QmlWindow.h"

#include "tests/support/QmlView.h"

#include <QQmlComponent>
#include <QTest>

namespace support {

QmlWindow::QmlWindow(const QString &path)
{
    QQmlComponent component(&engine, QUrl::fromLocalFile(QFINDTESTDATA(path)));
    window.reset(qobject_cast<QQuickWindow *>(component.create()));
    if (!window) {
        qFatal("%s does not load: %s", qPrintable(path), qPrintable(component.errorString()));
    }
    window->setPosition(100, 100);
    window->show();
    window->requestActivate();
    if (!QTest::qWaitForWindowActive(window.data())) {
        qFatal("The window is not shown");
    }
}

QmlWindow::~QmlWindow() = default;

QVariant QmlWindow::run(const QString &expression) const
{
    return evaluate(window.data(), expression);
}

QQuickItem *QmlWindow::item(const char *name) const
{
    return window->findChild<QQuickItem *>(QString::fromLatin1(name));
}

} // namespace support
