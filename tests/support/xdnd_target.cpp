// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/ForeignWindow.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QMimeData>

/// A window that takes every drop and prints what it got; see ForeignProgram.h.
class TargetWindow : public ForeignWindow
{
public:
    explicit TargetWindow(bool refuses)
        : m_refuses(refuses)
    {
    }

protected:
    bool event(QEvent *event) override;

private:
    void drop(QDropEvent *event);

    const bool m_refuses;
};

bool TargetWindow::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::DragEnter: {
        auto *enter = static_cast<QDragEnterEvent *>(event);
        say("enter " + enter->mimeData()->formats().join(QLatin1Char(' ')).toUtf8());
        enter->setAccepted(!m_refuses);
        return true;
    }
    case QEvent::DragMove: {
        auto *move = static_cast<QDragMoveEvent *>(event);
        say("move " + QByteArray::number(move->pos().x()) + ' '
            + QByteArray::number(move->pos().y()));
        move->setAccepted(!m_refuses);
        return true;
    }
    case QEvent::DragLeave:
        say("leave");
        return true;
    case QEvent::Drop:
        drop(static_cast<QDropEvent *>(event));
        return true;
    default:
        return ForeignWindow::event(event);
    }
}

void TargetWindow::drop(QDropEvent *event)
{
    const QStringList formats = event->mimeData()->formats();
    for (const QString &format : formats) {
        say("format " + format.toUtf8() + ' ' + event->mimeData()->data(format).toHex());
    }
    event->setAccepted(!m_refuses);
    say("drop " + QByteArray::number(int(event->dropAction())));
}

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    QCommandLineParser parser;
    ForeignWindow::addOptions(parser);
    parser.addOption({QStringLiteral("refuse"), QStringLiteral("Refuse every drag.")});
    parser.process(application);
    TargetWindow window(parser.isSet(QStringLiteral("refuse")));
    window.show(parser, Qt::darkMagenta);
    return application.exec();
}
