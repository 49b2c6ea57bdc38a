// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QHash>
#include <QMutex>
#include <QQuickImageProvider>

#include <memory>

namespace om::gallery {

/// What is wrong with picture files, by path; written by the threads that read them.
class PictureProblems
{
public:
    /// Empty when nothing is, or when the picture has not been read yet.
    QString of(const QString &path) const;
    void set(const QString &path, const QString &problem);

private:
    mutable QMutex m_mutex;
    QHash<QString, QString> m_problems;
};

/// Reads pictures for QML on a thread of the engine's, at the size that is asked for. A file that
/// cannot be read gives an empty picture instead of a warning in the terminal, and a problem.
class PictureProvider : public QQuickImageProvider
{
public:
    explicit PictureProvider(std::shared_ptr<PictureProblems> problems);

    QImage requestImage(const QString &id, QSize *size, const QSize &requestedSize) override;

    /// The source that makes QML read the file at `path`.
    static QString sourceFor(const QString &path);

private:
    const std::shared_ptr<PictureProblems> m_problems;
};

} // namespace om::gallery
