// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QUrl>
#include <QVariantList>
#include <QVector>

namespace om::gallery {

/// The reference of the library inside the gallery: its pages, its examples, and what they name, to
/// be searched.
class Reference : public QObject
{
    Q_OBJECT

public:
    explicit Reference(QObject *parent = nullptr);
    ~Reference() override;

    /// The types that have a page, in the order of the alphabet.
    Q_INVOKABLE QStringList types() const;
    /// The page of a type as HTML; empty when there is none.
    Q_INVOKABLE QString page(const QString &type) const;
    /// The example of a type without its licence; empty when there is none.
    Q_INVOKABLE QString example(const QString &type) const;

    /// From now on find() knows what `type` is tried with, which is what the steps in its demo's
    /// file say.
    Q_INVOKABLE void addSteps(const QString &type, const QUrl &demo);

    /// What has `text` in its name, the best first: a list of objects with `kind` ("type",
    /// "property", "signal", "method" or "try"), `name`, and the `type` whose page has it. A name
    /// that is the text comes before one that begins with it, and that before one that has it
    /// somewhere; capitals are not told from small letters.
    Q_INVOKABLE QVariantList find(const QString &text, int most = 12) const;

private:
    struct Entry
    {
        QString kind;
        QString name;
        QString type;
    };
    void read(const QString &type);

    QVector<Entry> m_entries;
};

} // namespace om::gallery
