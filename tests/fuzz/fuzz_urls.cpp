// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drop/FileDropHandler.h"
#include "controls/drop/ImageDropHandler.h"
#include "controls/drop/VideoDropHandler.h"
#include "tests/fuzz/Bytes.h"

#include <QMimeData>
#include <QUrl>

using namespace om::controls;

namespace {

/// Whether one of the suffixes is what stands behind the last dot of the name, or the whole name
/// when it has none.
bool passes(const QUrl &url, const QStringList &suffixes)
{
    if (suffixes.isEmpty()) {
        return true;
    }
    const QString path = url.path(QUrl::FullyDecoded);
    const QString name = path.section(QLatin1Char('/'), -1);
    return suffixes.contains(name.section(QLatin1Char('.'), -1).toLower());
}

void check(FileDropHandler &handler, const QMimeData &mimeData)
{
    const QStringList suffixes = handler.suffixes();
    QList<QUrl> expected;
    const QList<QUrl> urls = mimeData.urls();
    for (const QUrl &url : urls) {
        if (passes(url, suffixes)) {
            expected.append(url);
        }
    }
    fuzz::expect(handler.dropData(&mimeData).value<QList<QUrl>>() == expected,
                 "the URLs that pass are the data");
    fuzz::expect(handler.canHandle(&mimeData)
                     == (mimeData.hasUrls() && (suffixes.isEmpty() || !expected.isEmpty())),
                 "a drag is taken when it has a URL that passes");
}

} // namespace

/// The first line is a list of suffixes, parted by blanks; the rest is what another process sends
/// as a list of URLs.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<int>(size));
    const int line = bytes.indexOf('\n');
    QMimeData mimeData;
    mimeData.setData(QStringLiteral("text/uri-list"), bytes.mid(line + 1));

    FileDropHandler files;
    files.setSuffixes(
        QString::fromUtf8(bytes.left(line)).split(QLatin1Char(' '), QString::SkipEmptyParts));
    check(files, mimeData);
    ImageDropHandler images;
    check(images, mimeData);
    VideoDropHandler videos;
    check(videos, mimeData);
    return 0;
}
