// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <OmbrelDataCore/Export.h>

#include <QLocale>

namespace om::data {

/// Countries by their short codes.
class OMBREL_DATACORE_EXPORT Country
{
public:
    /// The country with the ISO 3166-1 alpha-2 code `code`, written in capitals, small letters or
    /// both. `QLocale::AnyCountry` for everything else: reserved and user-assigned codes, codes of
    /// regions, longer or shorter texts, letters outside A to Z.
    static QLocale::Country countryForCode(const QString &code);
};

} // namespace om::data
