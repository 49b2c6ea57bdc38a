// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/ForeignWindow.h"

#include <QDrag>
#include <QGuiApplication>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>

/// A window that drags what the command line says when the left button is pressed in it; see
/// ForeignProgram.h.
class SourceWindow : public ForeignWindow
{
public:
    explicit SourceWindow(const QCommandLineParser &parser)
        : m_parser(parser)
    {
    }

protected:
    void mousePressEvent(QMouseEvent *event) override
    {
        if (event->button() == Qt::LeftButton) {
            drag();
        }
    }

private:
    void drag();

    const QCommandLineParser &m_parser;
};

void SourceWindow::drag()
{
    auto *mimeData = new QMimeData;
    QList<QUrl> urls;
    const QStringList given = m_parser.values(QStringLiteral("url"));
    for (const QString &url : given) {
        urls.append(QUrl(url));
    }
    const int many = m_parser.value(QStringLiteral("many")).toInt();
    for (int i = 0; i < many; ++i) {
        urls.append(QUrl(QStringLiteral("file:///many/%1.png").arg(i)));
    }
    if (!urls.isEmpty()) {
        mimeData->setUrls(urls);
    }
    const QStringList formats = m_parser.values(QStringLiteral("mime"));
    for (const QString &format : formats) {
        const int equals = format.indexOf(QLatin1Char('='));
        mimeData->setData(format.left(equals),
                          QByteArray::fromHex(format.mid(equals + 1).toLatin1()));
    }
    Qt::DropActions actions;
    const QString names = m_parser.value(QStringLiteral("actions"));
    actions.setFlag(Qt::CopyAction, names.contains(QLatin1String("copy")));
    actions.setFlag(Qt::MoveAction, names.contains(QLatin1String("move")));
    actions.setFlag(Qt::LinkAction, names.contains(QLatin1String("link")));

    say("drag");
    auto *drag = new QDrag(this);
    drag->setMimeData(mimeData);
    // A release before the target's answer has come would cancel the drag.
    connect(drag, &QDrag::actionChanged, this,
            [](Qt::DropAction action) { say("action " + QByteArray::number(int(action))); });
    // The platform keeps the drag until the target has finished with it.
    connect(drag, &QObject::destroyed, qGuiApp, [] { say("finished"); });
    const Qt::DropAction action = drag->exec(actions);
    say("result " + QByteArray::number(int(action)));
}

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    QCommandLineParser parser;
    ForeignWindow::addOptions(parser);
    parser.addOptions({
        {QStringLiteral("url"), QStringLiteral("A URL to drag."), QStringLiteral("URL")},
        {QStringLiteral("many"), QStringLiteral("That many file URLs."), QStringLiteral("N")},
        {QStringLiteral("mime"), QStringLiteral("Data to drag."), QStringLiteral("FORMAT=HEX")},
        {QStringLiteral("actions"), QStringLiteral("The actions on offer."), QStringLiteral("LIST"),
         QStringLiteral("copy,move,link")},
    });
    parser.process(application);
    SourceWindow window(parser);
    window.show(parser, Qt::darkCyan);
    return application.exec();
}
