// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPoint>
#include <QProcess>
#include <QRect>
#include <QStringList>

namespace support {

/// Another program with a window on the same X server, for drags that cross processes:
///
/// xdnd_source  drags from its window when the left button is pressed in it
///     --url URL, --mime FORMAT=HEX   what it drags (repeatable)
///     --many N                       N file URLs
///     --actions copy,move,link       what it offers (default: all)
///     prints "ready X Y WIDTH HEIGHT", "drag", "action ACTION" for each answer of a target that
///     differs from the one before (0 none, 1 copy, 2 move, 4 link), "result ACTION" once the
///     button is up, which Qt does not delay until the target has read the drop, and "finished"
///     once the target has
/// plain_xdnd_source
///              the same without Qt in it: the bare protocol, one answer at a time
///     --url URL                      what it drags (repeatable), as text/uri-list
///     --text TEXT                    likewise, as text/plain
///     prints what xdnd_source prints, the result being 1 for a drop and 0 otherwise, and
///     "finished 1" or "finished 0", what the target says at its end
/// xdnd_target  takes every drop
///     --refuse                       refuses every drag
///     prints "ready …", "enter FORMAT…", "move X Y", "leave", and at a drop "format NAME HEX" for
///     each format, then "drop ACTION"
///
/// All take --at X,Y and --size WIDTHxHEIGHT, and end when this object goes.
class ForeignProgram
{
public:
    explicit ForeignProgram(const QString &name);
    ~ForeignProgram();

    /// Starts the program and waits until its window is shown. False with error() otherwise.
    bool start(const QStringList &arguments);
    QString error() const { return m_error; }

    /// The window, in global coordinates.
    QRect geometry() const { return m_geometry; }
    /// What it has printed so far.
    QStringList lines() const { return m_lines; }
    /// The lines that start with the word \a word, without it.
    QStringList lines(const QString &word) const;
    /// How often it printed the word \a word first on a line.
    int count(const QString &word) const { return lines(word).size(); }
    /// Whether the last answer that xdnd_source told of would take the drop. What a zone shows is
    /// not enough to let go by: its answer may be on its way still.
    bool mayDrop() const;

private:
    void read();

    QProcess m_process;
    QByteArray m_pending;
    QStringList m_lines;
    QRect m_geometry;
    QString m_error;
};

} // namespace support
