// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

namespace om::controls {

/// The singleton that names the sides of an item and the font family for a font weight: the
/// application's fonts are installed as one family per weight.
class Control : public QObject
{
    Q_OBJECT

public:
    /// A side of an item. No value is 0.
    enum Edge {
        LeftEdge = 1,
        TopEdge = 2,
        RightEdge = 3,
        BottomEdge = 4
    };
    Q_ENUM(Edge)

    explicit Control(QObject *parent = nullptr);
    ~Control() override;

    /// The application's font family, as it is now, with the suffix of the family that draws
    /// \a weight (of QFont): " Light" for 25, " Semibold" for 63, " Black" for 87. Every other
    /// number gives the family itself.
    Q_INVOKABLE QString fontFamilyForWeight(int weight) const;
};

} // namespace om::controls
