// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/ForeignWindow.h"

#include <QGuiApplication>
#include <QPainter>
#include <QSocketNotifier>

#include <cstdio>
#include <unistd.h>

ForeignWindow::ForeignWindow()
{
    setFlag(Qt::FramelessWindowHint);
    auto *input = new QSocketNotifier(STDIN_FILENO, QSocketNotifier::Read, this);
    connect(input, &QSocketNotifier::activated, this, [] {
        char byte = 0;
        if (::read(STDIN_FILENO, &byte, 1) <= 0) {
            // At once, a drag's own loop or not.
            std::_Exit(0);
        }
    });
}

void ForeignWindow::addOptions(QCommandLineParser &parser)
{
    parser.addHelpOption();
    parser.addOption({QStringLiteral("at"), QStringLiteral("Where the window is."),
                      QStringLiteral("X,Y"), QStringLiteral("600,100")});
    parser.addOption({QStringLiteral("size"), QStringLiteral("How large the window is."),
                      QStringLiteral("WIDTHxHEIGHT"), QStringLiteral("200x200")});
}

void ForeignWindow::show(const QCommandLineParser &parser, const QColor &color)
{
    const QStringList at = parser.value(QStringLiteral("at")).split(QLatin1Char(','));
    const QStringList size = parser.value(QStringLiteral("size")).split(QLatin1Char('x'));
    m_color = color;
    setGeometry(at.value(0).toInt(), at.value(1).toInt(), size.value(0).toInt(),
                size.value(1).toInt());
    QRasterWindow::show();
}

void ForeignWindow::say(const QByteArray &line)
{
    std::fwrite(line.constData(), 1, size_t(line.size()), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

void ForeignWindow::exposeEvent(QExposeEvent *event)
{
    QRasterWindow::exposeEvent(event);
    if (isExposed() && !m_ready) {
        m_ready = true;
        const QPoint at = mapToGlobal(QPoint(0, 0));
        say("ready " + QByteArray::number(at.x()) + ' ' + QByteArray::number(at.y()) + ' '
            + QByteArray::number(width()) + ' ' + QByteArray::number(height()));
    }
}

void ForeignWindow::paintEvent(QPaintEvent *)
{
    QPainter(this).fillRect(QRect(0, 0, width(), height()), m_color);
}
