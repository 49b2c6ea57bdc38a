// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/hosts/WidgetHost.h"

#include <QQuickWindow>
#include <QTest>

void WidgetHost::show(const QString &file)
{
    m_widget.setSource(QUrl::fromLocalFile(file));
    if (m_widget.status() != QQuickWidget::Ready) {
        qFatal("%s does not load", qPrintable(file));
    }
    // Qt leaves it without a size, and it is what a dialog is centred in.
    m_widget.quickWindow()->contentItem()->setSize(m_widget.size());
    m_widget.setWindowFlag(Qt::FramelessWindowHint);
    m_widget.move(100, 100);
    m_widget.show();
    m_widget.activateWindow();
    if (!QTest::qWaitForWindowExposed(&m_widget)) {
        qFatal("The widget is not shown");
    }
}

QImage WidgetHost::picture()
{
    return m_widget.grabFramebuffer();
}
