// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/Markdown.h"

#include <QRegularExpression>
#include <QStringList>

namespace om::gallery {

namespace {

QString inlineHtml(const QString &text)
{
    static const QRegularExpression code(QStringLiteral("`([^`]+)`"));
    static const QRegularExpression bold(QStringLiteral("\\*\\*(.+?)\\*\\*"));
    static const QRegularExpression slanted(QStringLiteral("(?<![*\\w])\\*([^*]+)\\*(?![*\\w])"));
    static const QRegularExpression link(QStringLiteral("\\[([^\\]]+)\\]\\(([^)]+)\\)"));
    // Nothing in code means anything: it is set aside until the rest has been read.
    QStringList codes;
    QString open;
    int end = 0;
    auto found = code.globalMatch(text);
    while (found.hasNext()) {
        const QRegularExpressionMatch match = found.next();
        open += text.midRef(end, match.capturedStart() - end) + QChar(0xE000 + codes.size());
        codes.append(match.captured(1));
        end = match.capturedEnd();
    }
    open += text.midRef(end);
    QString html = open.toHtmlEscaped();
    html.replace(link, QStringLiteral("<a href=\"\\2\">\\1</a>"));
    html.replace(bold, QStringLiteral("<b>\\1</b>"));
    html.replace(slanted, QStringLiteral("<i>\\1</i>"));
    for (int i = 0; i < codes.size(); ++i) {
        html.replace(QChar(0xE000 + i),
                     QStringLiteral("<code>%1</code>").arg(codes.at(i).toHtmlEscaped()));
    }
    return html;
}

QStringList cellsOf(QString row)
{
    row.chop(1);
    QStringList cells = row.mid(1).split(QRegularExpression(QStringLiteral("(?<!\\\\)\\|")));
    for (QString &cell : cells) {
        cell = cell.trimmed().replace(QLatin1String("\\|"), QLatin1String("|"));
    }
    return cells;
}

QString tableHtml(const QStringList &rows)
{
    QString html = QStringLiteral("<table width=\"100%\" cellspacing=\"0\" cellpadding=\"4\">");
    for (int i = 0; i < rows.size(); ++i) {
        // The second row is dashes.
        if (i == 1) {
            continue;
        }
        html += QLatin1String("<tr>");
        const QStringList cells = cellsOf(rows.at(i));
        for (const QString &cell : cells) {
            html += QStringLiteral("<td class=\"%1\">%2</td>")
                        .arg(i == 0 ? QStringLiteral("head") : QStringLiteral("cell"),
                             inlineHtml(cell));
        }
        html += QLatin1String("</tr>");
    }
    return html + QLatin1String("</table>");
}

// The lines from `at` on for which `belongs` holds; moves `at` behind them.
template<typename Test>
QStringList take(const QStringList &lines, int &at, Test belongs)
{
    QStringList taken;
    while (at < lines.size() && belongs(lines.at(at))) {
        taken.append(lines.at(at++));
    }
    return taken;
}

QString listHtml(const QStringList &entries, const QRegularExpression &mark, const QString &tag)
{
    QString html;
    for (const QString &entry : entries) {
        html += QStringLiteral("<li>%1</li>").arg(inlineHtml(QString(entry).remove(mark)));
    }
    return QStringLiteral("<%1>%2</%1>").arg(tag, html);
}

} // namespace

QString htmlOf(const QString &markdown)
{
    static const QRegularExpression bullet(QStringLiteral("^[-*] +"));
    static const QRegularExpression number(QStringLiteral("^\\d+\\. +"));
    static const QRegularExpression heading(QStringLiteral("^(#{1,6}) +(.*)$"));
    const QLatin1String fence("```");
    const QStringList lines = markdown.split(QLatin1Char('\n'));
    QString html;
    int at = 0;
    while (at < lines.size()) {
        const QString &line = lines.at(at);
        const QRegularExpressionMatch title = heading.match(line);
        // Comments are for tools/docs, and pictures are not in the program.
        if (line.trimmed().isEmpty() || line.startsWith(QLatin1String("<!--"))
            || line.startsWith(QLatin1String("<img "))) {
            ++at;
        } else if (title.hasMatch()) {
            html += QStringLiteral("<h%1>%2</h%1>")
                        .arg(title.capturedLength(1))
                        .arg(inlineHtml(title.captured(2)));
            ++at;
        } else if (line.startsWith(fence)) {
            ++at;
            const QStringList code = take(
                lines, at, [&fence](const QString &other) { return !other.startsWith(fence); });
            ++at;
            html +=
                QStringLiteral("<pre>%1</pre>").arg(code.join(QLatin1Char('\n')).toHtmlEscaped());
        } else if (line.startsWith(QLatin1Char('|'))) {
            html += tableHtml(take(lines, at, [](const QString &other) {
                return other.startsWith(QLatin1Char('|'));
            }));
        } else if (bullet.match(line).hasMatch() || number.match(line).hasMatch()) {
            const bool numbered = number.match(line).hasMatch();
            const QRegularExpression &mark = numbered ? number : bullet;
            html += listHtml(
                take(lines, at,
                     [&mark](const QString &other) { return mark.match(other).hasMatch(); }),
                mark, numbered ? QStringLiteral("ol") : QStringLiteral("ul"));
        } else {
            QStringList paragraph{lines.at(at++)};
            paragraph += take(lines, at, [&](const QString &other) {
                return !other.trimmed().isEmpty() && !other.startsWith(QLatin1Char('|'))
                    && !other.startsWith(fence) && !bullet.match(other).hasMatch();
            });
            html += QStringLiteral("<p>%1</p>").arg(inlineHtml(paragraph.join(QLatin1Char(' '))));
        }
    }
    return html;
}

} // namespace om::gallery
