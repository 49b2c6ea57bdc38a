// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/RegisteredTypes.h"

#include <QFile>
#include <QRegularExpression>

namespace support {

QStringList registeredTypes()
{
    QFile file(qEnvironmentVariable("OMBREL_SOURCE_DIR")
               + QStringLiteral("/plugin/Registration.cpp"));
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("There is no plugin/Registration.cpp");
    }
    const QRegularExpression row(QStringLiteral("qmlRegisterType<(\\w+)>"));
    QStringList types;
    auto rows = row.globalMatch(QString::fromUtf8(file.readAll()));
    while (rows.hasNext()) {
        types.append(rows.next().captured(1));
    }
    return types;
}

} // namespace support
