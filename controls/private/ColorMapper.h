// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QObject>

#include <memory>

namespace om::controls {

/// Keeps one colour and nine views of it in step, for editors that show the same colour as HSV,
/// RGB, alpha and hexadecimal text. Editors call one of the update methods; the colour is then made
/// from that component and the other views as they stand, and every view is derived from it anew.
///
/// Numbers out of range are clamped. Views announce themselves one by one, HSV first, then RGB and
/// alpha, then hex; colorChanged() comes last. An update method may be called from any of them.
class ColorMapper : public QObject
{
    Q_OBJECT
    /// 0 to 359. A grey keeps the hue that it was given while only hue, saturation and value are
    /// updated. An update of a component of RGB, of the alpha or of the text, and updateColor()
    /// with a colour that is not HSV, make it 0.
    Q_PROPERTY(int hue READ hue NOTIFY hueChanged)
    /// 0 to 255, as all that follow.
    Q_PROPERTY(int saturation READ saturation NOTIFY saturationChanged)
    Q_PROPERTY(int value READ value NOTIFY valueChanged)
    Q_PROPERTY(int red READ red NOTIFY redChanged)
    Q_PROPERTY(int green READ green NOTIFY greenChanged)
    Q_PROPERTY(int blue READ blue NOTIFY blueChanged)
    Q_PROPERTY(int alpha READ alpha NOTIFY alphaChanged)
    /// Six capital hexadecimal digits, two each for red, green and blue; neither "#" nor alpha.
    Q_PROPERTY(QString hex READ hex NOTIFY hexChanged)
    /// The colour itself, white at first.
    Q_PROPERTY(QColor color READ color NOTIFY colorChanged)

public:
    explicit ColorMapper(QObject *parent = nullptr);
    ~ColorMapper() override;

    int hue() const;
    int saturation() const;
    int value() const;
    int red() const;
    int green() const;
    int blue() const;
    int alpha() const;
    QString hex() const;
    QColor color() const;

    Q_INVOKABLE void updateHue(int hue);
    Q_INVOKABLE void updateSaturation(int saturation);
    Q_INVOKABLE void updateValue(int value);
    Q_INVOKABLE void updateRed(int red);
    Q_INVOKABLE void updateGreen(int green);
    Q_INVOKABLE void updateBlue(int blue);
    Q_INVOKABLE void updateAlpha(int alpha);
    /// Takes hexadecimal digits without the "#"; the alpha stays what it is, also when \a hex
    /// brings one. Text that is no colour makes the colour invalid.
    Q_INVOKABLE void updateHex(const QString &hex);
    /// Takes \a color as it is. Does nothing when it equals the present one, colour model included.
    Q_INVOKABLE void updateColor(const QColor &color);

Q_SIGNALS:
    void hueChanged();
    void saturationChanged();
    void valueChanged();
    void redChanged();
    void greenChanged();
    void blueChanged();
    void alphaChanged();
    void hexChanged();
    void colorChanged();

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace om::controls
