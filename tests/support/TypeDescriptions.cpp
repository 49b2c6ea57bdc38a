// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/TypeDescriptions.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

namespace support {

namespace {

class Parser
{
public:
    explicit Parser(const QString &text);

    TypeBlock parse();

private:
    QString take() { return m_tokens.value(m_next++); }
    QString peek() const { return m_tokens.value(m_next); }

    void member(TypeBlock *block);
    static QString unquoted(const QString &text);

    QStringList m_tokens;
    int m_next = 0;
};

Parser::Parser(const QString &text)
{
    const QRegularExpression token(QStringLiteral(
        "//[^\\n]*|import [^\\n]*|(\"(?:[^\"\\\\]|\\\\.)*\"|[\\w.+-]+|[{}\\[\\]:;,])"));
    auto tokens = token.globalMatch(text);
    while (tokens.hasNext()) {
        const QString captured = tokens.next().captured(1);
        if (!captured.isEmpty()) {
            m_tokens.append(captured);
        }
    }
}

TypeBlock Parser::parse()
{
    TypeBlock root;
    while (m_next < m_tokens.size()) {
        member(&root);
    }
    return root;
}

void Parser::member(TypeBlock *block)
{
    const QString name = take();
    if (name == QLatin1String(";") || name == QLatin1String(",")) {
        return;
    }
    if (peek() == QLatin1String("{")) {
        take();
        TypeBlock child;
        child.kind = name;
        while (m_next < m_tokens.size() && peek() != QLatin1String("}")) {
            member(&child);
        }
        take();
        block->blocks.push_back(child);
        return;
    }
    take(); // the colon
    QString value;
    if (peek() == QLatin1String("[") || peek() == QLatin1String("{")) {
        const QString close =
            take() == QLatin1String("[") ? QStringLiteral("]") : QStringLiteral("}");
        while (m_next < m_tokens.size() && peek() != close) {
            value += take();
        }
        take();
    } else {
        value = take();
    }
    block->fields[unquoted(name)] = unquoted(value);
}

QString Parser::unquoted(const QString &text)
{
    return text.startsWith(QLatin1Char('"')) && text.count(QLatin1Char('"')) == 2
        ? text.mid(1, text.size() - 2)
        : text;
}

} // namespace

QString TypeBlock::text(const char *field) const
{
    const auto found = fields.find(QLatin1String(field));
    return found == fields.end() ? QString() : found->second;
}

std::vector<const TypeBlock *> TypeBlock::children(const char *childKind) const
{
    std::vector<const TypeBlock *> found;
    for (const TypeBlock &block : blocks) {
        if (block.kind == QLatin1String(childKind)) {
            found.push_back(&block);
        }
    }
    return found;
}

TypeBlock readTypes(const QString &text)
{
    return Parser(text).parse();
}

const TypeBlock *typeNamed(const std::vector<TypeBlock> &types, const QString &name)
{
    const auto found = std::find_if(types.cbegin(), types.cend(), [&name](const TypeBlock &type) {
        return type.text("name") == name;
    });
    return found == types.cend() ? nullptr : &*found;
}

} // namespace support
