// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/drag/DocumentDropHandler.h"
#include "controls/drag/DocumentsPayload.h"
#include "controls/drag/DraggableDropHandler.h"
#include "controls/drag/DraggablePayload.h"
#include "tests/fuzz/Bytes.h"

#include <QMimeData>

using namespace om::controls;

namespace {

/// The ids in a payload, read byte by byte: each is its length in bytes, 32 bits with the highest
/// first and all of them set for a null id, and then UTF-16 in the same order.
QStringList idsIn(const QByteArray &payload)
{
    QStringList ids;
    const auto at = [&payload](int index) { return static_cast<unsigned char>(payload[index]); };
    int position = 0;
    while (payload.size() - position >= 4) {
        quint32 length = 0;
        for (int i = 0; i < 4; ++i) {
            length = length << 8 | at(position++);
        }
        if (length == 0xffffffff) {
            ids.append(QString());
            continue;
        }
        if (length % 2 || length > static_cast<quint32>(payload.size() - position)) {
            break;
        }
        QString id(QLatin1String(""));
        for (; length; length -= 2, position += 2) {
            id.append(QChar(at(position) << 8 | at(position + 1)));
        }
        ids.append(id);
    }
    return ids;
}

/// QStringList's comparison takes a null id for an empty one.
bool same(const QStringList &one, const QStringList &other)
{
    const auto equal = [](const QString &a, const QString &b) {
        return a == b && a.isNull() == b.isNull();
    };
    return std::equal(one.cbegin(), one.cend(), other.cbegin(), other.cend(), equal);
}

} // namespace

/// What another process may put under our two formats.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzz::Bytes bytes(data, size);
    const int keyLength = bytes.byte() % 16;
    const QByteArray payload(bytes.rest(), bytes.restSize());

    fuzz::expect(same(documentspayload::read(payload), idsIn(payload)), "all whole ids are read");

    QMimeData mimeData;
    mimeData.setData(documentspayload::format(), payload);
    mimeData.setData(draggablepayload::format(), payload);

    DocumentDropHandler documents;
    fuzz::expect(!documents.canHandle(&mimeData), "documents from another process are refused");
    fuzz::expect(!documents.dropData(&mimeData).isValid(), "a drop of documents has no data");

    DraggableDropHandler draggables;
    draggables.setKey(QString::fromUtf8(payload.left(keyLength)));
    fuzz::expect(draggables.canHandle(&mimeData) == (draggables.key().toUtf8() == payload),
                 "the key is compared with all bytes");
    fuzz::expect(draggables.dropData(&mimeData).toByteArray() == payload,
                 "a drop of a draggable has the bytes as they are");
    return 0;
}
