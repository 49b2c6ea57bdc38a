// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QObject>

#include <memory>

namespace om::controls {

/// The singleton with the application's theme: fonts, palette, currency signs. It has no state;
/// every answer comes from the arguments alone.
class UI : public QObject
{
    Q_OBJECT

public:
    /// The two text styles. Of a fixed type, as below: QML may pass any number.
    enum Font : int {
        PrimaryFont = 0,
        SecondaryFont = 1
    };
    Q_ENUM(Font)

    /// The palette, by purpose.
    enum Color : int {
        PrimaryBase = 0,
        SecondaryBase,
        PrimaryHover,
        SecondaryHover,
        PrimaryPress,
        SecondaryPress,
        NoFocusSelection,
        PrimaryControlBorder,
        SecondaryControlBorder,
        ControlBorderHover,
        ControlBorderPress,
        DisabledBorder,
        PrimaryFocusBorder,
        SecondaryFocusBorder,
        PrimarySeparationLine,
        SecondarySeparationLine,
        TertiarySeparationLine,
        FocusSeparationLine,
        PrimaryTextColor,
        SecondaryTextColor,
        TertiaryTextColor,
        DisabledText,
        SelectedTextColor,
        TextSelection,
        WarningBackground,
        DialogHeader,
        DialogHeaderText,
        DisabledButton,
        TabButtonBorder,
        TabActive,
        DisabledTabText,
        LinkBaseColor,
        LinkPressColor,
        LinkLineColor,
        ScrollViewBorder,
        ScrollView,
        SearchBarDisabledText,
        NavigationBarBottom,
        NavigationBarSeparators,
        PasswordAcceptable,
        PasswordInsecure,
        PasswordAlertArea,
        GroupHover,
        GroupActive,
        ThumbOverlayAndBorder,
        LanguagesOverlay,
        CheckBoxRadioButtonBorderPress,
        CheckBoxRadioButtonBorderHover,
        CalendarIcon,
        CalendarNavIcon,
        DropdownIndicatorIcon,
        MoreOptionsIcon,
        ProgressBarBackground,
        ImageBoxBackground,
        VideoBoxBackground,
        ThumbPreviewBackground,
        AreaEditorBackground,
        MenuEditorBackground,
        NotificationBarBackground,
        NotificationText,
        LoadIndicator,
        VideoProgressBarBackground,
        VideoProgressBarForeground,
        ToggleOff,
        ToggleOnDateRestricted,
        ToggleOn
    };
    Q_ENUM(Color)

    explicit UI(QObject *parent = nullptr);
    ~UI() override;

    /// The family of \a font; empty for a value that is no Font. The application brings the fonts.
    Q_INVOKABLE QString fontFamily(Font font) const;
    /// The weight (of QFont) of \a font: 25 for PrimaryFont, 50 for everything else.
    Q_INVOKABLE int fontWeight(Font font) const;
    /// The colour \a color with \a alpha, 0 to 1. A value that is no Color gives an invalid colour,
    /// with that alpha nevertheless.
    Q_INVOKABLE QColor color(Color color, double alpha) const;
    /// The same, opaque.
    Q_INVOKABLE QColor color(Color color) const;
    /// The currency sign of the country with the ISO 3166-1 code \a country, or the currency's
    /// three-letter code when \a fontFamily cannot draw every character of the sign.
    Q_INVOKABLE QString currencyString(const QString &country, const QString &fontFamily) const;

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace om::controls
