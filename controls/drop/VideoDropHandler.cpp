// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drop/VideoDropHandler.h"

namespace om::controls {

VideoDropHandler::VideoDropHandler(QObject *parent)
    : FileDropHandler(parent)
{
    setSuffixes({QStringLiteral("avi"), QStringLiteral("flv"), QStringLiteral("mkv"),
                 QStringLiteral("mp4"), QStringLiteral("webm"), QStringLiteral("mov")});
}

} // namespace om::controls
