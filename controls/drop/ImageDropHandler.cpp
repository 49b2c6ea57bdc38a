// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drop/ImageDropHandler.h"

#include <QImageReader>

namespace om::controls {

ImageDropHandler::ImageDropHandler(QObject *parent)
    : FileDropHandler(parent)
{
    QStringList suffixes;
    const auto formats = QImageReader::supportedImageFormats();
    for (const QByteArray &format : formats) {
        suffixes.append(QString::fromLatin1(format).toLower());
    }
    setSuffixes(suffixes);
}

} // namespace om::controls
