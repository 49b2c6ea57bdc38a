// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/theme/Control.h"

#include <QFont>

namespace om::controls {

Control::Control(QObject *parent)
    : QObject(parent)
{
}

Control::~Control() = default;

QString Control::fontFamilyForWeight(int weight) const
{
    QString family = QFont().family();
    switch (weight) {
    case QFont::Light:
        return family + QStringLiteral(" Light");
    case QFont::DemiBold:
        return family + QStringLiteral(" Semibold");
    case QFont::Black:
        return family + QStringLiteral(" Black");
    default:
        return family;
    }
}

} // namespace om::controls
