// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <map>
#include <vector>

namespace support {

/// A block of a .qmltypes file: "Property { name: "x"; type: "int" }".
struct TypeBlock
{
    QString kind;
    std::map<QString, QString> fields;
    std::vector<TypeBlock> blocks;

    /// What the field says, without its quotes; a list without its brackets. Empty when it is not
    /// there.
    QString text(const char *field) const;
    bool flag(const char *field) const { return text(field) == QLatin1String("true"); }
    std::vector<const TypeBlock *> children(const char *childKind) const;
};

/// Reads the small part of QML that Qt's tool writes. The file's blocks are the result's.
TypeBlock readTypes(const QString &text);

/// The one of \a types with this name, or null.
const TypeBlock *typeNamed(const std::vector<TypeBlock> &types, const QString &name);

} // namespace support
