// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QQuickItem>
#include <QUrl>

#include <memory>

namespace om::controls {

/// Shows a url as a QR code, with error correction of level L, in the smallest version that holds
/// its encoded form.
///
/// The code fills the item; its implicit size is moduleSize pixels for each module. There is no
/// quiet zone: scanners want a light margin of four modules around the item. With antialiasing
/// the edges between modules are softened. A url of more than 2953 encoded bytes has no code: the
/// item then shows lightColor and its implicit size is negative.
class QRCode : public QQuickItem
{
    Q_OBJECT
    Q_PROPERTY(QUrl url READ url WRITE setUrl NOTIFY urlChanged)
    Q_PROPERTY(int moduleSize READ moduleSize WRITE setModuleSize NOTIFY moduleSizeChanged)
    Q_PROPERTY(QColor darkColor READ darkColor WRITE setDarkColor NOTIFY darkColorChanged)
    Q_PROPERTY(QColor lightColor READ lightColor WRITE setLightColor NOTIFY lightColorChanged)

public:
    explicit QRCode(QQuickItem *parent = nullptr);
    ~QRCode() override;

    /// What the code says, "about:black" at first. An invalid url is ignored.
    QUrl url() const;
    void setUrl(const QUrl &url);

    /// Pixels for each module in the implicit size, 2 to 24, 8 at first. Any other value is refused
    /// with a warning. A width or height that is set or anchored stays.
    int moduleSize() const;
    void setModuleSize(int moduleSize);

    /// The colour of dark modules, black at first.
    QColor darkColor() const;
    void setDarkColor(const QColor &color);

    /// The colour of light modules, white at first.
    QColor lightColor() const;
    void setLightColor(const QColor &color);

Q_SIGNALS:
    void urlChanged(const QUrl &url);
    void moduleSizeChanged(int moduleSize);
    void darkColorChanged(const QColor &color);
    void lightColorChanged(const QColor &color);

protected:
    void geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    QSGNode *updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *data) override;

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace om::controls
