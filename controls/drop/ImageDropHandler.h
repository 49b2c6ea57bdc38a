// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "controls/drop/FileDropHandler.h"

namespace om::controls {

/// Takes drags of image files: those whose suffix names a format that Qt can read on this system.
class ImageDropHandler : public FileDropHandler
{
    Q_OBJECT
    /// The suffixes taken; fixed at construction, QML cannot assign it.
    Q_PROPERTY(QStringList suffixes READ suffixes CONSTANT)

public:
    explicit ImageDropHandler(QObject *parent = nullptr);
};

} // namespace om::controls
