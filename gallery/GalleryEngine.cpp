// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/GalleryEngine.h"

#include "gallery/FolderTree.h"
#include "gallery/PictureProvider.h"
#include "gallery/PlayedDrag.h"
#include "gallery/QmlHighlighter.h"
#include "gallery/Reference.h"
#include "gallery/Session.h"
#include "gallery/shelf/Shelf.h"

#include <QQmlContext>
#include <QQmlEngine>
#include <QSettings>

// The files of a static library are left out unless somebody asks for them; asking declares a
// function, which a namespace must not take in.
static void useDocs()
{
    Q_INIT_RESOURCE(docs);
}

namespace om::gallery {

void prepareEngine(QQmlEngine *engine, FolderTree *tree, Session *session)
{
    useDocs();
    qmlRegisterType<QmlHighlighter>("ombrel.gallery", 1, 0, "QmlHighlighter");
    qmlRegisterType<PlayedDrag>("ombrel.gallery", 1, 0, "PlayedDrag");
    QQmlContext *context = engine->rootContext();
    context->setContextProperty(QStringLiteral("gallery"), tree);
    context->setContextProperty(QStringLiteral("session"),
                                session ? session : new Session(nullptr, engine));
    context->setContextProperty(QStringLiteral("reference"), new Reference(engine));
    // The engine owns its providers.
    engine->addImageProvider(QStringLiteral("picture"),
                             new PictureProvider(tree->pictureProblems()));
    // It outlives its page: what has not been saved is there when the page is opened again.
    auto *const shelf = new Shelf(engine);
    engine->rootContext()->setContextProperty(QStringLiteral("shelf"), shelf);
    engine->addImageProvider(QStringLiteral("shelf"), new ShelfThumbnails(shelf->thumbnails()));
}

} // namespace om::gallery
