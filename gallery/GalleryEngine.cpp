// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/GalleryEngine.h"

#include "gallery/FolderTree.h"
#include "gallery/PictureProvider.h"

#include <QQmlContext>
#include <QQmlEngine>

namespace om::gallery {

void prepareEngine(QQmlEngine *engine, FolderTree *tree)
{
    engine->rootContext()->setContextProperty(QStringLiteral("gallery"), tree);
    // The engine owns its providers.
    engine->addImageProvider(QStringLiteral("picture"),
                             new PictureProvider(tree->pictureProblems()));
}

} // namespace om::gallery
