// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QCache>
#include <QHash>
#include <QImage>
#include <QMutex>
#include <QQuickAsyncImageProvider>
#include <QThreadPool>

#include <atomic>
#include <memory>

namespace om::gallery {

/// The small pictures of a shelf's images, made on threads of their own and kept for a while.
///
/// What was asked for last is made first: whoever scrolls fast sees the place of arrival before all
/// that went by. A file that cannot be read gives an empty picture instead of a warning in the
/// terminal, and a problem.
class ShelfThumbnails : public QQuickAsyncImageProvider
{
public:
    /// What provider and shelf share; all of it may be used from any thread.
    class Store
    {
    public:
        /// The bytes of what is not on disk, by the identifier of its document.
        void setContent(const QString &id, const QByteArray &content);
        void clear();
        QString problemOf(const QString &id) const;

        /// The picture of a document: its bytes from here, or else from the file `path`; `whole`
        /// inside of `size`, or else cut to fill it. Takes time unless it was made before.
        QImage picture(const QString &id, const QString &path, const QSize &size, bool whole);

    private:
        QImage read(const QString &id, const QString &path, const QSize &size, bool whole,
                    QString *problem);

        mutable QMutex m_mutex;
        QHash<QString, QByteArray> m_contents;
        QHash<QString, QString> m_problems;
        QCache<QString, QImage> m_pictures{64 * 1024 * 1024};
    };

    explicit ShelfThumbnails(std::shared_ptr<Store> store);
    ~ShelfThumbnails() override;

    QQuickImageResponse *requestImageResponse(const QString &id, const QSize &size) override;

    /// The source that makes QML show the picture of a document.
    static QString sourceFor(const QString &id, const QString &path, bool whole);

private:
    const std::shared_ptr<Store> m_store;
    QThreadPool m_threads;
    std::atomic_int m_requests{0};
};

} // namespace om::gallery
