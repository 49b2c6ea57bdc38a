// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drop/FileDropHandler.h"

#include <QMimeData>
#include <QUrl>

#include <algorithm>

namespace om::controls {

class FileDropHandler::Private
{
public:
    explicit Private(FileDropHandler *handler)
        : q(handler)
    {
    }

    bool accepts(const QUrl &url) const;

    FileDropHandler *const q;
    QStringList suffixes;
};

bool FileDropHandler::Private::accepts(const QUrl &url) const
{
    const QString name = url.fileName(QUrl::FullyDecoded);
    // Without a dot the suffix is the whole name: a file called "mp4" passes as a video.
    const QString suffix = name.mid(name.lastIndexOf(QLatin1Char('.')) + 1).toLower();
    return suffixes.contains(suffix);
}

FileDropHandler::FileDropHandler(QObject *parent)
    : DropHandler(parent)
    , d(std::make_unique<Private>(this))
{
    // Makes the list that dropData() returns an array for QML.
    qRegisterMetaType<QList<QUrl>>();
}

FileDropHandler::~FileDropHandler() = default;

QStringList FileDropHandler::suffixes() const
{
    return d->suffixes;
}

void FileDropHandler::setSuffixes(const QStringList &suffixes)
{
    // The entries keep the case they came in. A file's suffix is lower-cased before it is looked
    // up, so one with capitals matches nothing.
    if (d->suffixes == suffixes) {
        return;
    }
    d->suffixes = suffixes;
    Q_EMIT suffixesChanged(suffixes);
}

QVariant FileDropHandler::dropData(const QMimeData *mimeData)
{
    QList<QUrl> urls = mimeData->urls();
    if (!d->suffixes.isEmpty()) {
        const auto refused = [this](const QUrl &url) { return !d->accepts(url); };
        urls.erase(std::remove_if(urls.begin(), urls.end(), refused), urls.end());
    }
    return QVariant::fromValue(urls);
}

bool FileDropHandler::canHandle(const QMimeData *mimeData)
{
    if (!mimeData->hasUrls()) {
        return false;
    }
    if (d->suffixes.isEmpty()) {
        return true;
    }
    const QList<QUrl> urls = mimeData->urls();
    return std::any_of(urls.cbegin(), urls.cend(),
                       [this](const QUrl &url) { return d->accepts(url); });
}

} // namespace om::controls
