// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "gallery/shelf/Shelf.h"

#include <QTemporaryDir>

/// A folder that Shelf may do anything to: a copy of the gallery's samples. Shelf is led back when
/// it opens another one.
class Sandbox : public QObject
{
public:
    Sandbox();

    QString path() const { return m_folder.filePath(QStringLiteral("samples")); }
    void keep(om::gallery::Shelf *shelf);
    /// Makes the folder as it was, and has the shelf forget all that it knows.
    void renew();

private:
    void fill();
    void leadBack();

    QTemporaryDir m_folder;
    om::gallery::Shelf *m_shelf = nullptr;
    bool m_renewing = false;
};
