// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/scenegraph/QRData.h"

#include <QSGTexture>

namespace om::controls {

namespace {

int order(int a, int b)
{
    return a < b ? -1 : a > b ? 1 : 0;
}

int order(const QColor &a, const QColor &b)
{
    if (const int red = order(a.red(), b.red())) {
        return red;
    }
    if (const int green = order(a.green(), b.green())) {
        return green;
    }
    return order(a.blue(), b.blue());
}

int idOf(const QSGTexture *texture)
{
    return texture ? texture->textureId() : 0;
}

} // namespace

int QRData::compare(const QRData *other) const
{
    if (const int darks = order(dark, other->dark)) {
        return darks;
    }
    if (const int lights = order(light, other->light)) {
        return lights;
    }
    return order(idOf(texture), idOf(other->texture));
}

} // namespace om::controls
