// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QCommandLineParser>
#include <QRasterWindow>

/// The window of the second programs (see ForeignProgram.h): a coloured rectangle that says where
/// it is and ends its program when the program's input ends.
class ForeignWindow : public QRasterWindow
{
public:
    ForeignWindow();

    /// Adds the options that both programs have.
    static void addOptions(QCommandLineParser &parser);
    /// Shows the window as the options say.
    void show(const QCommandLineParser &parser, const QColor &color);

    /// Prints one line at once.
    static void say(const QByteArray &line);

protected:
    void exposeEvent(QExposeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QColor m_color;
    bool m_ready = false;
};
