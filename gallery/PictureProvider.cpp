// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/PictureProvider.h"

#include "gallery/Quiet.h"

#include <QFile>
#include <QImageReader>
#include <QMutexLocker>

namespace om::gallery {

namespace {

// A picture of a hundred million pixels takes 400 MB while it is read.
constexpr qint64 mostPixels = 100000000;

QString problemOf(const QImageReader &reader, const QString &path)
{
    switch (reader.error()) {
    case QImageReader::FileNotFoundError:
    case QImageReader::DeviceError:
        return QFile::exists(path) ? QStringLiteral("cannot be read") : QStringLiteral("is gone");
    case QImageReader::InvalidDataError:
        return QStringLiteral("is damaged");
    default:
        return QStringLiteral("is no picture");
    }
}

} // namespace

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
    const Listening listening;
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QSize whole = reader.size();
    QImage image;
    QString problem;
    if (qint64(whole.width()) * whole.height() > mostPixels) {
        problem = QStringLiteral("is too large to show");
    } else {
        if (requestedSize.width() > 0 && whole.width() > requestedSize.width()) {
            reader.setScaledSize(
                whole.scaled(requestedSize.width(), whole.height(), Qt::KeepAspectRatio));
        }
        image = reader.read();
        if (image.isNull()) {
            problem = problemOf(reader, path);
        } else if (!listening.heard().isEmpty()) {
            problem = QStringLiteral("is damaged");
        }
    }
    m_problems->set(path, problem);
    if (image.isNull()) {
        // No picture at all would be a warning.
        image = QImage(1, 1, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
    }
    *size = image.size();
    return image;
}

} // namespace om::gallery
