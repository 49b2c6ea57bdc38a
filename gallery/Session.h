// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QRect>

#include <memory>

class QSettings;
class QWindow;

namespace om::gallery {

/// What the gallery knows of the person in front of it: light or dark, the page that was open last,
/// and where the window was. Kept in a file when there is one.
class Session : public QObject
{
    Q_OBJECT
    /// "system", "light" or "dark"; anything else is "system".
    Q_PROPERTY(QString appearance READ appearance WRITE setAppearance NOTIFY appearanceChanged)
    /// Whether it is dark now: what `appearance` says, or else the system's palette, whose change
    /// it follows.
    Q_PROPERTY(bool dark READ isDark NOTIFY darkChanged)
    /// The name of the page that is open; empty at the first start.
    Q_PROPERTY(QString page READ page WRITE setPage NOTIFY pageChanged)

public:
    /// Remembers in `settings`; without one, only as long as it lives.
    explicit Session(std::unique_ptr<QSettings> settings, QObject *parent = nullptr);
    ~Session() override;

    QString appearance() const;
    void setAppearance(const QString &appearance);
    bool isDark() const;
    QString page() const;
    void setPage(const QString &page);

    /// Puts `window` where the one before it was, if a screen is there.
    void restore(QWindow *window) const;
    /// Remembers where `window` is.
    void keep(const QWindow *window);

    /// Puts `text` on the clipboard.
    Q_INVOKABLE void copy(const QString &text) const;

Q_SIGNALS:
    void appearanceChanged();
    void darkChanged();
    void pageChanged();

private:
    void updateDark();

    const std::unique_ptr<QSettings> m_settings;
    QString m_appearance;
    QString m_page;
    bool m_dark = false;
};

} // namespace om::gallery
