// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "gallery/shelf/ShelfNotes.h"

#include <QByteArray>
#include <QHash>
#include <QStringList>
#include <QVector>

namespace om::gallery {

class ShelfDocument;

/// What has to be done on disk so that a folder becomes what its shelf shows. Made in one thread,
/// run in any.
class ShelfPlan
{
public:
    enum Kind {
        Write,
        MakeFolder,
        Move,
        Delete,
        WriteNotes
    };

    struct Step
    {
        Kind kind = Write;
        QString from; ///< for what is moved or deleted
        QString to; ///< for all but what is deleted
        QByteArray content;
        bool folder = false; ///< a folder that is no link
        /// What happens, as a sentence to be read before it does; empty for what is in a folder
        /// that another step speaks of.
        QString text;
    };

    struct Outcome
    {
        /// Where things are now, by the place where they were to be written or moved; empty for
        /// what has not been written.
        QHash<QString, QString> places;
        QStringList problems;

        /// Tells the documents of a shelf where they are on disk now.
        void settle(ShelfDocument *root) const;

    private:
        void settle(ShelfDocument *folder, const QString &target) const;
    };

    /// `known` are the documents that have been on disk, those included that are no longer on the
    /// shelf; `notes` is what the notes on disk say.
    static ShelfPlan of(const ShelfDocument *root, const QVector<ShelfDocument *> &known,
                        const ShelfNotes &notes);

    const QVector<Step> &steps() const { return m_steps; }
    /// What is to be read before it happens.
    QStringList texts() const;
    /// What the notes will say.
    const ShelfNotes &notes() const { return m_notes; }

    static QString sizeText(qint64 bytes);

    /// Does it. Nothing that is there already is overwritten but the notes, and of a folder that is
    /// deleted what the shelf does not know stays.
    Outcome run() const;

private:
    class Maker;
    class Runner;
    QString m_root;
    QVector<Step> m_steps;
    ShelfNotes m_notes;
};

} // namespace om::gallery
