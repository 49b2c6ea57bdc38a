// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/DocumentFiles.h"

#include <QFile>
#include <QRegularExpression>

namespace support {

std::vector<std::pair<QString, QByteArray>> qmlFilesIn(const QString &document)
{
    std::vector<std::pair<QString, QByteArray>> found;
    QFile file(document);
    if (!file.open(QIODevice::ReadOnly)) {
        return found;
    }
    const QRegularExpression block(QStringLiteral("^```qml *([^\\n]*)\\n(.*?)^```$"),
                                   QRegularExpression::MultilineOption
                                       | QRegularExpression::DotMatchesEverythingOption);
    auto blocks = block.globalMatch(QString::fromUtf8(file.readAll()));
    while (blocks.hasNext()) {
        const auto match = blocks.next();
        found.emplace_back(match.captured(1), match.captured(2).toUtf8());
    }
    return found;
}

} // namespace support
