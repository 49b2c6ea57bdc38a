// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/private/ColorMapper.h"
#include "tests/fuzz/Bytes.h"

using namespace om::controls;

namespace {

void expectViewsOf(const ColorMapper &mapper)
{
    const QColor color = mapper.color();
    fuzz::expect(mapper.hue() == qBound(0, color.hsvHue(), 359), "the hue is the colour's");
    fuzz::expect(mapper.saturation() == color.hsvSaturation(), "the saturation is the colour's");
    fuzz::expect(mapper.value() == color.value(), "the value is the colour's");
    fuzz::expect(mapper.red() == color.red() && mapper.green() == color.green()
                     && mapper.blue() == color.blue() && mapper.alpha() == color.alpha(),
                 "red, green, blue and alpha are the colour's");
    fuzz::expect(QLatin1Char('#') + mapper.hex() == color.name().toUpper(),
                 "the digits are the colour's");
    for (const int component : {mapper.saturation(), mapper.value(), mapper.red(), mapper.green(),
                                mapper.blue(), mapper.alpha()}) {
        fuzz::expect(component >= 0 && component <= 255, "a component is 0 to 255");
    }
}

} // namespace

/// Calls of the update methods, one after another: a byte says which, then comes its number, or the
/// length of its text and the text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    using Update = void (ColorMapper::*)(int);
    constexpr Update updates[] = {&ColorMapper::updateHue,   &ColorMapper::updateSaturation,
                                  &ColorMapper::updateValue, &ColorMapper::updateRed,
                                  &ColorMapper::updateGreen, &ColorMapper::updateBlue,
                                  &ColorMapper::updateAlpha};
    constexpr int count = sizeof updates / sizeof *updates;

    ColorMapper mapper;
    int colorChanges = 0;
    QObject::connect(&mapper, &ColorMapper::colorChanged, [&] {
        ++colorChanges;
        expectViewsOf(mapper);
    });

    fuzz::Bytes bytes(data, size);
    while (!bytes.isEmpty()) {
        const int choice = bytes.byte() % (2 * count);
        const QColor before = mapper.color();
        const int alpha = mapper.alpha();
        colorChanges = 0;
        if (choice < count) {
            (mapper.*updates[choice])(bytes.number());
        } else {
            QByteArray text;
            for (int length = bytes.byte() % 24; length > 0; --length) {
                text.append(static_cast<char>(bytes.byte()));
            }
            mapper.updateHex(QString::fromUtf8(text));
            fuzz::expect(mapper.alpha() == alpha, "digits keep the alpha");
        }
        fuzz::expect(colorChanges == (mapper.color() == before ? 0 : 1),
                     "the colour's change is said once");
        expectViewsOf(mapper);
    }
    return 0;
}
