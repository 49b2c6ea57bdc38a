// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/visuals/QRCode.h"

#include "controls/scenegraph/QRCodeNode.h"
#include "controls/scenegraph/Renderer.h"
#include "controls/support/QmlPlace.h"
#include "qr/QrEncoder.h"

#include <QImage>
#include <QLineF>
#include <QPointer>
#include <QQuickWindow>
#include <QSGTexture>

namespace om::controls {

namespace {

constexpr int minimumModuleSize = 2;
constexpr int maximumModuleSize = 24;
constexpr int levelL = 0;
constexpr int automaticVersion = 0;
constexpr int resultBytes = 4096;
static_assert(resultBytes >= QrResultBytes, "the largest code fits");

/// One pixel a module, within a border of one transparent white pixel. A failed encoding has a
/// \a moduleCount of -1: what is left is one pixel of the border.
QImage moduleImage(int moduleCount, const QByteArray &modules)
{
    QImage image(moduleCount + 2, moduleCount + 2, QImage::Format_ARGB32);
    image.fill(0x00ffffff);
    for (int y = 0; y < moduleCount; ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y + 1)) + 1;
        for (int x = 0; x < moduleCount; ++x) {
            const int k = y * moduleCount + x;
            line[x] = modules.at(k / 8) & 0x80 >> k % 8 ? 0xff000000 : 0xffffffff;
        }
    }
    // The shader reads red without regard to alpha. Declared as premultiplied, the pixels are
    // uploaded unchanged; converted, the border would become transparent black and count as dark.
    image.reinterpretAsFormat(QImage::Format_ARGB32_Premultiplied);
    return image;
}

} // namespace

class QRCode::Private
{
public:
    /// What the node has not taken over yet.
    enum Change {
        ImageChange = 0x1,
        DarkChange = 0x2,
        LightChange = 0x4,
        GeometryChange = 0x8,
        EveryChange = ImageChange | DarkChange | LightChange | GeometryChange
    };

    explicit Private(QRCode *item)
        : q(item)
    {
    }

    void encode();
    void updateImplicitSize();

    QRCode *const q;
    QUrl url = QUrl(QStringLiteral("about:black"));
    int moduleCount = 0; ///< Of a side; -1 when the url is too long.
    int moduleSize = 8;
    QColor dark = Qt::black;
    QColor light = Qt::white;
    QByteArray modules; ///< A bit each; the image is made of them when it is uploaded.
    int changes = EveryChange;
};

void QRCode::Private::encode()
{
    const QByteArray text = url.toEncoded(QUrl::FullyEncoded);
    unsigned char result[resultBytes];
    const int count = qrEncode(levelL, automaticVersion, text.constData(), text.size(), result);
    modules =
        QByteArray(reinterpret_cast<const char *>(result), count > 0 ? (count * count + 7) / 8 : 0);
    changes |= ImageChange;
    q->update();
    if (count != moduleCount) {
        moduleCount = count;
        changes |= GeometryChange;
        updateImplicitSize();
    }
}

/// Each extent emits its change. A handler of the first may change what the second is computed
/// from, or delete the item: callers with further steps hold a guard as well.
void QRCode::Private::updateImplicitSize()
{
    const QPointer<QRCode> item(q);
    q->setImplicitWidth(moduleSize * moduleCount);
    if (item) {
        q->setImplicitHeight(moduleSize * moduleCount);
    }
}

QRCode::QRCode(QQuickItem *parent)
    : QQuickItem(parent)
    , d(std::make_unique<Private>(this))
{
    setFlag(ItemHasContents);
    d->encode();
}

QRCode::~QRCode() = default;

QUrl QRCode::url() const
{
    return d->url;
}

void QRCode::setUrl(const QUrl &url)
{
    if (!url.isValid() || url == d->url) {
        return;
    }
    d->url = url;
    // The implicit size changes after the signal, whose handler may delete the item.
    const QPointer<QRCode> item(this);
    Q_EMIT urlChanged(url);
    if (item) {
        d->encode();
    }
}

int QRCode::moduleSize() const
{
    return d->moduleSize;
}

void QRCode::setModuleSize(int moduleSize)
{
    // Refused instead of clamped: a wrong size would be noticed only when the code is printed.
    if (moduleSize < minimumModuleSize || moduleSize > maximumModuleSize) {
        QmlPlace(this).log().warning("Module size must be between %d and %d", minimumModuleSize,
                                     maximumModuleSize);
        return;
    }
    if (moduleSize == d->moduleSize) {
        return;
    }
    d->moduleSize = moduleSize;
    // No update(): the item is repainted when its geometry changes.
    const QPointer<QRCode> item(this);
    d->updateImplicitSize();
    if (item) {
        // A handler of the implicit size may have set another one.
        Q_EMIT moduleSizeChanged(d->moduleSize);
    }
}

QColor QRCode::darkColor() const
{
    return d->dark;
}

void QRCode::setDarkColor(const QColor &color)
{
    if (color == d->dark) {
        return;
    }
    d->dark = color;
    d->changes |= Private::DarkChange;
    update();
    Q_EMIT darkColorChanged(color);
}

QColor QRCode::lightColor() const
{
    return d->light;
}

void QRCode::setLightColor(const QColor &color)
{
    if (color == d->light) {
        return;
    }
    d->light = color;
    d->changes |= Private::LightChange;
    update();
    Q_EMIT lightColorChanged(color);
}

void QRCode::geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    // Without update(): the base class requests one when the size has changed.
    d->changes |= Private::GeometryChange;
    // Last, as it emits signals whose handlers may delete the item.
    QQuickItem::geometryChanged(newGeometry, oldGeometry);
}

QSGNode *QRCode::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *)
{
    if (!isDrawn(window(), NodeKind::Shader)) {
        return nullptr;
    }
    const bool smoothed = antialiasing();
    float radius = 0;
    if (smoothed) {
        const QLineF unit(mapToScene(QPointF(0, 0)), mapToScene(QPointF(1, 0)));
        radius = qrSamplingRadius(width(), unit.length());
    }

    auto *node = static_cast<QRCodeNode *>(oldNode);
    if (!node) {
        node = new QRCodeNode;
        d->changes = Private::EveryChange; // Also after a scene graph was released.
    }
    if (d->changes & Private::GeometryChange) {
        node->setRect(boundingRect(), qrSourceRect(d->moduleCount, smoothed));
    }
    if (d->changes & Private::DarkChange) {
        node->setDark(d->dark);
    }
    if (d->changes & Private::LightChange) {
        node->setLight(d->light);
    }
    if (d->changes & Private::ImageChange) {
        QSGTexture *texture = window()->createTextureFromImage(
            moduleImage(d->moduleCount, d->modules),
            QQuickWindow::CreateTextureOptions(QQuickWindow::TextureHasAlphaChannel)
                | QQuickWindow::TextureOwnsGLTexture);
        if (texture) {
            texture->setFiltering(QSGTexture::Nearest);
        }
        node->setTexture(texture);
    }
    node->setRadius(radius);
    d->changes = 0;
    return node;
}

} // namespace om::controls
