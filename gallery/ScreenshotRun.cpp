// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/ScreenshotRun.h"

#include <QDir>
#include <QMetaProperty>
#include <QQuickItem>
#include <QQuickWindow>

#include <algorithm>

namespace om::gallery {

namespace {

constexpr int settlingFrames = 3; // bindings, layouts, then what they changed
constexpr int stillness = 60; // ms without a visible change, longer than an animation step takes
constexpr int restlessness = 3000; // ms until a page counts as one that never comes to rest
constexpr int patience = 30000; // ms without any frame

bool isLoading(QQuickItem *item)
{
    if (!item->isVisible()) {
        return false;
    }
    const QMetaObject *type = item->metaObject();
    const int status = type->indexOfProperty("status");
    // Image's and Loader's "Loading" have the same name and different values.
    if (status >= 0) {
        const QMetaProperty property = type->property(status);
        if (property.isEnumType()
            && qstrcmp(property.enumerator().valueToKey(property.read(item).toInt()), "Loading")
                == 0) {
            return true;
        }
    }
    const QList<QQuickItem *> children = item->childItems();
    return std::any_of(children.begin(), children.end(), isLoading);
}

/// The visible items below \a item that have a picture of their own.
QList<QQuickItem *> picturedItems(QQuickItem *item)
{
    if (!item->isVisible()) {
        return {};
    }
    if (!item->property("pictureName").toString().isEmpty()) {
        return {item};
    }
    QList<QQuickItem *> found;
    const QList<QQuickItem *> children = item->childItems();
    for (QQuickItem *child : children) {
        found += picturedItems(child);
    }
    return found;
}

} // namespace

ScreenshotRun::ScreenshotRun(QQuickWindow *window, const QString &folder, QObject *parent)
    : QObject(parent)
    , m_window(window)
    , m_folder(folder)
    , m_lowestHeight(window->height())
{
    m_watchdog.setInterval(patience);
    m_watchdog.setSingleShot(true);
    connect(&m_watchdog, &QTimer::timeout, this,
            [this] { fail(QStringLiteral("the window shows no frames")); });
    connect(m_window, &QQuickWindow::frameSwapped, this, &ScreenshotRun::handleFrame,
            Qt::QueuedConnection);
}

void ScreenshotRun::setTall(bool tall)
{
    m_tall = tall;
}

void ScreenshotRun::setDemos(bool demos)
{
    m_demos = demos;
}

void ScreenshotRun::start(const QStringList &pages)
{
    m_pages = pages;
    if (!QDir().mkpath(m_folder)) {
        return fail(QStringLiteral("%1 cannot be made").arg(m_folder));
    }
    nextPage();
}

void ScreenshotRun::nextPage()
{
    if (m_pages.isEmpty()) {
        m_page.clear();
        m_watchdog.stop();
        Q_EMIT finished(QString());
        return;
    }
    m_page = m_pages.takeFirst();
    m_frames = 0;
    m_previous = QImage();
    m_onPage.start();
    m_window->setProperty("currentPage", m_page);
    m_watchdog.start();
    m_window->update();
}

void ScreenshotRun::handleFrame()
{
    if (m_page.isEmpty()) {
        return;
    }
    m_watchdog.start();
    if (m_window->property("pageBroken").toBool()) {
        return fail(QStringLiteral("page %1 cannot be loaded").arg(m_page));
    }
    const int height =
        m_tall ? qMax(m_lowestHeight, m_window->property("pageHeight").toInt()) : m_lowestHeight;
    if (m_window->property("pageMoves").toBool()) {
        m_onPage.start();
        m_frames = 0;
    }
    const bool resized = height != m_window->height();
    if (resized) {
        m_window->setHeight(height);
        m_previous = QImage();
        m_frames = 0;
    }
    const bool tired = m_onPage.elapsed() > restlessness;
    const bool early = ++m_frames < settlingFrames
        || (!m_previous.isNull() && m_sincePrevious.elapsed() < stillness);
    if (resized || early || (!tired && isLoading(m_window->contentItem()))) {
        m_window->update();
        return;
    }

    const QImage image = m_window->grabWindow();
    if (image.isNull()) {
        return fail(QStringLiteral("the window cannot be grabbed"));
    }
    if (image != m_previous && !tired) {
        m_previous = image;
        m_sincePrevious.start();
        m_window->update();
        return;
    }
    if (save(image)) {
        nextPage();
    }
}

bool ScreenshotRun::save(const QImage &image)
{
    const auto write = [this](const QImage &picture, const QString &name) {
        const QString file = QDir(m_folder).filePath(name + QLatin1String(".png"));
        if (!picture.save(file)) {
            fail(QStringLiteral("%1 cannot be written").arg(file));
            return false;
        }
        return true;
    };
    const QList<QQuickItem *> items =
        m_demos ? picturedItems(m_window->contentItem()) : QList<QQuickItem *>();
    if (items.isEmpty()) {
        return write(image, m_page);
    }
    const qreal density = image.devicePixelRatio();
    return std::all_of(items.begin(), items.end(), [&](QQuickItem *item) {
        const QRectF place = item->mapRectToScene(item->boundingRect());
        const QRectF pixels(place.topLeft() * density, place.size() * density);
        return write(image.copy(pixels.toRect()), item->property("pictureName").toString());
    });
}

void ScreenshotRun::fail(const QString &reason)
{
    m_page.clear();
    m_watchdog.stop();
    Q_EMIT finished(reason);
}

} // namespace om::gallery
