// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QPointer>
#include <QQuickTextDocument>
#include <QSyntaxHighlighter>

namespace om::gallery {

/// Colours QML in a text item: `QmlHighlighter { textDocument: edit.textDocument }`.
class QmlHighlighter : public QSyntaxHighlighter
{
    Q_OBJECT
    /// The document of a text item; null for none.
    Q_PROPERTY(QQuickTextDocument *textDocument READ textDocument WRITE setTextDocument NOTIFY
                   textDocumentChanged)
    /// For types and other names that begin with a capital letter.
    Q_PROPERTY(QColor typeColor READ typeColor WRITE setTypeColor NOTIFY colorsChanged)
    /// For names before a colon, keywords of declarations, and imports with their module.
    Q_PROPERTY(QColor nameColor READ nameColor WRITE setNameColor NOTIFY colorsChanged)
    /// For strings, numbers, `true`, `false` and `null`.
    Q_PROPERTY(QColor valueColor READ valueColor WRITE setValueColor NOTIFY colorsChanged)
    Q_PROPERTY(QColor commentColor READ commentColor WRITE setCommentColor NOTIFY colorsChanged)

public:
    explicit QmlHighlighter(QObject *parent = nullptr);

    QQuickTextDocument *textDocument() const;
    void setTextDocument(QQuickTextDocument *textDocument);
    QColor typeColor() const;
    void setTypeColor(const QColor &color);
    QColor nameColor() const;
    void setNameColor(const QColor &color);
    QColor valueColor() const;
    void setValueColor(const QColor &color);
    QColor commentColor() const;
    void setCommentColor(const QColor &color);

Q_SIGNALS:
    void textDocumentChanged();
    void colorsChanged();

protected:
    void highlightBlock(const QString &text) override;

private:
    void setColor(QColor &held, const QColor &color);

    QPointer<QQuickTextDocument> m_textDocument;
    QColor m_typeColor;
    QColor m_nameColor;
    QColor m_valueColor;
    QColor m_commentColor;
};

} // namespace om::gallery
