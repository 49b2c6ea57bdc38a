// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/GalleryEngine.h"

#include "gallery/FolderTree.h"
#include "gallery/PictureProvider.h"
#include "gallery/shelf/Shelf.h"

#include <QQmlContext>
#include <QQmlEngine>

namespace om::gallery {

void prepareEngine(QQmlEngine *engine, FolderTree *tree)
{
    engine->rootContext()->setContextProperty(QStringLiteral("gallery"), tree);
    // The engine owns its providers.
    engine->addImageProvider(QStringLiteral("picture"),
                             new PictureProvider(tree->pictureProblems()));
    // It outlives its page: what has not been saved is there when the page is opened again.
    auto *const shelf = new Shelf(engine);
    engine->rootContext()->setContextProperty(QStringLiteral("shelf"), shelf);
    engine->addImageProvider(QStringLiteral("shelf"), new ShelfThumbnails(shelf->thumbnails()));
}

} // namespace om::gallery
