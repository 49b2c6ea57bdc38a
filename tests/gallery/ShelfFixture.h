// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "gallery/shelf/Shelf.h"
#include "tests/support/Leftovers.h"
#include "tests/support/Text.h"

#include <QDir>
#include <QDirIterator>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

/// The shelf without its page, on this folder:
///
///     album/ inner/ deep.txt
///            one.png two.png
///     notes.txt plan.txt tail.txt
class ShelfFixture : public QObject
{
protected:
    using Shelf = om::gallery::Shelf;
    using ShelfDocument = om::gallery::ShelfDocument;

    void makeFolder();
    void clear();
    void open();
    void write(const QString &name, const QByteArray &content = "text") const;
    /// All files and folders on disk with their contents, by relative path.
    QMap<QString, QByteArray> disk() const;
    ShelfDocument *document(const char *path) const;
    static QVariantList list(const QList<ShelfDocument *> &documents);
    QStringList names(const char *folder = "") const;
    void save();

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<Shelf> m_shelf;
    QStringList m_said;
};

inline void ShelfFixture::makeFolder()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    QVERIFY(QDir(m_folder->path()).mkpath(support::text("album/inner")));
    for (const char *name : {"album/inner/deep.txt", "notes.txt", "plan.txt", "tail.txt"}) {
        write(support::text(name), name);
    }
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(Qt::red);
    QVERIFY(image.save(m_folder->filePath(support::text("album/one.png"))));
    QVERIFY(image.save(m_folder->filePath(support::text("album/two.png"))));
    open();
}

inline void ShelfFixture::clear()
{
    m_shelf.reset();
    m_folder.reset();
}

inline void ShelfFixture::open()
{
    m_said.clear();
    m_shelf = std::make_unique<Shelf>();
    connect(m_shelf.get(), &Shelf::said, this,
            [this](const QString &message) { m_said.append(message); });
    m_shelf->open(QUrl::fromLocalFile(m_folder->path()));
    QTRY_VERIFY(!m_shelf->isReading());
}

inline void ShelfFixture::write(const QString &name, const QByteArray &content) const
{
    QFile file(m_folder->filePath(name));
    QVERIFY(file.open(QFile::WriteOnly));
    file.write(content);
}

inline QMap<QString, QByteArray> ShelfFixture::disk() const
{
    QMap<QString, QByteArray> all;
    QDirIterator it(m_folder->path(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        QFile file(path);
        const bool isFile = QFileInfo(path).isFile() && file.open(QFile::ReadOnly);
        all.insert(QDir(m_folder->path()).relativeFilePath(path),
                   isFile ? file.readAll() : QByteArray("folder"));
    }
    return all;
}

inline ShelfFixture::ShelfDocument *ShelfFixture::document(const char *path) const
{
    auto *found = static_cast<ShelfDocument *>(m_shelf->root());
    const QStringList parts = support::text(path).split(QLatin1Char('/'), Qt::SkipEmptyParts);
    for (const QString &part : parts) {
        ShelfDocument *next = nullptr;
        const auto entries = found->entries();
        for (ShelfDocument *entry : entries) {
            next = entry->name() == part ? entry : next;
        }
        if (!next) {
            return nullptr;
        }
        found = next;
    }
    return found;
}

inline QVariantList ShelfFixture::list(const QList<ShelfDocument *> &documents)
{
    QVariantList variants;
    for (ShelfDocument *document : documents) {
        variants.append(QVariant::fromValue<QObject *>(document));
    }
    return variants;
}

inline QStringList ShelfFixture::names(const char *folder) const
{
    QStringList names;
    const auto entries = document(folder)->entries();
    for (const ShelfDocument *entry : entries) {
        names.append(entry->name());
    }
    return names;
}

inline void ShelfFixture::save()
{
    m_shelf->save();
    QTRY_VERIFY(!m_shelf->isSaving());
}
