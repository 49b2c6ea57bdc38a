// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>
#include <QSize>
#include <QString>

#include <functional>

class QIODevice;

namespace om::gallery {

/// What came of reading a picture: an image, null when there is none to show, and what is wrong,
/// for the user, as in "hills.png is damaged"; empty when nothing is. Both may be there.
struct ReadPicture
{
    QImage image;
    QString problem;
};

/// Reads the picture in \a device, which is opened here, in whatever format it is. A \a scaled size
/// that is not empty is what the picture is read in; it is given the picture's own. On any thread;
/// says nothing in the terminal.
ReadPicture readPicture(QIODevice *device, const std::function<QSize(const QSize &)> &scaled);

/// What is shown for a picture that cannot be: no picture at all would be a warning.
QImage emptyPicture();

} // namespace om::gallery
