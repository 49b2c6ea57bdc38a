// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/theme/UI.h"

#include <OmbrelDataCore/Country.h>

#include <QFont>
#include <QLocale>
#include <QRawFont>

#include <algorithm>
#include <iterator>

namespace om::controls {

namespace {

/// The palette in the order of UI::Color.
constexpr const char *palette[] = {
    "#FFFFFF", // PrimaryBase
    "#70A9B8", // SecondaryBase
    "#BCDDBF", // PrimaryHover
    "#6AB7CC", // SecondaryHover
    "#90C695", // PrimaryPress
    "#40A1BB", // SecondaryPress
    "#A5B8A6", // NoFocusSelection
    "#CCCCCC", // PrimaryControlBorder
    "#90C695", // SecondaryControlBorder
    "#BCDDBF", // ControlBorderHover
    "#90C695", // ControlBorderPress
    "#DDDDDD", // DisabledBorder
    "#8BC7D8", // PrimaryFocusBorder
    "#6AA0AF", // SecondaryFocusBorder
    "#D8D7D1", // PrimarySeparationLine
    "#EAE8E2", // SecondarySeparationLine
    "#EBEBEB", // TertiarySeparationLine
    "#000000", // FocusSeparationLine
    "#000000", // PrimaryTextColor
    "#AAAAAE", // SecondaryTextColor
    "#444444", // TertiaryTextColor
    "#BBBBBB", // DisabledText
    "#FFFFFF", // SelectedTextColor
    "#90C695", // TextSelection
    "#ECD284", // WarningBackground
    "#F6F6F6", // DialogHeader
    "#555555", // DialogHeaderText
    "#DDDDDD", // DisabledButton
    "#8DD4C2", // TabButtonBorder
    "#A3C5CC", // TabActive
    "#E3E4E5", // DisabledTabText
    "#40A1BB", // LinkBaseColor
    "#55C1DE", // LinkPressColor
    "#40A1BB", // LinkLineColor
    "#DDDDDD", // ScrollViewBorder
    "#F8F7F5", // ScrollView
    "#D7D7D7", // SearchBarDisabledText
    "#90C695", // NavigationBarBottom
    "#CCCCCC", // NavigationBarSeparators
    "#E7C869", // PasswordAcceptable
    "#979790", // PasswordInsecure
    "#F6F6F6", // PasswordAlertArea
    "#FBFBFA", // GroupHover
    "#FBFAF9", // GroupActive
    "#888888", // ThumbOverlayAndBorder
    "#AAAAAA", // LanguagesOverlay
    "#81B286", // CheckBoxRadioButtonBorderPress
    "#9FC8A3", // CheckBoxRadioButtonBorderHover
    "#ADADAD", // CalendarIcon
    "#666666", // CalendarNavIcon
    "#666666", // DropdownIndicatorIcon
    "#222222", // MoreOptionsIcon
    "#D8D7D1", // ProgressBarBackground
    "#DDDDDD", // ImageBoxBackground
    "#B5CDD2", // VideoBoxBackground
    "#EDEDED", // ThumbPreviewBackground
    "#F8F8F8", // AreaEditorBackground
    // Not the "#F8F8F8" of AreaEditorBackground: callers see the warning yellow for this value.
    "#ECD284", // MenuEditorBackground
    "#ECD284", // NotificationBarBackground
    "#333333", // NotificationText
    "#40A1BB", // LoadIndicator
    "#000000", // VideoProgressBarBackground
    "#FFFFFF", // VideoProgressBarForeground
    "#D7D7D7", // ToggleOff
    "#70A9B8", // ToggleOnDateRestricted
    "#90C695", // ToggleOn
};
static_assert(std::size(palette) == UI::ToggleOn + 1, "a text for each colour");

} // namespace

class UI::Private
{
public:
    explicit Private(UI *ui)
        : q(ui)
    {
    }

    UI *const q;
};

UI::UI(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>(this))
{
}

UI::~UI() = default;

QString UI::fontFamily(Font font) const
{
    switch (font) {
    case PrimaryFont:
        return QStringLiteral("Om_Lato");
    case SecondaryFont:
        return QStringLiteral("Om_Lato");
    }
    return {};
}

int UI::fontWeight(Font font) const
{
    return font == PrimaryFont ? QFont::Light : QFont::Normal;
}

QColor UI::color(Color color, double alpha) const
{
    QColor result;
    // As unsigned, a negative value becomes a large one, so one comparison finds both.
    const auto index = static_cast<unsigned>(color);
    if (index < std::size(palette)) {
        result.setNamedColor(QLatin1String(palette[index]));
    }
    result.setAlphaF(alpha);
    return result;
}

QColor UI::color(Color color) const
{
    return this->color(color, 1.0);
}

QString UI::currencyString(const QString &country, const QString &fontFamily) const
{
    const QLocale locale(QLocale::AnyLanguage, om::data::Country::countryForCode(country));
    const QFont font(fontFamily, -1, -1, false);
    const QRawFont rawFont = QRawFont::fromFont(font, QFontDatabase::Any);
    const QString symbol = locale.currencySymbol(QLocale::CurrencySymbol);
    const bool drawable =
        std::all_of(symbol.cbegin(), symbol.cend(), [&rawFont](const QChar &character) {
            return rawFont.supportsCharacter(character);
        });
    return drawable ? symbol : locale.currencySymbol(QLocale::CurrencyIsoCode);
}

} // namespace om::controls
