// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/shelf/ShelfThumbnails.h"

#include "gallery/PictureReading.h"

#include <QBuffer>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QMutexLocker>
#include <QRunnable>
#include <QThread>

namespace om::gallery {

namespace {

/// Makes one picture. The engine deletes it once it has finished, and asks no more of it after
/// cancel().
class Response
    : public QQuickImageResponse
    , public QRunnable
{
public:
    Response(std::shared_ptr<ShelfThumbnails::Store> store, const QString &id, const QString &path,
             const QSize &size, bool whole)
        : m_store(std::move(store))
        , m_id(id)
        , m_path(path)
        , m_size(size)
        , m_whole(whole)
    {
        setAutoDelete(false);
    }

    void run() override
    {
        if (!m_cancelled) {
            m_image = m_store->picture(m_id, m_path, m_size, m_whole);
        }
        if (m_image.isNull()) {
            m_image = emptyPicture();
        }
        Q_EMIT finished();
    }

    void cancel() override { m_cancelled = true; }
    QQuickTextureFactory *textureFactory() const override
    {
        return QQuickTextureFactory::textureFactoryForImage(m_image);
    }

private:
    const std::shared_ptr<ShelfThumbnails::Store> m_store;
    const QString m_id;
    const QString m_path;
    const QSize m_size;
    const bool m_whole;
    std::atomic_bool m_cancelled{false};
    QImage m_image;
};

} // namespace

void ShelfThumbnails::Store::setContent(const QString &id, const QByteArray &content)
{
    const QMutexLocker lock(&m_mutex);
    m_contents.insert(id, content);
}

void ShelfThumbnails::Store::clear()
{
    const QMutexLocker lock(&m_mutex);
    m_contents.clear();
    m_problems.clear();
    m_pictures.clear();
}

QString ShelfThumbnails::Store::problemOf(const QString &id) const
{
    const QMutexLocker lock(&m_mutex);
    return m_problems.value(id);
}

QImage ShelfThumbnails::Store::picture(const QString &id, const QString &path, const QSize &size,
                                       bool whole)
{
    const QFileInfo file(path);
    const QString key = QStringLiteral("%1 %2x%3 %4 %5 %6")
                            .arg(id)
                            .arg(size.width())
                            .arg(size.height())
                            .arg(int(whole))
                            .arg(file.size())
                            .arg(file.lastModified().toMSecsSinceEpoch());
    {
        const QMutexLocker lock(&m_mutex);
        if (const QImage *kept = m_pictures.object(key)) {
            return *kept;
        }
    }
    QString problem;
    QImage image = read(id, path, size, whole, &problem);
    const QMutexLocker lock(&m_mutex);
    if (problem.isEmpty()) {
        m_problems.remove(id);
    } else {
        m_problems.insert(id, problem);
    }
    if (!image.isNull()) {
        m_pictures.insert(key, new QImage(image), int(image.sizeInBytes()));
    }
    return image;
}

QImage ShelfThumbnails::Store::read(const QString &id, const QString &path, const QSize &size,
                                    bool whole, QString *problem)
{
    QByteArray content;
    bool inMemory = false;
    {
        const QMutexLocker lock(&m_mutex);
        const auto found = m_contents.constFind(id);
        inMemory = found != m_contents.constEnd();
        if (inMemory) {
            content = *found;
        }
    }
    QFile file(path);
    QBuffer buffer(&content);
    QIODevice *const device = inMemory ? static_cast<QIODevice *>(&buffer) : &file;
    const ReadPicture read = readPicture(device, [&size, whole](const QSize &all) {
        const QSize scaled =
            all.scaled(size, whole ? Qt::KeepAspectRatio : Qt::KeepAspectRatioByExpanding);
        return scaled.width() < all.width() && !size.isEmpty() ? scaled : QSize();
    });
    *problem = read.problem;
    if (read.image.isNull()) {
        return {};
    }
    QImage image = read.image;
    if (!whole && !size.isEmpty()
        && (image.width() > size.width() || image.height() > size.height())) {
        const QSize cut = image.size().boundedTo(size);
        image = image.copy((image.width() - cut.width()) / 2, (image.height() - cut.height()) / 2,
                           cut.width(), cut.height());
    }
    // What the renderer takes as it is: a conversion there would cost the frame.
    return image.convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                         : QImage::Format_RGB32);
}

ShelfThumbnails::ShelfThumbnails(std::shared_ptr<Store> store)
    : m_store(std::move(store))
{
    // One processor stays with the window.
    m_threads.setMaxThreadCount(qMax(1, QThread::idealThreadCount() - 1));
}

ShelfThumbnails::~ShelfThumbnails()
{
    m_threads.waitForDone();
}

QQuickImageResponse *ShelfThumbnails::requestImageResponse(const QString &id, const QSize &size)
{
    const QStringList parts = id.split(QLatin1Char('/'));
    const auto part = [&parts](int index) {
        return QString::fromUtf8(QByteArray::fromHex(parts.value(index).toLatin1()));
    };
    auto *const response = new Response(m_store, part(0), part(1), size, parts.size() > 2);
    m_threads.start(response, ++m_requests);
    return response;
}

QString ShelfThumbnails::sourceFor(const QString &id, const QString &path, bool whole)
{
    // In hexadecimal digits: a path may hold what an address gives a meaning to.
    return QStringLiteral("image://shelf/%1/%2%3")
        .arg(QString::fromLatin1(id.toUtf8().toHex()), QString::fromLatin1(path.toUtf8().toHex()),
             whole ? QStringLiteral("/whole") : QString());
}

} // namespace om::gallery
