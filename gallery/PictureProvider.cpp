// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/PictureProvider.h"

#include "gallery/PictureReading.h"

#include <QFile>
#include <QMutexLocker>

namespace om::gallery {

QString PictureProblems::of(const QString &path) const
{
    const QMutexLocker lock(&m_mutex);
    return m_problems.value(path);
}

void PictureProblems::set(const QString &path, const QString &problem)
{
    const QMutexLocker lock(&m_mutex);
    if (problem.isEmpty()) {
        m_problems.remove(path);
    } else {
        m_problems.insert(path, problem);
    }
}

PictureProvider::PictureProvider(std::shared_ptr<PictureProblems> problems)
    : QQuickImageProvider(Image, ForceAsynchronousImageLoading)
    , m_problems(std::move(problems))
{
}

QString PictureProvider::sourceFor(const QString &path)
{
    // In hexadecimal digits: a path may hold what an address gives a meaning to.
    return QStringLiteral("image://picture/") + QString::fromLatin1(path.toUtf8().toHex());
}

QImage PictureProvider::requestImage(const QString &id, QSize *size, const QSize &requestedSize)
{
    const QString path = QString::fromUtf8(QByteArray::fromHex(id.toLatin1()));
    QFile file(path);
    const ReadPicture read = readPicture(&file, [requestedSize](const QSize &whole) {
        const int width = requestedSize.width();
        return width > 0 && whole.width() > width
            ? whole.scaled(width, whole.height(), Qt::KeepAspectRatio)
            : QSize();
    });
    m_problems->set(path, read.problem);
    QImage image = read.image.isNull() ? emptyPicture() : read.image;
    *size = image.size();
    return image;
}

} // namespace om::gallery
