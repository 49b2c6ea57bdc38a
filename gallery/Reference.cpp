// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/Reference.h"

#include "gallery/Markdown.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>

namespace om::gallery {

namespace {

QString textOf(const QString &path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString pagePath(const QString &type)
{
    return QStringLiteral(":/gallery/docs/reference/%1.md").arg(type);
}

// What the first cells of the tables below a heading name.
QString kindBelow(const QString &heading)
{
    const QString lower = heading.toLower();
    for (const char *kind : {"signal", "method", "propert"}) {
        if (lower.contains(QLatin1String(kind))) {
            return kind == QLatin1String("propert") ? QStringLiteral("property")
                                                    : QString::fromLatin1(kind);
        }
    }
    return {};
}

// The lower the better; -1 when `name` has nothing of `text`.
int distance(const QString &name, const QString &text)
{
    const int at = name.indexOf(text, 0, Qt::CaseInsensitive);
    if (at < 0) {
        return -1;
    }
    if (at == 0) {
        return name.size() == text.size() ? 0 : 1;
    }
    // A capital begins a word within a name, and so does what follows a space.
    return name.at(at).isUpper() || !name.at(at - 1).isLetterOrNumber() ? 2 : 3;
}

} // namespace

Reference::Reference(QObject *parent)
    : QObject(parent)
{
    const QStringList all = types();
    for (const QString &type : all) {
        m_entries.append({QStringLiteral("type"), type, type});
    }
    for (const QString &type : all) {
        read(type);
    }
}

Reference::~Reference() = default;

QStringList Reference::types() const
{
    QStringList names =
        QDir(QStringLiteral(":/gallery/docs/reference")).entryList({QStringLiteral("*.md")});
    names.replaceInStrings(QStringLiteral(".md"), QString());
    names.sort();
    return names;
}

QString Reference::page(const QString &type) const
{
    return htmlOf(textOf(pagePath(type)));
}

QString Reference::example(const QString &type) const
{
    static const QRegularExpression licence(QStringLiteral("^(?:// SPDX-[^\\n]*\\n)+\\n*"));
    // Pages take parts of an example by such marks.
    static const QRegularExpression marks(QStringLiteral("^ *//! \\[[^\\n]*\\n"),
                                          QRegularExpression::MultilineOption);
    return textOf(QStringLiteral(":/gallery/docs/snippets/%1Example.qml").arg(type))
        .remove(licence)
        .remove(marks);
}

void Reference::addSteps(const QString &type, const QUrl &demo)
{
    static const QRegularExpression step(QStringLiteral("Step \\{[^\"]*?text: \"([^\"]+)\""));
    const QString path =
        demo.scheme() == QLatin1String("qrc") ? QLatin1Char(':') + demo.path() : demo.toLocalFile();
    auto found = step.globalMatch(textOf(path));
    while (found.hasNext()) {
        m_entries.append({QStringLiteral("try"), found.next().captured(1), type});
    }
}

QVariantList Reference::find(const QString &text, int most) const
{
    const QString wanted = text.trimmed();
    if (wanted.isEmpty()) {
        return {};
    }
    QVector<QPair<int, const Entry *>> found;
    for (const Entry &entry : m_entries) {
        const int far = distance(entry.name, wanted);
        if (far >= 0) {
            found.append({far, &entry});
        }
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const auto &a, const auto &b) { return a.first < b.first; });
    QVariantList results;
    for (const auto &result : qAsConst(found)) {
        if (results.size() == most) {
            break;
        }
        const Entry &entry = *result.second;
        results.append(QVariantMap{{QStringLiteral("kind"), entry.kind},
                                   {QStringLiteral("name"), entry.name},
                                   {QStringLiteral("type"), entry.type}});
    }
    return results;
}

void Reference::read(const QString &type)
{
    static const QRegularExpression named(
        QStringLiteral("`(?:[\\w.]+ )?([A-Za-z_.]\\w*)(?:\\([^`]*)?`"));
    static const QRegularExpression change(QStringLiteral("`(\\w+Changed)\\("));
    QSet<QString> seen;
    const auto add = [&](const QString &kind, const QString &name) {
        if (!kind.isEmpty() && !seen.contains(name)) {
            seen.insert(name);
            m_entries.append({kind, name, type});
        }
    };
    QString kind;
    const QStringList lines = textOf(pagePath(type)).split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        if (line.startsWith(QLatin1Char('#'))) {
            kind = kindBelow(line);
        } else if (line.startsWith(QLatin1Char('|'))) {
            auto names = named.globalMatch(line.section(QLatin1Char('|'), 1, 1));
            while (names.hasNext()) {
                add(kind, names.next().captured(1));
            }
            auto changes = change.globalMatch(line);
            while (changes.hasNext()) {
                add(QStringLiteral("signal"), changes.next().captured(1));
            }
        } else if (line.startsWith(QLatin1String("- `"))) {
            const QRegularExpressionMatch first = named.match(line);
            add(kind, first.captured(1));
        }
    }
}

} // namespace om::gallery
