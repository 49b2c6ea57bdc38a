// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/PictureReading.h"

#include "gallery/Quiet.h"

#include <QFile>
#include <QImageReader>

namespace om::gallery {

namespace {

// A picture of a hundred million pixels takes 400 MB while it is read.
constexpr qint64 mostPixels = 100000000;

QString problemOf(const QImageReader &reader)
{
    switch (reader.error()) {
    case QImageReader::FileNotFoundError:
    case QImageReader::DeviceError:
        return QStringLiteral("cannot be read");
    case QImageReader::InvalidDataError:
        return QStringLiteral("is damaged");
    default:
        return QStringLiteral("is no picture");
    }
}

} // namespace

ReadPicture readPicture(QIODevice *device, const std::function<QSize(const QSize &)> &scaled)
{
    if (!device->open(QIODevice::ReadOnly)) {
        const auto *const file = qobject_cast<QFile *>(device);
        const bool isGone = file && !file->exists();
        return {{}, isGone ? QStringLiteral("is gone") : QStringLiteral("cannot be read")};
    }
    const Listening listening;
    QImageReader reader(device);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QSize whole = reader.size();
    if (qint64(whole.width()) * whole.height() > mostPixels) {
        return {{}, QStringLiteral("is too large to show")};
    }
    const QSize size = scaled(whole);
    if (!size.isEmpty()) {
        reader.setScaledSize(size);
    }
    const QImage image = reader.read();
    if (image.isNull()) {
        return {{}, problemOf(reader)};
    }
    return {image, listening.heard().isEmpty() ? QString() : QStringLiteral("is damaged")};
}

QImage emptyPicture()
{
    QImage image(1, 1, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

} // namespace om::gallery
