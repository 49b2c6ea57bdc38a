// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "controls/drop/FileDropHandler.h"

namespace om::controls {

/// Takes drags of video files, told by the suffix of six common containers.
class VideoDropHandler : public FileDropHandler
{
    Q_OBJECT
    /// The suffixes taken; fixed at construction, QML cannot assign it.
    Q_PROPERTY(QStringList suffixes READ suffixes CONSTANT)

public:
    explicit VideoDropHandler(QObject *parent = nullptr);
};

} // namespace om::controls
