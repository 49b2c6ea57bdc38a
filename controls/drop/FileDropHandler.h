// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "controls/drop/DropHandler.h"

#include <QStringList>

namespace om::controls {

/// Takes drags that carry URLs of files, filtered by the files' suffixes. DropData.data is the
/// list of the URLs that pass the filter.
class FileDropHandler : public DropHandler
{
    Q_OBJECT
    /// The suffixes taken, without a dot, in lower case; an empty list takes every URL.
    ///
    /// A file's suffix is what follows the last dot of its name in lower case, the whole name
    /// when it has no dot. The entries keep the case they are given in, so one with capitals
    /// matches nothing.
    Q_PROPERTY(QStringList suffixes READ suffixes WRITE setSuffixes NOTIFY suffixesChanged)

public:
    explicit FileDropHandler(QObject *parent = nullptr);
    ~FileDropHandler() override;

    QStringList suffixes() const;
    void setSuffixes(const QStringList &suffixes);

    QVariant dropData(const QMimeData *mimeData) override;
    bool canHandle(const QMimeData *mimeData) override;

Q_SIGNALS:
    void suffixesChanged(const QStringList &suffixes);

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace om::controls
