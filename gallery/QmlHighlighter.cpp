// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/QmlHighlighter.h"

#include <QRegularExpression>

namespace om::gallery {

QmlHighlighter::QmlHighlighter(QObject *parent)
    : QSyntaxHighlighter(parent)
{
}

QQuickTextDocument *QmlHighlighter::textDocument() const
{
    return m_textDocument;
}

void QmlHighlighter::setTextDocument(QQuickTextDocument *textDocument)
{
    if (textDocument == m_textDocument) {
        return;
    }
    m_textDocument = textDocument;
    setDocument(textDocument ? textDocument->textDocument() : nullptr);
    Q_EMIT textDocumentChanged();
}

QColor QmlHighlighter::typeColor() const
{
    return m_typeColor;
}

void QmlHighlighter::setTypeColor(const QColor &color)
{
    setColor(m_typeColor, color);
}

QColor QmlHighlighter::nameColor() const
{
    return m_nameColor;
}

void QmlHighlighter::setNameColor(const QColor &color)
{
    setColor(m_nameColor, color);
}

QColor QmlHighlighter::valueColor() const
{
    return m_valueColor;
}

void QmlHighlighter::setValueColor(const QColor &color)
{
    setColor(m_valueColor, color);
}

QColor QmlHighlighter::commentColor() const
{
    return m_commentColor;
}

void QmlHighlighter::setCommentColor(const QColor &color)
{
    setColor(m_commentColor, color);
}

void QmlHighlighter::highlightBlock(const QString &text)
{
    // One alternative a kind; what a string or a comment holds is no type, nor is a module's name.
    static const QRegularExpression words(QStringLiteral(
        "(?<module>^\\s*import\\s+[A-Za-z][\\w.]*(?:\\s+[\\d.]+)?)|(?<comment>//.*$)"
        "|(?<value>\"(?:[^\"\\\\]|\\\\.)*\"|\\b(?:true|false|null)\\b"
        "|(?<![\\w.])\\d+(?:\\.\\d+)?\\b)|(?<type>\\b[A-Z]\\w*)"
        "|(?<name>\\b(?:import|property|readonly|function|signal|const)\\b|\\b[a-z][\\w.]*(?=\\s*:)"
        ")"));
    auto found = words.globalMatch(text);
    while (found.hasNext()) {
        const QRegularExpressionMatch match = found.next();
        const QColor color = match.capturedLength(QStringLiteral("comment")) > 0 ? m_commentColor
            : match.capturedLength(QStringLiteral("value")) > 0                  ? m_valueColor
            : match.capturedLength(QStringLiteral("type")) > 0                   ? m_typeColor
                                                                                 : m_nameColor;
        setFormat(match.capturedStart(), match.capturedLength(), color);
    }
}

void QmlHighlighter::setColor(QColor &held, const QColor &color)
{
    if (color == held) {
        return;
    }
    held = color;
    rehighlight();
    Q_EMIT colorsChanged();
}

} // namespace om::gallery
