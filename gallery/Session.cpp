// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/Session.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPalette>
#include <QScreen>
#include <QSettings>
#include <QWindow>

#include <algorithm>

namespace om::gallery {

namespace {

const QLatin1String systemAppearance("system");
const QLatin1String appearanceKey("appearance");
const QLatin1String pageKey("page");
const QLatin1String placeKey("window/place");
const QLatin1String maximizedKey("window/maximized");

QString known(const QString &appearance)
{
    return appearance == QLatin1String("light") || appearance == QLatin1String("dark")
        ? appearance
        : QString(systemAppearance);
}

bool isSystemDark()
{
    return QGuiApplication::palette().color(QPalette::Window).lightness() < 128;
}

} // namespace

Session::Session(std::unique_ptr<QSettings> settings, QObject *parent)
    : QObject(parent)
    , m_settings(std::move(settings))
    , m_appearance(systemAppearance)
{
    if (m_settings) {
        m_appearance = known(m_settings->value(appearanceKey).toString());
        m_page = m_settings->value(pageKey).toString();
    }
    updateDark();
    connect(qGuiApp, &QGuiApplication::paletteChanged, this, &Session::updateDark);
}

Session::~Session() = default;

QString Session::appearance() const
{
    return m_appearance;
}

void Session::setAppearance(const QString &appearance)
{
    const QString wanted = known(appearance);
    if (wanted == m_appearance) {
        return;
    }
    m_appearance = wanted;
    if (m_settings) {
        m_settings->setValue(appearanceKey, m_appearance);
    }
    updateDark();
    Q_EMIT appearanceChanged();
}

bool Session::isDark() const
{
    return m_dark;
}

QString Session::page() const
{
    return m_page;
}

void Session::setPage(const QString &page)
{
    if (page == m_page) {
        return;
    }
    m_page = page;
    if (m_settings) {
        m_settings->setValue(pageKey, m_page);
    }
    Q_EMIT pageChanged();
}

void Session::restore(QWindow *window) const
{
    const QRect place = m_settings ? m_settings->value(placeKey).toRect() : QRect();
    if (!place.isValid()) {
        return;
    }
    const QList<QScreen *> screens = QGuiApplication::screens();
    // A screen that was there may be gone, and its windows cannot be reached.
    const bool reachable =
        std::any_of(screens.begin(), screens.end(), [&place](const QScreen *screen) {
            return screen->availableGeometry().contains(place.center());
        });
    if (!reachable) {
        return;
    }
    window->setGeometry(QRect(place.topLeft(), place.size().expandedTo(window->minimumSize())));
    if (m_settings->value(maximizedKey).toBool()) {
        window->setWindowState(Qt::WindowMaximized);
    }
}

void Session::keep(const QWindow *window)
{
    if (!m_settings) {
        return;
    }
    const bool maximized = window->windowStates() & Qt::WindowMaximized;
    m_settings->setValue(maximizedKey, maximized);
    // The place that a maximized window goes back to is the one of before.
    if (!maximized) {
        m_settings->setValue(placeKey, window->geometry());
    }
}

void Session::copy(const QString &text) const
{
    QGuiApplication::clipboard()->setText(text);
}

void Session::updateDark()
{
    const bool dark = m_appearance == QLatin1String("dark")
        || (m_appearance == systemAppearance && isSystemDark());
    if (dark == m_dark) {
        return;
    }
    m_dark = dark;
    Q_EMIT darkChanged();
}

} // namespace om::gallery
