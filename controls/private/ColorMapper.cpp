// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/private/ColorMapper.h"

#include <QPointer>

namespace om::controls {

namespace {

int hueOf(const QColor &color)
{
    // hsvHue() is -1 for a grey, and 360 for a hue that was set as the real number 1.
    return qBound(0, color.hsvHue(), 359);
}

int component(int value)
{
    return qBound(0, value, 255);
}

} // namespace

class ColorMapper::Private
{
public:
    explicit Private(ColorMapper *mapper)
        : q(mapper)
    {
    }

    bool deriveViews();
    void updateHsv(int newHue, int newSaturation, int newValue);
    void updateRgb(int newRed, int newGreen, int newBlue, int newAlpha);

    ColorMapper *const q;
    QColor color = Qt::white;
    int hue = 0;
    int saturation = 0;
    int value = 0;
    int red = 0;
    int green = 0;
    int blue = 0;
    int alpha = 0;
    QString hex;
};

/// Each view is computed right before it is stored: a handler of an earlier view's signal may have
/// set another colour, whose views must not be overwritten with those of the old colour. Returns
/// false when a handler has deleted the mapper.
bool ColorMapper::Private::deriveViews()
{
    struct Number
    {
        int Private::*view;
        int (*read)(const QColor &color);
        void (ColorMapper::*changed)();
    };
    static constexpr Number numbers[] = {
        {&Private::hue, hueOf, &ColorMapper::hueChanged},
        {&Private::saturation, [](const QColor &c) { return c.hsvSaturation(); },
         &ColorMapper::saturationChanged},
        {&Private::value, [](const QColor &c) { return c.value(); }, &ColorMapper::valueChanged},
        {&Private::red, [](const QColor &c) { return c.red(); }, &ColorMapper::redChanged},
        {&Private::green, [](const QColor &c) { return c.green(); }, &ColorMapper::greenChanged},
        {&Private::blue, [](const QColor &c) { return c.blue(); }, &ColorMapper::blueChanged},
        {&Private::alpha, [](const QColor &c) { return c.alpha(); }, &ColorMapper::alphaChanged},
    };
    const QPointer<ColorMapper> mapper(q);
    for (const Number &number : numbers) {
        const int current = number.read(color);
        if (this->*number.view != current) {
            this->*number.view = current;
            Q_EMIT(q->*number.changed)();
            if (!mapper) {
                return false;
            }
        }
    }
    const QString digits = color.name().mid(1).toUpper();
    if (hex != digits) {
        hex = digits;
        Q_EMIT q->hexChanged();
    }
    return !mapper.isNull();
}

void ColorMapper::Private::updateHsv(int newHue, int newSaturation, int newValue)
{
    q->updateColor(QColor::fromHsv(newHue, newSaturation, newValue, alpha));
}

void ColorMapper::Private::updateRgb(int newRed, int newGreen, int newBlue, int newAlpha)
{
    q->updateColor(QColor(newRed, newGreen, newBlue, newAlpha));
}

ColorMapper::ColorMapper(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>(this))
{
    blockSignals(true);
    d->deriveViews();
    blockSignals(false);
}

ColorMapper::~ColorMapper() = default;

int ColorMapper::hue() const
{
    return d->hue;
}

int ColorMapper::saturation() const
{
    return d->saturation;
}

int ColorMapper::value() const
{
    return d->value;
}

int ColorMapper::red() const
{
    return d->red;
}

int ColorMapper::green() const
{
    return d->green;
}

int ColorMapper::blue() const
{
    return d->blue;
}

int ColorMapper::alpha() const
{
    return d->alpha;
}

QString ColorMapper::hex() const
{
    return d->hex;
}

QColor ColorMapper::color() const
{
    return d->color;
}

void ColorMapper::updateHue(int hue)
{
    const int clamped = qBound(0, hue, 359);
    if (clamped != d->hue) {
        d->updateHsv(clamped, d->saturation, d->value);
    }
}

void ColorMapper::updateSaturation(int saturation)
{
    const int clamped = component(saturation);
    if (clamped != d->saturation) {
        d->updateHsv(d->hue, clamped, d->value);
    }
}

void ColorMapper::updateValue(int value)
{
    const int clamped = component(value);
    if (clamped != d->value) {
        d->updateHsv(d->hue, d->saturation, clamped);
    }
}

void ColorMapper::updateRed(int red)
{
    const int clamped = component(red);
    if (clamped != d->red) {
        d->updateRgb(clamped, d->green, d->blue, d->alpha);
    }
}

void ColorMapper::updateGreen(int green)
{
    const int clamped = component(green);
    if (clamped != d->green) {
        d->updateRgb(d->red, clamped, d->blue, d->alpha);
    }
}

void ColorMapper::updateBlue(int blue)
{
    const int clamped = component(blue);
    if (clamped != d->blue) {
        d->updateRgb(d->red, d->green, clamped, d->alpha);
    }
}

void ColorMapper::updateAlpha(int alpha)
{
    const int clamped = component(alpha);
    if (clamped != d->alpha) {
        d->updateRgb(d->red, d->green, d->blue, clamped);
    }
}

void ColorMapper::updateHex(const QString &hex)
{
    QColor color;
    color.setNamedColor(QLatin1Char('#') + hex);
    color.setAlpha(d->alpha);
    updateColor(color);
}

void ColorMapper::updateColor(const QColor &color)
{
    if (color == d->color) {
        return;
    }
    d->color = color;
    if (d->deriveViews()) {
        Q_EMIT colorChanged();
    }
}

} // namespace om::controls
